#include "recipe/PnOrigin.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

using Answer = PnOrigin::Answer;

TEST(PnOrigin, NothingIsClaimedBeforeAValueHasCome) {
  EXPECT_STREQ(PnOrigin().key(false), "");
  EXPECT_STREQ(PnOrigin().key(true), "originProposed");
}

TEST(PnOrigin, AnEditStandsAboveWhatTheDeviceTold) {
  PnOrigin origin;
  origin.take(Answer::Read, "1.5");
  EXPECT_STREQ(origin.key(false), "originDevice");
  EXPECT_STREQ(origin.key(true), "originProposed");
}

TEST(PnOrigin, WhatWasSentIsConfirmedWhenItIsReadBackTheSame) {
  PnOrigin origin;
  origin.take(Answer::Written, "1.5");
  EXPECT_STREQ(origin.key(false), "originSent");
  origin.take(Answer::Read, "1.5");
  EXPECT_STREQ(origin.key(false), "originConfirmed");
  origin.take(Answer::Read, "1.5");
  EXPECT_STREQ(origin.key(false), "originConfirmed");
  origin.take(Answer::Read, "1.6");
  EXPECT_STREQ(origin.key(false), "originDevice");
  origin.take(Answer::Read, "1.5");
  EXPECT_STREQ(origin.key(false), "originDevice") << "somebody else has written it";
}

TEST(PnOrigin, WhatIsReadOtherThanItWasSentIsTheDevices) {
  PnOrigin origin;
  origin.take(Answer::Written, "1.5");
  origin.take(Answer::Read, "1.49");
  EXPECT_STREQ(origin.key(false), "originDevice");
}

TEST(PnOrigin, ADataSetForgetsWhatWasSent) {
  PnOrigin origin;
  origin.take(Answer::Written, "1.5");
  origin.take(Answer::DataSet, "1.5");
  EXPECT_STREQ(origin.key(false), "originDataSet");
  origin.take(Answer::Read, "1.5");
  EXPECT_STREQ(origin.key(false), "originDevice");
}

}  // namespace
}  // namespace ostrand

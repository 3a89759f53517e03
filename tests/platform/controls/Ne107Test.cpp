#include "platform/controls/Ne107.h"

#include <gtest/gtest.h>

#include "platform/xml/Vocabulary.h"

namespace ostrand {
namespace {

TEST(Ne107Test, WhatComesFirstInTheOrderIsShown) {
  EXPECT_EQ(foremost({Ne107::Maintenance, Ne107::Failure}, ne107Order()), Ne107::Failure);
  EXPECT_EQ(foremost({Ne107::OutOfSpecification, Ne107::FunctionCheck}, ne107Order()), Ne107::FunctionCheck);
  EXPECT_EQ(foremost({Ne107::Maintenance, Ne107::Failure}, {Ne107::Maintenance, Ne107::Failure}), Ne107::Maintenance);
  EXPECT_EQ(foremost({}, ne107Order()), Ne107::Good);
}

TEST(Ne107Test, ARaisedBitMeansWhatItsMappingTells) {
  const Document dataSet = Document::readFile(std::string(OSTRAND_SOURCE_DIR) + "/data/devices/hartBlade.xml");
  const auto meaning = [&](const char* bit) { return ne107OfRaised(mappingByTail(dataSet, bit)); };
  EXPECT_EQ(meaning("statusSensorFailure"), Ne107::Failure);
  EXPECT_EQ(meaning("statusLoopTestActive"), Ne107::FunctionCheck);
  EXPECT_EQ(meaning("statusHARTPVOutOfLimits"), Ne107::OutOfSpecification);
  EXPECT_EQ(meaning("statusHARTColdStart"), std::nullopt) << "the mapping names no category";
  EXPECT_EQ(meaning("statusOfNothing"), std::nullopt);
}

}  // namespace
}  // namespace ostrand

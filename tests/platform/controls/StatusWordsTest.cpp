#include "platform/controls/StatusWords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/FakeMessenger.h"

namespace ostrand {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct StatusWordsTest : testing::Test {
  FakeCalls calls;
  Ref<FakeMessenger> messenger{new FakeMessenger(calls)};

  std::string edit(std::string word, bool modified, bool correct) {
    forwardEditChanges("p", modified, correct, word, messenger);
    return word;
  }
  std::string sync(std::string word, bool succeeded) {
    forwardSyncChanges("p", succeeded, word, messenger);
    return word;
  }
};

TEST_F(StatusWordsTest, TheSyncWordTellsFirstReadFailureAndRecovery) {
  EXPECT_EQ(sync("notRead", true), "sync");
  EXPECT_EQ(sync("syncError", true), "reSync");
  EXPECT_EQ(sync("notRead", false), "syncError");
  EXPECT_EQ(sync("sync", false), "syncError");
  EXPECT_EQ(sync("reSync", false), "syncError");
  EXPECT_THAT(calls.take(),
              ElementsAre(R"(SetParameterStatus "p" "sync")", R"(SetParameterStatus "p" "reSync")", R"(SetParameterStatus "p" "syncError")",
                          R"(SetParameterStatus "p" "syncError")", R"(SetParameterStatus "p" "syncError")"));
}

TEST_F(StatusWordsTest, ASyncWordThatStaysIsNotTold) {
  EXPECT_EQ(sync("sync", true), "sync");
  EXPECT_EQ(sync("reSync", true), "reSync");
  EXPECT_EQ(sync("syncError", false), "syncError");
  EXPECT_THAT(calls.take(), IsEmpty());
}

TEST_F(StatusWordsTest, TheEditWordMovesByThreeRulesInTurn) {
  EXPECT_EQ(edit("original", true, true), "edited");
  EXPECT_THAT(calls.take(), ElementsAre(R"(SetParameterStatus "p" "edited")"));
  EXPECT_EQ(edit("original", true, false), "editedError");
  EXPECT_THAT(calls.take(), ElementsAre(R"(SetParameterStatus "p" "edited")", R"(SetParameterStatus "p" "editedError")"));
  EXPECT_EQ(edit("editedError", true, true), "corrected");
  EXPECT_THAT(calls.take(), ElementsAre(R"(SetParameterStatus "p" "corrected")"));
  EXPECT_EQ(edit("corrected", true, false), "editedError");
  EXPECT_EQ(edit("edited", true, false), "editedError");
  EXPECT_EQ(edit("edited", false, true), "original");
  EXPECT_EQ(edit("corrected", false, true), "original");
  calls.take();
  EXPECT_EQ(edit("editedError", false, true), "original");
  EXPECT_THAT(calls.take(), ElementsAre(R"(SetParameterStatus "p" "corrected")", R"(SetParameterStatus "p" "original")"));
}

TEST_F(StatusWordsTest, AnEditWordThatStaysIsNotTold) {
  EXPECT_EQ(edit("original", false, true), "original");
  EXPECT_EQ(edit("original", false, false), "original");
  EXPECT_EQ(edit("edited", true, true), "edited");
  EXPECT_EQ(edit("corrected", true, true), "corrected");
  EXPECT_EQ(edit("editedError", true, false), "editedError");
  EXPECT_THAT(calls.take(), IsEmpty());
}

TEST_F(StatusWordsTest, WithoutAHostTheWordsMoveAllTheSame) {
  std::string word = "notRead";
  forwardSyncChanges("p", true, word, nullptr);
  EXPECT_EQ(word, "sync");
  word = "original";
  forwardEditChanges("p", true, false, word, nullptr);
  EXPECT_EQ(word, "editedError");
}

// A host may change what the name was taken from while it is told a word.
TEST_F(StatusWordsTest, TheNameIsNotBorrowedAcrossCalls) {
  std::string name = "a name that is too long to stand inside the string itself";
  std::string word = "original";
  calls.during("SetParameterStatus", [&] { name.assign(200, '#'), name.shrink_to_fit(); });
  forwardEditChanges(name, true, false, word, messenger);
  EXPECT_THAT(calls.take(), ElementsAre(R"(SetParameterStatus "a name that is too long to stand inside the string itself" "edited")",
                                        R"(SetParameterStatus "a name that is too long to stand inside the string itself" "editedError")"));
}

}  // namespace
}  // namespace ostrand

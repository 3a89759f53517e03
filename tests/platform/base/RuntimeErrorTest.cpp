#include "platform/base/RuntimeError.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace ostrand {
namespace {

template <class Thrown>
ErrorText caught(Thrown thrown) {
  try {
    throw thrown;
  } catch (...) {
    return currentError();
  }
}

TEST(CurrentError, TellsNumberAndDescription) {
  const ErrorText error = caught(RuntimeError(RuntimeError::OutOfRange, "no such channel"));
  EXPECT_EQ(error.number, 9);
  EXPECT_EQ(error.description, "no such channel");
}

TEST(CurrentError, AnyOtherExceptionIs440) {
  const ErrorText standard = caught(std::runtime_error("what happened"));
  EXPECT_EQ(standard.number, 440);
  EXPECT_EQ(standard.description, "what happened");
  EXPECT_EQ(caught(42).number, 440);
}

TEST(RuntimeError, NothingThereIs91) {
  try {
    throwNothingThere("the messenger");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 91);
    EXPECT_STREQ(error.what(), "the messenger is not there");
  }
}

}  // namespace
}  // namespace ostrand

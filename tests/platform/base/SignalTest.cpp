#include "platform/base/Signal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace ostrand {
namespace {

using testing::ElementsAre;

struct SignalTest : testing::Test {
  Signal<> signal;
  std::vector<std::string> heard;
  auto hears(const char* name) {
    return [this, name] { heard.push_back(name); };
  }
};

TEST_F(SignalTest, CallsInTheOrderOfSubscription) {
  EXPECT_FALSE(signal.hasListeners());
  signal.connect(hears("a"));
  signal.connect(hears("b"));
  signal.connect(hears("c"));
  EXPECT_TRUE(signal.hasListeners());
  signal();
  EXPECT_THAT(heard, ElementsAre("a", "b", "c"));
}

TEST_F(SignalTest, HandsItsArgumentsToEachListenerWhole) {
  Signal<std::string> texts;
  for (int i = 0; i < 2; ++i) texts.connect([&](std::string text) { heard.push_back(std::move(text)); });
  texts("a text that is longer than a small buffer");
  EXPECT_THAT(heard, ElementsAre("a text that is longer than a small buffer", "a text that is longer than a small buffer"));
}

TEST_F(SignalTest, WhoLeftIsNotCalledAndMayLeaveTwice) {
  const auto a = signal.connect(hears("a"));
  signal.connect(hears("b"));
  signal.disconnect(a);
  signal.disconnect(a);
  signal.disconnect(12345);
  signal();
  EXPECT_THAT(heard, ElementsAre("b"));
}

TEST_F(SignalTest, WhoJoinsDuringACallIsCalledFromTheNextOneOn) {
  signal.connect([&] {
    heard.push_back("a");
    // Many, so that the list has to move while it is walked.
    for (int i = 0; i < 20; ++i) signal.connect(hears("late"));
  });
  signal.connect(hears("b"));
  signal();
  EXPECT_THAT(heard, ElementsAre("a", "b"));
  signal();
  EXPECT_EQ(heard.size(), 24u);
}

TEST_F(SignalTest, WhoLeavesDuringACallIsPassedOver) {
  Signal<>::Id b = 0, self = 0;
  signal.connect([&] {
    heard.push_back("a");
    signal.disconnect(b);
  });
  b = signal.connect(hears("b"));
  self = signal.connect([&] {
    heard.push_back("once");
    signal.disconnect(self);
  });
  signal.connect(hears("c"));
  signal();
  signal();
  EXPECT_THAT(heard, ElementsAre("a", "once", "c", "a", "c"));
}

TEST_F(SignalTest, TellsNobodyIsLeftEvenDuringACall) {
  Signal<>::Id self = 0;
  std::optional<bool> left;
  self = signal.connect([&] {
    signal.disconnect(self);
    left = signal.hasListeners();
  });
  signal();
  EXPECT_EQ(left, false);
}

TEST_F(SignalTest, AListenerMayCallTheSignalAgain) {
  int depth = 0;
  Signal<>::Id b = 0;
  signal.connect([&] {
    heard.push_back("a");
    if (++depth == 1) {
      signal();
      signal.disconnect(b);
    }
  });
  b = signal.connect(hears("b"));
  signal();
  EXPECT_THAT(heard, ElementsAre("a", "a", "b"));
}

TEST_F(SignalTest, AFailureOfOneListenerLeavesTheSignalInUse) {
  bool fails = true;
  Signal<>::Id b = 0;
  signal.connect([&] {
    heard.push_back("a");
    signal.disconnect(b);
    if (fails) throw std::runtime_error("a fails");
  });
  b = signal.connect(hears("b"));
  signal.connect(hears("c"));
  EXPECT_THROW(signal(), std::runtime_error);
  fails = false;
  signal();
  EXPECT_THAT(heard, ElementsAre("a", "a", "c"));
}

// A listener that owns something whose end disconnects others, as a released component does.
struct Owned {
  explicit Owned(Signal<>& theSignal) : signal(theSignal) {}
  ~Owned() {
    for (const auto id : others) signal.disconnect(id);
  }
  Signal<>& signal;
  std::vector<Signal<>::Id> others;
};

TEST_F(SignalTest, ADyingListenerMayDisconnectOthers) {
  auto owned = std::make_shared<Owned>(signal);
  owned->others.push_back(signal.connect(hears("a")));
  const auto keeper = signal.connect([owned] { FAIL() << "has left"; });
  owned->others.push_back(signal.connect(hears("b")));
  signal.connect(hears("c"));
  owned.reset();
  signal.disconnect(keeper);
  signal();
  EXPECT_THAT(heard, ElementsAre("c"));
}

TEST_F(SignalTest, AListenerThatEndsItselfInACallLivesUntilItReturns) {
  auto owned = std::make_shared<Owned>(signal);
  Signal<>::Id keeper = 0;
  keeper = signal.connect([this, &keeper, owned] {
    signal.disconnect(keeper);
    heard.push_back("still here with " + std::to_string(owned->others.size()));
  });
  owned->others.push_back(signal.connect(hears("a")));
  owned.reset();
  signal();
  EXPECT_THAT(heard, ElementsAre("still here with 1"));
  EXPECT_FALSE(signal.hasListeners());
}

TEST_F(SignalTest, TheEndOfTheSignalIsTheEndOfItsListeners) {
  auto dying = std::make_unique<Signal<>>();
  auto owned = std::make_shared<Owned>(*dying);
  std::weak_ptr<Owned> watched = owned;
  owned->others.push_back(dying->connect(hears("a")));
  dying->connect([owned] {});
  owned.reset();
  dying.reset();
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace ostrand

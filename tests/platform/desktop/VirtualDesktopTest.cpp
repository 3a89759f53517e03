#include "platform/desktop/VirtualDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace ostrand {
namespace {

using testing::ElementsAre;

struct VirtualDesktopTest : testing::Test {
  VirtualDesktop desktop;
  std::vector<std::string> log;
  std::string clock() const { return standardTime(desktop.now()); }
  std::function<void()> notes(const std::string& what) {
    return [this, what] { log.push_back(clock() + " " + what); };
  }
};

TEST_F(VirtualDesktopTest, TheClockBeginsAtAFixedTimeAndMovesOnlyByWaiting) {
  EXPECT_EQ(standardDateAndTime(desktop.now()), "2026-01-05 08:00:00.000");
  EXPECT_EQ(standardDateAndTime(desktop.now()), "2026-01-05 08:00:00.000");
  desktop.wait(1.5);
  EXPECT_EQ(standardDateAndTime(desktop.now()), "2026-01-05 08:00:01.500");
  desktop.advance(0.001);
  EXPECT_EQ(standardDateAndTime(desktop.now()), "2026-01-05 08:00:01.501");
  desktop.wait(-1);
  EXPECT_EQ(standardDateAndTime(desktop.now()), "2026-01-05 08:00:01.501");
}

TEST_F(VirtualDesktopTest, TimersRunInTheOrderOfTheirTimesAndThenOfTheirScheduling) {
  desktop.schedule(2, notes("third"));
  desktop.schedule(1, notes("first"));
  desktop.schedule(1, notes("second"));
  desktop.schedule(5, notes("too late"));
  EXPECT_TRUE(log.empty());
  desktop.wait(2);
  EXPECT_THAT(log, ElementsAre("08:00:01 first", "08:00:01 second", "08:00:02 third"));
}

TEST_F(VirtualDesktopTest, ATimerRunsOnceAndOnlyOutOfThePump) {
  desktop.schedule(0, notes("now"));
  EXPECT_TRUE(log.empty());
  desktop.wait(0);
  desktop.wait(10);
  EXPECT_THAT(log, ElementsAre("08:00:00 now"));
}

TEST_F(VirtualDesktopTest, WhatATimerSchedulesRunsInTheSameWaitWhenItFallsDue) {
  desktop.schedule(1, [&] {
    notes("outer")();
    desktop.schedule(1, notes("inner"));
    desktop.schedule(9, notes("too late"));
  });
  desktop.wait(3);
  EXPECT_THAT(log, ElementsAre("08:00:01 outer", "08:00:02 inner"));
  EXPECT_EQ(clock(), "08:00:03");
}

TEST_F(VirtualDesktopTest, CancelledTimersDoNotRun) {
  const auto gone = desktop.schedule(1, notes("gone"));
  desktop.schedule(2, notes("stays"));
  Desktop::TimerId later = 0;
  desktop.schedule(1, [&] { desktop.cancel(later); });
  later = desktop.schedule(1.5, notes("gone too"));
  desktop.cancel(gone);
  desktop.cancel(gone);
  desktop.cancel(999);
  desktop.wait(3);
  EXPECT_THAT(log, ElementsAre("08:00:02 stays"));
}

TEST_F(VirtualDesktopTest, WaitsNest) {
  desktop.schedule(1, [&] {
    notes("enters")();
    desktop.wait(5);
    notes("leaves")();
  });
  desktop.schedule(2, notes("in the inner wait"));
  desktop.wait(2);
  notes("after the outer wait")();
  // The inner wait took the clock beyond the outer one's target, and nothing takes it back.
  EXPECT_THAT(log, ElementsAre("08:00:01 enters", "08:00:02 in the inner wait", "08:00:06 leaves", "08:00:06 after the outer wait"));
}

TEST_F(VirtualDesktopTest, AFailingTimerEndsNoWait) {
  desktop.onDebugOutput = [&](const std::string& text) { log.push_back(text); };
  desktop.schedule(1, [] { throw std::runtime_error("fails"); });
  desktop.schedule(2, notes("stays"));
  desktop.wait(3);
  EXPECT_EQ(clock(), "08:00:03");
  EXPECT_THAT(log, ElementsAre("unhandled error 440: fails", "08:00:02 stays"));
}

TEST_F(VirtualDesktopTest, AnErrorOfATimerGoesToThoseWhoListen) {
  desktop.onDebugOutput = [&](const std::string&) { ADD_FAILURE() << "somebody listens"; };
  desktop.unhandled.connect([&](const ErrorText& error) {
    log.push_back(std::to_string(error.number) + " " + error.description);
    throw std::runtime_error("the listener too");
  });
  desktop.schedule(1, [] { throw RuntimeError(RuntimeError::PermissionDenied, "closed"); });
  desktop.wait(2);
  EXPECT_EQ(clock(), "08:00:02");
  EXPECT_THAT(log, ElementsAre("70 closed"));
}

TEST_F(VirtualDesktopTest, TellsOfEachWaitBeforeItBegins) {
  std::vector<double> waits;
  desktop.onWait = [&](double seconds) {
    waits.push_back(seconds);
    EXPECT_EQ(clock(), "08:00:00");
  };
  desktop.wait(2);
  desktop.advance(1);
  EXPECT_THAT(waits, ElementsAre(2.0));
}

// Holds a timer as a component does, and gives it up at its end.
struct Holder {
  explicit Holder(Desktop& theDesktop) : desktop(theDesktop) {}
  ~Holder() { desktop.cancel(timer); }
  Desktop& desktop;
  Desktop::TimerId timer = 0;
};

TEST_F(VirtualDesktopTest, TheEndOfATimerMayCancelOthers) {
  auto holder = std::make_shared<Holder>(desktop);
  const auto keeper = desktop.schedule(1, [holder] {});
  holder->timer = desktop.schedule(1, notes("gone"));
  desktop.schedule(1, notes("stays"));
  holder.reset();
  desktop.cancel(keeper);
  desktop.wait(2);
  EXPECT_THAT(log, ElementsAre("08:00:01 stays"));
}

TEST(VirtualDesktopEnd, ItsLastTimersMayCancelOthers) {
  auto desktop = std::make_unique<VirtualDesktop>();
  auto holder = std::make_shared<Holder>(*desktop);
  std::weak_ptr<Holder> watched = holder;
  desktop->schedule(1, [holder] {});
  holder->timer = desktop->schedule(2, [] {});
  holder.reset();
  desktop.reset();
  EXPECT_TRUE(watched.expired());
}

TEST_F(VirtualDesktopTest, KeysAreWhatTheTestHolds) {
  EXPECT_FALSE(desktop.keyDown(Desktop::Key::Tab));
  EXPECT_FALSE(desktop.keyDown(Desktop::Key::Shift));
  desktop.tabDown = true;
  EXPECT_TRUE(desktop.keyDown(Desktop::Key::Tab));
  EXPECT_FALSE(desktop.keyDown(Desktop::Key::Shift));
  desktop.shiftDown = true;
  desktop.tabDown = false;
  EXPECT_FALSE(desktop.keyDown(Desktop::Key::Tab));
  EXPECT_TRUE(desktop.keyDown(Desktop::Key::Shift));
}

TEST_F(VirtualDesktopTest, AnUnknownLocaleChangesNothing) {
  EXPECT_EQ(desktop.locale().name, "en");
  EXPECT_TRUE(desktop.setLocale("fi"));
  EXPECT_FALSE(desktop.setLocale("fr"));
  EXPECT_EQ(desktop.locale().name, "fi");
}

TEST_F(VirtualDesktopTest, AFileDialogGivesTheNextFileOnce) {
  desktop.onDialog = [&](const char* kind, const FileDialog& dialog, const std::optional<std::filesystem::path>& file) {
    log.push_back(std::string(kind) + " " + dialog.title + " " + dialog.name + " -> " + (file ? file->string() : "nothing"));
  };
  desktop.nextFile = "chosen.par";
  EXPECT_EQ(desktop.openDialog({"Open", "*.par", "par", "a.par"}), std::filesystem::path("chosen.par"));
  EXPECT_EQ(desktop.openDialog({"Open", "*.par", "par", "a.par"}), std::nullopt);
  desktop.nextFile = "saved.par";
  EXPECT_EQ(desktop.saveDialog({"Save", "*.par", "par", "a.par"}), std::filesystem::path("saved.par"));
  EXPECT_THAT(log, ElementsAre("OpenDialog Open a.par -> chosen.par", "OpenDialog Open a.par -> nothing", "SaveDialog Save a.par -> saved.par"));
}

TEST_F(VirtualDesktopTest, DebugOutputGoesToWhoeverListens) {
  desktop.debugOutput("nobody listens");
  desktop.onDebugOutput = [&](const std::string& text) { log.push_back(text); };
  desktop.debugOutput("text");
  EXPECT_THAT(log, ElementsAre("text"));
}

}  // namespace
}  // namespace ostrand

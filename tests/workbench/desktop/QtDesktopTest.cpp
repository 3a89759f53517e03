#include <gmock/gmock.h>

#include <QLineEdit>
#include <QTest>
#include <vector>

#include "workbench/desktop/QtDesktop.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

double secondsOf(LocalTime::duration time) { return std::chrono::duration<double>(time).count(); }

TEST(QtDesktopTest, AClockThatLeapsStandsUntilSomebodyWaits) {
  QtDesktop desktop;
  desktop.setLeaping(true);
  const LocalTime begin = desktop.now();
  std::vector<double> fired;
  const auto note = [&] { fired.push_back(secondsOf(desktop.now() - begin)); };
  for (const double seconds : {3600.0, 20.0, 7200.0}) desktop.schedule(seconds, note);
  QCoreApplication::processEvents();
  EXPECT_EQ(desktop.now(), begin);
  EXPECT_TRUE(desktop.leap());
  EXPECT_THAT(fired, ElementsAre(20.0));
  desktop.wait(5000);
  EXPECT_THAT(fired, ElementsAre(20.0, 3600.0));
  EXPECT_EQ(secondsOf(desktop.now() - begin), 5020.0);
  EXPECT_TRUE(desktop.leap());
  EXPECT_FALSE(desktop.leap()) << "nothing is left";
}

TEST(QtDesktopTest, AWaitLastsUntilTheClockHasPassed) {
  QtDesktop desktop;
  const LocalTime begin = desktop.now();
  desktop.wait(0.05);
  EXPECT_GE(secondsOf(desktop.now() - begin), 0.05);
}

TEST(QtDesktopTest, AFailingTimerEndsNoWait) {
  QtDesktop desktop;
  std::vector<std::string> unhandled;
  desktop.unhandled.connect([&](const ErrorText& error) { unhandled.push_back(error.description); });
  bool later = false;
  desktop.schedule(0.01, [] { throw std::runtime_error("fails"); });
  desktop.schedule(0.02, [&] { later = true; });
  const LocalTime begin = desktop.now();
  desktop.wait(0.04);
  EXPECT_GE(secondsOf(desktop.now() - begin), 0.04);
  EXPECT_TRUE(later);
  EXPECT_THAT(unhandled, ElementsAre("fails"));
}

TEST(QtDesktopTest, TimersComeInTheOrderOfTheirTimes) {
  QtDesktop desktop;
  std::vector<int> order;
  desktop.schedule(0.03, [&] { order.push_back(3); });
  desktop.schedule(0.01, [&] { order.push_back(1); });
  desktop.schedule(0.01, [&] { order.push_back(2); });
  const auto cancelled = desktop.schedule(0.02, [&] { order.push_back(9); });
  desktop.cancel(cancelled);
  EXPECT_THAT(order, IsEmpty());
  desktop.wait(0.06);
  EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST(QtDesktopTest, WaitsNestAndTimersGoOnInThem) {
  QtDesktop desktop;
  std::vector<int> order;
  int ended = 0;
  desktop.onLastWaitEnded = [&] { ++ended; };
  desktop.schedule(0.01, [&] {
    order.push_back(1);
    desktop.wait(0.05);
    EXPECT_EQ(desktop.waits(), 1);
    order.push_back(3);
  });
  desktop.schedule(0.02, [&] { order.push_back(2); });
  desktop.wait(0.01);
  EXPECT_THAT(order, ElementsAre(1, 2, 3)) << "a wait ends after those that began in it";
  EXPECT_EQ(ended, 1);
}

TEST(QtDesktopTest, KeysAreDownWhileTheyAreHeld) {
  QtDesktop desktop;
  QLineEdit edit;
  edit.show();
  QTest::keyPress(&edit, Qt::Key_Tab);
  EXPECT_TRUE(desktop.keyDown(Desktop::Key::Tab));
  EXPECT_FALSE(desktop.keyDown(Desktop::Key::Shift));
  QTest::keyRelease(&edit, Qt::Key_Tab);
  EXPECT_FALSE(desktop.keyDown(Desktop::Key::Tab));
  QTest::keyPress(&edit, Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(desktop.keyDown(Desktop::Key::Shift));
  QTest::keyRelease(&edit, Qt::Key_Backtab);
}

TEST(QtDesktopTest, TheLocaleIsTheUsers) {
  QtDesktop desktop;
  EXPECT_TRUE(desktop.setLocale("fi"));
  EXPECT_EQ(desktop.locale().decimalSeparator, ',');
  EXPECT_FALSE(desktop.setLocale("xx"));
  EXPECT_EQ(desktop.locale().name, "fi");
}

TEST(QtDesktopTest, TheClockMayRunFasterThanTheUsers) {
  QtDesktop desktop;
  const LocalTime before = desktop.now();
  desktop.setPace(1000);
  bool fired = false;
  desktop.schedule(20, [&] { fired = true; });
  desktop.wait(60);
  EXPECT_TRUE(fired);
  desktop.setPace(1);
  EXPECT_GE(desktop.now() - before, std::chrono::seconds(60));
}

}  // namespace
}  // namespace ostrand::test

#include "platform/desktop/RealDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace ostrand {
namespace {

using testing::ElementsAre;

#ifndef _WIN32
// Sets the variables that name the user's locale, and puts the old ones back.
class Environment {
 public:
  Environment() {
    for (const char* name : kNames) {
      const char* const value = std::getenv(name);
      mOld.emplace_back(value ? std::optional<std::string>(value) : std::nullopt);
      unsetenv(name);
    }
  }
  ~Environment() {
    for (std::size_t i = 0; i < mOld.size(); ++i) mOld[i] ? setenv(kNames[i], mOld[i]->c_str(), 1) : unsetenv(kNames[i]);
  }
  void set(const char* name, const char* value) { setenv(name, value, 1); }

 private:
  static constexpr const char* kNames[] = {"LC_ALL", "LC_NUMERIC", "LANG"};
  std::vector<std::optional<std::string>> mOld;
};

TEST(RealDesktop, TakesTheLocaleOfTheFirstVariableThatIsSet) {
  Environment environment;
  EXPECT_EQ(RealDesktop().locale().name, "en");
  environment.set("LANG", "fi_FI.UTF-8");
  EXPECT_EQ(RealDesktop().locale().name, "fi");
  environment.set("LC_NUMERIC", "de_AT@euro");
  EXPECT_EQ(RealDesktop().locale().name, "de");
  environment.set("LC_ALL", "sv");
  EXPECT_EQ(RealDesktop().locale().name, "sv");
  environment.set("LC_ALL", "");
  EXPECT_EQ(RealDesktop().locale().name, "de");
  // What we do not know, and what says that there is to be none.
  environment.set("LC_ALL", "C");
  EXPECT_EQ(RealDesktop().locale().name, "en");
  environment.set("LC_ALL", "fil_PH.UTF-8");
  EXPECT_EQ(RealDesktop().locale().name, "en");
}
#endif

TEST(RealDesktop, AWaitLastsAtLeastAsLongAsItSays) {
  RealDesktop desktop;
  const LocalTime before = desktop.now();
  desktop.wait(0.02);
  EXPECT_GE(desktop.now() - before, std::chrono::milliseconds(20));
}

TEST(RealDesktop, RunsItsTimersInOrderWhileItWaits) {
  RealDesktop desktop;
  std::vector<std::string> log;
  desktop.schedule(0.010, [&] { log.push_back("second"); });
  desktop.schedule(0.002, [&] { log.push_back("first"); });
  const auto cancelled = desktop.schedule(0.005, [&] { log.push_back("cancelled"); });
  desktop.schedule(60, [&] { log.push_back("much later"); });
  desktop.cancel(cancelled);
  desktop.wait(0.012);
  EXPECT_THAT(log, ElementsAre("first", "second"));
}

TEST(RealDesktop, WaitsNest) {
  RealDesktop desktop;
  std::vector<std::string> log;
  desktop.schedule(0, [&] {
    log.push_back("enters");
    desktop.schedule(0.001, [&] { log.push_back("in the inner wait"); });
    desktop.wait(0.002);
    log.push_back("leaves");
  });
  desktop.wait(0);
  EXPECT_THAT(log, ElementsAre("enters", "in the inner wait", "leaves"));
}

TEST(RealDesktop, WhatIsDueRunsInAWaitOfNothing) {
  RealDesktop desktop;
  bool ran = false;
  desktop.schedule(0, [&] { ran = true; });
  desktop.wait(0);
  EXPECT_TRUE(ran);
}

TEST(RealDesktop, HasNoKeysAndNoDialogs) {
  RealDesktop desktop;
  EXPECT_FALSE(desktop.keyDown(Desktop::Key::Tab));
  EXPECT_FALSE(desktop.openDialog({}));
  EXPECT_FALSE(desktop.saveDialog({}));
}

}  // namespace
}  // namespace ostrand

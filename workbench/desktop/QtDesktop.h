#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>

#include "platform/desktop/TimerQueue.h"

class QWidget;

namespace ostrand {

// The desktop of the workbench: clock, timers and waits on Qt's event loop, the keys as they are held, file dialogs of the
// window. It must outlive every component that is placed on it, and end before the application.
class QtDesktop : public QObject, public Desktop {
 public:
  QtDesktop();
  ~QtDesktop() override;

  LocalTime now() const override;
  // Nests an event loop; the window stays alive meanwhile.
  void wait(double seconds) override;
  TimerId schedule(double seconds, std::function<void()> work) override;
  void cancel(TimerId timer) override { mTimers.remove(timer); }
  bool keyDown(Key key) const override { return key == Key::Tab ? mTabDown : mShiftDown; }
  const Locale& locale() const override { return *mLocale; }
  std::optional<std::filesystem::path> openDialog(const FileDialog& dialog) override;
  std::optional<std::filesystem::path> saveDialog(const FileDialog& dialog) override;
  void debugOutput(const std::string& text) override;

  // False if there is no locale of this name. Whoever shows numbers has to be told.
  bool setLocale(std::string_view name);
  // How many waits are going on.
  int waits() const { return mWaits; }
  // How many seconds pass on the clock in one of the user's, 1 at first: for programs that run without a user.
  void setPace(double pace);
  // For programs that run without a user: the clock stands, and leaps to what is due next when somebody waits, or by leap().
  void setLeaping(bool leaping);
  // Carries out what is due next; false if nothing is.
  bool leap();
  // What file dialogs belong to; may be nullptr.
  void setWindow(QWidget* window) { mWindow = window; }

  // Instead of a file dialog, for programs that run without a user.
  std::function<std::optional<std::filesystem::path>(const FileDialog&)> fileStandIn;
  std::function<void(const std::string&)> onDebugOutput;
  std::function<void()> onLastWaitEnded;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void arm();
  void passTo(LocalTime target);
  void leapTo(LocalTime target);
  int untilThen(LocalTime then) const;
  void fire();
  QString filterOf(const FileDialog& dialog) const;

  TimerQueue mTimers;
  QTimer mTimer;
  const Locale* mLocale;
  LocalTime mStart;
  std::chrono::steady_clock::time_point mSteadyStart;
  double mPace = 1.0;
  bool mLeaping = false;
  QWidget* mWindow = nullptr;
  bool mTabDown = false;
  bool mShiftDown = false;
  int mWaits = 0;
};

}  // namespace ostrand

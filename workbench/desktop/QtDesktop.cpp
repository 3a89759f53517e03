#include "workbench/desktop/QtDesktop.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QEventLoop>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLocale>
#include <algorithm>
#include <cmath>

namespace ostrand {

namespace {

using namespace std::chrono;

LocalTime wallClock() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  return local_days(year(date.year()) / static_cast<unsigned>(date.month()) / static_cast<unsigned>(date.day())) +
         milliseconds(now.time().msecsSinceStartOfDay());
}

const Locale& userLocale() {
  const std::string name = QLocale::system().name().toStdString();
  const Locale* const locale = Locale::find(std::string_view(name).substr(0, name.find('_')));
  return locale ? *locale : Locale::english();
}

milliseconds millisecondsOf(double seconds) { return milliseconds(static_cast<long long>(std::ceil(std::max(0.0, seconds) * 1000.0))); }

}  // namespace

QtDesktop::QtDesktop() : mLocale(&userLocale()), mStart(wallClock()), mSteadyStart(steady_clock::now()) {
  mTimer.setSingleShot(true);
  mTimer.setTimerType(Qt::PreciseTimer);
  connect(&mTimer, &QTimer::timeout, this, &QtDesktop::fire);
  QCoreApplication::instance()->installEventFilter(this);
}

QtDesktop::~QtDesktop() = default;

LocalTime QtDesktop::now() const { return mLeaping ? mStart : mStart + duration_cast<milliseconds>((steady_clock::now() - mSteadyStart) * mPace); }

void QtDesktop::setPace(double pace) {
  mStart = now();
  mSteadyStart = steady_clock::now();
  mPace = pace;
  arm();
}

void QtDesktop::setLeaping(bool leaping) {
  mStart = now();
  mSteadyStart = steady_clock::now();
  mLeaping = leaping;
  arm();
}

bool QtDesktop::leap() {
  if (mTimers.empty()) return false;
  mStart = std::max(mStart, mTimers.nextDue());
  mTimers.runNext(*this);
  return true;
}

// In the user's milliseconds.
int QtDesktop::untilThen(LocalTime then) const {
  constexpr double kLongest = 1000.0 * 60 * 60;
  return static_cast<int>(std::ceil(std::clamp(static_cast<double>((then - now()).count()) / mPace, 0.0, kLongest)));
}

void QtDesktop::wait(double seconds) {
  const LocalTime target = now() + millisecondsOf(seconds);
  ++mWaits;
  if (mLeaping)
    leapTo(target);
  else
    passTo(target);
  if (--mWaits == 0 && onLastWaitEnded) onLastWaitEnded();
}

void QtDesktop::passTo(LocalTime target) {
  // The loop may be ended from outside, when the program ends: then there is nothing left to wait for.
  for (bool ended = false; !ended && now() < target;) {
    QEventLoop loop;
    QTimer::singleShot(untilThen(target), Qt::PreciseTimer, &loop, [&] { loop.exit(1); });
    ended = loop.exec() != 1;
  }
}

// What waits in the event loop comes before what is due.
void QtDesktop::leapTo(LocalTime target) {
  for (QCoreApplication::processEvents(); now() < target; QCoreApplication::processEvents()) {
    if (!mTimers.empty() && mTimers.nextDue() <= target)
      leap();
    else
      mStart = target;
  }
}

Desktop::TimerId QtDesktop::schedule(double seconds, std::function<void()> work) {
  const TimerId timer = mTimers.add(now() + millisecondsOf(seconds), std::move(work));
  arm();
  return timer;
}

void QtDesktop::arm() {
  if (mTimers.empty() || mLeaping)
    mTimer.stop();
  else
    mTimer.start(untilThen(mTimers.nextDue()));
}

void QtDesktop::fire() {
  if (!mTimers.empty() && mTimers.nextDue() <= now()) {
    // The work may open a dialog, or wait: what is due meanwhile must find the timer running.
    mTimer.start(0);
    mTimers.runNext(*this);
  }
  arm();
}

bool QtDesktop::setLocale(std::string_view name) {
  const Locale* const locale = Locale::find(name);
  if (locale) mLocale = locale;
  return locale != nullptr;
}

QString QtDesktop::filterOf(const FileDialog& dialog) const {
  if (dialog.filter.empty()) return dialog.extension.empty() ? QString() : QString::fromStdString("*." + dialog.extension);
  // "Text|*.txt|All|*.*", the old form, is understood as well.
  const QStringList parts = QString::fromStdString(dialog.filter).split(QLatin1Char('|'));
  if (parts.size() < 2) return parts.front();
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    filters << parts[i] + QStringLiteral(" (") + QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')) + QLatin1Char(')');
  return filters.join(QStringLiteral(";;"));
}

std::optional<std::filesystem::path> QtDesktop::openDialog(const FileDialog& dialog) {
  if (fileStandIn) return fileStandIn(dialog);
  const QString file =
      QFileDialog::getOpenFileName(mWindow, QString::fromStdString(dialog.title), QString::fromStdString(dialog.name), filterOf(dialog));
  if (file.isEmpty()) return std::nullopt;
  return std::filesystem::path(file.toStdU16String());
}

std::optional<std::filesystem::path> QtDesktop::saveDialog(const FileDialog& dialog) {
  if (fileStandIn) return fileStandIn(dialog);
  QFileDialog window(mWindow, QString::fromStdString(dialog.title), QString(), filterOf(dialog));
  window.setAcceptMode(QFileDialog::AcceptSave);
  window.setDefaultSuffix(QString::fromStdString(dialog.extension));
  window.selectFile(QString::fromStdString(dialog.name));
  if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty()) return std::nullopt;
  return std::filesystem::path(window.selectedFiles().front().toStdU16String());
}

void QtDesktop::debugOutput(const std::string& text) {
  if (onDebugOutput) onDebugOutput(text);
}

bool QtDesktop::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
      const auto* const key = static_cast<QKeyEvent*>(event);
      const bool down = event->type() != QEvent::KeyRelease;
      if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
        mTabDown = down;
        // Shift may have gone down before the window had the keyboard.
        mShiftDown = key->key() == Qt::Key_Backtab || key->modifiers().testFlag(Qt::ShiftModifier);
      }
      if (key->key() == Qt::Key_Shift) mShiftDown = down;
      break;
    }
    // Keys that go up elsewhere are not told.
    case QEvent::ApplicationDeactivate: mTabDown = mShiftDown = false; break;
    default: break;
  }
  return false;
}

}  // namespace ostrand

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "platform/base/Locale.h"
#include "platform/base/RuntimeError.h"
#include "platform/base/Signal.h"
#include "platform/desktop/ControlProbe.h"

namespace ostrand {

struct FileDialog {
  std::string title;
  std::string filter;
  std::string extension;
  std::string name;
};

// All that belongs to the machine and its user: clock, event pump, keys, locale, file dialogs, debug output.
// It is handed to a component when it is placed; nothing is global.
class Desktop {
 public:
  using TimerId = std::uint64_t;
  enum class Key { Tab = 9, Shift = 16 };

  virtual ~Desktop() = default;

  // The wall clock of the user. It does not jump while somebody waits.
  virtual LocalTime now() const = 0;
  // Pumps events until the clock has passed the target. Waits nest: what is pumped may wait too. An error of
  // what is pumped does not end the wait.
  virtual void wait(double seconds) = 0;
  // Calls `work` once, `seconds` from now, out of the event pump.
  virtual TimerId schedule(double seconds, std::function<void()> work) = 0;
  virtual void cancel(TimerId timer) = 0;

  // Whether the key is held at this moment.
  virtual bool keyDown(Key key) const = 0;
  virtual const Locale& locale() const = 0;

  // The file that the user chose, or nothing.
  virtual std::optional<std::filesystem::path> openDialog(const FileDialog& dialog) = 0;
  virtual std::optional<std::filesystem::path> saveDialog(const FileDialog& dialog) = 0;

  virtual void debugOutput(const std::string& text) = 0;

  // An error that left scheduled work. Where nobody listens it goes to the debug output.
  Signal<const ErrorText&> unhandled;
  void tellUnhandled(const ErrorText& error) noexcept;

  ControlProbe* probe() const { return mProbe; }
  void setProbe(ControlProbe* probe) { mProbe = probe; }

 private:
  ControlProbe* mProbe = nullptr;
};

}  // namespace ostrand

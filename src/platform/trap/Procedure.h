#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

#include "platform/trap/LastError.h"
#include "platform/types/Messenger.h"

namespace ostrand {

// What a procedure needs to know of the object that it belongs to.
class Reporter {
 public:
  virtual std::string_view objectName() const = 0;
  virtual const Ref<Messenger>& reportingTo() const = 0;
  virtual const Ref<LastError>& lastError() const = 0;
  virtual IObject& self() = 0;
  // A failure while there is no Messenger, as one line of text. Most have nobody to tell.
  virtual void dropped(const std::string& text) { (void)text; }

 protected:
  ~Reporter() = default;
};

// The one error trap of a procedure, and the one guard of an entry. A failure is reported to the Messenger and
// costs one step, never the view. While it lives it pins the object and the messenger that it reports to: what
// the procedure calls may re-enter, and release both. So it stands before the first call that leaves the object,
// and in the outermost body: a class adds to an entry of its base by a hook that the base calls under its guard.
class Procedure {
 public:
  enum Kind { Entry, Inner };

  // Of an object: prefix "<object> <procedure>: ". An entry is called from outside (an interface, a
  // handler), an inner one by another procedure of the same object.
  Procedure(Reporter& reporter, std::string_view procedure, Kind kind = Entry);
  // An entry with this messenger: one that is just handed in, or that an outer entry has pinned.
  Procedure(Reporter& reporter, std::string_view procedure, const Ref<Messenger>& messenger);
  // Of a module or a strategy: the whole prefix, as it stands.
  Procedure(const Ref<Messenger>& messenger, const Ref<LastError>& lastError, std::string_view prefix);
  // Names and prefixes are borrowed: a temporary would be gone before the first report.
  template <std::same_as<std::string> S>
  Procedure(Reporter& reporter, S&& procedure, Kind kind = Entry) = delete;
  template <std::same_as<std::string> S>
  Procedure(Reporter& reporter, S&& procedure, const Ref<Messenger>& messenger) = delete;
  template <std::same_as<std::string> S>
  Procedure(const Ref<Messenger>& messenger, const Ref<LastError>& lastError, S&& prefix) = delete;
  ~Procedure();
  Procedure(const Procedure&) = delete;
  Procedure& operator=(const Procedure&) = delete;

  // Runs one step; reports a failure and goes on. True if it went well.
  template <class F>
  bool step(F&& body) {
    try {
      std::forward<F>(body)();
      return true;
    } catch (...) {
      report(currentError());
      return false;
    }
  }
  // Runs the whole body; reports a failure and ends there. True if it came to its end.
  template <class F>
  bool all(F&& body) {
    return step(std::forward<F>(body));
  }
  // A step that yields a value, or `fallback` after a failure.
  template <class T, class F>
  T value(T fallback, F&& body) {
    step([&] { fallback = std::forward<F>(body)(); });
    return fallback;
  }

  void report(const ErrorText& error);
  // A callee has answered False: its error once more, under this procedure's prefix.
  void reportLastError();

  // The messenger at the time of the entry; error 91 if there was none, or the handle as it is.
  Messenger& messenger() const;
  const Ref<Messenger>& pinnedMessenger() const { return mMessenger; }

 private:
  Procedure(Reporter& reporter, std::string_view procedure, const Ref<Messenger>& messenger, Kind kind);
  std::string prefix() const;

  Ref<IObject> mObject;
  Reporter* mReporter = nullptr;  // lives as long as mObject
  Ref<Messenger> mMessenger;
  Ref<LastError> mLastError;
  std::string_view mProcedure;
  bool mEntry = false;
  ErrorText mErrorBefore;
};

}  // namespace ostrand

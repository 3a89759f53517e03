#pragma once

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

 protected:
  ~Reporter() = default;
};

// The one error trap of a procedure. A failure is reported to the Messenger and costs one step, never the
// view. While it lives it pins the object and the messenger that it reports to: what the procedure calls
// may re-enter, and release both.
class Procedure {
 public:
  enum Kind { Entry, Inner };

  // Of an object: prefix "<object> <procedure>: ". An entry is called from outside (an interface, a
  // handler), an inner one by another procedure of the same object.
  Procedure(Reporter& reporter, std::string_view procedure, Kind kind = Entry);
  // Of a module or a strategy: the whole prefix, as it stands.
  Procedure(const Ref<Messenger>& messenger, const Ref<LastError>& lastError, std::string_view prefix);
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
  std::string prefix() const;

  Ref<IObject> mObject;
  Ref<Messenger> mMessenger;
  Ref<LastError> mLastError;
  std::string_view mObjectName;
  std::string_view mProcedure;
  bool mEntry = false;
  ErrorText mErrorBefore;
};

}  // namespace ostrand

#include "platform/trap/Procedure.h"

namespace ostrand {

Procedure::Procedure(Reporter& reporter, std::string_view procedure, Kind kind) : Procedure(reporter, procedure, reporter.reportingTo(), kind) {}

Procedure::Procedure(Reporter& reporter, std::string_view procedure, const Ref<Messenger>& messenger)
    : Procedure(reporter, procedure, messenger, Entry) {}

Procedure::Procedure(Reporter& reporter, std::string_view procedure, const Ref<Messenger>& messenger, Kind kind)
    : mObject(&reporter.self()),
      mReporter(&reporter),
      mMessenger(messenger),
      mLastError(reporter.lastError()),
      mProcedure(procedure),
      mEntry(kind == Entry) {
  if (!mEntry) return;
  if (mLastError->depth++ > 0) mErrorBefore = mLastError->error;
  mLastError->error = {};
}

Procedure::Procedure(const Ref<Messenger>& messenger, const Ref<LastError>& lastError, std::string_view prefix)
    : mMessenger(messenger), mLastError(lastError), mProcedure(prefix) {}

Procedure::~Procedure() {
  if (mEntry && --mLastError->depth > 0) mLastError->error = std::move(mErrorBefore);
}

std::string Procedure::prefix() const {
  if (!mReporter) return std::string(mProcedure);
  return std::string(mReporter->objectName()) + " " + std::string(mProcedure) + ": ";
}

void Procedure::report(const ErrorText& error) {
  if (mLastError) mLastError->error = error;
  try {
    if (mMessenger)
      mMessenger->ReportError(prefix(), error.number, error.description);
    else if (mReporter)
      mReporter->dropped(std::string(mReporter->objectName()) + " " + std::string(mProcedure) + " - Error" + std::to_string(error.number) + ": " +
                         error.description);
  } catch (...) {
    // The error channel itself has failed: there is nobody left to tell.
  }
}

void Procedure::reportLastError() { report(mLastError ? ErrorText(mLastError->error) : ErrorText()); }

Messenger& Procedure::messenger() const {
  if (!mMessenger) throwNothingThere("the messenger");
  return *mMessenger;
}

}  // namespace ostrand

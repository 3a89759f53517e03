#include "platform/base/RuntimeError.h"

namespace ostrand {

ErrorText currentError() noexcept {
  try {
    throw;
  } catch (const RuntimeError& error) {
    return {error.number(), error.description()};
  } catch (const std::exception& error) {
    return {RuntimeError::Unexpected, error.what()};
  } catch (...) {
    return {RuntimeError::Unexpected, "unknown error"};
  }
}

void throwNothingThere(const char* what) { throw RuntimeError(RuntimeError::NothingThere, std::string(what) + " is not there"); }

}  // namespace ostrand

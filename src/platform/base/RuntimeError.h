#pragma once

#include <exception>
#include <string>

namespace ostrand {

// The one exception of the library. `number` and `description` are what ReportError gets.
class RuntimeError : public std::exception {
 public:
  enum Number {
    BadArgument = 5,
    Overflow = 6,
    OutOfRange = 9,
    NotConvertible = 13,
    FileNotFound = 53,
    PermissionDenied = 70,
    NothingThere = 91,
    NoSuchMember = 438,
    Unexpected = 440,  // any exception that is not ours
  };

  RuntimeError(int number, std::string description) : mNumber(number), mDescription(std::move(description)) {}

  int number() const { return mNumber; }
  const std::string& description() const { return mDescription; }
  const char* what() const noexcept override { return mDescription.c_str(); }

 private:
  int mNumber;
  std::string mDescription;
};

struct ErrorText {
  int number = 0;
  std::string description;
};

// To be called in a catch block: what the exception in flight is called in a report.
ErrorText currentError() noexcept;

// "Object variable not set": what any call on something absent comes to.
[[noreturn]] void throwNothingThere(const char* what);

}  // namespace ostrand

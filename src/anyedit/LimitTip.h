#pragma once

#include <optional>
#include <string>

namespace ostrand {

// The limits of a value as its tool tip tells them: " >= 0 Nm", " <= 10 Nm", "0..10 Nm". The unit "noUnit" prints as nothing, the
// blank before it stays.
//
// The minimum's text is not cleared between the values of one pass: a value with a maximum alone may show the minimum of the
// one before it.
class LimitTip {
 public:
  struct Signs {
    const char* atLeast;
    const char* atMost;
  };
  static constexpr Signs kInDataUnit{" >= ", " <= "};
  // Converted limits have the strict signs.
  static constexpr Signs kConverted{" > ", " < "};

  explicit LimitTip(char separator) : mSeparator(separator) {}

  // A limit that is not there leaves the tip as it stands.
  void tell(std::string& tip, std::optional<double> minimum, std::optional<double> maximum, const std::string& unit, const Signs& signs);

 private:
  char mSeparator;
  std::string mMinimum;
};

}  // namespace ostrand

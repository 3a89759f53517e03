#include "platform/base/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/base/RuntimeError.h"

namespace ostrand {

namespace {

enum class Parsed { Number, NoNumber, TooLarge };

constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kDigitsOfDouble = 15;
constexpr int kDigitsOfSingle = 7;
constexpr int kExactDigits = 15;  // whole numbers of so many digits are exact in a double, and so are the powers above

// Nearly every number of a document: an optional minus, a few digits, perhaps a fraction. Both parts are
// exact, so one division rounds as the general road does. False leaves the text to that road.
bool parseShort(std::string_view text, char separator, double& value) {
  const char* at = text.data();
  const char* const end = at + text.size();
  const bool negative = at != end && *at == '-';
  if (negative) ++at;
  long long digits = 0;
  int count = 0, fraction = 0;
  bool afterSeparator = false;
  for (; at != end; ++at) {
    if (*at >= '0' && *at <= '9') {
      digits = digits * 10 + (*at - '0');
      fraction += afterSeparator;
      if (++count > kExactDigits) return false;
    } else if (*at == separator && !afterSeparator) {
      afterSeparator = true;
    } else {
      return false;
    }
  }
  if (count == 0) return false;
  const double size = static_cast<double>(digits) / kPowersOfTen[fraction];
  value = negative ? -size : size;
  return true;
}

// Of a well-formed number that no double can hold: whether it is too small, as against too large.
bool isTiny(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, mark);
  std::string_view exponent = number.substr(std::min(mark + 1, number.size()));
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  long long power = 0;
  if (std::from_chars(exponent.data(), exponent.data() + exponent.size(), power).ec == std::errc::result_out_of_range)
    return exponent.starts_with('-');
  const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<long long>(mantissa.find_first_of("123456789"));
  return power < first - point;
}

Parsed parse(std::string_view text, char separator, double& value) {
  if (parseShort(text, separator, value)) return Parsed::Number;
  text = trimmed(text);
  if (!text.empty() && text.front() == '+') {
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '-') return Parsed::NoNumber;
  }
  std::string digits(text);
  for (char& c : digits) {
    // from_chars alone would take "inf", "nan" and, with a comma locale, a point.
    const bool known = (c >= '0' && c <= '9') || c == '-' || c == '+' || c == 'e' || c == 'E' || c == separator;
    if (!known) return Parsed::NoNumber;
    if (c == separator) c = '.';
  }
  const char* const last = digits.data() + digits.size();
  const auto [end, error] = std::from_chars(digits.data(), last, value);
  if (end != last || error == std::errc::invalid_argument) return Parsed::NoNumber;
  if (error == std::errc()) return Parsed::Number;
  if (!isTiny(digits)) return Parsed::TooLarge;
  value = 0.0;
  return Parsed::Number;
}

// A number as its significant decimal digits and the power of ten of the first of them.
struct Decimal {
  bool negative = false;
  std::string digits;  // without trailing zeros; "0" for zero
  int exponent = 0;
};

template <class Float>
Decimal decimalOf(Float value, int significant) {
  char buffer[40];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, significant - 1).ptr;
  Decimal decimal;
  const char* at = buffer;
  if (*at == '-') decimal.negative = true, ++at;
  for (; *at != 'e'; ++at)
    if (*at != '.') decimal.digits += *at;
  ++at;
  if (*at == '+') ++at;
  std::from_chars(at, end, decimal.exponent);
  while (decimal.digits.size() > 1 && decimal.digits.back() == '0') decimal.digits.pop_back();
  if (decimal.digits == "0") decimal = {};
  if (decimal.digits.empty()) decimal.digits = "0";
  return decimal;
}

// `significant` digits are as many as a number without an exponent may have before its point.
std::string plain(const Decimal& number, int significant, char separator) {
  std::string text = number.negative ? "-" : "";
  const int count = static_cast<int>(number.digits.size());
  if (number.exponent >= significant || number.exponent < -4) {
    text += number.digits[0];
    if (count > 1) (text += separator) += number.digits.substr(1);
    const int size = std::abs(number.exponent);
    text += number.exponent < 0 ? "E-" : "E+";
    if (size < 10) text += '0';
    return text + std::to_string(size);
  }
  if (number.exponent < 0) {
    text += '0';
    text += separator;
    return text.append(static_cast<std::size_t>(-number.exponent - 1), '0') + number.digits;
  }
  const auto whole = static_cast<std::size_t>(number.exponent) + 1;
  if (number.digits.size() <= whole) return text + number.digits + std::string(whole - number.digits.size(), '0');
  return text + number.digits.substr(0, whole) + separator + number.digits.substr(whole);
}

// A fixed number of decimals by way of one whole number; false near a tie and for large numbers.
bool fixedShort(double value, int decimals, char separator, std::string& text) {
  constexpr int kMostDecimals = 6;
  constexpr double kLargest = 1e9;
  constexpr double kNearTie = 1e-4;
  if (decimals > kMostDecimals || !(std::abs(value) < kLargest / kPowersOfTen[decimals])) return false;
  const double scaled = std::abs(value) * kPowersOfTen[decimals];
  const auto whole = static_cast<long long>(scaled);
  const double rest = scaled - static_cast<double>(whole);
  if (std::abs(rest - 0.5) < kNearTie) return false;
  long long number = whole + (rest > 0.5);
  char buffer[24];
  char* at = buffer + sizeof buffer;
  const bool negative = value < 0 && number != 0;
  for (int i = 0; i < decimals; ++i, number /= 10) *--at = static_cast<char>('0' + number % 10);
  if (decimals > 0) *--at = separator;
  do *--at = static_cast<char>('0' + number % 10);
  while (number /= 10);
  if (negative) *--at = '-';
  text.assign(at, buffer + sizeof buffer);
  return true;
}

std::string special(double value) { return std::isnan(value) ? "NaN" : value < 0 ? "-Inf" : "Inf"; }

}  // namespace

std::string_view trimmed(std::string_view text) {
  const auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

bool hasDecimals(std::string_view number, int decimals) {
  if (number.empty() || number.size() > kExactDigits) return false;
  const std::size_t point = decimals > 0 ? number.size() - static_cast<std::size_t>(decimals) - 1 : number.size();
  if (point == 0 || point > number.size()) return false;
  if (number[0] == '0' && point > 1) return false;
  for (std::size_t i = 0; i < number.size(); ++i)
    if (i == point ? number[i] != '.' : number[i] < '0' || number[i] > '9') return false;
  return true;
}

std::optional<double> parseNumber(std::string_view text, char separator) {
  double value = 0;
  if (parse(text, separator, value) != Parsed::Number) return std::nullopt;
  return value;
}

double requireNumber(std::string_view text, char separator) {
  double value = 0;
  switch (parse(text, separator, value)) {
    case Parsed::Number: break;
    case Parsed::TooLarge: throw RuntimeError(RuntimeError::Overflow, "the number is too large: " + std::string(text));
    case Parsed::NoNumber: throw RuntimeError(RuntimeError::NotConvertible, "not a number: \"" + std::string(text) + "\"");
  }
  return value;
}

std::optional<long long> parseInteger(std::string_view text) {
  text = trimmed(text);
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  long long value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::string plainText(double value, char separator) {
  if (!std::isfinite(value)) return special(value);
  return plain(decimalOf(value, kDigitsOfDouble), kDigitsOfDouble, separator);
}

std::string plainTextOfSingle(float value, char separator) {
  if (!std::isfinite(value)) return special(value);
  return plain(decimalOf(value, kDigitsOfSingle), kDigitsOfSingle, separator);
}

std::string fixedText(double value, int decimals, char separator) {
  if (!std::isfinite(value)) return special(value);
  decimals = std::clamp(decimals, 0, 99);
  if (std::string text; fixedShort(value, decimals, separator, text)) return text;
  Decimal number = decimalOf(value, kDigitsOfDouble);
  // Where the last shown decimal stands among the digits.
  const int keep = number.exponent + 1 + decimals;
  if (keep < 0) {
    number = {};
    number.digits = "0";
  } else if (keep < static_cast<int>(number.digits.size())) {
    const bool up = number.digits[static_cast<std::size_t>(keep)] >= '5';
    number.digits.resize(static_cast<std::size_t>(keep));
    if (up) {
      std::size_t at = number.digits.size();
      while (at > 0 && number.digits[at - 1] == '9') number.digits[--at] = '0';
      if (at > 0) {
        ++number.digits[at - 1];
      } else {
        number.digits.insert(0, 1, '1');
        ++number.exponent;
      }
    }
    if (number.digits.find_first_not_of('0') == std::string::npos) number = {false, "0", 0};
  }
  std::string text;
  const int count = static_cast<int>(number.digits.size());
  const auto digit = [&](int i) { return i >= 0 && i < count ? number.digits[static_cast<std::size_t>(i)] : '0'; };
  if (number.exponent < 0) {
    text += '0';
  } else {
    for (int i = 0; i <= number.exponent; ++i) text += digit(i);
  }
  if (decimals > 0) {
    text += separator;
    for (int i = 1; i <= decimals; ++i) text += digit(number.exponent + i);
  }
  return (number.negative ? "-" : "") + text;
}

std::string withSeparator(std::string text, char from, char to) {
  if (from != to) std::replace(text.begin(), text.end(), from, to);
  return text;
}

}  // namespace ostrand

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ostrand {

// Numbers as text. Never through the process's locale: a toolkit changes it under our feet.

// A text without the blanks, tabs and line breaks around it: a document may be printed over many lines.
std::string_view trimmed(std::string_view text);

// A decimal number with this separator: sign, digits, exponent. It may stand between blanks, tabs and line breaks; blanks and
// group separators inside it are errors. "NaN", "-Inf" and an empty text are no numbers.
std::optional<double> parseNumber(std::string_view text, char separator);
// As parseNumber, but an error: 13 for no number, 6 for one that is too large.
double requireNumber(std::string_view text, char separator);
// A whole number in decimal digits with an optional sign, between the same; or nothing.
std::optional<long long> parseInteger(std::string_view text);

// The plain text: up to 15 significant digits (of a single: 7) in the shortest form that shows them, with
// an exponent ("1.5E-05", "1E+15") outside 1E-4 to 1E15 (of a single: 1E7).
std::string plainText(double value, char separator);
std::string plainTextOfSingle(float value, char separator);

// A fixed number of decimals, rounded half away from zero on the decimal digits that plainText shows.
std::string fixedText(double value, int decimals, char separator);
// Whether a number of a document (a point, no sign) has these decimals already, so that fixedText would give the same digits.
bool hasDecimals(std::string_view number, int decimals);

// The same number with another decimal separator.
std::string withSeparator(std::string text, char from, char to);

}  // namespace ostrand

#include "platform/base/NumberText.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "platform/base/RuntimeError.h"

namespace ostrand {
namespace {

int errorOf(std::string_view text, char separator = '.') {
  try {
    requireNumber(text, separator);
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST(ParseNumber, ReadsTheSeparatorOfTheLocaleAndNoOther) {
  EXPECT_EQ(parseNumber("1.5", '.'), 1.5);
  EXPECT_EQ(parseNumber("1,5", ','), 1.5);
  EXPECT_EQ(parseNumber("1,5", '.'), std::nullopt);
  EXPECT_EQ(parseNumber("1.5", ','), std::nullopt);
  EXPECT_EQ(parseNumber("-0,25E2", ','), -25.0);
  EXPECT_EQ(parseNumber("4", ','), 4.0);
}

TEST(ParseNumber, ReadsSignsExponentsAndHalfWrittenFractions) {
  EXPECT_EQ(parseNumber("+1.5", '.'), 1.5);
  EXPECT_EQ(parseNumber("-1.5", '.'), -1.5);
  EXPECT_EQ(parseNumber("1e3", '.'), 1000.0);
  EXPECT_EQ(parseNumber("1E+03", '.'), 1000.0);
  EXPECT_EQ(parseNumber("-2.5E-01", '.'), -0.25);
  EXPECT_EQ(parseNumber("5.", '.'), 5.0);
  EXPECT_EQ(parseNumber(".5", '.'), 0.5);
  EXPECT_EQ(parseNumber("0", '.'), 0.0);
  EXPECT_EQ(parseNumber("007", '.'), 7.0);
}

TEST(ParseNumber, PassesOverBlanksAroundTheNumberOnly) {
  EXPECT_EQ(parseNumber("  1.5 ", '.'), 1.5);
  EXPECT_EQ(parseNumber("1 000", '.'), std::nullopt);
  EXPECT_EQ(parseNumber("- 1", '.'), std::nullopt);
  EXPECT_EQ(parseNumber("+ 1", '.'), std::nullopt);
}

// As a document that is printed over many lines has them.
TEST(ParseNumber, PassesOverTabsAndLineBreaksAroundTheNumber) {
  EXPECT_EQ(parseNumber("\r\n\t\t4.25\r\n\t", '.'), 4.25);
  EXPECT_EQ(parseNumber("\n-4,25E1\t", ','), -42.5);
  EXPECT_EQ(requireNumber("\t7\n", '.'), 7.0);
  EXPECT_EQ(parseNumber("4\n25", '.'), std::nullopt);
  EXPECT_EQ(parseNumber("\n\t ", '.'), std::nullopt);
  EXPECT_EQ(parseInteger("\r\n\t42\n"), 42);
  EXPECT_EQ(parseInteger("4\t2"), std::nullopt);
}

TEST(Trimmed, LeavesWhatStandsInside) {
  EXPECT_EQ(trimmed(" \t\r\na \n b\t "), "a \n b");
  EXPECT_EQ(trimmed("a"), "a");
  EXPECT_EQ(trimmed(" \n"), "");
  EXPECT_EQ(trimmed(""), "");
}

TEST(ParseNumber, TakesNoGroupSeparators) {
  EXPECT_EQ(parseNumber("1,000.5", '.'), std::nullopt);
  EXPECT_EQ(parseNumber("1.000,5", ','), std::nullopt);
  EXPECT_EQ(parseNumber("1'000", '.'), std::nullopt);
  EXPECT_EQ(parseNumber("1.000.5", '.'), std::nullopt);
}

TEST(ParseNumber, RefusesWhatIsNoDecimalNumber) {
  for (const char* text : {"",
                           " ",
                           ".",
                           "+",
                           "-",
                           "+-1",
                           "-+1",
                           "++1",
                           "--1",
                           "1-2",
                           "e5",
                           "1e",
                           "1e+",
                           "1E5.5",
                           "NaN",
                           "nan",
                           "-Inf",
                           "Inf",
                           "inf",
                           "infinity",
                           "0x10",
                           "1f",
                           "abc",
                           "1.5%",
                           "\xC2\xA0"
                           "1",
                           "1;5"}) {
    EXPECT_EQ(parseNumber(text, '.'), std::nullopt) << '"' << text << '"';
    EXPECT_EQ(errorOf(text), RuntimeError::NotConvertible) << '"' << text << '"';
  }
  EXPECT_EQ(parseNumber(std::string_view("1\0", 2), '.'), std::nullopt);
}

TEST(ParseNumber, TooLargeIsAnOverflowAndTooSmallIsZero) {
  const std::string zeros(500, '0');
  for (const std::string& text : {std::string("1E400"), std::string("-1E400"), std::string("1E99999999999999999999"), std::string("1.8E308"),
                                  "1" + zeros, "1" + zeros + "E-5", "0." + zeros + "1E+9999"}) {
    EXPECT_EQ(parseNumber(text, '.'), std::nullopt) << text;
    EXPECT_EQ(errorOf(text), RuntimeError::Overflow) << text;
  }
  EXPECT_EQ(errorOf("1,8E308", ','), RuntimeError::Overflow);
  for (const std::string& text : {std::string("1E-400"), std::string("-1E-400"), std::string("1E-99999999999999999999"), "0." + zeros + "1",
                                  "0." + zeros + "1E+5", "." + zeros + "1"}) {
    EXPECT_EQ(parseNumber(text, '.'), 0.0) << text;
  }
  EXPECT_EQ(parseNumber("1.7976931348623157E308", '.'), std::numeric_limits<double>::max());
  EXPECT_EQ(parseNumber("4.9E-324", '.'), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(parseNumber("0E999", '.'), 0.0);
  EXPECT_EQ(parseNumber(zeros + "12." + zeros, '.'), 12.0);
}

TEST(ParseNumber, RoundsEveryShortTextAsTheLongRoadDoes) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 100000; ++i) {
    std::string text = random() % 2 ? "-" : "";
    for (std::size_t n = random() % 12; n > 0; --n) text += static_cast<char>('0' + random() % 10);
    text += '.';
    for (std::size_t n = random() % 12; n > 0; --n) text += static_cast<char>('0' + random() % 10);
    double expected = 0;
    const bool number = std::from_chars(text.data(), text.data() + text.size(), expected).ec == std::errc();
    const auto read = parseNumber(withSeparator(text, '.', ','), ',');
    ASSERT_EQ(read.has_value(), number) << text;
    if (number) {
      ASSERT_EQ(*read, expected) << text;
    }
  }
}

TEST(RequireNumber, NamesTheTextInItsError) {
  EXPECT_EQ(requireNumber("1,5", ','), 1.5);
  try {
    requireNumber("four", '.');
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_NE(error.description().find("four"), std::string::npos);
  }
}

TEST(ParseInteger, ReadsWholeNumbersOnly) {
  EXPECT_EQ(parseInteger("12"), 12);
  EXPECT_EQ(parseInteger(" -12 "), -12);
  EXPECT_EQ(parseInteger("+12"), 12);
  EXPECT_EQ(parseInteger("9223372036854775807"), std::numeric_limits<long long>::max());
  for (const char* text : {"", " ", "+", "-", "+-1", "1.0", "1e3", "12a", "a", "1 2", "9223372036854775808"})
    EXPECT_EQ(parseInteger(text), std::nullopt) << text;
}

TEST(PlainText, ShowsUpToFifteenDigitsInTheShortestForm) {
  EXPECT_EQ(plainText(0.0, '.'), "0");
  EXPECT_EQ(plainText(-0.0, '.'), "0");
  EXPECT_EQ(plainText(1.0, '.'), "1");
  EXPECT_EQ(plainText(-1.5, '.'), "-1.5");
  EXPECT_EQ(plainText(1.5, ','), "1,5");
  EXPECT_EQ(plainText(100.0, '.'), "100");
  EXPECT_EQ(plainText(0.1 + 0.2, '.'), "0.3");
  EXPECT_EQ(plainText(1.0 / 3.0, '.'), "0.333333333333333");
  EXPECT_EQ(plainText(2.0 / 3.0, '.'), "0.666666666666667");
  EXPECT_EQ(plainText(1e9 / 3.0, '.'), "333333333.333333");
  EXPECT_EQ(plainText(-99999.0, '.'), "-99999");
  EXPECT_EQ(plainText(0.99999999999999999, '.'), "1");
  EXPECT_EQ(plainText(9.9999999999999995, '.'), "10");
}

TEST(PlainText, TakesTheExponentFormOutsideItsRange) {
  EXPECT_EQ(plainText(0.0001, '.'), "0.0001");
  EXPECT_EQ(plainText(0.00012345, '.'), "0.00012345");
  EXPECT_EQ(plainText(0.00009, '.'), "9E-05");
  EXPECT_EQ(plainText(1.5e-5, '.'), "1.5E-05");
  EXPECT_EQ(plainText(-1.5e-5, ','), "-1,5E-05");
  EXPECT_EQ(plainText(999999999999999.0, '.'), "999999999999999");
  EXPECT_EQ(plainText(123456789012345.0, '.'), "123456789012345");
  EXPECT_EQ(plainText(1e14, '.'), "100000000000000");
  EXPECT_EQ(plainText(1e15, '.'), "1E+15");
  EXPECT_EQ(plainText(1.25e15, ','), "1,25E+15");
  // Fifteen digits carry over the border.
  EXPECT_EQ(plainText(999999999999999.9, '.'), "1E+15");
  EXPECT_EQ(plainText(0.0000999999999999999999, '.'), "0.0001");
  EXPECT_EQ(plainText(1e100, '.'), "1E+100");
  EXPECT_EQ(plainText(std::numeric_limits<double>::max(), '.'), "1.79769313486232E+308");
  EXPECT_EQ(plainText(std::numeric_limits<double>::lowest(), '.'), "-1.79769313486232E+308");
  EXPECT_EQ(plainText(std::numeric_limits<double>::min(), '.'), "2.2250738585072E-308");
  EXPECT_EQ(plainText(std::numeric_limits<double>::denorm_min(), '.'), "4.94065645841247E-324");
}

TEST(PlainText, SpellsTheSpecialFloatsAsTheDocumentsDo) {
  EXPECT_EQ(plainText(std::nan(""), '.'), "NaN");
  EXPECT_EQ(plainText(-std::numeric_limits<double>::infinity(), '.'), "-Inf");
  EXPECT_EQ(plainText(std::numeric_limits<double>::infinity(), '.'), "Inf");
  EXPECT_EQ(plainTextOfSingle(std::nanf(""), '.'), "NaN");
  EXPECT_EQ(fixedText(std::nan(""), 2, '.'), "NaN");
}

TEST(PlainText, ShowsSevenDigitsOfASingle) {
  EXPECT_EQ(plainTextOfSingle(0.1f, '.'), "0.1");
  EXPECT_EQ(plainTextOfSingle(3.14159274f, ','), "3,141593");
  EXPECT_EQ(plainTextOfSingle(1.0f / 3.0f, '.'), "0.3333333");
  EXPECT_EQ(plainTextOfSingle(9999999.0f, '.'), "9999999");
  EXPECT_EQ(plainTextOfSingle(1e7f, '.'), "1E+07");
  EXPECT_EQ(plainTextOfSingle(16777216.0f, ','), "1,677722E+07");
  EXPECT_EQ(plainTextOfSingle(0.0001f, '.'), "0.0001");
  EXPECT_EQ(plainTextOfSingle(0.00001f, '.'), "1E-05");
  EXPECT_EQ(plainTextOfSingle(-0.0f, '.'), "0");
  EXPECT_EQ(plainTextOfSingle(std::numeric_limits<float>::max(), '.'), "3.402823E+38");
  EXPECT_EQ(plainTextOfSingle(std::numeric_limits<float>::denorm_min(), '.'), "1.401298E-45");
}

TEST(FixedText, RoundsHalfAwayFromZeroOnTheDigitsShown) {
  EXPECT_EQ(fixedText(1.005, 2, '.'), "1.01");
  EXPECT_EQ(fixedText(-1.005, 2, '.'), "-1.01");
  EXPECT_EQ(fixedText(2.5, 0, '.'), "3");
  EXPECT_EQ(fixedText(-2.5, 0, '.'), "-3");
  EXPECT_EQ(fixedText(0.5, 0, '.'), "1");
  EXPECT_EQ(fixedText(0.49, 0, '.'), "0");
  EXPECT_EQ(fixedText(0.125, 2, ','), "0,13");
  EXPECT_EQ(fixedText(0.05, 1, '.'), "0.1");
  EXPECT_EQ(fixedText(0.005, 1, '.'), "0.0");
}

TEST(FixedText, CarriesOverAllDigits) {
  EXPECT_EQ(fixedText(9.99, 1, '.'), "10.0");
  EXPECT_EQ(fixedText(0.999, 2, '.'), "1.00");
  EXPECT_EQ(fixedText(99999.5, 0, '.'), "100000");
  EXPECT_EQ(fixedText(1.995, 2, '.'), "2.00");
  EXPECT_EQ(fixedText(0.0995, 3, '.'), "0.100");
  EXPECT_EQ(fixedText(-0.96, 1, '.'), "-1.0");
}

TEST(FixedText, FillsWithZerosAndLosesTheSignOfNothing) {
  EXPECT_EQ(fixedText(0.0, 0, '.'), "0");
  EXPECT_EQ(fixedText(0.0, 3, '.'), "0.000");
  EXPECT_EQ(fixedText(-0.0, 1, '.'), "0.0");
  EXPECT_EQ(fixedText(-0.004, 2, '.'), "0.00");
  EXPECT_EQ(fixedText(-0.00000004, 2, '.'), "0.00");
  EXPECT_EQ(fixedText(3.0, 2, ','), "3,00");
  EXPECT_EQ(fixedText(0.05, 4, '.'), "0.0500");
  EXPECT_EQ(fixedText(12345.678, 1, '.'), "12345.7");
  EXPECT_EQ(fixedText(1.5e-5, 6, '.'), "0.000015");
  EXPECT_EQ(fixedText(1.25e20, 1, '.'), "125000000000000000000.0");
  EXPECT_EQ(fixedText(7.0, -3, '.'), "7");
}

TEST(FixedText, RoundsEveryHalfAwayFromZero) {
  for (int i = 0; i < 20000; ++i)
    for (int decimals = 0; decimals < 5; ++decimals) {
      // The number whose decimal text ends in 5 just behind the last decimal shown.
      const std::string half = fixedText(i, 0, '.') + '5';
      const double x = requireNumber(half + "E-" + std::to_string(decimals + 1), '.');
      const double up = requireNumber(std::to_string(i + 1) + "E-" + std::to_string(decimals), '.');
      ASSERT_EQ(fixedText(x, decimals, '.'), fixedText(up, decimals, '.')) << half << ' ' << decimals;
      ASSERT_EQ(fixedText(-x, decimals, '.'), "-" + fixedText(up, decimals, '.')) << half << ' ' << decimals;
    }
}

TEST(HasDecimals, IsTrueOnlyWhereFixedTextWouldGiveTheSame) {
  for (const char* number : {"4.50", "0.05", "0.00", "12345.67", "999999999999.99"}) EXPECT_TRUE(hasDecimals(number, 2)) << number;
  EXPECT_TRUE(hasDecimals("7", 0));
  EXPECT_TRUE(hasDecimals("0", 0));
  for (const char* number :
       {"", ".", ".50", "4.5", "4.567", "4,50", "04.50", "00", "-1.00", "+1.00", " 4.50", "4.5E", "4.50 ", "NaN", "1234567890123.45"})
    EXPECT_FALSE(hasDecimals(number, 2)) << number;
  EXPECT_FALSE(hasDecimals("7.", 0));
  EXPECT_FALSE(hasDecimals("07", 0));

  std::mt19937 random(7);
  int same = 0;
  for (int i = 0; i < 100000; ++i) {
    std::string number;
    for (int length = static_cast<int>(random() % 9); length >= 0; --length) number += "0123456789.-"[random() % 12];
    const int decimals = static_cast<int>(random() % 4);
    if (!hasDecimals(number, decimals)) continue;
    ++same;
    ASSERT_EQ(fixedText(parseNumber(number, '.').value(), decimals, '.'), number);
  }
  EXPECT_GT(same, 1000);
}

TEST(FixedText, AgreesWithPrintingWhereNoHalfIsInvolved) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> value(-1e6, 1e6);
  for (int i = 0; i < 20000; ++i) {
    const double x = value(random);
    const int decimals = i % 6;
    char expected[64];
    std::snprintf(expected, sizeof expected, "%.*f", decimals, x);
    if (std::string(expected).find_first_not_of("-0.") == std::string::npos) continue;
    ASSERT_EQ(fixedText(x, decimals, '.'), expected) << plainText(x, '.');
  }
}

// Any double out of its bits, so that all magnitudes come up.
double anyDouble(std::mt19937_64& random) {
  while (true) {
    const std::uint64_t bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (std::isfinite(value)) return value;
  }
}

TEST(PlainText, ReadsBackToFifteenDigits) {
  std::mt19937_64 random(1);
  for (int i = 0; i < 50000; ++i) {
    const double x =
        i % 2 ? anyDouble(random) : std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())), static_cast<int>(random() % 100) - 90);
    char fifteen[40];
    std::snprintf(fifteen, sizeof fifteen, "%.14e", x);
    double expected = 0;
    std::from_chars(fifteen, fifteen + std::strlen(fifteen), expected);
    for (const char separator : {'.', ','}) {
      const std::string text = plainText(x, separator);
      const auto back = parseNumber(text, separator);
      // The largest doubles can round up out of the range of a double.
      if (!back) {
        ASSERT_GT(std::abs(x), 1.797693134862315e308) << text;
        continue;
      }
      ASSERT_EQ(*back, expected) << text;
      ASSERT_EQ(plainText(*back, separator), text);
      ASSERT_EQ(withSeparator(text, separator, '.'), plainText(x, '.'));
    }
  }
}

TEST(PlainTextOfSingle, ReadsBackToSevenDigits) {
  std::mt19937_64 random(2);
  for (int i = 0; i < 50000; ++i) {
    const auto bits = static_cast<std::uint32_t>(random());
    float x;
    std::memcpy(&x, &bits, sizeof x);
    if (!std::isfinite(x)) continue;
    char seven[40];
    std::snprintf(seven, sizeof seven, "%.6e", static_cast<double>(x));
    ASSERT_EQ(requireNumber(plainTextOfSingle(x, ','), ','), requireNumber(seven, '.'));
  }
}

TEST(WithSeparator, ChangesEverySeparator) {
  EXPECT_EQ(withSeparator("1.5", '.', ','), "1,5");
  EXPECT_EQ(withSeparator("1.000.5", '.', ','), "1,000,5");
  EXPECT_EQ(withSeparator("NaN", '.', ','), "NaN");
  EXPECT_EQ(withSeparator("1.5", '.', '.'), "1.5");
}

}  // namespace
}  // namespace ostrand

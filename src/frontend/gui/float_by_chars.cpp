// Floats by <charconv>, which knows no locale. What it says of a number that is next to nothing
// differs between standard libraries, so that is decided here.

#include "frontend/gui/float_conversion.h"

#if QUINDLE_HAS_FLOAT_CHARS

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

#include "utils/ascii_text.h"

namespace quindle::frontend::gui {
namespace {

constexpr float kLeastNormal = std::numeric_limits<float>::min();
// Half a step below the least normal number: from here on, rounding to a float's digits leads
// there.
constexpr double kLeastRoundedUp = 0x1p-126 - 0x1p-151;

// A positive number without rounding: 0.DIGITS times the base to the power of the exponent. The
// digits start and end with another one than 0, and are those of base 2 where the text's are hex.
struct ExactNumber {
  std::string digits;
  long exponent = 0;

  bool operator==(const ExactNumber&) const = default;
  bool operator<(const ExactNumber& other) const {
    return exponent != other.exponent ? exponent < other.exponent : digits < other.digits;
  }
};

int HexDigitValue(char c) {
  return utils::is_ascii_digit(c) ? c - '0' : (c | 0x20) - 'a' + 10;
}

void AppendDigit(char c, FloatBase base, std::string* digits) {
  if (base == FloatBase::Decimal) {
    *digits += c;
    return;
  }
  for (int bit = 3; bit >= 0; --bit) {
    *digits += ((HexDigitValue(c) >> bit) & 1) != 0 ? '1' : '0';
  }
}

// Of a sign or none, and digits.
long ReadExponent(std::string_view text) {
  if (text.front() == '+') {
    text.remove_prefix(1);
  }
  long exponent = 0;
  std::from_chars(text.data(), text.data() + text.size(), exponent);
  return exponent;
}

ExactNumber ReadExactly(const FloatDigits& number) {
  const std::size_t letter = number.text.find_first_of(number.base == FloatBase::Hex ? "pP" : "eE");
  const std::string_view mantissa = number.text.substr(0, letter);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  std::string digits;
  for (const char c : mantissa) {
    if (c != '.') {
      AppendDigit(c, number.base, &digits);
    }
  }
  const std::size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
  ExactNumber exact;
  exact.exponent =
      static_cast<long>(point) * (number.base == FloatBase::Hex ? 4 : 1) - static_cast<long>(zeros);
  if (letter != std::string_view::npos) {
    exact.exponent += ReadExponent(number.text.substr(letter + 1));
  }
  exact.digits = digits.substr(zeros, digits.find_last_not_of('0') + 1 - zeros);
  return exact;
}

// All digits of a positive double below 1.
ExactNumber WriteExactly(double value, FloatBase base) {
  std::array<char, 1200> text{};
  const std::to_chars_result end =
      base == FloatBase::Hex
          ? std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::hex)
          : std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed,
                          1100);
  return ReadExactly({{text.data(), static_cast<std::size_t>(end.ptr - text.data())}, base});
}

bool IsZero(const FloatDigits& number) {
  return ReadExactly(number).digits.empty();
}

// As the C library says it: the number is too small for all of a float's digits, and some are lost.
bool LosesDigits(const FloatDigits& number, float value) {
  if (value > kLeastNormal) {
    return false;
  }
  const ExactNumber exact = ReadExactly(number);
  return exact != WriteExactly(value, number.base) &&
         exact < WriteExactly(kLeastRoundedUp, number.base);
}

}  // namespace

std::optional<float> FloatByChars(const FloatDigits& digits) {
  if (IsZero(digits)) {
    return 0.0F;
  }
  float value = 0.0F;
  const auto format =
      digits.base == FloatBase::Hex ? std::chars_format::hex : std::chars_format::general;
  const std::from_chars_result result =
      std::from_chars(digits.text.data(), digits.text.data() + digits.text.size(), value, format);
  if (result.ec != std::errc{} || std::isinf(value) || value == 0.0F ||
      LosesDigits(digits, value)) {
    return std::nullopt;
  }
  return value;
}

std::string FixedByChars(double value, int decimals) {
  // The greatest double has 309 digits before the point.
  std::array<char, 384> buffer{};
  const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                    value, std::chars_format::fixed, decimals);
  return {buffer.data(), result.ptr};
}

}  // namespace quindle::frontend::gui

#endif

#include "frontend/gui/float_text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <system_error>

#include "frontend/gui/float_conversion.h"
#include "utils/ascii_text.h"
#include "utils/string_utils.h"

namespace quindle::frontend::gui {
namespace {

bool IsHexDigit(char c) {
  return utils::is_ascii_digit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// `word` is in lower case.
bool StartsWithWord(std::string_view text, std::string_view word) {
  return utils::ascii_to_lower(text.substr(0, word.size())) == word;
}

std::size_t CountLeading(std::string_view text, bool (*belongs)(char)) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), belongs) -
                                  text.begin());
}

// The length of an exponent, which needs a digit to be one.
std::size_t ExponentLength(std::string_view text, std::string_view letter) {
  if (!StartsWithWord(text, letter)) {
    return 0;
  }
  const std::size_t sign = text.size() > 1 && (text[1] == '+' || text[1] == '-') ? 1 : 0;
  const std::size_t digits = CountLeading(text.substr(1 + sign), &utils::is_ascii_digit);
  return digits == 0 ? 0 : 1 + sign + digits;
}

// The digits at the start of the text, with point and exponent; empty when there are none.
std::string_view TakeDigits(std::string_view text, FloatBase base) {
  const auto belongs = base == FloatBase::Hex ? &IsHexDigit : &utils::is_ascii_digit;
  const std::size_t whole = CountLeading(text, belongs);
  std::size_t length = whole;
  std::size_t fraction = 0;
  if (length < text.size() && text[length] == '.') {
    fraction = CountLeading(text.substr(length + 1), belongs);
    length += 1 + fraction;
  }
  if (whole + fraction == 0) {
    return {};
  }
  length += ExponentLength(text.substr(length), base == FloatBase::Hex ? "p" : "e");
  return text.substr(0, length);
}

// "0x" alone is the number 0 with a letter behind it.
FloatDigits TakeNumber(std::string_view text) {
  if (StartsWithWord(text, "0x")) {
    const std::string_view hex = TakeDigits(text.substr(2), FloatBase::Hex);
    if (!hex.empty()) {
      return {hex, FloatBase::Hex};
    }
  }
  return {TakeDigits(text, FloatBase::Decimal), FloatBase::Decimal};
}

bool IsWordChar(char c) {
  return utils::is_ascii_digit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

// A whole number of base 8, 10 or 16, as "0" or "0x" at its start say; empty where it is none.
std::optional<std::uint64_t> ReadWhole(std::string_view text) {
  int base = 10;
  if (StartsWithWord(text, "0x")) {
    base = 16;
    text.remove_prefix(2);
  } else if (text.starts_with('0')) {
    base = 8;
  }
  std::uint64_t whole = 0;
  const char* const end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, whole, base);
  if (result.ec == std::errc::invalid_argument || result.ptr != end) {
    return std::nullopt;
  }
  return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint64_t>::max()
                                                     : whole;
}

// What follows "nan": a number in brackets goes into the bits that say nothing.
float ParseNan(std::string_view rest) {
  constexpr std::uint32_t kFreeBits = 0x3FFFFFU;
  auto bits = std::bit_cast<std::uint32_t>(std::numeric_limits<float>::quiet_NaN());
  if (rest.starts_with('(')) {
    rest.remove_prefix(1);
    const std::size_t length = CountLeading(rest, &IsWordChar);
    const std::optional<std::uint64_t> number = ReadWhole(rest.substr(0, length));
    if (number && length < rest.size() && rest[length] == ')') {
      bits |= static_cast<std::uint32_t>(*number) & kFreeBits;
    }
  }
  return std::bit_cast<float>(bits);
}

std::optional<float> ParseUnsigned(std::string_view text) {
  if (StartsWithWord(text, "inf")) {
    return std::numeric_limits<float>::infinity();
  }
  if (StartsWithWord(text, "nan")) {
    return ParseNan(text.substr(3));
  }
  const FloatDigits digits = TakeNumber(text);
  if (digits.text.empty()) {
    return std::nullopt;
  }
#if QUINDLE_HAS_FLOAT_CHARS
  return FloatByChars(digits);
#else
  return FloatByCLibrary(digits);
#endif
}

}  // namespace

std::optional<float> ParseFloatPrefix(const std::string& text) {
  std::string_view rest = utils::trim_leading_space(text);
  const bool has_sign = !rest.empty() && (rest.front() == '+' || rest.front() == '-');
  const bool is_negative = has_sign && rest.front() == '-';
  rest.remove_prefix(has_sign ? 1 : 0);
  const std::optional<float> magnitude = ParseUnsigned(rest);
  return magnitude && is_negative ? -*magnitude : magnitude;
}

std::string FormatFixed(double value, int decimals) {
#if QUINDLE_HAS_FLOAT_CHARS
  return FixedByChars(value, decimals);
#else
  return FixedByCLibrary(value, decimals);
#endif
}

}  // namespace quindle::frontend::gui

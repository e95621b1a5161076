#pragma once

// Private. The two ways of float_text: by <charconv>, and by the C library where the standard
// library has no floats there.

#include <optional>
#include <string>
#include <string_view>
#include <version>

#if defined(__cpp_lib_to_chars) && __cpp_lib_to_chars >= 201611L
#define QUINDLE_HAS_FLOAT_CHARS 1
#else
#define QUINDLE_HAS_FLOAT_CHARS 0
#endif

namespace quindle::frontend::gui {

enum class FloatBase { Decimal, Hex };

// Digits with at most one point and perhaps an exponent, nothing else: no blank, sign, or "0x".
struct FloatDigits {
  std::string_view text;
  FloatBase base = FloatBase::Decimal;
};

#if QUINDLE_HAS_FLOAT_CHARS
// Both are empty where the number is out of a float's range: greater than all of them, or so small
// that it loses digits.
std::optional<float> FloatByChars(const FloatDigits& digits);
std::string FixedByChars(double value, int decimals);
#endif

// What is out of range at the lower end, the C library says.
std::optional<float> FloatByCLibrary(const FloatDigits& digits);
std::string FixedByCLibrary(double value, int decimals);

}  // namespace quindle::frontend::gui

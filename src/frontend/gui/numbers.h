#pragma once

// Private. Numbers as whole pixels and rows: no value is too great to be converted.

#include <algorithm>
#include <cmath>
#include <limits>

namespace quindle::frontend::gui {

// The nearest int.
constexpr int ClampToInt(long long value) {
  return static_cast<int>(std::clamp<long long>(value, std::numeric_limits<int>::min(),
                                                std::numeric_limits<int>::max()));
}

// Truncates toward zero; a value beyond int becomes the nearest one. Not for a NaN.
constexpr int TruncateToInt(float value) {
  constexpr float kBeyondInt = 2147483648.0F;
  return ClampToInt(static_cast<long long>(std::clamp(value, -kBeyondInt, kBeyondInt)));
}

// Rounds half away from zero, as all scaled metrics do.
inline int RoundToInt(float value) {
  return static_cast<int>(std::lround(value));
}

}  // namespace quindle::frontend::gui

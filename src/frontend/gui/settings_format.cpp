#include "frontend/gui/settings_format.h"

#include <array>
#include <charconv>
#include <limits>

namespace quindle::frontend::gui {

std::string FormatFixed(double value, int decimals) {
  // The largest double, a sign, a dot and some decimals.
  constexpr std::size_t kRoom = std::numeric_limits<double>::max_exponent10 + 32;
  std::array<char, kRoom> buffer{};
  const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                    value, std::chars_format::fixed, decimals);
  return result.ec == std::errc() ? std::string(buffer.data(), result.ptr) : std::string();
}

}  // namespace quindle::frontend::gui

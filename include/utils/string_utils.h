#pragma once

/// Byte-string helpers. Text is UTF-8; all lengths count bytes. Functions are pure and may be
/// called from any thread.

#include <cstddef>
#include <string>
#include <string_view>

#include "utils/export.h"

namespace quindle::utils {

/// Lowers the ASCII letters A to Z. Every other byte, those of UTF-8 characters included, is
/// unchanged; the process locale plays no part.
/// @param text any bytes
/// @return the lowered copy
QUINDLE_UTILS_EXPORT std::string ascii_to_lower(std::string_view text);

/// Shortens text from the left, so that its end stays readable. A UTF-8 character is never cut, so
/// the result may be up to three bytes shorter than the limit.
/// @param text any bytes; what fits is returned as it is, valid UTF-8 or not
/// @param maxChars the limit in bytes, the three dots included
/// @return "..." followed by the rightmost part; with a limit under 4, which has no room for dots
/// and text, the rightmost whole characters that fit alone (possibly none)
QUINDLE_UTILS_EXPORT std::string ellipsize_left(std::string_view text, std::size_t maxChars);

}  // namespace quindle::utils

#pragma once

/// Byte-string helpers. Text is UTF-8; all lengths count bytes. Functions are pure and may be
/// called from any thread.

#include <cstddef>
#include <string>
#include <string_view>

#include "utils/export.h"

namespace quindle::utils {

/// Returns a copy of `text` with the ASCII letters A to Z lowered. Every other byte, those of
/// UTF-8 sequences included, is unchanged; the process locale plays no part.
QUINDLE_UTILS_EXPORT std::string ascii_to_lower(std::string_view text);

/// Shortens `text` to at most `maxChars` bytes from the left, so that its end stays readable.
///
/// Text that fits is returned as it is, valid UTF-8 or not. Otherwise the result is "..." followed
/// by the rightmost part; the dots count within `maxChars`. A UTF-8 character is never cut, so the
/// result may be up to three bytes shorter. With `maxChars` under 4 there is no room for dots and
/// text: the rightmost whole characters that fit are returned alone (possibly none).
QUINDLE_UTILS_EXPORT std::string ellipsize_left(std::string_view text, std::size_t maxChars);

}  // namespace quindle::utils

#pragma once

/// Path helpers on text. Both "/" and "\" separate components on every system, because paths of
/// DOS and Windows users reach the host as text. Functions are pure and may be called from any
/// thread; no file is looked at.

#include <string>
#include <string_view>

#include "utils/export.h"

namespace quindle::utils {

/// Takes the last component of a path.
/// @param path may be empty
/// @return the text behind the last separator, or all of it without one; empty behind a trailing
/// separator
QUINDLE_UTILS_EXPORT std::string filename_from_path(std::string_view path);

/// Takes the last component of a path without its extension (its last dot and what follows). A name
/// whose only dot comes first (".img") is all stem.
/// @param path may be empty
/// @param fallback returned as it stands when there is no usable stem
/// @return the stem; `fallback` for an empty last component, "." and ".."
QUINDLE_UTILS_EXPORT std::string stem_or_filename_from_path(std::string_view path,
                                                            std::string_view fallback);

/// Tells what may be typed into a file-name field: printable ASCII except the characters that
/// Windows or POSIX reserve in names (/ \ : * ? " < > |). Bytes from 0x80 are refused, since the
/// fields are edited byte by byte and must never hold half a character.
/// @param c one byte
/// @return whether the byte is accepted
QUINDLE_UTILS_EXPORT bool is_allowed_filename_char(char c);

}  // namespace quindle::utils

#pragma once

// Private. Editing of a one-line text field, byte by byte, and texts that may be left out. No SDL
// call.

#include <cstddef>
#include <string>
#include <string_view>

namespace quindle::frontend::gui {

// `text`, or `fallback` when it is empty.
std::string TextOr(const std::string& text, std::string_view fallback);

// True for a text of one or more ASCII digits and nothing else.
bool IsDigitString(std::string_view text);

// Appends the bytes of `typed` that `accept` takes, as long as `text` is shorter than `max_size`.
// Only typing is limited: a longer text is kept.
void TypeAcceptedBytes(std::string_view typed, bool (*accept)(char), std::size_t max_size,
                       std::string* text);

// Does nothing when `text` is null or empty.
void RemoveLastByte(std::string* text);

}  // namespace quindle::frontend::gui

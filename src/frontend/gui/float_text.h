#pragma once

// Private. Floats as text, with a decimal point whatever locale the host has set. Reading follows
// the standard library's two ways exactly: formatted stream extraction and stof.

#include <optional>
#include <string>
#include <string_view>

namespace quindle::frontend::gui {

// Extracts a float from the front of *text as `stream >> value` would, and removes what was read.
// Works on characters: "1.0.0" is 1, then .0; "0x10" is 0, then a failure. Neither hex, inf nor nan
// is known; overflow fails, underflow gives 0. After a failure *text is unspecified.
std::optional<float> ExtractFloat(std::string_view* text);

// Converts the longest numeric prefix as std::stof would: hex, inf and nan count, what follows is
// ignored. Empty where stof would throw: no number, or out of range (underflow included).
std::optional<float> ParseFloatPrefix(const std::string& text);

// The value in fixed-point form with at most 64 decimals; inf and nan in words.
std::string FormatFixed(double value, int decimals);

}  // namespace quindle::frontend::gui

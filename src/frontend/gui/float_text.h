#pragma once

// Private. Floats as text, with a decimal point whatever locale the host has set.

#include <optional>
#include <string>

namespace quindle::frontend::gui {

// Converts the longest numeric prefix as std::stof would: hex, inf and nan count, what follows is
// ignored. Empty where stof would throw: no number, or out of range (underflow included).
std::optional<float> ParseFloatPrefix(const std::string& text);

// The value in fixed-point form with at most 64 decimals; inf and nan in words.
std::string FormatFixed(double value, int decimals);

}  // namespace quindle::frontend::gui

#pragma once

// Private. Numbers as the settings dialog prints them.

#include <string>

namespace quindle::frontend::gui {

// `value` in fixed notation with `decimals` digits behind the decimal point, which is a dot
// whatever locale the host has set.
std::string FormatFixed(double value, int decimals);

}  // namespace quindle::frontend::gui

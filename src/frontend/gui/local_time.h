#pragma once

// Private. The calendar where the host runs.

#include <ctime>

namespace quindle::frontend::gui {

// All zeros where the system cannot say.
std::tm ToLocalTime(std::time_t time);

}  // namespace quindle::frontend::gui

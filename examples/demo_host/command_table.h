#pragma once

#include <memory>
#include <vector>

#include "demo_command.h"

namespace quindle::demo {

using DemoCommands = std::vector<std::unique_ptr<DemoCommand>>;

// Every dialog of the demo host, in the order of help, buttons, number keys and tour.
DemoCommands MakeDemoCommands();

}  // namespace quindle::demo

#pragma once

#include <string>

#include "command_table.h"
#include "demo_command.h"

namespace quindle::demo {

struct TourOptions {
  std::string folder;    // Where the pictures go; made when missing.
  std::string only;      // Name of the one command to show; empty: all.
  bool display = false;  // Show the dialogs on the display instead of in memory alone.
};

// Shows every scene of the commands, saves their pictures and prints a JSON line for each scene.
// Returns Accepted, or Failed when a scene did not come to its end; each such scene is named on
// stderr. Throws UsageError, NothingShownError, or std::exception for a folder that cannot be made.
ExitStatus RunTour(const DemoCommands& commands, const TourOptions& options);

}  // namespace quindle::demo

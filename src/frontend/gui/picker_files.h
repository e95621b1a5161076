#pragma once

// Private. What the pickers ask of the file system, with the calls of one system. Nothing here
// reports an error, and nothing throws but for memory.

#include <filesystem>
#include <vector>

#include "frontend/gui/sdl_pickers.h"

namespace quindle::frontend::gui {

// What one pass over a directory found, in the order in which the file system gave it.
struct ScannedEntries {
  std::vector<PickerEntry> directories;
  std::vector<PickerEntry> files;
};

// A null `accept` takes no file. Ends at the first error of opening or advancing. Links count as
// what they lead to; what has no text as a path is left out.
ScannedEntries ScanDirectory(const std::filesystem::path& dir,
                             bool (*accept)(const std::filesystem::path&));

// Of what a link leads to; `none` or `not_found` when it cannot be told.
std::filesystem::file_type FindFileType(const std::filesystem::path& path);

}  // namespace quindle::frontend::gui

#include <system_error>

#include "frontend/gui/picker_files.h"
#include "utils/path_text.h"

namespace quindle::frontend::gui {
namespace {

namespace fs = std::filesystem;

PickerEntry MakeEntry(const fs::path& path, bool is_directory) {
  return {utils::text_from_path(path.filename()), path, is_directory};
}

// The tests take the type that came with the directory and look at the file itself only for links
// and for file systems that give no type. An entry whose status cannot be read is neither.
void ScanEntry(const fs::directory_entry& entry, bool (*accept)(const fs::path&),
               ScannedEntries* found) {
  std::error_code error;
  const fs::path& path = entry.path();
  if (entry.is_directory(error)) {
    found->directories.push_back(MakeEntry(path, true));
  } else if (accept != nullptr && !error && entry.is_regular_file(error) && accept(path)) {
    found->files.push_back(MakeEntry(path, false));
  }
}

}  // namespace

ScannedEntries ScanDirectory(const fs::path& dir, bool (*accept)(const fs::path&)) {
  ScannedEntries found;
  std::error_code error;
  fs::directory_iterator position(dir, error);
  while (!error && position != fs::directory_iterator()) {
    ScanEntry(*position, accept, &found);
    position.increment(error);
  }
  return found;
}

fs::file_type FindFileType(const fs::path& path) {
  std::error_code error;
  return fs::status(path, error).type();
}

}  // namespace quindle::frontend::gui

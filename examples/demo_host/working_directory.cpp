#include "working_directory.h"

#include <SDL.h>

#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "file_paths.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;

// Where the program was started; empty while that is still the working directory.
fs::path g_start_directory;

bool HoldsFonts(const fs::path& root) {
  std::error_code ignored;
  return fs::is_directory(root / "data" / "ttf", ignored);
}

std::vector<fs::path> DataRoots() {
  std::vector<fs::path> roots;
  const std::unique_ptr<char, decltype(&SDL_free)> base(SDL_GetBasePath(), &SDL_free);
  if (base != nullptr) {
    const fs::path program_folder = PathOf(base.get());
    roots.push_back(program_folder);
    roots.push_back(program_folder / ".." / QUINDLE_DEMO_INSTALLED_DATA);
  }
  roots.emplace_back(QUINDLE_DEMO_SOURCE_ROOT);
  return roots;
}

}  // namespace

void EnterDataDirectory() {
  if (HoldsFonts(".")) {
    return;
  }
  std::error_code error;
  const fs::path start = fs::current_path(error);
  for (const fs::path& root : DataRoots()) {
    if (!HoldsFonts(root)) {
      continue;
    }
    fs::current_path(root, error);
    if (!error) {
      g_start_directory = start;
      return;
    }
  }
}

std::string ResolveUserPath(const std::string& path) {
  if (path.empty() || g_start_directory.empty()) {
    return path;
  }
  return TextOf(g_start_directory / PathOf(path));
}

std::string FolderOrStart(const std::string& folder) {
  return folder.empty() ? TextOf(g_start_directory) : folder;
}

}  // namespace quindle::demo

#pragma once

// Private. Names are bytes, and a path's text is its bytes.

#include <filesystem>
#include <string>
#include <string_view>

namespace quindle::utils {

inline std::filesystem::path path_from_text(std::string_view text) {
  return text;
}

inline std::string text_from_path(const std::filesystem::path& path) {
  return path.native();
}

inline bool has_text(const std::filesystem::path& /*path*/) {
  return true;
}

inline std::filesystem::path join_paths(const std::filesystem::path& folder,
                                        const std::filesystem::path& name) {
  return folder / name;
}

inline std::filesystem::path parent_folder(const std::filesystem::path& folder) {
  std::filesystem::path parent = folder.parent_path();
  return parent == folder ? std::filesystem::path() : parent;
}

inline std::filesystem::path with_separators_of(const std::filesystem::path& /*model*/,
                                                const std::filesystem::path& path) {
  return path;
}

}  // namespace quindle::utils

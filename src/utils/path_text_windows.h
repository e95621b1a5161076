#pragma once

// Private. Names are UTF-16, their text is UTF-8; "/" and "\" both separate. Paths that the host
// writes with slashes stay so.

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "utils/utf16_text.h"
#include "utils/windows_root.h"

namespace quindle::utils {

// Units of wchar_t and char16_t are the same ones here.
inline std::u16string utf16_of(const std::filesystem::path& path) {
  return {path.native().begin(), path.native().end()};
}

inline std::filesystem::path path_from_text(std::string_view text) {
  const std::u16string units = utf16_from_text(text);
  return std::wstring(units.begin(), units.end());
}

inline std::string text_from_path(const std::filesystem::path& path) {
  return text_from_utf16(utf16_of(path));
}

inline bool has_text(const std::filesystem::path& path) {
  return is_utf16(utf16_of(path));
}

// The last separator tells; a path without one counts as written with slashes.
inline bool is_written_with_backslashes(const std::filesystem::path& path) {
  const std::size_t last = path.native().find_last_of(L"/\\");
  return last != std::wstring::npos && path.native()[last] == L'\\';
}

inline std::filesystem::path with_separators_of(const std::filesystem::path& model,
                                                const std::filesystem::path& path) {
  const bool backslashes = is_written_with_backslashes(model);
  std::wstring units = path.native();
  std::replace(units.begin(), units.end(), backslashes ? L'/' : L'\\', backslashes ? L'\\' : L'/');
  return units;
}

// Only a separator that joining has put in is changed.
inline std::filesystem::path join_paths(const std::filesystem::path& folder,
                                        const std::filesystem::path& name) {
  std::wstring units = (folder / name).native();
  const bool joined = units.size() == folder.native().size() + 1 + name.native().size();
  if (joined && !is_written_with_backslashes(folder)) {
    units[folder.native().size()] = L'/';
  }
  return units;
}

inline std::filesystem::path parent_folder(const std::filesystem::path& folder) {
  if (is_windows_root(utf16_of(folder))) {
    return {};
  }
  std::wstring parent = folder.parent_path().native();
  // Without its separator the root of "\\?\C:\games" would be the drive's device.
  const wchar_t next = folder.native()[parent.size()];
  if (parent.ends_with(L':') && is_windows_separator(next)) {
    parent.push_back(next);
  }
  return parent;
}

}  // namespace quindle::utils

// The standard library's own walk ends at MAX_PATH units, and asks for each entry's status anew.

#include <windows.h>

#include <cwchar>
#include <string>
#include <utility>

#include "frontend/gui/picker_files.h"
#include "utils/path_text.h"
#include "utils/windows_files.h"

namespace quindle::frontend::gui {
namespace {

namespace fs = std::filesystem;

fs::file_type TypeOf(DWORD attributes) {
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return fs::file_type::directory;
  }
  return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? fs::file_type::unknown
                                                   : fs::file_type::regular;
}

// Opened to be asked alone, which reads nothing and locks nobody out.
fs::file_type TypeBehindLink(const std::wstring& name) {
  const utils::OwnedWindowsFile file(
      CreateFileW(name.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION information{};
  const bool found = file.get() != INVALID_HANDLE_VALUE &&
                     GetFileInformationByHandle(file.get(), &information) != 0;
  return found ? TypeOf(information.dwFileAttributes) : fs::file_type::not_found;
}

// `name` is as the system's calls want it.
fs::file_type FollowType(const std::wstring& name, DWORD attributes) {
  const bool is_link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  return is_link ? TypeBehindLink(name) : TypeOf(attributes);
}

bool IsDotEntry(const wchar_t* name) {
  return std::wcscmp(name, L".") == 0 || std::wcscmp(name, L"..") == 0;
}

void ScanEntry(fs::path path, fs::file_type type, bool (*accept)(const fs::path&),
               ScannedEntries* found) {
  const bool is_directory = type == fs::file_type::directory;
  const bool is_file = type == fs::file_type::regular && accept != nullptr && accept(path);
  if ((is_directory || is_file) && utils::has_text(path)) {
    std::string name = utils::text_from_path(path.filename());
    (is_directory ? found->directories : found->files)
        .push_back(PickerEntry{std::move(name), std::move(path), is_directory});
  }
}

std::wstring SystemName(const fs::path& path) {
  return utils::unlimited_windows_path(utils::absolute_windows_path(path));
}

}  // namespace

ScannedEntries ScanDirectory(const fs::path& dir, bool (*accept)(const fs::path&)) {
  ScannedEntries found;
  const std::wstring folder = SystemName(dir);
  WIN32_FIND_DATAW entry{};
  const utils::OwnedWindowsSearch search(
      folder.empty() ? INVALID_HANDLE_VALUE
                     : FindFirstFileW((fs::path(folder) / L"*").c_str(), &entry));
  bool has_entry = search.get() != INVALID_HANDLE_VALUE;
  while (has_entry) {
    if (!IsDotEntry(entry.cFileName)) {
      const std::wstring name = (fs::path(folder) / entry.cFileName).native();
      ScanEntry(utils::join_paths(dir, entry.cFileName), FollowType(name, entry.dwFileAttributes),
                accept, &found);
    }
    has_entry = FindNextFileW(search.get(), &entry) != 0;
  }
  return found;
}

fs::file_type FindFileType(const fs::path& path) {
  const std::wstring name = SystemName(path);
  const DWORD attributes =
      name.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(name.c_str());
  return attributes == INVALID_FILE_ATTRIBUTES ? fs::file_type::not_found
                                               : FollowType(name, attributes);
}

}  // namespace quindle::frontend::gui

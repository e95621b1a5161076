#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "frontend/gui/picker_files.h"
#include "frontend/gui/sdl_pickers.h"
#include "utils/path_text.h"
#include "utils/string_utils.h"

namespace quindle::frontend::gui {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kParentRowName = "..";

// What orders the rows, beside a row's place in its group. The name is lowered once and not in
// every comparison of a sort.
struct SortKey {
  std::string lowered_name;
  std::size_t index = 0;

  explicit SortKey(const PickerEntry& entry, std::size_t place = 0)
      : lowered_name(utils::ascii_to_lower(entry.name)), index(place) {}
  bool operator<(const SortKey& other) const { return lowered_name < other.lowered_name; }
};

// Moves the rows of `group` behind those of `rows`, sorted.
void AppendSorted(std::vector<PickerEntry> group, std::vector<PickerEntry>* rows) {
  std::vector<SortKey> keys;
  keys.reserve(group.size());
  for (const PickerEntry& entry : group) {
    keys.emplace_back(entry, keys.size());
  }
  std::sort(keys.begin(), keys.end());
  for (const SortKey& key : keys) {
    rows->push_back(std::move(group[key.index]));
  }
}

void AppendParentRow(const fs::path& dir, std::vector<PickerEntry>* rows) {
  fs::path parent = utils::parent_folder(dir);
  if (!parent.empty()) {
    rows->push_back(PickerEntry{std::string(kParentRowName), std::move(parent), true});
  }
}

}  // namespace

bool HasAnyExtension(const fs::path& p, std::initializer_list<const char*> extensions) {
  const std::string extension = utils::ascii_to_lower(utils::text_from_path(p.extension()));
  return std::any_of(extensions.begin(), extensions.end(),
                     [&extension](const char* candidate) { return extension == candidate; });
}

bool IsAllowedImagePickerEntry(const fs::path& p) {
  return HasAnyExtension(p, {".ima", ".img"});
}

bool IsShaderPickerEntry(const fs::path& p) {
  return HasAnyExtension(p, {".glsl", ".glslp", ".frag", ".vert", ".fs", ".vs"});
}

bool IsFontPickerEntry(const fs::path& p) {
  return HasAnyExtension(p, {".ttf", ".otf"});
}

bool PickerEntryNameLess(const PickerEntry& a, const PickerEntry& b) {
  return SortKey(a) < SortKey(b);
}

std::vector<PickerEntry> ReadFolderPickerEntries(const fs::path& dir) {
  return ReadFilteredPickerEntries(dir, nullptr);
}

std::vector<PickerEntry> ReadFilteredPickerEntries(const fs::path& dir,
                                                   bool (*accept)(const fs::path&)) {
  ScannedEntries found = ScanDirectory(dir, accept);
  std::vector<PickerEntry> rows;
  rows.reserve(1 + found.directories.size() + found.files.size());
  AppendParentRow(dir, &rows);
  AppendSorted(std::move(found.directories), &rows);
  AppendSorted(std::move(found.files), &rows);
  return rows;
}

}  // namespace quindle::frontend::gui

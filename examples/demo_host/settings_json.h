#pragma once

// The settings as JSON: one object, each field of SettingsDialogValues under its own name.

#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "frontend/gui/settings_dialog.h"

namespace quindle::demo {

// Settings that cannot be read or written; what() names the file and, where one is to blame, the
// key.
class SettingsFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The object of `values`, in the order of the fields.
nlohmann::ordered_json SettingsToJson(const frontend::gui::SettingsDialogValues& values);

// What the demo host starts with: the library's defaults, and 50 pictures a second.
frontend::gui::SettingsDialogValues DefaultSettings();

// The values of an object; a missing key keeps its value of
// DefaultSettings. Throws SettingsFileError for anything
// but an object, for an unknown key, and for a value of the wrong type or beyond its type's range.
frontend::gui::SettingsDialogValues SettingsFromJson(const nlohmann::json& json);

// Reads a file of values. Throws SettingsFileError.
frontend::gui::SettingsDialogValues ReadSettingsFile(const std::filesystem::path& path);

// Writes a file that ReadSettingsFile reads: whole or, when it throws SettingsFileError, not at
// all.
void WriteSettingsFile(const std::filesystem::path& path,
                       const frontend::gui::SettingsDialogValues& values);

}  // namespace quindle::demo

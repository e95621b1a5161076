#include "settings_json.h"

#include <cstdint>
#include <fstream>
#include <limits>
#include <random>
#include <set>
#include <system_error>

#include "file_paths.h"

namespace quindle::demo {
namespace {

using frontend::gui::SettingsDialogValues;

// Calls visit(name, field) for each field of the record, in its order.
template <typename Values, typename Visit>
void VisitSettings(Values& values, Visit visit) {
  visit("target_fps", values.target_fps);
  visit("font_mode", values.font_mode);
  visit("renderer_mode", values.renderer_mode);
  visit("cpu_mhz", values.cpu_mhz);
  visit("mouse_capture_gain", values.mouse_capture_gain);
  visit("allow_mouse_capture_in_text_mode", values.allow_mouse_capture_in_text_mode);
  visit("hdd_sounds_enabled", values.hdd_sounds_enabled);
  visit("hdd_sounds_volume", values.hdd_sounds_volume);
  visit("custom_font_path", values.custom_font_path);
  visit("screenshot_capture_with_opengl_shaders", values.screenshot_capture_with_opengl_shaders);
  visit("screenshot_capture_size_mode", values.screenshot_capture_size_mode);
}

[[noreturn]] void RejectValue(const std::string& key, const char* wanted) {
  throw SettingsFileError("\"" + key + "\" must be " + wanted);
}

void ReadValue(const std::string& key, const nlohmann::json& json, bool* field) {
  if (!json.is_boolean()) {
    RejectValue(key, "true or false");
  }
  *field = json.get<bool>();
}

void ReadValue(const std::string& key, const nlohmann::json& json, int* field) {
  constexpr std::int64_t kLeast = std::numeric_limits<int>::min();
  constexpr std::int64_t kGreatest = std::numeric_limits<int>::max();
  // Beyond the signed range the library stores an unsigned number, which get() would wrap round.
  const bool too_great = json.is_number_unsigned() &&
                         json.get<std::uint64_t>() > static_cast<std::uint64_t>(kGreatest);
  if (!json.is_number_integer() || too_great || json.get<std::int64_t>() < kLeast) {
    RejectValue(key, "a whole number of 32 bits");
  }
  *field = json.get<int>();
}

void ReadValue(const std::string& key, const nlohmann::json& json, double* field) {
  if (!json.is_number()) {
    RejectValue(key, "a number");
  }
  *field = json.get<double>();
}

void ReadValue(const std::string& key, const nlohmann::json& json, std::string* field) {
  if (!json.is_string()) {
    RejectValue(key, "a string");
  }
  *field = json.get<std::string>();
}

void RejectUnknownKeys(const nlohmann::json& json) {
  std::set<std::string> known;
  const SettingsDialogValues values;
  VisitSettings(values, [&known](const char* key, const auto&) { known.insert(key); });
  for (const auto& item : json.items()) {
    if (!known.contains(item.key())) {
      throw SettingsFileError("unknown key \"" + item.key() + "\"");
    }
  }
}

nlohmann::json ParseFile(const std::filesystem::path& path) {
  std::ifstream file(path);
  if (!file) {
    throw SettingsFileError("cannot open it");
  }
  try {
    return nlohmann::json::parse(file);
  } catch (const nlohmann::json::exception& error) {
    throw SettingsFileError(std::string("no valid JSON: ") + error.what());
  }
}

// Removes a file unless it has been renamed away.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::filesystem::path path) : path_(std::move(path)) {}
  ~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  TemporaryFile(TemporaryFile&&) = delete;
  TemporaryFile& operator=(TemporaryFile&&) = delete;

  bool Write(const std::string& contents) const {
    std::ofstream file(path_, std::ios::binary | std::ios::trunc);
    file << contents;
    file.close();
    return file.good();
  }

  bool MoveTo(const std::filesystem::path& target) const {
    std::error_code error;
    std::filesystem::rename(path_, target, error);
    return !error;
  }

 private:
  std::filesystem::path path_;
};

std::string FileContents(const std::filesystem::path& path, const SettingsDialogValues& values) {
  try {
    return SettingsToJson(values).dump() + "\n";
  } catch (const nlohmann::json::type_error&) {
    throw SettingsFileError(TextOf(path) + ": a file name that is not UTF-8 cannot be saved");
  }
}

}  // namespace

nlohmann::ordered_json SettingsToJson(const SettingsDialogValues& values) {
  nlohmann::ordered_json json = nlohmann::ordered_json::object();
  VisitSettings(values, [&json](const char* key, const auto& field) { json[key] = field; });
  return json;
}

SettingsDialogValues DefaultSettings() {
  SettingsDialogValues values;
  values.target_fps = 50;
  return values;
}

SettingsDialogValues SettingsFromJson(const nlohmann::json& json) {
  if (!json.is_object()) {
    throw SettingsFileError("the settings must be one JSON object");
  }
  RejectUnknownKeys(json);
  SettingsDialogValues values = DefaultSettings();
  VisitSettings(values, [&json](const char* key, auto& field) {
    if (const auto value = json.find(key); value != json.end()) {
      ReadValue(key, *value, &field);
    }
  });
  return values;
}

SettingsDialogValues ReadSettingsFile(const std::filesystem::path& path) {
  try {
    return SettingsFromJson(ParseFile(path));
  } catch (const SettingsFileError& error) {
    throw SettingsFileError(TextOf(path) + ": " + error.what());
  }
}

void WriteSettingsFile(const std::filesystem::path& path, const SettingsDialogValues& values) {
  // In the same folder, so that the rename is one step of one file system.
  std::filesystem::path temporary_path = path;
  temporary_path += "." + std::to_string(std::random_device{}()) + ".tmp";
  const TemporaryFile temporary(temporary_path);
  if (!temporary.Write(FileContents(path, values)) || !temporary.MoveTo(path)) {
    throw SettingsFileError(TextOf(path) + ": cannot write it");
  }
}

}  // namespace quindle::demo

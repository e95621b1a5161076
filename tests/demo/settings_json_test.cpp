#include "settings_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "support/temporary_directory.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;
using frontend::gui::SettingsDialogValues;
using ::testing::HasSubstr;
using testing::TemporaryDirectory;

constexpr const char* kSample =
    R"({"target_fps":60,"font_mode":"ttf-custom","renderer_mode":"software","cpu_mhz":4.77,)"
    R"("mouse_capture_gain":0.1,"allow_mouse_capture_in_text_mode":true,"hdd_sounds_enabled":true,)"
    R"("hdd_sounds_volume":0.30000000000000004,"custom_font_path":"/fonts/\"vga\" ü.ttf",)"
    R"("screenshot_capture_with_opengl_shaders":true,"screenshot_capture_size_mode":-3})";

std::string Message(const std::string& json) {
  try {
    SettingsFromJson(nlohmann::json::parse(json));
  } catch (const SettingsFileError& error) {
    return error.what();
  }
  return "";
}

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> Names(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.push_back(entry.path().filename());
  }
  return names;
}

TEST(SettingsJson, RoundTripKeepsEveryFieldAndTheOrder) {
  const SettingsDialogValues values = SettingsFromJson(nlohmann::json::parse(kSample));
  EXPECT_EQ(values.target_fps, 60);
  EXPECT_EQ(values.font_mode, "ttf-custom");
  EXPECT_EQ(values.renderer_mode, "software");
  EXPECT_EQ(values.cpu_mhz, 4.77);
  EXPECT_EQ(values.mouse_capture_gain, 0.1);
  EXPECT_TRUE(values.allow_mouse_capture_in_text_mode);
  EXPECT_TRUE(values.hdd_sounds_enabled);
  EXPECT_EQ(values.hdd_sounds_volume, 0.1 + 0.2);
  EXPECT_EQ(values.custom_font_path, "/fonts/\"vga\" ü.ttf");
  EXPECT_TRUE(values.screenshot_capture_with_opengl_shaders);
  EXPECT_EQ(values.screenshot_capture_size_mode, -3);
  EXPECT_EQ(SettingsToJson(values).dump(), kSample);
}

TEST(SettingsJson, MissingKeysKeepTheirDefaults) {
  const std::string defaults = SettingsToJson(DefaultSettings()).dump();
  EXPECT_EQ(SettingsToJson(SettingsFromJson(nlohmann::json::object())).dump(), defaults);
  EXPECT_THAT(defaults, HasSubstr(R"("target_fps":50,"font_mode":"pixel")"));
  const SettingsDialogValues one = SettingsFromJson({{"cpu_mhz", 8}});
  EXPECT_EQ(one.cpu_mhz, 8.0);
  EXPECT_EQ(one.font_mode, "pixel");
}

TEST(SettingsJson, UnknownKeyIsNamed) {
  EXPECT_EQ(Message(R"({"fps": 50})"), "unknown key \"fps\"");
  EXPECT_EQ(Message(R"({"target_fps": 50, "Target_fps": 50})"), "unknown key \"Target_fps\"");
  EXPECT_EQ(Message(R"({"": 1})"), "unknown key \"\"");
}

TEST(SettingsJson, WrongTypeIsNamedWithItsKey) {
  struct Case {
    std::vector<const char*> keys;
    std::vector<const char*> wrong;
    const char* wanted;
  };
  const std::vector<Case> cases{
      {{"target_fps", "screenshot_capture_size_mode"},
       {"\"50\"", "50.5", "50.0", "true", "null", "[50]", "{}", "2147483648", "-2147483649",
        "18446744073709551615", "9223372036854775808"},
       "a whole number of 32 bits"},
      {{"font_mode", "renderer_mode", "custom_font_path"},
       {"50", "true", "null", "[]", "{}"},
       "a string"},
      {{"cpu_mhz", "mouse_capture_gain", "hdd_sounds_volume"},
       {"\"1.0\"", "true", "null", "[]", "{}"},
       "a number"},
      {{"allow_mouse_capture_in_text_mode", "hdd_sounds_enabled",
        "screenshot_capture_with_opengl_shaders"},
       {"0", "1", "\"true\"", "null", "[]", "{}"},
       "true or false"},
  };
  for (const Case& c : cases) {
    for (const std::string key : c.keys) {
      for (const char* wrong : c.wrong) {
        EXPECT_EQ(Message("{\"" + key + "\": " + wrong + "}"),
                  "\"" + key + "\" must be " + c.wanted)
            << wrong;
      }
    }
  }
}

TEST(SettingsJson, WholeNumbersReachBothEnds) {
  EXPECT_EQ(SettingsFromJson({{"target_fps", 2147483647}}).target_fps, 2147483647);
  EXPECT_EQ(SettingsFromJson({{"target_fps", -2147483648LL}}).target_fps, -2147483647 - 1);
}

TEST(SettingsJson, OnlyAnObjectIsTaken) {
  for (const char* json : {"[]", "null", "50", "\"settings\"", "true"}) {
    EXPECT_EQ(Message(json), "the settings must be one JSON object") << json;
  }
}

TEST(SettingsFile, ErrorsNameTheFile) {
  const TemporaryDirectory folder;
  const fs::path file = folder.path() / "settings.json";
  const auto message = [&file] {
    try {
      ReadSettingsFile(file);
    } catch (const SettingsFileError& error) {
      return std::string(error.what());
    }
    return std::string();
  };
  EXPECT_EQ(message(), file.string() + ": cannot open it");
  for (const char* broken : {"", "{", "{\"cpu_mhz\": 1} x", "{\"font_mode\": \"\xFF\"}"}) {
    std::ofstream(file) << broken;
    EXPECT_THAT(message(), HasSubstr(file.string() + ": no valid JSON: ")) << broken;
  }
  std::ofstream(file) << "{\"font\": 1}";
  EXPECT_EQ(message(), file.string() + ": unknown key \"font\"");
}

TEST(SettingsFile, IsWrittenWholeAndReplacesTheFormerOne) {
  const TemporaryDirectory folder;
  const fs::path file = folder.path() / "settings.json";
  std::ofstream(file) << std::string(5000, 'x');
  WriteSettingsFile(file, SettingsFromJson(nlohmann::json::parse(kSample)));
  EXPECT_EQ(Contents(file), std::string(kSample) + "\n");
  EXPECT_EQ(SettingsToJson(ReadSettingsFile(file)).dump(), kSample);
  EXPECT_THAT(Names(folder.path()), ::testing::ElementsAre("settings.json"));
}

TEST(SettingsFile, FailedWriteLeavesTheFormerOneAlone) {
  const TemporaryDirectory folder;
  EXPECT_THROW(WriteSettingsFile(folder.path() / "none" / "settings.json", DefaultSettings()),
               SettingsFileError);
  // A folder of the file's name cannot be replaced.
  const fs::path taken = folder.path() / "settings.json";
  fs::create_directories(taken / "inside");
  EXPECT_THROW(WriteSettingsFile(taken, DefaultSettings()), SettingsFileError);
  EXPECT_THAT(Names(folder.path()), ::testing::ElementsAre("settings.json"));
  EXPECT_TRUE(fs::exists(taken / "inside"));
}

TEST(SettingsFile, NameThatIsNoTextIsNotSaved) {
  const TemporaryDirectory folder;
  const fs::path file = folder.path() / "settings.json";
  std::ofstream(file) << "former";
  SettingsDialogValues values = DefaultSettings();
  values.custom_font_path = "/fonts/\xFF.ttf";
  EXPECT_THROW(WriteSettingsFile(file, values), SettingsFileError);
  EXPECT_EQ(Contents(file), "former");
  EXPECT_THAT(Names(folder.path()), ::testing::ElementsAre("settings.json"));
}

}  // namespace
}  // namespace quindle::demo

// The demo host's program, started as a user starts it where there is no display.

#include <SDL.h>
#include <SDL_image.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "command_table.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "support/child_process.h"
#include "support/temporary_directory.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;
using frontend::gui::OwnedSdlSurface;
using ::testing::HasSubstr;
using testing::ProgramResult;
using testing::RunProgram;
using testing::TemporaryDirectory;

// SDL2 on top of SDL3 copies SDL_VIDEODRIVER to SDL3's name of it when this program starts.
ProgramResult RunWithoutDisplay(const std::vector<std::string>& arguments) {
  std::vector<std::string> command = {"env",
                                      "-u",
                                      "DISPLAY",
                                      "-u",
                                      "WAYLAND_DISPLAY",
                                      "-u",
                                      "XDG_RUNTIME_DIR",
                                      "-u",
                                      "SDL_VIDEODRIVER",
                                      "-u",
                                      "SDL_VIDEO_DRIVER",
                                      QUINDLE_DEMO_PROGRAM};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return RunProgram(command, std::chrono::seconds(60));
}

void ExpectOneLineOfError(const ProgramResult& result, const std::string& beginning) {
  EXPECT_EQ(result.err.rfind("quindle_dialogs: " + beginning, 0), 0U) << result.err;
  EXPECT_EQ(result.err.find('\n') + 1, result.err.size()) << result.err;
  EXPECT_EQ(result.out, "");
}

TEST(DemoProgram, HelpListsEveryCommand) {
  const ProgramResult result = RunWithoutDisplay({"--help"});
  EXPECT_EQ(result.exit_status, 0);
  for (const auto& command : MakeDemoCommands()) {
    EXPECT_THAT(result.out, HasSubstr("\n  " + command->Name() + " "));
  }
  EXPECT_THAT(result.out, HasSubstr("\n  tour "));
}

TEST(DemoProgram, EveryCommandHasHelp) {
  for (const auto& command : MakeDemoCommands()) {
    const ProgramResult result = RunWithoutDisplay({command->Name(), "--help"});
    EXPECT_EQ(result.exit_status, 0);
    EXPECT_THAT(result.out, HasSubstr(command->Description()));
  }
}

TEST(DemoProgram, NamesAndLabelsAreUnique) {
  std::set<std::string> names;
  std::set<std::string> labels;
  const DemoCommands commands = MakeDemoCommands();
  for (const auto& command : commands) {
    names.insert(command->Name());
    labels.insert(command->ButtonLabel());
  }
  EXPECT_EQ(names.size(), commands.size());
  EXPECT_EQ(labels.size(), commands.size());
}

TEST(DemoProgram, WithoutDisplayThereIsNoWindow) {
  const ProgramResult result = RunWithoutDisplay({});
  EXPECT_EQ(result.exit_status, 3);
  ExpectOneLineOfError(result, "no display: ");
}

TEST(DemoProgram, WithoutDisplayThereIsNoDialog) {
  const ProgramResult result = RunWithoutDisplay({"message"});
  EXPECT_EQ(result.exit_status, 3);
  ExpectOneLineOfError(result, "no display: ");
}

TEST(DemoProgram, WrongArgumentsAreWrongUsage) {
  for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
           {"dance"}, {"--dance"}, {"message", "tour"}, {"tour"}}) {
    const ProgramResult result = RunWithoutDisplay(arguments);
    EXPECT_EQ(result.exit_status, 2) << arguments.front();
    ExpectOneLineOfError(result, "");
  }
}

TEST(DemoProgram, TourOfAnUnknownDialogIsWrongUsage) {
  const TemporaryDirectory folder;
  const fs::path out = folder.path() / "out";
  const ProgramResult result = RunWithoutDisplay({"tour", "--out", out, "--only", "dance"});
  EXPECT_EQ(result.exit_status, 2);
  ExpectOneLineOfError(result, "tour --only: ");
  EXPECT_FALSE(fs::exists(out));
}

TEST(DemoProgram, TourIntoAFileFails) {
  const TemporaryDirectory folder;
  const ProgramResult result =
      RunWithoutDisplay({"tour", "--out", folder.Write("taken", "x") / "below"});
  EXPECT_EQ(result.exit_status, 4);
  ExpectOneLineOfError(result, "");
}

OwnedSdlSurface LoadPicture(const fs::path& file) {
  OwnedSdlSurface picture(IMG_Load(file.c_str()));
  return OwnedSdlSurface(picture == nullptr
                             ? nullptr
                             : SDL_ConvertSurfaceFormat(picture.get(), SDL_PIXELFORMAT_RGB24, 0));
}

size_t CountColours(SDL_Surface* picture) {
  std::set<std::string> colours;
  for (int y = 0; y < picture->h; ++y) {
    const char* row = static_cast<const char*>(picture->pixels) + y * picture->pitch;
    for (int x = 0; x < picture->w; ++x) {
      colours.emplace(row + 3 * x, 3);
    }
  }
  return colours.size();
}

// One tour serves all tests of this suite.
class Tour : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TemporaryDirectory>();
    result_ = RunWithoutDisplay({"tour", "--out", folder_->path()});
    std::istringstream lines(result_.out);
    for (std::string line; std::getline(lines, line);) {
      lines_.push_back(nlohmann::json::parse(line));
    }
  }
  static void TearDownTestSuite() {
    lines_.clear();
    folder_.reset();
  }

  static std::vector<std::string> Pictures() {
    std::vector<std::string> pictures;
    for (const auto& line : lines_) {
      for (const auto& picture : line.at("pictures")) {
        pictures.push_back(picture);
      }
    }
    return pictures;
  }

  static inline std::unique_ptr<TemporaryDirectory> folder_;
  static inline ProgramResult result_;
  static inline std::vector<nlohmann::json> lines_;
};

TEST_F(Tour, ComesToItsEnd) {
  EXPECT_EQ(result_.exit_status, 0);
  EXPECT_EQ(result_.err, "");
}

TEST_F(Tour, ShowsEveryDialogWithPictures) {
  std::map<std::string, size_t> pictures;
  for (const auto& line : lines_) {
    pictures[line.value("dialog", "")] += line.at("pictures").size();
  }
  for (const auto& command : MakeDemoCommands()) {
    EXPECT_GT(pictures[command->Name()], 0U) << command->Name();
  }
}

TEST_F(Tour, SavesThePicturesItNamesAndNoOther) {
  std::set<std::string> saved;
  for (const auto& entry : fs::directory_iterator(folder_->path())) {
    saved.insert(entry.path().filename());
  }
  const std::vector<std::string> named = Pictures();
  EXPECT_EQ(saved, std::set<std::string>(named.begin(), named.end()));
  EXPECT_EQ(saved.size(), named.size()) << "two pictures have one name";
}

TEST_F(Tour, NoPictureIsEmpty) {
  for (const std::string& name : Pictures()) {
    const OwnedSdlSurface picture = LoadPicture(folder_->path() / name);
    ASSERT_NE(picture, nullptr) << name;
    EXPECT_GE(picture->w, 320) << name;
    EXPECT_GE(picture->h, 140) << name;
    EXPECT_GT(CountColours(picture.get()), 20U) << name;
  }
}

TEST_F(Tour, PicturesHaveTheDialogsSize) {
  const OwnedSdlSurface window = LoadPicture(folder_->path() / "demo-window.png");
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->w, 900);
  EXPECT_EQ(window->h, 760);
  const OwnedSdlSurface box = LoadPicture(folder_->path() / "message-info.png");
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->w, 420);
}

TEST_F(Tour, PrintsResults) {
  const auto clicked = std::find_if(lines_.begin(), lines_.end(), [](const nlohmann::json& line) {
    return line.at("scene") == "message clicked";
  });
  ASSERT_NE(clicked, lines_.end());
  EXPECT_EQ(clicked->at("result").at("button"), 2);
  EXPECT_EQ(clicked->at("result").at("accepted"), true);
}

TEST(DemoProgram, TourOfOneDialogShowsNoOther) {
  const TemporaryDirectory folder;
  const ProgramResult result =
      RunWithoutDisplay({"tour", "--out", folder.path(), "--only", "message"});
  EXPECT_EQ(result.exit_status, 0);
  for (const auto& entry : fs::directory_iterator(folder.path())) {
    EXPECT_THAT(entry.path().filename().string(),
                ::testing::AnyOf("demo-window.png", ::testing::StartsWith("message-")));
  }
}

TEST(DemoProgram, TourRunsFromAnyFolderAndKeepsRelativePaths) {
  const TemporaryDirectory folder;
  const fs::path source = fs::current_path();
  fs::current_path(folder.path());
  const ProgramResult result =
      RunWithoutDisplay({"tour", "--out", "my pictures", "--only", "message"});
  fs::current_path(source);
  EXPECT_EQ(result.exit_status, 0) << result.err;
  EXPECT_TRUE(fs::exists(folder.path() / "my pictures" / "message-info.png"));
}

TEST(DemoProgram, TourLeavesNoSamplesBehind) {
  const TemporaryDirectory folder;
  const TemporaryDirectory temporary;
  setenv("TMPDIR", temporary.path().c_str(), 1);
  const ProgramResult result =
      RunWithoutDisplay({"tour", "--out", folder.path(), "--only", "message"});
  unsetenv("TMPDIR");
  EXPECT_EQ(result.exit_status, 0);
  EXPECT_TRUE(fs::is_empty(temporary.path()));
}

}  // namespace
}  // namespace quindle::demo

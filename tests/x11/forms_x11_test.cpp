// The HDD image and screenshot dialogs as a user meets them: the demo program in real windows.

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "command_table.h"
#include "support/child_process.h"
#include "support/temporary_directory.h"
#include "support/wait_until.h"
#include "support/x11_display.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;
using testing::ChildProcess;
using testing::ClickAt;
using ::testing::HasSubstr;
using testing::PressKey;
using testing::ProgramResult;
using testing::RunProgram;
using testing::TemporaryDirectory;
using testing::TypeText;
using testing::WaitForProgram;
using testing::WaitForX11Focus;
using testing::WaitForX11Window;
using testing::WaitForX11WindowGone;
using testing::X11WindowId;

constexpr const char* kHddTitle = "Create HDD Image";
constexpr const char* kHddPickerTitle = "Select HDD Output Folder";
constexpr const char* kScreenshotTitle = "Save Screenshot";
constexpr const char* kScreenshotPickerTitle = "Select Screenshot Output Folder";
// Button of the folder picker, which is 780 x 540 pixels.
constexpr SDL_Point kUse{719, 515};

void ClickAt(X11WindowId window, SDL_Point at) {
  ClickAt(window, at.x, at.y);
}

X11WindowId WaitForDialog(const std::string& title) {
  const X11WindowId window = WaitForX11Window(title);
  WaitForX11Focus(window);
  return window;
}

void EraseBytes(int count) {
  for (int i = 0; i < count; ++i) {
    PressKey("BackSpace");
  }
}

std::string IdentifyPicture(const std::string& format, const fs::path& file) {
  const ProgramResult result = RunProgram({"identify", "-format", format, file.string()});
  EXPECT_EQ(result.err, "");
  return result.out;
}

class FormProgram : public testing::X11DisplayTest {
 protected:
  FormProgram() : inner_(folder_.MakeFolder("inner")) {}

  // Starts the program with the test's folder as the folder shown first.
  void Start(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), QUINDLE_DEMO_PROGRAM);
    arguments.insert(arguments.end(), {"--folder", folder_.path()});
    program_ = std::make_unique<ChildProcess>(arguments);
  }
  // Opens "inner" in the folder picker, below the row that leads up, and uses it.
  static void PickInnerFolder(const std::string& picker_title) {
    const X11WindowId picker = WaitForDialog(picker_title);
    PressKey("Down");
    PressKey("Return");
    ClickAt(picker, kUse);
    WaitForX11WindowGone(picker_title);
  }
  ProgramResult End() { return WaitForProgram(program_.get()); }

  TemporaryDirectory folder_;
  fs::path inner_;
  std::unique_ptr<ChildProcess> program_;
};

// --- HDD image -----------------------------------------------------------------------------------

class HddProgram : public FormProgram {
 protected:
  static constexpr SDL_Point kNameField{400, 150};
  static constexpr SDL_Point kChoose{735, 210};
  static constexpr SDL_Point kCancel{675, 338};
  static constexpr SDL_Point kCreate{795, 338};
};

TEST_F(HddProgram, CreatesTheImageThatWasTypedAndChosen) {
  Start({"hdd", "--size", "64", "--create"});
  const X11WindowId dialog = WaitForDialog(kHddTitle);
  EraseBytes(2);
  TypeText("x3");
  PressKey("Tab");
  EraseBytes(4);
  TypeText("/_c");
  ClickAt(dialog, kChoose);
  PickInnerFolder(kHddPickerTitle);
  WaitForX11Focus(dialog);
  TypeText("d.img");  // Typing still reaches the name.
  ClickAt(dialog, kCreate);

  const ProgramResult result = End();
  EXPECT_EQ(result.exit_status, 0) << result.err;
  const auto json = nlohmann::json::parse(result.out);
  EXPECT_EQ(json.at("accepted"), true);
  EXPECT_EQ(json.at("size_mb"), 3);
  EXPECT_EQ(json.at("folder"), inner_.string());
  EXPECT_EQ(json.at("file_name"), "disk_cd.img");
  EXPECT_EQ(json.at("path"), (inner_ / "disk_cd.img").string());
  EXPECT_EQ(json.at("created"), true);
  EXPECT_EQ(fs::file_size(inner_ / "disk_cd.img"), 3U * 1024U * 1024U);
}

TEST_F(HddProgram, RefusesAnExistingImage) {
  const fs::path taken = folder_.Write("disk.img", "mine");
  Start({"hdd", "--size", "1", "--create"});
  WaitForDialog(kHddTitle);
  PressKey("Return");
  const ProgramResult result = End();
  EXPECT_EQ(result.exit_status, 4);
  EXPECT_THAT(result.err, HasSubstr(taken.string() + " exists already"));
  EXPECT_EQ(fs::file_size(taken), 4U);
}

TEST_F(HddProgram, ClosingThePickerClosesThePickerAlone) {
  Start({"hdd"});
  const X11WindowId dialog = WaitForDialog(kHddTitle);
  ClickAt(dialog, kChoose);
  testing::CloseByWindowManager(WaitForDialog(kHddPickerTitle));
  WaitForX11WindowGone(kHddPickerTitle);
  WaitForX11Focus(dialog);
  EXPECT_TRUE(program_->IsRunning());
  PressKey("Return");
  EXPECT_EQ(nlohmann::json::parse(End().out).at("folder"), folder_.path().string());
}

TEST_F(HddProgram, EveryWayOutCancels) {
  for (const std::string way : {"Escape", "Cancel", "close"}) {
    Start({"hdd", "--create"});
    const X11WindowId dialog = WaitForDialog(kHddTitle);
    TypeText("5");
    if (way == "Escape") {
      PressKey("Escape");
    } else if (way == "Cancel") {
      ClickAt(dialog, kCancel);
    } else {
      testing::CloseByWindowManager(dialog);
    }
    const ProgramResult result = End();
    EXPECT_EQ(result.exit_status, 1) << way;
    EXPECT_THAT(result.out, HasSubstr("\"accepted\":false"));
    EXPECT_FALSE(fs::exists(folder_.path() / "disk.img"));
  }
}

// --- Screenshot ----------------------------------------------------------------------------------

class ScreenshotProgram : public FormProgram {
 protected:
  static constexpr SDL_Point kNameField{400, 100};
  static constexpr SDL_Point kChoose{820, 167};
  static constexpr SDL_Point kFormatBox{360, 233};
  static constexpr SDL_Point kOptionField{330, 300};
  static constexpr SDL_Point kCheckBox{261, 297};
  static constexpr SDL_Point kSave{820, 370};
  static constexpr int kFirstRowY = 268;
  static constexpr int kRowPitch = 34;

  static void ChooseFormat(X11WindowId dialog, int row) {
    ClickAt(dialog, kFormatBox);
    ClickAt(dialog, {360, kFirstRowY + row * kRowPitch});
  }
};

TEST_F(ScreenshotProgram, SavesJpegWithTheTypedNameAndQualityInTheChosenFolder) {
  Start({"screenshot", "--name", "shot", "--write"});
  const X11WindowId dialog = WaitForDialog(kScreenshotTitle);
  ChooseFormat(dialog, 1);
  EraseBytes(2);  // The option has the focus now.
  TypeText("41x");
  ClickAt(dialog, kNameField);
  EraseBytes(4);
  TypeText("_1");
  ClickAt(dialog, kChoose);
  PickInnerFolder(kScreenshotPickerTitle);
  WaitForX11Focus(dialog);
  ClickAt(dialog, kSave);

  const ProgramResult result = End();
  EXPECT_EQ(result.exit_status, 0) << result.err;
  const auto json = nlohmann::json::parse(result.out);
  EXPECT_EQ(json.at("accepted"), true);
  EXPECT_EQ(json.at("format"), "jpeg");
  EXPECT_EQ(json.at("jpeg_quality"), 41);
  EXPECT_EQ(json.at("png_compression"), 2);
  EXPECT_EQ(json.at("folder"), inner_.string());
  EXPECT_EQ(json.at("file_name"), "shot_1.jpg");
  EXPECT_EQ(json.at("path"), (inner_ / "shot_1.jpg").string());
  EXPECT_EQ(json.at("written"), true);
  EXPECT_EQ(IdentifyPicture("%m %w %h %z %Q", inner_ / "shot_1.jpg"), "JPEG 320 200 8 41");
}

TEST_F(ScreenshotProgram, SavesPngWithTheTypedCompression) {
  std::vector<std::uintmax_t> sizes;
  for (const std::string level : {"0", "9"}) {
    Start({"screenshot", "--name", "level" + level, "--write"});
    const X11WindowId dialog = WaitForDialog(kScreenshotTitle);
    ClickAt(dialog, kOptionField);
    EraseBytes(1);
    TypeText(level + "5");
    PressKey("Return");
    const ProgramResult result = End();
    EXPECT_EQ(result.exit_status, 0) << result.err;
    EXPECT_EQ(nlohmann::json::parse(result.out).at("png_compression"), std::stoi(level));
    const fs::path file = folder_.path() / ("level" + level + ".png");
    EXPECT_EQ(IdentifyPicture("%m %w %h %z", file), "PNG 320 200 8");
    sizes.push_back(fs::file_size(file));
  }
  EXPECT_GT(sizes[0], 4 * sizes[1]);
}

TEST_F(ScreenshotProgram, SavesBmpWithAndWithoutRle) {
  for (const bool rle : {false, true}) {
    Start({"screenshot", "--name", rle ? "rle" : "plain", "--write"});
    const X11WindowId dialog = WaitForDialog(kScreenshotTitle);
    ChooseFormat(dialog, 2);
    if (rle) {
      ClickAt(dialog, kCheckBox);
    }
    ClickAt(dialog, kSave);
    const ProgramResult result = End();
    EXPECT_EQ(result.exit_status, 0) << result.err;
    EXPECT_EQ(nlohmann::json::parse(result.out).at("bmp_rle"), rle);
    EXPECT_THAT(IdentifyPicture("%m %w %h %z %C", folder_.path() / (rle ? "rle.bmp" : "plain.bmp")),
                ::testing::MatchesRegex(rle ? "BMP3? 320 200 8 RLE" : "BMP3? 320 200 8 None"));
  }
}

TEST_F(ScreenshotProgram, RefusesAnExistingFile) {
  const fs::path taken = folder_.Write("shot.png", "mine");
  Start({"screenshot", "--name", "shot", "--write"});
  WaitForDialog(kScreenshotTitle);
  PressKey("Return");
  const ProgramResult result = End();
  EXPECT_EQ(result.exit_status, 4);
  EXPECT_THAT(result.err, HasSubstr(taken.string() + " exists already"));
  EXPECT_EQ(fs::file_size(taken), 4U);
}

TEST_F(ScreenshotProgram, EscapeClosesTheListBeforeTheDialog) {
  Start({"screenshot", "--name", "shot"});
  const X11WindowId dialog = WaitForDialog(kScreenshotTitle);
  ClickAt(dialog, kFormatBox);
  PressKey("Return");
  PressKey("Escape");
  PressKey("Return");
  EXPECT_EQ(End().exit_status, 0);
}

TEST_F(ScreenshotProgram, ControlsFollowTheResizedWindow) {
  Start({"screenshot", "--name", "shot"});
  const X11WindowId dialog = WaitForDialog(kScreenshotTitle);
  testing::RunX11Tool({"xdotool", "windowsize", "--sync", std::to_string(dialog), "1100", "700"});
  testing::WaitForX11Step("the new size", [&] {
    const SDL_Rect now = testing::X11WindowGeometry(dialog);
    return now.w == 1100 && now.h == 700;
  });
  ClickAt(dialog, {1050, 100});  // In the file name, which was not that wide before.
  EraseBytes(4);
  TypeText("2");
  ClickAt(dialog, {1020, 660});
  const ProgramResult result = End();
  EXPECT_EQ(result.exit_status, 0) << result.err;
  EXPECT_EQ(nlohmann::json::parse(result.out).at("file_name"), "shot2.png");
}

// --- In the demo window --------------------------------------------------------------------------

class FormsInDemoWindow : public testing::X11DisplayTest {
 protected:
  static std::string NumberKeyOf(const std::string& name) {
    const DemoCommands commands = MakeDemoCommands();
    for (std::size_t i = 0; i < commands.size() && i < 10; ++i) {
      if (commands[i]->Name() == name) {
        return std::string(1, "1234567890"[i]);
      }
    }
    return "";
  }
};

TEST_F(FormsInDemoWindow, ScreenshotIsSavedWhereTheProgramWasStarted) {
  const TemporaryDirectory folder;
  ChildProcess program({"env", "-C", folder.path(), QUINDLE_DEMO_PROGRAM});
  const X11WindowId host = WaitForDialog("Quindle demo host");
  PressKey(NumberKeyOf("screenshot"));
  const X11WindowId dialog = WaitForDialog(kScreenshotTitle);
  ClickAt(dialog, 400, 100);
  EraseBytes(4);
  TypeText("_me");
  PressKey("Return");
  WaitForX11WindowGone(kScreenshotTitle);
  WaitForX11Focus(host);
  testing::CloseByWindowManager(host);
  EXPECT_EQ(WaitForProgram(&program).exit_status, 0);
  ASSERT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
  const fs::path saved = fs::directory_iterator(folder.path())->path();
  EXPECT_THAT(saved.filename().string(), ::testing::MatchesRegex("quindle_capture_.*_me[.]png"));
  EXPECT_EQ(IdentifyPicture("%m %w %h", saved), "PNG 320 200");
}

}  // namespace
}  // namespace quindle::demo

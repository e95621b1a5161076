// The HDD image and screenshot commands, their dialogs driven through the heartbeat.

#include <SDL.h>
#include <SDL_image.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "command_table.h"
#include "demo/resource_limits.h"
#include "demo/run_in_process.h"
#include "demo_command.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "support/dialog_test.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;
using frontend::gui::OwnedSdlSurface;
using testing::DialogScript;
using ::testing::HasSubstr;
using testing::KeyDown;
using testing::Recorder;
using testing::TemporaryDirectory;

class FormProgram : public ::testing::Test {
 protected:
  void SetUp() override { Recorder().Reset(); }
  void TearDown() override { EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U); }

  // Runs the program and presses a key in the dialog's second frame.
  static Ended RunAndPress(const std::vector<std::string>& arguments, SDL_Keycode key) {
    return RunWithStep(arguments, [key] { KeyDown(key); });
  }
  static Ended RunWithStep(const std::vector<std::string>& arguments,
                           const std::function<void()>& step) {
    DialogScript script;
    script.Wait().Step(step);
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments) {
      pointers.push_back(argument.c_str());
    }
    Ended ended = RunProgramWith(pointers);
    testing::FlushEvents();
    return ended;
  }
  // The script is there for the case that a dialog opens after all.
  static void ExpectWrongUsage(const std::vector<const char*>& arguments) {
    DialogScript script;
    script.Step([] { testing::Quit(); }).MayEndEarly();
    const Ended ended = RunProgramWith(arguments);
    EXPECT_EQ(ended.status, 2) << arguments.back();
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(std::count(ended.err.begin(), ended.err.end(), '\n'), 1) << ended.err;
    EXPECT_EQ(script.frames(), 0);
  }
  std::string In(const std::string& name) const { return (folder_.path() / name).string(); }

  TemporaryDirectory folder_;
};

// --- HDD image -----------------------------------------------------------------------------------

class HddCommand : public FormProgram {};

TEST_F(HddCommand, PrintsTheAcceptedResultAndMakesNothing) {
  const Ended ended = RunAndPress({"hdd", "--folder", folder_.path(), "--size", "64"}, SDLK_RETURN);
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "");
  EXPECT_EQ(ended.out, R"({"dialog":"hdd","accepted":true,"size_mb":64,"folder":")" +
                           folder_.path().string() + R"(","file_name":"disk.img","path":")" +
                           In("disk.img") + "\"}\n");
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(HddCommand, WithoutOptionsTheDialogsOwnValuesAreShown) {
  const Ended ended = RunAndPress({"hdd"}, SDLK_RETURN);
  EXPECT_EQ(ended.out, R"({"dialog":"hdd","accepted":true,"size_mb":10,"folder":".",)"
                       R"("file_name":"disk.img","path":"./disk.img"})"
                       "\n");
}

TEST_F(HddCommand, CancelledHasNoPathAndMakesNothing) {
  const Ended ended =
      RunAndPress({"hdd", "--folder", folder_.path(), "--size", "2", "--create"}, SDLK_ESCAPE);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err, "quindle_dialogs: cancelled\n");
  EXPECT_THAT(ended.out, HasSubstr(R"("accepted":false,"size_mb":2,)"));
  EXPECT_THAT(ended.out, HasSubstr(R"("path":null,"created":false})"));
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(HddCommand, CreateMakesTheImage) {
  const Ended ended =
      RunAndPress({"hdd", "--folder", folder_.path(), "--size", "3", "--create"}, SDLK_RETURN);
  EXPECT_EQ(ended.status, 0);
  EXPECT_THAT(ended.out, HasSubstr(R"("created":true})"));
  EXPECT_EQ(fs::file_size(In("disk.img")), 3U * 1024U * 1024U);
}

TEST_F(HddCommand, ExistingImageIsRefusedAndLeftAsItIs) {
  folder_.Write("disk.img", "mine");
  const Ended ended =
      RunAndPress({"hdd", "--folder", folder_.path(), "--size", "3", "--create"}, SDLK_RETURN);
  EXPECT_EQ(ended.status, 4);
  EXPECT_EQ(ended.err,
            "quindle_dialogs: " + In("disk.img") + " exists already; it was left as it is\n");
  EXPECT_THAT(ended.out, HasSubstr(R"("accepted":true)"));
  EXPECT_THAT(ended.out, HasSubstr(R"("created":false})"));
  EXPECT_EQ(fs::file_size(In("disk.img")), 4U);
}

TEST_F(HddCommand, FolderThatTakesNoFileIsReported) {
  const Ended ended = RunAndPress({"hdd", "--folder", In("none"), "--create"}, SDLK_RETURN);
  EXPECT_EQ(ended.status, 4);
  EXPECT_EQ(ended.err, "quindle_dialogs: cannot write " + In("none/disk.img") +
                           ": No such file or directory\n");
}

TEST_F(HddCommand, WrongSizesAreWrongUsage) {
  for (const char* const size : {"-1", "4294967296", "many", "1.5", ""}) {
    ExpectWrongUsage({"hdd", "--size", size});
  }
}

// --- Screenshot ----------------------------------------------------------------------------------

class ScreenshotCommand : public FormProgram {};

TEST_F(ScreenshotCommand, PrintsTheAcceptedResultAndWritesNothing) {
  const Ended ended =
      RunAndPress({"screenshot", "--folder", folder_.path(), "--name", "shot.xyz", "--format",
                   "jpeg", "--quality", "70", "--compression", "5", "--rle"},
                  SDLK_RETURN);
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "");
  EXPECT_EQ(ended.out, R"({"dialog":"screenshot","accepted":true,"folder":")" +
                           folder_.path().string() +
                           R"(","file_name":"shot.jpg","format":"jpeg","jpeg_quality":70,)"
                           R"("png_compression":5,"bmp_rle":true,"path":")" +
                           In("shot.jpg") + "\"}\n");
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(ScreenshotCommand, DefaultsArePngNinetyTwoAndNoRle) {
  const Ended ended = RunAndPress({"screenshot", "--name", "x"}, SDLK_RETURN);
  EXPECT_THAT(ended.out, HasSubstr(R"("file_name":"x.png","format":"png","jpeg_quality":90,)"
                                   R"("png_compression":2,"bmp_rle":false)"));
  EXPECT_THAT(ended.out, HasSubstr(R"("folder":")" + fs::current_path().string() + '"'));
}

TEST_F(ScreenshotCommand, CancelledHasNoPathAndWritesNothing) {
  const Ended ended = RunAndPress(
      {"screenshot", "--folder", folder_.path(), "--name", "x", "--write"}, SDLK_ESCAPE);
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.out,
            R"({"dialog":"screenshot","accepted":false,"folder":null,"file_name":null,)"
            R"("format":"png","jpeg_quality":90,"png_compression":2,"bmp_rle":false,"path":null,)"
            R"("written":false})"
            "\n");
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(ScreenshotCommand, WriteSavesThePictureInTheChosenFormat) {
  for (const char* const format : {"png", "jpeg", "bmp"}) {
    const Ended ended = RunAndPress(
        {"screenshot", "--folder", folder_.path(), "--name", "shot", "--format", format, "--write"},
        SDLK_RETURN);
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.out, HasSubstr(R"("written":true})"));
    const std::string path = nlohmann::json::parse(ended.out).at("path");
    const OwnedSdlSurface picture(IMG_Load(path.c_str()));
    ASSERT_NE(picture, nullptr) << path;
    EXPECT_EQ(picture->w, 320);
    EXPECT_EQ(picture->h, 200);
  }
  EXPECT_TRUE(fs::exists(In("shot.png")));
  EXPECT_TRUE(fs::exists(In("shot.jpg")));
  EXPECT_TRUE(fs::exists(In("shot.bmp")));
}

TEST_F(ScreenshotCommand, ExistingFileIsRefusedAndLeftAsItIs) {
  folder_.Write("shot.png", "mine");
  const Ended ended = RunAndPress(
      {"screenshot", "--folder", folder_.path(), "--name", "shot", "--write"}, SDLK_RETURN);
  EXPECT_EQ(ended.status, 4);
  EXPECT_EQ(ended.err,
            "quindle_dialogs: " + In("shot.png") + " exists already; it was left as it is\n");
  EXPECT_THAT(ended.out, HasSubstr(R"("written":false})"));
  EXPECT_EQ(fs::file_size(In("shot.png")), 4U);
}

TEST_F(ScreenshotCommand, WrongArgumentsAreWrongUsage) {
  ExpectWrongUsage({"screenshot", "--format", "gif"});
  ExpectWrongUsage({"screenshot", "--format", "1"});
  ExpectWrongUsage({"screenshot", "--quality", "high"});
  ExpectWrongUsage({"screenshot", "--quality", ""});
  ExpectWrongUsage({"screenshot", "--compression", "99999999999"});
  ExpectWrongUsage({"screenshot", "extra"});
}

TEST_F(ScreenshotCommand, FormatIsReadInAnyCase) {
  EXPECT_THAT(RunAndPress({"screenshot", "--format", "BMP"}, SDLK_ESCAPE).out,
              HasSubstr(R"("format":"bmp")"));
}

// --- In the demo window --------------------------------------------------------------------------

class FormsInHost : public testing::DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    session_ = std::make_unique<DemoSession>();
    session_->host = MakeParent();
    Recorder().MarkBaseline();
  }
  void TearDown() override {
    session_.reset();
    commands_.clear();
    DialogTest::TearDown();
  }
  DemoCommand& Command(const std::string& name) {
    for (const auto& command : commands_) {
      if (command->Name() == name) {
        return *command;
      }
    }
    throw std::invalid_argument(name);
  }
  Json ShowAndPress(const std::string& name, SDL_Keycode key) {
    DialogScript script;
    // The guest goes on while the dialog is open, as in the demo window.
    script.EachFrame([this] { session_->guest.Advance(); }).Wait(5).Step([key] { KeyDown(key); });
    Json result = Command(name).ShowInHost(*session_);
    testing::FlushEvents();
    return result;
  }

  TemporaryDirectory folder_;
  std::unique_ptr<DemoSession> session_;
  DemoCommands commands_ = MakeDemoCommands();
};

TEST_F(FormsInHost, ScreenshotIsThePictureOfThatMoment) {
  session_->last_folder = folder_.path();
  session_->guest.DrawFrame(123);
  const Json result = ShowAndPress("screenshot", SDLK_RETURN);
  EXPECT_GT(session_->guest.Frame(), 123);
  const OwnedSdlSurface saved(IMG_Load(result.at("path").get<std::string>().c_str()));
  ASSERT_NE(saved, nullptr);
  GuestPicture expected;
  expected.DrawFrame(123);
  const OwnedSdlSurface a(SDL_ConvertSurfaceFormat(saved.get(), SDL_PIXELFORMAT_RGB24, 0));
  const OwnedSdlSurface b(SDL_ConvertSurfaceFormat(expected.Canvas(), SDL_PIXELFORMAT_RGB24, 0));
  ASSERT_EQ(a->pitch, b->pitch);
  EXPECT_EQ(std::memcmp(a->pixels, b->pixels, static_cast<std::size_t>(a->pitch * a->h)), 0);
}

TEST_F(FormsInHost, LastFolderIsRememberedAcrossDialogs) {
  session_->last_folder = folder_.path();
  EXPECT_EQ(ShowAndPress("hdd", SDLK_RETURN).at("folder"), folder_.path().string());
  EXPECT_TRUE(fs::is_empty(folder_.path()));
  EXPECT_EQ(ShowAndPress("screenshot", SDLK_RETURN).at("folder"), folder_.path().string());
  EXPECT_FALSE(fs::is_empty(folder_.path()));
  EXPECT_EQ(session_->last_folder, folder_.path());

  session_->last_folder.clear();
  EXPECT_EQ(ShowAndPress("hdd", SDLK_RETURN).at("folder"), ".");
  EXPECT_EQ(session_->last_folder, ".");
}

TEST_F(FormsInHost, CancelledDialogsRememberAndWriteNothing) {
  const testing::ScopedEmptyWorkingDirectory directory;
  ShowAndPress("screenshot", SDLK_ESCAPE);
  ShowAndPress("hdd", SDLK_ESCAPE);
  EXPECT_EQ(session_->last_folder, "");
  EXPECT_TRUE(fs::is_empty(directory.path()));
}

TEST_F(FormsInHost, ChosenFormatIsRemembered) {
  session_->last_folder = folder_.path();
  DialogDriver user;
  user.ChooseFormat(frontend::gui::ScreenshotSaveFormat::Bmp).TickRunLengthEncoding(true).Save();
  user.PressEscape();
  for (int i = 0; i < 2; ++i) {
    const Json result = Command("screenshot").ShowInHost(*session_);
    EXPECT_EQ(result.at("accepted"), i == 0);
    EXPECT_EQ(result.at("format"), "bmp");
    EXPECT_EQ(result.at("bmp_rle"), true);
  }
  EXPECT_EQ(user.failure(), "");
}

}  // namespace
}  // namespace quindle::demo

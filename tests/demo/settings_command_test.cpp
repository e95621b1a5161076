// The program run in this process, the settings dialog driven through the heartbeat.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "command_line.h"
#include "command_table.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "host_window.h"
#include "support/dialog_test.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;
using testing::DialogTest;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Recorder;
using testing::TemporaryDirectory;

struct Ended {
  int status = -1;
  std::string out;
  std::string err;
};

Ended RunProgramWith(std::vector<std::string> arguments) {
  std::vector<const char*> pointers{"quindle_dialogs", "settings"};
  for (const std::string& argument : arguments) {
    pointers.push_back(argument.c_str());
  }
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  Ended ended;
  ended.status = RunDemo(static_cast<int>(pointers.size()), pointers.data());
  ended.out = ::testing::internal::GetCapturedStdout();
  ended.err = ::testing::internal::GetCapturedStderr();
  return ended;
}

std::string Contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Line(int fps, const char* renderer) {
  return "{\"target_fps\":" + std::to_string(fps) + R"(,"font_mode":"pixel","renderer_mode":")" +
         renderer +
         R"(","cpu_mhz":30.0,"mouse_capture_gain":1.0,"allow_mouse_capture_in_text_mode":false,)"
         R"("hdd_sounds_enabled":false,"hdd_sounds_volume":0.5,"custom_font_path":"",)"
         R"("screenshot_capture_with_opengl_shaders":false,"screenshot_capture_size_mode":1})"
         "\n";
}

class SettingsCommand : public DialogTest {
 protected:
  fs::path File(const char* name) const { return folder_.path() / name; }

 private:
  TemporaryDirectory folder_;
};

TEST_F(SettingsCommand, PrintsALineForEachApplyAtOnce) {
  DialogDriver user;
  user.Apply().OpenPage("Target FPS").Choose("25 FPS").Apply();
  user.OpenPage("Renderer").Choose("Software").PressEscape();
  const Ended ended = RunProgramWith({});
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.out, Line(50, "hardware") + Line(25, "hardware"));
  EXPECT_EQ(ended.err, "");
}

TEST_F(SettingsCommand, ClosedWithoutApplyIsCancelledAndSavesNothing) {
  DialogDriver user;
  user.OpenPage("Target FPS").Choose("25 FPS").PressEscape();
  const Ended ended = RunProgramWith({"--save", File("out.json")});
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.out, "");
  EXPECT_EQ(ended.err, "quindle_dialogs: cancelled\n");
  EXPECT_FALSE(fs::exists(File("out.json")));
}

TEST_F(SettingsCommand, StartsFromAFileAndSavesWhatWasAppliedLast) {
  std::ofstream(File("in.json")) << R"({"renderer_mode": "software", "target_fps": 30})";
  DialogDriver user;
  user.OpenPage("Target FPS").Apply().Choose("60 FPS");
  user.Do([this](SDL_Window*) {
    EXPECT_EQ(Contents(File("in.json")), Line(30, "software"));  // Saved at once.
  });
  user.Apply().Choose("50 FPS").PressEscape();
  const Ended ended = RunProgramWith({"--from", File("in.json"), "--save", File("in.json")});
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 0) << ended.err;
  EXPECT_EQ(ended.out, Line(30, "software") + Line(60, "software"));
  EXPECT_EQ(Contents(File("in.json")), Line(60, "software"));
}

TEST_F(SettingsCommand, WrongFilesAreWrongUsage) {
  struct Case {
    const char* contents;
    const char* message;
  };
  for (const Case& c : {Case{R"({"fps": 50})", "unknown key \"fps\""},
                        Case{R"({"target_fps": "50"})", "\"target_fps\" must be a whole number"},
                        Case{"{", "no valid JSON"}}) {
    std::ofstream(File("in.json")) << c.contents;
    const Ended ended = RunProgramWith({"--from", File("in.json")});
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.out, "");
    EXPECT_THAT(ended.err, HasSubstr("--from " + File("in.json").string() + ": "));
    EXPECT_THAT(ended.err, HasSubstr(c.message));
  }
  const Ended ended = RunProgramWith({"--from", File("none.json")});
  EXPECT_EQ(ended.status, 2);
  EXPECT_THAT(ended.err, HasSubstr("none.json: cannot open it"));
  EXPECT_THAT(Recorder().windows(), IsEmpty());
}

TEST_F(SettingsCommand, FileThatCannotBeSavedEndsTheProgramWithAFailure) {
  DialogDriver user;
  user.Apply();
  const Ended ended = RunProgramWith({"--save", File("none") / "out.json"});
  EXPECT_EQ(ended.status, 4);
  EXPECT_EQ(ended.out, Line(50, "hardware"));
  EXPECT_THAT(ended.err, HasSubstr("out.json: cannot write it"));
}

TEST_F(SettingsCommand, WithoutAFontNothingIsShown) {
  Recorder().HideAllFonts();
  const Ended ended = RunProgramWith({});
  EXPECT_EQ(ended.status, 3);
  EXPECT_EQ(ended.out, "");
}

// --- In the demo window --------------------------------------------------------------------------

DemoCommand* FindSettings(const DemoCommands& commands) {
  for (const auto& command : commands) {
    if (command->Name() == "settings") {
      return command.get();
    }
  }
  return nullptr;
}

TEST_F(SettingsCommand, DemoWindowKeepsAndObeysTheSettings) {
  const DemoCommands commands = MakeDemoCommands();
  DemoCommand* settings = FindSettings(commands);
  ASSERT_NE(settings, nullptr);
  DemoSession session;
  session.host = MakeParent();
  settings->AttachToSession(session);
  EXPECT_EQ(session.target_fps, 50);
  EXPECT_EQ(session.status["renderer"], "hardware");
  EXPECT_EQ(session.status["font"], "pixel");
  {
    DialogDriver user;
    user.OpenPage("Target FPS").Choose("25 FPS").Do([&session](SDL_Window*) {
      EXPECT_EQ(session.target_fps, 50) << "obeyed before it was applied";
    });
    user.Apply().Do(
        [&session](SDL_Window*) { EXPECT_EQ(session.target_fps, 25) << "not obeyed at once"; });
    user.OpenPage("Renderer").Choose("Software").Apply();
    user.OpenPage("Font Mode").Choose("TTF Custom").PressEscape();
    EXPECT_EQ(settings->ShowInHost(session).dump(), R"({"dialog":"settings","applied":2})");
    EXPECT_EQ(user.failure(), "");
  }
  EXPECT_EQ(session.target_fps, 25);
  EXPECT_EQ(session.status["renderer"], "software");
  EXPECT_EQ(session.status["font"], "pixel") << "what was not applied is dropped";
  testing::FlushEvents();
  DialogDriver user;
  user.Apply().PressEscape();
  settings->ShowInHost(session);
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(session.target_fps, 25) << "forgotten between two dialogs";
  EXPECT_EQ(session.status["renderer"], "software");
}

TEST_F(SettingsCommand, StatusNamesTheCustomFontFile) {
  const DemoCommands commands = MakeDemoCommands();
  DemoCommand* settings = FindSettings(commands);
  DemoSession session;
  session.host = MakeParent();
  settings->AttachToSession(session);
  DialogDriver user;
  user.Choose("TTF Custom").Apply().Do([&session](SDL_Window*) {
    EXPECT_EQ(session.status["font"], "ttf-custom");
  });
  user.BrowseFont().PickFile("IBMPlexSans-Regular.ttf").Apply().PressEscape();
  settings->ShowInHost(session);
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(session.status["font"], "ttf-custom IBMPlexSans-Regular.ttf");
}

// The status line of the latest frame of the demo window.
std::string StatusLine(SDL_Window* host) {
  const auto& frames = Recorder().frames();
  for (auto frame = frames.rbegin(); frame != frames.rend(); ++frame) {
    const auto* text = frame->FindTextContaining("guest: ");
    if (frame->window == host && text != nullptr) {
      return text->text;
    }
  }
  return "";
}

void Press(SDL_Point at) {
  testing::MouseDown(at.x, at.y, SDL_BUTTON_LEFT, 1, testing::WindowId());
}
void PressApply() {
  Press({760, 460});
}
void PressRow(int row) {
  Press({100, 10 + 30 * row + 15});
}
// Clicks into a page at a distance below the top of its content.
void ClickPage(int below_top) {
  const auto bold = frontend::gui::OpenSdlUiFontHandle(15, true, frontend::gui::SdlUiFontKind::Ui);
  const auto regular =
      frontend::gui::OpenSdlUiFontHandle(15, false, frontend::gui::SdlUiFontKind::Ui);
  const int top = 46 + TTF_FontHeight(bold.get()) + TTF_FontHeight(regular.get());
  Recorder().SetPointer(Recorder().newest_window(), 300, top + below_top);
  Press({300, top + below_top});
}

// Steps that run at the end of each frame of the dialog; the heartbeat is the demo window's own.
TEST_F(SettingsCommand, DemoWindowSaysAtOnceWhatWasApplied) {
  const DemoCommands commands = MakeDemoCommands();
  HostWindow host(commands);
  const auto draw_and_read = [&host] {
    host.Draw();
    return StatusLine(host.Window());
  };
  const std::vector<std::function<void()>> steps{
      [] { PressRow(2); },
      [] { ClickPage(0); },
      [&] {
        EXPECT_THAT(draw_and_read(), HasSubstr("guest: 50 fps"));
        PressApply();
      },
      [&] {
        EXPECT_THAT(draw_and_read(), HasSubstr("guest: 25 fps"));
        PressRow(3);
      },
      [] { ClickPage(34); },
      &PressApply,
      [&] {
        EXPECT_THAT(draw_and_read(), HasSubstr("font: pixel"));
        EXPECT_THAT(draw_and_read(), HasSubstr("renderer: software"));
        testing::KeyDown(SDLK_ESCAPE, testing::WindowId());
        testing::Quit();  // Stays unread by the dialog and ends the demo window.
      },
  };
  std::size_t next = 0;
  Recorder().OnDelay([&](Uint32) {
    if (next < steps.size()) {
      steps[next++]();
    }
  });
  for (std::size_t i = 0; i < commands.size(); ++i) {
    if (commands[i]->Name() == "settings") {
      testing::KeyDown(static_cast<SDL_Keycode>(SDLK_1 + i), SDL_GetWindowID(host.Window()));
    }
  }
  host.Run();
  EXPECT_EQ(next, steps.size());
}

}  // namespace
}  // namespace quindle::demo

// The settings dialog as a user meets it: a real window, the pointer and the keyboard.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_dialog.h"
#include "support/temporary_directory.h"
#include "support/x11_display.h"

namespace quindle::frontend::gui {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::ChildProcess;
using testing::CloseByWindowManager;
using ::testing::HasSubstr;
using testing::MovePointerTo;
using testing::PressKey;
using testing::ProgramResult;
using testing::TemporaryDirectory;
using testing::WaitForProgram;
using testing::WaitForX11Focus;
using testing::WaitForX11Step;
using testing::WaitForX11Window;
using testing::WaitForX11WindowGone;
using testing::X11PixelColour;
using testing::X11WindowId;

constexpr const char* kCanvasFill = "#12151B";
constexpr const char* kRowHover = "#282E3C";
constexpr const char* kButtonHover = "#444C5C";
constexpr const char* kSelectedRow = "#2C4A80";
constexpr const char* kAccent = "#6AA6FF";

constexpr SDL_Point kCancel{618, 449};
constexpr SDL_Point kApply{718, 449};

// Content top of a page with a subtitle.
int ContentTop() {
  const OwnedTtfFont bold = OpenSdlUiFontHandle(15, true, SdlUiFontKind::Ui);
  const OwnedTtfFont regular = OpenSdlUiFontHandle(15, false, SdlUiFontKind::Ui);
  return 46 + TTF_FontHeight(bold.get()) + TTF_FontHeight(regular.get());
}

void WaitForPixel(X11WindowId dialog, int x, int y, const std::string& colour) {
  WaitForX11Step("the colour " + colour + " at " + std::to_string(x) + ", " + std::to_string(y),
                 [=] { return X11PixelColour(dialog, x, y) == colour; });
}

void PressMouse() {
  testing::RunX11Tool({"xdotool", "mousedown", "1"});
}
void ReleaseMouse() {
  testing::RunX11Tool({"xdotool", "mouseup", "1"});
}
void ClickMouse() {
  testing::RunX11Tool({"xdotool", "click", "1"});
}

// A user looks where the pointer is before clicking: the control there is highlighted by then.
void ClickButton(X11WindowId dialog, const SDL_Point& button) {
  MovePointerTo(dialog, button.x + 40, button.y + 14);
  WaitForPixel(dialog, button.x + 2, button.y + 2, kButtonHover);
  ClickMouse();
}

void SelectPage(X11WindowId dialog, int row) {
  const int top = 10 + 30 * row;
  MovePointerTo(dialog, 120, top + 15);
  if (X11PixelColour(dialog, 6, top + 2) != kSelectedRow) {
    WaitForPixel(dialog, 6, top + 2, kRowHover);
    ClickMouse();
  }
  WaitForPixel(dialog, 6, top + 2, kSelectedRow);
}

void ChooseRadio(X11WindowId dialog, int row_top) {
  MovePointerTo(dialog, 400, row_top + 17);
  WaitForPixel(dialog, 244, row_top + 1, kRowHover);
  ClickMouse();
  WaitForPixel(dialog, 255, row_top + 17, kAccent);
}

void ToggleCheckbox(X11WindowId dialog, int top) {
  MovePointerTo(dialog, 400, top + 8);
  WaitForPixel(dialog, 244, top - 4, kRowHover);
  const bool checked = X11PixelColour(dialog, 252, top + 6) == kAccent;
  ClickMouse();
  WaitForPixel(dialog, 252, top + 6, checked ? kRowHover : kAccent);
}

// Drags the knob there; the pointer then leaves without the button.
void DragSlider(X11WindowId dialog, int top, int x) {
  MovePointerTo(dialog, 250, top + 8);
  PressMouse();
  WaitForPixel(dialog, 250, top + 14, kAccent);
  for (const int step_x : {(250 + x) / 2, x}) {
    MovePointerTo(dialog, step_x, top + 8);
    WaitForPixel(dialog, step_x, top + 14, kAccent);
  }
  ReleaseMouse();
  MovePointerTo(dialog, 380, top + 8);
}

class SettingsX11 : public testing::X11DisplayTest {};

// The program with a file of values, and what it has printed so far.
class SettingsProgram {
 public:
  SettingsProgram() {
    fs::create_directories(folder_.path() / "fonts");
    std::ofstream(Font("alpha.ttf")) << "font";
    std::ofstream(Font("beta.ttf")) << "font";
    expected = {{"target_fps", 50},
                {"font_mode", "pixel"},
                {"renderer_mode", "hardware"},
                {"cpu_mhz", 12.5},
                {"mouse_capture_gain", 1.0},
                {"allow_mouse_capture_in_text_mode", false},
                {"hdd_sounds_enabled", true},
                {"hdd_sounds_volume", 0.5},
                {"custom_font_path", Font("alpha.ttf")},
                {"screenshot_capture_with_opengl_shaders", false},
                {"screenshot_capture_size_mode", 0}};
    std::ofstream(File("in.json")) << expected;
    program_.emplace(std::vector<std::string>{QUINDLE_DEMO_PROGRAM, "settings", "--from",
                                              File("in.json"), "--save", File("out.json")});
    dialog_ = WaitForX11Window("Settings");
    WaitForX11Focus(dialog_);
  }

  X11WindowId Dialog() const { return dialog_; }
  std::string File(const char* name) const { return (folder_.path() / name).string(); }
  std::string Font(const char* name) const { return (folder_.path() / "fonts" / name).string(); }

  // Presses "Apply": the next line holds the expected values, no more and no less.
  void ExpectApplied() {
    ClickButton(dialog_, kApply);
    ++lines_;
    WaitForX11Step("line " + std::to_string(lines_), [this] { return Lines().size() >= lines_; });
    ASSERT_EQ(Lines().size(), lines_);
    EXPECT_EQ(json::parse(Lines().back()), expected);
    EXPECT_EQ(json::parse(std::ifstream(File("out.json"))), expected);
  }

  ProgramResult End() { return WaitForProgram(&*program_); }

  json expected;

 private:
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    std::istringstream out(program_->Output().out);
    for (std::string line; std::getline(out, line) && !out.eof();) {
      lines.push_back(line);
    }
    return lines;
  }

  TemporaryDirectory folder_;
  std::optional<ChildProcess> program_;
  X11WindowId dialog_ = 0;
  std::size_t lines_ = 0;
};

TEST_F(SettingsX11, EverySettingOfEveryPageIsChangedAndApplied) {
  SettingsProgram program;
  const X11WindowId dialog = program.Dialog();
  json& expected = program.expected;
  const int top = ContentTop();

  program.ExpectApplied();  // Nothing changed yet.

  for (const auto& [row, mode] : {std::pair{2, "ttf-hires"}, std::pair{1, "ttf"}}) {
    ChooseRadio(dialog, top + 34 * row);
    expected["font_mode"] = mode;
    program.ExpectApplied();
  }

  SelectPage(dialog, 2);  // Target FPS
  for (const auto& [row, fps] : {std::pair{0, 25}, std::pair{3, 60}, std::pair{1, 30}}) {
    ChooseRadio(dialog, top + 34 * row);
    expected["target_fps"] = fps;
    program.ExpectApplied();
  }

  SelectPage(dialog, 3);  // Renderer
  ChooseRadio(dialog, top + 34);
  expected["renderer_mode"] = "software";
  program.ExpectApplied();

  SelectPage(dialog, 4);  // Screenshots
  ToggleCheckbox(dialog, top + 86);
  expected["screenshot_capture_with_opengl_shaders"] = true;
  program.ExpectApplied();
  ChooseRadio(dialog, top + 146 + 34);
  expected["screenshot_capture_size_mode"] = 1;
  program.ExpectApplied();

  SelectPage(dialog, 6);  // Mouse Capture
  DragSlider(dialog, top + 22, 450);
  expected["mouse_capture_gain"] = 0.25 + 203 / 280.0 * 2.75;
  program.ExpectApplied();
  ToggleCheckbox(dialog, top + 78);
  expected["allow_mouse_capture_in_text_mode"] = true;
  program.ExpectApplied();

  for (const int row : {8, 10}) {  // CPU Speed and Logger Options only tell.
    SelectPage(dialog, row);
    MovePointerTo(dialog, 400, 200);
    ClickMouse();
    program.ExpectApplied();
  }

  SelectPage(dialog, 12);  // HDD Sounds
  ToggleCheckbox(dialog, top);
  expected["hdd_sounds_enabled"] = false;
  program.ExpectApplied();
  DragSlider(dialog, top + 60, 318);
  expected["hdd_sounds_volume"] = 71 / 280.0;
  program.ExpectApplied();

  PressKey("Escape");
  const ProgramResult result = program.End();
  EXPECT_EQ(result.exit_status, 0) << result.err;
  EXPECT_EQ(json::parse(std::ifstream(program.File("out.json"))), expected);
}

TEST_F(SettingsX11, BrowsedFontBecomesTheCustomFont) {
  SettingsProgram program;
  const X11WindowId dialog = program.Dialog();
  const int top = ContentTop();
  ChooseRadio(dialog, top + 34 * 3);
  program.expected["font_mode"] = "ttf-custom";
  program.ExpectApplied();

  const SDL_Point browse{712, top + 136 + 8};
  ClickButton(dialog, browse);
  WaitForX11Focus(WaitForX11Window("Select TTF Font"));
  PressKey("Escape");
  WaitForX11WindowGone("Select TTF Font");
  WaitForX11Focus(dialog);
  program.ExpectApplied();

  ClickButton(dialog, browse);
  WaitForX11Focus(WaitForX11Window("Select TTF Font"));
  PressKey("Down");
  PressKey("Down");
  PressKey("Return");
  WaitForX11WindowGone("Select TTF Font");
  WaitForX11Focus(dialog);
  program.expected["custom_font_path"] = program.Font("beta.ttf");
  program.ExpectApplied();

  ClickButton(dialog, kCancel);
  EXPECT_EQ(program.End().exit_status, 0);
}

TEST_F(SettingsX11, ClosingWithoutApplyIsCancelled) {
  for (const bool by_key : {true, false}) {
    SettingsProgram program;
    ChooseRadio(program.Dialog(), ContentTop() + 34);
    if (by_key) {
      PressKey("Escape");
    } else {
      CloseByWindowManager(program.Dialog());
    }
    const ProgramResult result = program.End();
    EXPECT_EQ(result.exit_status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_FALSE(fs::exists(program.File("out.json")));
  }
}

TEST_F(SettingsX11, HighlightLeavesWithThePointer) {
  SettingsProgram program;
  const X11WindowId dialog = program.Dialog();
  const int row = ContentTop();
  MovePointerTo(dialog, 400, row + 17);
  WaitForPixel(dialog, 244, row + 1, kRowHover);
  const SDL_Rect window = testing::X11WindowGeometry(dialog);
  testing::RunX11Tool({"xdotool", "mousemove", std::to_string(window.x + window.w + 60),
                       std::to_string(window.y + 200)});
  WaitForPixel(dialog, 244, row + 1, kCanvasFill);
  PressKey("Escape");
  EXPECT_EQ(program.End().exit_status, 1);
}

// --- Over a host's window ------------------------------------------------------------------------

class SettingsX11Dialog : public testing::X11DialogTest {};

TEST_F(SettingsX11Dialog, BelongsToItsParentAndGivesTheFocusBack) {
  int applied = 0;
  WhileShowing(
      [&] {
        ShowSettingsDialog(Parent(), 1.0F, SettingsDialogValues(),
                           [&applied](const SettingsDialogValues&) { ++applied; });
        return 0;
      },
      [this] {
        const X11WindowId dialog = WaitForX11Window("Settings");
        WaitForX11Focus(dialog);
        EXPECT_THAT(testing::X11Property(dialog, "WM_TRANSIENT_FOR"), HasSubstr("window id"));
        const SDL_Rect place = testing::X11WindowGeometry(dialog);
        EXPECT_EQ(place.w, 820);
        EXPECT_EQ(place.h, 492);
        ClickButton(dialog, kApply);
        ClickButton(dialog, kApply);
        PressKey("Escape");
      });
  EXPECT_EQ(applied, 2);
  testing::PumpX11Until("focus of the parent",
                        [this] { return testing::FocusedX11Window() == ParentId(); });
}

// A touch screen's pointer: it comes and presses in the same moment. The heartbeat does both, so
// that the dialog finds them together at its next look.
class JumpingPointer {
 public:
  JumpingPointer() {
    SetModalDialogHeartbeat([this] { Jump(); });
  }
  ~JumpingPointer() { SetModalDialogHeartbeat({}); }
  JumpingPointer(const JumpingPointer&) = delete;
  JumpingPointer& operator=(const JumpingPointer&) = delete;

  void ClickAt(X11WindowId window, int x, int y) {
    window_ = window;
    x_ = x;
    y_ = y;
    due_ = true;
  }

 private:
  void Jump() {
    if (due_.exchange(false)) {
      testing::RunX11Tool({"xdotool", "mousemove", "--window", std::to_string(window_),
                           std::to_string(x_), std::to_string(y_), "click", "1"});
      // By now the server has sent the events.
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
  }

  std::atomic<bool> due_{false};
  std::atomic<X11WindowId> window_{0};
  std::atomic<int> x_{0};
  std::atomic<int> y_{0};
};

TEST_F(SettingsX11Dialog, PointerThatJumpsAndClicksSetsTheOptionUnderIt) {
  const int top = ContentTop();
  std::vector<std::string> applied;
  JumpingPointer pointer;
  WhileShowing(
      [&] {
        ShowSettingsDialog(Parent(), 1.0F, SettingsDialogValues(),
                           [&applied](const SettingsDialogValues& values) {
                             applied.push_back(values.font_mode);
                           });
        return 0;
      },
      [&] {
        const X11WindowId dialog = WaitForX11Window("Settings");
        WaitForX11Focus(dialog);
        testing::WaitForX11WindowToRest(dialog);
        for (const int row : {2, 0, 3, 1}) {
          pointer.ClickAt(dialog, 400, top + 34 * row + 17);
          WaitForPixel(dialog, 255, top + 34 * row + 17, kAccent);
        }
        pointer.ClickAt(dialog, kApply.x + 40, kApply.y + 14);
        WaitForPixel(dialog, kApply.x + 2, kApply.y + 2, kButtonHover);
        PressKey("Escape");
      });
  EXPECT_THAT(applied, ::testing::ElementsAre("ttf"));
}

}  // namespace
}  // namespace quindle::frontend::gui

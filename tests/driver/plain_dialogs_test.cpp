// Every dialog, driven by a user's events from the heartbeat, with nothing between the library and
// SDL: by whichever video driver SDL_VIDEODRIVER names, on any system.

#include <SDL.h>
#include <SDL_ttf.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "driver/driven_hosts.h"
#include "frontend/gui/about_dialog.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "frontend/gui/testing/input_events.h"
#include "frontend/gui/testing/push_event.h"
#include "support/temporary_directory.h"
#include "utils/path_text.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;           // NOLINT(google-build-using-namespace)
using namespace frontend::gui::testing;  // NOLINT(google-build-using-namespace)

constexpr Uint32 kNoWindow = 0;
constexpr Uint32 kMoreThanAnyWindow = 500;

// The window made last.
Uint32 NewestWindow() {
  Uint32 newest = kNoWindow;
  for (Uint32 id = 1; id < kMoreThanAnyWindow; ++id) {
    newest = SDL_GetWindowFromID(id) != nullptr ? id : newest;
  }
  return newest;
}

void Push(const SDL_Event& event) {
  ASSERT_EQ(PushEvent(event), 1) << SDL_GetError();
}

// A step a frame while a dialog is open; behind the last one the dialog is closed.
class Hands {
 public:
  Hands() {
    SetModalDialogHeartbeat([this] { DoNext(); });
  }
  Hands(const Hands&) = delete;
  Hands& operator=(const Hands&) = delete;
  ~Hands() { SetModalDialogHeartbeat({}); }

  Hands& Wait() {
    return Do([] {});
  }
  Hands& Key(SDL_Keycode key) {
    return Do([key] {
      Push(MakeKeyEvent(SDL_KEYDOWN, key, NewestWindow()));
      Push(MakeKeyEvent(SDL_KEYUP, key, NewestWindow()));
    });
  }
  Hands& Type(const std::string& text) {
    return Do([text] { Push(MakeTextEvent(text, NewestWindow())); });
  }
  Hands& Button(Uint32 type, SDL_Point at, Uint8 clicks = 1) {
    return Do([=] { Push(MakeButtonEvent(type, at, SDL_BUTTON_LEFT, clicks, NewestWindow())); });
  }
  Hands& Click(SDL_Point at, Uint8 clicks = 1) {
    return Button(SDL_MOUSEBUTTONDOWN, at, clicks).Button(SDL_MOUSEBUTTONUP, at, clicks);
  }
  Hands& Click(const SDL_Rect& rect) {
    return Click(SDL_Point{rect.x + rect.w / 2, rect.y + rect.h / 2});
  }
  Hands& Close() {
    return Do([] { Push(MakeWindowEvent(NewestWindow(), SDL_WINDOWEVENT_CLOSE)); });
  }
  Hands& Do(std::function<void()> step) {
    steps_.push_back(std::move(step));
    return *this;
  }

  // Whether the dialog was still open behind the last step.
  [[nodiscard]] bool ran_out() const { return ran_out_; }

 private:
  void DoNext() {
    if (next_ < steps_.size()) {
      steps_[next_++]();
      return;
    }
    ran_out_ = true;
    Push(MakeQuitEvent());
  }

  std::vector<std::function<void()>> steps_;
  std::size_t next_ = 0;
  bool ran_out_ = false;
};

class PlainDialog : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
    parent_ = SDL_CreateWindow("Host", 50, 50, 640, 480, SDL_WINDOW_SHOWN);
    ASSERT_NE(parent_, nullptr) << SDL_GetError();
    hands_ = std::make_unique<Hands>();
    // A real window wants some frames until it is on the screen.
    for (int frame = 0; frame < 3; ++frame) {
      hands_->Wait();
    }
  }
  void TearDown() override {
    hands_.reset();
    EXPECT_EQ(NewestWindow(), SDL_GetWindowID(parent_));
    SDL_DestroyWindow(parent_);
    ShutdownSdlUiCachedFonts();
    TTF_Quit();
    SDL_Quit();
  }

  int ShowQuestion() { return SdlMessageBox(MakeQuestion("Box")).Show(parent_, 1.0F); }

  // Where a box of 420 pixels has its first button.
  static SDL_Point FirstButton() {
    const SdlMessageBox::Config config = MakeQuestion("Box");
    const SdlMessageBoxFonts fonts = OpenSdlMessageBoxFonts(1.0F);
    const auto layout_at = [&](int height) {
      return BuildSdlMessageBoxLayout(config, 1.0F, config.width, height, fonts.titleFont.get(),
                                      fonts.bodyFont.get());
    };
    const SdlMessageBoxLayout layout = layout_at(layout_at(config.height).targetHeight);
    return {layout.buttonsX + 5, layout.buttonsY + 5};
  }

  // A folder with "a.img", "b.img" and the folder "sub"; its text ends without a separator.
  std::string FloppyFolder() const {
    folder_.Write("a.img", "");
    folder_.Write("b.img", "");
    (void)folder_.MakeFolder("sub");
    return Root();
  }
  std::string Root() const { return utils::text_from_path(folder_.path()); }
  std::string Below(const std::string& name) const { return utils::join_path_texts(Root(), name); }

  Hands& hands() { return *hands_; }
  SDL_Window* parent() { return parent_; }

 private:
  TemporaryDirectory folder_;
  SDL_Window* parent_ = nullptr;
  std::unique_ptr<Hands> hands_;
};

// A picker's rows begin below its title and path, the row of the parent folder first.
SDL_Point PickerRow(int row) {
  return {100, 56 + 24 * row + 12};
}

TEST_F(PlainDialog, BoxTakesAKey) {
  hands().Key(SDLK_ESCAPE);
  EXPECT_EQ(ShowQuestion(), 2);
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, BoxTakesTheMouse) {
  hands().Click(FirstButton());
  EXPECT_EQ(ShowQuestion(), 1);
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, BoxIsClosedByItsWindow) {
  hands().Close();
  EXPECT_EQ(ShowQuestion(), -1);
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, BoxStaysOpenForAClickBesideItsButtons) {
  hands().Click(SDL_Point{3, 3}).Wait();
  EXPECT_EQ(ShowQuestion(), -1);
  EXPECT_TRUE(hands().ran_out());
}

TEST_F(PlainDialog, PickerTakesKeys) {
  const std::string folder = FloppyFolder();
  // The rows are "..", "sub", "a.img", "b.img".
  hands().Key(SDLK_DOWN).Key(SDLK_DOWN).Key(SDLK_DOWN).Key(SDLK_RETURN);
  EXPECT_EQ(ShowSimpleFloppyFilePicker(parent(), folder), Below("b.img"));
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, PickerTakesTheMouse) {
  const std::string folder = FloppyFolder();
  hands().Click(PickerRow(2)).Click(PickerRow(2), 2);
  EXPECT_EQ(ShowSimpleFloppyFilePicker(parent(), folder), Below("a.img"));
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, PickerOfFoldersGivesTheOneShown) {
  FolderPickerOptions options;
  options.start_dir = FloppyFolder();
  hands().Click(PickerRow(1)).Click(PickerRow(1), 2).Wait().Do([] {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(SDL_GetWindowFromID(NewestWindow()), &width, &height);
    const SDL_Point select{width - 60, height - 25};
    Push(MakeButtonEvent(SDL_MOUSEBUTTONDOWN, select, SDL_BUTTON_LEFT, 1, NewestWindow()));
    Push(MakeButtonEvent(SDL_MOUSEBUTTONUP, select, SDL_BUTTON_LEFT, 1, NewestWindow()));
  });
  EXPECT_EQ(ShowSimpleFolderPicker(parent(), options), Below("sub"));
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, PickerGivesNothingOnEscape) {
  const std::string folder = FloppyFolder();
  hands().Key(SDLK_DOWN).Key(SDLK_ESCAPE);
  EXPECT_EQ(ShowSimpleFloppyFilePicker(parent(), folder), "");
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, DiskImageTakesTextAndTheMouse) {
  const HddCreateDialogLayout layout = BuildHddCreateDialogLayout();
  hands().Click(layout.size_field).Key(SDLK_BACKSPACE).Type("7").Click(layout.name_field).Type("x");
  hands().Click(layout.create_button);
  const HddCreateDialogResult result = ShowSimpleHddCreateDialog(parent(), Root(), 65);
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.size_mb, 67U);
  EXPECT_EQ(result.folder, Root());
  EXPECT_EQ(result.file_name, "disk.imgx");
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, DiskImageIsNotMadeOnCancel) {
  hands().Type("7").Click(BuildHddCreateDialogLayout().cancel_button);
  EXPECT_FALSE(ShowSimpleHddCreateDialog(parent(), Root(), 65).accepted);
  EXPECT_FALSE(hands().ran_out());
}

ScreenshotSaveDialogResult ShowScreenshot(SDL_Window* parent, const std::string& folder) {
  return ShowScreenshotSaveDialog(parent, folder, "a.png", ScreenshotSaveFormat::Png, 90, 6, false);
}

TEST_F(PlainDialog, ScreenshotTakesKeys) {
  hands().Key(SDLK_RETURN);
  const ScreenshotSaveDialogResult result = ShowScreenshot(parent(), Root());
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.file_name, "a.png");
  EXPECT_EQ(result.folder, Root());
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, ScreenshotIsNotSavedOnEscape) {
  hands().Key(SDLK_ESCAPE);
  EXPECT_FALSE(ShowScreenshot(parent(), Root()).accepted);
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, AboutIsClosedByAKey) {
  hands().Key(SDLK_ESCAPE);
  ShowSimpleAboutDialog(parent(), 1.0F);
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, SettingsAreClosedByAKey) {
  int applied = 0;
  hands().Key(SDLK_ESCAPE);
  ShowSettingsDialog(parent(), 1.0F, {}, [&applied](const SettingsDialogValues&) { ++applied; });
  EXPECT_EQ(applied, 0);
  EXPECT_FALSE(hands().ran_out());
}

TEST_F(PlainDialog, SettingsAreChosenAndApplied) {
  int fps = 0;
  DialogDriver driver;
  driver.OpenPage("Target FPS").Choose("60 FPS").Apply().PressEscape();
  ShowSettingsDialog(parent(), 1.0F, {},
                     [&fps](const SettingsDialogValues& values) { fps = values.target_fps; });
  EXPECT_EQ(driver.failure(), "");
  EXPECT_EQ(fps, 60);
}

TEST_F(PlainDialog, ShaderParameterIsSetAndApplied) {
  const std::string shader = "data/shaders/demo_crt.glslp";
  const std::vector<ShaderParameterSpec> specs =
      ParseShaderParameterSpecs(ResolveShaderGlslPath(shader));
  ASSERT_FALSE(specs.empty());
  const ShaderParameterSpec& first = specs.front();
  std::vector<ShaderParameterValue> applied;
  DialogDriver driver;
  driver.SetParameter(first.name, first.max_value).Apply().Close();
  const ShaderDialogResult result = ShowShaderParameterDialog(
      parent(), shader, 1.0F,
      [&applied](const std::vector<ShaderParameterValue>& values) { applied = values; }, {});
  EXPECT_EQ(driver.failure(), "");
  EXPECT_TRUE(result.applied);
  ASSERT_FALSE(applied.empty());
  EXPECT_EQ(applied.front().value, first.max_value);
}

}  // namespace
}  // namespace quindle::testing

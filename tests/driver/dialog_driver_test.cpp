// Every dialog, driven in a host's words.

#include "frontend/gui/testing/dialog_driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "driver/driven_hosts.h"
#include "frontend/gui/about_dialog.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;
using frontend::gui::testing::AboutLink;
using frontend::gui::testing::DialogDriver;
using ::testing::ElementsAre;

class DialogDriverTest : public DialogTest {
 protected:
  // What the settings dialog hands over at each Apply.
  std::vector<SettingsDialogValues> RunSettings(const SettingsDialogValues& initial = {}) {
    std::vector<SettingsDialogValues> applied;
    ShowSettingsDialog(MakeParent(), 1.0F, initial,
                       [&](const SettingsDialogValues& values) { applied.push_back(values); });
    return applied;
  }

  // What the shader dialog hands over at each Apply.
  std::vector<std::vector<ShaderParameterValue>> RunShader(const std::string& source) {
    std::vector<std::vector<ShaderParameterValue>> applied;
    ShowShaderParameterDialog(
        MakeParent(), folder_.Write("crt.glsl", source).string(), 1.0F,
        [&](const std::vector<ShaderParameterValue>& values) { applied.push_back(values); }, {});
    return applied;
  }

  ScreenshotSaveDialogResult RunScreenshot() {
    return ShowScreenshotSaveDialog(MakeParent(), folder_.path().string(), "shot",
                                    ScreenshotSaveFormat::Png, 90, 2, true);
  }

  TemporaryDirectory folder_;
};

// --- Message box ---------------------------------------------------------------------------------

TEST_F(DialogDriverTest, PressesButtonsOfTwoBoxesInARow) {
  DialogDriver driver;
  driver.PressButton(2).PressButton(1);
  EXPECT_EQ(Ask("First"), 2);
  EXPECT_EQ(Ask("Second"), 1);
  EXPECT_EQ(driver.failure(), "");
}

TEST_F(DialogDriverTest, PressesButtonInBoxThatGrewForItsMessage) {
  SdlMessageBox::Config config = MakeQuestion("Long");
  config.message.assign(600, '\n');
  DialogDriver driver;
  driver.PressButton(2);
  EXPECT_EQ(SdlMessageBox(config).Show(MakeParent(), 1.0F), 2);
  EXPECT_EQ(driver.failure(), "");
}

TEST_F(DialogDriverTest, PressesButtonOfBoxWithScale) {
  const SdlMessageBox::Config config = MakeQuestion("Scaled");
  const ModalWindowBundle bundle = CreateModalWindowBundle(
      nullptr, "Scaled", 0, 0, 900, 500, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  DialogDriver driver;
  driver.PressButton(1);
  EXPECT_EQ(
      RunSdlMessageBoxLoop(bundle.window.get(), bundle.renderer.get(), config, 2.0F,
                           VisualForMessageBoxType(config.type), OpenSdlMessageBoxFonts(2.0F)),
      1);
  EXPECT_EQ(driver.failure(), "");
}

TEST_F(DialogDriverTest, EscapeAndCloseEndAnyDialog) {
  DialogDriver driver;
  driver.PressEscape().Close().PressEscape().Close();
  EXPECT_EQ(Ask("Escape"), 2);
  EXPECT_EQ(Ask("Close"), -1);
  EXPECT_EQ(ShowSimpleFloppyFilePicker(MakeParent(), folder_.path().string()), "");
  EXPECT_FALSE(ShowSimpleHddCreateDialog(MakeParent(), "", 1).accepted);
  EXPECT_EQ(driver.failure(), "");
}

// --- Pickers -------------------------------------------------------------------------------------

TEST_F(DialogDriverTest, OpensFoldersAndPicksFile) {
  folder_.Write("games/a.img", "");
  folder_.Write("games/b.img", "");
  folder_.Write("games/deep/c.img", "");
  folder_.Write("other/d.img", "");
  DialogDriver driver;
  driver.OpenFolder("games").OpenFolder("deep").OpenFolder("..").PickFile("b.img");
  EXPECT_EQ(ShowSimpleFloppyFilePicker(MakeParent(), folder_.path().string()),
            (folder_.path() / "games/b.img").string());
  EXPECT_EQ(driver.failure(), "");
}

TEST_F(DialogDriverTest, PicksFileAboveTheSelectedRow) {
  folder_.Write("a.img", "");
  folder_.Write("b.img", "");
  DialogDriver driver;
  driver.Do([](SDL_Window*) { KeyDown(SDLK_DOWN), KeyDown(SDLK_DOWN), KeyDown(SDLK_DOWN); })
      .PickFile("a.img");
  EXPECT_EQ(ShowSimpleFloppyFilePicker(MakeParent(), folder_.path().string()),
            (folder_.path() / "a.img").string());
  EXPECT_EQ(driver.failure(), "");
}

TEST_F(DialogDriverTest, SelectsFolderShown) {
  folder_.Write("games/a.img", "");
  FolderPickerOptions options;
  options.start_dir = folder_.path().string();
  DialogDriver driver;
  driver.OpenFolder("games").SelectFolder();
  EXPECT_EQ(ShowSimpleFolderPicker(MakeParent(), options), (folder_.path() / "games").string());
  EXPECT_EQ(driver.failure(), "");
}

// --- Forms ---------------------------------------------------------------------------------------

TEST_F(DialogDriverTest, FillsHddDialogWithFolderOfNestedPicker) {
  folder_.Write("disks/old.img", "");
  DialogDriver driver;
  driver.EnterDiskSize("64")
      .EnterFileName("dos.img")
      .ChooseFolder()
      .OpenFolder("disks")
      .SelectFolder()
      .Create();
  const HddCreateDialogResult result =
      ShowSimpleHddCreateDialog(MakeParent(), folder_.path().string(), 32);
  EXPECT_EQ(driver.failure(), "");
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.size_mb, 64U);
  EXPECT_EQ(result.file_name, "dos.img");
  EXPECT_EQ(result.folder, (folder_.path() / "disks").string());
}

TEST_F(DialogDriverTest, SavesJpegWithQuality) {
  DialogDriver driver;
  driver.ChooseFormat(ScreenshotSaveFormat::Jpeg).EnterFormatOption(80).EnterFileName("a").Save();
  const ScreenshotSaveDialogResult result = RunScreenshot();
  EXPECT_EQ(driver.failure(), "");
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.format, ScreenshotSaveFormat::Jpeg);
  EXPECT_EQ(result.jpeg_quality, 80);
  EXPECT_EQ(result.file_name, "a.jpg");
}

TEST_F(DialogDriverTest, SavesPngWithCompressionInNestedFolder) {
  folder_.Write("shots/a.png", "");
  DialogDriver driver;
  driver.EnterFormatOption(9).ChooseFolder().OpenFolder("shots").SelectFolder().Save();
  const ScreenshotSaveDialogResult result = RunScreenshot();
  EXPECT_EQ(driver.failure(), "");
  EXPECT_EQ(result.png_compression, 9);
  EXPECT_EQ(result.folder, (folder_.path() / "shots").string());
}

TEST_F(DialogDriverTest, TicksRunLengthEncodingOnlyWhereItDiffers) {
  for (const bool on : {true, false}) {
    DialogDriver driver;
    driver.ChooseFormat(ScreenshotSaveFormat::Bmp).TickRunLengthEncoding(on).Save();
    EXPECT_EQ(RunScreenshot().bmp_rle, on);
    EXPECT_EQ(driver.failure(), "");
  }
}

TEST_F(DialogDriverTest, ChoosesFormatFromAListThatIsOpen) {
  DialogDriver driver;
  driver.Click(BuildScreenshotSaveDialogLayout(900, 410).format_box)
      .ChooseFormat(ScreenshotSaveFormat::Bmp)
      .Save();
  EXPECT_EQ(RunScreenshot().format, ScreenshotSaveFormat::Bmp);
  EXPECT_EQ(driver.failure(), "");
}

// --- Shader parameters ---------------------------------------------------------------------------

constexpr const char* kOneParameter = "#pragma parameter GAMMA \"Gamma\" 1.0 0.1 5.0 0.1\n";

float ValueOf(const std::vector<ShaderParameterValue>& values, const std::string& name) {
  for (const ShaderParameterValue& value : values) {
    if (value.name == name) {
      return value.value;
    }
  }
  throw std::out_of_range(name);
}

TEST_F(DialogDriverTest, SetsShaderParameterAndApplies) {
  DialogDriver driver;
  driver.SetParameter("GAMMA", 2.2F).Apply().Close();
  const auto applied = RunShader(kOneParameter);
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 1U);
  EXPECT_NEAR(ValueOf(applied[0], "GAMMA"), 2.2F, 0.0001);
}

TEST_F(DialogDriverTest, SetsShaderParameterToItsBounds) {
  DialogDriver driver;
  driver.SetParameter("GAMMA", 5.0F).Apply().SetParameter("GAMMA", 0.1F).Apply().Close();
  const auto applied = RunShader(kOneParameter);
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 2U);
  EXPECT_FLOAT_EQ(ValueOf(applied[0], "GAMMA"), 5.0F);
  EXPECT_FLOAT_EQ(ValueOf(applied[1], "GAMMA"), 0.1F);
}

// Only the end of the track gives it.
TEST_F(DialogDriverTest, SetsShaderParameterWithoutStepToItsGreatestValue) {
  DialogDriver driver;
  driver.SetParameter("A", 1.0F).Apply().Close();
  const auto applied = RunShader("#pragma parameter A \"A\" 0.5 0.0 1.0 0.0\n");
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 1U);
  EXPECT_FLOAT_EQ(ValueOf(applied[0], "A"), 1.0F);
}

TEST_F(DialogDriverTest, ScrollsToShaderParameters) {
  std::string source;
  for (int i = 0; i < 40; ++i) {
    source += "#pragma parameter P" + std::to_string(i) + " \"Label\" 0.0 0.0 10.0 1.0\n";
  }
  DialogDriver driver;
  driver.SetParameter("P39", 3.0F)
      .SetParameter("P17", 4.0F)
      .SetParameter("P0", 5.0F)
      .Apply()
      .Close();
  const auto applied = RunShader(source);
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 1U);
  EXPECT_EQ(ValueOf(applied[0], "P39"), 3.0F);
  EXPECT_EQ(ValueOf(applied[0], "P17"), 4.0F);
  EXPECT_EQ(ValueOf(applied[0], "P0"), 5.0F);
  EXPECT_EQ(ValueOf(applied[0], "P18"), 0.0F);
}

// --- Settings ------------------------------------------------------------------------------------

TEST_F(DialogDriverTest, ChoosesFpsOnItsPage) {
  DialogDriver driver;
  driver.OpenPage("Target FPS").Choose("60 FPS").Apply().PressEscape();
  const auto applied = RunSettings();
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 1U);
  EXPECT_EQ(applied[0].target_fps, 60);
}

// Every control of every page.
TEST_F(DialogDriverTest, ReachesEverySetting) {
  const SettingsDialogValues initial;
  struct Option {
    const char* page;
    const char* label;
    std::function<bool(const SettingsDialogValues&)> is_chosen;
  };
  using Values = const SettingsDialogValues&;
  const std::vector<Option> options{
      {"Font Mode", "TTF", [](Values v) { return v.font_mode == "ttf"; }},
      {"Font Mode", "TTF HiRes  (bundled font, high resolution)",
       [](Values v) { return v.font_mode == "ttf-hires"; }},
      {"Font Mode", "TTF Custom", [](Values v) { return v.font_mode == "ttf-custom"; }},
      {"Font Mode", "Pixel", [](Values v) { return v.font_mode == "pixel"; }},
      {"Target FPS", "25 FPS", [](Values v) { return v.target_fps == 25; }},
      {"Target FPS", "30 FPS", [](Values v) { return v.target_fps == 30; }},
      {"Target FPS", "50 FPS", [](Values v) { return v.target_fps == 50; }},
      {"Renderer", "Software", [](Values v) { return v.renderer_mode == "software"; }},
      {"Renderer", "Hardware", [](Values v) { return v.renderer_mode == "hardware"; }},
      {"Screenshots", "Original resolution",
       [](Values v) { return v.screenshot_capture_size_mode == 0; }},
      {"Screenshots", "Emu viewport resolution",
       [](Values v) { return v.screenshot_capture_size_mode == 1; }},
  };
  DialogDriver driver;
  for (const Option& option : options) {
    driver.OpenPage(option.page).Choose(option.label).Apply();
  }
  driver.PressEscape();
  const auto applied = RunSettings(initial);
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), options.size());
  for (std::size_t i = 0; i < options.size(); ++i) {
    EXPECT_TRUE(options[i].is_chosen(applied[i])) << options[i].label;
  }
}

TEST_F(DialogDriverTest, TicksSettingsOnlyWhereTheyDiffer) {
  DialogDriver driver;
  for (const bool on : {true, true, false, false}) {
    driver.OpenPage("HDD Sounds").Tick("Enable HDD sounds", on);
    driver.OpenPage("Mouse Capture").Tick("Allow mouse capture in text mode (DOS)", on);
    driver.OpenPage("Screenshots").Tick("Capture with active OpenGL shaders when available", on);
    driver.Apply();
  }
  driver.Close();
  const auto applied = RunSettings();
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 4U);
  for (std::size_t i = 0; i < applied.size(); ++i) {
    EXPECT_EQ(applied[i].hdd_sounds_enabled, i < 2) << i;
    EXPECT_EQ(applied[i].allow_mouse_capture_in_text_mode, i < 2) << i;
    EXPECT_EQ(applied[i].screenshot_capture_with_opengl_shaders, i < 2) << i;
  }
}

TEST_F(DialogDriverTest, MovesSettingsSliders) {
  DialogDriver driver;
  driver.OpenPage("HDD Sounds").MoveSlider("Volume", 0.25).OpenPage("Mouse Capture");
  driver.MoveSlider("Capture Speed", 3.0).Apply().MoveSlider("Capture Speed", 0.25).Apply().Close();
  const auto applied = RunSettings();
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 2U);
  EXPECT_DOUBLE_EQ(applied[0].hdd_sounds_volume, 0.25);
  EXPECT_DOUBLE_EQ(applied[0].mouse_capture_gain, 3.0);
  EXPECT_DOUBLE_EQ(applied[1].mouse_capture_gain, 0.25);
}

TEST_F(DialogDriverTest, BrowsesForFontInNestedPicker) {
  folder_.Write("fonts/mono.ttf", "");
  SettingsDialogValues initial;
  initial.custom_font_path = (folder_.path() / "old.ttf").string();
  DialogDriver driver;
  driver.Choose("TTF Custom").BrowseFont().OpenFolder("fonts").PickFile("mono.ttf").Apply().Close();
  const auto applied = RunSettings(initial);
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 1U);
  EXPECT_EQ(applied[0].custom_font_path, (folder_.path() / "fonts/mono.ttf").string());
}

// --- About ---------------------------------------------------------------------------------------

TEST_F(DialogDriverTest, OpensLinks) {
  DialogDriver driver;
  driver.OpenLink(AboutLink::Homepage).OpenLink(AboutLink::VideoChannel).Close();
  ShowSimpleAboutDialog(MakeParent(), 1.0F);
  EXPECT_EQ(driver.failure(), "");
  EXPECT_THAT(Recorder().urls(),
              ElementsAre(QUINDLE_EXPECTED_HOMEPAGE, QUINDLE_EXPECTED_VIDEO_URL));
}

// --- Any dialog ----------------------------------------------------------------------------------

TEST_F(DialogDriverTest, PressesKeys) {
  folder_.Write("a.img", "");
  folder_.Write("b.img", "");
  DialogDriver driver;
  driver.PressKey(SDLK_DOWN).PressKey(SDLK_DOWN).PressKey(SDLK_RETURN);
  EXPECT_EQ(ShowSimpleFloppyFilePicker(MakeParent(), folder_.path().string()),
            (folder_.path() / "b.img").string());
  EXPECT_EQ(driver.failure(), "");
}

TEST_F(DialogDriverTest, ClicksInTheMiddleOfAPart) {
  DialogDriver driver;
  driver.Click(BuildHddCreateDialogLayout().create_button);
  EXPECT_TRUE(ShowSimpleHddCreateDialog(MakeParent(), "out", 32).accepted);
  EXPECT_EQ(driver.failure(), "");
}

// The middle of the first row's slider, whatever the number of rows.
SDL_Point FirstSlider() {
  const ShaderDialogGeometry geometry;
  return {geometry.slider_x + geometry.slider_width / 2,
          geometry.list_top + geometry.row_height / 2};
}

TEST_F(DialogDriverTest, DragsFromAPlaceInTheWindowToOneOutside) {
  DialogDriver driver;
  driver.Drag(FirstSlider(), {5000, -5000}).Apply();
  driver.Drag(FirstSlider(), {FirstSlider().x, 0}).Apply().Close();
  const auto applied = RunShader("#pragma parameter A \"A\" 0.5 0.0 1.0 0.5\n");
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 2U);
  EXPECT_EQ(ValueOf(applied[0], "A"), 1.0F);
  EXPECT_EQ(ValueOf(applied[1], "A"), 0.5F);
}

TEST_F(DialogDriverTest, TurnsTheWheelWhereThePointerIs) {
  const SDL_Point slider = FirstSlider();
  DialogDriver driver;
  driver.TurnWheel({slider.x - 5, slider.y - 5, 10, 10}, 1).Apply();
  driver.TurnWheel({slider.x, slider.y, 1, 1}, -1).Apply();
  driver.TurnWheel({slider.x, 10, 1, 1}, 1).Apply().Close();
  const auto applied = RunShader(kOneParameter);
  EXPECT_EQ(driver.failure(), "");
  ASSERT_EQ(applied.size(), 3U);
  EXPECT_NEAR(ValueOf(applied[0], "GAMMA"), 1.1F, 0.0001);
  EXPECT_NEAR(ValueOf(applied[1], "GAMMA"), 1.0F, 0.0001);
  EXPECT_NEAR(ValueOf(applied[2], "GAMMA"), 1.0F, 0.0001) << "above the list";
}

TEST_F(DialogDriverTest, WaitsForFrames) {
  int frames = 0;
  DialogDriver driver([&frames] { ++frames; });
  int before = 0;
  int between = 0;
  int after = 0;
  driver.Do([&](SDL_Window*) { before = frames; }).Do([&](SDL_Window*) { between = frames; });
  driver.Wait(10).Do([&](SDL_Window*) { after = frames; }).PressButton(1);
  Ask("Slow");
  EXPECT_EQ(driver.failure(), "");
  EXPECT_LT(between - before, 10);
  EXPECT_GE(after - between, 10);
}

TEST_F(DialogDriverTest, WaitingForNoFrameIsNoStepLeftUndone) {
  DialogDriver driver;
  driver.PressButton(1).Wait(0).Wait(-1);
  Ask("Ended");
  EXPECT_EQ(driver.failure(), "");
}

// --- Around the dialogs --------------------------------------------------------------------------

TEST_F(DialogDriverTest, DrivesDialogThatAButtonOpens) {
  SdlMessageBox::Config config = MakeQuestion("Outer");
  int inner = 0;
  config.buttons[0].onClick = [&inner] { inner = Ask("Inner"); };
  DialogDriver driver;
  driver.PressButton(1).PressButton(2);
  EXPECT_EQ(SdlMessageBox(config).Show(MakeParent(), 1.0F), 1);
  EXPECT_EQ(inner, 2);
  EXPECT_EQ(driver.failure(), "");
}

TEST_F(DialogDriverTest, CallsHostHeartbeatInEveryFrame) {
  int host_beats = 0;
  int frames = 0;
  Recorder().OnDelay([&frames](Uint32) { ++frames; });
  DialogDriver driver([&host_beats] { ++host_beats; });
  driver.PressButton(1);
  Ask("Heartbeat");
  Recorder().OnDelay({});
  EXPECT_GE(frames, 2);
  EXPECT_EQ(host_beats, frames);
}

TEST_F(DialogDriverTest, LeavesHostHeartbeatInstalled) {
  int host_beats = 0;
  {
    DialogDriver driver([&host_beats] { ++host_beats; });
    driver.PressButton(1);
  }
  PumpModalDialogHeartbeat();
  EXPECT_EQ(host_beats, 1);
  SetModalDialogHeartbeat({});
}

TEST_F(DialogDriverTest, LetsExceptionOfHostHeartbeatThrough) {
  DialogDriver driver([] { throw std::logic_error("host"); });
  EXPECT_THROW(Ask("Throws"), std::logic_error);
}

TEST_F(DialogDriverTest, HandsWindowOfDialogToOwnStep) {
  std::string title;
  DialogDriver driver;
  driver.Do([&title](SDL_Window* window) { title = SDL_GetWindowTitle(window); }).PressButton(1);
  Ask("Looked at");
  EXPECT_EQ(title, "Looked at");
  EXPECT_EQ(driver.failure(), "");
}

TEST_F(DialogDriverTest, LeavesNothingOnAWindowThatOutlivesTheLoop) {
  const SdlMessageBox::Config config = MakeQuestion("Kept");
  const ModalWindowBundle bundle = CreateModalWindowBundle(
      nullptr, "Kept", 0, 0, 420, 200, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  {
    DialogDriver driver;
    driver.PressButton(1);
    RunSdlMessageBoxLoop(bundle.window.get(), bundle.renderer.get(), config, 1.0F,
                         VisualForMessageBoxType(config.type), OpenSdlMessageBoxFonts(1.0F));
    EXPECT_EQ(driver.failure(), "");
  }
  EXPECT_EQ(SDL_GetWindowData(bundle.window.get(), "quindle_open_dialog"), nullptr);
}

TEST_F(DialogDriverTest, TakesItsPointerOffAWindowThatOutlivesIt) {
  const ModalWindowBundle bundle = CreateModalWindowBundle(
      nullptr, "Kept", 0, 0, 820, 492, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  const std::vector<NavItem> nav_items = BuildSettingsNavItems();
  SettingsDialogSession session;
  session.window = bundle.window.get();
  session.renderer = bundle.renderer.get();
  session.nav_items = &nav_items;
  session.panel_id = 1;
  bool was_there = false;
  {
    DialogDriver driver;
    driver.Choose("60 FPS")
        .Do([&was_there](SDL_Window* window) {
          was_there = SDL_GetWindowData(window, "quindle_driven_pointer") != nullptr;
        })
        .Close();
    RunSettingsDialogLoop(&session, {});
    EXPECT_EQ(driver.failure(), "");
  }
  EXPECT_EQ(session.values.target_fps, 60);
  EXPECT_TRUE(was_there);
  EXPECT_EQ(SDL_GetWindowData(bundle.window.get(), "quindle_driven_pointer"), nullptr);
}

}  // namespace
}  // namespace quindle::testing

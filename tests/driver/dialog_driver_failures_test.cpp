// Every way in which a step fails: what is said, and that the host's function ends.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "driver/driven_hosts.h"
#include "frontend/gui/about_dialog.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "frontend/gui/testing/push_event.h"
#include "support/dialog_test.h"
#include "support/text_watch.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;
using frontend::gui::testing::AboutLink;
using frontend::gui::testing::DialogDriver;

constexpr const char* kBoxShows =
    "; open was the message box \"Box\", which shows the buttons 1 \"Yes\", 2 \"No\"";
constexpr const char* kAboutShows =
    "; open was the dialog \"About Quindle\", which shows its two links";
constexpr const char* kShaderShows =
    "; open was the dialog \"Shader Parameters\", which shows the parameters \"A\" = 0.5, \"B\" = "
    "1";

class DialogDriverFailure : public DialogTest {
 protected:
  void RunHdd() { EXPECT_FALSE(ShowSimpleHddCreateDialog(MakeParent(), "out", 32).accepted); }

  void RunScreenshot(ScreenshotSaveFormat format = ScreenshotSaveFormat::Png, bool bmp_rle = true) {
    EXPECT_FALSE(
        ShowScreenshotSaveDialog(MakeParent(), "out", "shot", format, 90, 2, bmp_rle).accepted);
  }

  void RunShader() {
    const auto path = folder_.Write("a.glsl",
                                    "#pragma parameter A \"A\" 0.5 0.0 1.0 0.0\n"
                                    "#pragma parameter B \"B\" 1.0 0.0 1.0 0.5\n");
    ShowShaderParameterDialog(MakeParent(), path.string(), 1.0F, {}, {});
  }

  void RunSettings() { ShowSettingsDialog(MakeParent(), 1.0F, {}, {}); }

  void RunFloppy() {
    EXPECT_EQ(ShowSimpleFloppyFilePicker(MakeParent(), folder_.path().string()), "");
  }

  std::string PickerShows(const std::string& rows) const {
    return "; open was the picker \"Load Floppy Image\", which shows the folder \"" +
           folder_.path().string() + "\" with the rows " + rows;
  }

  TemporaryDirectory folder_;
};

constexpr const char* kHddShows =
    "; open was the dialog \"Create HDD Image\", which shows the size \"32\", the file name "
    "\"disk.img\", the folder \"out\"";
constexpr const char* kSettingsShows =
    "; open was the dialog \"Settings\", which shows the page \"Font Mode\" with the controls "
    "\"Pixel  (classic bitmap font, fastest)\", \"TTF  (bundled IBM VGA font, scalable)\", \"TTF "
    "HiRes  (bundled font, high resolution)\", \"TTF Custom  (user-selected font file)\"";

std::string ScreenshotShows(const std::string& name, const std::string& format,
                            const std::string& jpeg = "90") {
  return "; open was the dialog \"Save Screenshot\", which shows the file name \"" + name +
         "\", the folder \"out\", the format \"" + format + "\", the JPEG quality \"" + jpeg +
         "\", the PNG compression \"2\", run-length encoding on";
}

TEST_F(DialogDriverFailure, MissingButton) {
  DialogDriver driver;
  driver.PressButton(7);
  EXPECT_EQ(Ask("Box"), -1);
  EXPECT_EQ(driver.failure(),
            std::string("step 1 (press the button 7): there is no such button") + kBoxShows);
}

// Every kind of step in a dialog that is not the one it is for.
TEST_F(DialogDriverFailure, WrongDialog) {
  using Step = std::function<void(DialogDriver&)>;
  struct Case {
    Step step;
    std::string words;
    std::string needed;
  };
  const std::string picker = "this needs a file or folder picker";
  const std::string hdd = "this needs the hard-disk image dialog";
  const std::string screenshot = "this needs the screenshot dialog";
  const std::string form = "this needs the hard-disk image or the screenshot dialog";
  const std::string settings = "this needs the settings dialog";
  const std::vector<Case> cases{
      {[](auto& d) { d.OpenFolder("a"); }, "open the folder \"a\"", picker},
      {[](auto& d) { d.PickFile("a"); }, "pick the file \"a\"", picker},
      {[](auto& d) { d.SelectFolder(); }, "select the folder", picker},
      {[](auto& d) { d.EnterDiskSize("1"); }, "enter the disk size \"1\"", hdd},
      {[](auto& d) { d.Create(); }, "create the image", hdd},
      {[](auto& d) { d.EnterFileName("a"); }, "enter the file name \"a\"", form},
      {[](auto& d) { d.ChooseFolder(); }, "choose a folder", form},
      {[](auto& d) { d.ChooseFormat(ScreenshotSaveFormat::Bmp); },
       "choose the format \"BMP (*.bmp)\"", screenshot},
      {[](auto& d) { d.EnterFormatOption(1); }, "enter the format's option \"1\"",
       "this needs the screenshot dialog and a format with a number"},
      {[](auto& d) { d.TickRunLengthEncoding(true); }, "tick run-length encoding", screenshot},
      {[](auto& d) { d.TickRunLengthEncoding(false); }, "untick run-length encoding", screenshot},
      {[](auto& d) { d.Save(); }, "save the screenshot", screenshot},
      {[](auto& d) { d.SetParameter("A", 1.5F); }, "set the parameter \"A\" to 1.5",
       "this needs the shader dialog"},
      {[](auto& d) { d.OpenPage("A"); }, "open the page \"A\"", settings},
      {[](auto& d) { d.Choose("A"); }, "choose \"A\"", settings},
      {[](auto& d) { d.Tick("A", true); }, "tick \"A\"", settings},
      {[](auto& d) { d.Tick("A", false); }, "untick \"A\"", settings},
      {[](auto& d) { d.MoveSlider("A", 0.5); }, "move the slider \"A\" to 0.5", settings},
      {[](auto& d) { d.BrowseFont(); }, "browse for a font", settings},
      {[](auto& d) { d.Apply(); }, "apply", "this needs the shader or the settings dialog"},
      {[](auto& d) { d.OpenLink(AboutLink::Homepage); }, "open the homepage",
       "this needs the About dialog"},
      {[](auto& d) { d.OpenLink(AboutLink::VideoChannel); }, "open the video channel",
       "this needs the About dialog"},
  };
  for (const Case& one : cases) {
    DialogDriver driver;
    one.step(driver);
    EXPECT_EQ(Ask("Box"), -1);
    EXPECT_EQ(driver.failure(), "step 1 (" + one.words + "): " + one.needed + kBoxShows);
  }
}

TEST_F(DialogDriverFailure, PlacesOutsideTheWindow) {
  struct Case {
    std::function<void(DialogDriver&)> step;
    std::string words;
  };
  for (const Case& one : std::vector<Case>{
           {[](auto& d) {
              d.Click({400, 10, 40, 10});
            },
            "click at (420, 15)"},
           {[](auto& d) {
              d.Drag({10, -1}, {20, 30});
            },
            "drag from (10, -1) to (20, 30)"},
           {[](auto& d) {
              d.TurnWheel({10, 5000, 1, 1}, 1);
            },
            "turn the wheel at (10, 5000)"},
       }) {
    DialogDriver driver;
    one.step(driver);
    EXPECT_EQ(Ask("Box"), -1);
    EXPECT_EQ(driver.failure(),
              "step 1 (" + one.words + "): that is outside of the dialog's window" + kBoxShows);
  }
}

TEST_F(DialogDriverFailure, KeyOrFrameThatNoDialogCameFor) {
  DialogDriver key;
  key.PressButton(2).PressKey(SDLK_RETURN);
  EXPECT_EQ(Ask("Box"), 2);
  EXPECT_EQ(key.failure(), "step 2 (press the key \"Return\"): no dialog was open any more");
  DialogDriver frame;
  frame.PressButton(2).Wait(1);
  EXPECT_EQ(Ask("Box"), 2);
  EXPECT_EQ(frame.failure(), "step 2 (wait): no dialog was open any more");
}

TEST_F(DialogDriverFailure, ButtonInAboutDialog) {
  DialogDriver driver;
  driver.PressButton(1);
  ShowSimpleAboutDialog(MakeParent(), 1.0F);
  EXPECT_EQ(driver.failure(),
            std::string("step 1 (press the button 1): this needs a message box") + kAboutShows);
}

TEST_F(DialogDriverFailure, MissingRows) {
  folder_.Write("games/b.img", "");
  folder_.Write("a.img", "");
  const std::string rows = "\"..\" (folder), \"games\" (folder), \"a.img\"";
  struct Case {
    std::function<void(DialogDriver&)> step;
    std::string failure;
  };
  for (const Case& one : std::vector<Case>{
           {[](auto& d) { d.PickFile("games"); },
            "step 1 (pick the file \"games\"): there is no such file"},
           {[](auto& d) { d.OpenFolder("a.img"); },
            "step 1 (open the folder \"a.img\"): there is no such folder"},
           {[](auto& d) { d.SelectFolder(); },
            "step 1 (select the folder): this picker is for files"},
       }) {
    DialogDriver driver;
    one.step(driver);
    RunFloppy();
    EXPECT_EQ(driver.failure(), one.failure + PickerShows(rows));
  }
}

TEST_F(DialogDriverFailure, PickerWithoutRows) {
  SdlPickerDialogOptions options;
  options.title = "Empty";
  options.start_dir = folder_.path();
  DialogDriver driver;
  driver.PickFile("a");
  EXPECT_EQ(RunSimplePickerDialog(MakeParent(), options), "");
  EXPECT_EQ(driver.failure(),
            "step 1 (pick the file \"a\"): there is no such file; open was the picker \"Empty\", "
            "which shows the folder \"" +
                folder_.path().string() + "\" with the rows none");
}

TEST_F(DialogDriverFailure, TextThatAFieldRefuses) {
  DialogDriver size;
  size.EnterDiskSize("3x2");
  RunHdd();
  EXPECT_EQ(size.failure(),
            std::string("step 1 (enter the disk size \"3x2\"): the field did not take the whole "
                        "text") +
                kHddShows);
  DialogDriver name;
  name.EnterFileName("a/b");
  RunScreenshot();
  EXPECT_EQ(name.failure(),
            "step 1 (enter the file name \"a/b\"): the field did not take the "
            "whole text" +
                ScreenshotShows("ab", "PNG (*.png)"));
  DialogDriver option;
  option.ChooseFormat(ScreenshotSaveFormat::Jpeg).EnterFormatOption(1234);
  RunScreenshot();
  EXPECT_EQ(option.failure(),
            "step 2 (enter the format's option \"1234\"): the field did not take "
            "the whole text" +
                ScreenshotShows("shot.jpg", "JPEG (*.jpg)", "123"));
}

// As SDL itself sends it, a whole character at a time.
TEST_F(DialogDriverFailure, TextOfSeveralBytesACharacter) {
  if (frontend::gui::testing::IsTextQueuedByAddress()) {
    GTEST_SKIP() << "this SDL shows such events to no watch";
  }
  const TextWatch watch;
  DialogDriver name;
  name.EnterFileName("o\xC3\xB6\xE2\x82\xAC\xF0\x9F\x98\x80\x80p");
  RunScreenshot();
  EXPECT_THAT(watch.Texts(), ::testing::ElementsAre("o", "\xC3\xB6", "\xE2\x82\xAC",
                                                    "\xF0\x9F\x98\x80", "\x80", "p"));
  EXPECT_THAT(name.failure(), ::testing::HasSubstr("the field did not take the whole text"));
}

TEST_F(DialogDriverFailure, OptionsThatTheFormatLacks) {
  DialogDriver number;
  number.EnterFormatOption(1);
  RunScreenshot(ScreenshotSaveFormat::Bmp);
  EXPECT_EQ(number.failure(),
            "step 1 (enter the format's option \"1\"): this needs the screenshot "
            "dialog and a format with a number" +
                ScreenshotShows("shot.bmp", "BMP (*.bmp)"));
  DialogDriver box;
  box.TickRunLengthEncoding(true);
  RunScreenshot();
  EXPECT_EQ(box.failure(), "step 1 (tick run-length encoding): only BMP has that check box" +
                               ScreenshotShows("shot.png", "PNG (*.png)"));
  DialogDriver unticked;
  unticked.EnterFormatOption(1);
  RunScreenshot(ScreenshotSaveFormat::Bmp, false);
  EXPECT_THAT(unticked.failure(), ::testing::HasSubstr(", run-length encoding off"));
}

TEST_F(DialogDriverFailure, UnknownFormat) {
  DialogDriver driver;
  driver.ChooseFormat(static_cast<ScreenshotSaveFormat>(9));
  RunScreenshot();
  EXPECT_THAT(driver.failure(), ::testing::HasSubstr("): the list has no such format; open was"));
}

TEST_F(DialogDriverFailure, ShaderParameters) {
  struct Case {
    std::string name;
    float value;
    std::string failure;
  };
  for (const Case& one : std::vector<Case>{
           {"C", 1.0F, "step 1 (set the parameter \"C\" to 1): there is no such parameter"},
           {"B", 0.3F,
            "step 1 (set the parameter \"B\" to 0.3): no place of the slider gives that value, "
            "the nearest gives 0.5"},
           {"B", 2.0F,
            "step 1 (set the parameter \"B\" to 2): no place of the slider gives that value, the "
            "nearest gives 1"},
           {"B", NAN,
            "step 1 (set the parameter \"B\" to nan): no place of the slider gives that value, the "
            "nearest gives 0"},
       }) {
    DialogDriver driver;
    driver.SetParameter(one.name, one.value);
    RunShader();
    EXPECT_EQ(driver.failure(), one.failure + kShaderShows);
  }
}

TEST_F(DialogDriverFailure, ShaderParameterThatScrollingPassesOver) {
  std::string source;
  for (int i = 0; i < 5000; ++i) {
    source += "#pragma parameter P" + std::to_string(i) + " \"P\" 0 0 1 1\n";
  }
  const std::string path = folder_.Write("many.glsl", source).string();
  int passed_over = 0;
  for (const char* name : {"P2500", "P2503", "P2506", "P2509", "P2512", "P2515"}) {
    DialogDriver driver;
    driver.SetParameter(name, 1.0F).Close();
    ShowShaderParameterDialog(MakeParent(), path, 1.0F, {}, {});
    if (!driver.failure().empty()) {
      ++passed_over;
      EXPECT_THAT(driver.failure(),
                  ::testing::HasSubstr("): the scroll bar does not bring the parameter into view"));
    }
  }
  EXPECT_GT(passed_over, 0);
}

TEST_F(DialogDriverFailure, SettingsControls) {
  struct Case {
    std::function<void(DialogDriver&)> step;
    std::string failure;
  };
  for (const Case& one : std::vector<Case>{
           {[](auto& d) { d.OpenPage("Display"); },
            "step 1 (open the page \"Display\"): there is no such page"},
           {[](auto& d) { d.Choose("60 FPS"); },
            "step 1 (choose \"60 FPS\"): the page has no such control"},
           {[](auto& d) { d.Tick("Pixel", true); },
            "step 1 (tick \"Pixel\"): the page has no such control"},
           {[](auto& d) { d.MoveSlider("Volume", 0.5); },
            "step 1 (move the slider \"Volume\" to 0.5): the page has no such control"},
           {[](auto& d) { d.BrowseFont(); },
            "step 1 (browse for a font): the page has no such control"},
       }) {
    DialogDriver driver;
    one.step(driver);
    RunSettings();
    EXPECT_EQ(driver.failure(), one.failure + kSettingsShows);
  }
}

TEST_F(DialogDriverFailure, SettingsPageWithoutControls) {
  DialogDriver driver;
  driver.OpenPage("CPU Speed").Choose("Fast");
  RunSettings();
  EXPECT_EQ(driver.failure(),
            "step 2 (choose \"Fast\"): the page has no such control; open was "
            "the dialog \"Settings\", which shows the page \"CPU Speed\" with "
            "the controls none");
}

TEST_F(DialogDriverFailure, SliderBeyondItsRange) {
  for (const double value : {1.2, -0.2}) {
    DialogDriver driver;
    driver.OpenPage("HDD Sounds").MoveSlider("Volume", value);
    RunSettings();
    EXPECT_THAT(driver.failure(),
                ::testing::HasSubstr("): the slider does not reach that value; open was"));
  }
}

// --- Beginning and end ---------------------------------------------------------------------------

TEST_F(DialogDriverFailure, DialogStillOpenBehindTheLastStep) {
  DialogDriver driver;
  driver.Do([](SDL_Window*) {});
  EXPECT_EQ(Ask("Box"), -1);
  EXPECT_EQ(driver.failure(),
            "no step is left; still open was the message box \"Box\", which shows the buttons 1 "
            "\"Yes\", 2 \"No\"");
}

TEST_F(DialogDriverFailure, StepsThatNoDialogCameFor) {
  DialogDriver driver;
  driver.PressButton(2).PressButton(1).PressButton(1);
  EXPECT_EQ(Ask("Box"), 2);
  EXPECT_EQ(driver.failure(), "step 2 (press the button 1): no dialog was open any more");
}

TEST_F(DialogDriverFailure, EndsNestedDialogs) {
  DialogDriver driver;
  driver.ChooseFolder().OpenFolder("nowhere").SelectFolder().Create();
  RunHdd();
  EXPECT_THAT(driver.failure(),
              ::testing::HasSubstr("step 2 (open the folder \"nowhere\"): there is no such folder; "
                                   "open was the picker \"Select HDD Output Folder\""));
}

TEST_F(DialogDriverFailure, EndsLaterDialogsToo) {
  DialogDriver driver;
  driver.PressButton(7).PressButton(1);
  EXPECT_EQ(Ask("Box"), -1);
  EXPECT_EQ(Ask("Later"), -1);
  EXPECT_EQ(driver.failure(),
            std::string("step 1 (press the button 7): there is no such button") + kBoxShows);
}

// A host that asks until it gets an answer.
TEST_F(DialogDriverFailure, LeavesByAnExceptionWhatNeverEnds) {
  DialogDriver driver;
  driver.PressButton(7);
  try {
    while (Ask("Box") == -1) {
    }
    ADD_FAILURE() << "answered";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(error.what(), driver.failure());
  }
}

TEST_F(DialogDriverFailure, DialogThatWasOpenBefore) {
  std::unique_ptr<DialogDriver> driver;
  int frames = 0;
  SetModalDialogHeartbeat([&] {
    if (++frames == 3) {
      driver = std::make_unique<DialogDriver>();
      driver->PressButton(1);
    }
  });
  EXPECT_EQ(Ask("Box"), -1);
  EXPECT_EQ(driver->failure(),
            "the driver found no dialog; it must be made before the dialog opens");
}

TEST_F(DialogDriverFailure, HeartbeatThatTheHostReplaces) {
  DialogDriver driver;
  driver.PressButton(1);
  SetModalDialogHeartbeat([] {});
  EXPECT_EQ(Ask("Box"), -1);
  EXPECT_EQ(Ask("Later"), -1);
  EXPECT_EQ(driver.failure(),
            std::string("the heartbeat was taken from the driver, which wants the host's as its "
                        "argument") +
                kBoxShows);
}

TEST_F(DialogDriverFailure, LeavesDialogsToANewerDriver) {
  DialogDriver former;
  former.PressButton(7);
  EXPECT_EQ(Ask("Box"), -1);
  DialogDriver driver;
  driver.PressButton(2);
  EXPECT_EQ(Ask("Newer"), 2);
  EXPECT_EQ(driver.failure(), "");
}

// Only dialogs are the driver's business.
TEST_F(DialogDriverFailure, LeavesHostWindowsAlone) {
  DialogDriver driver;
  SetModalDialogHeartbeat({});
  SDL_ShowWindow(MakeParent());
  const OwnedSdlWindow own(SDL_CreateWindow("Host", 0, 0, 80, 60, SDL_WINDOW_SHOWN));
  for (const SDL_Event& event : QueuedEvents()) {
    EXPECT_FALSE(event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_CLOSE);
  }
  EXPECT_EQ(driver.failure(), "");
}

}  // namespace
}  // namespace quindle::testing

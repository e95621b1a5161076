// What holds for the loops of both forms with text fields, HDD image and screenshot: the window,
// the order of the calls, the end of the loop, the folder picker inside it. What one of them does
// in a way of its own is in the test of that dialog.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "dialogs/form_checks.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"
#include "utils/string_utils.h"

namespace quindle::testing {
namespace {

using frontend::gui::HddCreateDialogResult;
using frontend::gui::ScreenshotSaveDialogResult;
using frontend::gui::ScreenshotSaveFormat;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// --- The two forms -------------------------------------------------------------------------------

struct FormResult {
  bool accepted = false;
  std::string folder;
  std::string file_name;
  std::vector<long> values;  // The fields of one form alone, in the order of its result.

  bool operator==(const FormResult& other) const = default;
};

void PrintTo(const FormResult& result, std::ostream* out) {
  *out << (result.accepted ? "accepted" : "cancelled") << ", folder \"" << result.folder
       << "\", name \"" << result.file_name << "\", " << ::testing::PrintToString(result.values);
}

struct Form {
  const char* name;
  const char* title;
  SDL_Rect window;
  Uint32 window_flags;
  SDL_Point name_field;
  SDL_Point folder_field;
  SDL_Point choose_button;
  SDL_Point cancel_button;
  SDL_Point accept_button;
  const char* picker_title;
  const char* picker_hint;
  std::size_t shown_folder_bytes;
  std::string file_name;  // Shown from the start.
  std::vector<long> values;
  bool cancel_gives_start_texts;  // Otherwise empty ones.
  FormResult (*show)(SDL_Window* parent, const std::string& folder);
  void (*open_picker)(SDL_Window* parent, std::string& folder);

  FormResult Untouched(const std::string& folder) const {
    return {true, folder, file_name, values};
  }
  FormResult Cancelled(const std::string& folder) const {
    return cancel_gives_start_texts ? FormResult{false, folder, file_name, values}
                                    : FormResult{false, "", "", values};
  }
};

FormResult ShowHdd(SDL_Window* parent, const std::string& folder) {
  const HddCreateDialogResult result = frontend::gui::ShowSimpleHddCreateDialog(parent, folder, 64);
  return {result.accepted, result.folder, result.file_name, {result.size_mb}};
}

FormResult ShowScreenshot(SDL_Window* parent, const std::string& folder) {
  const ScreenshotSaveDialogResult result = frontend::gui::ShowScreenshotSaveDialog(
      parent, folder, "shot", ScreenshotSaveFormat::Png, 80, 4, true);
  return {result.accepted,
          result.folder,
          result.file_name,
          {static_cast<long>(result.format), result.jpeg_quality, result.png_compression,
           result.bmp_rle ? 1 : 0}};
}

const Form& HddForm() {
  static const Form form = {
      .name = "Hdd",
      .title = "Create HDD Image",
      .window = {180, 180, 860, 390},
      .window_flags = SDL_WINDOW_HIDDEN,
      .name_field = {300, 150},
      .folder_field = {300, 210},
      .choose_button = {735, 210},
      .cancel_button = {675, 338},
      .accept_button = {795, 338},
      .picker_title = "Select HDD Output Folder",
      .picker_hint = "Choose folder for new HDD image",
      .shown_folder_bytes = 58,
      .file_name = "disk.img",
      .values = {64},
      .cancel_gives_start_texts = true,
      .show = ShowHdd,
      .open_picker = frontend::gui::OpenHddCreateFolderPicker,
  };
  return form;
}

const Form& ScreenshotForm() {
  static const Form form = {
      .name = "Screenshot",
      .title = "Save Screenshot",
      .window = {180, 180, 900, 410},
      .window_flags = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE,
      .name_field = {300, 100},
      .folder_field = {300, 160},
      .choose_button = {800, 160},
      .cancel_button = {700, 370},
      .accept_button = {820, 370},
      .picker_title = "Select Screenshot Output Folder",
      .picker_hint = "Choose folder for screenshot export",
      .shown_folder_bytes = 70,
      .file_name = "shot.png",
      .values = {0, 80, 4, 1},
      .cancel_gives_start_texts = false,
      .show = ShowScreenshot,
      .open_picker = frontend::gui::OpenFolderPicker,
  };
  return form;
}

class FormTest : public DialogTest, public ::testing::WithParamInterface<const Form*> {
 protected:
  static const Form& form() { return *GetParam(); }
};

std::string NameOfForm(const ::testing::TestParamInfo<const Form*>& info) {
  return info.param->name;
}

// --- Loop ----------------------------------------------------------------------------------------

class FormDialogLoop : public FormTest {
 protected:
  // Runs the dialog with one step that acts, after a frame to look at. Whatever decides, the rest
  // of the queue is taken with it.
  FormResult Run(const std::function<void()>& act) {
    DialogScript script;
    script.Wait().Step(act);
    FormResult result = form().show(MakeParent(), "/data");
    EXPECT_TRUE(script.IsFinished());
    EXPECT_THAT(EventsLeftBehind(), IsEmpty());
    FlushEvents();
    return result;
  }
};

INSTANTIATE_TEST_SUITE_P(Both, FormDialogLoop, ::testing::Values(&HddForm(), &ScreenshotForm()),
                         NameOfForm);

TEST_P(FormDialogLoop, OpensItsWindow) {
  SDL_Window* const parent = MakeParent();
  Run([] { Quit(); });
  const WindowRecord& window = Recorder().windows().back();
  EXPECT_EQ(window.title, form().title);
  EXPECT_EQ((SDL_Rect{window.x, window.y, window.w, window.h}), form().window);
  EXPECT_EQ(window.flags, form().window_flags);
  EXPECT_EQ(window.modal_for, parent);
  EXPECT_EQ(Recorder().renderers().front().flags, Uint32{SDL_RENDERER_ACCELERATED});
  EXPECT_THAT(Recorder().delays(), ElementsAre(8, 8));
}

TEST_P(FormDialogLoop, KeepsTheOrderOfTheContract) {
  MakeParent();
  Recorder().ForgetCalls();
  Run([] { Quit(); });
  EXPECT_THAT(
      Recorder().CallsAmong({"SDL_CreateWindow", "TTF_OpenFont", "SDL_StartTextInput",
                             "SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                             "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_StopTextInput",
                             "SDL_DestroyRenderer", "SDL_DestroyWindow"}),
      ElementsAre("SDL_CreateWindow", "TTF_OpenFont", "SDL_StartTextInput", "SDL_RenderPresent",
                  "SDL_ShowWindow", "SDL_RaiseWindow", "SDL_SetWindowInputFocus", "SDL_Delay",
                  "SDL_RenderPresent", "SDL_Delay", "SDL_StopTextInput", "SDL_RaiseWindow",
                  "SDL_SetWindowInputFocus", "SDL_DestroyRenderer", "SDL_DestroyWindow"));
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, MakeParent()),
              ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
}

TEST_P(FormDialogLoop, FontIsThereAtTheFirstHeartbeat) {
  DialogScript script;
  script.Step([] {
    ASSERT_THAT(Recorder().font_requests(), SizeIs(1));
    EXPECT_EQ(Recorder().font_requests()[0].size, 16);
    EXPECT_TRUE(Recorder().font_requests()[0].opened);
    Quit();
  });
  form().show(nullptr, "/data");
}

// Neither in each frame nor for each text.
TEST_P(FormDialogLoop, MissingFontIsLookedForOnceAndTheFormWorks) {
  Recorder().HideAllFonts();
  std::size_t looked_for = 0;
  DialogScript script;
  script.Step([&looked_for] { looked_for = Recorder().font_requests().size(); })
      .Step([] { EXPECT_THAT(Recorder().last_frame().Texts(), IsEmpty()); })
      .Step([] { ClickAt(form().accept_button); });
  EXPECT_EQ(form().show(nullptr, "/data"), form().Untouched("/data"));
  EXPECT_GT(looked_for, 0U);
  EXPECT_EQ(Recorder().font_requests().size(), looked_for);
}

TEST_P(FormDialogLoop, RunsWithoutAParent) {
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); });
  EXPECT_TRUE(form().show(nullptr, "/data").accepted);
  EXPECT_EQ(Recorder().windows().back().modal_for, nullptr);
}

TEST_P(FormDialogLoop, UntouchedFieldsGiveTheStartValues) {
  EXPECT_EQ(Run([] { ClickAt(form().accept_button); }), form().Untouched("/data"));
}

TEST_P(FormDialogLoop, EveryWayOutCancelsAndIsConsumed) {
  for (const auto& way : WaysOut(form().cancel_button)) {
    EXPECT_EQ(Run(way), form().Cancelled("/data"));
  }
}

TEST_P(FormDialogLoop, FirstDecidingEventOfADrainWins) {
  EXPECT_EQ(Run([] {
              KeyDown(SDLK_ESCAPE);
              KeyDown(SDLK_RETURN);
              ClickAt(form().accept_button);
            }),
            form().Cancelled("/data"));
  EXPECT_EQ(Run([] {
              KeyDown(SDLK_RETURN);
              TextInput("7");
              KeyDown(SDLK_RETURN);
              ClickAt(form().choose_button);
              Quit();
            }),
            form().Untouched("/data"));
}

TEST_P(FormDialogLoop, WithoutAWindowNothingHappens) {
  SDL_Window* const parent = MakeParent();
  for (const char* const function : {"SDL_CreateWindow", "SDL_CreateRenderer"}) {
    Recorder().Reset();
    Recorder().FailAlways(function);
    EXPECT_EQ(form().show(parent, "/data"), form().Cancelled("/data"));
    EXPECT_EQ(Recorder().CallCount("SDL_StartTextInput"), 0);
    EXPECT_EQ(Recorder().CallCount("SDL_StopTextInput"), 0);
    EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 0);
    EXPECT_EQ(Recorder().presents(), 0);
    EXPECT_EQ(Recorder().alive(), AliveCounts{});
  }
}

TEST_P(FormDialogLoop, ExceptionOfTheHeartbeatLeavesNothingBehind) {
  SDL_Window* const parent = MakeParent();
  DialogScript script;
  script.Wait().Step([] {
    EXPECT_TRUE(Recorder().alive().text_input);
    Recorder().ForgetCalls();
    throw std::runtime_error("host");
  });
  EXPECT_THROW(form().show(parent, "/data"), std::runtime_error);
  frontend::gui::ShutdownSdlUiCachedFonts();
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
  EXPECT_THAT(
      Recorder().CallsAmong({"SDL_StopTextInput", "SDL_RaiseWindow", "SDL_SetWindowInputFocus",
                             "SDL_DestroyRenderer", "SDL_DestroyWindow"}),
      ElementsAre("SDL_StopTextInput", "SDL_RaiseWindow", "SDL_SetWindowInputFocus",
                  "SDL_DestroyRenderer", "SDL_DestroyWindow"));
}

// --- Folder picker -------------------------------------------------------------------------------

class FormDialogFolder : public FormTest {
 protected:
  // The folder that the picker alone, opened at `folder`, leaves when `act` is done in it.
  static std::string PickFrom(std::string folder, const std::function<void()>& act) {
    DialogScript script;
    script.Wait().Step(act);
    form().open_picker(nullptr, folder);
    EXPECT_TRUE(script.IsFinished());
    FlushEvents();
    return folder;
  }

  FolderTree tree_;
};

INSTANTIATE_TEST_SUITE_P(Both, FormDialogFolder, ::testing::Values(&HddForm(), &ScreenshotForm()),
                         NameOfForm);

TEST_P(FormDialogFolder, PickerHasItsTexts) {
  PickFrom(tree_.one(), [] {
    const Frame& frame = Recorder().last_frame();
    EXPECT_EQ(TitleOfNewestWindow(), form().picker_title);
    EXPECT_TRUE(frame.HasText(form().picker_hint));
    EXPECT_TRUE(frame.HasText("Use"));
    EXPECT_TRUE(frame.HasText("Cancel"));
    EXPECT_TRUE(frame.HasText("[DIR] two"));
    KeyDown(SDLK_ESCAPE);
  });
}

TEST_P(FormDialogFolder, PickerGivesTheFolderItStandsIn) {
  EXPECT_EQ(PickFrom(tree_.one(), [] { ClickAt(kPickerUseButton); }), tree_.one());
  EXPECT_EQ(PickFrom(tree_.one(),
                     [] {
                       KeyDown(SDLK_RETURN);  // One folder up.
                       ClickAt(kPickerUseButton);
                     }),
            tree_.outer());
}

TEST_P(FormDialogFolder, AcceptReplacesTheFolderAndThePathFollows) {
  DialogScript script;
  script.Step([] { ClickAt(form().choose_button); })
      .Wait()
      .Step([] {
        EXPECT_EQ(TitleOfNewestWindow(), form().picker_title);
        EXPECT_EQ(Recorder().windows().back().modal_for, Recorder().windows().front().window);
        KeyDown(SDLK_DOWN);
        KeyDown(SDLK_RETURN);
      })
      .Step([] { ClickAt(kPickerUseButton); })
      .Wait()
      .Step([this] {
        const Frame& frame = Recorder().last_frame();
        EXPECT_EQ(TitleOfNewestWindow(), form().title);
        EXPECT_TRUE(Recorder().alive().text_input);
        EXPECT_TRUE(frame.HasText(utils::ellipsize_left(tree_.two(), form().shown_folder_bytes)));
        EXPECT_TRUE(frame.HasText(tree_.two() + "/" + form().file_name));
        ClickAt(form().name_field);
        TextInput("2");
      })
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText(form().file_name + "2"));
        KeyDown(SDLK_RETURN);
      });
  const FormResult result = form().show(nullptr, tree_.one());
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.folder, tree_.two());
}

TEST_P(FormDialogFolder, CancelAndQuitInThePickerLeaveTheFolderAndTheDialogOpen) {
  for (const auto& way : WaysOut(kPickerCancelButton)) {
    DialogScript script;
    script.Step([] { ClickAt(form().folder_field); })
        .Wait()
        .Step([&way] {
          EXPECT_EQ(TitleOfNewestWindow(), form().picker_title);
          KeyDown(SDLK_RETURN);  // One folder up.
          way();
        })
        .Wait()
        .Step([this] {
          EXPECT_EQ(TitleOfNewestWindow(), form().title);
          EXPECT_TRUE(Recorder().alive().text_input);
          EXPECT_TRUE(Recorder().last_frame().HasText(tree_.two() + "/" + form().file_name));
          KeyDown(SDLK_RETURN);
        });
    EXPECT_EQ(form().show(nullptr, tree_.two()), form().Untouched(tree_.two()));
    FlushEvents();
  }
}

TEST_P(FormDialogFolder, OuterLoopIsPausedWhileThePickerRuns) {
  SDL_Renderer* outer = nullptr;
  DialogScript script;
  script
      .Step([&outer] {
        outer = Recorder().newest_renderer();
        ClickAt(form().choose_button);
      })
      .Wait(3)
      .Step([&outer] {
        for (const Frame& frame : Recorder().frames()) {
          EXPECT_NE(frame.renderer, outer);
        }
        EXPECT_GE(Recorder().presents(), 3);
        KeyDown(SDLK_ESCAPE);
      })
      .Wait()
      .Step([&outer] {
        EXPECT_EQ(Recorder().last_frame().renderer, outer);
        Quit();
      });
  EXPECT_EQ(form().show(nullptr, tree_.one()), form().Cancelled(tree_.one()));
}

TEST_P(FormDialogFolder, TypingInThePickerDoesNotReachTheFields) {
  DialogScript script;
  script.Step([] { ClickAt(form().choose_button); })
      .Wait()
      .Step([] {
        TextInput("999");
        KeyDown(SDLK_BACKSPACE);
      })
      .Step([] { KeyDown(SDLK_ESCAPE); })
      .Wait()
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText(form().file_name));
        KeyDown(SDLK_RETURN);
      });
  EXPECT_EQ(form().show(nullptr, tree_.one()), form().Untouched(tree_.one()));
}

TEST_P(FormDialogFolder, FailedPickerLeavesTheFolder) {
  DialogScript script;
  script
      .Step([] {
        Recorder().FailCall("SDL_CreateWindow");
        ClickAt(form().choose_button);
      })
      .Wait()
      .Step([] { KeyDown(SDLK_RETURN); });
  EXPECT_EQ(form().show(nullptr, tree_.one()), form().Untouched(tree_.one()));
}

TEST_P(FormDialogFolder, CancelledDialogForgetsWhatWasPicked) {
  DialogScript script;
  script.Step([] { ClickAt(form().choose_button); })
      .Wait()
      .Step([] { KeyDown(SDLK_RETURN); })
      .Step([] { ClickAt(kPickerUseButton); })
      .Wait()
      .Step([this] {
        EXPECT_TRUE(Recorder().last_frame().HasText(tree_.one() + "/" + form().file_name));
        KeyDown(SDLK_ESCAPE);
      });
  EXPECT_EQ(form().show(nullptr, tree_.two()), form().Cancelled(tree_.two()));
}

TEST_P(FormDialogFolder, ExceptionInThePickerLeavesNothingBehind) {
  SDL_Window* const parent = MakeParent();
  DialogScript script;
  script.Step([] { ClickAt(form().choose_button); }).Wait().Step([] {
    EXPECT_EQ(Recorder().alive().windows, 2U);
    EXPECT_TRUE(Recorder().alive().text_input);
    throw std::runtime_error("host");
  });
  EXPECT_THROW(form().show(parent, tree_.one()), std::runtime_error);
  frontend::gui::ShutdownSdlUiCachedFonts();
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow"}, parent), SizeIs(1));
}

}  // namespace
}  // namespace quindle::testing

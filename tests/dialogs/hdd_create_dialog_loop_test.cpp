// The HDD image dialog in its window: mouse, drawing, the loop. What its loop shares with the
// screenshot dialog's is in form_dialogs_test.cpp.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "dialogs/form_canvas.h"
#include "dialogs/form_checks.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "support/dialog_test.h"
#include "utils/string_utils.h"

namespace quindle::testing {
namespace {

using frontend::gui::BuildHddCreateDialogLayout;
using frontend::gui::DrawHddCreateDialogText;
using frontend::gui::HandleHddCreateDialogMouseButton;
using frontend::gui::HddCreateDialogLayout;
using frontend::gui::HddCreateDialogResult;
using frontend::gui::HddCreateDialogState;
using frontend::gui::RenderHddCreateDialog;
using frontend::gui::ShowSimpleHddCreateDialog;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr SDL_Point kSizeField{300, 90};
constexpr SDL_Point kNameField{300, 150};
constexpr SDL_Point kFolderField{300, 210};
constexpr SDL_Point kChooseButton{735, 210};
constexpr SDL_Point kCancelButton{675, 338};
constexpr SDL_Point kCreateButton{795, 338};
constexpr SDL_Point kNowhere{100, 300};

void ExpectCancelled(const HddCreateDialogResult& result, const std::string& folder = "/data",
                     unsigned int size_mb = 64) {
  EXPECT_FALSE(result.accepted);
  EXPECT_EQ(result.size_mb, size_mb);
  EXPECT_EQ(result.folder, folder);
  EXPECT_EQ(result.file_name, "disk.img");
}

// --- Mouse ---------------------------------------------------------------------------------------

class HddCreateDialogMouse : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    state_.folder_text = "/data";
    state_.name_text = "disk.img";
    state_.size_text = "64";
  }
  void Press(SDL_Point at) {
    HandleHddCreateDialogMouseButton(&state_, MakeParent(), ButtonAt(at), true);
  }
  void Release(SDL_Point at) {
    HandleHddCreateDialogMouseButton(&state_, MakeParent(), ButtonAt(at), false);
  }

  HddCreateDialogState state_;
};

TEST_F(HddCreateDialogMouse, PressInAFieldMovesTheFocusThere) {
  for (const SDL_Point at :
       {SDL_Point{250, 132}, SDL_Point{779, 132}, SDL_Point{250, 167}, SDL_Point{779, 167}}) {
    state_.focus = 0;
    Press(at);
    EXPECT_EQ(state_.focus, 1) << at.x << ',' << at.y;
  }
  for (const SDL_Point at :
       {SDL_Point{250, 72}, SDL_Point{459, 72}, SDL_Point{250, 107}, SDL_Point{459, 107}}) {
    state_.focus = 1;
    Press(at);
    EXPECT_EQ(state_.focus, 0) << at.x << ',' << at.y;
  }
}

TEST_F(HddCreateDialogMouse, PressElsewhereDoesNothing) {
  const std::vector<SDL_Point> around = {{249, 72},    {460, 72},     {250, 71},     {250, 108},
                                         {249, 132},   {780, 132},    {250, 131},    {250, 168},
                                         kFolderField, kChooseButton, kCancelButton, kCreateButton,
                                         kNowhere,     {-1, -1},      {100000, 90}};
  for (const SDL_Point at : around) {
    for (const int focus : {0, 1}) {
      state_.focus = focus;
      Press(at);
      EXPECT_EQ(state_.focus, focus) << at.x << ',' << at.y;
      EXPECT_FALSE(state_.done);
      EXPECT_FALSE(state_.accepted);
    }
  }
  EXPECT_EQ(Recorder().CallCount("SDL_CreateWindow"), 1);  // The parent of this test.
}

TEST_F(HddCreateDialogMouse, ReleaseOnAButtonActs) {
  const std::vector<SDL_Point> cancel = {{620, 318}, {729, 318}, {620, 357}, {729, 357}};
  const std::vector<SDL_Point> create = {{740, 318}, {849, 318}, {740, 357}, {849, 357}};
  for (const SDL_Point at : cancel) {
    state_.done = false;
    Release(at);
    EXPECT_TRUE(state_.done);
    EXPECT_FALSE(state_.accepted);
  }
  for (const SDL_Point at : create) {
    state_.done = state_.accepted = false;
    Release(at);
    EXPECT_TRUE(state_.done);
    EXPECT_TRUE(state_.accepted);
    EXPECT_EQ(state_.size_mb, 64U);
  }
}

TEST_F(HddCreateDialogMouse, ReleaseElsewhereDoesNothing) {
  const std::vector<SDL_Point> around = {{619, 318}, {730, 318}, {739, 318}, {850, 318}, {620, 317},
                                         {620, 358}, {740, 317}, {740, 358}, {689, 191}, {680, 210},
                                         {689, 210}, {780, 210}, {690, 191}, {690, 228}, {249, 210},
                                         {250, 191}, {250, 228}, kSizeField, kNameField, kNowhere};
  state_.focus = 1;
  for (const SDL_Point at : around) {
    Release(at);
    EXPECT_FALSE(state_.done) << at.x << ',' << at.y;
    EXPECT_FALSE(state_.accepted);
    EXPECT_EQ(state_.focus, 1);
  }
  EXPECT_EQ(Recorder().CallCount("SDL_CreateWindow"), 1);  // The parent of this test.
}

TEST_F(HddCreateDialogMouse, ReleaseOnFolderOrChooseOpensThePicker) {
  const std::vector<SDL_Point> hits = {{250, 192}, {679, 192}, {250, 227}, {679, 227},
                                       {690, 192}, {779, 192}, {690, 227}, {779, 227}};
  SDL_Window* const parent = MakeParent();
  for (const SDL_Point at : hits) {
    DialogScript script;
    script.Step([] { KeyDown(SDLK_ESCAPE); });
    Release(at);
    EXPECT_TRUE(script.IsFinished()) << at.x << ',' << at.y;
    EXPECT_EQ(Recorder().windows().back().title, "Select HDD Output Folder");
    EXPECT_EQ(Recorder().windows().back().modal_for, parent);
    EXPECT_EQ(state_.folder_text, "/data");
    FlushEvents();
  }
}

TEST_F(HddCreateDialogMouse, NullDoesNothing) {
  const HddCreateDialogState before = state_;
  for (const bool pressed : {true, false}) {
    for (const SDL_Point at : {kNameField, kCreateButton, kCancelButton, kChooseButton}) {
      HandleHddCreateDialogMouseButton(&state_, nullptr, ButtonAt(at), pressed);
      HandleHddCreateDialogMouseButton(nullptr, MakeParent(), ButtonAt(at), pressed);
    }
  }
  EXPECT_EQ(state_.focus, before.focus);
  EXPECT_FALSE(state_.done);
  EXPECT_FALSE(state_.accepted);
}

// --- Drawing -------------------------------------------------------------------------------------

class HddCreateDialogDrawing : public FormCanvas {
 protected:
  HddCreateDialogDrawing() : FormCanvas(860, 390) {}

  const Frame& Draw(const HddCreateDialogState& state) {
    Recorder().ForgetDraws();
    RenderHddCreateDialog(renderer(), state);
    return Recorder().unpresented();
  }
};

HddCreateDialogState SampleState() {
  HddCreateDialogState state;
  state.size_text = "64";
  state.folder_text = "/data";
  state.name_text = "c.img";
  return state;
}

TEST_F(HddCreateDialogDrawing, FrameIsDrawnInOrder) {
  const std::vector<std::string> expected = {
      "clear 20,23,27",
      "text 'Create new HDD image (.img)' at 20,16 in 232,236,240",
      "text 'Size (MB):' at 20,80 in 232,236,240",
      "text 'File name:' at 20,140 in 232,236,240",
      "text 'Folder:' at 20,200 in 232,236,240",
      "fill (250, 72, 210, 36) 46,52,60",
      "fill (250, 132, 530, 36) 46,52,60",
      "fill (250, 192, 430, 36) 46,52,60",
      "outline (250, 72, 210, 36) 80,86,96",
      "outline (250, 132, 530, 36) 80,86,96",
      "outline (250, 192, 430, 36) 80,86,96",
      "outline (250, 72, 210, 36) 160,176,210",
      "fill (690, 192, 90, 36) 56,64,74",
      "fill (620, 318, 110, 40) 56,64,74",
      "fill (740, 318, 110, 40) 56,64,74",
      "outline (690, 192, 90, 36) 95,104,116",
      "outline (620, 318, 110, 40) 95,104,116",
      "outline (740, 318, 110, 40) 95,104,116",
      "text '64' at 258,81 in 232,236,240",
      "text 'c.img' at 258,141 in 232,236,240",
      "text '/data' at 258,201 in 232,236,240",
      "text 'Choose' at 703,201 in 232,236,240",
      "text 'Cancel' at 643,329 in 232,236,240",
      "text 'Create' at 771,329 in 232,236,240",
      "text 'Will be saved as:' at 20,258 in 170,178,190",
      "text '/data/c.img' at 20,280 in 214,221,230",
  };
  EXPECT_THAT(DescribeFrame(Draw(SampleState())), ElementsAreArray(expected));
}

TEST_F(HddCreateDialogDrawing, FocusedFieldIsOutlinedAgain) {
  HddCreateDialogState state = SampleState();
  EXPECT_THAT(Draw(state).Outlines(kFocusedOutline), ElementsAre(SDL_Rect{250, 72, 210, 36}));
  state.focus = 1;
  EXPECT_THAT(Draw(state).Outlines(kFocusedOutline), ElementsAre(SDL_Rect{250, 132, 530, 36}));
  state.focus = 2;
  EXPECT_THAT(Draw(state).Outlines(kFocusedOutline), IsEmpty());
}

TEST_F(HddCreateDialogDrawing, EmptyTextsAreNotDrawnAndThePathHasItsDefaults) {
  HddCreateDialogState state;
  const Frame& frame = Draw(state);
  EXPECT_THAT(frame.Texts(), ElementsAre("Create new HDD image (.img)",
                                         "Size (MB):", "File name:", "Folder:", "Choose", "Cancel",
                                         "Create", "Will be saved as:", "./disk.img"));
}

TEST_F(HddCreateDialogDrawing, TextsUseTheCachedFontOf16Points) {
  ExpectTextsInTheFormFont(Draw(SampleState()));
}

TEST_F(HddCreateDialogDrawing, LongFolderShowsItsLast58BytesAndThePathItsLast95) {
  HddCreateDialogState state = SampleState();
  for (const std::size_t length : {std::size_t{58}, std::size_t{59}, std::size_t{900}}) {
    state.folder_text = "/" + std::string(length - 1, 'i');
    const Frame& frame = Draw(state);
    EXPECT_TRUE(frame.HasText(utils::ellipsize_left(state.folder_text, 58))) << length;
    EXPECT_TRUE(frame.HasText(utils::ellipsize_left(state.folder_text + "/c.img", 95))) << length;
  }
  EXPECT_TRUE(Draw(state).HasText("..." + std::string(55, 'i')));
  EXPECT_TRUE(Draw(state).HasText("..." + std::string(86, 'i') + "/c.img"));
  state.folder_text = "/" + std::string(88, 'i');  // A path of exactly 95 bytes.
  EXPECT_TRUE(Draw(state).HasText(state.folder_text + "/c.img"));
}

TEST_F(HddCreateDialogDrawing, WideTextsAreClippedToTheirFieldsAndShowTheirEnds) {
  HddCreateDialogState state = SampleState();
  state.size_text = std::string(40, '8');
  state.name_text = std::string(124, 'W') + ".img";
  state.folder_text = "/" + std::string(899, 'W');
  const Frame& frame = Draw(state);
  const std::string target = state.folder_text + "/" + state.name_text;
  ExpectEndShown(frame, state.size_text, 258, 452);
  ExpectEndShown(frame, state.name_text, 258, 772);
  ExpectEndShown(frame, utils::ellipsize_left(state.folder_text, 58), 258, 672);
  ExpectEndShown(frame, utils::ellipsize_left(target, 95), 20, 840);
}

TEST_F(HddCreateDialogDrawing, TextThatFitsIsNotMovedOrClipped) {
  HddCreateDialogState state = SampleState();
  state.name_text = std::string(30, 'W');
  const DrawCall* const name = Draw(state).FindText(state.name_text);
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(name->rect.x, 258);
  EXPECT_FALSE(name->clip);
}

TEST_F(HddCreateDialogDrawing, NoTextRunsOverAControl) {
  const HddCreateDialogLayout layout = BuildHddCreateDialogLayout();
  const std::vector<SDL_Rect> controls = {layout.size_field,    layout.name_field,
                                          layout.folder_field,  layout.choose_button,
                                          layout.cancel_button, layout.create_button};
  HddCreateDialogState state = SampleState();
  for (const std::size_t length : {1U, 40U, 58U, 128U, 900U}) {
    for (const char letter : {'i', 'W', '0'}) {
      state.size_text = std::string(std::min<std::size_t>(length, 10), '8');
      state.name_text = std::string(std::min<std::size_t>(length, 128), letter);
      state.folder_text = std::string(length, letter);
      ExpectTextsKeepClearOfControls(Draw(state), controls, SDL_Rect{0, 0, 860, 390});
    }
  }
}

TEST_F(HddCreateDialogDrawing, OwnTextsAreWholeInEverySystemFont) {
  const HddCreateDialogLayout layout = BuildHddCreateDialogLayout();
  InEachSystemFont([&] {
    const Frame& frame = Draw(SampleState());
    ExpectWholeTexts(frame, {"Create new HDD image (.img)", "Size (MB):", "File name:", "Folder:",
                             "Choose", "Cancel", "Create", "Will be saved as:"});
    ExpectTextsKeepClearOfControls(
        frame,
        {layout.size_field, layout.name_field, layout.folder_field, layout.choose_button,
         layout.cancel_button, layout.create_button},
        SDL_Rect{0, 0, 860, 390});
  });
}

TEST_F(HddCreateDialogDrawing, BytesThatAreNoTextAreStillDrawn) {
  HddCreateDialogState state = SampleState();
  state.folder_text = "/a\nb\xFF";
  EXPECT_TRUE(
      Draw(state).HasText("/a\xEF\xBF\xBD"
                          "b\xEF\xBF\xBD"));
}

TEST_F(HddCreateDialogDrawing, WithoutFontTheBoxesAreStillThere) {
  Recorder().HideAllFonts();
  const Frame& frame = Draw(SampleState());
  EXPECT_THAT(frame.Texts(), IsEmpty());
  EXPECT_THAT(frame.OfKind(DrawKind::Fill), SizeIs(6));
}

TEST_F(HddCreateDialogDrawing, NullDrawsNothing) {
  RenderHddCreateDialog(nullptr, SampleState());
  ExpectTextIsDrawnAndNullIsNot(DrawHddCreateDialogText);
}

// --- Loop ----------------------------------------------------------------------------------------

class HddCreateDialogLoop : public DialogTest {
 protected:
  // Runs the dialog with one step that acts, after a frame to look at. Whatever decides, the rest
  // of the queue is taken with it.
  HddCreateDialogResult Run(const std::function<void()>& act) {
    DialogScript script;
    script.Wait().Step(act);
    const HddCreateDialogResult result = ShowSimpleHddCreateDialog(MakeParent(), "/data", 64);
    EXPECT_TRUE(script.IsFinished());
    EXPECT_THAT(EventsLeftBehind(), IsEmpty());
    FlushEvents();
    return result;
  }
};

TEST_F(HddCreateDialogLoop, EmptyFolderAndSizeZeroHaveDefaults) {
  DialogScript script;
  script.Wait().Step([] {
    const Frame& frame = Recorder().last_frame();
    EXPECT_TRUE(frame.HasText("10"));
    EXPECT_TRUE(frame.HasText("disk.img"));
    EXPECT_TRUE(frame.HasText("."));
    EXPECT_TRUE(frame.HasText("./disk.img"));
    EXPECT_THAT(frame.Outlines(kFocusedOutline), ElementsAre(SDL_Rect{250, 72, 210, 36}));
    KeyDown(SDLK_RETURN);
  });
  const HddCreateDialogResult result = ShowSimpleHddCreateDialog(nullptr, "", 0);
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.size_mb, 10U);
  EXPECT_EQ(result.folder, ".");
  EXPECT_EQ(result.file_name, "disk.img");
}

TEST_F(HddCreateDialogLoop, GreatestSizeIsShownInDecimal) {
  DialogScript script;
  script.Wait().Step([] {
    EXPECT_TRUE(Recorder().last_frame().HasText("4294967295"));
    KeyDown(SDLK_RETURN);
  });
  EXPECT_EQ(ShowSimpleHddCreateDialog(nullptr, "", 4294967295U).size_mb, 4294967295U);
}

TEST_F(HddCreateDialogLoop, TypedTextsAreShownAndReturned) {
  DialogScript script;
  script
      .Step([] {
        KeyDown(SDLK_BACKSPACE);
        KeyDown(SDLK_BACKSPACE);
        TextInput("5a12");
        KeyDown(SDLK_TAB);
        for (int i = 0; i < 8; ++i) {
          KeyDown(SDLK_BACKSPACE);
        }
        TextInput("my/disk");
      })
      .Step([] {
        const Frame& frame = Recorder().last_frame();
        EXPECT_TRUE(frame.HasText("512"));
        EXPECT_TRUE(frame.HasText("mydisk"));
        EXPECT_TRUE(frame.HasText("/data/mydisk"));
        EXPECT_THAT(frame.Outlines(kFocusedOutline), ElementsAre(SDL_Rect{250, 132, 530, 36}));
        KeyDown(SDLK_KP_ENTER);
      });
  const HddCreateDialogResult result = ShowSimpleHddCreateDialog(nullptr, "/data", 64);
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.size_mb, 512U);
  EXPECT_EQ(result.file_name, "mydisk");
}

TEST_F(HddCreateDialogLoop, EveryWayOutCancelsWhateverWasTyped) {
  for (const auto& way : WaysOut(kCancelButton)) {
    ExpectCancelled(Run([&way] {
      TextInput("99");
      KeyDown(SDLK_TAB);
      TextInput("xx");
      way();
    }));
  }
}

TEST_F(HddCreateDialogLoop, DecidingFrameIsDrawnPresentedAndPausedAfter) {
  Run([] {
    TextInput("5");
    KeyDown(SDLK_RETURN);
  });
  EXPECT_EQ(Recorder().presents(), 2);
  EXPECT_TRUE(Recorder().last_frame().HasText("645"));
  EXPECT_THAT(Recorder().delays(), SizeIs(2));
}

TEST_F(HddCreateDialogLoop, EventsOfOtherWindowsCountUnlessTheyAreWindowEvents) {
  const Uint32 parent = SDL_GetWindowID(MakeParent());
  const HddCreateDialogResult result = Run([parent] {
    CloseWindow(parent);
    WindowEvent(WindowId(), SDL_WINDOWEVENT_RESIZED);
    TextInput("5", parent);
    MouseDown(kNameField.x, kNameField.y, SDL_BUTTON_LEFT, 1, parent);
    TextInput("x", parent);
    KeyDown(SDLK_RETURN, parent);
  });
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.size_mb, 645U);
  EXPECT_EQ(result.file_name, "disk.imgx");
  const HddCreateDialogResult clicked =
      Run([parent] { MouseUp(kCreateButton.x, kCreateButton.y, SDL_BUTTON_LEFT, 1, parent); });
  EXPECT_TRUE(clicked.accepted);
}

TEST_F(HddCreateDialogLoop, OtherButtonsAndEventsAreIgnored) {
  const HddCreateDialogResult result = Run([] {
    for (const Uint8 button :
         std::vector<Uint8>{SDL_BUTTON_RIGHT, SDL_BUTTON_MIDDLE, SDL_BUTTON_X1}) {
      Click(kNameField.x, kNameField.y, button);
      Click(kCancelButton.x, kCancelButton.y, button);
      Click(kCreateButton.x, kCreateButton.y, button);
      Click(kChooseButton.x, kChooseButton.y, button);
    }
    KeyUp(SDLK_ESCAPE);
    KeyUp(SDLK_RETURN);
    Wheel(1);
    Motion(kCancelButton.x, kCancelButton.y);
    TextInput("1");
    KeyDown(SDLK_RETURN);
  });
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.size_mb, 641U);
}

TEST_F(HddCreateDialogLoop, PressElsewhereReleaseOnCreateCommits) {
  EXPECT_TRUE(Run([] {
                MouseDown(kNameField.x, kNameField.y);
                MouseUp(kCreateButton.x, kCreateButton.y);
              }).accepted);
}

TEST_F(HddCreateDialogLoop, PressOnCreateReleaseElsewhereDoesNothing) {
  ExpectCancelled(Run([] {
    MouseDown(kCreateButton.x, kCreateButton.y);
    MouseUp(kNowhere.x, kNowhere.y);
    Quit();
  }));
}

TEST_F(HddCreateDialogLoop, WorksWithoutAFont) {
  Recorder().HideAllFonts();
  const HddCreateDialogResult result = Run([] {
    TextInput("1");
    ClickAt(kCreateButton);
  });
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.size_mb, 641U);
}

TEST_F(HddCreateDialogLoop, WithoutAWindowTheStartValuesComeBack) {
  SDL_Window* const parent = MakeParent();
  for (const char* const function : {"SDL_CreateWindow", "SDL_CreateRenderer"}) {
    Recorder().Reset();
    Recorder().FailAlways(function);
    ExpectCancelled(ShowSimpleHddCreateDialog(parent, "/data", 64));
    ExpectCancelled(ShowSimpleHddCreateDialog(parent, "", 0), ".", 10);
  }
}

TEST_F(HddCreateDialogLoop, FocusIsStillThereAfterThePicker) {
  const FolderTree tree;
  DialogScript script;
  script.Step([] { ClickAt(kChooseButton); })
      .Wait()
      .Step([] { ClickAt(kPickerUseButton); })
      .Wait()
      .Step([] {
        TextInput("5");
        KeyDown(SDLK_RETURN);
      });
  const HddCreateDialogResult result = ShowSimpleHddCreateDialog(nullptr, tree.one(), 64);
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.size_mb, 645U);
}

}  // namespace
}  // namespace quindle::testing

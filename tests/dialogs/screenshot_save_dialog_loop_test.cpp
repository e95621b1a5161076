// The screenshot dialog in its window: mouse, drawing, the loop. What its loop shares with the HDD
// image dialog's is in form_dialogs_test.cpp.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "dialogs/form_canvas.h"
#include "dialogs/form_checks.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

using frontend::gui::BuildScreenshotSaveDialogLayout;
using frontend::gui::DrawScreenshotDialogText;
using frontend::gui::EllipsizeLeft;
using frontend::gui::EnsureScreenshotDialogFont;
using frontend::gui::FormatLabel;
using frontend::gui::FormatValueLabel;
using frontend::gui::HandleScreenshotSaveDialogMouseButton;
using frontend::gui::RenderScreenshotSaveDialog;
using frontend::gui::ScreenshotSaveDialogLayout;
using frontend::gui::ScreenshotSaveDialogResult;
using frontend::gui::ScreenshotSaveDialogSession;
using frontend::gui::ScreenshotSaveDialogState;
using frontend::gui::ScreenshotSaveFormat;
using frontend::gui::ShowScreenshotSaveDialog;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::SizeIs;

constexpr ScreenshotSaveFormat kPng = ScreenshotSaveFormat::Png;
constexpr ScreenshotSaveFormat kJpeg = ScreenshotSaveFormat::Jpeg;
constexpr ScreenshotSaveFormat kBmp = ScreenshotSaveFormat::Bmp;
constexpr auto kUnknown = static_cast<ScreenshotSaveFormat>(9);

constexpr SDL_Color kListFill{28, 32, 38, 255};
constexpr SDL_Color kSelectedRow{52, 66, 90, 255};
constexpr SDL_Color kCheckMark{106, 166, 255, 255};

// Points in a window of 900 x 410.
constexpr SDL_Point kNameField{300, 100};
constexpr SDL_Point kFolderField{300, 160};
constexpr SDL_Point kChooseButton{800, 160};
constexpr SDL_Point kFormatBox{300, 230};
constexpr SDL_Point kOptionField{300, 300};
constexpr SDL_Point kCheckBox{260, 295};
constexpr SDL_Point kListRows[] = {{300, 260}, {300, 295}, {300, 330}};
constexpr SDL_Point kCancelButton{700, 370};
constexpr SDL_Point kSaveButton{820, 370};
constexpr SDL_Point kNowhere{600, 270};

// --- Mouse ---------------------------------------------------------------------------------------

class ScreenshotSaveDialogMouse : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    window_.reset(SDL_CreateWindow("Form", 0, 0, 900, 410, SDL_WINDOW_HIDDEN));
    state_.folder_text = "/shots";
    state_.file_name_text = "shot.png";
  }
  void TearDown() override {
    window_.reset();
    DialogTest::TearDown();
  }
  void Press(SDL_Point at) {
    HandleScreenshotSaveDialogMouseButton(&state_, window_.get(), ButtonAt(at), true);
  }
  void Release(SDL_Point at) {
    HandleScreenshotSaveDialogMouseButton(&state_, window_.get(), ButtonAt(at), false);
  }
  void ClickOn(SDL_Point at) {
    Press(at);
    Release(at);
  }

  frontend::gui::OwnedSdlWindow window_;
  ScreenshotSaveDialogState state_;
};

TEST_F(ScreenshotSaveDialogMouse, PressChoosesTheFocus) {
  struct Case {
    ScreenshotSaveFormat format;
    SDL_Point at;
    int focus;
  };
  const std::vector<Case> cases = {
      {kPng, {250, 82}, 0},     {kPng, {869, 119}, 0},     {kPng, {249, 82}, 3},
      {kPng, {870, 82}, 3},     {kPng, {250, 81}, 3},      {kPng, {250, 120}, 3},
      {kPng, {250, 280}, 2},    {kPng, {409, 317}, 2},     {kPng, {249, 280}, 3},
      {kPng, {410, 280}, 3},    {kPng, {250, 279}, 3},     {kPng, {250, 318}, 3},
      {kJpeg, {250, 280}, 1},   {kJpeg, {409, 317}, 1},    {kJpeg, {410, 280}, 3},
      {kJpeg, {250, 82}, 0},    {kBmp, {250, 82}, 0},      {kBmp, kOptionField, 3},
      {kBmp, kCheckBox, 3},     {kUnknown, {250, 280}, 2}, {kPng, kFolderField, 3},
      {kPng, kChooseButton, 3}, {kPng, kFormatBox, 3},     {kPng, kCancelButton, 3},
      {kPng, kSaveButton, 3},   {kPng, kNowhere, 3},       {kPng, {-1, -1}, 3},
  };
  for (const Case& c : cases) {
    for (const int before : {0, 1, 2, 3}) {
      state_.format = c.format;
      state_.focus = before;
      Press(c.at);
      EXPECT_EQ(state_.focus, c.focus) << c.at.x << ',' << c.at.y;
      EXPECT_FALSE(state_.done);
    }
  }
}

TEST_F(ScreenshotSaveDialogMouse, PressOutsideBoxAndListClosesTheList) {
  const std::vector<SDL_Point> keeps = {{250, 214},   {469, 251},   {250, 252},
                                        {469, 353},   kListRows[0], kListRows[1],
                                        kListRows[2], kFormatBox,   kOptionField};
  const std::vector<SDL_Point> closes = {{249, 214},    {470, 251},  {250, 213},   {470, 252},
                                         {250, 354},    kNameField,  kFolderField, kChooseButton,
                                         kCancelButton, kSaveButton, kNowhere};
  for (const SDL_Point at : keeps) {
    state_.format_list_open = true;
    Press(at);
    EXPECT_TRUE(state_.format_list_open) << at.x << ',' << at.y;
  }
  for (const SDL_Point at : closes) {
    state_.format_list_open = true;
    Press(at);
    EXPECT_FALSE(state_.format_list_open) << at.x << ',' << at.y;
  }
  // A list that is not open stays closed.
  for (const SDL_Point at : keeps) {
    state_.format_list_open = false;
    Press(at);
    EXPECT_FALSE(state_.format_list_open);
  }
}

TEST_F(ScreenshotSaveDialogMouse, ReleaseOnARowSelectsTheFormat) {
  struct Case {
    int y;
    ScreenshotSaveFormat format;
    const char* name;
    int focus;
  };
  constexpr Case kCases[] = {{252, kPng, "shot.png", 2},  {285, kPng, "shot.png", 2},
                             {286, kJpeg, "shot.jpg", 1}, {319, kJpeg, "shot.jpg", 1},
                             {320, kBmp, "shot.bmp", 3},  {353, kBmp, "shot.bmp", 3}};
  for (const Case& c : kCases) {
    for (const int x : {250, 469}) {
      state_.format = c.format == kPng ? kBmp : kPng;
      state_.file_name_text = "shot.old";
      state_.focus = 0;
      state_.format_list_open = true;
      state_.result.bmp_rle = true;
      Release({x, c.y});
      EXPECT_EQ(state_.format, c.format) << c.y;
      EXPECT_EQ(state_.file_name_text, c.name);
      EXPECT_EQ(state_.focus, c.focus);
      EXPECT_FALSE(state_.format_list_open);
      EXPECT_TRUE(state_.result.bmp_rle);
      EXPECT_EQ(state_.result.format, kPng);  // Until the commit.
    }
  }
}

TEST_F(ScreenshotSaveDialogMouse, OpenListCoversTheCheckBox) {
  state_.format = kBmp;
  state_.format_list_open = true;
  Release(kCheckBox);
  EXPECT_TRUE(state_.result.bmp_rle);
  EXPECT_EQ(state_.format, kJpeg);
}

TEST_F(ScreenshotSaveDialogMouse, ReleaseOutsideTheOpenListActsBelow) {
  // Pressed inside the list and dragged out: no press has closed it.
  state_.format_list_open = true;
  Release(kNowhere);
  EXPECT_TRUE(state_.format_list_open);
  Release({470, 300});
  EXPECT_TRUE(state_.format_list_open);
  Release(kFormatBox);
  EXPECT_FALSE(state_.format_list_open);
  state_.format_list_open = true;
  Release(kSaveButton);
  EXPECT_TRUE(state_.done);
  EXPECT_TRUE(state_.result.accepted);
}

TEST_F(ScreenshotSaveDialogMouse, ClickOnSaveWithTheListOpenClosesItAndSaves) {
  state_.format_list_open = true;
  Press(kSaveButton);
  EXPECT_FALSE(state_.format_list_open);
  EXPECT_FALSE(state_.done);
  Release(kSaveButton);
  EXPECT_TRUE(state_.result.accepted);
}

TEST_F(ScreenshotSaveDialogMouse, BoxOpensAndClosesTheListAndTakesTheFocusAway) {
  for (const SDL_Point at :
       {SDL_Point{250, 214}, SDL_Point{469, 214}, SDL_Point{250, 251}, SDL_Point{469, 251}}) {
    state_.focus = 0;
    ClickOn(at);
    EXPECT_TRUE(state_.format_list_open);
    EXPECT_EQ(state_.focus, 3);
    state_.focus = 2;
    Release(at);
    EXPECT_FALSE(state_.format_list_open);
    EXPECT_EQ(state_.focus, 3);
  }
  Release({249, 230});
  Release({470, 230});
  Release({300, 213});
  EXPECT_FALSE(state_.format_list_open);
}

TEST_F(ScreenshotSaveDialogMouse, CheckBoxTogglesOnlyForBmp) {
  for (const SDL_Point at :
       {SDL_Point{250, 286}, SDL_Point{271, 286}, SDL_Point{250, 307}, SDL_Point{271, 307}}) {
    state_.format = kBmp;
    state_.result.bmp_rle = true;
    ClickOn(at);
    EXPECT_FALSE(state_.result.bmp_rle);
    ClickOn(at);
    EXPECT_TRUE(state_.result.bmp_rle);
    for (const ScreenshotSaveFormat format : {kPng, kJpeg, kUnknown}) {
      state_.format = format;
      ClickOn(at);
      EXPECT_TRUE(state_.result.bmp_rle);
    }
  }
  state_.format = kBmp;
  for (const SDL_Point at :
       {SDL_Point{249, 290}, SDL_Point{272, 290}, SDL_Point{260, 285}, SDL_Point{260, 308}}) {
    ClickOn(at);
    EXPECT_TRUE(state_.result.bmp_rle);
  }
}

TEST_F(ScreenshotSaveDialogMouse, ButtonsActOnRelease) {
  for (const SDL_Point at :
       {SDL_Point{650, 352}, SDL_Point{749, 352}, SDL_Point{650, 389}, SDL_Point{749, 389}}) {
    state_.done = false;
    Press(at);
    EXPECT_FALSE(state_.done);
    Release(at);
    EXPECT_TRUE(state_.done);
    EXPECT_FALSE(state_.result.accepted);
  }
  for (const SDL_Point at :
       {SDL_Point{770, 352}, SDL_Point{869, 352}, SDL_Point{770, 389}, SDL_Point{869, 389}}) {
    state_.done = state_.result.accepted = false;
    Press(at);
    EXPECT_FALSE(state_.done);
    Release(at);
    EXPECT_TRUE(state_.done);
    EXPECT_TRUE(state_.result.accepted);
  }
}

TEST_F(ScreenshotSaveDialogMouse, ReleaseElsewhereDoesNothing) {
  for (const SDL_Point at :
       {SDL_Point{649, 370}, SDL_Point{750, 370}, SDL_Point{769, 370}, SDL_Point{870, 370},
        SDL_Point{700, 351}, SDL_Point{700, 390}, SDL_Point{820, 351}, SDL_Point{820, 390},
        SDL_Point{249, 160}, SDL_Point{760, 160}, SDL_Point{769, 160}, SDL_Point{870, 160},
        SDL_Point{300, 147}, SDL_Point{300, 186}, SDL_Point{800, 147}, SDL_Point{800, 186},
        kNameField, kOptionField, kNowhere}) {
    state_.focus = 0;
    Release(at);
    EXPECT_FALSE(state_.done) << at.x << ',' << at.y;
    EXPECT_EQ(state_.focus, 0);
    EXPECT_FALSE(state_.format_list_open);
  }
  EXPECT_EQ(Recorder().CallCount("SDL_CreateWindow"), 1);  // This test's own.
}

TEST_F(ScreenshotSaveDialogMouse, FolderAndChooseOpenThePickerAndCloseTheList) {
  for (const SDL_Point at :
       {SDL_Point{250, 148}, SDL_Point{759, 148}, SDL_Point{250, 185}, SDL_Point{759, 185},
        SDL_Point{770, 148}, SDL_Point{869, 148}, SDL_Point{770, 185}, SDL_Point{869, 185}}) {
    DialogScript script;
    script.Step([] { KeyDown(SDLK_ESCAPE); });
    state_.format_list_open = true;
    Release(at);
    EXPECT_TRUE(script.IsFinished()) << at.x << ',' << at.y;
    EXPECT_EQ(Recorder().windows().back().title, "Select Screenshot Output Folder");
    EXPECT_EQ(Recorder().windows().back().modal_for, window_.get());
    EXPECT_FALSE(state_.format_list_open);
    EXPECT_EQ(state_.folder_text, "/shots");
    FlushEvents();
  }
}

TEST_F(ScreenshotSaveDialogMouse, RectanglesFollowTheWindowSize) {
  SDL_SetWindowSize(window_.get(), 1200, 700);
  Release(kSaveButton);
  EXPECT_FALSE(state_.done);
  Press({1169, 100});
  EXPECT_EQ(state_.focus, 0);
  Release({1100, 660});
  EXPECT_TRUE(state_.result.accepted);
}

TEST_F(ScreenshotSaveDialogMouse, NullDoesNothing) {
  state_.format = kBmp;
  state_.focus = 1;
  state_.format_list_open = true;
  for (const bool pressed : {true, false}) {
    for (const SDL_Point at : {kNameField, kListRows[0], kFormatBox, kSaveButton, kCancelButton,
                               kChooseButton, kNowhere}) {
      HandleScreenshotSaveDialogMouseButton(&state_, nullptr, ButtonAt(at), pressed);
      HandleScreenshotSaveDialogMouseButton(nullptr, window_.get(), ButtonAt(at), pressed);
    }
  }
  EXPECT_EQ(state_.focus, 1);
  EXPECT_EQ(state_.format, kBmp);
  EXPECT_TRUE(state_.format_list_open);
  EXPECT_FALSE(state_.done);
}

// --- Drawing -------------------------------------------------------------------------------------

class ScreenshotSaveDialogDrawing : public FormCanvas {
 protected:
  ScreenshotSaveDialogDrawing() : FormCanvas(900, 410) {}

  ScreenshotSaveDialogSession Session(ScreenshotSaveFormat format, int focus = 3) {
    return {renderer(), "/shots", "shot.old", format, "80", focus, false, true};
  }
  const Frame& Draw(const ScreenshotSaveDialogSession& session, int w = 900, int h = 410) {
    Recorder().ForgetDraws();
    RenderScreenshotSaveDialog(session, BuildScreenshotSaveDialogLayout(w, h));
    return Recorder().unpresented();
  }
};

TEST_F(ScreenshotSaveDialogDrawing, FrameIsDrawnInOrder) {
  const std::vector<std::string> expected = {
      "clear 20,23,27",
      "fill (0, 0, 900, 56) 32,36,42",
      "text 'Save screenshot' at 18,14 in 232,236,240",
      "text 'Export current guest output as PNG, JPEG or BMP' at 18,34 in 170,178,190",
      "text 'File name:' at 20,92 in 232,236,240",
      "text 'Folder:' at 20,158 in 232,236,240",
      "text 'Format:' at 20,224 in 232,236,240",
      "text 'JPEG quality (1-100):' at 20,290 in 232,236,240",
      "fill (250, 82, 620, 38) 46,52,60",
      "outline (250, 82, 620, 38) 80,86,96",
      "fill (250, 148, 510, 38) 46,52,60",
      "outline (250, 148, 510, 38) 80,86,96",
      "fill (250, 214, 220, 38) 46,52,60",
      "outline (250, 214, 220, 38) 80,86,96",
      "fill (250, 280, 160, 38) 46,52,60",
      "outline (250, 280, 160, 38) 80,86,96",
      "fill (770, 148, 100, 38) 56,64,74",
      "outline (770, 148, 100, 38) 95,104,116",
      "fill (650, 352, 100, 38) 56,64,74",
      "outline (650, 352, 100, 38) 95,104,116",
      "fill (770, 352, 100, 38) 56,64,74",
      "outline (770, 352, 100, 38) 95,104,116",
      "text 'shot.old' at 258,92 in 232,236,240",
      "text '/shots' at 258,158 in 232,236,240",
      "text 'JPEG (*.jpg)' at 258,224 in 232,236,240",
      "text 'v' at 452,224 in 232,236,240",
      "text 'Choose' at 787,158 in 232,236,240",
      "text 'Cancel' at 672,362 in 232,236,240",
      "text 'Save' at 801,362 in 232,236,240",
      "text '80' at 258,290 in 232,236,240",
      "text 'Will be saved as:' at 20,326 in 170,178,190",
      "text '/shots/shot.jpg' at 20,346 in 232,236,240",
  };
  EXPECT_THAT(DescribeFrame(Draw(Session(kJpeg))), ElementsAreArray(expected));
}

TEST_F(ScreenshotSaveDialogDrawing, PngShowsItsOption) {
  for (const ScreenshotSaveFormat format : {kPng, kUnknown}) {
    const Frame& frame = Draw(Session(format));
    EXPECT_TRUE(frame.HasText("PNG compression (0-9):"));
    EXPECT_TRUE(frame.HasText("PNG (*.png)"));
    EXPECT_TRUE(frame.HasText("80"));
    EXPECT_TRUE(frame.HasText("/shots/shot.png"));
  }
}

TEST_F(ScreenshotSaveDialogDrawing, BmpShowsTheCheckBoxInPlaceOfTheField) {
  ScreenshotSaveDialogSession session = Session(kBmp);
  const Frame ticked = Draw(session);
  session.bmp_rle = false;
  const Frame empty = Draw(session);
  for (const Frame& frame : {ticked, empty}) {
    EXPECT_TRUE(frame.HasText("BMP options:"));
    EXPECT_TRUE(frame.HasText("BMP (*.bmp)"));
    EXPECT_FALSE(frame.HasText("80"));
    EXPECT_TRUE(frame.HasText("/shots/shot.bmp"));
    const DrawCall* const caption = frame.FindText("Use RLE if possible (indexed BMP paths)");
    ASSERT_NE(caption, nullptr);
    EXPECT_EQ(DescribeDraw(*caption),
              "text 'Use RLE if possible (indexed BMP paths)' at 284,288 in 232,236,240");
    EXPECT_THAT(frame.Fills({46, 52, 60, 255}),
                ElementsAre(SDL_Rect{250, 82, 620, 38}, SDL_Rect{250, 148, 510, 38},
                            SDL_Rect{250, 214, 220, 38}, SDL_Rect{250, 286, 22, 22}));
    EXPECT_EQ(frame.Outlines({80, 86, 96, 255}).back(), (SDL_Rect{250, 286, 22, 22}));
  }
  EXPECT_THAT(ticked.Fills(kCheckMark), ElementsAre(SDL_Rect{255, 291, 12, 12}));
  EXPECT_THAT(empty.Fills(kCheckMark), IsEmpty());
}

TEST_F(ScreenshotSaveDialogDrawing, CheckMarkIsDrawnForBmpAlone) {
  EXPECT_THAT(Draw(Session(kPng)).Fills(kCheckMark), IsEmpty());
  EXPECT_THAT(Draw(Session(kJpeg)).Fills(kCheckMark), IsEmpty());
}

TEST_F(ScreenshotSaveDialogDrawing, FocusedFieldHasItsOwnOutline) {
  struct Case {
    ScreenshotSaveFormat format;
    int focus;
    std::vector<SDL_Rect> outlined;
  };
  const SDL_Rect name{250, 82, 620, 38};
  const SDL_Rect option{250, 280, 160, 38};
  const std::vector<Case> cases = {{kPng, 0, {name}},      {kPng, 1, {}},      {kPng, 2, {option}},
                                   {kPng, 3, {}},          {kJpeg, 0, {name}}, {kJpeg, 1, {option}},
                                   {kJpeg, 2, {}},         {kJpeg, 3, {}},     {kBmp, 0, {name}},
                                   {kBmp, 1, {}},          {kBmp, 2, {}},      {kBmp, 3, {}},
                                   {kUnknown, 2, {option}}};
  for (const Case& c : cases) {
    EXPECT_THAT(Draw(Session(c.format, c.focus)).Outlines(kFocusedOutline),
                ElementsAreArray(c.outlined))
        << static_cast<int>(c.format) << ' ' << c.focus;
  }
}

TEST_F(ScreenshotSaveDialogDrawing, OpenListIsDrawnLastOverEverything) {
  const std::vector<std::string> expected = {
      "fill (250, 252, 220, 102) 28,32,38",
      "outline (250, 252, 220, 102) 95,104,116",
      "text 'PNG (*.png)' at 259,262 in 232,236,240",
      "fill (251, 287, 218, 33) 52,66,90",
      "text 'JPEG (*.jpg)' at 259,296 in 232,236,240",
      "text 'BMP (*.bmp)' at 259,330 in 232,236,240",
  };
  const std::size_t closed_draws = Draw(Session(kJpeg)).draws.size();
  ScreenshotSaveDialogSession session = Session(kJpeg);
  session.format_list_open = true;
  const std::vector<std::string> lines = DescribeFrame(Draw(session));
  ASSERT_EQ(lines.size(), closed_draws + expected.size());
  EXPECT_THAT(
      std::vector<std::string>(lines.begin() + static_cast<long>(closed_draws), lines.end()),
      ElementsAreArray(expected));
  EXPECT_THAT(lines, ::testing::Contains("text '^' at 452,224 in 232,236,240"));
}

TEST_F(ScreenshotSaveDialogDrawing, SelectedRowFollowsTheFormat) {
  struct Case {
    ScreenshotSaveFormat format;
    int y;
  };
  constexpr Case kCases[] = {{kPng, 253}, {kJpeg, 287}, {kBmp, 321}, {kUnknown, 253}};
  for (const Case& c : kCases) {
    ScreenshotSaveDialogSession session = Session(c.format);
    session.format_list_open = true;
    EXPECT_THAT(Draw(session).Fills(kSelectedRow), ElementsAre(SDL_Rect{251, c.y, 218, 33}));
  }
}

TEST_F(ScreenshotSaveDialogDrawing, EmptyFolderShowsTheWorkingDirectoryInThePath) {
  const ScopedEmptyWorkingDirectory directory;
  ScreenshotSaveDialogSession session = Session(kPng);
  session.folder_text = "";
  session.file_name_text = "";
  Recorder().RedirectFont("./data/ttf/IBMPlexSans-SemiBold.ttf",
                          (SourceDirectory() / "data/ttf/IBMPlexSans-SemiBold.ttf").string());
  EXPECT_TRUE(Draw(session).HasText((directory.path() / "quindle_capture.png").string()));
}

TEST_F(ScreenshotSaveDialogDrawing, LongFolderShowsItsLast70BytesAndThePathItsLast100) {
  ScreenshotSaveDialogSession session = Session(kPng);
  for (const std::size_t length : {std::size_t{70}, std::size_t{71}, std::size_t{900}}) {
    const std::string folder = "/" + std::string(length - 1, 'i');
    session.folder_text = folder;
    const Frame& frame = Draw(session);
    EXPECT_TRUE(frame.HasText(EllipsizeLeft(folder, 70))) << length;
    EXPECT_TRUE(frame.HasText(EllipsizeLeft(folder + "/shot.png", 100))) << length;
  }
  const std::string long_folder = "/" + std::string(899, 'i');
  session.folder_text = long_folder;
  EXPECT_TRUE(Draw(session).HasText("..." + std::string(67, 'i')));
  EXPECT_TRUE(Draw(session).HasText("..." + std::string(88, 'i') + "/shot.png"));
  const std::string folder = "/" + std::string(90, 'i');  // A path of exactly 100 bytes.
  session.folder_text = folder;
  EXPECT_TRUE(Draw(session).HasText(folder + "/shot.png"));
}

TEST_F(ScreenshotSaveDialogDrawing, WideTextsAreClippedAndShowTheirEnds) {
  ScreenshotSaveDialogSession session = Session(kPng);
  const std::string folder = "/" + std::string(899, 'W');
  const std::string name = std::string(176, 'W') + ".png";
  const std::string option(60, '8');
  session.folder_text = folder;
  session.file_name_text = name;
  session.option_text = option;
  for (const int w : {900, 1100}) {
    const Frame& frame = Draw(session, w);
    ExpectEndShown(frame, name, 258, w - 38);
    ExpectEndShown(frame, EllipsizeLeft(folder, 70), 258, w - 148);
    ExpectEndShown(frame, option, 258, 402);
    ExpectEndShown(frame, EllipsizeLeft(folder + "/" + name, 100), 20, w - 262);
  }
}

TEST_F(ScreenshotSaveDialogDrawing, NoTextRunsOverAControl) {
  for (const ScreenshotSaveFormat format : {kPng, kJpeg, kBmp}) {
    const ScreenshotSaveDialogLayout layout = BuildScreenshotSaveDialogLayout(900, 410);
    const std::vector<SDL_Rect> controls = {
        layout.file_name_field,
        layout.folder_field,
        layout.choose_button,
        layout.format_box,
        layout.cancel_button,
        layout.save_button,
        format == kBmp ? layout.rle_checkbox : layout.option_field};
    for (const std::size_t length : {1U, 50U, 70U, 128U, 180U, 900U}) {
      for (const char letter : {'i', 'W', '0'}) {
        ScreenshotSaveDialogSession session = Session(format);
        const std::string folder(length, letter);
        const std::string name(std::min<std::size_t>(length, 180), letter);
        session.folder_text = folder;
        session.file_name_text = name;
        ExpectTextsKeepClearOfControls(Draw(session), controls, SDL_Rect{0, 0, 900, 410});
      }
    }
  }
}

TEST_F(ScreenshotSaveDialogDrawing, OwnTextsAreWholeInEverySystemFont) {
  const ScreenshotSaveDialogLayout layout = BuildScreenshotSaveDialogLayout(900, 410);
  const std::vector<SDL_Rect> boxes = {layout.file_name_field, layout.folder_field,
                                       layout.choose_button,   layout.format_box,
                                       layout.cancel_button,   layout.save_button};
  InEachSystemFont([&] {
    for (const ScreenshotSaveFormat format : {kPng, kJpeg, kBmp}) {
      const Frame& frame = Draw(Session(format));
      ExpectWholeTexts(
          frame, {"Save screenshot", "Export current guest output as PNG, JPEG or BMP",
                  "File name:", "Folder:", "Format:", FormatValueLabel(format), FormatLabel(format),
                  "v", "Choose", "Cancel", "Save", "Will be saved as:"});
      std::vector<SDL_Rect> controls = boxes;
      controls.push_back(format == kBmp ? layout.rle_checkbox : layout.option_field);
      ExpectTextsKeepClearOfControls(frame, controls, SDL_Rect{0, 0, 900, 410});
    }
    ExpectWholeTexts(Draw(Session(kBmp)), {"Use RLE if possible (indexed BMP paths)"});
  });
}

TEST_F(ScreenshotSaveDialogDrawing, OpenListShowsItsLabelsWholeInEverySystemFont) {
  ScreenshotSaveDialogSession session = Session(kPng);
  session.format_list_open = true;
  const SDL_Rect list = BuildScreenshotSaveDialogLayout(900, 410).format_list;
  InEachSystemFont([&] {
    const Frame& frame = Draw(session);
    for (const ScreenshotSaveFormat format : {kPng, kJpeg, kBmp}) {
      const DrawCall* row = nullptr;
      const std::vector<DrawCall> texts = frame.OfKind(DrawKind::Text);
      for (const DrawCall& text : texts) {
        row = text.text == FormatLabel(format) ? &text : row;  // The list is drawn last.
      }
      ASSERT_NE(row, nullptr);
      SDL_Rect common{0, 0, 0, 0};
      const SDL_Rect shown = VisiblePart(*row);
      SDL_IntersectRect(&shown, &list, &common);
      EXPECT_TRUE(common == row->rect) << DescribeDraw(*row);
    }
  });
}

TEST_F(ScreenshotSaveDialogDrawing, NoBoxIsDrawnWithoutExtent) {
  for (const int w : {0, 1, 100, 249, 280, 281, 390, 391, 16384}) {
    for (const int h : {0, 1, 57, 410, 16384}) {
      for (const bool open : {false, true}) {
        ScreenshotSaveDialogSession session = Session(kBmp);
        session.format_list_open = open;
        for (const DrawCall& call : Draw(session, w, h).draws) {
          EXPECT_GE(call.rect.w, 0) << w << " x " << h << ' ' << DescribeDraw(call);
          if (call.kind == DrawKind::Outline) {
            EXPECT_GT(call.rect.w, 0) << w << " x " << h << ' ' << DescribeDraw(call);
            EXPECT_GT(call.rect.h, 0) << w << " x " << h << ' ' << DescribeDraw(call);
          }
        }
      }
    }
  }
}

TEST_F(ScreenshotSaveDialogDrawing, FolderStandsOnTheLineOfItsField) {
  const Frame& frame = Draw(Session(kPng));
  const SDL_Rect name = frame.FindText("shot.old")->rect;
  const SDL_Rect folder = frame.FindText("/shots")->rect;
  EXPECT_EQ(name.y - 82, folder.y - 148);
}

TEST_F(ScreenshotSaveDialogDrawing, BytesThatAreNoTextAreStillDrawn) {
  ScreenshotSaveDialogSession session = Session(kPng);
  session.folder_text = "/a\nb\xFF";
  EXPECT_TRUE(
      Draw(session).HasText("/a\xEF\xBF\xBD"
                            "b\xEF\xBF\xBD"));
}

TEST_F(ScreenshotSaveDialogDrawing, TextsUseTheCachedFontOf16Points) {
  ExpectTextsInTheFormFont(Draw(Session(kPng)));
  EXPECT_NE(EnsureScreenshotDialogFont(), nullptr);
  EXPECT_EQ(EnsureScreenshotDialogFont(),
            frontend::gui::GetCachedSdlUiFont(16, false, frontend::gui::SdlUiFontKind::Ui));
  EXPECT_THAT(Recorder().font_requests(), SizeIs(1));
}

TEST_F(ScreenshotSaveDialogDrawing, WithoutFontTheBoxesAreStillThere) {
  Recorder().HideAllFonts();
  const Frame& frame = Draw(Session(kPng));
  EXPECT_EQ(EnsureScreenshotDialogFont(), nullptr);
  EXPECT_THAT(frame.Texts(), IsEmpty());
  EXPECT_THAT(frame.OfKind(DrawKind::Outline), SizeIs(7));
}

TEST_F(ScreenshotSaveDialogDrawing, NullDrawsNothing) {
  ScreenshotSaveDialogSession session = Session(kPng);
  session.renderer = nullptr;
  EXPECT_THAT(Draw(session).draws, IsEmpty());
  ExpectTextIsDrawnAndNullIsNot(DrawScreenshotDialogText);
}

// --- Loop ----------------------------------------------------------------------------------------

class ScreenshotSaveDialogLoop : public DialogTest {
 protected:
  // Runs the dialog with one step that acts, after a frame to look at. Whatever decides, the rest
  // of the queue is taken with it.
  ScreenshotSaveDialogResult Run(const std::function<void()>& act,
                                 ScreenshotSaveFormat format = kPng) {
    DialogScript script;
    script.Wait().Step(act);
    const ScreenshotSaveDialogResult result =
        ShowScreenshotSaveDialog(MakeParent(), "/shots", "shot", format, 80, 4, true);
    EXPECT_TRUE(script.IsFinished());
    EXPECT_THAT(EventsLeftBehind(), IsEmpty());
    FlushEvents();
    return result;
  }
  static void ExpectCancelled(const ScreenshotSaveDialogResult& result,
                              ScreenshotSaveFormat format = kPng, bool rle = true) {
    EXPECT_FALSE(result.accepted);
    EXPECT_EQ(result.folder, "");
    EXPECT_EQ(result.file_name, "");
    EXPECT_EQ(result.format, format);
    EXPECT_EQ(result.jpeg_quality, 80);
    EXPECT_EQ(result.png_compression, 4);
    EXPECT_EQ(result.bmp_rle, rle);
  }
};

TEST_F(ScreenshotSaveDialogLoop, FirstFrameShowsTheStartValues) {
  struct Case {
    ScreenshotSaveFormat format;
    int quality;
    int compression;
    std::vector<std::string> texts;
  };
  const std::vector<Case> cases = {
      {kPng, 80, 4, {"shot.png", "/shots", "4", "/shots/shot.png", "v"}},
      {kPng, 80, -1, {"0"}},
      {kPng, 80, 10, {"9"}},
      {kJpeg, 0, 4, {"1", "shot.jpg"}},
      {kJpeg, 101, 4, {"100"}},
      {kBmp, 80, 4, {"shot.bmp", "Use RLE if possible (indexed BMP paths)"}},
  };
  for (const Case& c : cases) {
    DialogScript script;
    script.Wait().Step([&c] {
      const Frame& frame = Recorder().last_frame();
      for (const std::string& text : c.texts) {
        EXPECT_TRUE(frame.HasText(text)) << text;
      }
      EXPECT_THAT(frame.Outlines(kFocusedOutline), IsEmpty());
      EXPECT_THAT(frame.Fills(kListFill), IsEmpty());
      TextInput("9");  // Nothing has the focus.
      KeyDown(SDLK_RETURN);
    });
    const ScreenshotSaveDialogResult result = ShowScreenshotSaveDialog(
        nullptr, "/shots", "shot.xyz", c.format, c.quality, c.compression, false);
    EXPECT_TRUE(result.accepted);
    EXPECT_EQ(result.format, c.format);
    EXPECT_EQ(result.jpeg_quality, std::clamp(c.quality, 1, 100));
    EXPECT_EQ(result.png_compression, std::clamp(c.compression, 0, 9));
    EXPECT_FALSE(result.bmp_rle);
    FlushEvents();
  }
}

TEST_F(ScreenshotSaveDialogLoop, EmptyFolderAndNameHaveDefaults) {
  DialogScript script;
  script.Wait().Step([] {
    EXPECT_TRUE(Recorder().last_frame().HasText(EllipsizeLeft(SourceDirectory().string(), 70)));
    KeyDown(SDLK_RETURN);
  });
  const ScreenshotSaveDialogResult result =
      ShowScreenshotSaveDialog(nullptr, "", "", kJpeg, 80, 4, true);
  EXPECT_EQ(result.folder, SourceDirectory().string());
  EXPECT_THAT(result.file_name,
              MatchesRegex("quindle_capture_[0-9][0-9][0-9][0-9]_[0-9][0-9]_[0-9][0-9]_"
                           "[0-9][0-9]_[0-9][0-9]_[0-9][0-9].jpg"));
}

TEST_F(ScreenshotSaveDialogLoop, MissingWorkingDirectoryIsStillADot) {
  std::filesystem::path gone;
  {
    const TemporaryDirectory directory;
    gone = directory.path() / "gone";
    std::filesystem::create_directory(gone);
    std::filesystem::current_path(gone);
  }
  DialogScript script;
  script.Wait().Step([] { KeyDown(SDLK_RETURN); });
  const ScreenshotSaveDialogResult result =
      ShowScreenshotSaveDialog(nullptr, "", "shot", kPng, 80, 4, true);
  std::filesystem::current_path(SourceDirectory());
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.folder, ".");
}

TEST_F(ScreenshotSaveDialogLoop, TypedTextsAreShownAndReturned) {
  DialogScript script;
  script
      .Step([] {
        ClickAt(kNameField);
        for (int i = 0; i < 4; ++i) {
          KeyDown(SDLK_BACKSPACE);
        }
        TextInput("_2/");
        KeyDown(SDLK_TAB);
        KeyDown(SDLK_BACKSPACE);
        KeyDown(SDLK_BACKSPACE);
        TextInput("1234");
      })
      .Step([] {
        const Frame& frame = Recorder().last_frame();
        EXPECT_TRUE(frame.HasText("shot_2"));
        EXPECT_TRUE(frame.HasText("123"));
        EXPECT_TRUE(frame.HasText("/shots/shot_2.jpg"));
        EXPECT_THAT(frame.Outlines(kFocusedOutline), ElementsAre(SDL_Rect{250, 280, 160, 38}));
        ClickAt(kSaveButton);
      });
  const ScreenshotSaveDialogResult result =
      ShowScreenshotSaveDialog(nullptr, "/shots", "shot.png", kJpeg, 80, 4, true);
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.folder, "/shots");
  EXPECT_EQ(result.file_name, "shot_2.jpg");
  EXPECT_EQ(result.jpeg_quality, 100);
  EXPECT_EQ(result.png_compression, 4);
}

TEST_F(ScreenshotSaveDialogLoop, ChoosingAFormatRenamesAtOnce) {
  DialogScript script;
  script.Step([] { ClickAt(kFormatBox); })
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText("^"));
        ClickAt(kListRows[2]);
      })
      .Step([] {
        const Frame& frame = Recorder().last_frame();
        EXPECT_TRUE(frame.HasText("shot.bmp"));
        EXPECT_TRUE(frame.HasText("Use RLE if possible (indexed BMP paths)"));
        EXPECT_FALSE(frame.HasText("4"));
        EXPECT_TRUE(frame.HasText("v"));
        EXPECT_THAT(frame.Fills(kCheckMark), SizeIs(1));
        ClickAt(kCheckBox);
      })
      .Step([] {
        EXPECT_THAT(Recorder().last_frame().Fills(kCheckMark), IsEmpty());
        KeyDown(SDLK_RETURN);
      });
  const ScreenshotSaveDialogResult result =
      ShowScreenshotSaveDialog(nullptr, "/shots", "shot.png", kPng, 80, 4, true);
  EXPECT_TRUE(result.accepted);
  EXPECT_EQ(result.format, kBmp);
  EXPECT_EQ(result.file_name, "shot.bmp");
  EXPECT_FALSE(result.bmp_rle);
  EXPECT_EQ(result.jpeg_quality, 80);
  EXPECT_EQ(result.png_compression, 4);
}

TEST_F(ScreenshotSaveDialogLoop, EachFormatShowsItsOwnOptionText) {
  DialogScript script;
  script.Step([] { ClickAt(kFormatBox); })
      .Step([] { ClickAt(kListRows[1]); })
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText("80"));
        EXPECT_FALSE(Recorder().last_frame().HasText("4"));
        ClickAt(kFormatBox);
      })
      .Step([] { ClickAt(kListRows[0]); })
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText("4"));
        EXPECT_FALSE(Recorder().last_frame().HasText("80"));
        Quit();
      });
  ShowScreenshotSaveDialog(nullptr, "/shots", "shot.png", kPng, 80, 4, true);
}

TEST_F(ScreenshotSaveDialogLoop, ReturnWithTheListOpenDoesNotSave) {
  ExpectCancelled(Run([] {
    ClickAt(kFormatBox);
    KeyDown(SDLK_RETURN);
    KeyDown(SDLK_KP_ENTER);
    KeyDown(SDLK_ESCAPE);
    KeyDown(SDLK_ESCAPE);
  }));
}

TEST_F(ScreenshotSaveDialogLoop, EveryWayOutCancelsWhateverWasTyped) {
  for (const auto& way : WaysOut(kCancelButton)) {
    ExpectCancelled(Run([&way] {
                      ClickAt(kNameField);
                      TextInput("xx");
                      ClickAt(kOptionField);
                      KeyDown(SDLK_BACKSPACE);
                      ClickAt(kFormatBox);
                      ClickAt(kListRows[2]);
                      ClickAt(kCheckBox);
                      way();
                    }),
                    kPng, false);
  }
}

TEST_F(ScreenshotSaveDialogLoop, NothingBehindTheCommitOfADrainCounts) {
  const ScreenshotSaveDialogResult committed = Run(
      [] {
        KeyDown(SDLK_RETURN);
        ClickAt(kCheckBox);
        ClickAt(kNameField);
        TextInput("late");
        ClickAt(kSaveButton);
        ClickAt(kChooseButton);
        Quit();
      },
      kBmp);
  EXPECT_TRUE(committed.accepted);
  EXPECT_EQ(committed.file_name, "shot.bmp");
  EXPECT_TRUE(committed.bmp_rle);
}

TEST_F(ScreenshotSaveDialogLoop, InputOfAnotherWindowIsDropped) {
  const Uint32 parent = SDL_GetWindowID(MakeParent());
  const ScreenshotSaveDialogResult result = Run([parent] {
    CloseWindow(parent);
    Click(kCancelButton.x, kCancelButton.y, SDL_BUTTON_LEFT, 1, parent);
    Click(kSaveButton.x, kSaveButton.y, SDL_BUTTON_LEFT, 1, parent);
    Click(kNameField.x, kNameField.y, SDL_BUTTON_LEFT, 1, WindowId());
    Click(kNowhere.x, kNowhere.y, SDL_BUTTON_LEFT, 1, parent);
    TextInput("x", parent);
    KeyDown(SDLK_BACKSPACE, parent);
    KeyDown(SDLK_TAB, parent);
    KeyDown(SDLK_ESCAPE, parent);
    KeyDown(SDLK_RETURN, parent);
    TextInput("y", WindowId());
    TextInput("z");
    KeyDown(SDLK_RETURN, WindowId());
  });
  EXPECT_TRUE(result.accepted);
  EXPECT_TRUE(Recorder().last_frame().HasText("shot.pngyz"));
}

TEST_F(ScreenshotSaveDialogLoop, QuitNamesNoWindowAndCounts) {
  ExpectCancelled(Run([] { Quit(); }));
}

TEST_F(ScreenshotSaveDialogLoop, OtherButtonsAndEventsAreIgnored) {
  ExpectCancelled(Run([] {
    for (const Uint8 button :
         std::vector<Uint8>{SDL_BUTTON_RIGHT, SDL_BUTTON_MIDDLE, SDL_BUTTON_X1}) {
      Click(kSaveButton.x, kSaveButton.y, button);
      Click(kChooseButton.x, kChooseButton.y, button);
      Click(kFormatBox.x, kFormatBox.y, button);
    }
    KeyUp(SDLK_RETURN);
    Wheel(1);
    Motion(kSaveButton.x, kSaveButton.y);
    KeyDown(SDLK_ESCAPE);
  }));
}

TEST_F(ScreenshotSaveDialogLoop, LayoutFollowsTheWindow) {
  DialogScript script;
  script.Step([] { SDL_SetWindowSize(Recorder().newest_window(), 1000, 600); }).Step([] {
    EXPECT_THAT(Recorder().last_frame().Fills({32, 36, 42, 255}),
                ElementsAre(SDL_Rect{0, 0, 1000, 56}));
    ClickAt({1000 - 80, 600 - 40});
  });
  EXPECT_TRUE(ShowScreenshotSaveDialog(nullptr, "/shots", "shot", kPng, 80, 4, true).accepted);
}

TEST_F(ScreenshotSaveDialogLoop, SurvivesATinyAndAHugeWindow) {
  DialogScript script;
  script.Step([] { SDL_SetWindowSize(Recorder().newest_window(), 1, 1); })
      .Step([] {
        for (const DrawCall& call : Recorder().last_frame().draws) {
          EXPECT_GE(call.rect.w, 0);
          EXPECT_GE(call.rect.h, 0);
        }
        SDL_SetWindowSize(Recorder().newest_window(), 8000, 5000);
      })
      .Step([] { Quit(); });
  Recorder().SetDrawMode(DrawMode::Recorded);
  EXPECT_FALSE(ShowScreenshotSaveDialog(nullptr, "/shots", "shot", kPng, 80, 4, true).accepted);
}

TEST_F(ScreenshotSaveDialogLoop, WorksWithoutAFont) {
  Recorder().HideAllFonts();
  EXPECT_TRUE(Run([] { ClickAt(kSaveButton); }).accepted);
}

TEST_F(ScreenshotSaveDialogLoop, WithoutAWindowTheStartValuesComeBack) {
  SDL_Window* const parent = MakeParent();
  for (const char* const function : {"SDL_CreateWindow", "SDL_CreateRenderer"}) {
    Recorder().Reset();
    Recorder().FailAlways(function);
    const ScreenshotSaveDialogResult result =
        ShowScreenshotSaveDialog(parent, "/shots", "shot", kBmp, 1000, -3, false);
    EXPECT_FALSE(result.accepted);
    EXPECT_EQ(result.folder, "");
    EXPECT_EQ(result.file_name, "");
    EXPECT_EQ(result.format, kBmp);
    EXPECT_EQ(result.jpeg_quality, 100);
    EXPECT_EQ(result.png_compression, 0);
    EXPECT_FALSE(result.bmp_rle);
  }
}

}  // namespace
}  // namespace quindle::testing

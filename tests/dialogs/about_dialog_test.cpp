// The About dialog: measures worked out by hand, what one frame draws, links, and its ends.

#include "frontend/gui/about_dialog.h"

#include <gmock/gmock.h>

#include <cctype>
#include <stdexcept>
#include <string>

#include "frontend/gui/build_info.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;  // NOLINT(google-build-using-namespace)
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::MatchesRegex;
using ::testing::Ne;
using ::testing::SizeIs;

constexpr float kScale = 1.2F;
constexpr SDL_Color kBorder{52, 58, 70, 255};
constexpr SDL_Color kBox{20, 23, 30, 255};
constexpr SDL_Color kBoxHovered{40, 46, 60, 255};
constexpr SDL_Color kLinkValueColor{106, 166, 255, 255};

// With the shipped fonts: 24 points are 32 pixels high, 17 are 23 and 16 are 21.
constexpr SDL_Rect kVideoRow{39, 163, 782, 88};
constexpr SDL_Rect kHomepageRow{39, 263, 782, 88};
constexpr SDL_Rect kInfoPanel{39, 368, 782, 152};

class AboutDialogTest : public DialogTest {
 protected:
  // Runs the dialog for some frames with the script's steps in front, then closes it.
  static void RunWith(SDL_Window* parent, const std::function<void()>& action) {
    DialogScript script;
    script.Wait().Step(action).Wait().Step([] { KeyDown(SDLK_ESCAPE); });
    ShowSimpleAboutDialog(parent, 1.0F);
  }
};

// --- Measures ------------------------------------------------------------------------------------

void ExpectFixedMeasures(const AboutDialogMetrics& metrics) {
  EXPECT_EQ(metrics.pad, 14);
  EXPECT_EQ(metrics.sideMargin, 24);
  EXPECT_EQ(metrics.nameTop, 22);
  EXPECT_EQ(metrics.lineGap, 12);
  EXPECT_EQ(metrics.smallGap, 6);
  EXPECT_EQ(metrics.headerGap, 13);
  EXPECT_EQ(metrics.sectionGap, 17);
  EXPECT_EQ(metrics.linkGap, 12);
  EXPECT_EQ(metrics.infoGap, 17);
  EXPECT_EQ(metrics.infoPadX, 17);
  EXPECT_EQ(metrics.infoPadY, 14);
  EXPECT_EQ(metrics.infoTitleGap, 12);
  EXPECT_EQ(metrics.infoRowGap, 11);
  EXPECT_FLOAT_EQ(metrics.scale, kScale);
}

TEST_F(AboutDialogTest, MeasuresFollowTheShippedFonts) {
  const AboutDialogMetrics metrics = BuildAboutDialogMetrics(OpenAboutDialogFonts(kScale), kScale);
  ExpectFixedMeasures(metrics);
  EXPECT_EQ(metrics.nameH, 32);
  EXPECT_EQ(metrics.textH, 23);
  EXPECT_EQ(metrics.smallBoldH, 21);
  EXPECT_EQ(metrics.rowH, 23);
  EXPECT_EQ(metrics.boldH, 23);
  EXPECT_EQ(metrics.footerTextH, 21);
  EXPECT_EQ(metrics.linkRowH, 21 + 2 * 22 + 23);
  EXPECT_EQ(metrics.infoPanelH, 21 + 2 * 14 + 12 + 3 * 23 + 2 * 11);
  EXPECT_EQ(metrics.footerH, 21 + 29);
  EXPECT_EQ(AboutDialogWindowHeight(metrics), 607);
}

TEST_F(AboutDialogTest, MissingFontsCountWithFixedHeights) {
  const AboutDialogMetrics metrics = BuildAboutDialogMetrics(AboutDialogFonts{}, kScale);
  ExpectFixedMeasures(metrics);
  EXPECT_EQ(metrics.nameH, 34);
  EXPECT_EQ(metrics.textH, 22);
  EXPECT_EQ(metrics.smallBoldH, 20);
  EXPECT_EQ(metrics.rowH, 22);
  EXPECT_EQ(metrics.boldH, 22);
  EXPECT_EQ(metrics.footerTextH, 19);
  EXPECT_EQ(metrics.linkRowH, 20 + 2 * 22 + 22);
  EXPECT_EQ(metrics.infoPanelH, 20 + 2 * 14 + 12 + 3 * 22 + 2 * 11);
  EXPECT_EQ(metrics.footerH, 19 + 29);
  EXPECT_EQ(AboutDialogWindowHeight(metrics), 597);
}

TEST_F(AboutDialogTest, EachFontHasItsOwnMeasure) {
  AboutDialogFonts fonts;
  fonts.smallBoldFont = OpenSdlUiFontHandle(16, true, SdlUiFontKind::Ui);
  const AboutDialogMetrics metrics = BuildAboutDialogMetrics(fonts, kScale);
  EXPECT_EQ(metrics.smallBoldH, 21);
  EXPECT_EQ(metrics.rowH, 22);
  fonts = {};
  fonts.boldFont = OpenSdlUiFontHandle(17, true, SdlUiFontKind::Ui);
  EXPECT_EQ(BuildAboutDialogMetrics(fonts, kScale).boldH, 23);
  EXPECT_EQ(BuildAboutDialogMetrics(fonts, kScale).rowH, 22);
}

TEST_F(AboutDialogTest, LinksAreNeverLowerThanTheirMinimum) {
  AboutDialogFonts fonts;
  fonts.smallBoldFont = OpenSdlUiFontHandle(4, true, SdlUiFontKind::Ui);
  fonts.boldFont = OpenSdlUiFontHandle(4, true, SdlUiFontKind::Ui);
  const AboutDialogMetrics metrics = BuildAboutDialogMetrics(fonts, kScale);
  ASSERT_LT(metrics.smallBoldH + 44 + metrics.boldH, 67);
  EXPECT_EQ(metrics.linkRowH, 67);
}

TEST_F(AboutDialogTest, OpensSixFontsInOrder) {
  const AboutDialogFonts fonts = OpenAboutDialogFonts(kScale);
  const std::string face = "./data/ttf/IBMPlexSans-SemiBold.ttf";
  EXPECT_THAT(Recorder().font_requests(),
              ElementsAre(FontRequest{face, 24, true, TTF_STYLE_BOLD},
                          FontRequest{face, 17, true, TTF_STYLE_NORMAL},
                          FontRequest{face, 16, true, TTF_STYLE_BOLD},
                          FontRequest{face, 17, true, TTF_STYLE_NORMAL},
                          FontRequest{face, 17, true, TTF_STYLE_BOLD},
                          FontRequest{face, 16, true, TTF_STYLE_NORMAL}));
}

// --- Build information ---------------------------------------------------------------------------

std::string OnOff(const char* name, bool on) {
  return std::string(name) + (on ? " ON" : " OFF");
}

TEST(AboutDialogInfo, NamesVersionAndDate) {
  const AboutDialogInfoRows rows = BuildAboutDialogInfoRows();
  EXPECT_EQ(rows.version, std::string("v") + QUINDLE_EXPECTED_VERSION);
  EXPECT_EQ(rows.version.substr(1), frontend::kProgramVersion);
  EXPECT_EQ(rows.buildDate, frontend::kProgramBuildDate);
  EXPECT_THAT(frontend::kProgramDate, MatchesRegex("[A-Z][a-z][a-z] [ 1-3][0-9] 20[0-9][0-9]"));
  EXPECT_THAT(
      rows.buildDate,
      MatchesRegex("[A-Z][a-z][a-z] [ 1-3][0-9] 20[0-9][0-9] [0-9][0-9]:[0-9][0-9]:[0-9][0-9]"));
  EXPECT_EQ(rows.buildDate.substr(0, 11), frontend::kProgramDate);
}

TEST(AboutDialogInfo, NamesCompilerPlatformAndArchitecture) {
  const AboutDialogInfoRows rows = BuildAboutDialogInfoRows();
  EXPECT_EQ(rows.compiler, QUINDLE_EXPECTED_COMPILER);
  EXPECT_EQ(rows.platform, "Linux");
  EXPECT_EQ(rows.arch, QUINDLE_EXPECTED_PROCESSOR " (64-bit)");
}

TEST(AboutDialogInfo, NamesTheSwitchesOfThisBuild) {
#if defined(__OPTIMIZE__)
  const bool optimised = true;
#else
  const bool optimised = false;
#endif
  const std::string flags = BuildAboutDialogInfoRows().flags;
  EXPECT_THAT(flags, MatchesRegex("LTO O(N|FF)  PGO O(N|FF)  O2 O(N|FF)  O3 O(N|FF)"));
  const bool says_optimised =
      flags.find("O2 ON") != std::string::npos || flags.find("O3 ON") != std::string::npos;
  EXPECT_EQ(says_optimised, optimised) << flags;
  EXPECT_EQ(flags.substr(0, flags.find("  ")), OnOff("LTO", QUINDLE_EXPECTED_LTO != 0));
}

// --- The window ----------------------------------------------------------------------------------

TEST_F(AboutDialogTest, OpensOverItsParent) {
  SDL_Window* const parent = MakeParent();
  RunWith(parent, [] {});
  const WindowRecord& window = Recorder().windows().back();
  EXPECT_EQ(window.title, "About Quindle");
  EXPECT_EQ(window.x, 100 + 80);
  EXPECT_EQ(window.y, 100 + 80);
  EXPECT_EQ(window.w, 860);
  EXPECT_EQ(window.h, 607);
  EXPECT_EQ(window.flags, Uint32{SDL_WINDOW_HIDDEN});
  EXPECT_EQ(window.modal_for, parent);
  EXPECT_EQ(Recorder().renderers().front().flags, Uint32{SDL_RENDERER_ACCELERATED});
}

TEST_F(AboutDialogTest, OpensItsFontsBeforeItsWindow) {
  RunWith(nullptr, [] {});
  const auto calls = Recorder().CallsAmong({"TTF_OpenFont", "SDL_CreateWindow"});
  ASSERT_THAT(calls, SizeIs(7));
  EXPECT_EQ(calls.back(), "SDL_CreateWindow");
}

TEST_F(AboutDialogTest, ScaleIsNotApplied) {
  DialogScript script;
  script.Wait().Step([] { KeyDown(SDLK_ESCAPE); });
  ShowSimpleAboutDialog(nullptr, 3.0F);
  EXPECT_EQ(Recorder().windows().back().h, 607);
}

TEST_F(AboutDialogTest, ShowsTheWindowOnceAfterTheFirstPresentAndWaitsTwelveMilliseconds) {
  RunWith(nullptr, [] {});
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                                     "SDL_SetWindowInputFocus", "SDL_Delay"}),
              ElementsAre("SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                          "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_RenderPresent", "SDL_Delay",
                          "SDL_RenderPresent", "SDL_Delay", "SDL_RenderPresent", "SDL_Delay"));
  EXPECT_THAT(Recorder().delays(), ElementsAre(12, 12, 12, 12));
}

TEST_F(AboutDialogTest, HandsTheFocusBackBeforeItsWindowGoes) {
  SDL_Window* const parent = MakeParent();
  RunWith(parent, [] {});
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent),
              ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
  const auto tail = Recorder().CallsAmong(
      {"SDL_SetWindowInputFocus", "SDL_DestroyRenderer", "SDL_DestroyWindow"});
  EXPECT_THAT(tail, ElementsAre("SDL_SetWindowInputFocus", "SDL_SetWindowInputFocus",
                                "SDL_DestroyRenderer", "SDL_DestroyWindow"));
}

TEST_F(AboutDialogTest, ReturnsAtOnceWithoutAWindow) {
  SDL_Window* const parent = MakeParent();
  Recorder().FailCall("SDL_CreateWindow");
  ShowSimpleAboutDialog(parent, 1.0F);
  EXPECT_EQ(Recorder().presents(), 0);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow"}, parent), IsEmpty());
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
}

TEST_F(AboutDialogTest, ReturnsAtOnceWithoutARenderer) {
  Recorder().FailAlways("SDL_CreateRenderer");
  ShowSimpleAboutDialog(MakeParent(), 1.0F);
  EXPECT_EQ(Recorder().CallCount("SDL_CreateRenderer"), 2);
  EXPECT_EQ(Recorder().presents(), 0);
  EXPECT_EQ(Recorder().alive().fonts, 0U);
}

// --- Drawing -------------------------------------------------------------------------------------

void ExpectText(const Frame& frame, const std::string& text, int x, int y, SDL_Color color,
                int size, int style) {
  const DrawCall* call = frame.FindText(text);
  ASSERT_NE(call, nullptr) << text;
  EXPECT_EQ((SDL_Point{call->rect.x, call->rect.y}), (SDL_Point{x, y})) << text;
  EXPECT_EQ(call->color, color) << text;
  EXPECT_EQ(call->font.size, size) << text;
  EXPECT_EQ(call->font.style, style) << text;
}

TEST_F(AboutDialogTest, DrawsPanelsInOrder) {
  RunWith(nullptr, [] {});
  const std::vector<DrawCall>& draws = Recorder().last_frame().draws;
  ASSERT_GT(draws.size(), 6U);
  EXPECT_EQ(draws[0].kind, DrawKind::Clear);
  EXPECT_EQ(draws[0].color, (SDL_Color{20, 22, 26, 255}));
  EXPECT_EQ(draws[1].kind, DrawKind::Clear);
  EXPECT_EQ(draws[1].color, (SDL_Color{18, 21, 27, 255}));
  EXPECT_EQ(draws[2].kind, DrawKind::Outline);
  EXPECT_EQ(draws[2].rect, (SDL_Rect{14, 14, 832, 579}));
  EXPECT_EQ(draws[2].color, kBorder);
  EXPECT_EQ(draws[3].rect, (SDL_Rect{15, 15, 830, 528}));
  EXPECT_EQ(draws[3].color, (SDL_Color{24, 27, 34, 255}));
  EXPECT_EQ(draws[4].rect, (SDL_Rect{15, 543, 830, 49}));
  EXPECT_EQ(draws[4].color, (SDL_Color{22, 25, 32, 255}));
  const std::vector<DrawCall> lines = Recorder().last_frame().Lines(kBorder);
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_EQ(lines[0].from, (SDL_Point{15, 543}));
  EXPECT_EQ(lines[0].to, (SDL_Point{844, 543}));
  EXPECT_EQ(lines[1].from, (SDL_Point{39, 146}));
  EXPECT_EQ(lines[1].to, (SDL_Point{821, 146}));
}

TEST_F(AboutDialogTest, DrawsHeaderAndFooterTexts) {
  RunWith(nullptr, [] {});
  const Frame& frame = Recorder().last_frame();
  ExpectText(frame, "Quindle", 39, 37, kColTextHi, 24, TTF_STYLE_BOLD);
  ExpectText(frame, QUINDLE_EXPECTED_EMAIL, 39, 81, kColTextMid, 17, TTF_STYLE_NORMAL);
  ExpectText(frame, QUINDLE_EXPECTED_AUTHOR, 39, 110, kColTextMid, 17, TTF_STYLE_NORMAL);
  ExpectText(frame, "ESC to close", 38, 557, kColTextDim, 16, TTF_STYLE_NORMAL);
}

TEST_F(AboutDialogTest, DrawsLinksAndBuildInformation) {
  RunWith(nullptr, [] {});
  const Frame& frame = Recorder().last_frame();
  EXPECT_THAT(frame.Fills(kBox), ElementsAre(kVideoRow, kHomepageRow, kInfoPanel));
  EXPECT_THAT(frame.Outlines(kBorder), IsSupersetOf({kVideoRow, kHomepageRow, kInfoPanel}));
  ExpectText(frame, QUINDLE_EXPECTED_VIDEO_LABEL, 51, 183, kColTextDim, 16, TTF_STYLE_BOLD);
  ExpectText(frame, QUINDLE_EXPECTED_VIDEO_URL, 51, 208, kLinkValueColor, 17, TTF_STYLE_BOLD);
  ExpectText(frame, "HOMEPAGE", 51, 283, kColTextDim, 16, TTF_STYLE_BOLD);
  ExpectText(frame, QUINDLE_EXPECTED_HOMEPAGE, 51, 308, kLinkValueColor, 17, TTF_STYLE_BOLD);
  ExpectText(frame, "BUILD INFO", 56, 382, kColTextDim, 16, TTF_STYLE_BOLD);
}

TEST_F(AboutDialogTest, DrawsBuildRowsInTwoColumns) {
  RunWith(nullptr, [] {});
  const Frame& frame = Recorder().last_frame();
  const AboutDialogInfoRows rows = BuildAboutDialogInfoRows();
  const struct {
    const char* label;
    std::string value;
    int label_x;
    int value_x;
    int y;
  } cells[] = {
      {"Version", rows.version, 56, 159, 415},   {"Build date", rows.buildDate, 444, 530, 415},
      {"Compiler", rows.compiler, 56, 159, 449}, {"Platform", rows.platform, 444, 530, 449},
      {"Arch", rows.arch, 56, 159, 483},         {"Flags", rows.flags, 444, 530, 483},
  };
  for (const auto& cell : cells) {
    ExpectText(frame, cell.label, cell.label_x, cell.y, kColTextDim, 17, TTF_STYLE_NORMAL);
    ExpectText(frame, cell.value, cell.value_x, cell.y, kColTextHi, 17, TTF_STYLE_NORMAL);
  }
}

TEST_F(AboutDialogTest, NoTextLeavesItsPanel) {
  RunWith(nullptr, [] {});
  for (const DrawCall& text : Recorder().last_frame().OfKind(DrawKind::Text)) {
    EXPECT_LE(text.rect.x + text.rect.w, kInfoPanel.x + kInfoPanel.w) << text.text;
    EXPECT_LE(text.rect.y + text.rect.h, 593) << text.text;
  }
}

TEST_F(AboutDialogTest, LongValuesAreCutInsideTheirColumns) {
  const AboutDialogFonts fonts = OpenAboutDialogFonts(kScale);
  const AboutDialogMetrics metrics = BuildAboutDialogMetrics(fonts, kScale);
  const ModalWindowBundle bundle = CreateModalWindowBundle(
      nullptr, "Test", 0, 0, 860, 607, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  AboutDialogInfoRows rows = BuildAboutDialogInfoRows();
  rows.compiler = std::string(200, 'W');
  rows.flags = std::string(200, 'W');
  RenderAboutDialogFrame(bundle.renderer.get(), fonts, metrics, rows, 860, 607, -1, -1, nullptr);
  int cut = 0;
  for (const DrawCall& text : Recorder().unpresented().OfKind(DrawKind::Text)) {
    if (text.text.find("WWW") != std::string::npos) {
      ++cut;
      EXPECT_TRUE(text.text.ends_with("...")) << text.text;
      EXPECT_LE(text.rect.x + text.rect.w, text.rect.x < 444 ? 444 : 821);
    }
  }
  EXPECT_EQ(cut, 2);
}

TEST_F(AboutDialogTest, WithoutFontsTheBoxesStandAndTheLinksWork) {
  Recorder().HideAllFonts();
  DialogScript script;
  script.Wait()
      .Step([] {
        EXPECT_EQ(Recorder().windows().back().h, 597);
        EXPECT_THAT(Recorder().last_frame().Texts(), IsEmpty());
        EXPECT_THAT(Recorder().last_frame().Fills(kBox),
                    ElementsAre(SDL_Rect{39, 163, 782, 86}, SDL_Rect{39, 261, 782, 86},
                                SDL_Rect{39, 364, 782, 148}));
        MouseDown(39, 261);
      })
      .Step([] { KeyDown(SDLK_ESCAPE); });
  ShowSimpleAboutDialog(nullptr, 1.0F);
  EXPECT_THAT(Recorder().urls(), ElementsAre(QUINDLE_EXPECTED_HOMEPAGE));
}

// --- Link rows -----------------------------------------------------------------------------------

class LinkRowTest : public AboutDialogTest {
 protected:
  Frame Draw(TTF_Font* label_font, TTF_Font* value_font, const SDL_Rect& rect, bool hovered) {
    DrawLinkRow(bundle_.renderer.get(), label_font, value_font, rect, "LABEL", "value", hovered);
    return Recorder().unpresented();
  }
  void TearDown() override {
    bundle_ = {};
    DialogTest::TearDown();
  }
  void SetUp() override {
    DialogTest::SetUp();
    bundle_ = CreateModalWindowBundle(nullptr, "Test", 0, 0, 860, 607, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
  }

  ModalWindowBundle bundle_;
};

TEST_F(LinkRowTest, CentresItsBlockWhenThereIsRoom) {
  const OwnedTtfFont label = OpenSdlUiFontHandle(16, true, SdlUiFontKind::Ui);
  const OwnedTtfFont value = OpenSdlUiFontHandle(17, true, SdlUiFontKind::Ui);
  const int block = 21 + 4 + 23;
  const Frame room = Draw(label.get(), value.get(), {100, 50, 300, block + 18}, false);
  EXPECT_EQ(room.FindText("LABEL")->rect.y, 50 + 9);
  EXPECT_EQ(room.FindText("LABEL")->rect.x, 112);
  EXPECT_EQ(room.FindText("value")->rect.y, 50 + 9 + 21 + 4);
  Recorder().ForgetDraws();
  const Frame narrow = Draw(label.get(), value.get(), {100, 50, 300, block + 17}, false);
  EXPECT_EQ(narrow.FindText("LABEL")->rect.y, 50 + 8);
}

TEST_F(LinkRowTest, MissingFontsCountWithFixedHeights) {
  const OwnedTtfFont value = OpenSdlUiFontHandle(17, true, SdlUiFontKind::Ui);
  // Label 14, value 23: a block of 41, spare 18.
  const Frame no_label = Draw(nullptr, value.get(), {0, 0, 300, 59}, false);
  EXPECT_EQ(no_label.FindText("value")->rect.y, 9 + 14 + 4);
  Recorder().ForgetDraws();
  // Spare 19: a label of 15 would push the value down.
  EXPECT_EQ(Draw(nullptr, value.get(), {0, 0, 300, 60}, false).FindText("value")->rect.y,
            9 + 14 + 4);
  Recorder().ForgetDraws();
  const OwnedTtfFont label = OpenSdlUiFontHandle(16, true, SdlUiFontKind::Ui);
  // Label 21, value 16: a block of 41, spare 18 and then 17.
  EXPECT_EQ(Draw(label.get(), nullptr, {0, 0, 300, 59}, false).FindText("LABEL")->rect.y, 9);
  Recorder().ForgetDraws();
  EXPECT_EQ(Draw(label.get(), nullptr, {0, 0, 300, 58}, false).FindText("LABEL")->rect.y, 8);
}

TEST_F(LinkRowTest, FillsByHoverAndOutlines) {
  const SDL_Rect rect{10, 20, 300, 80};
  EXPECT_THAT(Draw(nullptr, nullptr, rect, false).Fills(kBox), ElementsAre(rect));
  Recorder().ForgetDraws();
  const Frame hovered = Draw(nullptr, nullptr, rect, true);
  EXPECT_THAT(hovered.Fills(kBoxHovered), ElementsAre(rect));
  EXPECT_THAT(hovered.Outlines(kBorder), ElementsAre(rect));
}

// --- Input ---------------------------------------------------------------------------------------

TEST_F(AboutDialogTest, LinksOpenAtTheirEdgesOnly) {
  const struct {
    int x;
    int y;
    const char* url;  // Null: nothing is opened.
  } presses[] = {
      {39, 163, QUINDLE_EXPECTED_VIDEO_URL},
      {820, 250, QUINDLE_EXPECTED_VIDEO_URL},
      {38, 163, nullptr},
      {821, 163, nullptr},
      {39, 162, nullptr},
      {39, 251, nullptr},
      {39, 263, QUINDLE_EXPECTED_HOMEPAGE},
      {820, 350, QUINDLE_EXPECTED_HOMEPAGE},
      {39, 262, nullptr},
      {39, 351, nullptr},
      {38, 263, nullptr},
      {821, 350, nullptr},
  };
  for (const auto& press : presses) {
    Recorder().Reset();
    RunWith(nullptr, [&press] { MouseDown(press.x, press.y); });
    const std::vector<std::string> expected =
        press.url == nullptr ? std::vector<std::string>{} : std::vector<std::string>{press.url};
    EXPECT_EQ(Recorder().urls(), expected) << press.x << ", " << press.y;
    FlushEvents();
  }
}

TEST_F(AboutDialogTest, OnlyAPressOfTheLeftButtonInThisWindowOpensALink) {
  SDL_Window* const parent = MakeParent();
  RunWith(parent, [parent] {
    MouseUp(100, 200);
    MouseDown(100, 200, SDL_BUTTON_RIGHT);
    MouseDown(100, 200, SDL_BUTTON_LEFT, 1, SDL_GetWindowID(parent));
  });
  EXPECT_THAT(Recorder().urls(), IsEmpty());
  FlushEvents();
  RunWith(parent, [] { MouseDown(100, 200, SDL_BUTTON_LEFT, 1, WindowId()); });
  EXPECT_THAT(Recorder().urls(), SizeIs(1));
}

TEST_F(AboutDialogTest, APressBeforeTheFirstFrameHitsNothing) {
  DialogScript script;
  script.Step([] { MouseDown(100, 200); }).Step([] { KeyDown(SDLK_ESCAPE); });
  ShowSimpleAboutDialog(nullptr, 1.0F);
  EXPECT_THAT(Recorder().urls(), IsEmpty());
}

TEST_F(AboutDialogTest, ALinkLeavesTheDialogOpen) {
  DialogScript script;
  script.Wait().Step([] { MouseDown(100, 200); }).Step([] { MouseDown(100, 300); }).Step([] {
    KeyDown(SDLK_ESCAPE);
  });
  ShowSimpleAboutDialog(nullptr, 1.0F);
  EXPECT_THAT(Recorder().urls(),
              ElementsAre(QUINDLE_EXPECTED_VIDEO_URL, QUINDLE_EXPECTED_HOMEPAGE));
  EXPECT_TRUE(script.IsFinished());
}

TEST_F(AboutDialogTest, RowsAreHoveredAtTheirEdgesOnly) {
  const struct {
    int x;
    int y;
    std::vector<SDL_Rect> hovered;
  } pointers[] = {
      {39, 163, {kVideoRow}},    {820, 250, {kVideoRow}},    {821, 250, {}}, {38, 163, {}},
      {39, 263, {kHomepageRow}}, {820, 350, {kHomepageRow}}, {39, 351, {}},  {39, 251, {}},
  };
  for (const auto& pointer : pointers) {
    RunWith(nullptr, [&pointer] {
      Recorder().SetPointer(Recorder().newest_window(), pointer.x, pointer.y);
    });
    EXPECT_EQ(Recorder().last_frame().Fills(kBoxHovered), pointer.hovered)
        << pointer.x << ", " << pointer.y;
    FlushEvents();
  }
}

TEST_F(AboutDialogTest, NothingIsHoveredWhileAnotherWindowHasTheMouse) {
  SDL_Window* const parent = MakeParent();
  RunWith(parent, [parent] { Recorder().SetPointer(parent, 100, 200); });
  EXPECT_THAT(Recorder().last_frame().Fills(kBoxHovered), IsEmpty());
}

TEST_F(AboutDialogTest, EndsByEscapeCloseAndQuit) {
  const std::function<void()> endings[] = {
      [] { KeyDown(SDLK_ESCAPE); },
      [] { KeyDown(SDLK_ESCAPE, 4711); },
      [] { CloseWindow(WindowId()); },
      [] { Quit(); },
  };
  for (const auto& ending : endings) {
    DialogScript script;
    script.Wait().Step(ending);
    ShowSimpleAboutDialog(MakeParent(), 1.0F);
    EXPECT_EQ(script.frames(), 2);
    FlushEvents();
  }
}

TEST_F(AboutDialogTest, StaysOpenForOtherKeysAndOtherWindows) {
  SDL_Window* const parent = MakeParent();
  DialogScript script;
  script.Wait()
      .Step([] {
        KeyDown(SDLK_RETURN);
        KeyDown(SDLK_SPACE);
        KeyUp(SDLK_ESCAPE);
      })
      .Step([parent] { CloseWindow(SDL_GetWindowID(parent)); })
      .Step([] { KeyDown(SDLK_ESCAPE); });
  ShowSimpleAboutDialog(parent, 1.0F);
  EXPECT_EQ(script.frames(), 4);
}

TEST_F(AboutDialogTest, WhatStandsBehindTheEndHasNoEffectAndIsTakenOff) {
  DialogScript script;
  script.Wait().Step([] {
    KeyDown(SDLK_ESCAPE);
    MouseDown(100, 200);
  });
  ShowSimpleAboutDialog(nullptr, 1.0F);
  EXPECT_THAT(Recorder().urls(), IsEmpty());
  EXPECT_THAT(QueuedEvents(),
              Each(Field("type", &SDL_Event::type, Ne(Uint32{SDL_MOUSEBUTTONDOWN}))));
}

TEST_F(AboutDialogTest, AThrowingHeartbeatLeavesNothingBehind) {
  SDL_Window* const parent = MakeParent();
  DialogScript script;
  script.Wait().Step([] { throw std::runtime_error("host"); });
  EXPECT_THROW(ShowSimpleAboutDialog(parent, 1.0F), std::runtime_error);
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
}

}  // namespace
}  // namespace quindle::testing

// The About dialog: measures worked out by hand, what one frame draws, links, and its ends.

#include "frontend/gui/about_dialog.h"

#include <gmock/gmock.h>

#include <cctype>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

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

// The fonts of a dialog, no two of one size. With approximate measuring they are 52, 26, 31, 35, 44
// and 19 pixels high.
AboutDialogFonts UnlikeFonts() {
  const auto open = [](int size) { return OpenSdlUiFontHandle(size, false, SdlUiFontKind::Ui); };
  return {open(40), open(20), open(24), open(27), open(34), open(15)};
}

TEST_F(AboutDialogTest, MeasuresFollowScaleAndFonts) {
  Recorder().SetMeasureMode(MeasureMode::Approximate);
  const AboutDialogMetrics metrics = BuildAboutDialogMetrics(UnlikeFonts(), 2.0F);
  EXPECT_EQ(metrics.pad, 24);
  EXPECT_EQ(metrics.sideMargin, 40);
  EXPECT_EQ(metrics.nameTop, 36);
  EXPECT_EQ(metrics.nameH, 52);
  EXPECT_EQ(metrics.lineGap, 20);
  EXPECT_EQ(metrics.textH, 26);
  EXPECT_EQ(metrics.smallGap, 10);
  EXPECT_EQ(metrics.headerGap, 22);
  EXPECT_EQ(metrics.sectionGap, 28);
  EXPECT_EQ(metrics.linkGap, 20);
  EXPECT_EQ(metrics.infoGap, 28);
  EXPECT_EQ(metrics.infoPadX, 28);
  EXPECT_EQ(metrics.infoPadY, 24);
  EXPECT_EQ(metrics.infoTitleGap, 20);
  EXPECT_EQ(metrics.infoRowGap, 18);
  EXPECT_EQ(metrics.smallBoldH, 31);
  EXPECT_EQ(metrics.rowH, 35);
  EXPECT_EQ(metrics.boldH, 44);
  EXPECT_EQ(metrics.footerTextH, 19);
  EXPECT_EQ(metrics.linkRowH, 31 + 2 * 36 + 44);
  EXPECT_EQ(metrics.infoPanelH, 31 + 2 * 24 + 20 + 3 * 35 + 2 * 18);
  EXPECT_EQ(metrics.footerH, 19 + 48);
  EXPECT_FLOAT_EQ(metrics.scale, 2.0F);
}

TEST_F(AboutDialogTest, MissingFontsFollowTheScale) {
  const AboutDialogMetrics metrics = BuildAboutDialogMetrics(AboutDialogFonts{}, 2.0F);
  EXPECT_EQ(metrics.nameH, 56);
  EXPECT_EQ(metrics.textH, 36);
  EXPECT_EQ(metrics.smallBoldH, 34);
  EXPECT_EQ(metrics.rowH, 36);
  EXPECT_EQ(metrics.boldH, 36);
  EXPECT_EQ(metrics.footerTextH, 32);
}

TEST_F(AboutDialogTest, FontSizesFollowTheScale) {
  const AboutDialogFonts fonts = OpenAboutDialogFonts(2.0F);
  std::vector<int> sizes;
  for (const FontRequest& request : Recorder().font_requests()) {
    sizes.push_back(request.size);
  }
  EXPECT_THAT(sizes, ElementsAre(40, 28, 26, 28, 28, 26));
}

// No two measures alike, so that none can stand for another.
AboutDialogMetrics UnlikeMetrics() {
  AboutDialogMetrics metrics;
  metrics.pad = 7;
  metrics.sideMargin = 31;
  metrics.nameTop = 13;
  metrics.nameH = 41;
  metrics.lineGap = 3;
  metrics.textH = 17;
  metrics.smallGap = 5;
  metrics.headerGap = 19;
  metrics.sectionGap = 23;
  metrics.linkGap = 29;
  metrics.infoGap = 37;
  metrics.infoPadX = 11;
  metrics.infoPadY = 43;
  metrics.infoTitleGap = 47;
  metrics.infoRowGap = 53;
  metrics.smallBoldH = 59;
  metrics.rowH = 61;
  metrics.boldH = 67;
  metrics.footerTextH = 9;
  metrics.linkRowH = 101;
  metrics.infoPanelH = 400;
  metrics.footerH = 79;
  metrics.scale = 1.5F;
  return metrics;
}

TEST_F(AboutDialogTest, WindowHeightAddsTheMeasuresUp) {
  EXPECT_EQ(AboutDialogWindowHeight(UnlikeMetrics()),
            2 * 7 + 24 + 13 + 41 + 3 + 17 + 5 + 17 + 19 + 23 + 2 * 101 + 29 + 37 + 400 + 79);
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

// What a closing dialog does: its fonts, the parent's focus, its window.
std::vector<std::string> ClosingCalls() {
  std::vector<std::string> calls(6, "TTF_CloseFont");
  calls.insert(calls.end(), {"SDL_RaiseWindow", "SDL_SetWindowInputFocus", "SDL_DestroyRenderer",
                             "SDL_DestroyWindow"});
  return calls;
}

std::vector<std::string> RecordedClosingCalls() {
  return Recorder().CallsAmong({"TTF_CloseFont", "SDL_RaiseWindow", "SDL_SetWindowInputFocus",
                                "SDL_DestroyRenderer", "SDL_DestroyWindow"});
}

TEST_F(AboutDialogTest, ClosesItsFontsThenHandsTheFocusBackThenItsWindowGoes) {
  SDL_Window* const parent = MakeParent();
  RunWith(parent, [] { Recorder().ForgetCalls(); });
  EXPECT_EQ(RecordedClosingCalls(), ClosingCalls());
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent),
              ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
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
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
  EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 0);
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

// Draws single frames, without the dialog's loop.
class AboutFrameTest : public AboutDialogTest {
 protected:
  void SetUp() override {
    AboutDialogTest::SetUp();
    bundle_ = CreateModalWindowBundle(nullptr, "Test", 0, 0, 1003, 907, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
  }
  void TearDown() override {
    bundle_ = {};
    AboutDialogTest::TearDown();
  }

  // The frame of the dialog at its own size and scale.
  const Frame& DrawOwn(const AboutDialogInfoRows& rows) {
    const AboutDialogFonts fonts = OpenAboutDialogFonts(kScale);
    const AboutDialogMetrics metrics = BuildAboutDialogMetrics(fonts, kScale);
    return Draw(fonts, metrics, rows, {860, AboutDialogWindowHeight(metrics)}, {-1, -1}, nullptr);
  }

  const Frame& Draw(const AboutDialogFonts& fonts, const AboutDialogMetrics& metrics,
                    const AboutDialogInfoRows& rows, SDL_Point size, SDL_Point pointer,
                    AboutDialogLinks* links) {
    Recorder().ForgetDraws();
    RenderAboutDialogFrame(bundle_.renderer.get(), fonts, metrics, rows, size.x, size.y, pointer.x,
                           pointer.y, links);
    return Recorder().unpresented();
  }

 private:
  ModalWindowBundle bundle_;
};

TEST_F(AboutFrameTest, LongValuesAreDrawnWholeAndEndWhereTheirRoomDoes) {
  AboutDialogInfoRows rows = BuildAboutDialogInfoRows();
  rows.compiler = std::string(200, 'C');
  rows.flags = std::string(200, 'F');
  const Frame& frame = DrawOwn(rows);
  const DrawCall* const left = frame.FindText(rows.compiler);
  const DrawCall* const right = frame.FindText(rows.flags);
  ASSERT_NE(left, nullptr);
  ASSERT_NE(right, nullptr);
  EXPECT_EQ((SDL_Point{left->rect.x, left->rect.y}), (SDL_Point{159, 449}));
  EXPECT_EQ((SDL_Point{right->rect.x, right->rect.y}), (SDL_Point{530, 483}));
  // The gap between the columns stays free; on the right the frame, whose last column is 845.
  EXPECT_EQ(left->clip, (SDL_Rect{159, 449, 415 - 159, left->rect.h}));
  EXPECT_EQ(right->clip, (SDL_Rect{530, 483, 845 - 530, right->rect.h}));
}

TEST_F(AboutFrameTest, NothingElseIsClipped) {
  AboutDialogInfoRows rows = BuildAboutDialogInfoRows();
  rows.arch = std::string(200, 'A');
  for (const DrawCall& call : DrawOwn(rows).draws) {
    EXPECT_EQ(call.clip.has_value(), call.text == rows.arch) << call.text;
  }
}

// With each face that the library may find, the widest values of a usual build show to their end.
TEST_F(AboutFrameTest, FlagsShowToTheirEndWithEveryFont) {
  AboutDialogInfoRows rows = BuildAboutDialogInfoRows();
  rows.flags = "LTO OFF  PGO OFF  O2 OFF  O3 ON";
  for (const char* face : {"data/ttf/IBMPlexSans-SemiBold.ttf", "data/ttf/IBMPlexSans-Regular.ttf",
                           "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                           "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf"}) {
    Recorder().RedirectFont("./data/ttf/IBMPlexSans-SemiBold.ttf", face);
    const Frame& frame = DrawOwn(rows);
    for (const std::string& value :
         {rows.version, rows.buildDate, rows.compiler, rows.platform, rows.arch, rows.flags}) {
      const DrawCall* const text = frame.FindText(value);
      ASSERT_NE(text, nullptr) << value << " in " << face;
      EXPECT_EQ(text->clip, std::nullopt) << value << " in " << face;
      EXPECT_LE(text->rect.x + text->rect.w, text->rect.x < 444 ? 415 : 845)
          << value << ' ' << face;
    }
  }
}

// A draw call as one line of text; a text with the size of its font.
std::string Describe(const DrawCall& call) {
  std::ostringstream out;
  out << call.kind << ' ';
  if (call.kind == DrawKind::Line) {
    out << call.from.x << ',' << call.from.y << " to " << call.to.x << ',' << call.to.y;
  } else if (call.kind == DrawKind::Text) {
    out << call.text << " at " << call.rect.x << ',' << call.rect.y << " size " << call.font.size;
  } else if (call.kind != DrawKind::Clear) {
    out << call.rect.x << ',' << call.rect.y << ' ' << call.rect.w << 'x' << call.rect.h;
  }
  out << " in " << int{call.color.r} << ',' << int{call.color.g} << ',' << int{call.color.b} << ','
      << int{call.color.a};
  return out.str();
}

std::string At(const std::string& text, int x, int y, int size, const char* color) {
  std::ostringstream out;
  out << DrawKind::Text << ' ' << text << " at " << x << ',' << y << " size " << size << " in "
      << color;
  return out.str();
}

std::string Shape(DrawKind kind, const std::string& place, const char* color) {
  std::ostringstream out;
  out << kind << ' ' << place << " in " << color;
  return out.str();
}

constexpr const char* kHigh = "232,237,244,255";
constexpr const char* kMiddle = "170,178,192,255";
constexpr const char* kDim = "100,108,122,255";
constexpr const char* kLink = "106,166,255,255";
constexpr const char* kBoxText = "20,23,30,255";
constexpr const char* kBorderText = "52,58,70,255";

TEST_F(AboutFrameTest, DrawsEverythingInOrderFromItsMeasures) {
  Recorder().SetMeasureMode(MeasureMode::Approximate);
  const AboutDialogInfoRows rows{"one", "two", "three", "four", "five", "six"};
  AboutDialogLinks links;
  const Frame& frame = Draw(UnlikeFonts(), UnlikeMetrics(), rows, {1003, 907}, {-1, -1}, &links);
  std::vector<std::string> drawn;
  for (const DrawCall& call : frame.draws) {
    drawn.push_back(Describe(call));
  }
  // Content: 8, 8, 987 x 813. The label of a link is 31 high, its address 44: a block of 79 in 101.
  const std::vector<std::string> expected{
      Shape(DrawKind::Clear, "", "20,22,26,255"),
      Shape(DrawKind::Clear, "", "18,21,27,255"),
      Shape(DrawKind::Outline, "7,7 989x893", kBorderText),
      Shape(DrawKind::Fill, "8,8 987x813", "24,27,34,255"),
      Shape(DrawKind::Fill, "8,821 987x78", "22,25,32,255"),
      Shape(DrawKind::Line, "8,821 to 994,821", kBorderText),
      At("Quindle", 39, 21, 40, kHigh),
      At(QUINDLE_EXPECTED_EMAIL, 39, 21 + 41 + 3, 20, kMiddle),
      At(QUINDLE_EXPECTED_AUTHOR, 39, 65 + 17 + 5, 20, kMiddle),
      Shape(DrawKind::Line, "39,123 to 964,123", kBorderText),
      Shape(DrawKind::Fill, "39,146 925x101", kBoxText),
      Shape(DrawKind::Outline, "39,146 925x101", kBorderText),
      At(QUINDLE_EXPECTED_VIDEO_LABEL, 51, 146 + 11, 24, kDim),
      At(QUINDLE_EXPECTED_VIDEO_URL, 51, 157 + 31 + 4, 34, kLink),
      Shape(DrawKind::Fill, "39,276 925x101", kBoxText),
      Shape(DrawKind::Outline, "39,276 925x101", kBorderText),
      At("HOMEPAGE", 51, 276 + 11, 24, kDim),
      At(QUINDLE_EXPECTED_HOMEPAGE, 51, 287 + 31 + 4, 34, kLink),
      Shape(DrawKind::Fill, "39,414 925x400", kBoxText),
      Shape(DrawKind::Outline, "39,414 925x400", kBorderText),
      At("BUILD INFO", 50, 414 + 43, 24, kDim),
      At("Version", 50, 457 + 59 + 47, 27, kDim),
      At("one", 50 + 129, 563, 27, kHigh),
      At("Build date", 519, 563, 27, kDim),
      At("two", 519 + 108, 563, 27, kHigh),
      At("Compiler", 50, 563 + 61 + 53, 27, kDim),
      At("three", 179, 677, 27, kHigh),
      At("Platform", 519, 677, 27, kDim),
      At("four", 627, 677, 27, kHigh),
      At("Arch", 50, 677 + 61 + 53, 27, kDim),
      At("five", 179, 791, 27, kHigh),
      At("Flags", 519, 791, 27, kDim),
      At("six", 627, 791, 27, kHigh),
      At("ESC to close", 7 + 31, 821 + (78 - 9) / 2, 15, kDim),
  };
  EXPECT_EQ(drawn, expected);
  EXPECT_EQ(links.videoChannel, (SDL_Rect{39, 146, 925, 101}));
  EXPECT_EQ(links.homepage, (SDL_Rect{39, 276, 925, 101}));
  EXPECT_EQ(Recorder().CallCount("SDL_RenderPresent"), 0);
}

TEST_F(AboutFrameTest, TheLinkUnderThePointerIsHovered) {
  const SDL_Rect video{39, 146, 925, 101};
  const SDL_Rect homepage{39, 276, 925, 101};
  const struct {
    SDL_Point pointer;
    std::vector<SDL_Rect> hovered;
  } cases[] = {
      {{39, 146}, {video}},     {{963, 246}, {video}}, {{38, 146}, {}}, {{964, 200}, {}},
      {{39, 145}, {}},          {{39, 247}, {}},       {{39, 275}, {}}, {{39, 276}, {homepage}},
      {{963, 376}, {homepage}}, {{964, 376}, {}},      {{39, 377}, {}}, {{-1, -1}, {}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Draw({}, UnlikeMetrics(), {}, {1003, 907}, c.pointer, nullptr).Fills(kBoxHovered),
              c.hovered)
        << c.pointer.x << ", " << c.pointer.y;
  }
}

TEST_F(AboutDialogTest, FollowsTheWindowsSize) {
  DialogScript script;
  script.Wait().Step([] { SDL_SetWindowSize(Recorder().newest_window(), 1000, 700); }).Step([] {
    EXPECT_EQ(Recorder().last_frame().draws.at(2).rect, (SDL_Rect{14, 14, 972, 672}));
    KeyDown(SDLK_ESCAPE);
  });
  ShowSimpleAboutDialog(nullptr, 1.0F);
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
      [] { KeyDown(SDLK_ESCAPE, WindowId()); },
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
      .Step([parent] {
        CloseWindow(SDL_GetWindowID(parent));
        KeyDown(SDLK_ESCAPE, SDL_GetWindowID(parent));
        KeyDown(SDLK_ESCAPE, 4711);
      })
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

TEST_F(AboutDialogTest, AThrowingHeartbeatClosesItAsEscapeDoes) {
  SDL_Window* const parent = MakeParent();
  DialogScript script;
  script.Wait().Step([] {
    Recorder().ForgetCalls();
    throw std::runtime_error("host");
  });
  EXPECT_THROW(ShowSimpleAboutDialog(parent, 1.0F), std::runtime_error);
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
  EXPECT_EQ(RecordedClosingCalls(), ClosingCalls());
}

}  // namespace
}  // namespace quindle::testing

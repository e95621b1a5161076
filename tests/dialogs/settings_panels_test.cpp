// The eight pages of the settings dialog, drawn and used without the dialog around them.

#include <algorithm>
#include <clocale>
#include <limits>
#include <optional>

#include "dialogs/settings_canvas.h"

namespace quindle::frontend::gui {
namespace {

using testing::DrawCall;
using testing::DrawKind;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using testing::Frame;
using ::testing::IsEmpty;
using testing::Merge;
using testing::PlacedText;
using testing::PlacedTexts;
using testing::PointsAround;
using testing::PointSet;
using testing::PointsIn;
using testing::Recorder;
using ::testing::SizeIs;
using namespace testing::settings_colors;

constexpr int kFontMode = 0;
constexpr int kTargetFps = 1;
constexpr int kRenderer = 2;
constexpr int kCpuSpeed = 3;
constexpr int kLogger = 4;
constexpr int kHddSounds = 5;
constexpr int kMouseCapture = 6;
constexpr int kScreenshots = 7;

// Content top of a page with a subtitle when no font is there: 20 + 17 + 6 + 16 + 20.
constexpr int kTopWithoutFonts = 79;

bool SameHit(const RightPanelHitResult& a, const RightPanelHitResult& b) {
  return a.changed == b.changed && a.key == b.key && a.text == b.text && a.number == b.number &&
         a.flag == b.flag && a.browse_font == b.browse_font;
}

RightPanelHitResult TextHit(const char* key, const char* text) {
  return {true, key, text, 0.0, false, false};
}
RightPanelHitResult NumberHit(const char* key, double number) {
  return {true, key, "", number, false, false};
}
RightPanelHitResult FlagHit(const char* key, bool flag) {
  return {true, key, "", 0.0, flag, false};
}

class SettingsPanel : public testing::SettingsCanvas {
 protected:
  // A page with fonts, the pointer elsewhere and nothing pressed.
  RightPanelContext Page(int panel_id) {
    RightPanelContext ctx;
    ctx.renderer = renderer();
    ctx.bold_font = bold();
    ctx.regular_font = regular();
    ctx.panel_id = panel_id;
    ctx.values = &values_;
    return ctx;
  }

  static RightPanelContext WithoutFonts(RightPanelContext ctx) {
    ctx.bold_font = nullptr;
    ctx.regular_font = nullptr;
    return ctx;
  }

  static RightPanelContext At(RightPanelContext ctx, int x, int y) {
    ctx.mouse_x = x;
    ctx.mouse_y = y;
    return ctx;
  }

  static RightPanelContext Clicked(RightPanelContext ctx, int x, int y) {
    ctx = At(ctx, x, y);
    ctx.clicked = true;
    return ctx;
  }

  static RightPanelContext Held(RightPanelContext ctx, int x, int y) {
    ctx = At(ctx, x, y);
    ctx.mouse_down = true;
    return ctx;
  }

  int bold_height() const { return TTF_FontHeight(bold()); }
  int height() const { return TTF_FontHeight(regular()); }
  int top() const { return 20 + bold_height() + 6 + height() + 20; }

  std::vector<PlacedText> Header(const char* title, const char* subtitle) const {
    return {{title, 247, 20, kBright, true}, {subtitle, 247, 20 + bold_height() + 6, kDim, false}};
  }
  static PlacedText Note(int y, const char* text) { return {text, 247, y, kDim, false}; }
  PlacedText Radio(int row_top, const char* label, bool selected) const {
    return {label, 273, row_top + 17 - height() / 2, selected ? kBright : kMiddle, false};
  }
  PlacedText Checkbox(int y, const char* label, bool checked) const {
    return {label, 273, y + (16 - height()) / 2, checked ? kBright : kMiddle, false};
  }
  PlacedText SliderLabel(int y, const char* label) const {
    return {label, 247 + 280 + 12, y + 8 - height() / 2, kMiddle, false};
  }

  static RightPanelHitResult Draw(const RightPanelContext& ctx) {
    const RightPanelHitResult hit = DrawRightPanel(ctx);
    drawn_ = TakeDraws();
    return hit;
  }

  // The page reports `expected` for a click on the point, and nothing when it is only hovered.
  void ExpectClick(const RightPanelContext& page, int x, int y,
                   const RightPanelHitResult& expected) {
    EXPECT_TRUE(SameHit(Draw(Clicked(page, x, y)), expected)) << "click on " << x << ", " << y;
    EXPECT_TRUE(SameHit(Draw(At(page, x, y)), {})) << "hover over " << x << ", " << y;
    RightPanelContext held = Held(page, x, y);
    EXPECT_TRUE(SameHit(Draw(held), {})) << "held over " << x << ", " << y;
  }

  void ExpectPressed(const RightPanelContext& page, int x, int y,
                     const RightPanelHitResult& expected) {
    EXPECT_TRUE(SameHit(Draw(Held(page, x, y)), expected)) << "held over " << x << ", " << y;
    EXPECT_TRUE(SameHit(Draw(Clicked(page, x, y)), {})) << "click on " << x << ", " << y;
    EXPECT_TRUE(SameHit(Draw(At(page, x, y)), {})) << "hover over " << x << ", " << y;
  }

  // Every row of a radio group, at its first and last pixels and at the first ones outside.
  void ExpectRadioGroup(const RightPanelContext& page, int group_top, const char* key,
                        const std::vector<const char*>& option_values) {
    const int bottom = group_top + 34 * static_cast<int>(option_values.size());
    int row_top = group_top;
    for (const char* value : option_values) {
      for (const int y : {row_top, row_top + 33}) {
        for (const int x : {247, 807}) {
          ExpectClick(page, x, y, TextHit(key, value));
          EXPECT_THAT(drawn_.Fills(kHover), ElementsAre(SDL_Rect{243, row_top, 583, 34}));
        }
        for (const int x : {246, 808}) {
          ExpectClick(page, x, y, {});
          EXPECT_THAT(drawn_.Fills(kHover), IsEmpty());
        }
      }
      row_top += 34;
    }
    ExpectClick(page, 300, group_top - 1, {});
    EXPECT_THAT(drawn_.Fills(kHover), IsEmpty());
    ExpectClick(page, 300, bottom, {});
    EXPECT_THAT(drawn_.Fills(kHover), IsEmpty());
  }

  // A checkbox's row, at its first and last pixels and at the first ones outside.
  void ExpectCheckboxRow(const RightPanelContext& page, int y,
                         const RightPanelHitResult& expected) {
    const int row_height = (page.regular_font == nullptr ? 16 : std::max(height(), 16)) + 10;
    const SDL_Rect row{243, y - 5, 583, row_height};
    const int last_y = row.y + row.h - 1;
    for (const SDL_Point& inside : {SDL_Point{243, row.y}, SDL_Point{825, last_y}}) {
      ExpectClick(page, inside.x, inside.y, expected);
      EXPECT_THAT(drawn_.Fills(kHover), ElementsAre(row));
    }
    for (const SDL_Point& outside : {SDL_Point{242, row.y}, SDL_Point{826, last_y},
                                     SDL_Point{243, row.y - 1}, SDL_Point{825, last_y + 1}}) {
      ExpectClick(page, outside.x, outside.y, {});
      EXPECT_THAT(drawn_.Fills(kHover), IsEmpty());
    }
  }

  // A slider with its track's top-left corner at (247, y), from `low` to `high`.
  void ExpectSlider(const RightPanelContext& page, int y, const char* key, double low,
                    double high) {
    const double span = high - low;
    ExpectPressed(page, 239, y - 2, NumberHit(key, low));
    ExpectPressed(page, 247, y + 8, NumberHit(key, low));
    ExpectPressed(page, 248, y + 8, NumberHit(key, low + 1.0 / 280 * span));
    ExpectPressed(page, 300, y + 8, NumberHit(key, low + 53.0 / 280 * span));
    ExpectPressed(page, 526, y + 8, NumberHit(key, low + 279.0 / 280 * span));
    ExpectPressed(page, 527, y + 8, NumberHit(key, high));
    ExpectPressed(page, 534, y + 17, NumberHit(key, high));
    for (const SDL_Point& outside : {SDL_Point{238, y - 2}, SDL_Point{535, y + 17},
                                     SDL_Point{239, y - 3}, SDL_Point{534, y + 18}}) {
      ExpectPressed(page, outside.x, outside.y, {});
    }
  }

  SettingsDialogValues values_;
  static inline Frame drawn_;
};

using SettingsDisplayPanel = SettingsPanel;
using SettingsRuntimePanel = SettingsPanel;
using SettingsFontModePage = SettingsPanel;
using SettingsTargetFpsPage = SettingsPanel;
using SettingsRendererPage = SettingsPanel;
using SettingsScreenshotsPage = SettingsPanel;
using SettingsCpuSpeedPage = SettingsPanel;
using SettingsLoggerPage = SettingsPanel;
using SettingsHddSoundsPage = SettingsPanel;
using SettingsMouseCapturePage = SettingsPanel;

std::vector<PlacedText> operator+(std::vector<PlacedText> texts,
                                  const std::vector<PlacedText>& more) {
  texts.insert(texts.end(), more.begin(), more.end());
  return texts;
}

// --- Which panel draws which page ----------------------------------------------------------------

TEST_F(SettingsDisplayPanel, DrawsItsFourPagesAndNoOther) {
  for (const int id : {-2, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 100}) {
    const bool own = id == kFontMode || id == kTargetFps || id == kRenderer || id == kScreenshots;
    RightPanelHitResult hit;
    EXPECT_EQ(DrawSettingsDisplayPanel(Page(id), &hit), own) << id;
    EXPECT_EQ(TakeDraws().draws.empty(), !own) << id;
    EXPECT_TRUE(SameHit(hit, {}));
  }
}

TEST_F(SettingsRuntimePanel, DrawsItsFourPagesAndNoOther) {
  for (const int id : {-2, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 100}) {
    const bool own = id == kCpuSpeed || id == kLogger || id == kHddSounds || id == kMouseCapture;
    RightPanelHitResult hit;
    EXPECT_EQ(DrawSettingsRuntimePanel(Page(id), &hit), own) << id;
    EXPECT_EQ(TakeDraws().draws.empty(), !own) << id;
    EXPECT_TRUE(SameHit(hit, {}));
  }
}

TEST_F(SettingsPanel, WithoutAHitOrValuesDrawsNothing) {
  for (int id = kFontMode; id <= kScreenshots; ++id) {
    EXPECT_FALSE(DrawSettingsDisplayPanel(Page(id), nullptr));
    EXPECT_FALSE(DrawSettingsRuntimePanel(Page(id), nullptr));
    RightPanelContext ctx = Page(id);
    ctx.values = nullptr;
    RightPanelHitResult hit;
    EXPECT_FALSE(DrawSettingsDisplayPanel(ctx, &hit));
    EXPECT_FALSE(DrawSettingsRuntimePanel(ctx, &hit));
  }
  EXPECT_THAT(TakeDraws().draws, IsEmpty());
}

// A page that reports nothing leaves the record as it is.
TEST_F(SettingsPanel, WritesOnlyWhatItReports) {
  const RightPanelHitResult former{true, "key", "text", 2.5, true, true};
  for (int id = kFontMode; id <= kScreenshots; ++id) {
    RightPanelHitResult hit = former;
    DrawSettingsDisplayPanel(Page(id), &hit);
    DrawSettingsRuntimePanel(Page(id), &hit);
    EXPECT_TRUE(SameHit(hit, former)) << id;
  }
}

TEST_F(SettingsPanel, PlaceholdersStandForMissingPages) {
  Draw(Page(-1));
  EXPECT_THAT(PlacedTexts(drawn_),
              ElementsAre(Note(80, "Select an item on the left to see options.")));
  Draw(Page(-100));
  EXPECT_THAT(drawn_.Texts(), ElementsAre("Select an item on the left to see options."));
  for (const int id : {8, 1000}) {
    Draw(Page(id));
    EXPECT_THAT(PlacedTexts(drawn_), ElementsAre(Note(60, "No options for this item."))) << id;
  }
  EXPECT_TRUE(SameHit(Draw(Clicked(Page(8), 300, 60)), {}));
  EXPECT_TRUE(SameHit(Draw(Clicked(Page(-1), 300, 80)), {}));
  Draw(WithoutFonts(Page(8)));
  EXPECT_THAT(drawn_.draws, IsEmpty());
}

TEST_F(SettingsPanel, TextsAreDrawnWithoutAClip) {
  values_.font_mode = "ttf-custom";
  for (int id = kFontMode; id <= kScreenshots; ++id) {
    Draw(Page(id));
    EXPECT_THAT(drawn_.OfKind(DrawKind::Text), Not(IsEmpty()));
    for (const DrawCall& call : drawn_.draws) {
      EXPECT_EQ(call.clip, std::nullopt) << id << ' ' << call.text;
    }
  }
}

// --- Header --------------------------------------------------------------------------------------

TEST_F(SettingsPanel, HeaderReturnsWhereTheContentStarts) {
  EXPECT_EQ(DrawPanelHeader(renderer(), bold(), regular(), 31, 47, "Title", "Subtitle"),
            47 + bold_height() + 6 + height() + 20);
  EXPECT_THAT(PlacedTexts(TakeDraws()),
              ElementsAre(PlacedText{"Title", 31, 47, kBright, true},
                          PlacedText{"Subtitle", 31, 47 + bold_height() + 6, kDim, false}));
  EXPECT_EQ(DrawPanelHeader(renderer(), bold(), regular(), 31, 47, "Title", ""),
            47 + bold_height() + 20);
  EXPECT_THAT(PlacedTexts(TakeDraws()), ElementsAre(PlacedText{"Title", 31, 47, kBright, true}));
}

TEST_F(SettingsPanel, HeaderCountsMissingFontsWithFixedHeights) {
  EXPECT_EQ(DrawPanelHeader(renderer(), nullptr, regular(), 31, 47, "Title", "Subtitle"),
            47 + 17 + 6 + height() + 20);
  EXPECT_THAT(PlacedTexts(TakeDraws()),
              ElementsAre(PlacedText{"Subtitle", 31, 47 + 17 + 6, kDim, false}));
  EXPECT_EQ(DrawPanelHeader(renderer(), bold(), nullptr, 31, 47, "Title", "Subtitle"),
            47 + bold_height() + 6 + 16 + 20);
  EXPECT_THAT(TakeDraws().Texts(), ElementsAre("Title"));
  EXPECT_EQ(DrawPanelHeader(renderer(), nullptr, nullptr, 31, 47, "Title", "Subtitle"), 106);
  EXPECT_EQ(DrawPanelHeader(renderer(), nullptr, nullptr, 31, 47, "Title", ""), 84);
  EXPECT_THAT(TakeDraws().draws, IsEmpty());
}

// --- Font Mode -----------------------------------------------------------------------------------

TEST_F(SettingsFontModePage, ShowsFourModesAndTheRestartNote) {
  const int t = top();
  const std::vector<PlacedText> header =
      Header("Font Mode", "Text rendering mode used for the DOS display.");
  for (const char* mode : {"pixel", "ttf", "ttf-hires", "TTF-CUSTOM", "", "other"}) {
    values_.font_mode = mode;
    values_.custom_font_path = "/fonts/vga.ttf";
    const std::string selected = mode;
    EXPECT_TRUE(SameHit(Draw(Page(kFontMode)), {}));
    EXPECT_THAT(PlacedTexts(drawn_),
                ElementsAreArray(
                    header +
                    std::vector<PlacedText>{
                        Radio(t, "Pixel  (classic bitmap font, fastest)", selected == "pixel"),
                        Radio(t + 34, "TTF  (bundled IBM VGA font, scalable)", selected == "ttf"),
                        Radio(t + 68, "TTF HiRes  (bundled font, high resolution)",
                              selected == "ttf-hires"),
                        Radio(t + 102, "TTF Custom  (user-selected font file)", false),
                        Note(t + 136 + 8, "Pixel<->TTF switch requires restart.")}))
        << mode;
    EXPECT_THAT(drawn_.OfKind(DrawKind::Fill), IsEmpty()) << mode;
  }
}

TEST_F(SettingsFontModePage, CustomModeWithoutAFileSaysSo) {
  values_.font_mode = "ttf-custom";
  const int b = top() + 136;
  Draw(Page(kFontMode));
  std::vector<PlacedText> texts = PlacedTexts(drawn_);
  ASSERT_THAT(texts, SizeIs(10));
  EXPECT_EQ(texts[5], Radio(b - 34, "TTF Custom  (user-selected font file)", true));
  EXPECT_EQ(texts[6], Note(b + 14, "(no file selected)"));
  EXPECT_EQ(texts[7].text, "Browse...");
  EXPECT_EQ(texts[8], Note(b + 42, "No font selected - click Browse to choose a .ttf file."));
  EXPECT_EQ(texts[9], Note(b + 68, "Pixel<->TTF switch requires restart."));
  EXPECT_THAT(drawn_.Fills(kButtonFace), ElementsAre(SDL_Rect{712, b + 8, 96, 28}));
}

TEST_F(SettingsFontModePage, CustomModeNamesTheFile) {
  values_.font_mode = "ttf-custom";
  const int b = top() + 136;
  struct Case {
    const char* path;
    const char* name;
  };
  for (const Case& c :
       {Case{"/usr/share/fonts/PxPlus_VGA8.ttf", "PxPlus_VGA8.ttf"}, Case{"bare.otf", "bare.otf"},
        Case{"/f/bad\xFF\nname.ttf", "bad\uFFFD\uFFFDname.ttf"},
        Case{"C:\\Fonts\\vga.ttf", "vga.ttf"}}) {
    values_.custom_font_path = c.path;
    Draw(Page(kFontMode));
    const std::vector<PlacedText> texts = PlacedTexts(drawn_);
    ASSERT_THAT(texts, SizeIs(10));
    EXPECT_EQ(texts[6], (PlacedText{c.name, 247, b + 14, kMiddle, false}));
    EXPECT_EQ(texts[8], Note(b + 42, "Choose a monospace .ttf or .otf font file."));
    EXPECT_EQ(texts[9], Note(b + 68, "Pixel<->TTF switch requires restart."));
  }
}

TEST_F(SettingsFontModePage, PathThatEndsInASeparatorHasNoNameToShow) {
  values_.font_mode = "ttf-custom";
  values_.custom_font_path = "/fonts/";
  Draw(Page(kFontMode));
  EXPECT_FALSE(drawn_.HasText("(no file selected)"));
  EXPECT_TRUE(drawn_.HasText("Choose a monospace .ttf or .otf font file."));
  EXPECT_THAT(drawn_.Texts(), SizeIs(9));
}

TEST_F(SettingsFontModePage, LongFileNameIsDrawnWholeAndClippedAtTheButton) {
  values_.font_mode = "ttf-custom";
  const std::string name = std::string(200, 'W') + ".ttf";
  values_.custom_font_path = "/fonts/" + name;
  Draw(Page(kFontMode));
  const DrawCall* drawn = drawn_.FindText(name);
  ASSERT_NE(drawn, nullptr);
  EXPECT_EQ(drawn->rect.x, 247);
  EXPECT_EQ(drawn->rect.y, top() + 136 + 14);
  EXPECT_EQ(drawn->color, kMiddle);
  ASSERT_TRUE(drawn->clip.has_value());
  EXPECT_EQ(drawn->clip->x + drawn->clip->w, 712);
  EXPECT_LE(drawn->clip->x, 247);
  EXPECT_LE(drawn->clip->y, drawn->rect.y);
  EXPECT_GE(drawn->clip->y + drawn->clip->h, drawn->rect.y + drawn->rect.h);
  EXPECT_EQ(drawn_.FindText("Browse...")->clip, std::nullopt);
}

TEST_F(SettingsFontModePage, ClickOnAModeReportsIt) {
  for (const char* mode : {"pixel", "ttf-hires", "other"}) {
    values_.font_mode = mode;
    ExpectRadioGroup(Page(kFontMode), top(), "font_mode",
                     {"pixel", "ttf", "ttf-hires", "ttf-custom"});
  }
  values_.font_mode = "ttf-custom";
  ExpectRadioGroup(WithoutFonts(Page(kFontMode)), kTopWithoutFonts, "font_mode",
                   {"pixel", "ttf", "ttf-hires", "ttf-custom"});
}

TEST_F(SettingsFontModePage, BrowseReportsOnlyTheWishToBrowse) {
  values_.font_mode = "ttf-custom";
  const RightPanelHitResult browse{false, "", "", 0.0, false, true};
  struct Page2 {
    RightPanelContext ctx;
    int top;
  };
  for (const Page2& page :
       {Page2{Page(kFontMode), top()}, Page2{WithoutFonts(Page(kFontMode)), kTopWithoutFonts}}) {
    const SDL_Rect button{712, page.top + 136 + 8, 96, 28};
    for (const SDL_Point& inside : {SDL_Point{712, button.y}, SDL_Point{807, button.y + 27}}) {
      ExpectClick(page.ctx, inside.x, inside.y, browse);
      EXPECT_THAT(drawn_.Fills(kButtonHovered), ElementsAre(button));
    }
    for (const SDL_Point& outside : {SDL_Point{711, button.y}, SDL_Point{808, button.y + 27},
                                     SDL_Point{712, button.y - 1}, SDL_Point{807, button.y + 28}}) {
      ExpectClick(page.ctx, outside.x, outside.y, {});
      EXPECT_THAT(drawn_.Fills(kButtonFace), ElementsAre(button));
    }
  }
}

TEST_F(SettingsFontModePage, BrowseIsThereInCustomModeOnly) {
  for (const char* mode : {"pixel", "ttf", "ttf-hires", "ttf-custom "}) {
    values_.font_mode = mode;
    EXPECT_TRUE(SameHit(Draw(Clicked(Page(kFontMode), 760, top() + 136 + 20)), {})) << mode;
    EXPECT_FALSE(drawn_.HasText("Browse...")) << mode;
  }
}

// --- Target FPS ----------------------------------------------------------------------------------

TEST_F(SettingsTargetFpsPage, ShowsFourRates) {
  const int t = top();
  const std::vector<PlacedText> header =
      Header("Target FPS", "Display refresh rate target for the emulator window.");
  for (const int fps : {25, 30, 50, 60, 0, -25, 31, 250, std::numeric_limits<int>::min()}) {
    values_.target_fps = fps;
    EXPECT_TRUE(SameHit(Draw(Page(kTargetFps)), {}));
    EXPECT_THAT(
        PlacedTexts(drawn_),
        ElementsAreArray(header + std::vector<PlacedText>{Radio(t, "25 FPS", fps == 25),
                                                          Radio(t + 34, "30 FPS", fps == 30),
                                                          Radio(t + 68, "50 FPS", fps == 50),
                                                          Radio(t + 102, "60 FPS", fps == 60)}))
        << fps;
    const bool offered = fps == 25 || fps == 30 || fps == 50 || fps == 60;
    EXPECT_EQ(PointsIn(drawn_, kAccent).size(), offered ? 49U : 0U) << fps;
  }
}

TEST_F(SettingsTargetFpsPage, ClickOnARateReportsIt) {
  values_.target_fps = 50;
  ExpectRadioGroup(Page(kTargetFps), top(), "fps", {"25", "30", "50", "60"});
  ExpectRadioGroup(WithoutFonts(Page(kTargetFps)), kTopWithoutFonts, "fps",
                   {"25", "30", "50", "60"});
}

// --- Renderer ------------------------------------------------------------------------------------

TEST_F(SettingsRendererPage, ShowsTwoRenderersAndTheRestartNote) {
  const int t = top();
  const std::vector<PlacedText> header =
      Header("Renderer", "SDL rendering backend. Takes effect on next launch.");
  for (const char* mode : {"hardware", "software", "Hardware", ""}) {
    values_.renderer_mode = mode;
    const std::string selected = mode;
    EXPECT_TRUE(SameHit(Draw(Page(kRenderer)), {}));
    EXPECT_THAT(
        PlacedTexts(drawn_),
        ElementsAreArray(
            header +
            std::vector<PlacedText>{
                Radio(t, "Hardware  (OpenGL accelerated)", selected == "hardware"),
                Radio(t + 34, "Software  (CPU-based, compatible)", selected == "software"),
                Note(t + 80, "Note: renderer change requires restart to take full effect.")}))
        << mode;
  }
}

TEST_F(SettingsRendererPage, ClickOnARendererReportsIt) {
  ExpectRadioGroup(Page(kRenderer), top(), "renderer_mode", {"hardware", "software"});
  ExpectRadioGroup(WithoutFonts(Page(kRenderer)), kTopWithoutFonts, "renderer_mode",
                   {"hardware", "software"});
}

// --- Screenshots ---------------------------------------------------------------------------------

TEST_F(SettingsScreenshotsPage, ShowsNotesCheckboxAndSizes) {
  const int t = top();
  const int r = t + 146;
  const std::vector<PlacedText> header =
      Header("Screenshots", "Controls how menu screenshot capture is rendered and exported.");
  struct Case {
    bool shaders;
    int size_mode;
  };
  for (const Case& c : {Case{false, 0}, Case{true, 1}, Case{true, 5}, Case{false, -1}}) {
    values_.screenshot_capture_with_opengl_shaders = c.shaders;
    values_.screenshot_capture_size_mode = c.size_mode;
    EXPECT_TRUE(SameHit(Draw(Page(kScreenshots)), {}));
    EXPECT_THAT(
        PlacedTexts(drawn_),
        ElementsAreArray(
            header +
            std::vector<PlacedText>{
                Note(t,
                     "Default capture is source-faithful guest output without frontend "
                     "post-processing."),
                Note(t + 22, "Enable the option below if you want screenshots to include"),
                Note(t + 44, "the active OpenGL shader pass."),
                Checkbox(t + 86, "Capture with active OpenGL shaders when available", c.shaders),
                PlacedText{"Capture size", 247, t + 124, kMiddle, false},
                Radio(r, "Original resolution", c.size_mode == 0),
                Radio(r + 34, "Emu viewport resolution", c.size_mode == 1),
                Note(r + 78,
                     "Pixel font: Original resolution uses guest-native output, e.g. "
                     "320x200 or 640x400."),
                Note(r + 100,
                     "TTF font mode: Original resolution falls back to the current emu "
                     "viewport size."),
                Note(r + 122,
                     "If no OpenGL shader is active, capture falls back to the normal "
                     "unshaded path.")}));
    const SDL_Color frame = kDim;
    EXPECT_THAT(drawn_.Outlines(frame), ElementsAre(SDL_Rect{247, t + 86, 16, 16}));
    EXPECT_EQ(drawn_.Fills(kAccent).size(), c.shaders ? 1U : 0U);
    EXPECT_EQ(PointsIn(drawn_, kAccent).size(), c.size_mode == 0 || c.size_mode == 1 ? 49U : 0U);
  }
}

TEST_F(SettingsScreenshotsPage, CheckboxReportsTheOppositeValue) {
  const char* key = "screenshot_capture_with_opengl_shaders";
  for (const bool shaders : {false, true}) {
    values_.screenshot_capture_with_opengl_shaders = shaders;
    ExpectCheckboxRow(Page(kScreenshots), top() + 86, FlagHit(key, !shaders));
    ExpectCheckboxRow(WithoutFonts(Page(kScreenshots)), kTopWithoutFonts + 86,
                      FlagHit(key, !shaders));
  }
}

TEST_F(SettingsScreenshotsPage, ClickOnASizeReportsIt) {
  for (const int size_mode : {0, 1, 5}) {
    values_.screenshot_capture_size_mode = size_mode;
    ExpectRadioGroup(Page(kScreenshots), top() + 146, "screenshot_capture_size_mode", {"0", "1"});
    ExpectRadioGroup(WithoutFonts(Page(kScreenshots)), kTopWithoutFonts + 146,
                     "screenshot_capture_size_mode", {"0", "1"});
  }
}

// --- CPU Speed -----------------------------------------------------------------------------------

TEST_F(SettingsCpuSpeedPage, ShowsTheClockInBold) {
  const int t = top();
  const std::vector<PlacedText> header = Header("CPU Speed", "Emulated CPU clock frequency.");
  struct Case {
    double mhz;
    const char* text;
  };
  for (const Case& c :
       {Case{30.0, "30.00 MHz"}, Case{4.77, "4.77 MHz"}, Case{0.0, "0.00 MHz"},
        Case{66.666, "66.67 MHz"}, Case{-1.5, "-1.50 MHz"}, Case{123456789.125, "123456789.12 MHz"},
        Case{std::numeric_limits<double>::infinity(), "inf MHz"},
        Case{std::numeric_limits<double>::quiet_NaN(), "nan MHz"}}) {
    values_.cpu_mhz = c.mhz;
    Draw(Page(kCpuSpeed));
    EXPECT_THAT(PlacedTexts(drawn_),
                ElementsAreArray(
                    header + std::vector<PlacedText>{
                                 {c.text, 247, t, kBright, true},
                                 Note(t + 32, "Adjust CPU speed from the Machine menu"),
                                 Note(t + 52, "using Increase / Decrease Speed (MHz)."),
                                 Note(t + 82, "Setting is saved automatically when changed.")}));
  }
}

TEST_F(SettingsCpuSpeedPage, LongestClockIsPrintedWhole) {
  values_.cpu_mhz = -std::numeric_limits<double>::max();
  Draw(Page(kCpuSpeed));
  const DrawCall* clock = drawn_.FindTextContaining(" MHz");
  ASSERT_NE(clock, nullptr);
  EXPECT_EQ(clock->text.size(), 1 + 309 + 3 + 4U);
}

TEST_F(SettingsCpuSpeedPage, ClockDoesNotFollowTheLocale) {
  const std::string former = std::setlocale(LC_ALL, nullptr);
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "the comma locale is missing";
  values_.cpu_mhz = 1234.5;
  Draw(Page(kCpuSpeed));
  std::setlocale(LC_ALL, former.c_str());
  EXPECT_TRUE(drawn_.HasText("1234.50 MHz"));
}

// Pages that only tell do not react to anything, wherever the pointer is.
TEST_F(SettingsRuntimePanel, CpuSpeedAndLoggerOnlyTell) {
  for (const int id : {kCpuSpeed, kLogger}) {
    for (int y = 0; y < 436; y += 4) {
      for (int x = 225; x < 820; x += 5) {
        RightPanelContext ctx = Clicked(Page(id), x, y);
        ctx.regular_font = nullptr;  // Saves the texts of 26,000 frames.
        ctx.bold_font = nullptr;
        ctx.mouse_down = true;
        ASSERT_TRUE(SameHit(Draw(ctx), {})) << id << " at " << x << ", " << y;
        ASSERT_THAT(drawn_.draws, IsEmpty());
      }
    }
  }
}

// --- Logger Options ------------------------------------------------------------------------------

TEST_F(SettingsLoggerPage, HasNoSubtitleAndFourNotes) {
  const int y = 20 + bold_height() + 20;
  Draw(Page(kLogger));
  EXPECT_THAT(PlacedTexts(drawn_),
              ElementsAre(PlacedText{"Logger Options", 247, 20, kBright, true},
                          Note(y, "Verbose logging can be enabled via --verbose-log"),
                          Note(y + 22, "command-line argument. Log file path: --log <path>."),
                          Note(y + 52, "Runtime log verbosity controls will appear here in"),
                          Note(y + 74, "a future release.")));
}

// --- HDD Sounds ----------------------------------------------------------------------------------

TEST_F(SettingsHddSoundsPage, ShowsCheckboxAndVolume) {
  const int y = top();
  const std::vector<PlacedText> header =
      Header("HDD Sounds", "Simulated hard disk drive sounds during emulation.");
  struct Case {
    bool enabled;
    double volume;
    const char* label;
    int filled;
  };
  for (const Case& c : {Case{false, 0.5, "50%", 140}, Case{true, 0.0, "0%", 0},
                        Case{true, 1.3, "130%", 280}, Case{false, -0.2, "-20%", 0}}) {
    values_.hdd_sounds_enabled = c.enabled;
    values_.hdd_sounds_volume = c.volume;
    EXPECT_TRUE(SameHit(Draw(Page(kHddSounds)), {}));
    EXPECT_THAT(PlacedTexts(drawn_),
                ElementsAreArray(
                    header + std::vector<PlacedText>{
                                 Checkbox(y, "Enable HDD sounds", c.enabled),
                                 PlacedText{"Volume", 247, y + 38, kMiddle, false},
                                 SliderLabel(y + 60, c.label),
                                 Note(y + 94,
                                      "Enabled by default. Use --without-hdd-sounds to opt out at "
                                      "launch.")}));
    EXPECT_THAT(drawn_.Fills(kTrack), ElementsAre(SDL_Rect{247, y + 65, 280, 6}));
    EXPECT_EQ(PointsIn(drawn_, kAccent), PointsAround(247 + c.filled, y + 68, -1, 64));
    EXPECT_THAT(drawn_.Outlines(kDim), ElementsAre(SDL_Rect{247, y, 16, 16}));
  }
}

TEST_F(SettingsHddSoundsPage, CheckboxReportsTheToggledValueAsText) {
  for (const bool enabled : {false, true}) {
    values_.hdd_sounds_enabled = enabled;
    const RightPanelHitResult expected = TextHit("hdd_sounds_enabled", enabled ? "0" : "1");
    ExpectCheckboxRow(Page(kHddSounds), top(), expected);
    ExpectCheckboxRow(WithoutFonts(Page(kHddSounds)), kTopWithoutFonts, expected);
  }
}

TEST_F(SettingsHddSoundsPage, SliderReportsTheFractionUnrounded) {
  ExpectSlider(Page(kHddSounds), top() + 60, "hdd_sounds_volume", 0.0, 1.0);
  ExpectSlider(WithoutFonts(Page(kHddSounds)), kTopWithoutFonts + 60, "hdd_sounds_volume", 0.0,
               1.0);
}

// --- Mouse Capture -------------------------------------------------------------------------------

TEST_F(SettingsMouseCapturePage, ShowsGainAndCheckbox) {
  const int y = top();
  const std::vector<PlacedText> header = Header(
      "Mouse Capture", "Relative mouse gain used while the emulator has grabbed the host pointer.");
  struct Case {
    double gain;
    bool allowed;
    const char* label;
    int filled;
  };
  for (const Case& c : {Case{1.0, false, "1.00x", 76}, Case{5.0, true, "3.00x", 280},
                        Case{0.0, true, "0.25x", 0}, Case{1.625, false, "1.62x", 140}}) {
    values_.mouse_capture_gain = c.gain;
    values_.allow_mouse_capture_in_text_mode = c.allowed;
    EXPECT_TRUE(SameHit(Draw(Page(kMouseCapture)), {}));
    EXPECT_THAT(
        PlacedTexts(drawn_),
        ElementsAreArray(
            header +
            std::vector<PlacedText>{
                PlacedText{"Capture Speed", 247, y, kMiddle, false}, SliderLabel(y + 22, c.label),
                Note(y + 56, "1.00x = current behavior. Higher = faster guest cursor."),
                Checkbox(y + 78, "Allow mouse capture in text mode (DOS)", c.allowed),
                Note(y + 106,
                     "Default off: capture waits for guest graphics mode such as Windows 2.x."),
                Note(y + 128, "Use F11 to toggle mouse capture during emulation.")}));
    EXPECT_THAT(drawn_.Fills(kTrack), ElementsAre(SDL_Rect{247, y + 27, 280, 6}));
    EXPECT_EQ(PointsIn(drawn_, kAccent), PointsAround(247 + c.filled, y + 30, -1, 64));
    EXPECT_THAT(drawn_.Outlines(kDim), ElementsAre(SDL_Rect{247, y + 78, 16, 16}));
  }
}

TEST_F(SettingsMouseCapturePage, SliderReportsTheGainUnrounded) {
  values_.mouse_capture_gain = 5.0;
  ExpectSlider(Page(kMouseCapture), top() + 22, "mouse_capture_gain", 0.25, 3.0);
  ExpectSlider(WithoutFonts(Page(kMouseCapture)), kTopWithoutFonts + 22, "mouse_capture_gain", 0.25,
               3.0);
}

TEST_F(SettingsMouseCapturePage, CheckboxReportsTheOppositeValue) {
  const char* key = "allow_mouse_capture_in_text_mode";
  for (const bool allowed : {false, true}) {
    values_.allow_mouse_capture_in_text_mode = allowed;
    ExpectCheckboxRow(Page(kMouseCapture), top() + 78, FlagHit(key, !allowed));
    ExpectCheckboxRow(WithoutFonts(Page(kMouseCapture)), kTopWithoutFonts + 78,
                      FlagHit(key, !allowed));
  }
}

}  // namespace
}  // namespace quindle::frontend::gui

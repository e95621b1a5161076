#include "frontend/gui/settings_widgets.h"

#include <clocale>
#include <limits>
#include <optional>

#include "dialogs/settings_canvas.h"

namespace quindle::frontend::gui {
namespace {

using testing::DrawCall;
using testing::DrawKind;
using ::testing::ElementsAre;
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

constexpr SDL_Color kButtonBorder{84, 92, 108, 255};

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

using SettingsText = testing::SettingsCanvas;
using SettingsButton = testing::SettingsCanvas;
using SettingsRadioGroup = testing::SettingsCanvas;
using SettingsCheckbox = testing::SettingsCanvas;
using SettingsSlider = testing::SettingsCanvas;
using SettingsRangeSlider = testing::SettingsCanvas;

// A font of another height than the dialog's own.
OwnedTtfFont OpenFontOfSize(int size) {
  OwnedTtfFont font = OpenSdlUiFontHandle(size, false, SdlUiFontKind::Ui);
  EXPECT_NE(font, nullptr);
  return font;
}

// --- Text and geometry ---------------------------------------------------------------------------

TEST_F(SettingsText, StandsWithItsTopLeftCornerAtThePoint) {
  DrawText(renderer(), regular(), "Volume", 31, 47, SDL_Color{1, 2, 3, 255});
  const Frame drawn = TakeDraws();
  EXPECT_THAT(PlacedTexts(drawn),
              ElementsAre(PlacedText{"Volume", 31, 47, SDL_Color{1, 2, 3, 255}, false}));
  EXPECT_EQ(drawn.draws.front().clip, std::nullopt);
}

TEST_F(SettingsText, NeedsRendererFontAndText) {
  DrawText(nullptr, regular(), "Volume", 1, 2, kMiddle);
  DrawText(renderer(), nullptr, "Volume", 1, 2, kMiddle);
  DrawText(renderer(), regular(), "", 1, 2, kMiddle);
  EXPECT_THAT(TakeDraws().draws, IsEmpty());
}

TEST_F(SettingsText, HeightIsTheFontsOrTheFallback) {
  EXPECT_EQ(FontHeightOr(regular(), -7), TTF_FontHeight(regular()));
  EXPECT_EQ(FontHeightOr(nullptr, -7), -7);
}

TEST(SettingsIsInRect, LeftAndTopAreInsideRightAndBottomOutside) {
  const SDL_Rect rect{10, 20, 5, 3};
  struct Case {
    int x, y;
    bool inside;
  };
  for (const Case& c : {Case{10, 20, true}, Case{14, 22, true}, Case{9, 20, false},
                        Case{10, 19, false}, Case{15, 22, false}, Case{14, 23, false}}) {
    EXPECT_EQ(IsInRect(c.x, c.y, rect), c.inside) << c.x << ", " << c.y;
  }
  EXPECT_FALSE(IsInRect(10, 20, SDL_Rect{10, 20, 0, 3}));
  EXPECT_FALSE(IsInRect(10, 20, SDL_Rect{10, 20, 5, 0}));
}

// --- Button --------------------------------------------------------------------------------------

TEST_F(SettingsButton, IsAFilledBoxWithABorderAndACentredCaption) {
  int text_w = 0;
  int text_h = 0;
  ASSERT_EQ(TTF_SizeUTF8(regular(), "Apply", &text_w, &text_h), 0);
  for (const bool hovered : {false, true}) {
    const SDL_Rect rect{718, 449, 91, 30};
    DrawButton(renderer(), regular(), rect, "Apply", hovered);
    const Frame drawn = TakeDraws();
    ASSERT_THAT(drawn.draws, SizeIs(3));
    EXPECT_EQ(drawn.draws[0].kind, DrawKind::Fill);
    EXPECT_EQ(drawn.draws[0].rect, rect);
    EXPECT_EQ(drawn.draws[0].color, hovered ? kButtonHovered : kButtonFace);
    EXPECT_EQ(drawn.draws[1].kind, DrawKind::Outline);
    EXPECT_EQ(drawn.draws[1].rect, rect);
    EXPECT_EQ(drawn.draws[1].color, kButtonBorder);
    EXPECT_THAT(PlacedTexts(drawn),
                ElementsAre(PlacedText{"Apply", 718 + (91 - text_w) / 2, 449 + (30 - text_h) / 2,
                                       kBright, false}));
    EXPECT_EQ(drawn.draws[2].rect.w, text_w);
    EXPECT_EQ(drawn.draws[2].rect.h, text_h);
  }
}

// Halves are cut toward zero, so a caption that is one pixel too wide starts at the edge.
TEST_F(SettingsButton, CaptionLargerThanTheButtonSticksOutOnBothSides) {
  int text_w = 0;
  int text_h = 0;
  ASSERT_EQ(TTF_SizeUTF8(regular(), "Browse", &text_w, &text_h), 0);
  struct Case {
    int too_small, offset;
  };
  for (const Case& c : {Case{1, 0}, Case{2, -1}, Case{3, -1}, Case{10, -5}, Case{-1, 0}}) {
    DrawButton(renderer(), regular(), {100, 200, text_w - c.too_small, text_h - c.too_small},
               "Browse", false);
    EXPECT_THAT(PlacedTexts(TakeDraws()),
                ElementsAre(PlacedText{"Browse", 100 + c.offset, 200 + c.offset, kBright, false}))
        << c.too_small;
  }
}

TEST_F(SettingsButton, StaysWithoutACaptionThatCannotBeRendered) {
  struct Case {
    const char* failing;
    TTF_Font* font;
    const char* caption;
  };
  for (const Case& c : {Case{"TTF_RenderUTF8_Blended", regular(), "Apply"},
                        Case{"SDL_CreateTextureFromSurface", regular(), "Apply"},
                        Case{nullptr, nullptr, "Apply"}, Case{nullptr, regular(), ""}}) {
    if (c.failing != nullptr) {
      Recorder().FailCall(c.failing);
    }
    DrawButton(renderer(), c.font, {10, 20, 90, 30}, c.caption, false);
    const Frame drawn = TakeDraws();
    EXPECT_THAT(drawn.Fills(kButtonFace), ElementsAre(SDL_Rect{10, 20, 90, 30}));
    EXPECT_THAT(drawn.Outlines(kButtonBorder), ElementsAre(SDL_Rect{10, 20, 90, 30}));
    EXPECT_THAT(drawn.draws, SizeIs(2));
    Recorder().ExpectNothingAlive();
  }
}

// --- Radio group ---------------------------------------------------------------------------------

const std::vector<RadioOption>& ThreeOptions() {
  static const std::vector<RadioOption> options{
      {"First", "one"}, {"Second", "two"}, {"Third", "three"}};
  return options;
}

TEST_F(SettingsRadioGroup, WithoutOptionsDrawsNothing) {
  DrawRadioGroup(renderer(), regular(), 247, 80, {}, "", 0);
  EXPECT_THAT(TakeDraws().draws, IsEmpty());
}

TEST_F(SettingsRadioGroup, HasARingForEachRowAndADotForTheSelectedOne) {
  DrawRadioGroup(renderer(), regular(), 247, 80, ThreeOptions(), "two", -1);
  const Frame drawn = TakeDraws();
  PointSet rings;
  for (const int top : {80, 114, 148}) {
    Merge(PointsAround(255, top + 17, 36, 64), &rings);
  }
  EXPECT_EQ(PointsIn(drawn, kDim), rings);
  EXPECT_EQ(PointsIn(drawn, kAccent), PointsAround(255, 114 + 17, -1, 16));
  EXPECT_THAT(drawn.OfKind(DrawKind::Point), SizeIs(rings.size() + 49));
  EXPECT_THAT(drawn.OfKind(DrawKind::Fill), IsEmpty());
}

TEST_F(SettingsRadioGroup, LabelsAreCentredOnTheirRowsAndBrightWhenSelected) {
  DrawRadioGroup(renderer(), regular(), 247, 80, ThreeOptions(), "two", -1);
  const int y = 80 + 17 - TTF_FontHeight(regular()) / 2;
  EXPECT_THAT(PlacedTexts(TakeDraws()),
              ElementsAre(PlacedText{"First", 273, y, kMiddle, false},
                          PlacedText{"Second", 273, y + 34, kBright, false},
                          PlacedText{"Third", 273, y + 68, kMiddle, false}));
}

TEST_F(SettingsRadioGroup, SelectsByExactBytes) {
  const std::vector<RadioOption> options{{"Upper", "Two"}, {"A", "two"}, {"B", "two"}, {"C", ""}};
  DrawRadioGroup(renderer(), nullptr, 0, 0, options, "two", -1);
  PointSet dots = PointsAround(8, 34 + 17, -1, 16);
  Merge(PointsAround(8, 68 + 17, -1, 16), &dots);
  EXPECT_EQ(PointsIn(TakeDraws(), kAccent), dots);
  DrawRadioGroup(renderer(), nullptr, 0, 0, options, "tw", -1);
  EXPECT_THAT(PointsIn(TakeDraws(), kAccent), IsEmpty());
}

TEST_F(SettingsRadioGroup, HighlightsTheHoveredRowUnderItsCircle) {
  for (const int hovered : {0, 1, 2}) {
    DrawRadioGroup(renderer(), regular(), 247, 80, ThreeOptions(), "two", hovered);
    const Frame drawn = TakeDraws();
    const SDL_Rect row{243, 80 + 34 * hovered, 583, 34};
    ASSERT_THAT(drawn.OfKind(DrawKind::Fill), SizeIs(1));
    EXPECT_THAT(drawn.Fills(kHover), ElementsAre(row));
    for (const DrawCall& call : drawn.draws) {
      if (call.kind == DrawKind::Fill) {
        break;  // Nothing of this row comes before its highlight.
      }
      EXPECT_FALSE(call.kind == DrawKind::Point && SDL_PointInRect(&call.from, &row) == SDL_TRUE);
    }
  }
  for (const int nowhere : {-1, 3}) {
    DrawRadioGroup(renderer(), regular(), 247, 80, ThreeOptions(), "two", nowhere);
    EXPECT_THAT(TakeDraws().OfKind(DrawKind::Fill), IsEmpty()) << nowhere;
  }
}

TEST_F(SettingsRadioGroup, WithoutAFontHasNoLabels) {
  DrawRadioGroup(renderer(), nullptr, 247, 80, ThreeOptions(), "one", -1);
  const Frame drawn = TakeDraws();
  EXPECT_THAT(PlacedTexts(drawn), IsEmpty());
  EXPECT_EQ(PointsIn(drawn, kAccent), PointsAround(255, 97, -1, 16));
}

TEST(SettingsRadioHitTest, EndsAtColumn807WhateverTheGroupsLeftEdge) {
  constexpr int kMin = std::numeric_limits<int>::min();
  constexpr int kMax = std::numeric_limits<int>::max();
  struct Case {
    int mouse_x, mouse_y, x, y, count, row;
  };
  for (const Case& c : {
           Case{247, 80, 247, 80, 3, 0},   Case{246, 80, 247, 80, 3, -1},
           Case{807, 80, 247, 80, 3, 0},   Case{808, 80, 247, 80, 3, -1},
           Case{807, 80, 0, 80, 3, 0},     Case{808, 80, 0, 80, 3, -1},
           Case{808, 80, 800, 80, 3, -1},  Case{807, 80, 807, 80, 3, 0},
           Case{300, 79, 247, 80, 3, -1},  Case{300, 113, 247, 80, 3, 0},
           Case{300, 114, 247, 80, 3, 1},  Case{300, 147, 247, 80, 3, 1},
           Case{300, 148, 247, 80, 3, 2},  Case{300, 181, 247, 80, 3, 2},
           Case{300, 182, 247, 80, 3, -1}, Case{300, 80, 247, 80, 0, -1},
           Case{300, 80, 247, 80, -1, -1}, Case{300, 114, 247, 80, 1, -1},
           Case{300, 47, 247, 80, 3, -1},  Case{-1, -1, 247, 80, 3, -1},
           Case{-5, -20, -10, -30, 2, 0},  Case{0, kMax, 0, kMin, 3, -1},
           Case{0, kMin, 0, kMax, 3, -1},  Case{0, kMax, 0, 0, kMax, kMax / 34},
       }) {
    EXPECT_EQ(HitTestRadioGroup(c.mouse_x, c.mouse_y, c.x, c.y, c.count), c.row)
        << c.mouse_x << ", " << c.mouse_y << " in " << c.count << " rows at " << c.x << ", " << c.y;
  }
}

// --- Checkbox ------------------------------------------------------------------------------------

TEST_F(SettingsCheckbox, UncheckedIsAFrameWithALabel) {
  EXPECT_FALSE(DrawCheckbox(renderer(), regular(), 247, 80, false, "Sounds", -1, -1));
  const Frame drawn = TakeDraws();
  ASSERT_THAT(drawn.draws, SizeIs(2));
  EXPECT_THAT(drawn.Outlines(kDim), ElementsAre(SDL_Rect{247, 80, 16, 16}));
  EXPECT_THAT(PlacedTexts(drawn),
              ElementsAre(PlacedText{"Sounds", 273, 80 + (16 - TTF_FontHeight(regular())) / 2,
                                     kMiddle, false}));
}

TEST_F(SettingsCheckbox, CheckedIsFilledAndTickedInOneColour) {
  DrawCheckbox(renderer(), regular(), 247, 80, true, "Sounds", -1, -1);
  const Frame drawn = TakeDraws();
  ASSERT_THAT(drawn.draws, SizeIs(5));
  EXPECT_THAT(drawn.Outlines(kDim), ElementsAre(SDL_Rect{247, 80, 16, 16}));
  EXPECT_THAT(drawn.Fills(kAccent), ElementsAre(SDL_Rect{250, 83, 10, 10}));
  const std::vector<DrawCall> tick = drawn.Lines(kAccent);
  ASSERT_THAT(tick, SizeIs(2));
  EXPECT_EQ(tick[0].from, (SDL_Point{250, 88}));
  EXPECT_EQ(tick[0].to, (SDL_Point{253, 91}));
  EXPECT_EQ(tick[1].from, (SDL_Point{253, 91}));
  EXPECT_EQ(tick[1].to, (SDL_Point{259, 84}));
  EXPECT_EQ(PlacedTexts(drawn).front().color, kBright);
}

// The row is as high as the font, at least 16, and 10 more; the label may stand above the box.
TEST_F(SettingsCheckbox, RowFollowsTheFontsHeight) {
  for (int size = 7; size <= 40; ++size) {
    const OwnedTtfFont font = OpenFontOfSize(size);
    const int font_height = TTF_FontHeight(font.get());
    EXPECT_TRUE(DrawCheckbox(renderer(), font.get(), 247, 80, false, "Sounds", 300, 80));
    const Frame drawn = TakeDraws();
    const int row_height = font_height < 16 ? 26 : font_height + 10;
    EXPECT_THAT(drawn.Fills(kHover), ElementsAre(SDL_Rect{243, 75, 583, row_height}));
    // Halves are cut toward zero, so a font one pixel higher than the box starts at its top.
    const int label_y =
        font_height > 16 ? 80 - (font_height - 16) / 2 : 80 + (16 - font_height) / 2;
    EXPECT_EQ(PlacedTexts(drawn).front().y, label_y) << font_height;
  }
}

TEST_F(SettingsCheckbox, RowWithoutAFontIs26High) {
  EXPECT_TRUE(DrawCheckbox(renderer(), nullptr, 247, 80, false, "Sounds", 300, 75 + 25));
  const Frame drawn = TakeDraws();
  EXPECT_THAT(drawn.Fills(kHover), ElementsAre(SDL_Rect{243, 75, 583, 26}));
  EXPECT_THAT(PlacedTexts(drawn), IsEmpty());
  EXPECT_FALSE(DrawCheckbox(renderer(), nullptr, 247, 80, false, "Sounds", 300, 75 + 26));
}

TEST_F(SettingsCheckbox, ReportsAndHighlightsTheRowUnderTheMouse) {
  const int bottom = 75 + TTF_FontHeight(regular()) + 10;
  struct Case {
    int mouse_x, mouse_y;
    bool over;
  };
  for (const Case& c : {Case{243, 75, true}, Case{825, bottom - 1, true}, Case{242, 75, false},
                        Case{826, 75, false}, Case{243, 74, false}, Case{243, bottom, false}}) {
    for (const bool checked : {false, true}) {
      EXPECT_EQ(
          DrawCheckbox(renderer(), regular(), 247, 80, checked, "Sounds", c.mouse_x, c.mouse_y),
          c.over)
          << c.mouse_x << ", " << c.mouse_y;
      const Frame drawn = TakeDraws();
      EXPECT_EQ(drawn.Fills(kHover).size(), c.over ? 1U : 0U);
      EXPECT_EQ(drawn.draws.front().kind, c.over ? DrawKind::Fill : DrawKind::Outline);
    }
  }
}

// --- Slider --------------------------------------------------------------------------------------

// Track, filled part, knob and label of a slider at (247, 140), 280 wide.
void ExpectSliderDrawn(const Frame& drawn, int filled, const std::string& label, TTF_Font* font) {
  EXPECT_THAT(drawn.Fills(kTrack), ElementsAre(SDL_Rect{247, 145, 280, 6})) << label;
  if (filled > 0) {
    EXPECT_THAT(drawn.Fills(kAccent), ElementsAre(SDL_Rect{247, 145, filled, 6})) << label;
  } else {
    EXPECT_THAT(drawn.Fills(kAccent), IsEmpty()) << label;
  }
  EXPECT_EQ(PointsIn(drawn, kAccent), PointsAround(247 + filled, 148, -1, 64)) << label;
  EXPECT_THAT(PlacedTexts(drawn),
              ElementsAre(PlacedText{label, 247 + 280 + 12, 148 - TTF_FontHeight(font) / 2, kMiddle,
                                     false}));
}

TEST_F(SettingsSlider, ShowsTheFractionCutAndThePercentageRounded) {
  struct Case {
    double value;
    int filled;
    const char* label;
  };
  for (const Case& c : {
           Case{0.0, 0, "0%"},           Case{0.5, 140, "50%"},
           Case{1.0, 280, "100%"},       Case{0.75, 210, "75%"},
           Case{1.3, 280, "130%"},       Case{-0.2, 0, "-20%"},
           Case{0.003, 0, "0%"},         Case{0.0036, 1, "0%"},
           Case{0.9999, 279, "100%"},    Case{0.125, 35, "13%"},
           Case{-0.125, 0, "-13%"},      Case{-0.004, 0, "0%"},
           Case{0.0049, 1, "0%"},        Case{0.374, 104, "37%"},
           Case{1.0001, 280, "100%"},    Case{12345678901.0, 280, "1234567890100%"},
           Case{kInfinity, 280, "inf%"}, Case{-kInfinity, 0, "-inf%"},
           Case{kNan, 0, "nan%"},
       }) {
    EXPECT_FALSE(DrawSlider(renderer(), regular(), 247, 140, 280, c.value, -1, -1, true, nullptr));
    ExpectSliderDrawn(TakeDraws(), c.filled, c.label, regular());
  }
}

TEST_F(SettingsSlider, WithoutAFontHasNoLabel) {
  DrawSlider(renderer(), nullptr, 247, 140, 280, 0.5, -1, -1, false, nullptr);
  const Frame drawn = TakeDraws();
  EXPECT_THAT(PlacedTexts(drawn), IsEmpty());
  EXPECT_EQ(PointsIn(drawn, kAccent), PointsAround(387, 148, -1, 64));
}

TEST_F(SettingsSlider, IsPressedUpToEightPixelsBesideTheTrack) {
  struct Case {
    int mouse_x, mouse_y;
    std::optional<double> stored;
  };
  for (const Case& c : {
           Case{239, 138, 0.0},
           Case{238, 138, std::nullopt},
           Case{239, 137, std::nullopt},
           Case{534, 157, 1.0},
           Case{535, 157, std::nullopt},
           Case{534, 158, std::nullopt},
           Case{247, 148, 0.0},
           Case{248, 148, 1.0 / 280},
           Case{387, 148, 0.5},
           Case{526, 148, 279.0 / 280},
           Case{527, 148, 1.0},
           Case{528, 148, 1.0},
           Case{-1, -1, std::nullopt},
       }) {
    double stored = -9.0;
    EXPECT_EQ(
        DrawSlider(renderer(), regular(), 247, 140, 280, 0.25, c.mouse_x, c.mouse_y, true, &stored),
        c.stored.has_value())
        << c.mouse_x << ", " << c.mouse_y;
    EXPECT_EQ(stored, c.stored.value_or(-9.0)) << c.mouse_x << ", " << c.mouse_y;
    EXPECT_FALSE(DrawSlider(renderer(), regular(), 247, 140, 280, 0.25, c.mouse_x, c.mouse_y, false,
                            &stored));
    EXPECT_EQ(stored, c.stored.value_or(-9.0)) << "written without a press";
  }
}

TEST_F(SettingsSlider, ReportsAPressWithoutAnywhereToStoreIt) {
  EXPECT_TRUE(DrawSlider(renderer(), regular(), 247, 140, 280, 0.25, 300, 148, true, nullptr));
}

// The frame of the press still shows the old value.
TEST_F(SettingsSlider, DrawsTheValueItWasGivenWhilePressed) {
  double stored = 0.0;
  DrawSlider(renderer(), regular(), 247, 140, 280, 0.5, 247, 148, true, &stored);
  ExpectSliderDrawn(TakeDraws(), 140, "50%", regular());
}

TEST_F(SettingsSlider, WithoutWidthStillStoresAFraction) {
  for (const int mouse_x : {239, 247, 254}) {
    double stored = -9.0;
    EXPECT_TRUE(DrawSlider(renderer(), nullptr, 247, 140, 0, 0.5, mouse_x, 148, true, &stored));
    EXPECT_GE(stored, 0.0);
    EXPECT_LE(stored, 1.0);
  }
}

// --- Range slider --------------------------------------------------------------------------------

TEST_F(SettingsRangeSlider, ShowsTheValueWithinItsRange) {
  struct Case {
    double value, min, max;
    const char* suffix;
    int filled;
    const char* label;
  };
  for (const Case& c : {
           Case{1.5, 0.25, 3.0, "x", 127, "1.50x"},
           Case{1.0, 0.25, 3.0, "x", 76, "1.00x"},
           Case{0.25, 0.25, 3.0, "x", 0, "0.25x"},
           Case{3.0, 0.25, 3.0, "x", 280, "3.00x"},
           Case{5.0, 0.25, 3.0, "x", 280, "3.00x"},
           Case{-1.0, 0.25, 3.0, "x", 0, "0.25x"},
           Case{1.5, 0.25, 3.0, nullptr, 127, "1.50"},
           Case{1.5, 0.25, 3.0, "", 127, "1.50"},
           Case{1.5, 0.25, 3.0, " times", 127, "1.50 times"},
           Case{2.125, 4.0, 0.25, "x", 140, "2.12x"},
           Case{2.125, 0.25, 4.0, "x", 140, "2.12x"},
           Case{1.234, 0.0, 2.0, "x", 172, "1.23x"},
           Case{1.236, 0.0, 2.0, "x", 173, "1.24x"},
           Case{2.0, 2.0, 2.0, "x", 0, "2.00x"},
           Case{7.0, 2.0, 2.0, "x", 280, "2.00x"},
           Case{-0.001, -1.0, 1.0, "x", 139, "-0.00x"},
           Case{kInfinity, 0.25, 3.0, "x", 280, "3.00x"},
           Case{-kInfinity, 0.25, 3.0, "x", 0, "0.25x"},
           Case{kNan, 0.25, 3.0, "x", 0, "0.25x"},
           Case{1e300, 0.25, 3.0, "x", 280, "3.00x"},
       }) {
    EXPECT_FALSE(DrawRangeSlider(renderer(), regular(), 247, 140, 280, c.value, c.min, c.max, -1,
                                 -1, true, nullptr, c.suffix));
    ExpectSliderDrawn(TakeDraws(), c.filled, c.label, regular());
  }
}

// What a caller has no business to pass must not do harm either.
TEST_F(SettingsRangeSlider, SurvivesARangeThatIsNone) {
  for (const double min : {kNan, -kInfinity, kInfinity, -1e308}) {
    for (const double max : {kNan, -kInfinity, kInfinity, 1e308}) {
      double stored = 0.0;
      EXPECT_TRUE(DrawRangeSlider(renderer(), regular(), 247, 140, 280, 1.0, min, max, 300, 148,
                                  true, &stored, "x"));
    }
  }
}

TEST_F(SettingsRangeSlider, StoresTheValueUnderTheMouseInEitherOrderOfItsBounds) {
  struct Case {
    int mouse_x, mouse_y;
    std::optional<double> stored;
  };
  for (const Case& c : {
           Case{239, 138, 0.25},
           Case{238, 138, std::nullopt},
           Case{239, 137, std::nullopt},
           Case{534, 157, 4.0},
           Case{535, 157, std::nullopt},
           Case{534, 158, std::nullopt},
           Case{247, 148, 0.25},
           Case{248, 148, 0.25 + 1.0 / 280 * 3.75},
           Case{387, 148, 2.125},
           Case{526, 148, 0.25 + 279.0 / 280 * 3.75},
           Case{527, 148, 4.0},
           Case{-1, -1, std::nullopt},
       }) {
    for (const bool reversed : {false, true}) {
      double stored = -9.0;
      const auto draw = [&](bool mouse_down) {
        return DrawRangeSlider(renderer(), regular(), 247, 140, 280, 1.0, reversed ? 4.0 : 0.25,
                               reversed ? 0.25 : 4.0, c.mouse_x, c.mouse_y, mouse_down, &stored,
                               "x");
      };
      EXPECT_FALSE(draw(false));
      EXPECT_EQ(stored, -9.0);
      EXPECT_EQ(draw(true), c.stored.has_value()) << c.mouse_x << ", " << c.mouse_y;
      EXPECT_EQ(stored, c.stored.value_or(-9.0)) << c.mouse_x << ", " << c.mouse_y;
    }
  }
}

TEST_F(SettingsRangeSlider, OfEqualBoundsHasASpanOfATenThousandth) {
  double stored = -9.0;
  DrawRangeSlider(renderer(), regular(), 247, 140, 280, 2.0, 2.0, 2.0, 247, 148, true, &stored,
                  "x");
  EXPECT_EQ(stored, 2.0);
  DrawRangeSlider(renderer(), regular(), 247, 140, 280, 2.0, 2.0, 2.0, 527, 148, true, &stored,
                  "x");
  EXPECT_EQ(stored, 2.0 + 0.0001);
}

TEST_F(SettingsRangeSlider, ReportsAPressWithoutAnywhereToStoreIt) {
  EXPECT_TRUE(DrawRangeSlider(renderer(), nullptr, 247, 140, 280, 1.0, 0.25, 3.0, 300, 148, true,
                              nullptr, nullptr));
  EXPECT_THAT(PlacedTexts(TakeDraws()), IsEmpty());
}

// A host may have set a locale whose decimal point is a comma and that groups digits.
TEST_F(SettingsRangeSlider, NumbersDoNotFollowTheLocale) {
  const std::string former = std::setlocale(LC_ALL, nullptr);
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "the comma locale is missing";
  DrawRangeSlider(renderer(), regular(), 0, 0, 10, 1234.5, 0.0, 9999.0, -1, -1, false, nullptr,
                  "x");
  DrawSlider(renderer(), regular(), 0, 0, 10, 1234.56, -1, -1, false, nullptr);
  std::setlocale(LC_ALL, former.c_str());
  EXPECT_THAT(TakeDraws().Texts(), ElementsAre("1234.50x", "123456%"));
}

}  // namespace
}  // namespace quindle::frontend::gui

#include "frontend/gui/settings_dialog.h"

#include <functional>
#include <optional>
#include <stdexcept>

#include "dialogs/settings_canvas.h"

namespace quindle::frontend::gui {
namespace {

using testing::DrawCall;
using testing::DrawKind;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using testing::Fields;
using testing::Frame;
using ::testing::IsEmpty;
using testing::NavRow;
using testing::PlacedText;
using testing::PlacedTexts;
using testing::SampleValues;
using ::testing::SizeIs;
using namespace testing::settings_colors;

constexpr SDL_Color kHeadingFill{20, 23, 30, 255};
constexpr SDL_Color kSelectedFill{44, 74, 128, 255};
constexpr SDL_Color kBarFill{22, 25, 32, 255};
constexpr SDL_Color kSeparator{52, 58, 70, 255};
constexpr SDL_Rect kCancel{618, 449, 90, 30};
constexpr SDL_Rect kApply{718, 449, 90, 30};

// --- Records -------------------------------------------------------------------------------------

TEST(SettingsDialogValuesRecord, HasItsDefaultsAndItsOrder) {
  const SettingsDialogValues defaults;
  EXPECT_EQ(Fields(defaults),
            std::make_tuple(0, "pixel", "hardware", 30.0, 1.0, false, false, 0.5, "", false, 1));
  const SettingsDialogValues ordered{25, "a", "b", 1.5, 2.5, true, false, 3.5, "c", true, 7};
  EXPECT_EQ(Fields(ordered),
            std::make_tuple(25, "a", "b", 1.5, 2.5, true, false, 3.5, "c", true, 7));
}

TEST(SettingsRecords, AreAggregatesInTheirOrder) {
  const NavItem item{1, "label", 5};
  EXPECT_EQ(item.kind, 1);
  EXPECT_EQ(item.label, "label");
  EXPECT_EQ(item.panel_id, 5);
  const SettingsDialogValues values;
  const RightPanelContext ctx{nullptr, nullptr, nullptr, 3, 10, 20, true, false, &values};
  EXPECT_EQ(ctx.panel_id, 3);
  EXPECT_EQ(ctx.mouse_x, 10);
  EXPECT_EQ(ctx.mouse_y, 20);
  EXPECT_TRUE(ctx.clicked);
  EXPECT_FALSE(ctx.mouse_down);
  EXPECT_EQ(ctx.values, &values);
  const RightPanelHitResult hit{true, "key", "text", 1.5, false, true};
  EXPECT_TRUE(hit.changed);
  EXPECT_EQ(hit.key, "key");
  EXPECT_EQ(hit.text, "text");
  EXPECT_EQ(hit.number, 1.5);
  EXPECT_FALSE(hit.flag);
  EXPECT_TRUE(hit.browse_font);
  const std::vector<NavItem> nav;
  const SettingsDialogSession session{nullptr, nullptr, nullptr, nullptr, &nav,
                                      kCancel, kApply,  values,  4,       true};
  EXPECT_EQ(session.nav_items, &nav);
  EXPECT_EQ(session.cancel_button, kCancel);
  EXPECT_EQ(session.apply_button, kApply);
  EXPECT_EQ(session.panel_id, 4);
  EXPECT_TRUE(session.shown);
}

TEST(SettingsNavItems, AreFiveHeadingsAndEightItems) {
  struct Row {
    int kind;
    const char* label;
    int panel_id;
  };
  const std::vector<Row> expected{
      {0, "Display", -1},    {1, "Font Mode", 0},  {1, "Target FPS", 1},     {1, "Renderer", 2},
      {1, "Screenshots", 7}, {0, "Input", -1},     {1, "Mouse Capture", 6},  {0, "Performance", -1},
      {1, "CPU Speed", 3},   {0, "Verbosity", -1}, {1, "Logger Options", 4}, {0, "Audio", -1},
      {1, "HDD Sounds", 5},
  };
  const std::vector<NavItem> items = BuildSettingsNavItems();
  ASSERT_THAT(items, SizeIs(expected.size()));
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(items[i].kind, expected[i].kind) << i;
    EXPECT_EQ(items[i].label, expected[i].label) << i;
    EXPECT_EQ(items[i].panel_id, expected[i].panel_id) << i;
  }
}

TEST(SettingsNavItems, FirstItemIsTheInitialPage) {
  EXPECT_EQ(FindInitialSettingsPanel(BuildSettingsNavItems()), 0);
  EXPECT_EQ(FindInitialSettingsPanel({}), -1);
  EXPECT_EQ(FindInitialSettingsPanel({{0, "H", 3}, {2, "?", 4}}), -1);
  EXPECT_EQ(FindInitialSettingsPanel({{0, "H", 3}, {1, "A", 9}, {1, "B", 8}}), 9);
}

TEST(SettingsDialogButtonsRecord, HoldsCancelThenApply) {
  const auto [cancel, apply] = BuildSettingsDialogButtons();
  EXPECT_EQ(cancel, kCancel);
  EXPECT_EQ(apply, kApply);
}

// --- Applying a hit ------------------------------------------------------------------------------

RightPanelHitResult Hit(const char* key, const char* text, double number, bool flag) {
  return {true, key, text, number, flag, false};
}

TEST(SettingsHit, KeySelectsTheOneFieldThatChanges) {
  using Values = SettingsDialogValues;
  struct Case {
    RightPanelHitResult hit;
    std::function<void(Values*)> change;
  };
  const std::vector<Case> cases{
      {Hit("fps", "60", 9.5, true), [](Values* v) { v->target_fps = 60; }},
      {Hit("font_mode", "ttf-hires", 9.5, true), [](Values* v) { v->font_mode = "ttf-hires"; }},
      {Hit("font_mode", "", 9.5, true), [](Values* v) { v->font_mode = ""; }},
      {Hit("renderer_mode", "hardware", 9.5, true),
       [](Values* v) { v->renderer_mode = "hardware"; }},
      {Hit("mouse_capture_gain", "1", 2.125, true),
       [](Values* v) { v->mouse_capture_gain = 2.125; }},
      {Hit("hdd_sounds_enabled", "0", 1.0, true), [](Values* v) { v->hdd_sounds_enabled = false; }},
      {Hit("hdd_sounds_enabled", "1", 0.0, false), [](Values* v) { v->hdd_sounds_enabled = true; }},
      {Hit("hdd_sounds_enabled", "true", 1.0, true),
       [](Values* v) { v->hdd_sounds_enabled = false; }},
      {Hit("hdd_sounds_enabled", "1 ", 1.0, true),
       [](Values* v) { v->hdd_sounds_enabled = false; }},
      {Hit("hdd_sounds_enabled", "", 1.0, true), [](Values* v) { v->hdd_sounds_enabled = false; }},
      {Hit("hdd_sounds_volume", "1", 0.1234567890123, true),
       [](Values* v) { v->hdd_sounds_volume = 0.1234567890123; }},
      {Hit("screenshot_capture_size_mode", "1", 9.5, true),
       [](Values* v) { v->screenshot_capture_size_mode = 1; }},
      {Hit("screenshot_capture_with_opengl_shaders", "1", 1.0, false),
       [](Values* v) { v->screenshot_capture_with_opengl_shaders = false; }},
      {Hit("allow_mouse_capture_in_text_mode", "1", 1.0, false),
       [](Values* v) { v->allow_mouse_capture_in_text_mode = false; }},
      {Hit("", "1", 1.0, true), [](Values*) {}},
      {Hit("FPS", "60", 1.0, true), [](Values*) {}},
      {Hit("cpu_mhz", "60", 60.0, true), [](Values*) {}},
      {Hit("custom_font_path", "/a.ttf", 1.0, true), [](Values*) {}},
  };
  for (const Case& c : cases) {
    SettingsDialogValues expected = SampleValues();
    c.change(&expected);
    SettingsDialogValues values = SampleValues();
    ApplySettingsHit(&values, c.hit);
    EXPECT_EQ(Fields(values), Fields(expected)) << c.hit.key << " = " << c.hit.text;
    RightPanelHitResult unchanged = c.hit;
    unchanged.changed = false;
    values = SampleValues();
    ApplySettingsHit(&values, unchanged);
    EXPECT_EQ(Fields(values), Fields(SampleValues())) << "without a change: " << c.hit.key;
  }
}

TEST(SettingsHit, FlagsCanBeSet) {
  SettingsDialogValues values;
  ApplySettingsHit(&values, Hit("screenshot_capture_with_opengl_shaders", "", 0.0, true));
  ApplySettingsHit(&values, Hit("allow_mouse_capture_in_text_mode", "", 0.0, true));
  EXPECT_TRUE(values.screenshot_capture_with_opengl_shaders);
  EXPECT_TRUE(values.allow_mouse_capture_in_text_mode);
}

TEST(SettingsHit, WithoutValuesDoesNothing) {
  ApplySettingsHit(nullptr, Hit("fps", "no number", 0.0, false));
  SettingsDialogValues values;
  ApplySettingsHit(&values, {false, "fps", "no number", 0.0, false, false});
  EXPECT_EQ(Fields(values), Fields(SettingsDialogValues()));
}

TEST(SettingsHit, IntegersFollowTheStandardConversion) {
  struct Case {
    const char* text;
    int value;
  };
  for (const char* key : {"fps", "screenshot_capture_size_mode"}) {
    SettingsDialogValues values = SampleValues();
    const int& field =
        std::string(key) == "fps" ? values.target_fps : values.screenshot_capture_size_mode;
    for (const Case& c : {Case{" \t\n42", 42}, Case{"42 fps", 42}, Case{"-7", -7}, Case{"+7", 7},
                          Case{"007", 7}, Case{"0x10", 0}, Case{"3.9", 3},
                          Case{"2147483647", 2147483647}, Case{"-2147483648", -2147483647 - 1}}) {
      ApplySettingsHit(&values, Hit(key, c.text, 0.0, false));
      EXPECT_EQ(field, c.value) << key << ' ' << c.text;
    }
    ApplySettingsHit(&values, Hit(key, "5", 0.0, false));
    for (const char* text : {"", " ", "x5", "-", "- 5"}) {
      EXPECT_THROW(ApplySettingsHit(&values, Hit(key, text, 0.0, false)), std::invalid_argument);
    }
    for (const char* text : {"2147483648", "-2147483649", "99999999999999999999"}) {
      EXPECT_THROW(ApplySettingsHit(&values, Hit(key, text, 0.0, false)), std::out_of_range);
    }
    EXPECT_EQ(field, 5) << "changed by a text that is no number";
  }
}

// --- List, bar -----------------------------------------------------------------------------------

using SettingsList = testing::SettingsCanvas;
using SettingsBottomBar = testing::SettingsCanvas;

TEST_F(SettingsList, ShowsHeadingsItemsAndTheSelectedRow) {
  DrawLeftPanel(renderer(), bold(), regular(), BuildSettingsNavItems(), 7, -1, -1);
  const Frame drawn = TakeDraws();
  ASSERT_FALSE(drawn.draws.empty());
  EXPECT_EQ(drawn.draws.front().kind, DrawKind::Fill);
  EXPECT_THAT(drawn.Fills(kListFill), ElementsAre(SDL_Rect{0, 0, 224, 436}));
  EXPECT_THAT(drawn.Fills(kHeadingFill),
              ElementsAre(NavRow(0), NavRow(5), NavRow(7), NavRow(9), NavRow(11)));
  EXPECT_THAT(drawn.Fills(kSelectedFill), ElementsAre(NavRow(4)));
  EXPECT_THAT(drawn.Fills(kAccent), ElementsAre(SDL_Rect{0, 130, 3, 30}));
  EXPECT_THAT(drawn.Fills(kHover), IsEmpty());
  EXPECT_THAT(drawn.OfKind(DrawKind::Fill), SizeIs(8));
  const DrawCall& separator = drawn.draws.back();
  EXPECT_EQ(separator.kind, DrawKind::Line);
  EXPECT_EQ(separator.color, kSeparator);
  EXPECT_EQ(separator.from, (SDL_Point{224, 0}));
  EXPECT_EQ(separator.to, (SDL_Point{224, 436}));
}

TEST_F(SettingsList, LabelsAreCentredOnTheirRows) {
  for (const int size : {9, 10, 15, 16, 22, 30}) {
    const OwnedTtfFont headings = OpenSdlUiFontHandle(size, true, SdlUiFontKind::Ui);
    const OwnedTtfFont items = OpenSdlUiFontHandle(size + 1, false, SdlUiFontKind::Ui);
    const int heading_y = (30 - TTF_FontHeight(headings.get())) / 2;
    const int item_y = (30 - TTF_FontHeight(items.get())) / 2;
    DrawLeftPanel(renderer(), headings.get(), items.get(), BuildSettingsNavItems(), 1, -1, -1);
    std::vector<PlacedText> expected;
    int top = 10;
    for (const NavItem& item : BuildSettingsNavItems()) {
      if (item.kind == 0) {
        expected.push_back({item.label, 10, top + heading_y, kDim, true});
      } else {
        expected.push_back(
            {item.label, 22, top + item_y, item.panel_id == 1 ? kBright : kMiddle, false});
      }
      top += 30;
    }
    EXPECT_THAT(PlacedTexts(TakeDraws()), ElementsAreArray(expected)) << size;
  }
}

TEST_F(SettingsList, HighlightsTheItemUnderTheMouseUnlessSelected) {
  struct Case {
    int mouse_x, mouse_y;
    std::optional<int> row;
  };
  for (const Case& c : {
           Case{0, 70, 2},
           Case{223, 70, 2},
           Case{-1, 70, std::nullopt},
           Case{224, 70, std::nullopt},
           Case{100, 99, 2},
           Case{100, 100, 3},
           Case{100, 129, 3},
           Case{100, 69, std::nullopt},  // the selected row
           Case{100, 10, std::nullopt},
           Case{100, 39, std::nullopt},  // a heading
           Case{100, 370, 12},
           Case{100, 399, 12},
           Case{100, 400, std::nullopt},
           Case{100, 9, std::nullopt},
           Case{-1, -1, std::nullopt},
       }) {
    DrawLeftPanel(renderer(), bold(), regular(), BuildSettingsNavItems(), 0, c.mouse_x, c.mouse_y);
    const Frame drawn = TakeDraws();
    if (c.row) {
      EXPECT_THAT(drawn.Fills(kHover), ElementsAre(NavRow(*c.row)))
          << c.mouse_x << ' ' << c.mouse_y;
      const std::string label = BuildSettingsNavItems()[static_cast<std::size_t>(*c.row)].label;
      EXPECT_EQ(drawn.FindText(label)->color, kMiddle);
    } else {
      EXPECT_THAT(drawn.Fills(kHover), IsEmpty()) << c.mouse_x << ' ' << c.mouse_y;
    }
    EXPECT_THAT(drawn.Fills(kSelectedFill), ElementsAre(NavRow(1)));
  }
}

TEST_F(SettingsList, RowOfAnotherKindLooksLikeAnItem) {
  DrawLeftPanel(renderer(), bold(), regular(), {{2, "Other", 1}, {1, "Item", 2}}, 2, -1, -1);
  const Frame drawn = TakeDraws();
  EXPECT_THAT(drawn.Fills(kHeadingFill), IsEmpty());
  ASSERT_TRUE(drawn.HasText("Other"));
  EXPECT_EQ(drawn.FindText("Other")->rect.x, 22);
}

TEST_F(SettingsList, EmptyListStillHasGroundAndSeparator) {
  DrawLeftPanel(renderer(), bold(), regular(), {}, 0, 100, 50);
  const Frame drawn = TakeDraws();
  ASSERT_THAT(drawn.draws, SizeIs(2));
  EXPECT_THAT(drawn.Fills(kListFill), ElementsAre(SDL_Rect{0, 0, 224, 436}));
  EXPECT_THAT(drawn.Lines(kSeparator), SizeIs(1));
}

TEST_F(SettingsList, NoPageSelectedSelectsNoHeading) {
  DrawLeftPanel(renderer(), bold(), regular(), BuildSettingsNavItems(), -1, -1, -1);
  EXPECT_THAT(TakeDraws().Fills(kSelectedFill), IsEmpty());
}

TEST_F(SettingsList, WithoutFontsHasNoLabels) {
  DrawLeftPanel(renderer(), nullptr, regular(), BuildSettingsNavItems(), 0, -1, -1);
  EXPECT_THAT(TakeDraws().Texts(), SizeIs(8));
  DrawLeftPanel(renderer(), bold(), nullptr, BuildSettingsNavItems(), 0, -1, -1);
  EXPECT_THAT(TakeDraws().Texts(), SizeIs(5));
}

TEST_F(SettingsBottomBar, HasALineAndTwoButtons) {
  struct Case {
    int mouse_x, mouse_y;
    bool cancel, apply;
  };
  for (const Case& c : {
           Case{-1, -1, false, false},
           Case{618, 449, true, false},
           Case{707, 478, true, false},
           Case{617, 449, false, false},
           Case{708, 478, false, false},
           Case{618, 448, false, false},
           Case{707, 479, false, false},
           Case{718, 449, false, true},
           Case{807, 478, false, true},
           Case{717, 449, false, false},
           Case{808, 478, false, false},
       }) {
    DrawBottomBar(renderer(), regular(), kCancel, kApply, c.mouse_x, c.mouse_y);
    const Frame drawn = TakeDraws();
    ASSERT_THAT(drawn.draws, SizeIs(8));
    EXPECT_EQ(drawn.draws[0].rect, (SDL_Rect{0, 436, 820, 56}));
    EXPECT_EQ(drawn.draws[0].color, kBarFill);
    EXPECT_EQ(drawn.draws[1].kind, DrawKind::Line);
    EXPECT_EQ(drawn.draws[1].color, kSeparator);
    EXPECT_EQ(drawn.draws[1].from, (SDL_Point{0, 436}));
    EXPECT_EQ(drawn.draws[1].to, (SDL_Point{820, 436}));
    EXPECT_EQ(drawn.FillAt(618, 449), c.cancel ? kButtonHovered : kButtonFace);
    EXPECT_EQ(drawn.FillAt(718, 449), c.apply ? kButtonHovered : kButtonFace);
    EXPECT_THAT(drawn.Texts(), ElementsAre("Cancel", "Apply"));
    EXPECT_TRUE(kCancel.x < drawn.FindText("Cancel")->rect.x);
    EXPECT_TRUE(kApply.x < drawn.FindText("Apply")->rect.x);
  }
}

}  // namespace
}  // namespace quindle::frontend::gui

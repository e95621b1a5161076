// The badge of each message type, and what it shows when a font lacks its symbol.

#include <gmock/gmock.h>

#include <vector>

#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;  // NOLINT(google-build-using-namespace)
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kSemiBold = "./data/ttf/IBMPlexSans-SemiBold.ttf";
constexpr const char* kDejaVuSans = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr const char* kDejaVuMono = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf";

struct TypeCase {
  int type;
  SDL_Color accent;
  const char* glyph;
  const char* stand_in;
  bool in_ui_font;  // Whether the front end's own face has the symbol.
  bool in_dejavu;
};

const std::vector<TypeCase>& AllTypes() {
  constexpr SDL_Color kInfoBlue{86, 172, 255, 255};
  static const std::vector<TypeCase> types{
      {0, kInfoBlue, "\xE2\x84\xB9", "i", false, true},
      {1, {70, 148, 255, 255}, "?", "?", true, true},
      {2, {255, 180, 0, 255}, "\xE2\x9A\xA0", "!", false, true},
      {3, {255, 92, 92, 255}, "\xE2\x9C\x96", "x", false, true},
      {4, {255, 36, 36, 255}, "\xE2\x9D\x97", "!", false, false},
      {5, {92, 204, 108, 255}, "\xE2\x9C\x94", "v", false, true},
      {6, kInfoBlue, "\xE2\x84\xB9", "i", false, true},
      {9, kInfoBlue, "\xE2\x84\xB9", "i", false, true},
      {255, kInfoBlue, "\xE2\x84\xB9", "i", false, true},
  };
  return types;
}

class MessageBoxBadge : public DialogTest {
 protected:
  // The text that the badge of a box of this type shows.
  static DrawCall ShowBadge(int type) {
    SdlMessageBox::Config config;
    config.type = static_cast<SdlMessageBox::Type>(type);
    DialogScript script;
    script.Wait().Step([] { Quit(); });
    SdlMessageBox(config).Show(nullptr, 1.0F);
    FlushEvents();
    const std::vector<DrawCall> texts = Recorder().last_frame().OfKind(DrawKind::Text);
    return texts.empty() ? DrawCall{} : texts.front();
  }
};

TEST_F(MessageBoxBadge, EachTypeHasItsVisual) {
  for (const TypeCase& c : AllTypes()) {
    const MessageBoxTypeVisual visual =
        VisualForMessageBoxType(static_cast<SdlMessageBox::Type>(c.type));
    EXPECT_EQ(visual.accent, c.accent) << c.type;
    EXPECT_STREQ(visual.glyph, c.glyph) << c.type;
  }
}

TEST_F(MessageBoxBadge, TypesHaveTheirNumbers) {
  EXPECT_EQ(sizeof(SdlMessageBox::Type), 1U);
  EXPECT_EQ(static_cast<int>(SdlMessageBox::Type::Info), 0);
  EXPECT_EQ(static_cast<int>(SdlMessageBox::Type::Question), 1);
  EXPECT_EQ(static_cast<int>(SdlMessageBox::Type::Warning), 2);
  EXPECT_EQ(static_cast<int>(SdlMessageBox::Type::Error), 3);
  EXPECT_EQ(static_cast<int>(SdlMessageBox::Type::Critical), 4);
  EXPECT_EQ(static_cast<int>(SdlMessageBox::Type::Success), 5);
}

TEST_F(MessageBoxBadge, VisualDoesNotDependOnTheFonts) {
  Recorder().HideAllFonts();
  EXPECT_STREQ(VisualForMessageBoxType(SdlMessageBox::Type::Error).glyph, "\xE2\x9C\x96");
}

TEST_F(MessageBoxBadge, BarAndGlyphHaveTheAccentColour) {
  for (const TypeCase& c : AllTypes()) {
    EXPECT_EQ(ShowBadge(c.type).color, c.accent) << c.type;
    EXPECT_THAT(Recorder().last_frame().Fills(c.accent), ElementsAre(SDL_Rect{31, 31, 4, 44}));
  }
}

TEST_F(MessageBoxBadge, SymbolComesFromASystemFontAtTheSameSize) {
  for (const TypeCase& c : AllTypes()) {
    const DrawCall glyph = ShowBadge(c.type);
    const bool from_system_font = !c.in_ui_font && c.in_dejavu;
    EXPECT_EQ(glyph.text, c.in_dejavu ? c.glyph : c.stand_in) << c.type;
    EXPECT_EQ(glyph.font, (FontUse{from_system_font ? kDejaVuSans : kSemiBold, 18, TTF_STYLE_BOLD}))
        << c.type;
  }
}

TEST_F(MessageBoxBadge, WithoutSystemFontALetterStandsIn) {
  Recorder().HideSystemFonts();
  for (const TypeCase& c : AllTypes()) {
    const DrawCall glyph = ShowBadge(c.type);
    EXPECT_EQ(glyph.text, c.stand_in) << c.type;
    EXPECT_EQ(glyph.font, (FontUse{kSemiBold, 18, TTF_STYLE_BOLD})) << c.type;
    EXPECT_EQ(glyph.color, c.accent) << c.type;
  }
}

TEST_F(MessageBoxBadge, IconFontIsUsedWhereItHasTheSymbol) {
  // Without the front end's own fonts the icon font is a system font already.
  const ScopedEmptyWorkingDirectory without_fonts;
  for (const TypeCase& c : AllTypes()) {
    Recorder().Reset();
    const DrawCall glyph = ShowBadge(c.type);
    EXPECT_EQ(glyph.text, c.in_dejavu ? c.glyph : c.stand_in) << c.type;
    EXPECT_EQ(glyph.font, (FontUse{kDejaVuSans, 18, TTF_STYLE_BOLD})) << c.type;
    if (c.in_dejavu) {
      EXPECT_EQ(Recorder().CallCount("TTF_CloseFont"), 4) << c.type;  // No fifth font.
    }
  }
}

TEST_F(MessageBoxBadge, SystemFontWithoutTheSymbolIsPassedOver) {
  Recorder().RedirectFont(kDejaVuSans, kSemiBold);
  const DrawCall glyph = ShowBadge(5);
  EXPECT_EQ(glyph.text, "\xE2\x9C\x94");
  EXPECT_EQ(glyph.font.path, kDejaVuMono);
}

TEST_F(MessageBoxBadge, NoSystemFontWithTheSymbolMeansAStandIn) {
  Recorder().RedirectFont(kDejaVuSans, kSemiBold);
  Recorder().RedirectFont(kDejaVuMono, kSemiBold);
  const DrawCall glyph = ShowBadge(5);
  EXPECT_EQ(glyph.text, "v");
  EXPECT_EQ(glyph.font.path, kSemiBold);
}

TEST_F(MessageBoxBadge, SystemFontIsLookedForOnceBeforeTheFirstFrame) {
  SdlMessageBox::Config config;
  DialogScript script;
  script.Step([] { Recorder().ForgetCalls(); }).Wait(10).Step([] {
    EXPECT_THAT(Recorder().CallsAmong({"TTF_OpenFont", "TTF_GlyphIsProvided32"}), IsEmpty());
    Quit();
  });
  SdlMessageBox(config).Show(nullptr, 1.0F);
  EXPECT_EQ(Recorder().CallCount("TTF_CloseFont"), 5);
}

TEST_F(MessageBoxBadge, SystemFontIsReleasedWhenTheHeartbeatThrows) {
  DialogScript script;
  script.Wait().Step([] { throw 1; });
  EXPECT_THROW(SdlMessageBox({}).Show(nullptr, 1.0F), int);
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
}

TEST_F(MessageBoxBadge, GlyphIsCentredInTheBadge) {
  for (const TypeCase& c : AllTypes()) {
    const DrawCall glyph = ShowBadge(c.type);
    EXPECT_EQ(glyph.rect.x, 31 + (42 - glyph.rect.w) / 2) << c.type;
    EXPECT_EQ(glyph.rect.y, 31 + (44 - glyph.rect.h) / 2) << c.type;
  }
}

// --- A frame drawn by itself ---------------------------------------------------------------------

class MessageBoxBadgeFrame : public MessageBoxBadge {
 protected:
  void SetUp() override {
    MessageBoxBadge::SetUp();
    bundle_ = CreateModalWindowBundle(nullptr, "Box", 0, 0, 420, 300, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
    fonts_ = OpenSdlMessageBoxFonts(1.0F);
  }
  void TearDown() override {
    fonts_ = {};
    bundle_ = {};
    MessageBoxBadge::TearDown();
  }

  DrawCall Draw(const MessageBoxTypeVisual& visual, TTF_Font* icon_font) {
    const SdlMessageBox::Config config;
    const SdlMessageBoxLayout layout = BuildSdlMessageBoxLayout(
        config, 1.0F, 420, 300, fonts_.titleFont.get(), fonts_.bodyFont.get());
    Recorder().ForgetDraws();
    RenderSdlMessageBoxFrame(bundle_.renderer.get(), config, visual, layout, icon_font, nullptr,
                             nullptr, nullptr, -1, -1);
    const std::vector<DrawCall> texts = Recorder().unpresented().OfKind(DrawKind::Text);
    return texts.empty() ? DrawCall{} : texts.front();
  }
  TTF_Font* IconFont() const { return fonts_.iconFont.get(); }

 private:
  ModalWindowBundle bundle_;
  SdlMessageBoxFonts fonts_;
};

TEST_F(MessageBoxBadgeFrame, DrawsTheGivenGlyphWithTheGivenFontAndOpensNone) {
  const long opened = Recorder().CallCount("TTF_OpenFont");
  for (const TypeCase& c : AllTypes()) {
    const DrawCall glyph =
        Draw(VisualForMessageBoxType(static_cast<SdlMessageBox::Type>(c.type)), IconFont());
    EXPECT_EQ(glyph.text, c.glyph) << c.type;
    EXPECT_EQ(glyph.font, (FontUse{kSemiBold, 18, TTF_STYLE_BOLD})) << c.type;
    EXPECT_EQ(glyph.color, c.accent) << c.type;
  }
  EXPECT_EQ(Recorder().CallCount("TTF_OpenFont"), opened);
  EXPECT_EQ(Recorder().CallCount("TTF_GlyphIsProvided32"), 0);
}

TEST_F(MessageBoxBadgeFrame, WithoutGlyphOrFontTheBadgeIsEmpty) {
  EXPECT_EQ(Draw({{1, 2, 3, 255}, nullptr}, IconFont()).text, "");
  EXPECT_EQ(Draw({{1, 2, 3, 255}, "i"}, nullptr).text, "");
}

TEST_F(MessageBoxBadgeFrame, OwnGlyphIsDrawnWithTheIconFont) {
  const DrawCall glyph = Draw({{1, 2, 3, 255}, "\xE2\x98\x83"}, IconFont());
  EXPECT_EQ(glyph.text, "\xE2\x98\x83");
  EXPECT_EQ(glyph.font.path, kSemiBold);
}

TEST_F(MessageBoxBadgeFrame, GlyphLargerThanTheBadgeIsCentredTowardsZero) {
  const OwnedTtfFont large = OpenSdlUiFontHandle(100, true, SdlUiFontKind::Ui);
  Recorder().SetMeasureMode(MeasureMode::Approximate);  // 55 x 130
  Recorder().SetDrawMode(DrawMode::Recorded);
  const DrawCall glyph = Draw(VisualForMessageBoxType(SdlMessageBox::Type::Question), large.get());
  EXPECT_EQ(glyph.rect, (SDL_Rect{31 - 6, 31 - 43, 55, 130}));
}

}  // namespace
}  // namespace quindle::testing

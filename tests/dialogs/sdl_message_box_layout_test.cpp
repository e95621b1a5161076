// The message box's geometry and word wrapping, worked out by hand.

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;  // NOLINT(google-build-using-namespace)
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

SdlMessageBox::Config WithButtons(int count) {
  SdlMessageBox::Config config;
  config.title = "Title";
  config.message = "Message";
  config.buttons.resize(static_cast<std::size_t>(count));
  return config;
}

OwnedTtfFont OpenFont(int size) {
  return OpenSdlUiFontHandle(size, false, SdlUiFontKind::Ui);
}

int HeightOf(TTF_Font* font, const char* text) {
  int height = 0;
  EXPECT_EQ(TTF_SizeUTF8(font, text, nullptr, &height), 0);
  return height;
}

class MessageBoxLayout : public DialogTest {
 protected:
  // With text 20 points high each character is 11 pixels wide and a line 26 high.
  void SetUp() override {
    DialogTest::SetUp();
    Recorder().SetMeasureMode(MeasureMode::Approximate);
    font_ = OpenFont(20);
    ASSERT_NE(font_, nullptr);
  }
  void TearDown() override {
    font_.reset();
    large_font_.reset();
    DialogTest::TearDown();
  }

  SdlMessageBoxLayout Build(const SdlMessageBox::Config& config, float scale, int width,
                            int height) const {
    return BuildSdlMessageBoxLayout(config, scale, width, height, font_.get(), font_.get());
  }

  TTF_Font* Font() const { return font_.get(); }
  // 40 points: a character is 22 pixels wide and a line 52 high.
  TTF_Font* LargeFont() {
    large_font_ = OpenFont(40);
    return large_font_.get();
  }

 private:
  OwnedTtfFont font_;
  OwnedTtfFont large_font_;
};

// --- Metrics that follow the scale ---------------------------------------------------------------

struct ScaledMetrics {
  float scale;
  int pad, margin, gap, icon_w, icon_h, button_h, button_gap, button_w, footer_h;
};

TEST_F(MessageBoxLayout, MetricsFollowScaleAndHaveLeastValues) {
  // Halves are rounded away from zero: 10 * 1.25 is 13.
  const std::vector<ScaledMetrics> cases{
      {1.0F, 10, 20, 12, 42, 44, 28, 8, 84, 52},    {1.25F, 13, 25, 15, 53, 55, 35, 10, 105, 65},
      {2.0F, 20, 40, 24, 84, 88, 56, 16, 168, 104}, {0.85F, 9, 17, 10, 36, 37, 28, 8, 84, 44},
      {0.1F, 6, 12, 8, 34, 34, 28, 8, 84, 44},      {0.0F, 6, 12, 8, 34, 34, 28, 8, 84, 44},
      {-2.0F, 6, 12, 8, 34, 34, 28, 8, 84, 44},
  };
  for (const ScaledMetrics& expected : cases) {
    SCOPED_TRACE(expected.scale);
    const SdlMessageBoxLayout layout = Build(WithButtons(1), expected.scale, 600, 400);
    EXPECT_EQ(layout.pad, expected.pad);
    EXPECT_EQ(layout.margin, expected.margin);
    EXPECT_EQ(layout.gap, expected.gap);
    EXPECT_EQ(layout.iconW, expected.icon_w);
    EXPECT_EQ(layout.iconH, expected.icon_h);
    EXPECT_EQ(layout.buttonH, expected.button_h);
    EXPECT_EQ(layout.buttonGap, expected.button_gap);
    EXPECT_EQ(layout.buttonW, expected.button_w);
    EXPECT_EQ(layout.footerH, expected.footer_h);
  }
}

// --- Places --------------------------------------------------------------------------------------

TEST_F(MessageBoxLayout, PanelsStandInsideTheFrame) {
  const SdlMessageBoxLayout layout = Build(WithButtons(1), 1.0F, 420, 300);
  EXPECT_EQ(layout.frame, (SDL_Rect{10, 10, 400, 280}));
  EXPECT_EQ(layout.content, (SDL_Rect{11, 11, 398, 227}));
  EXPECT_EQ(layout.footer, (SDL_Rect{11, 238, 398, 51}));
}

TEST_F(MessageBoxLayout, PlacesFollowTheScaledMetrics) {
  const SdlMessageBoxLayout layout = Build(WithButtons(2), 2.0F, 900, 500);
  EXPECT_EQ(layout.frame, (SDL_Rect{20, 20, 860, 460}));
  EXPECT_EQ(layout.content, (SDL_Rect{21, 21, 858, 355}));
  EXPECT_EQ(layout.footer, (SDL_Rect{21, 376, 858, 103}));
  EXPECT_EQ(layout.icon, (SDL_Rect{61, 61, 84, 88}));
  EXPECT_EQ(layout.textX, 61 + 84 + 24);
  EXPECT_EQ(layout.buttonsX, 900 - 60 - (2 * 168 + 16));
  EXPECT_EQ(layout.buttonsY, 500 - 20 - 104 + 24);
}

TEST_F(MessageBoxLayout, TitleAndMessageStandRightOfTheBadge) {
  const SdlMessageBoxLayout layout = Build(WithButtons(1), 1.0F, 420, 300);
  EXPECT_EQ(layout.titleY, 31);
  EXPECT_EQ(layout.icon, (SDL_Rect{31, 31, 42, 44}));
  EXPECT_EQ(layout.textX, 85);
  EXPECT_EQ(layout.textW, 420 - 10 - 1 - 20 - 85);
  EXPECT_EQ(layout.titleH, 26);
  EXPECT_EQ(layout.bodyX, 85);
  EXPECT_EQ(layout.bodyY, 31 + 44 + 12);
  EXPECT_EQ(layout.bodyW, layout.textW);
  EXPECT_EQ(layout.bodyH, 11 + 227 - 20 - 87);
  EXPECT_EQ(layout.lineH, 26);
}

TEST_F(MessageBoxLayout, TitleTallerThanTheBadgePushesTheMessageDown) {
  const SdlMessageBoxLayout layout =
      BuildSdlMessageBoxLayout(WithButtons(1), 1.0F, 420, 300, LargeFont(), Font());
  EXPECT_EQ(layout.titleH, 52);
  EXPECT_EQ(layout.bodyY, 31 + 52 + 12);
  EXPECT_EQ(layout.contentHeight, 52 + 60 + 12 + 26 + 20 + 52);
}

TEST_F(MessageBoxLayout, TinyWindowKeepsLeastRoom) {
  const SdlMessageBoxLayout layout = Build(WithButtons(1), 1.0F, 30, 20);
  EXPECT_EQ(layout.content.h, 1);
  EXPECT_EQ(layout.textW, 40);
  EXPECT_EQ(layout.bodyW, 40);
  EXPECT_EQ(layout.bodyH, 40);
}

TEST_F(MessageBoxLayout, LeastTextWidthHoldsAtItsEdge) {
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 116 + 40, 300).textW, 40);
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 116 + 41, 300).textW, 41);
}

TEST_F(MessageBoxLayout, LeastContentHeightHoldsAtItsEdge) {
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 73).content.h, 1);
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 74).content.h, 1);
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 75).content.h, 2);
}

TEST_F(MessageBoxLayout, LeastBodyHeightHoldsAtItsEdge) {
  // Content ends at H - 62, the body 20 above; it starts at 87.
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 87 + 40 + 82).bodyH, 40);
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 87 + 41 + 82).bodyH, 41);
}

// --- Buttons -------------------------------------------------------------------------------------

TEST_F(MessageBoxLayout, TwoButtonsAreRightAligned) {
  EXPECT_EQ(Build(WithButtons(2), 1.0F, 320, 180).buttonsX, 114);
}

TEST_F(MessageBoxLayout, ButtonsStartWhereTheirNumberPutsThem) {
  EXPECT_EQ(Build(WithButtons(0), 1.0F, 420, 180).buttonsX, 390);
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 180).buttonsX, 306);
  EXPECT_EQ(Build(WithButtons(3), 1.0F, 420, 180).buttonsX, 122);
}

TEST_F(MessageBoxLayout, RowThatDoesNotFitStartsAtTheMargin) {
  EXPECT_EQ(Build(WithButtons(20), 1.0F, 420, 180).buttonsX, 30);
  // Four buttons take 360 pixels, all that 420 leave between the margins.
  EXPECT_EQ(Build(WithButtons(4), 1.0F, 420, 180).buttonsX, 30);
  EXPECT_EQ(Build(WithButtons(4), 1.0F, 421, 180).buttonsX, 31);
  EXPECT_EQ(Build(WithButtons(4), 1.0F, 419, 180).buttonsX, 30);
}

TEST_F(MessageBoxLayout, ButtonsAreCentredInTheFooter) {
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 180).buttonsY, 180 - 10 - 52 + 12);
  // Footer 54, button 29: the odd pixel is below.
  EXPECT_EQ(Build(WithButtons(1), 1.03F, 420, 180).buttonsY, 180 - 10 - 54 + 12);
}

// --- Measured texts ------------------------------------------------------------------------------

TEST_F(MessageBoxLayout, SmallTextHasLeastHeights) {
  const OwnedTtfFont small = OpenFont(10);  // Lines of 13.
  const SdlMessageBoxLayout layout =
      BuildSdlMessageBoxLayout(WithButtons(1), 1.0F, 420, 180, small.get(), small.get());
  EXPECT_EQ(layout.titleH, 16);
  EXPECT_EQ(layout.lineH, 14);
}

TEST_F(MessageBoxLayout, HeightsJustAboveTheLeastOnesCount) {
  const OwnedTtfFont title = OpenFont(14);  // Lines of 18.
  const OwnedTtfFont body = OpenFont(12);   // Lines of 15.
  const SdlMessageBoxLayout layout =
      BuildSdlMessageBoxLayout(WithButtons(1), 1.0F, 420, 180, title.get(), body.get());
  EXPECT_EQ(layout.titleH, 18);
  EXPECT_EQ(layout.lineH, 15);
}

TEST_F(MessageBoxLayout, FailedMeasurementsCountAsLeastHeights) {
  Recorder().FailAlways("TTF_SizeUTF8");
  const SdlMessageBoxLayout layout = Build(WithButtons(1), 1.0F, 420, 180);
  EXPECT_EQ(layout.titleH, 16);
  EXPECT_EQ(layout.lineH, 14);
}

TEST_F(MessageBoxLayout, LineHeightIsThatOfTheBodyFontAlone) {
  const SdlMessageBoxLayout layout =
      BuildSdlMessageBoxLayout(WithButtons(1), 1.0F, 420, 300, Font(), LargeFont());
  EXPECT_EQ(layout.titleH, 26);
  EXPECT_EQ(layout.lineH, 52);
}

// A font's own measure of "Ag" and not of the message decides.
TEST_F(MessageBoxLayout, LineHeightIsMeasuredWithRealFonts) {
  Recorder().SetMeasureMode(MeasureMode::Real);
  int height = 0;
  ASSERT_EQ(TTF_SizeUTF8(Font(), "Ag", nullptr, &height), 0);
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 180).lineH, height);
}

// A letter that is higher than the font's line: 57 pixels at 40 points, where the line has 52.
TEST_F(MessageBoxLayout, TitleIsMeasuredItselfAndLinesByAFixedSample) {
  Recorder().SetMeasureMode(MeasureMode::Real);
  const OwnedTtfFont title = OpenFont(40);
  const OwnedTtfFont body = OpenFont(40);
  const char* const tall = "\u01FA";
  ASSERT_GT(HeightOf(body.get(), tall), HeightOf(body.get(), "Ag"));
  SdlMessageBox::Config config = WithButtons(1);
  const auto build = [&] {
    return BuildSdlMessageBoxLayout(config, 1.0F, 420, 300, title.get(), body.get());
  };
  EXPECT_EQ(build().titleH, HeightOf(title.get(), "Title"));
  config.title = tall;
  config.message = tall;
  EXPECT_EQ(build().titleH, HeightOf(title.get(), tall));
  EXPECT_EQ(build().lineH, HeightOf(body.get(), "Ag"));
  config.title = "Title";
  EXPECT_EQ(build().titleH, HeightOf(title.get(), "Title"));
}

// --- Heights -------------------------------------------------------------------------------------

TEST_F(MessageBoxLayout, OneLineContentHeight) {
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 180).contentHeight, 44 + 60 + 12 + 26 + 20 + 52);
}

TEST_F(MessageBoxLayout, ContentHeightGrowsWithEachLine) {
  SdlMessageBox::Config config = WithButtons(1);
  config.message = "a\nb\n\nc";
  EXPECT_EQ(Build(config, 1.0F, 420, 180).contentHeight, 44 + 60 + 12 + 4 * 26 + 20 + 52);
}

TEST_F(MessageBoxLayout, ContentHeightFollowsTheScaledMetrics) {
  EXPECT_EQ(Build(WithButtons(1), 2.0F, 420, 180).contentHeight, 88 + 120 + 24 + 26 + 40 + 104);
}

struct HeightCase {
  int configured;
  float scale;
  int min_height;
};

TEST_F(MessageBoxLayout, LeastHeightIsNeverScaledDown) {
  const std::vector<HeightCase> cases{
      {0, 1.0F, 160},   {159, 1.0F, 160}, {160, 1.0F, 160},  {161, 1.0F, 161},
      {300, 1.0F, 300}, {300, 2.0F, 600}, {100, 1.5F, 240},  {300, 0.5F, 300},
      {161, 1.5F, 242}, {300, 0.0F, 300}, {300, -1.0F, 300},
  };
  for (const HeightCase& c : cases) {
    SdlMessageBox::Config config = WithButtons(1);
    config.height = c.configured;
    EXPECT_EQ(Build(config, c.scale, 420, 180).minHeight, c.min_height)
        << c.configured << " at " << c.scale;
  }
}

TEST_F(MessageBoxLayout, TargetHeightIsTheGreaterOne) {
  SdlMessageBox::Config config = WithButtons(1);
  config.height = 213;
  EXPECT_EQ(Build(config, 1.0F, 420, 180).targetHeight, 214);  // The content's.
  config.height = 215;
  EXPECT_EQ(Build(config, 1.0F, 420, 180).targetHeight, 215);
}

TEST_F(MessageBoxLayout, HeightsDoNotDependOnTheWindowsHeight) {
  EXPECT_EQ(Build(WithButtons(1), 1.0F, 420, 1000).targetHeight, 214);
}

TEST_F(MessageBoxLayout, HeightOfAHugeMessageDoesNotOverflow) {
  const OwnedTtfFont huge = OpenFont(20'000);  // Lines of 26,000.
  SdlMessageBox::Config config = WithButtons(1);
  config.message = std::string(100'000, '\n');
  EXPECT_EQ(BuildSdlMessageBoxLayout(config, 1.0F, 420, 180, Font(), huge.get()).targetHeight,
            std::numeric_limits<int>::max());
}

// --- Word wrapping -------------------------------------------------------------------------------

class MessageBoxWrap : public MessageBoxLayout {
 protected:
  // The lines of a message in a body of `width` pixels; ten characters take 110.
  std::vector<std::string> Wrap(const std::string& message, int width = 110) const {
    SdlMessageBox::Config config = WithButtons(1);
    config.message = message;
    return Build(config, 1.0F, width + 116, 300).lines;
  }
};

struct WrapCase {
  const char* rule;
  const char* message;
  std::vector<std::string> lines;
};

TEST_F(MessageBoxWrap, BreaksAtBlanksAndLineFeeds) {
  const std::vector<WrapCase> cases{
      {"fits", "one two", {"one two"}},
      {"exactly as wide as the limit", "one two 89", {"one two 89"}},
      {"one character wider", "one two 890", {"one two", "890"}},
      {"several lines", "aaaa bbbb cccc dddd ee", {"aaaa bbbb", "cccc dddd", "ee"}},
      {"empty message", "", {""}},
      {"one blank", " ", {""}},
      {"blanks only", "  \t \t ", {""}},
      {"leading blanks", "   one", {"one"}},
      {"leading tab", "\tone", {"one"}},
      {"trailing blanks", "one  ", {"one"}},
      {"run of blanks", "one    two", {"one two"}},
      {"tab", "one\ttwo", {"one two"}},
      {"tabs and blanks", "one \t \ttwo", {"one two"}},
      {"blank before a line feed", "one \ntwo", {"one", "two"}},
      {"blank behind a line feed", "one\n two", {"one", "two"}},
      {"line feed", "a\nb", {"a", "b"}},
      {"empty line", "a\n\nb", {"a", "", "b"}},
      {"two empty lines", "a\n\n\nb", {"a", "", "", "b"}},
      {"final line feed", "a\n", {"a"}},
      {"two final line feeds", "a\n\n", {"a", ""}},
      {"leading line feed", "\na", {"", "a"}},
      {"line feed only", "\n", {""}},
      {"two line feeds", "\n\n", {"", ""}},
      {"blanks between line feeds", "a\n \t\nb", {"a", "", "b"}},
      {"blank behind the final line feed", "a\n ", {"a"}},
      {"long word", "abcdefghijklmnop", {"abcdefghijklmnop"}},
      {"long word in between", "a abcdefghijklmnop b", {"a", "abcdefghijklmnop", "b"}},
      {"two long words", "abcdefghijk lmnopqrstuv", {"abcdefghijk", "lmnopqrstuv"}},
      {"long word behind a line feed", "a\nabcdefghijklmnop", {"a", "abcdefghijklmnop"}},
      {"hyphen is no break", "aaaaa-bbbbb-ccccc", {"aaaaa-bbbbb-ccccc"}},
      {"carriage return is no break", "a\rb", {"a\rb"}},
      {"vertical tab is no break", "a\vb", {"a\vb"}},
      {"no-break space is no break", "aaaaaa\u00A0bbbbbb", {"aaaaaa\u00A0bbbbbb"}},
      {"characters of several bytes", "äöü äöü äöü", {"äöü äöü", "äöü"}},
      {"ideographs", "日本語 日本語 日本語", {"日本語 日本語", "日本語"}},
  };
  for (const WrapCase& c : cases) {
    EXPECT_THAT(Wrap(c.message), ElementsAreArray(c.lines)) << c.rule;
  }
}

TEST_F(MessageBoxWrap, LimitIsThePixelWidth) {
  EXPECT_THAT(Wrap("one two 89", 109), ElementsAre("one two", "89"));
  EXPECT_THAT(Wrap("one two 890", 121), ElementsAre("one two 890"));
}

TEST_F(MessageBoxWrap, LimitIsAtLeastForty) {
  EXPECT_THAT(Wrap("a b", 5), ElementsAre("a b"));  // 33 pixels
  EXPECT_THAT(Wrap("ab c", 5), ElementsAre("ab", "c"));
}

TEST_F(MessageBoxWrap, LeastLimitIsExact) {
  const OwnedTtfFont font = OpenFont(15);  // Five characters take 41 pixels.
  SdlMessageBox::Config config = WithButtons(1);
  config.message = "ab cd";
  EXPECT_THAT(BuildSdlMessageBoxLayout(config, 1.0F, 5, 300, font.get(), font.get()).lines,
              ElementsAre("ab", "cd"));
}

TEST_F(MessageBoxWrap, FailedMeasurementOfACandidateStartsANewLine) {
  // Measured in turn: the title, "aa", "aa bb", then "bb cc".
  Recorder().FailCall("TTF_SizeUTF8", 3);
  EXPECT_THAT(Wrap("aa bb cc"), ElementsAre("aa", "bb cc"));
}

TEST_F(MessageBoxWrap, FailedMeasurementOfAFirstWordKeepsIt) {
  Recorder().FailCall("TTF_SizeUTF8", 2);
  EXPECT_THAT(Wrap("aa bb cc"), ElementsAre("aa bb cc"));
}

TEST_F(MessageBoxWrap, WithoutAnyMeasurementEachWordStandsAlone) {
  Recorder().FailAlways("TTF_SizeUTF8");
  EXPECT_THAT(Wrap("aa bb\ncc"), ElementsAre("aa", "bb", "cc"));
}

TEST_F(MessageBoxWrap, WithoutBodyFontThereAreNoLines) {
  for (const char* message : {"text", ""}) {
    SdlMessageBox::Config config = WithButtons(1);
    config.message = message;
    const SdlMessageBoxLayout layout =
        BuildSdlMessageBoxLayout(config, 1.0F, 420, 300, Font(), nullptr);
    EXPECT_THAT(layout.lines, IsEmpty());
    EXPECT_EQ(layout.lineH, 14);
    EXPECT_EQ(layout.contentHeight, 44 + 60 + 12 + 20 + 52);
  }
}

TEST_F(MessageBoxWrap, MessageIsWrappedInTheBodyFont) {
  SdlMessageBox::Config config = WithButtons(1);
  config.message = "one two";
  // 7 characters of 22 pixels in a body of 110.
  EXPECT_THAT(BuildSdlMessageBoxLayout(config, 1.0F, 226, 300, Font(), LargeFont()).lines,
              ElementsAre("one", "two"));
}

}  // namespace
}  // namespace quindle::testing

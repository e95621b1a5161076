// The message box: how it opens, what ends it, and how it leaves.

#include "frontend/gui/sdl_message_box.h"

#include <gmock/gmock.h>

#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;  // NOLINT(google-build-using-namespace)
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

constexpr Uint32 kHidden = SDL_WINDOW_HIDDEN;

// A box of the default width with a message of one line is 207 pixels high with the shipped fonts.
constexpr int kBoxHeight = 207;
constexpr SDL_Rect kYes{214, 157, 84, 28};
constexpr SDL_Rect kNo{306, 157, 84, 28};

SdlMessageBox::Config YesNo() {
  SdlMessageBox::Config config;
  config.title = "Overwrite?";
  config.message = "The image exists already.";
  config.type = SdlMessageBox::Type::Question;
  config.buttons = {{7, "Yes", true, false, {}}, {8, "No", false, true, {}}};
  return config;
}

// What is queued, but for the news of windows that come and go.
std::vector<SDL_Event> QueuedInput() {
  std::vector<SDL_Event> events = EventsLeftBehind();
  std::erase_if(events, [](const SDL_Event& event) { return event.type == SDL_WINDOWEVENT; });
  return events;
}

int Show(const SdlMessageBox::Config& config, SDL_Window* parent = nullptr, float scale = 1.0F) {
  return SdlMessageBox(config).Show(parent, scale);
}

class MessageBoxTest : public DialogTest {
 protected:
  // Shows the box and lets `action` act in its second frame. It must end the box.
  static int ShowAnd(const SdlMessageBox::Config& config, std::function<void()> action,
                     SDL_Window* parent = nullptr) {
    DialogScript script;
    script.Wait().Step(std::move(action));
    return Show(config, parent);
  }
};

// --- What the constructor makes of the record ----------------------------------------------------

TEST_F(MessageBoxTest, DefaultRecord) {
  const SdlMessageBox::Config config;
  EXPECT_EQ(config.type, SdlMessageBox::Type::Info);
  EXPECT_EQ(config.width, 420);
  EXPECT_EQ(config.height, 160);
  EXPECT_TRUE(config.escapeEnabled);
}

TEST_F(MessageBoxTest, WithoutButtonsEscapeReturnsOk) {
  EXPECT_EQ(ShowAnd({}, [] { KeyDown(SDLK_ESCAPE); }), 1);
}

TEST_F(MessageBoxTest, WithoutButtonsClickReturnsOk) {
  EXPECT_EQ(ShowAnd({}, [] { Click(kNo); }), 1);  // One button stands where the last one does.
  EXPECT_TRUE(Recorder().last_frame().HasText("OK"));
}

TEST_F(MessageBoxTest, WithoutButtonsThereIsExactlyOne) {
  EXPECT_EQ(ShowAnd({},
                    [] {
                      Click(kYes);
                      Quit();
                    }),
            -1);
}

TEST_F(MessageBoxTest, EmptyTitleBecomesMessage) {
  ShowAnd({}, [] { Quit(); });
  EXPECT_EQ(Recorder().windows().back().title, "Message");
  EXPECT_TRUE(Recorder().last_frame().HasText("Message"));
}

TEST_F(MessageBoxTest, GivenTitleIsKept) {
  ShowAnd(YesNo(), [] { Quit(); });
  EXPECT_EQ(Recorder().windows().back().title, "Overwrite?");
  EXPECT_TRUE(Recorder().last_frame().HasText("Overwrite?"));
}

struct SizeCase {
  int width, height, opened_width, opened_height;
};

TEST_F(MessageBoxTest, WindowOpensWithLeastWidthAndHeightEach) {
  const std::vector<SizeCase> cases{
      {100, 50, 320, 180}, {320, 180, 320, 180}, {321, 181, 321, 181}, {319, 179, 320, 180},
      {500, 50, 500, 180}, {100, 300, 320, 300}, {-5, -5, 320, 180},   {420, 160, 420, 180},
  };
  for (const SizeCase& c : cases) {
    SdlMessageBox::Config config;
    config.width = c.width;
    config.height = c.height;
    ShowAnd(config, [] { Quit(); });
    EXPECT_EQ(Recorder().windows().back().w, c.opened_width) << c.width;
    EXPECT_EQ(Recorder().windows().back().h, c.opened_height) << c.height;
    FlushEvents();
  }
}

// --- Opening -------------------------------------------------------------------------------------

TEST_F(MessageBoxTest, OpensHiddenAtParentsOffsetAndModal) {
  SDL_Window* const parent = MakeParent();
  ShowAnd(
      YesNo(), [] { Quit(); }, parent);
  ASSERT_THAT(Recorder().windows(), Not(IsEmpty()));
  const WindowRecord& window = Recorder().windows().back();
  EXPECT_EQ(window.x, 180);
  EXPECT_EQ(window.y, 180);
  EXPECT_EQ(window.w, 420);
  EXPECT_EQ(window.h, 180);
  EXPECT_EQ(window.flags, kHidden);
  EXPECT_EQ(window.modal_for, parent);
}

TEST_F(MessageBoxTest, WithoutParentOpensAtTheCentringMarker) {
  ShowAnd(YesNo(), [] { Quit(); });
  const WindowRecord& window = Recorder().windows().back();
  EXPECT_EQ(window.x, 0x2FFF0000 + 80);
  EXPECT_EQ(window.y, 0x2FFF0000 + 80);
  EXPECT_EQ(window.modal_for, nullptr);
  EXPECT_EQ(Recorder().CallCount("SDL_SetWindowModalFor"), 0);
}

TEST_F(MessageBoxTest, AsksForAnAcceleratedRendererThenForASoftwareOne) {
  Recorder().FailCall("SDL_CreateRenderer");
  ShowAnd(YesNo(), [] { Quit(); });
  const auto& renderers = Recorder().renderers();
  ASSERT_THAT(renderers, SizeIs(2));
  EXPECT_EQ(renderers[0].flags, Uint32{SDL_RENDERER_ACCELERATED});
  EXPECT_EQ(renderers[0].index, -1);
  EXPECT_EQ(renderers[1].flags, Uint32{SDL_RENDERER_SOFTWARE});
  EXPECT_EQ(renderers[1].index, -1);
}

// The requests that opened a font.
std::vector<FontRequest> OpenedFonts() {
  std::vector<FontRequest> opened;
  for (const FontRequest& request : Recorder().font_requests()) {
    if (request.opened) {
      opened.push_back(request);
    }
  }
  return opened;
}

constexpr const char* kSemiBold = "./data/ttf/IBMPlexSans-SemiBold.ttf";

std::vector<FontRequest> FourFonts(int icon_size, int text_size) {
  return {{kSemiBold, icon_size, true, TTF_STYLE_BOLD},
          {kSemiBold, text_size, true, TTF_STYLE_BOLD},
          {kSemiBold, text_size, true, TTF_STYLE_NORMAL},
          {kSemiBold, text_size, true, TTF_STYLE_NORMAL}};
}

TEST_F(MessageBoxTest, OpensItsFourFonts) {
  ShowAnd(YesNo(), [] { Quit(); });
  EXPECT_EQ(OpenedFonts(), FourFonts(18, 14));
}

TEST_F(MessageBoxTest, ScaleOfShowIsNotApplied) {
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  Show(YesNo(), nullptr, 3.0F);
  EXPECT_EQ(OpenedFonts(), FourFonts(18, 14));
  EXPECT_EQ(Recorder().windows().back().w, 420);
  EXPECT_EQ(Recorder().last_frame().draws.at(1).rect, (SDL_Rect{10, 10, 400, kBoxHeight - 20}));
}

TEST_F(MessageBoxTest, FontSizesFollowTheScaleOfTheirFunction) {
  const std::vector<std::pair<float, std::pair<int, int>>> cases{
      {1.0F, {18, 14}}, {2.0F, {36, 28}},  {1.25F, {23, 18}}, {0.9F, {16, 14}},  {0.5F, {16, 14}},
      {0.0F, {16, 14}}, {-1.0F, {16, 14}}, {0.95F, {17, 14}}, {1.04F, {19, 15}},
  };
  for (const auto& [scale, sizes] : cases) {
    Recorder().Reset();
    const SdlMessageBoxFonts fonts = OpenSdlMessageBoxFonts(scale);
    EXPECT_EQ(OpenedFonts(), FourFonts(sizes.first, sizes.second)) << scale;
  }
}

TEST_F(MessageBoxTest, FontsAlreadyOpenAreClosedWhenOpeningThrows) {
  for (int good = 0; good < 4; ++good) {
    int left = good;
    Recorder().HideFonts([left](const std::string&) mutable {
      if (left-- == 0) {
        throw std::runtime_error("no memory");
      }
      return false;
    });
    EXPECT_THROW(OpenSdlMessageBoxFonts(1.0F), std::runtime_error);
    EXPECT_EQ(Recorder().alive(), AliveCounts{}) << good;
    Recorder().HideFonts({});
  }
}

// --- Failed openings -----------------------------------------------------------------------------

// The box could not be shown: nobody noticed anything.
void ExpectNothingWasShown(SDL_Window* parent) {
  EXPECT_EQ(Show(YesNo(), parent), -1);
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
  EXPECT_THAT(
      Recorder().CallsAmong({"SDL_ShowWindow", "SDL_RaiseWindow", "SDL_SetWindowInputFocus",
                             "SDL_RenderPresent", "SDL_ShowSimpleMessageBox", "SDL_PollEvent"}),
      IsEmpty());
}

class MessageBoxFailureTest : public MessageBoxTest {
 protected:
  void SetUp() override {
    MessageBoxTest::SetUp();
    parent_ = MakeParent();
    Recorder().ForgetCalls();
    SetModalDialogHeartbeat([this] { ++heartbeats_; });
  }
  void TearDown() override {
    EXPECT_EQ(heartbeats_, 0);
    MessageBoxTest::TearDown();
  }
  SDL_Window* Parent() const { return parent_; }

 private:
  SDL_Window* parent_ = nullptr;
  int heartbeats_ = 0;
};

TEST_F(MessageBoxFailureTest, NoWindow) {
  Recorder().FailCall("SDL_CreateWindow");
  ExpectNothingWasShown(Parent());
}

TEST_F(MessageBoxFailureTest, NoRenderer) {
  Recorder().FailAlways("SDL_CreateRenderer");
  ExpectNothingWasShown(Parent());
  EXPECT_THAT(Recorder().renderers(), SizeIs(2));
}

TEST_F(MessageBoxFailureTest, NoFontLibrary) {
  while (TTF_WasInit() != 0) {
    TTF_Quit();
  }
  Recorder().FailAlways("TTF_Init");
  ExpectNothingWasShown(Parent());
}

TEST_F(MessageBoxFailureTest, NoFontFileAtAll) {
  Recorder().HideAllFonts();
  ExpectNothingWasShown(Parent());
}

TEST_F(MessageBoxFailureTest, EachOfTheFourFontsIsNeeded) {
  // A bold font is looked for in 13 places, the others in 16.
  const std::vector<int> places{13, 13, 16, 16};
  for (int font = 0; font < 4; ++font) {
    SCOPED_TRACE(font);
    for (int place = 0; place < places[static_cast<std::size_t>(font)]; ++place) {
      Recorder().FailCall("TTF_OpenFont", font + 1 + place);
    }
    ExpectNothingWasShown(Parent());
    // The fault hit this font and no other.
    EXPECT_EQ(Recorder().CallCount("TTF_CloseFont"), 3 * (font + 1));
  }
}

// --- Frames --------------------------------------------------------------------------------------

TEST_F(MessageBoxTest, ResizesBeforeItsFirstFrameIsShown) {
  DialogScript script;
  script.Step([] { Recorder().ForgetCalls(); }).Step([] { Quit(); });
  Show(YesNo());
  EXPECT_THAT(
      Recorder().CallsAmong({"SDL_SetWindowSize", "SDL_RenderPresent", "SDL_ShowWindow",
                             "SDL_RaiseWindow", "SDL_SetWindowInputFocus", "SDL_Delay"}),
      ElementsAre("SDL_SetWindowSize", "SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                  "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_RenderPresent", "SDL_Delay"));
}

TEST_F(MessageBoxTest, FirstFrameIsDrawnForTheNewSize) {
  DialogScript script;
  script.Wait().Step([] {
    EXPECT_EQ(Recorder().last_frame().draws.at(1).rect, (SDL_Rect{10, 10, 400, kBoxHeight - 20}));
    Quit();
  });
  Show(YesNo());
}

TEST_F(MessageBoxTest, ClickInTheFirstFrameMeetsTheNewSize) {
  DialogScript script;
  script.Step([] {
    FlushEvents();
    Click(kYes);
  });
  EXPECT_EQ(Show(YesNo()), 7);
}

TEST_F(MessageBoxTest, EventsOfAFrameAreReadBetweenSizeAndPointer) {
  DialogScript script;
  script.Step([] { Quit(); });
  Show(YesNo());
  const auto calls = Recorder().CallsAmong(
      {"SDL_SetWindowSize", "SDL_PollEvent", "SDL_GetMouseFocus", "SDL_RenderClear"});
  ASSERT_THAT(calls, SizeIs(::testing::Ge(4U)));
  EXPECT_EQ(calls.front(), "SDL_SetWindowSize");
  EXPECT_EQ(calls[1], "SDL_PollEvent");
  EXPECT_EQ(calls[calls.size() - 2], "SDL_GetMouseFocus");
  EXPECT_EQ(calls.back(), "SDL_RenderClear");
}

TEST_F(MessageBoxTest, PausesTwelveMillisecondsAFrame) {
  DialogScript script;
  script.Wait(5).Step([] { Quit(); });
  Show(YesNo());
  EXPECT_THAT(Recorder().delays(), SizeIs(6));
  EXPECT_THAT(Recorder().delays(), Each(12U));
}

TEST_F(MessageBoxTest, HeartbeatRunsOnceAFrame) {
  DialogScript script;
  script.Wait(5).Step([] { Quit(); });
  Show(YesNo());
  EXPECT_EQ(script.frames(), 6);
  EXPECT_EQ(Recorder().presents(), 6);
}

TEST_F(MessageBoxTest, DecidingFrameIsStillDrawnAndShown) {
  const std::vector<std::function<void()>> decisions{
      [] { Quit(); }, [] { CloseWindow(WindowId()); }, [] { KeyDown(SDLK_ESCAPE); },
      [] { Click(kYes); }};
  for (const auto& decide : decisions) {
    Recorder().Reset();
    DialogScript script;
    script.Step([decide] {
      FlushEvents();
      decide();
    });
    Show(YesNo());
    FlushEvents();
    EXPECT_EQ(Recorder().presents(), 1);
    EXPECT_EQ(Recorder().CallCount("SDL_ShowWindow"), 1);
    EXPECT_THAT(Recorder().delays(), ElementsAre(12U));
    EXPECT_TRUE(Recorder().last_frame().HasText("Yes"));
  }
}

// --- Sizes in a window that is there already ---------------------------------------------------

class MessageBoxLoopTest : public MessageBoxTest {
 protected:
  void SetUp() override {
    MessageBoxTest::SetUp();
    bundle_ = CreateModalWindowBundle(nullptr, "Box", 0, 0, 420, kBoxHeight, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
    fonts_ = OpenSdlMessageBoxFonts(1.0F);
    FlushEvents();
  }
  void TearDown() override {
    fonts_ = {};
    bundle_ = {};
    MessageBoxTest::TearDown();
  }

  void ForgetFonts() { fonts_ = {}; }
  SDL_Window* Window() const { return bundle_.window.get(); }
  int Run(const SdlMessageBox::Config& config, float scale = 1.0F,
          MessageBoxTypeVisual visual = VisualForMessageBoxType(SdlMessageBox::Type::Question)) {
    return RunSdlMessageBoxLoop(Window(), bundle_.renderer.get(), config, scale, visual, fonts_);
  }
  SDL_Point Size() const {
    SDL_Point size{0, 0};
    SDL_GetWindowSize(Window(), &size.x, &size.y);
    return size;
  }

 private:
  ModalWindowBundle bundle_;
  SdlMessageBoxFonts fonts_;
};

TEST_F(MessageBoxLoopTest, OnePixelOffIsLeftAlone) {
  for (const int height : {kBoxHeight - 1, kBoxHeight, kBoxHeight + 1}) {
    SDL_SetWindowSize(Window(), 333, height);
    Recorder().ForgetCalls();
    const long before = Recorder().CallCount("SDL_SetWindowSize");
    DialogScript script;
    script.Wait().Step([] { Quit(); });
    Run(YesNo());
    EXPECT_EQ(Recorder().CallCount("SDL_SetWindowSize"), before) << height;
    EXPECT_EQ(Size(), (SDL_Point{333, height}));
  }
}

TEST_F(MessageBoxLoopTest, TwoPixelsOffAreSetRight) {
  for (const int height : {kBoxHeight - 2, kBoxHeight + 2}) {
    SDL_SetWindowSize(Window(), 333, height);
    const long before = Recorder().CallCount("SDL_SetWindowSize");
    DialogScript script;
    script.Wait().Step([] { Quit(); });
    Run(YesNo());
    EXPECT_EQ(Recorder().CallCount("SDL_SetWindowSize"), before + 1) << height;
    EXPECT_EQ(Size(), (SDL_Point{333, kBoxHeight}));
  }
}

TEST_F(MessageBoxLoopTest, AsksForNoWindowTallerThanX11Has) {
  Recorder().SetDrawMode(DrawMode::Recorded);
  SdlMessageBox::Config config = YesNo();
  config.message = std::string(4000, '\n');
  const long before = Recorder().CallCount("SDL_SetWindowSize");
  DialogScript script;
  script.Wait(3).Step([this] {
    EXPECT_EQ(Size(), (SDL_Point{420, 65535}));
    Quit();
  });
  Run(config);
  EXPECT_EQ(Recorder().CallCount("SDL_SetWindowSize"), before + 1);
}

TEST_F(MessageBoxLoopTest, FollowsAWidthThatChangesWhileItIsOpen) {
  DialogScript script;
  script.Wait().Step([this] { SDL_SetWindowSize(Window(), 500, 400); }).Step([] {
    EXPECT_EQ(Recorder().last_frame().draws.at(1).rect, (SDL_Rect{10, 10, 480, kBoxHeight - 20}));
    Click(214 + 80 + 1, 160);
  });
  EXPECT_EQ(Run(YesNo()), 7);
}

TEST_F(MessageBoxLoopTest, ScaleIsAppliedToTheGeometry) {
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  Run(YesNo(), 2.0F);
  EXPECT_EQ(Recorder().last_frame().draws.at(1).rect.x, 20);
}

// In a window of 420 pixels the row of two starts at the margin, and the box is 395 pixels high:
// its buttons stand at 295.
TEST_F(MessageBoxLoopTest, ClicksMeetTheScaledButtons) {
  const std::vector<std::pair<SDL_Point, int>> cases{
      {{60, 300}, 7},   {{59, 300}, -1}, {{227, 300}, 7}, {{228, 300}, -1},
      {{243, 300}, -1}, {{244, 300}, 8}, {{411, 300}, 8}, {{412, 300}, -1},
      {{60, 294}, -1},  {{60, 295}, 7},  {{244, 350}, 8}, {{244, 351}, -1},
  };
  for (const auto& [point, result] : cases) {
    DialogScript script;
    script.Wait().Step([this, point = point] {
      EXPECT_EQ(Size().y, 395);
      MouseUp(point.x, point.y);
      Quit();
    });
    EXPECT_EQ(Run(YesNo(), 2.0F), result) << point.x << ", " << point.y;
    FlushEvents();
  }
}

TEST_F(MessageBoxLoopTest, BadgeFontIsLookedForAtTheScaledSize) {
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  Run(YesNo(), 2.0F, VisualForMessageBoxType(SdlMessageBox::Type::Error));
  EXPECT_EQ(Recorder().last_frame().FindText("\u2716")->font.size, 36);
}

TEST_F(MessageBoxLoopTest, OwnGlyphIsDrawnAsItIs) {
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  const long opened = Recorder().CallCount("TTF_OpenFont");
  Run(YesNo(), 1.0F, MessageBoxTypeVisual{{1, 2, 3, 255}, "\u2603"});
  const DrawCall* glyph = Recorder().last_frame().FindText("\u2603");
  ASSERT_NE(glyph, nullptr);
  EXPECT_EQ(glyph->font, (FontUse{kSemiBold, 18, TTF_STYLE_BOLD}));
  EXPECT_EQ(glyph->color, (SDL_Color{1, 2, 3, 255}));
  EXPECT_EQ(Recorder().CallCount("TTF_OpenFont"), opened);
}

TEST_F(MessageBoxLoopTest, NoGlyphLeavesTheBadgeEmpty) {
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  Run(YesNo(), 1.0F, MessageBoxTypeVisual{{1, 2, 3, 255}, nullptr});
  EXPECT_THAT(Recorder().last_frame().Texts(),
              ElementsAre("Overwrite?", "The image exists already.", "Yes", "No"));
}

TEST_F(MessageBoxLoopTest, WithoutFontsLooksForNoneAndHeedsItsKeys) {
  ForgetFonts();
  const long opened = Recorder().CallCount("TTF_OpenFont");
  DialogScript script;
  script.Wait().Step([] { KeyDown(SDLK_ESCAPE); });
  EXPECT_EQ(Run(YesNo()), 8);
  EXPECT_EQ(Recorder().CallCount("TTF_OpenFont"), opened);
  EXPECT_THAT(Recorder().last_frame().Texts(), ElementsAre());
}

TEST_F(MessageBoxLoopTest, HandlesStayTheCallers) {
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  Run(YesNo());
  EXPECT_EQ(Recorder().alive().windows, 1U);
  EXPECT_EQ(Recorder().alive().renderers, 1U);
  EXPECT_EQ(Recorder().alive().fonts, 4U);
}

// --- Mouse ---------------------------------------------------------------------------------------

TEST_F(MessageBoxTest, ClickReturnsTheButtonsId) {
  EXPECT_EQ(ShowAnd(YesNo(), [] { Click(kYes); }), 7);
  FlushEvents();
  EXPECT_EQ(ShowAnd(YesNo(), [] { Click(kNo); }), 8);
}

struct ReleaseCase {
  const char* where;
  int x, y, result;
};

TEST_F(MessageBoxTest, ButtonHoldsItsLeftAndTopEdgesOnly) {
  const std::vector<ReleaseCase> cases{
      {"left edge", 214, 160, 7},
      {"before the left edge", 213, 160, -1},
      {"last column", 297, 160, 7},
      {"right edge", 298, 160, -1},
      {"top edge", 250, 157, 7},
      {"above the top edge", 250, 156, -1},
      {"last row", 250, 184, 7},
      {"bottom edge", 250, 185, -1},
      {"gap", 302, 160, -1},
      {"before the second", 305, 160, -1},
      {"second's left edge", 306, 160, 8},
      {"second's last column", 389, 160, 8},
      {"second's right edge", 390, 160, -1},
      {"message", 100, 90, -1},
      {"where a third would be", 400, 160, -1},
  };
  for (const ReleaseCase& c : cases) {
    EXPECT_EQ(ShowAnd(YesNo(),
                      [&c] {
                        MouseUp(c.x, c.y);
                        Quit();
                      }),
              c.result)
        << c.where;
    FlushEvents();
  }
}

TEST_F(MessageBoxTest, ReleaseAloneDecides) {
  EXPECT_EQ(ShowAnd(YesNo(),
                    [] {
                      MouseDown(5, 5);  // Pressed elsewhere.
                      MouseUp(250, 160);
                    }),
            7);
}

TEST_F(MessageBoxTest, PressAloneDoesNothing) {
  DialogScript script;
  script.Wait().Step([] { MouseDown(250, 160); }).Wait(2).Step([] { Quit(); });
  EXPECT_EQ(Show(YesNo()), -1);
}

TEST_F(MessageBoxTest, OtherMouseButtonsDoNothing) {
  DialogScript script;
  script.Wait()
      .Step([] {
        Click(250, 160, SDL_BUTTON_RIGHT);
        Click(250, 160, SDL_BUTTON_MIDDLE);
        Click(250, 160, SDL_BUTTON_X1);
        Wheel(1, 0, {250, 160});
        Motion(250, 160);
      })
      .Wait(2)
      .Step([] { Quit(); });
  EXPECT_EQ(Show(YesNo()), -1);
}

TEST_F(MessageBoxTest, RowThatRunsOffTheEdgeCanStillBeClicked) {
  SdlMessageBox::Config config = YesNo();
  config.buttons.clear();
  for (int i = 0; i < 20; ++i) {
    config.buttons.push_back({100 + i, "B", false, false, {}});
  }
  EXPECT_EQ(ShowAnd(config, [] { Click(30 + 3 * 92 + 83, 160); }), 103);
}

TEST_F(MessageBoxTest, SecondReleaseOverridesAndRunsItsCallbackToo) {
  std::string ran;
  SdlMessageBox::Config config = YesNo();
  config.buttons[0].onClick = [&] { ran += "yes "; };
  config.buttons[1].onClick = [&] { ran += "no "; };
  EXPECT_EQ(ShowAnd(config,
                    [] {
                      Click(kNo);
                      Click(kYes);
                    }),
            7);
  EXPECT_EQ(ran, "no yes ");
}

TEST_F(MessageBoxTest, ReleaseOnNothingKeepsAnEarlierChoice) {
  EXPECT_EQ(ShowAnd(YesNo(),
                    [] {
                      Click(kYes);
                      Click(5, 5);
                    }),
            7);
}

TEST_F(MessageBoxTest, ReleasesOfTheNextFrameAreNotRead) {
  int ran = 0;
  SdlMessageBox::Config config = YesNo();
  config.buttons[1].onClick = [&] { ++ran; };
  EXPECT_EQ(ShowAnd(config, [] { Click(kYes); }), 7);
  Click(kNo);
  EXPECT_EQ(ran, 0);
  EXPECT_THAT(QueuedInput(), SizeIs(2));
  FlushEvents();
}

TEST_F(MessageBoxTest, OfTwoButtonsWithOneIdTheClickedOnesCallbackRuns) {
  std::string ran;
  SdlMessageBox::Config config = YesNo();
  config.buttons[0].id = 8;
  config.buttons[0].onClick = [&] { ran += "first "; };
  config.buttons[1].onClick = [&] { ran += "second "; };
  EXPECT_EQ(ShowAnd(config, [] { Click(kYes); }), 8);
  EXPECT_EQ(ran, "first ");
}

// --- Keys ----------------------------------------------------------------------------------------

TEST_F(MessageBoxTest, EscapeChoosesTheCancelButton) {
  int ran = 0;
  SdlMessageBox::Config config = YesNo();
  config.buttons[1].onClick = [&] { ++ran; };
  EXPECT_EQ(ShowAnd(config, [] { KeyDown(SDLK_ESCAPE); }), 8);
  EXPECT_EQ(ran, 1);
}

TEST_F(MessageBoxTest, EscapeChoosesTheFirstOfSeveralCancelButtons) {
  SdlMessageBox::Config config = YesNo();
  config.buttons = {
      {1, "A", false, false, {}}, {2, "B", false, true, {}}, {3, "C", false, true, {}}};
  EXPECT_EQ(ShowAnd(config, [] { KeyDown(SDLK_ESCAPE); }), 2);
}

TEST_F(MessageBoxTest, EscapeWithoutCancelButtonClosesWithoutChoice) {
  SdlMessageBox::Config config = YesNo();
  config.buttons[1].isCancel = false;
  EXPECT_EQ(ShowAnd(config, [] { KeyDown(SDLK_ESCAPE); }), -1);
}

TEST_F(MessageBoxTest, EscapeWithoutCancelButtonKeepsAnEarlierChoice) {
  SdlMessageBox::Config config = YesNo();
  config.buttons[1].isCancel = false;
  EXPECT_EQ(ShowAnd(config,
                    [] {
                      Click(kYes);
                      KeyDown(SDLK_ESCAPE);
                    }),
            7);
}

TEST_F(MessageBoxTest, EscapeBehindAClickOverridesIt) {
  EXPECT_EQ(ShowAnd(YesNo(),
                    [] {
                      Click(kYes);
                      KeyDown(SDLK_ESCAPE);
                    }),
            8);
}

TEST_F(MessageBoxTest, EscapeCanBeSwitchedOff) {
  SdlMessageBox::Config config = YesNo();
  config.escapeEnabled = false;
  DialogScript script;
  script.Wait().Step([] { KeyDown(SDLK_ESCAPE); }).Wait(2).Step([] { CloseWindow(WindowId()); });
  EXPECT_EQ(Show(config), -1);
}

TEST_F(MessageBoxTest, SwitchedOffEscapeDoesNotStopTheReading) {
  SdlMessageBox::Config config = YesNo();
  config.escapeEnabled = false;
  EXPECT_EQ(ShowAnd(config,
                    [] {
                      KeyDown(SDLK_ESCAPE);
                      Click(kYes);
                    }),
            7);
}

TEST_F(MessageBoxTest, OtherKeysDoNothing) {
  DialogScript script;
  script.Wait()
      .Step([] {
        for (const SDL_Keycode key : {SDLK_RETURN, SDLK_KP_ENTER, SDLK_SPACE, SDLK_TAB, SDLK_y,
                                      SDLK_n, SDLK_LEFT, SDLK_BACKSPACE, SDLK_AC_BACK}) {
          KeyDown(key);
        }
        KeyUp(SDLK_ESCAPE);
        TextInput("\x1b");
      })
      .Wait(2)
      .Step([] { Quit(); });
  EXPECT_EQ(Show(YesNo()), -1);
}

// --- Windows and the end -------------------------------------------------------------------------

TEST_F(MessageBoxTest, KeysAndClicksCountWhateverWindowTheyName) {
  const Uint32 parent_id = SDL_GetWindowID(MakeParent());
  for (const Uint32 id : {Uint32{0}, parent_id, Uint32{9999}}) {
    EXPECT_EQ(ShowAnd(
                  YesNo(), [id] { MouseUp(250, 160, SDL_BUTTON_LEFT, 1, id); }, MakeParent()),
              7);
    FlushEvents();
    EXPECT_EQ(ShowAnd(
                  YesNo(), [id] { KeyDown(SDLK_ESCAPE, id); }, MakeParent()),
              8);
    FlushEvents();
  }
}

TEST_F(MessageBoxTest, CloseReturnsNoChoice) {
  EXPECT_EQ(ShowAnd(YesNo(), [] { CloseWindow(WindowId()); }), -1);
}

TEST_F(MessageBoxTest, CloseOfAnotherWindowIsDropped) {
  const Uint32 parent_id = SDL_GetWindowID(MakeParent());
  DialogScript script;
  script.Wait().Step([parent_id] { CloseWindow(parent_id); }).Wait(2).Step([] { Click(kYes); });
  EXPECT_EQ(Show(YesNo(), MakeParent()), 7);
  EXPECT_THAT(QueuedInput(), IsEmpty());
}

TEST_F(MessageBoxTest, OtherWindowEventsDoNothing) {
  DialogScript script;
  script.Wait()
      .Step([] {
        for (int event = SDL_WINDOWEVENT_SHOWN; event <= SDL_WINDOWEVENT_DISPLAY_CHANGED; ++event) {
          if (event != SDL_WINDOWEVENT_CLOSE) {
            WindowEvent(WindowId(), static_cast<Uint8>(event));
          }
        }
      })
      .Wait(2)
      .Step([] { Click(kYes); });
  EXPECT_EQ(Show(YesNo()), 7);
}

TEST_F(MessageBoxTest, QuitReturnsNoChoiceAndIsConsumed) {
  EXPECT_EQ(ShowAnd(YesNo(), [] { Quit(); }), -1);
  EXPECT_THAT(QueuedInput(), IsEmpty());
}

TEST_F(MessageBoxTest, QuitBehindAClickDoesNotResetTheChoice) {
  EXPECT_EQ(ShowAnd(YesNo(),
                    [] {
                      Click(kYes);
                      Quit();
                    }),
            7);
  EXPECT_THAT(QueuedInput(), IsEmpty());
}

TEST_F(MessageBoxTest, EventsBehindAnEndStayQueued) {
  const std::vector<std::function<void()>> ends{[] { Quit(); }, [] { CloseWindow(WindowId()); },
                                                [] { KeyDown(SDLK_ESCAPE); }};
  for (const auto& end : ends) {
    ShowAnd(YesNo(), [&end] {
      end();
      MouseUp(250, 160);
      KeyDown(SDLK_F1);
    });
    const std::vector<SDL_Event> queued = QueuedInput();
    ASSERT_THAT(queued, SizeIs(2));
    EXPECT_EQ(queued[0].type, Uint32{SDL_MOUSEBUTTONUP});
    EXPECT_EQ(queued[1].key.keysym.sym, SDLK_F1);
    FlushEvents();
  }
}

TEST_F(MessageBoxTest, EventsBehindAClickAreRead) {
  ShowAnd(YesNo(), [] {
    Click(kYes);
    KeyDown(SDLK_F1);
  });
  EXPECT_THAT(QueuedInput(), IsEmpty());
}

TEST_F(MessageBoxTest, ClickBehindAQuitDoesNotCount) {
  EXPECT_EQ(ShowAnd(YesNo(),
                    [] {
                      Quit();
                      Click(kYes);
                    }),
            -1);
  FlushEvents();
}

TEST_F(MessageBoxTest, ParentGetsTheFocusBackFirst) {
  SDL_Window* const parent = MakeParent();
  ShowAnd(
      YesNo(),
      [] {
        Recorder().ForgetCalls();
        Quit();
      },
      parent);
  EXPECT_THAT(
      Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus", "TTF_CloseFont",
                             "SDL_DestroyRenderer", "SDL_DestroyWindow"}),
      ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus", "TTF_CloseFont", "TTF_CloseFont",
                  "TTF_CloseFont", "TTF_CloseFont", "SDL_DestroyRenderer", "SDL_DestroyWindow"));
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent),
              SizeIs(2));
}

TEST_F(MessageBoxTest, WithoutParentNoFocusIsHandedBack) {
  ShowAnd(YesNo(), [] {
    Recorder().ForgetCalls();
    Quit();
  });
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}), IsEmpty());
}

TEST_F(MessageBoxTest, CanBeShownAgain) {
  SdlMessageBox box(YesNo());
  for (const int expected : {7, 8, 7}) {
    DialogScript script;
    script.Wait().Step([expected] { Click(expected == 7 ? kYes : kNo); });
    EXPECT_EQ(box.Show(nullptr, 1.0F), expected);
    FlushEvents();
  }
  EXPECT_THAT(Recorder().windows(), SizeIs(3));
  EXPECT_EQ(Recorder().windows().back().title, "Overwrite?");
}

TEST_F(MessageBoxTest, TextInputIsLeftAlone) {
  ShowAnd(YesNo(), [] { Quit(); });
  EXPECT_THAT(Recorder().CallsAmong({"SDL_StartTextInput", "SDL_StopTextInput"}), IsEmpty());
}

// --- Callbacks -----------------------------------------------------------------------------------

TEST_F(MessageBoxTest, CallbackRunsOnceWhileTheBoxIsOpen) {
  int ran = 0;
  SdlMessageBox::Config config = YesNo();
  config.buttons[0].onClick = [&] {
    ++ran;
    EXPECT_EQ(Recorder().alive().windows, 1U);
    EXPECT_EQ(Recorder().alive().renderers, 1U);
    EXPECT_EQ(Recorder().CallCount("SDL_ShowWindow"), 1);
  };
  EXPECT_EQ(ShowAnd(config, [] { Click(kYes); }), 7);
  EXPECT_EQ(ran, 1);
}

TEST_F(MessageBoxTest, CallbackOfAnotherButtonDoesNotRun) {
  SdlMessageBox::Config config = YesNo();
  config.buttons[0].onClick = [] { FAIL() << "not this one"; };
  EXPECT_EQ(ShowAnd(config, [] { Click(kNo); }), 8);
}

struct ThrowingCase {
  const char* how;
  std::function<void()> act;
};

TEST_F(MessageBoxTest, ExceptionOfACallbackLeavesNothingBehind) {
  SDL_Window* const parent = MakeParent();
  const std::vector<ThrowingCase> cases{{"click", [] { Click(kYes); }},
                                        {"escape", [] { KeyDown(SDLK_ESCAPE); }}};
  for (const ThrowingCase& c : cases) {
    SCOPED_TRACE(c.how);
    SdlMessageBox::Config config = YesNo();
    for (SdlMessageBox::Button& button : config.buttons) {
      button.onClick = [] { throw std::runtime_error("host"); };
    }
    EXPECT_THROW(ShowAnd(
                     config,
                     [&c] {
                       Recorder().ForgetCalls();
                       c.act();
                     },
                     parent),
                 std::runtime_error);
    EXPECT_EQ(Recorder().alive(), AliveCounts{});
    EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent),
                ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
    FlushEvents();
  }
}

TEST_F(MessageBoxTest, ExceptionOfTheHeartbeatLeavesNothingBehind) {
  SDL_Window* const parent = MakeParent();
  EXPECT_THROW(ShowAnd(
                   YesNo(),
                   [] {
                     Recorder().ForgetCalls();
                     throw std::runtime_error("host");
                   },
                   parent),
               std::runtime_error);
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent),
              SizeIs(2));
}

TEST_F(MessageBoxTest, CallbackMayOpenAnotherBox) {
  int nested = 0;
  SdlMessageBox::Config config = YesNo();
  config.buttons[0].onClick = [&] {
    SdlMessageBox::Config inner;
    inner.title = "Really?";
    inner.buttons = {{42, "Sure", false, true, {}}};
    nested = Show(inner, Recorder().newest_window());
  };
  DialogScript script;
  script.Wait().Step([] { Click(kYes); }).Wait().Step([] {
    EXPECT_TRUE(Recorder().last_frame().HasText("Really?"));
    EXPECT_EQ(Recorder().alive().windows, 2U);
    KeyDown(SDLK_ESCAPE);
  });
  EXPECT_EQ(Show(config), 7);
  EXPECT_EQ(nested, 42);
}

TEST_F(MessageBoxTest, HeartbeatMayOpenAnotherBox) {
  int nested = 0;
  DialogScript script;
  script.Wait()
      .Step([&] { nested = Show(YesNo()); })
      .Wait()
      .Step([] { Click(kNo); })
      .Wait()
      .Step([] { Click(kYes); });
  EXPECT_EQ(Show(YesNo()), 7);
  EXPECT_EQ(nested, 8);
}

// --- Drawing one frame ---------------------------------------------------------------------------

constexpr SDL_Color kWindow{18, 21, 27, 255};
constexpr SDL_Color kBorder{52, 58, 70, 255};
constexpr SDL_Color kContent{24, 27, 34, 255};
constexpr SDL_Color kFooter{22, 25, 32, 255};
constexpr SDL_Color kBadge{20, 23, 30, 255};
constexpr SDL_Color kButton{48, 54, 68, 255};
constexpr SDL_Color kButtonHovered{68, 76, 92, 255};
constexpr SDL_Color kButtonBorder{84, 92, 108, 255};

// What identifies a draw call, in one line of text.
std::string Describe(const DrawCall& call) {
  std::ostringstream out;
  out << call.kind << ' ';
  if (call.kind == DrawKind::Line) {
    PrintTo(call.from, &out);
    PrintTo(call.to, &out);
  } else if (call.kind != DrawKind::Clear) {
    PrintTo(call.rect, &out);
  }
  PrintTo(call.color, &out);
  out << ' ' << call.text << ' ' << call.font.size << ' ' << call.font.style;
  return out.str();
}

DrawCall Rect(DrawKind kind, SDL_Rect rect, SDL_Color color) {
  DrawCall call;
  call.kind = kind;
  call.rect = rect;
  call.color = color;
  return call;
}
DrawCall Text(const char* text, SDL_Rect rect, SDL_Color color, int size, int style) {
  DrawCall call = Rect(DrawKind::Text, rect, color);
  call.text = text;
  call.font.size = size;
  call.font.style = style;
  return call;
}
DrawCall Line(SDL_Point from, SDL_Point to, SDL_Color color) {
  DrawCall call;
  call.kind = DrawKind::Line;
  call.from = from;
  call.to = to;
  call.color = color;
  return call;
}

std::vector<std::string> DescribeAll(const std::vector<DrawCall>& calls) {
  std::vector<std::string> lines;
  for (const DrawCall& call : calls) {
    lines.push_back(Describe(call));
  }
  return lines;
}

class MessageBoxDrawTest : public MessageBoxTest {
 protected:
  // With approximate measuring a character is 55 % of the font size wide and 130 % high: 9 x 23 at
  // 18 points, 7.7 x 18 at 14.
  void SetUp() override {
    MessageBoxTest::SetUp();
    Recorder().SetDrawMode(DrawMode::Recorded);
    Recorder().SetMeasureMode(MeasureMode::Approximate);
    bundle_ = CreateModalWindowBundle(nullptr, "Box", 0, 0, 420, 300, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
    fonts_ = OpenSdlMessageBoxFonts(1.0F);
    config_ = YesNo();
    config_.message = "One\n\nTwo";
    layout_ = BuildSdlMessageBoxLayout(config_, 1.0F, 420, 300, fonts_.titleFont.get(),
                                       fonts_.bodyFont.get());
  }
  void TearDown() override {
    fonts_ = {};
    bundle_ = {};
    MessageBoxTest::TearDown();
  }

  SDL_Renderer* Renderer() const { return bundle_.renderer.get(); }
  const Frame& Draw(int mouse_x = -1, int mouse_y = -1) {
    Recorder().ForgetDraws();
    RenderSdlMessageBoxFrame(Renderer(), config_, VisualForMessageBoxType(config_.type), layout_,
                             fonts_.iconFont.get(), fonts_.titleFont.get(), fonts_.bodyFont.get(),
                             fonts_.buttonFont.get(), mouse_x, mouse_y);
    return Recorder().unpresented();
  }

  ModalWindowBundle bundle_;
  SdlMessageBoxFonts fonts_;
  SdlMessageBox::Config config_;
  SdlMessageBoxLayout layout_;
};

TEST_F(MessageBoxDrawTest, DrawsEverythingInOrder) {
  const std::vector<DrawCall> expected{
      Rect(DrawKind::Clear, {}, kWindow),
      Rect(DrawKind::Outline, {10, 10, 400, 280}, kBorder),
      Rect(DrawKind::Fill, {11, 11, 398, 227}, kContent),
      Rect(DrawKind::Fill, {11, 238, 398, 51}, kFooter),
      Line({11, 238}, {408, 238}, kBorder),
      Rect(DrawKind::Fill, {31, 31, 42, 44}, kBadge),
      Rect(DrawKind::Outline, {31, 31, 42, 44}, kBorder),
      Rect(DrawKind::Fill, {31, 31, 4, 44}, {70, 148, 255, 255}),
      Text("?", {31 + 16, 31 + 10, 9, 23}, {70, 148, 255, 255}, 18, TTF_STYLE_BOLD),
      Text("Overwrite?", {85, 31 + 13, 77, 18}, kColTextHi, 14, TTF_STYLE_BOLD),
      Text("One", {85, 87, 23, 18}, kColTextHi, 14, TTF_STYLE_NORMAL),
      Text("Two", {85, 87 + 36, 23, 18}, kColTextHi, 14, TTF_STYLE_NORMAL),
      Rect(DrawKind::Fill, {214, 250, 84, 28}, kButton),
      Rect(DrawKind::Outline, {214, 250, 84, 28}, kButtonBorder),
      Text("Yes", {214 + 30, 255, 23, 18}, kColTextHi, 14, TTF_STYLE_NORMAL),
      Rect(DrawKind::Fill, {306, 250, 84, 28}, kButton),
      Rect(DrawKind::Outline, {306, 250, 84, 28}, kButtonBorder),
      Text("No", {306 + 34, 255, 15, 18}, kColTextHi, 14, TTF_STYLE_NORMAL),
  };
  EXPECT_EQ(DescribeAll(Draw().draws), DescribeAll(expected));
  EXPECT_EQ(Recorder().CallCount("SDL_RenderPresent"), 0);
}

// At a scale of 2 in a window of 900 x 500, with fonts of 30, 26, 24 and 22 points.
TEST_F(MessageBoxDrawTest, DrawsEverythingAtAnotherScaleWithFontsOfItsOwn) {
  fonts_.iconFont = OpenSdlUiFontHandle(30, true, SdlUiFontKind::Ui);
  fonts_.titleFont = OpenSdlUiFontHandle(26, true, SdlUiFontKind::Ui);
  fonts_.bodyFont = OpenSdlUiFontHandle(24, false, SdlUiFontKind::Ui);
  fonts_.buttonFont = OpenSdlUiFontHandle(22, false, SdlUiFontKind::Ui);
  layout_ = BuildSdlMessageBoxLayout(config_, 2.0F, 900, 500, fonts_.titleFont.get(),
                                     fonts_.bodyFont.get());
  const std::vector<DrawCall> expected{
      Rect(DrawKind::Clear, {}, kWindow),
      Rect(DrawKind::Outline, {20, 20, 860, 460}, kBorder),
      Rect(DrawKind::Fill, {21, 21, 858, 355}, kContent),
      Rect(DrawKind::Fill, {21, 376, 858, 103}, kFooter),
      Line({21, 376}, {878, 376}, kBorder),
      Rect(DrawKind::Fill, {61, 61, 84, 88}, kBadge),
      Rect(DrawKind::Outline, {61, 61, 84, 88}, kBorder),
      Rect(DrawKind::Fill, {61, 61, 4, 88}, {70, 148, 255, 255}),  // The bar is not scaled.
      Text("?", {61 + 34, 61 + 24, 16, 39}, {70, 148, 255, 255}, 30, TTF_STYLE_BOLD),
      Text("Overwrite?", {169, 61 + 27, 143, 33}, kColTextHi, 26, TTF_STYLE_BOLD),
      Text("One", {169, 173, 39, 31}, kColTextHi, 24, TTF_STYLE_NORMAL),
      Text("Two", {169, 173 + 62, 39, 31}, kColTextHi, 24, TTF_STYLE_NORMAL),
      Rect(DrawKind::Fill, {488, 400, 168, 56}, kButton),
      Rect(DrawKind::Outline, {488, 400, 168, 56}, kButtonBorder),
      Text("Yes", {488 + 66, 400 + 14, 36, 28}, kColTextHi, 22, TTF_STYLE_NORMAL),
      Rect(DrawKind::Fill, {488 + 184, 400, 168, 56}, kButton),
      Rect(DrawKind::Outline, {488 + 184, 400, 168, 56}, kButtonBorder),
      Text("No", {672 + 72, 400 + 14, 24, 28}, kColTextHi, 22, TTF_STYLE_NORMAL),
  };
  EXPECT_EQ(DescribeAll(Draw().draws), DescribeAll(expected));
  EXPECT_THAT(Draw(655, 455).Fills(kButtonHovered), ElementsAre(SDL_Rect{488, 400, 168, 56}));
  EXPECT_THAT(Draw(672, 400).Fills(kButtonHovered), ElementsAre(SDL_Rect{672, 400, 168, 56}));
  EXPECT_THAT(Draw(656, 400).Fills(kButtonHovered), IsEmpty());
  EXPECT_THAT(Draw(671, 400).Fills(kButtonHovered), IsEmpty());
}

TEST_F(MessageBoxDrawTest, TextColourIsTheBrightOne) {
  EXPECT_EQ(kColTextHi, (SDL_Color{232, 237, 244, 255}));
}

TEST_F(MessageBoxDrawTest, TextsEndAtTheFrame) {
  const SDL_Rect between_the_frames_sides{11, 10, 398, 280};
  const Frame& frame = Draw();
  for (const char* text : {"Overwrite?", "One", "Two"}) {
    EXPECT_EQ(frame.FindText(text)->clip, between_the_frames_sides) << text;
  }
}

TEST_F(MessageBoxDrawTest, CaptionsEndAtTheirButton) {
  const Frame& frame = Draw();
  EXPECT_EQ(frame.FindText("Yes")->clip, (SDL_Rect{215, 250, 82, 28}));
  EXPECT_EQ(frame.FindText("No")->clip, (SDL_Rect{307, 250, 82, 28}));
}

TEST_F(MessageBoxDrawTest, NothingElseIsClipped) {
  for (const DrawCall& call : Draw().draws) {
    if (call.kind != DrawKind::Text) {
      EXPECT_FALSE(call.clip.has_value()) << Describe(call);
    }
  }
  EXPECT_EQ(SDL_RenderIsClipEnabled(Renderer()), SDL_FALSE);
}

TEST_F(MessageBoxDrawTest, SeparatorFollowsFrameAndFooter) {
  layout_.frame = {3, 5, 100, 90};
  layout_.footerH = 30;
  const std::vector<DrawCall> lines = Draw().Lines(kBorder);
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_EQ(lines[0].from, (SDL_Point{4, 65}));
  EXPECT_EQ(lines[0].to, (SDL_Point{101, 65}));
}

TEST_F(MessageBoxDrawTest, TitleIsCentredBesideTheBadgeWhenLowerByTwo) {
  const std::vector<std::pair<int, int>> offsets_by_height{
      {16, 14}, {20, 12}, {21, 11}, {41, 1}, {42, 1}, {43, 0}, {44, 0}, {45, 0}, {46, 0}, {60, 0}};
  for (const auto& [height, offset] : offsets_by_height) {
    layout_.titleH = height;
    EXPECT_EQ(Draw().FindText("Overwrite?")->rect.y, 31 + offset) << height;
  }
}

TEST_F(MessageBoxDrawTest, MessageStopsAtTheFirstLineThatDoesNotFit) {
  layout_.lines = {"a", "b", "c", "d"};
  layout_.lineH = 20;
  const auto lines_drawn = [this](int body_height) {
    layout_.bodyH = body_height;
    const std::vector<std::string> texts = Draw().Texts();
    return std::vector<std::string>(texts.begin() + 2, texts.end() - 2);
  };
  EXPECT_THAT(lines_drawn(80), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(lines_drawn(79), ElementsAre("a", "b", "c"));
  EXPECT_THAT(lines_drawn(40), ElementsAre("a", "b"));
  EXPECT_THAT(lines_drawn(39), ElementsAre("a"));
  EXPECT_THAT(lines_drawn(20), ElementsAre("a"));
  EXPECT_THAT(lines_drawn(19), ElementsAre("One\n\nTwo"));  // The whole message.
}

TEST_F(MessageBoxDrawTest, MessageAdvancesByTheLayoutsLineHeight) {
  layout_.lines = {"a", "b"};
  layout_.lineH = 33;
  const Frame& frame = Draw();
  EXPECT_EQ(frame.FindText("a")->rect.y, 87);
  EXPECT_EQ(frame.FindText("b")->rect.y, 87 + 33);
}

TEST_F(MessageBoxDrawTest, MessageWithoutLinesIsDrawnAsAWhole) {
  layout_.lines.clear();
  const DrawCall* message = Draw().FindText("One\n\nTwo");
  ASSERT_NE(message, nullptr);
  EXPECT_EQ(message->rect.x, 85);
  EXPECT_EQ(message->rect.y, 87);
}

TEST_F(MessageBoxDrawTest, ButtonUnderThePointerIsHighlighted) {
  EXPECT_THAT(Draw(250, 260).Fills(kButtonHovered), ElementsAre(SDL_Rect{214, 250, 84, 28}));
  EXPECT_THAT(Draw(306, 250).Fills(kButtonHovered), ElementsAre(SDL_Rect{306, 250, 84, 28}));
  EXPECT_THAT(Draw(389, 277).Fills(kButtonHovered), SizeIs(1));
  EXPECT_THAT(Draw(390, 260).Fills(kButtonHovered), IsEmpty());
  EXPECT_THAT(Draw(350, 278).Fills(kButtonHovered), IsEmpty());
  EXPECT_THAT(Draw(302, 260).Fills(kButtonHovered), IsEmpty());
  EXPECT_THAT(Draw(-1, -1).Fills(kButtonHovered), IsEmpty());
}

TEST_F(MessageBoxDrawTest, WithoutFontsThePanelsAreStillDrawn) {
  Recorder().ForgetDraws();
  RenderSdlMessageBoxFrame(Renderer(), config_, VisualForMessageBoxType(config_.type), layout_,
                           nullptr, nullptr, nullptr, nullptr, -1, -1);
  EXPECT_THAT(Recorder().unpresented().Texts(), IsEmpty());
  EXPECT_THAT(Recorder().unpresented().draws, SizeIs(12));
}

// --- Drawing one button --------------------------------------------------------------------------

struct LabelCase {
  int w, h;  // Of the button; the label is 77 x 18.
  int dx, dy;
};

TEST_F(MessageBoxDrawTest, LabelIsCentredOnlyWhereThereIsRoom) {
  const std::vector<LabelCase> cases{
      {77 + 14, 18 + 10, 7, 5},   {77 + 13, 18 + 9, 6, 4},  {77 + 15, 18 + 11, 7, 5},
      {77 + 20, 18 + 20, 10, 10}, {77, 18, 6, 4},           {40, 10, 6, 4},
      {77 + 14, 18 + 9, 7, 4},    {77 + 13, 18 + 10, 6, 5},
  };
  for (const LabelCase& c : cases) {
    Recorder().ForgetDraws();
    DrawSdlMessageBoxButton(Renderer(), fonts_.buttonFont.get(), {100, 50, c.w, c.h}, "0123456789",
                            false);
    const DrawCall* label = Recorder().unpresented().FindText("0123456789");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->rect, (SDL_Rect{100 + c.dx, 50 + c.dy, 77, 18})) << c.w << 'x' << c.h;
  }
}

TEST_F(MessageBoxDrawTest, ButtonIsFilledOutlinedAndLabelled) {
  for (const bool hovered : {false, true}) {
    Recorder().ForgetDraws();
    DrawSdlMessageBoxButton(Renderer(), fonts_.buttonFont.get(), {1, 2, 80, 30}, "Go", hovered);
    const std::vector<DrawCall> expected{
        Rect(DrawKind::Fill, {1, 2, 80, 30}, hovered ? kButtonHovered : kButton),
        Rect(DrawKind::Outline, {1, 2, 80, 30}, kButtonBorder),
        Text("Go", {1 + 32, 2 + 6, 15, 18}, kColTextHi, 14, TTF_STYLE_NORMAL),
    };
    EXPECT_EQ(DescribeAll(Recorder().unpresented().draws), DescribeAll(expected));
  }
}

TEST_F(MessageBoxDrawTest, ButtonWithoutRoomIsNotOutlinedAndShowsNoLabel) {
  for (const int width : {0, 1, 2}) {
    Recorder().ForgetDraws();
    DrawSdlMessageBoxButton(Renderer(), fonts_.buttonFont.get(), {10, 20, width, 30}, "Go", false);
    const Frame& frame = Recorder().unpresented();
    EXPECT_EQ(frame.Outlines(kButtonBorder).size(), width == 0 ? 0U : 1U) << width;
    EXPECT_EQ(frame.FindText("Go")->clip, (SDL_Rect{11, 20, 0, 30})) << width;
  }
}

TEST_F(MessageBoxDrawTest, ButtonWithoutFontHasNoLabel) {
  Recorder().ForgetDraws();
  DrawSdlMessageBoxButton(Renderer(), nullptr, {1, 2, 80, 30}, "Go", false);
  EXPECT_THAT(Recorder().unpresented().draws, SizeIs(2));
}

// --- Hover ---------------------------------------------------------------------------------------

TEST_F(MessageBoxTest, HoverShowsWhileTheBoxHasThePointer) {
  DialogScript script;
  script.Wait()
      .Step([] { Recorder().SetPointer(Recorder().newest_window(), 250, 160); })
      .Step([] {
        EXPECT_THAT(Recorder().last_frame().Fills(kButtonHovered), ElementsAre(kYes));
        Recorder().SetPointer(Recorder().newest_window(), 350, 160);
      })
      .Step([] {
        EXPECT_THAT(Recorder().last_frame().Fills(kButtonHovered), ElementsAre(kNo));
        Quit();
      });
  Show(YesNo());
}

TEST_F(MessageBoxTest, NoHoverWhileAnotherWindowHasThePointer) {
  SDL_Window* const parent = MakeParent();
  DialogScript script;
  script.Wait()
      .Step([parent] { Recorder().SetPointer(parent, 250, 160); })
      .Step([] {
        EXPECT_THAT(Recorder().last_frame().Fills(kButtonHovered), IsEmpty());
        Recorder().ClearPointer();
      })
      .Step([] {
        EXPECT_THAT(Recorder().last_frame().Fills(kButtonHovered), IsEmpty());
        Quit();
      });
  Show(YesNo(), parent);
  EXPECT_EQ(Recorder().CallCount("SDL_GetMouseState"), 0);
}

}  // namespace
}  // namespace quindle::testing

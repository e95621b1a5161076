#include "frontend/gui/shader_parameter_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::frontend::gui {
namespace {

using quindle::testing::CallRecorder;
using quindle::testing::Click;
using quindle::testing::CloseWindow;
using quindle::testing::DialogScript;
using quindle::testing::DialogTest;
using quindle::testing::DrawCall;
using quindle::testing::DrawKind;
using quindle::testing::DrawMode;
using quindle::testing::FlushEvents;
using quindle::testing::Frame;
using quindle::testing::KeyDown;
using quindle::testing::Motion;
using quindle::testing::MouseDown;
using quindle::testing::MouseUp;
using quindle::testing::PixelAt;
using quindle::testing::QueuedEvents;
using quindle::testing::Quit;
using quindle::testing::Recorder;
using quindle::testing::Resized;
using quindle::testing::TemporaryDirectory;
using quindle::testing::Wheel;
using quindle::testing::WindowId;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Values = std::vector<ShaderParameterValue>;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kGreatest = std::numeric_limits<float>::max();

constexpr SDL_Color kCardFill{32, 36, 44, 200};
constexpr SDL_Color kCardBorder{58, 64, 74, 255};
constexpr SDL_Color kTrackFill{52, 56, 64, 255};
constexpr SDL_Color kTrackBorder{78, 86, 96, 255};
constexpr SDL_Color kFilledTrack{106, 156, 255, 255};
constexpr SDL_Color kKnobFill{126, 176, 255, 255};
constexpr SDL_Color kPrimaryText{236, 241, 246, 255};
constexpr SDL_Color kSecondaryText{180, 188, 198, 255};
constexpr SDL_Color kScrollTrack{30, 33, 40, 255};
constexpr SDL_Color kScrollThumb{72, 80, 94, 255};
constexpr SDL_Color kScrollThumbBorder{96, 108, 128, 255};
constexpr SDL_Color kHeaderFill{26, 28, 36, 255};
constexpr SDL_Color kBarFill{26, 30, 38, 255};
constexpr SDL_Color kSeparator{60, 66, 78, 255};
constexpr SDL_Color kButtonFill{48, 52, 60, 255};
constexpr SDL_Color kButtonBorder{84, 92, 104, 255};

std::vector<float> Numbers(const Values& values) {
  std::vector<float> numbers;
  for (const ShaderParameterValue& value : values) {
    numbers.push_back(value.value);
  }
  return numbers;
}

// `count` parameters p0, p1, ... of the range 0 .. 10 that start at 5.
std::vector<ShaderParameterSpec> MakeSpecs(int count, float step = 0.5F) {
  std::vector<ShaderParameterSpec> specs;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    specs.push_back({"p" + number, "Label " + number, 5.0F, 0.0F, 10.0F, step});
  }
  return specs;
}

std::string DeclarationsText(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    text += "#pragma parameter p" + number + " \"Label " + number + "\" 5 0 10 0.5\n";
  }
  return text;
}

// --- Geometry ------------------------------------------------------------------------------------

TEST(ShaderDialogGeometry, HasTheFixedMeasures) {
  const ShaderDialogGeometry geometry = BuildShaderDialogGeometry(1, 1.0F);
  EXPECT_EQ(geometry.list_top, 20);
  EXPECT_EQ(geometry.row_height, 80);
  EXPECT_EQ(geometry.slider_x, 260);
  EXPECT_EQ(geometry.slider_width, 275);
  EXPECT_EQ(geometry.slider_hit_height, 13);
  EXPECT_EQ(geometry.label_x, 14);
  EXPECT_EQ(geometry.detail_x, 545);
  EXPECT_EQ(geometry.reserved_width, 72);
  EXPECT_EQ(geometry.button_width, 78);
  EXPECT_EQ(geometry.button_height, 26);
  EXPECT_EQ(geometry.window_width, 900);
}

TEST(ShaderDialogGeometry, HeightFollowsTheCountWithinBounds) {
  const struct {
    int count;
    int window_height;
    int content_height;
  } rows[] = {{0, 280, 90},  {1, 280, 170}, {2, 280, 250},  {3, 330, 330},
              {5, 490, 490}, {6, 500, 570}, {10, 500, 890}, {300, 500, 24090}};
  for (const auto& row : rows) {
    const ShaderDialogGeometry geometry = BuildShaderDialogGeometry(row.count, 1.0F);
    EXPECT_EQ(geometry.window_height, row.window_height) << row.count;
    EXPECT_EQ(geometry.content_height, row.content_height) << row.count;
  }
}

TEST(ShaderDialogGeometry, ScaleIsNotApplied) {
  const ShaderDialogGeometry geometry = BuildShaderDialogGeometry(3, 4.0F);
  EXPECT_EQ(geometry.window_width, 900);
  EXPECT_EQ(geometry.window_height, 330);
  EXPECT_EQ(geometry.row_height, 80);
}

TEST(ShaderDialogGeometry, HugeCountsStayInRange) {
  const int most = std::numeric_limits<int>::max();
  EXPECT_EQ(BuildShaderDialogGeometry(most, 1.0F).content_height, most);
  EXPECT_EQ(BuildShaderDialogGeometry(most, 1.0F).window_height, 500);
  EXPECT_EQ(BuildShaderDialogGeometry(std::numeric_limits<int>::min(), 1.0F).window_height, 280);
}

ShaderDialogLayout LayoutFor(int count, int width, int height, int scroll = 0) {
  const std::vector<ShaderParameterSpec> specs(static_cast<std::size_t>(count));
  const ShaderDialogGeometry geometry = BuildShaderDialogGeometry(count, 1.0F);
  ShaderDialogSession session;
  session.specs = &specs;
  session.geometry = &geometry;
  session.scroll = scroll;
  return BuildShaderDialogLayout(session, width, height);
}

TEST(ShaderDialogLayout, PlacesTheFixedParts) {
  const ShaderDialogLayout layout = LayoutFor(1, 900, 280);
  EXPECT_EQ(layout.view_top, 36);
  EXPECT_EQ(layout.view_h, 192);
  EXPECT_EQ(layout.max_scroll, 0);
  EXPECT_EQ(layout.cancel, (SDL_Rect{708, 241, 78, 26}));
  EXPECT_EQ(layout.apply, (SDL_Rect{802, 241, 78, 26}));
  EXPECT_EQ(layout.scroll_track, (SDL_Rect{882, 36, 14, 192}));
  EXPECT_EQ(layout.scroll_thumb, layout.scroll_track);
}

TEST(ShaderDialogLayout, FollowsTheWindowSize) {
  const ShaderDialogLayout layout = LayoutFor(10, 640, 700);
  EXPECT_EQ(layout.view_h, 612);
  EXPECT_EQ(layout.max_scroll, 820 - 612);
  EXPECT_EQ(layout.cancel, (SDL_Rect{448, 661, 78, 26}));
  EXPECT_EQ(layout.apply, (SDL_Rect{542, 661, 78, 26}));
  EXPECT_EQ(layout.scroll_track, (SDL_Rect{622, 36, 14, 612}));
}

TEST(ShaderDialogLayout, ThreeParametersAlreadyScroll) {
  EXPECT_EQ(LayoutFor(3, 900, 330).max_scroll, 18);
  EXPECT_EQ(LayoutFor(2, 900, 280).max_scroll, 0);
}

TEST(ShaderDialogLayout, ViewIsAtLeastOnePixelHigh) {
  for (const int height : {0, 1, 88, 89}) {
    EXPECT_EQ(LayoutFor(3, 900, height).view_h, 1) << height;
  }
  EXPECT_EQ(LayoutFor(3, 900, 90).view_h, 2);
}

TEST(ShaderDialogLayout, ThumbMeasuresTheViewWithIntegerDivision) {
  // 412 * 412 / 820 = 207.0; 242 * 242 / 260 = 225.2.
  EXPECT_EQ(LayoutFor(10, 900, 500).scroll_thumb, (SDL_Rect{882, 36, 14, 207}));
  EXPECT_EQ(LayoutFor(3, 900, 330).scroll_thumb, (SDL_Rect{882, 36, 14, 225}));
}

TEST(ShaderDialogLayout, ThumbIsAtLeastTwentyPixels) {
  EXPECT_EQ(LayoutFor(300, 900, 500).scroll_thumb.h, 20);
  // 412 * 412 / 8100 = 20.9; 412 * 412 / 8180 = 20.7; 412 * 412 / 8580 = 19.7.
  EXPECT_EQ(LayoutFor(101, 900, 500).scroll_thumb.h, 20);
  EXPECT_EQ(LayoutFor(97, 900, 500).scroll_thumb.h, 21);
  // Higher than the track, whose end it then passes.
  EXPECT_EQ(LayoutFor(3, 900, 90).scroll_thumb.h, 20);
}

TEST(ShaderDialogLayout, ThumbTravelsWithTheScroll) {
  // 408 to scroll, 205 to travel.
  EXPECT_EQ(LayoutFor(10, 900, 500, 408).max_scroll, 408);
  EXPECT_EQ(LayoutFor(10, 900, 500, 408).scroll_thumb.y, 36 + 205);
  EXPECT_EQ(LayoutFor(10, 900, 500, 204).scroll_thumb.y, 36 + 102);
  EXPECT_EQ(LayoutFor(10, 900, 500, 1).scroll_thumb.y, 36);
  EXPECT_EQ(LayoutFor(10, 900, 500, 2).scroll_thumb.y, 37);
}

TEST(ShaderDialogLayout, OnePixelToScrollShortensTheThumb) {
  // 260 of list in a view of 259.
  EXPECT_EQ(LayoutFor(3, 900, 347, 1).max_scroll, 1);
  EXPECT_EQ(LayoutFor(3, 900, 347, 1).scroll_thumb.h, 258);
  EXPECT_EQ(LayoutFor(3, 900, 347, 1).scroll_thumb.y, 37);
}

TEST(ShaderDialogLayout, ThumbTravelsAtLeastOnePixel) {
  // The view is one pixel high, the thumb 20.
  EXPECT_EQ(LayoutFor(3, 900, 80, 259).max_scroll, 259);
  EXPECT_EQ(LayoutFor(3, 900, 80, 259).scroll_thumb.y, 37);
}

TEST(ShaderDialogLayout, WithoutDeclarationsHasNothingToScroll) {
  const ShaderDialogLayout layout = BuildShaderDialogLayout(ShaderDialogSession{}, 900, 280);
  EXPECT_EQ(layout.max_scroll, 0);
  EXPECT_EQ(layout.cancel, (SDL_Rect{708, 241, 78, 26}));
}

TEST(FindShaderDialogParamAtY, UsesTheWindowCoordinateAsItStands) {
  const ShaderDialogGeometry geometry;
  const struct {
    int y;
    int scroll;
    int count;
    int expected;
  } rows[] = {
      {20, 0, 3, 0},   {19, 0, 3, -1},  {0, 0, 3, -1},  {99, 0, 3, 0},  {100, 0, 3, 1},
      {259, 0, 3, 2},  {260, 0, 3, -1}, {36, 0, 3, 0},  {36, 63, 3, 0}, {36, 64, 3, 1},
      {0, 20, 3, 0},   {0, 19, 3, -1},  {20, 0, 0, -1}, {-5, 25, 3, 0}, {-6, 25, 3, -1},
      {-99, 0, 3, -1}, {20, 0, -1, -1},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(FindShaderDialogParamAtY(geometry, row.y, row.scroll, row.count), row.expected)
        << row.y << ' ' << row.scroll << ' ' << row.count;
  }
}

TEST(FindShaderDialogParamAtY, ExtremeNumbersDoNotOverflow) {
  const int most = std::numeric_limits<int>::max();
  const int least = std::numeric_limits<int>::min();
  EXPECT_EQ(FindShaderDialogParamAtY({}, most, most, most), 53687090);
  EXPECT_EQ(FindShaderDialogParamAtY({}, most, most, 3), -1);
  EXPECT_EQ(FindShaderDialogParamAtY({}, least, least, 3), -1);
  ShaderDialogGeometry flat;
  flat.row_height = 0;
  EXPECT_EQ(FindShaderDialogParamAtY(flat, 22, 0, 3), 2);
  EXPECT_EQ(FindShaderDialogParamAtY(flat, 23, 0, 3), -1);
}

TEST(ShaderDialogValueFromMouse, MapsTheTrackToTheRange) {
  const ShaderDialogGeometry geometry;
  const ShaderParameterSpec continuous{"n", "L", 0, 0, 275, 0};
  EXPECT_EQ(ShaderDialogValueFromMouse(continuous, geometry, 260), 0.0F);
  EXPECT_EQ(ShaderDialogValueFromMouse(continuous, geometry, 259), 0.0F);
  EXPECT_EQ(ShaderDialogValueFromMouse(continuous, geometry, 261), 275.0F * (1.0F / 275.0F));
  EXPECT_EQ(ShaderDialogValueFromMouse(continuous, geometry, 535), 275.0F);
  EXPECT_EQ(ShaderDialogValueFromMouse(continuous, geometry, 536), 275.0F);
  const ShaderParameterSpec offset{"n", "L", 0, -1, 3, 0};
  EXPECT_EQ(ShaderDialogValueFromMouse(offset, geometry, 315), -1.0F + 4.0F * 0.2F);
}

TEST(ShaderDialogValueFromMouse, Snaps) {
  const ShaderParameterSpec spec{"n", "L", 0, 0, 10, 2.5F};
  EXPECT_EQ(ShaderDialogValueFromMouse(spec, {}, 260 + 34), 0.0F);
  EXPECT_EQ(ShaderDialogValueFromMouse(spec, {}, 260 + 35), 2.5F);
  EXPECT_EQ(ShaderDialogValueFromMouse(spec, {}, 534), 10.0F);
}

TEST(ShaderDialogValueFromMouse, GivesTheMinimumWhereThereIsNoTrackOrNoRange) {
  ShaderDialogGeometry narrow;
  narrow.slider_width = 0;
  EXPECT_EQ(ShaderDialogValueFromMouse({"n", "L", 0, 1, 3, 0}, narrow, 900), 1.0F);
  narrow.slider_width = 1;
  EXPECT_EQ(ShaderDialogValueFromMouse({"n", "L", 0, 1, 3, 0}, narrow, 261), 3.0F);
  EXPECT_EQ(ShaderDialogValueFromMouse({"n", "L", 0, 4, 4, 1}, {}, 400), 4.0F);
  // Not put in order and not snapped: the bounds are the caller's.
  EXPECT_EQ(ShaderDialogValueFromMouse({"n", "L", 0, 4, 2, 1}, {}, 400), 4.0F);
}

TEST(ShaderDialogValueFromMouse, UndefinedRangesGiveABound) {
  const ShaderParameterSpec endless{"n", "L", 0, -kInfinity, kInfinity, 0};
  EXPECT_EQ(ShaderDialogValueFromMouse(endless, {}, 400), -kInfinity);
  const ShaderParameterSpec huge{"n", "L", 0, -kGreatest, kGreatest, 0};
  EXPECT_EQ(ShaderDialogValueFromMouse(huge, {}, 260), -kGreatest);
  EXPECT_EQ(ShaderDialogValueFromMouse(huge, {}, 261), kGreatest);
  for (const int x : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(ShaderDialogValueFromMouse({"n", "L", 0, 1, 3, 0}, {}, x), x < 0 ? 1.0F : 3.0F);
  }
}

// --- The loop on a session of the test's own -----------------------------------------------------

class ShaderLoopTest : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    Use(MakeSpecs(10));
  }

  void TearDown() override {
    header_font_.reset();
    detail_font_.reset();
    bundle_ = ModalWindowBundle();
    DialogTest::TearDown();
  }

  // Makes the window and the session for these declarations, in the size that the dialog opens in.
  void Use(std::vector<ShaderParameterSpec> specs) {
    specs_ = std::move(specs);
    result_ = InitializeShaderDialogResult(specs_, {});
    geometry_ = BuildShaderDialogGeometry(static_cast<int>(specs_.size()), 1.0F);
    bundle_ = CreateModalWindowBundle(nullptr, "test", 0, 0, geometry_.window_width,
                                      geometry_.window_height, SDL_WINDOW_RESIZABLE,
                                      ModalRendererMode::Software);
    header_font_ = OpenSdlUiFontHandle(16, true, SdlUiFontKind::Ui);
    detail_font_ = OpenSdlUiFontHandle(15, false, SdlUiFontKind::Body);
    session_ = ShaderDialogSession{};
    session_.window = bundle_.window.get();
    session_.renderer = bundle_.renderer.get();
    session_.header_font = header_font_.get();
    session_.detail_font = detail_font_.get();
    session_.shader_path = "some/shader.glsl";
    session_.specs = &specs_;
    session_.geometry = &geometry_;
    session_.result = &result_;
    FlushEvents();
  }

  // Runs the loop; each call of the callback is kept in applied_.
  void Run() {
    RunShaderParameterDialog(&session_,
                             [this](const Values& values) { applied_.push_back(Numbers(values)); });
  }

  // Runs one frame that handles what was pushed, draws, and ends at the next one.
  void RunFrame() {
    DialogScript script;
    script.Wait(1).Step([] { Quit(); });
    Run();
    FlushEvents();
  }

  void PointAt(int x, int y) { Recorder().SetPointer(session_.window, x, y); }

  void Notch(int amount, int y, int x = 100) {
    PointAt(x, y);
    Wheel(amount);
    RunFrame();
  }

  float ValueOf(std::size_t row) const { return result_.values[row].value; }

  std::vector<ShaderParameterSpec> specs_;
  ShaderDialogResult result_;
  ShaderDialogGeometry geometry_;
  ModalWindowBundle bundle_;
  OwnedTtfFont header_font_;
  OwnedTtfFont detail_font_;
  ShaderDialogSession session_;
  std::vector<std::vector<float>> applied_;
};

TEST_F(ShaderLoopTest, ReturnsAtOnceWhenAnythingIsMissing) {
  int beats = 0;
  SetModalDialogHeartbeat([&beats] {
    ++beats;
    Quit();
  });
  RunShaderParameterDialog(nullptr, nullptr);
  const ShaderDialogSession whole = session_;
  const auto run_without = [&](auto member) {
    session_ = whole;
    session_.*member = nullptr;
    Run();
  };
  run_without(&ShaderDialogSession::window);
  run_without(&ShaderDialogSession::renderer);
  run_without(&ShaderDialogSession::header_font);
  run_without(&ShaderDialogSession::detail_font);
  run_without(&ShaderDialogSession::specs);
  run_without(&ShaderDialogSession::geometry);
  run_without(&ShaderDialogSession::result);
  EXPECT_EQ(beats, 0);
  EXPECT_EQ(Recorder().presents(), 0);
  session_ = whole;
  Run();
  EXPECT_EQ(beats, 1);
}

TEST_F(ShaderLoopTest, ReturnsAtOnceWhenValuesAreMissing) {
  result_.values.pop_back();
  Run();
  EXPECT_EQ(Recorder().presents(), 0);
}

TEST_F(ShaderLoopTest, FrameIsHeartbeatEventsDrawingThenTwelveMilliseconds) {
  DialogScript script;
  script.Step([] { EXPECT_EQ(Recorder().CallCount("SDL_PollEvent"), 0); })
      .Step([] {
        EXPECT_GT(Recorder().CallCount("SDL_PollEvent"), 0);
        EXPECT_EQ(Recorder().presents(), 1);
        EXPECT_THAT(Recorder().delays(), ElementsAre(12U));
      })
      .Step([] {
        EXPECT_EQ(Recorder().presents(), 2);
        EXPECT_THAT(Recorder().delays(), ElementsAre(12U, 12U));
        Quit();
      });
  Run();
  EXPECT_EQ(Recorder().presents(), 2);
}

TEST_F(ShaderLoopTest, WindowIsShownOnceBehindTheFirstPresent) {
  Recorder().ForgetCalls();
  DialogScript script;
  script.Wait(3).Step([] { Quit(); });
  Run();
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                                     "SDL_SetWindowInputFocus"}),
              ElementsAre("SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                          "SDL_SetWindowInputFocus", "SDL_RenderPresent", "SDL_RenderPresent"));
  EXPECT_TRUE(session_.shown);
}

// --- Ending and applying -------------------------------------------------------------------------

constexpr SDL_Point kCancelButton{708 + 39, 461 + 13};  // In the window of 900 x 500.
constexpr SDL_Point kApplyButton{802 + 39, 461 + 13};

TEST_F(ShaderLoopTest, ReturnAndEnterApplyAndStay) {
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); })
      .Step([this] {
        EXPECT_THAT(applied_, SizeIs(1));
        EXPECT_TRUE(result_.applied);
        KeyDown(SDLK_KP_ENTER);
      })
      .Step([] { Quit(); });
  Run();
  ASSERT_THAT(applied_, SizeIs(2));
  EXPECT_EQ(applied_[0], std::vector<float>(10, 5.0F));
  EXPECT_EQ(applied_[1], applied_[0]);
  EXPECT_TRUE(result_.applied);
}

TEST_F(ShaderLoopTest, OtherKeysAreIgnored) {
  DialogScript script;
  script
      .Step([] {
        for (const SDL_Keycode key :
             {SDLK_SPACE, SDLK_TAB, SDLK_UP, SDLK_PAGEDOWN, SDLK_a, SDLK_RETURN2}) {
          KeyDown(key);
        }
        quindle::testing::KeyUp(SDLK_RETURN);
        quindle::testing::KeyUp(SDLK_ESCAPE);
        quindle::testing::TextInput("\r");
      })
      .Step([] { Quit(); });
  Run();
  EXPECT_THAT(applied_, IsEmpty());
  EXPECT_FALSE(result_.applied);
  EXPECT_EQ(session_.scroll, 0);
}

TEST_F(ShaderLoopTest, KeysCountThatNameTheDialogOrNoWindow) {
  for (const Uint32 id : {WindowId(), Uint32{0}}) {
    applied_.clear();
    DialogScript script;
    script.Step([id] { KeyDown(SDLK_RETURN, id); }).Step([id] { KeyDown(SDLK_ESCAPE, id); });
    Run();
    EXPECT_THAT(applied_, SizeIs(1));
    EXPECT_FALSE(result_.applied);
    FlushEvents();
  }
}

TEST_F(ShaderLoopTest, KeysThatNameAnotherWindowAreDropped) {
  const Uint32 other = WindowId() + 1;
  result_.applied = true;
  for (const SDL_Keycode key : {SDLK_RETURN, SDLK_KP_ENTER, SDLK_ESCAPE}) {
    KeyDown(key, other);
  }
  RunFrame();
  EXPECT_EQ(Recorder().presents(), 1) << "the dialog ended at a key";
  EXPECT_THAT(applied_, IsEmpty());
  EXPECT_TRUE(result_.applied);
}

TEST_F(ShaderLoopTest, EscapeTakesAppliedBack) {
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); }).Step([] { KeyDown(SDLK_ESCAPE); });
  Run();
  EXPECT_THAT(applied_, SizeIs(1));
  EXPECT_FALSE(result_.applied);
}

TEST_F(ShaderLoopTest, CancelTakesAppliedBack) {
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); }).Step([] { Click(kCancelButton.x, kCancelButton.y); });
  Run();
  EXPECT_THAT(applied_, SizeIs(1));
  EXPECT_FALSE(result_.applied);
}

TEST_F(ShaderLoopTest, CloseAndQuitLeaveAppliedAsItStands) {
  for (const bool apply : {false, true}) {
    for (const bool quit : {false, true}) {
      FlushEvents();
      result_.applied = false;
      DialogScript script;
      script.Step([&] { apply ? KeyDown(SDLK_RETURN) : KeyDown(SDLK_a); }).Step([&] {
        quit ? Quit() : CloseWindow(WindowId());
      });
      Run();
      EXPECT_EQ(result_.applied, apply) << quit;
    }
  }
}

TEST_F(ShaderLoopTest, QuitIsConsumed) {
  DialogScript script;
  script.Step([] { Quit(); });
  Run();
  EXPECT_THAT(QueuedEvents(), IsEmpty());
}

TEST_F(ShaderLoopTest, WindowEventsOfOtherWindowsAreDropped) {
  DialogScript script;
  script.Step([] { CloseWindow(WindowId() + 1); }).Step([this] {
    EXPECT_EQ(Recorder().presents(), 1);
    session_.scroll = 7;
    Quit();
  });
  Run();
  EXPECT_TRUE(script.IsFinished());
}

TEST_F(ShaderLoopTest, NothingBehindTheEndIsHandled) {
  const std::vector<std::function<void()>> ends = {[] { KeyDown(SDLK_ESCAPE); },
                                                   [] { Click(kCancelButton.x, kCancelButton.y); },
                                                   [] { Quit(); }, [] { CloseWindow(WindowId()); }};
  for (const auto& end : ends) {
    DialogScript script;
    script.Step([&end] {
      end();
      KeyDown(SDLK_RETURN);
      MouseDown(400, 60);
    });
    const long presents = Recorder().presents();
    Run();
    EXPECT_EQ(Recorder().presents(), presents) << "a frame was drawn behind the end";
    EXPECT_THAT(applied_, IsEmpty());
    EXPECT_FALSE(result_.applied);
    EXPECT_EQ(ValueOf(0), 5.0F);
    FlushEvents();
  }
}

TEST_F(ShaderLoopTest, ApplyButtonAppliesOnRelease) {
  DialogScript script;
  script.Step([] { MouseDown(kApplyButton.x, kApplyButton.y); })
      .Step([this] {
        EXPECT_THAT(applied_, IsEmpty());
        MouseUp(kApplyButton.x, kApplyButton.y);
      })
      .Step([this] {
        EXPECT_THAT(applied_, SizeIs(1));
        Click(kApplyButton.x, kApplyButton.y);
      })
      .Step([] { Quit(); });
  Run();
  ASSERT_THAT(applied_, SizeIs(2));
  EXPECT_EQ(applied_[0], applied_[1]);
  EXPECT_TRUE(result_.applied);
}

TEST_F(ShaderLoopTest, ButtonsHaveHalfOpenEdges) {
  const struct {
    int x;
    int y;
    bool inside;
  } rows[] = {{802, 461, true},  {801, 461, false}, {802, 460, false}, {879, 486, true},
              {880, 486, false}, {879, 487, false}, {790, 470, false}};
  for (const auto& row : rows) {
    applied_.clear();
    MouseUp(row.x, row.y);
    RunFrame();
    EXPECT_EQ(applied_.size(), row.inside ? 1U : 0U) << row.x << ' ' << row.y;
  }
}

TEST_F(ShaderLoopTest, OnlyTheLeftButtonCounts) {
  for (const Uint8 button : {Uint8{SDL_BUTTON_RIGHT}, Uint8{SDL_BUTTON_MIDDLE}}) {
    DialogScript script;
    script
        .Step([button] {
          Click(kApplyButton.x, kApplyButton.y, button);
          Click(kCancelButton.x, kCancelButton.y, button);
          MouseDown(400, 60, button);
          MouseDown(885, 100, button);
        })
        .Step([] { Quit(); });
    Run();
    EXPECT_TRUE(script.IsFinished());
    EXPECT_THAT(applied_, IsEmpty());
    EXPECT_FALSE(session_.dragging_slider);
    EXPECT_FALSE(session_.dragging_scrollbar);
    FlushEvents();
  }
}

TEST_F(ShaderLoopTest, MouseEventsOfOtherWindowsAreDropped) {
  const Uint32 other = WindowId() + 1;
  PointAt(100, 100);
  Click(kApplyButton.x, kApplyButton.y, SDL_BUTTON_LEFT, 1, other);
  Click(kCancelButton.x, kCancelButton.y, SDL_BUTTON_LEFT, 1, other);
  MouseDown(400, 60, SDL_BUTTON_LEFT, 1, other);
  Wheel(-1, 0, {100, 100}, other);
  RunFrame();
  EXPECT_THAT(applied_, IsEmpty());
  EXPECT_FALSE(session_.dragging_slider);
  EXPECT_EQ(session_.scroll, 0);
  MouseDown(400, 60);
  Motion(300, 60, SDL_BUTTON_LMASK, other);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 5.0F);
  EXPECT_TRUE(session_.dragging_slider);
}

TEST_F(ShaderLoopTest, MouseEventsThatNameTheDialogCount) {
  Click(kApplyButton.x, kApplyButton.y, SDL_BUTTON_LEFT, 1, WindowId());
  RunFrame();
  EXPECT_THAT(applied_, SizeIs(1));
}

TEST_F(ShaderLoopTest, AppliesWithoutACallback) {
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); })
      .Step([] { Click(kApplyButton.x, kApplyButton.y); })
      .Step([] { Quit(); });
  RunShaderParameterDialog(&session_, nullptr);
  EXPECT_TRUE(result_.applied);
}

// --- Wheel ---------------------------------------------------------------------------------------

TEST_F(ShaderLoopTest, NotchScrollsAndMovesTheRowThatIsThenUnderThePointer) {
  // The window's y 62 is row 0 before the scroll and row 1 behind it.
  Notch(-1, 62);
  EXPECT_EQ(session_.scroll, 40);
  EXPECT_EQ(ValueOf(0), 5.0F);
  EXPECT_EQ(ValueOf(1), 4.5F);
  Notch(+1, 62);
  EXPECT_EQ(session_.scroll, 0);
  EXPECT_EQ(ValueOf(0), 5.5F);
  EXPECT_EQ(ValueOf(1), 4.5F);
}

TEST_F(ShaderLoopTest, RowsUnderThePointerUseTheWindowsCoordinate) {
  Notch(-1, 59);
  EXPECT_EQ(ValueOf(0), 4.5F);
  EXPECT_EQ(ValueOf(1), 5.0F);
  session_.scroll = 0;
  Notch(-1, 60);
  EXPECT_EQ(ValueOf(0), 4.5F);
  EXPECT_EQ(ValueOf(1), 4.5F);
}

TEST_F(ShaderLoopTest, NotchOfManyMovesOneStepAndScrollsByAll) {
  Notch(-3, 40);
  EXPECT_EQ(session_.scroll, 120);
  EXPECT_EQ(ValueOf(1), 4.5F);
  Notch(+2, 40);
  EXPECT_EQ(session_.scroll, 40);
  EXPECT_EQ(ValueOf(0), 5.5F);
}

TEST_F(ShaderLoopTest, NotchAtTheEndsStillMovesTheValue) {
  Notch(+1, 40);
  EXPECT_EQ(session_.scroll, 0);
  EXPECT_EQ(ValueOf(0), 5.5F);
  Notch(-1000, 440);
  EXPECT_EQ(session_.scroll, 408);
  EXPECT_EQ(ValueOf(9), 5.0F) << "y 440 is row 10, which there is not";
  Notch(-1, 300);
  EXPECT_EQ(session_.scroll, 408);
  EXPECT_EQ(ValueOf(8), 4.5F);
}

TEST_F(ShaderLoopTest, NotchCountsInsideTheListViewOnly) {
  const struct {
    int y;
    bool inside;
  } rows[] = {{35, false}, {36, true}, {447, true}, {448, false}, {-1, false}, {499, false}};
  for (const auto& row : rows) {
    session_.scroll = 0;
    Notch(-1, row.y);
    EXPECT_EQ(session_.scroll, row.inside ? 40 : 0) << row.y;
  }
}

TEST_F(ShaderLoopTest, NotchCountsAtAnyX) {
  for (const int x : {0, 400, 890, 5000, -1}) {
    session_.scroll = 0;
    Notch(-1, 100, x);
    EXPECT_EQ(session_.scroll, 40) << x;
  }
}

TEST_F(ShaderLoopTest, NotchNeedsTheMouseFocus) {
  Recorder().SetPointer(nullptr, 100, 100);
  Wheel(-1, 0, {100, 100}, WindowId());
  RunFrame();
  EXPECT_EQ(session_.scroll, 0);
  Recorder().SetPointer(MakeParent(), 100, 100);
  Wheel(-1, 0, {100, 100}, SDL_GetWindowID(session_.window));
  RunFrame();
  EXPECT_EQ(session_.scroll, 0);
}

TEST_F(ShaderLoopTest, HorizontalNotchDoesNothing) {
  PointAt(100, 100);
  Wheel(0, 1);
  Wheel(0, -1);
  RunFrame();
  EXPECT_EQ(session_.scroll, 0);
  EXPECT_EQ(Numbers(result_.values), std::vector<float>(10, 5.0F));
}

TEST_F(ShaderLoopTest, PointerIsWhereItIsNotWhereTheEventWas) {
  PointAt(100, 100);
  Wheel(-1, 0, {5, 5});
  RunFrame();
  EXPECT_EQ(session_.scroll, 40);
}

TEST_F(ShaderLoopTest, ContinuousParametersMoveByTwoHundredthsOfTheRange) {
  Use({{"a", "A", 0.5F, 0, 1, 0}, {"b", "B", 1, 0, 1, 0.25F}, {"c", "C", -10, -10, 40, 0}});
  Notch(+1, 40);
  EXPECT_EQ(ValueOf(0), 0.5F + 0.02F);
  Notch(-1, 140);
  EXPECT_EQ(ValueOf(1), 0.75F);
  session_.scroll = 0;
  Notch(+1, 200);
  EXPECT_EQ(ValueOf(2), -9.0F);
  Notch(-1, 190);
  Notch(-1, 190);
  EXPECT_EQ(ValueOf(2), -10.0F) << "clamped";
}

TEST_F(ShaderLoopTest, NotchSnapsTheSum) {
  Use({{"a", "A", 0.9F, 0, 1, 0.3F}});
  result_.values[0].value = 0.5F;
  Notch(+1, 40);
  EXPECT_EQ(ValueOf(0), 0.3F * 3.0F);
  Notch(+1, 40);
  EXPECT_EQ(ValueOf(0), 0.3F * 3.0F) << "1.2 is clamped to 1, which is nearest to 0.9";
  Notch(-1, 40);
  EXPECT_EQ(ValueOf(0), 0.3F * 2.0F);
}

TEST_F(ShaderLoopTest, ExtremeAmountsDoNotOverflow) {
  Notch(std::numeric_limits<int>::min(), 100);
  EXPECT_EQ(session_.scroll, 408);
  Notch(testing::LargestInEvents(), 100);
  EXPECT_EQ(session_.scroll, 0);
}

// --- Sliders -------------------------------------------------------------------------------------

TEST_F(ShaderLoopTest, PressOnTheSliderSetsTheValueAndGrabs) {
  MouseDown(315, 60);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 2.0F);
  EXPECT_TRUE(session_.dragging_slider);
  EXPECT_EQ(session_.active_param, 0);
  EXPECT_FALSE(session_.dragging_scrollbar);
}

TEST_F(ShaderLoopTest, SliderBandHasExactEdges) {
  const struct {
    int x;
    int y;
    int row;  // -1 for a miss.
  } rows[] = {{260, 60, 0},  {259, 60, -1}, {534, 60, 0},   {535, 60, -1},
              {400, 54, 0},  {400, 53, -1}, {400, 66, 0},   {400, 67, -1},
              {400, 134, 1}, {400, 146, 1}, {400, 147, -1}, {400, 133, -1}};
  for (const auto& row : rows) {
    session_.dragging_slider = false;
    session_.active_param = -1;
    MouseDown(row.x, row.y);
    RunFrame();
    EXPECT_EQ(session_.dragging_slider, row.row >= 0) << row.x << ' ' << row.y;
    EXPECT_EQ(session_.active_param, row.row) << row.x << ' ' << row.y;
  }
}

TEST_F(ShaderLoopTest, SliderBandScrollsWithItsRow) {
  session_.scroll = 85;
  MouseDown(400, 20 + 80 + 40 - 85);
  RunFrame();
  EXPECT_EQ(session_.active_param, 1);
}

TEST_F(ShaderLoopTest, SliderBandCountsInsideTheListViewOnly) {
  // Row 0's band is 54 .. 66 when nothing is scrolled.
  session_.scroll = 25;
  MouseDown(400, 35);
  RunFrame();
  EXPECT_FALSE(session_.dragging_slider) << "hidden behind the header";
  MouseDown(400, 36);
  RunFrame();
  EXPECT_TRUE(session_.dragging_slider);
  session_.dragging_slider = false;
  // Row 5's band is 454 .. 466, just below the view.
  session_.scroll = 7;
  MouseDown(400, 448);
  RunFrame();
  EXPECT_FALSE(session_.dragging_slider);
  MouseDown(400, 447);
  RunFrame();
  EXPECT_TRUE(session_.dragging_slider);
  EXPECT_EQ(session_.active_param, 5);
}

TEST_F(ShaderLoopTest, DragFollowsThePointerEverywhere) {
  MouseDown(400, 60);
  Motion(315, 300);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 2.0F);
  Motion(-5000, -5000);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 0.0F);
  Motion(5000, 5000);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 10.0F);
  for (std::size_t row = 1; row < 10; ++row) {
    EXPECT_EQ(ValueOf(row), 5.0F);
  }
}

TEST_F(ShaderLoopTest, ReleaseAnywhereEndsTheDrag) {
  MouseDown(400, 60);
  MouseUp(5, 5);
  Motion(260, 60);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 5.0F) << "x 400 is 5.09, which snaps to 5";
  EXPECT_FALSE(session_.dragging_slider);
  EXPECT_EQ(session_.active_param, -1);
}

TEST_F(ShaderLoopTest, ReleaseThatNamesAnotherWindowEndsADragAndDoesNothingElse) {
  const Uint32 other = WindowId() + 1;
  for (const SDL_Point button : {kApplyButton, kCancelButton}) {
    MouseDown(400, 60);
    MouseUp(button.x, button.y, SDL_BUTTON_LEFT, 1, other);
    Motion(260, 60);
    RunFrame();
    EXPECT_EQ(ValueOf(0), 5.0F);
    EXPECT_FALSE(session_.dragging_slider);
    EXPECT_EQ(session_.active_param, -1);
  }
  MouseDown(888, 100);
  MouseUp(5, 5, SDL_BUTTON_LEFT, 1, other);
  Motion(888, 300);
  RunFrame();
  EXPECT_EQ(session_.scroll, 0);
  EXPECT_FALSE(session_.dragging_scrollbar);
  EXPECT_EQ(Recorder().presents(), 3);
  EXPECT_THAT(applied_, IsEmpty());
  MouseDown(400, 60);
  MouseUp(5, 5, SDL_BUTTON_RIGHT, 1, other);
  Motion(260, 60);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 0.0F) << "the right button's release ended the drag";
}

void ShowBoxOverTheDialog() {
  SdlMessageBox::Config config;
  config.title = "Nested";
  config.message = "Nested";
  SdlMessageBox(config).Show(Recorder().newest_window(), 1.0F);
}

TEST_F(ShaderLoopTest, ReleaseThatANestedDialogReadEndsTheDrag) {
  const Uint32 id = WindowId();
  for (const SDL_Point grip : {SDL_Point{400, 60}, SDL_Point{888, 100}}) {
    DialogScript script;
    script
        .Step([&] {
          Recorder().SetPointer(session_.window, grip.x, grip.y, SDL_BUTTON_LMASK);
          MouseDown(grip.x, grip.y);
        })
        .Step([&] {
          ASSERT_TRUE(session_.dragging_slider || session_.dragging_scrollbar);
          ShowBoxOverTheDialog();
        })
        .Wait()
        .Step([] {
          Recorder().ClearPointer();
          MouseUp(1, 1);
          KeyDown(SDLK_ESCAPE);
        })
        .Step([&] { Motion(270, 300, 0, id); })
        .Step([&] {
          EXPECT_EQ(ValueOf(0), 5.0F);
          EXPECT_EQ(session_.scroll, 0);
          EXPECT_FALSE(session_.dragging_slider);
          EXPECT_FALSE(session_.dragging_scrollbar);
          EXPECT_EQ(session_.active_param, -1);
          Quit();
        });
    Run();
    FlushEvents();
  }
}

TEST_F(ShaderLoopTest, ReleaseThatADialogOfTheCallbackReadEndsTheDragForTheVeryNextEvent) {
  DialogScript script;
  script
      .Step([&] {
        Recorder().SetPointer(session_.window, 400, 60, SDL_BUTTON_LMASK);
        MouseDown(400, 60);
        KeyDown(SDLK_RETURN);
      })
      .Wait()
      .Step([] {
        Recorder().ClearPointer();
        MouseUp(1, 1);
        KeyDown(SDLK_ESCAPE);
        Motion(270, 60);
        Quit();
      });
  int boxes = 0;
  RunShaderParameterDialog(&session_, [&](const Values&) {
    EXPECT_TRUE(session_.dragging_slider);
    ++boxes;
    ShowBoxOverTheDialog();
  });
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(ValueOf(0), 5.0F);
  EXPECT_FALSE(session_.dragging_slider);
}

TEST_F(ShaderLoopTest, DragGoesOnBehindANestedDialogWhileTheButtonIsDown) {
  const Uint32 id = WindowId();
  DialogScript script;
  script
      .Step([&] {
        Recorder().SetPointer(session_.window, 400, 60, SDL_BUTTON_LMASK);
        MouseDown(400, 60);
      })
      .Step([] { ShowBoxOverTheDialog(); })
      .Wait()
      .Step([] { KeyDown(SDLK_ESCAPE); })
      .Step([id] { Motion(315, 60, SDL_BUTTON_LMASK, id); })
      .Step([] { Quit(); });
  Run();
  EXPECT_EQ(ValueOf(0), 2.0F);
  EXPECT_TRUE(session_.dragging_slider);
}

// Without a dialog in between the button's state is not asked: it is newer than the events.
TEST_F(ShaderLoopTest, ButtonThatIsUpByNowDoesNotEndADragBeforeItsRelease) {
  PointAt(400, 60);
  MouseDown(400, 60);
  Motion(315, 60);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 2.0F);
  EXPECT_TRUE(session_.dragging_slider);
}

TEST_F(ShaderLoopTest, ReleaseOfAnotherButtonDoesNotEndTheDrag) {
  MouseDown(400, 60);
  MouseUp(400, 60, SDL_BUTTON_RIGHT);
  Motion(260, 60);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 0.0F);
}

TEST_F(ShaderLoopTest, ReleaseOnApplyAppliesAndEndsTheDrag) {
  MouseDown(315, 60);
  MouseUp(kApplyButton.x, kApplyButton.y);
  Motion(260, 60);
  RunFrame();
  ASSERT_THAT(applied_, SizeIs(1));
  EXPECT_EQ(applied_[0][0], 2.0F);
  EXPECT_EQ(ValueOf(0), 2.0F);
}

TEST_F(ShaderLoopTest, MotionWithoutAPressDoesNothing) {
  Motion(315, 60, SDL_BUTTON_LMASK);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 5.0F);
}

TEST_F(ShaderLoopTest, DragOfNoRowDoesNothing) {
  session_.dragging_slider = true;
  for (const int row : {-1, 10, 11}) {
    session_.active_param = row;
    Motion(315, 60);
    RunFrame();
  }
  EXPECT_EQ(Numbers(result_.values), std::vector<float>(10, 5.0F));
}

TEST_F(ShaderLoopTest, ParameterWithoutARangeStaysAtItsMinimum) {
  Use({{"a", "A", 3, 3, 3, 0.5F}});
  MouseDown(500, 60);
  Motion(300, 60);
  RunFrame();
  EXPECT_EQ(ValueOf(0), 3.0F);
  EXPECT_TRUE(session_.dragging_slider);
}

// --- Scroll bar ----------------------------------------------------------------------------------

TEST_F(ShaderLoopTest, PressOnTheScrollBarGrabsWithoutAJump) {
  session_.scroll = 100;
  MouseDown(885, 400);
  RunFrame();
  EXPECT_TRUE(session_.dragging_scrollbar);
  EXPECT_EQ(session_.drag_start_y, 400);
  EXPECT_EQ(session_.drag_start_scroll, 100);
  EXPECT_EQ(session_.scroll, 100);
  EXPECT_FALSE(session_.dragging_slider);
}

TEST_F(ShaderLoopTest, ScrollBarTrackHasHalfOpenEdges) {
  const struct {
    int x;
    int y;
    bool inside;
  } rows[] = {{882, 36, true},  {881, 36, false},  {882, 35, false},
              {895, 447, true}, {896, 447, false}, {895, 448, false}};
  for (const auto& row : rows) {
    session_.dragging_scrollbar = false;
    MouseDown(row.x, row.y);
    RunFrame();
    EXPECT_EQ(session_.dragging_scrollbar, row.inside) << row.x << ' ' << row.y;
  }
}

TEST_F(ShaderLoopTest, ScrollBarDragMapsTravelToScroll) {
  // 205 pixels of travel for 408 of scroll.
  const struct {
    int y;
    int scroll;
  } rows[] = {{101, 101}, {102, 103},  {99, 99}, {98, 97}, {150, 199},
              {305, 408}, {5000, 408}, {50, 1},  {49, 0},  {-5000, 0}};
  session_.scroll = 100;
  MouseDown(885, 100);
  RunFrame();
  for (const auto& row : rows) {
    Motion(0, row.y);
    RunFrame();
    EXPECT_EQ(session_.scroll, row.scroll) << row.y;
  }
  MouseUp(0, 0);
  Motion(0, 200);
  RunFrame();
  EXPECT_FALSE(session_.dragging_scrollbar);
  EXPECT_EQ(session_.scroll, 0);
}

TEST_F(ShaderLoopTest, ScrollBarIsNotThereWhenAllRowsFit) {
  Use(MakeSpecs(2));
  MouseDown(885, 100);
  RunFrame();
  EXPECT_FALSE(session_.dragging_scrollbar);
  EXPECT_THAT(Recorder().last_frame().Fills(kScrollTrack), IsEmpty());
}

TEST_F(ShaderLoopTest, ScrollBarDragPausesWhileAllRowsFit) {
  MouseDown(885, 100);
  RunFrame();
  SDL_SetWindowSize(session_.window, 900, 1000);
  Motion(0, 200);
  RunFrame();
  EXPECT_EQ(session_.scroll, 0);
  EXPECT_TRUE(session_.dragging_scrollbar);
}

TEST_F(ShaderLoopTest, ScrollBarWinsOverASliderUnderIt) {
  SDL_SetWindowSize(session_.window, 300, 500);
  FlushEvents();
  MouseDown(285, 60);
  RunFrame();
  EXPECT_TRUE(session_.dragging_scrollbar);
  EXPECT_FALSE(session_.dragging_slider);
  EXPECT_EQ(ValueOf(0), 5.0F);
}

TEST_F(ShaderLoopTest, ExtremeMotionsDoNotOverflow) {
  const int largest = testing::LargestInEvents();
  MouseDown(885, 100);
  Motion(largest, largest);
  RunFrame();
  EXPECT_EQ(session_.scroll, 408);
  Motion(std::numeric_limits<int>::min(), std::numeric_limits<int>::min());
  RunFrame();
  EXPECT_EQ(session_.scroll, 0);
}

// --- Resizing ------------------------------------------------------------------------------------

TEST_F(ShaderLoopTest, ResizeClampsTheScrollBeforeTheNextEvent) {
  session_.scroll = 408;
  SDL_SetWindowSize(session_.window, 900, 600);
  FlushEvents();
  // Seen with a scroll of 308, y 92 is row 4 (380 % 80 = 60: its middle).
  Resized(WindowId(), 900, 600);
  MouseDown(400, 20 + 4 * 80 + 40 - 308);
  RunFrame();
  EXPECT_EQ(session_.scroll, 308);
  EXPECT_EQ(session_.active_param, 4);
}

TEST_F(ShaderLoopTest, ResizeMovesTheButtons) {
  SDL_SetWindowSize(session_.window, 700, 600);
  RunFrame();
  Click(700 - 98 + 1, 600 - 39 + 1);
  RunFrame();
  EXPECT_THAT(applied_, SizeIs(1));
  EXPECT_TRUE(Recorder().last_frame().HasText("Apply"));
  EXPECT_EQ(Recorder().last_frame().FindText("Apply")->rect.x, 700 - 98 + 10);
}

// All in one frame: the callback stands in for a window manager that resizes between two events.
TEST_F(ShaderLoopTest, ResizeMovesTheButtonsForTheEventsBehindIt) {
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); });
  RunShaderParameterDialog(&session_, [this](const Values&) {
    SDL_SetWindowSize(session_.window, 700, 600);
    // With SDL's own mark for the end of a frame's events, which would put the rest off.
    FlushEvents();
    Resized(WindowId(), 700, 600);
    Click(700 - 192 + 1, 600 - 39 + 1);
  });
  EXPECT_FALSE(result_.applied) << "the cancel button was looked for at its former place";
}

TEST_F(ShaderLoopTest, DrawnScrollIsClampedWithoutAResizeEvent) {
  session_.scroll = 408;
  SDL_SetWindowSize(session_.window, 900, 900);
  FlushEvents();
  RunFrame();
  EXPECT_EQ(session_.scroll, 8);
  EXPECT_THAT(Recorder().last_frame().Fills(kScrollThumb), SizeIs(1));
}

TEST_F(ShaderLoopTest, ResizeOfAnotherWindowDoesNotCount) {
  session_.scroll = 408;
  SDL_SetWindowSize(session_.window, 900, 600);
  FlushEvents();
  Resized(WindowId() + 1, 900, 600);
  MouseDown(400, 20 + 5 * 80 + 40 - 408);
  RunFrame();
  EXPECT_EQ(session_.active_param, 5) << "the scroll was clamped too early";
}

// --- Drawing -------------------------------------------------------------------------------------

struct Drawn {
  DrawKind kind;
  SDL_Rect rect;  // For texts x and y only.
  SDL_Color color;
  std::string text;

  bool operator==(const Drawn&) const = default;
};

void PrintTo(const Drawn& drawn, std::ostream* out) {
  *out << drawn.kind << ' ';
  ::PrintTo(drawn.rect, out);
  *out << ' ';
  ::PrintTo(drawn.color, out);
  *out << " \"" << drawn.text << '"';
}

std::vector<Drawn> DrawnOf(const Frame& frame) {
  std::vector<Drawn> all;
  for (const DrawCall& call : frame.draws) {
    Drawn drawn{call.kind, call.rect, call.color, call.text};
    if (call.kind == DrawKind::Text) {
      drawn.rect = {call.rect.x, call.rect.y, 0, 0};
    } else if (call.kind == DrawKind::Line) {
      drawn.rect = {call.from.x, call.from.y, call.to.x, call.to.y};
    } else if (call.kind == DrawKind::Clear) {
      drawn.rect = {0, 0, 0, 0};
    }
    all.push_back(drawn);
  }
  return all;
}

TEST_F(ShaderLoopTest, FrameIsDrawnInOrder) {
  Use({{"gamma", "Gamma", 2.5F, 0.0F, 10.0F, 0.05F}});
  RunFrame();
  const std::vector<Drawn> expected = {
      {DrawKind::Clear, {0, 0, 0, 0}, {18, 20, 26, 255}, ""},
      {DrawKind::Fill, {0, 0, 900, 36}, kHeaderFill, ""},
      {DrawKind::Text, {12, 4, 0, 0}, kSecondaryText, "Shader parameters:"},
      {DrawKind::Text, {12, 18, 0, 0}, kPrimaryText, "some/shader.glsl"},
      {DrawKind::Fill, {12, 20, 858, 74}, kCardFill, ""},
      {DrawKind::Outline, {12, 20, 858, 74}, kCardBorder, ""},
      {DrawKind::Text, {14, 25, 0, 0}, kPrimaryText, "Gamma"},
      {DrawKind::Fill, {260, 54, 275, 13}, kTrackFill, ""},
      {DrawKind::Outline, {260, 54, 275, 13}, kTrackBorder, ""},
      {DrawKind::Fill, {260, 54, 69, 13}, kFilledTrack, ""},
      {DrawKind::Fill, {323, 50, 12, 21}, kKnobFill, ""},
      {DrawKind::Text, {545, 24, 0, 0}, kPrimaryText, "2.500"},
      {DrawKind::Text,
       {545, 39, 0, 0},
       kSecondaryText,
       "min 0.000000  max 10.000000  step 0.050000"},
      {DrawKind::Fill, {0, 228, 900, 52}, kBarFill, ""},
      {DrawKind::Line, {0, 228, 899, 228}, kSeparator, ""},
      {DrawKind::Fill, {708, 241, 78, 26}, kButtonFill, ""},
      {DrawKind::Outline, {708, 241, 78, 26}, kButtonBorder, ""},
      {DrawKind::Text, {718, 247, 0, 0}, kPrimaryText, "Cancel"},
      {DrawKind::Fill, {802, 241, 78, 26}, kButtonFill, ""},
      {DrawKind::Outline, {802, 241, 78, 26}, kButtonBorder, ""},
      {DrawKind::Text, {812, 247, 0, 0}, kPrimaryText, "Apply"}};
  EXPECT_EQ(DrawnOf(Recorder().last_frame()), expected);
}

TEST_F(ShaderLoopTest, TextsUseTheirFonts) {
  RunFrame();
  const Frame& frame = Recorder().last_frame();
  const auto font_of = [&frame](const char* text) { return frame.FindText(text)->font; };
  EXPECT_EQ(font_of("Shader parameters:").size, 16);
  EXPECT_EQ(font_of("Shader parameters:").style, TTF_STYLE_BOLD);
  for (const char* text : {"some/shader.glsl", "Label 0", "5.000", "Cancel", "Apply",
                           "min 0.000000  max 10.000000  step 0.500000"}) {
    ASSERT_TRUE(frame.HasText(text)) << text;
    EXPECT_EQ(font_of(text).size, 15) << text;
    EXPECT_EQ(font_of(text).style, TTF_STYLE_NORMAL) << text;
    EXPECT_THAT(font_of(text).path, ::testing::EndsWith("Regular.ttf")) << text;
  }
}

TEST_F(ShaderLoopTest, ScrollBarIsDrawnBehindTheRowsUnderTheClip) {
  RunFrame();
  const Frame& frame = Recorder().last_frame();
  EXPECT_THAT(frame.Fills(kScrollTrack), ElementsAre(SDL_Rect{882, 36, 14, 412}));
  EXPECT_THAT(frame.Fills(kScrollThumb), ElementsAre(SDL_Rect{882, 36, 14, 207}));
  EXPECT_THAT(frame.Outlines(kScrollThumbBorder), ElementsAre(SDL_Rect{882, 36, 14, 207}));
  const auto draw_of = [&frame](SDL_Color color) {
    return std::find_if(frame.draws.begin(), frame.draws.end(),
                        [&](const DrawCall& call) { return call.color == color; });
  };
  EXPECT_LT(draw_of(kCardFill), draw_of(kScrollTrack));
  EXPECT_LT(draw_of(kScrollTrack), draw_of(kScrollThumb));
  EXPECT_LT(draw_of(kScrollThumb), draw_of(kBarFill));
  EXPECT_EQ(draw_of(kScrollTrack)->clip, (SDL_Rect{0, 36, 900, 412}));
  EXPECT_EQ(draw_of(kCardFill)->clip, (SDL_Rect{0, 36, 900, 412}));
  EXPECT_FALSE(draw_of(kBarFill)->clip.has_value());
  EXPECT_FALSE(draw_of(kHeaderFill)->clip.has_value());
}

TEST_F(ShaderLoopTest, OnlyRowsThatMeetTheViewAreDrawn) {
  const auto drawn_tops = [this](int scroll) {
    session_.scroll = scroll;
    RunFrame();
    std::vector<int> tops;
    for (const SDL_Rect& card : Recorder().last_frame().Fills(kCardFill)) {
      tops.push_back(card.y);
    }
    return tops;
  };
  EXPECT_THAT(drawn_tops(0), ElementsAre(20, 100, 180, 260, 340, 420));
  // A row whose last pixel line is at 36, and one that ends at 35.
  EXPECT_THAT(drawn_tops(63), ElementsAre(-43, 37, 117, 197, 277, 357, 437));
  EXPECT_THAT(drawn_tops(64), ElementsAre(36, 116, 196, 276, 356, 436));
  // A row that begins at 448, just below the view, and one that begins at 447.
  EXPECT_THAT(drawn_tops(52), ElementsAre(-32, 48, 128, 208, 288, 368));
  EXPECT_THAT(drawn_tops(53), ElementsAre(-33, 47, 127, 207, 287, 367, 447));
  EXPECT_THAT(drawn_tops(408), ElementsAre(12, 92, 172, 252, 332));
}

// A session of the host's own may come with any geometry.
TEST_F(ShaderLoopTest, RowsStartAtTheFirstHoweverFarDownTheListBegins) {
  geometry_.list_top = 300;
  RunFrame();
  const std::vector<SDL_Rect> cards = Recorder().last_frame().Fills(kCardFill);
  ASSERT_THAT(cards, SizeIs(2));
  EXPECT_EQ(cards[0].y, 300);
  EXPECT_EQ(cards[1].y, 380);
}

TEST_F(ShaderLoopTest, RowsWithoutHeightAreDrawnOnTopOfEachOther) {
  geometry_.row_height = 0;
  geometry_.list_top = 100;
  RunFrame();
  const std::vector<SDL_Rect> cards = Recorder().last_frame().Fills(kCardFill);
  EXPECT_TRUE(
      std::all_of(cards.begin(), cards.end(), [](const SDL_Rect& card) { return card.y == 100; }));
  EXPECT_FALSE(cards.empty());
}

TEST_F(ShaderLoopTest, ViewWithoutRowsIsDrawnEmpty) {
  SDL_SetWindowSize(session_.window, 900, 40);
  session_.scroll = 819;
  RunFrame();
  EXPECT_EQ(session_.scroll, 819);
  EXPECT_THAT(Recorder().last_frame().Fills(kCardFill), IsEmpty());
}

TEST_F(ShaderLoopTest, RowsFollowTheWidth) {
  SDL_SetWindowSize(session_.window, 1200, 500);
  RunFrame();
  EXPECT_EQ(Recorder().last_frame().Fills(kCardFill)[0], (SDL_Rect{12, 20, 1158, 74}));
  SDL_SetWindowSize(session_.window, 30, 500);
  RunFrame();
  EXPECT_EQ(Recorder().last_frame().Fills(kCardFill)[0].w, 0);
}

TEST_F(ShaderLoopTest, CardIsBlendedAndTheModePutBack) {
  DialogScript script;
  script.Wait(1).Step([this] {
    SDL_BlendMode mode = SDL_BLENDMODE_INVALID;
    SDL_GetRenderDrawBlendMode(session_.renderer, &mode);
    EXPECT_EQ(mode, SDL_BLENDMODE_NONE);
    // 200/255 of the card over the window's colour.
    const SDL_Color pixel = PixelAt(30, 60);
    EXPECT_NEAR(pixel.r, 29, 1);
    EXPECT_NEAR(pixel.g, 33, 1);
    EXPECT_NEAR(pixel.b, 40, 1);
    Quit();
  });
  Run();
}

TEST_F(ShaderLoopTest, FilledPartFollowsTheValue) {
  const struct {
    ShaderParameterSpec spec;
    float value;
    int filled;
  } rows[] = {{{"a", "A", 0, 0, 1, 0}, 0.0F, 0},
              {{"a", "A", 0, 0, 1, 0}, 1.0F, 275},
              {{"a", "A", 0, 0, 1, 0}, 0.5F, 138},  // 137.5, half away from zero
              {{"a", "A", 0, -2, 2, 0}, -1.0F, 69},
              {{"a", "A", 0, 0, 1, 0}, 5.0F, 275},
              {{"a", "A", 0, 0, 1, 0}, -5.0F, 0},
              {{"a", "A", 0, 3, 3, 0}, 3.0F, 0},
              {{"a", "A", 0, 0, 0.0001F, 0}, 0.0001F, 275},
              {{"a", "A", 0, 0, 0.00005F, 0}, 0.00005F, 138},  // measured with 0.0001
              {{"a", "A", 0, 0, 0.0002F, 0}, 0.0001F, 138},
              {{"a", "A", 0, 5, 2, 0}, 6.0F, 275},
              {{"a", "A", 0, -kInfinity, kInfinity, 0}, 1.0F, 0},
              {{"a", "A", 0, -kGreatest, kGreatest, 0}, kGreatest, 0},
              {{"a", "A", 0, 0, kGreatest, 0}, kGreatest, 275},
              {{"a", "A", 0, 0, kInfinity, 0}, kInfinity, 0},
              {{"a", "A", 0, 0, 1, 0}, kNan, 0},
              {{"a", "A", 0, 0, 1, 0}, kInfinity, 275},
              {{"a", "A", 0, kNan, kNan, kNan}, 1.0F, 0}};
  for (const auto& row : rows) {
    Use({row.spec});
    result_.values[0].value = row.value;
    RunFrame();
    const Frame& frame = Recorder().last_frame();
    EXPECT_EQ(frame.Fills(kFilledTrack)[0], (SDL_Rect{260, 54, row.filled, 13}))
        << row.spec.min_value << ' ' << row.spec.max_value << ' ' << row.value;
    EXPECT_EQ(frame.Fills(kKnobFill)[0], (SDL_Rect{260 + row.filled - 6, 50, 12, 21}));
  }
}

TEST_F(ShaderLoopTest, NumbersArePrintedInFixedForm) {
  const struct {
    ShaderParameterSpec spec;
    float value;
    const char* value_text;
    const char* range_text;
  } rows[] = {
      {{"a", "A", 0, 0, 1, 0}, 0.5F, "0.500", "min 0.000000  max 1.000000"},
      {{"a", "A", 0, -1.5F, 256, 0.1F},
       0.0625F,
       "0.062",
       "min -1.500000  max 256.000000  step 0.100000"},
      {{"a", "A", 0, 0, 1, 1e-7F}, 0.9996F, "1.000", "min 0.000000  max 1.000000  step 0.000000"},
      {{"a", "A", 0, 0, 16777216, 1},
       16777216.0F,
       "16777216.000",
       "min 0.000000  max 16777216.000000  step 1.000000"},
      {{"a", "A", 0, -1, 1, -0.5F}, -0.0001F, "-0.000", "min -1.000000  max 1.000000"},
      {{"a", "A", 0, -kInfinity, kInfinity, kNan}, kNan, "nan", "min -inf  max inf"},
      {{"a", "A", 0, 0, kGreatest, kInfinity},
       kGreatest,
       "340282346638528859811704183484516925440.000",
       "min 0.000000  max 340282346638528859811704183484516925440.000000  step inf"}};
  for (const auto& row : rows) {
    Use({row.spec});
    result_.values[0].value = row.value;
    RunFrame();
    const Frame& frame = Recorder().last_frame();
    EXPECT_TRUE(frame.HasText(row.value_text)) << ::testing::PrintToString(frame.Texts());
    EXPECT_TRUE(frame.HasText(row.range_text)) << ::testing::PrintToString(frame.Texts());
  }
}

TEST_F(ShaderLoopTest, LongNumbersEndWithTheCard) {
  Use({{"a", "A", 0, -kGreatest, kGreatest, kGreatest}});
  RunFrame();
  const DrawCall* const range = Recorder().last_frame().FindTextContaining("min -3402823");
  ASSERT_NE(range, nullptr);
  EXPECT_GT(range->rect.x + range->rect.w, 870) << "the text is too short to show anything";
  ASSERT_TRUE(range->clip.has_value());
  EXPECT_EQ(range->clip->x + range->clip->w, 12 + 858);
}

TEST_F(ShaderLoopTest, LongLabelIsDrawnWholeAndClippedTenPixelsBeforeTheValue) {
  std::string label = "A label that runs on";
  while (label.size() < 200) {
    label += " and on";
  }
  Use({{"a", label, 0, 0, 1, 0}});
  RunFrame();
  const DrawCall* const drawn = Recorder().last_frame().FindText(label);
  ASSERT_NE(drawn, nullptr);
  EXPECT_EQ(drawn->rect.x, 14);
  EXPECT_EQ(drawn->rect.y, 25);
  EXPECT_GT(drawn->rect.x + drawn->rect.w, 900) << "the text is too short to show anything";
  ASSERT_TRUE(drawn->clip.has_value());
  EXPECT_LE(drawn->clip->x, 14);
  EXPECT_EQ(drawn->clip->x + drawn->clip->w, 545 - 10);
}

// The rows begin above the view: what is clipped at the right is still clipped at the top.
TEST_F(ShaderLoopTest, LongLabelStaysInTheList) {
  specs_[0].label = std::string(200, 'x');
  session_.scroll = 5;
  RunFrame();
  const DrawCall* const drawn = Recorder().last_frame().FindText(specs_[0].label);
  ASSERT_NE(drawn, nullptr);
  EXPECT_EQ(drawn->rect.y, 20);
  ASSERT_TRUE(drawn->clip.has_value());
  EXPECT_EQ(drawn->clip->y, 36);
}

TEST_F(ShaderLoopTest, LongLabelEndsWithTheCardOfANarrowWindow) {
  Use({{"a", std::string(200, 'x'), 0, 0, 1, 0}});
  SDL_SetWindowSize(session_.window, 300, 280);
  RunFrame();
  const DrawCall* const drawn = Recorder().last_frame().FindText(specs_[0].label);
  ASSERT_NE(drawn, nullptr);
  ASSERT_TRUE(drawn->clip.has_value());
  EXPECT_EQ(drawn->clip->x + drawn->clip->w, 12 + 300 - 14 - 28);
}

TEST_F(ShaderLoopTest, LabelOfMegabytesIsDrawnAsFarAsItCouldShow) {
  Use({{"a", std::string(std::size_t{1} << 21U, 'x'), 0, 0, 1, 0}});
  RunFrame();
  const DrawCall* const drawn = Recorder().last_frame().FindTextContaining("xxx");
  ASSERT_NE(drawn, nullptr);
  EXPECT_LE(drawn->text.size(), 4096U);
  EXPECT_GT(drawn->rect.x + drawn->rect.w, 900);
}

TEST_F(ShaderLoopTest, BytesThatAreNoTextShowAsReplacementCharacters) {
  Use({{"a", "caf\xE9\tau lait", 0, 0, 1, 0}});
  session_.shader_path = "shaders/\xFF\n.glsl";
  RunFrame();
  EXPECT_TRUE(Recorder().last_frame().HasText("caf\uFFFD\uFFFDau lait"));
  EXPECT_TRUE(Recorder().last_frame().HasText("shaders/\uFFFD\uFFFD.glsl"));
}

TEST_F(ShaderLoopTest, LabelThatFitsIsDrawnAsItIs) {
  Use({{"a", "  blanks at both ends  ", 0, 0, 1, 0}, {"b", "Gr\u00f6\u00dfe", 0, 0, 1, 0}});
  RunFrame();
  EXPECT_TRUE(Recorder().last_frame().HasText("  blanks at both ends  "));
  EXPECT_TRUE(Recorder().last_frame().HasText("Gr\u00f6\u00dfe"));
}

TEST_F(ShaderLoopTest, PathWiderThanTheWindowIsDrawnWholeAndClippedThere) {
  session_.shader_path = "/start/" + std::string(150, 'x') + "/shader.glsl";
  RunFrame();
  const DrawCall* const path = Recorder().last_frame().FindText(session_.shader_path);
  ASSERT_NE(path, nullptr);
  EXPECT_EQ(path->rect.x, 12);
  EXPECT_EQ(path->rect.y, 18);
  EXPECT_GT(path->rect.x + path->rect.w, 900) << "the text is too short to show anything";
  if (path->clip.has_value()) {
    EXPECT_EQ(path->clip->x + path->clip->w, 900);
  }
}

TEST_F(ShaderLoopTest, AnyFloatsAreDrawnInsideTheRow) {
  Recorder().SetDrawMode(DrawMode::Recorded);
  std::mt19937 random(7);
  const auto any = [&random] {
    const float special[] = {kNan, kInfinity, -kInfinity, kGreatest, -kGreatest, 0.0F, -0.0F};
    return random() % 3 == 0 ? special[random() % 7]
                             : std::bit_cast<float>(static_cast<std::uint32_t>(random()));
  };
  int frames = 0;
  DialogScript script(600);
  script
      .Repeat(500,
              [&] {
                for (std::size_t row = 0; row < specs_.size(); ++row) {
                  specs_[row] = {"p", "L", any(), any(), any(), any()};
                  result_.values[row].value = any();
                }
                PointAt(100, static_cast<int>(random() % 500));
                Wheel(random() % 2 == 0 ? 1 : -1);
                Click(260 + static_cast<int>(random() % 275), static_cast<int>(random() % 448));
                if (frames++ == 0) {
                  return;
                }
                for (const SDL_Rect& filled : Recorder().last_frame().Fills(kFilledTrack)) {
                  ASSERT_EQ(filled.x, 260);
                  ASSERT_GE(filled.w, 0);
                  ASSERT_LE(filled.w, 275);
                }
              })
      .Step([] { Quit(); });
  Run();
  EXPECT_EQ(frames, 500);
}

// --- Random input against a model ----------------------------------------------------------------

// The rules of the loop once more, on plain data.
struct Model {
  std::vector<ShaderParameterSpec> specs;
  std::vector<float> values;
  int width = 900;
  int height = 500;
  int scroll = 0;
  bool applied = false;
  bool dragging_slider = false;
  bool dragging_scrollbar = false;
  int active = -1;
  int start_y = 0;
  int start_scroll = 0;
  bool finished = false;
  int applies = 0;

  int Count() const { return static_cast<int>(specs.size()); }
  int ViewHeight() const { return std::max(height - 88, 1); }
  int MaxScroll() const { return std::max(Count() * 80 + 20 - ViewHeight(), 0); }
  int ThumbHeight() const {
    return std::max(ViewHeight() * ViewHeight() / (Count() * 80 + 20), 20);
  }
  void ClampScroll() { scroll = std::clamp(scroll, 0, MaxScroll()); }
  int RowAt(int y) const {
    const int offset = y + scroll - 20;
    return offset < 0 || offset / 80 >= Count() ? -1 : offset / 80;
  }
  bool InView(int y) const { return y >= 36 && y < 36 + ViewHeight(); }
  void SetFromX(int x) {
    const auto row = static_cast<std::size_t>(active);
    const ShaderParameterSpec& spec = specs[row];
    if (spec.min_value >= spec.max_value) {
      values[row] = spec.min_value;
      return;
    }
    const float t = std::clamp(static_cast<float>(x - 260) / 275.0F, 0.0F, 1.0F);
    values[row] = SnapToStep(spec, spec.min_value + (spec.max_value - spec.min_value) * t);
  }
  void Press(int x, int y) {
    if (MaxScroll() > 0 && x >= width - 18 && x < width - 4 && InView(y)) {
      dragging_scrollbar = true;
      start_y = y;
      start_scroll = scroll;
      return;
    }
    const int row = InView(y) ? RowAt(y) : -1;
    const int middle = row * 80 + 20 - scroll + 40;
    if (row >= 0 && x >= 260 && x < 535 && y >= middle - 6 && y <= middle + 6) {
      active = row;
      dragging_slider = true;
      SetFromX(x);
    }
  }
  void Move(int x, int y) {
    if (dragging_slider) {
      SetFromX(x);
    }
    if (dragging_scrollbar && MaxScroll() > 0) {
      const float travel = static_cast<float>(std::max(ViewHeight() - ThumbHeight(), 1));
      const float moved = static_cast<float>(y - start_y) / travel;
      scroll = start_scroll + static_cast<int>(moved * static_cast<float>(MaxScroll()));
      ClampScroll();
    }
  }
  void EndDrag() {
    dragging_slider = false;
    dragging_scrollbar = false;
    active = -1;
  }
  void Release(int x, int y) {
    EndDrag();
    const bool button_row = y >= height - 39 && y < height - 13;
    if (button_row && x >= width - 192 && x < width - 114) {
      Cancel();
    } else if (button_row && x >= width - 98 && x < width - 20) {
      Apply();
    }
  }
  void Notch(int amount, int y) {
    if (amount == 0 || !InView(y)) {
      return;
    }
    scroll -= amount * 40;
    ClampScroll();
    if (RowAt(y) < 0) {
      return;
    }
    const auto row = static_cast<std::size_t>(RowAt(y));
    const ShaderParameterSpec& spec = specs[row];
    const float step = spec.step > 0.0F ? spec.step : 0.02F * (spec.max_value - spec.min_value);
    values[row] = SnapToStep(spec, amount > 0 ? values[row] + step : values[row] - step);
  }
  void Apply() {
    applied = true;
    ++applies;
  }
  void Cancel() {
    applied = false;
    finished = true;
  }
};

class ShaderLoopModelTest : public ShaderLoopTest {
 protected:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  void StartOver() {
    std::vector<ShaderParameterSpec> specs;
    for (int i = 1 + Below(12); i > 0; --i) {
      const float low = static_cast<float>(Below(20) - 10) / 4.0F;
      const float range = static_cast<float>(Below(9)) / 2.0F;
      const float step = Below(3) == 0 ? 0.0F : static_cast<float>(1 + Below(6)) / 10.0F;
      specs.push_back({"p", "L", low, low, low + range, step});
    }
    Use(specs);
    model_ = Model{};
    model_.specs = specs;
    model_.values = Numbers(result_.values);
    model_.height = geometry_.window_height;
    applied_.clear();
  }

  // A place at which something is likely to happen.
  SDL_Point Place() {
    switch (Below(6)) {
      case 0:
        return {model_.width - 20 + Below(18), 30 + Below(model_.height)};
      case 1:
        return {model_.width - 200 + Below(200), model_.height - 42 + Below(34)};
      case 2:
      case 3:
        return {255 + Below(285), 20 + Below(10) * 80 + 40 - model_.scroll + Below(20) - 10};
      default:
        return {Below(model_.width + 100) - 50, Below(model_.height + 100) - 50};
    }
  }

  void PushOne(int pointer_y) {
    const SDL_Point at = Place();
    switch (Below(40)) {
      case 0:
        KeyDown(SDLK_RETURN);
        model_.Apply();
        break;
      case 1:
        if (Below(40) == 0) {
          KeyDown(SDLK_ESCAPE);
          model_.Cancel();
        }
        break;
      case 2: {
        const int amount = Below(7) - 3;
        Wheel(amount);
        model_.Notch(amount, pointer_y);
        break;
      }
      case 3:
        Click(at.x, at.y, SDL_BUTTON_RIGHT);
        break;
      case 4:
      case 5:
      case 6:
        MouseUp(at.x, at.y);
        model_.Release(at.x, at.y);
        break;
      case 7:
      case 8:
      case 9:
      case 10:
        MouseDown(at.x, at.y);
        model_.Press(at.x, at.y);
        break;
      case 11:
        Motion(at.x, at.y, 0, WindowId() + 1);
        break;
      case 12:
        MouseUp(at.x, at.y, SDL_BUTTON_LEFT, 1, WindowId() + 1);
        model_.EndDrag();
        break;
      case 13:
        KeyDown(Below(2) == 0 ? SDLK_RETURN : SDLK_ESCAPE, WindowId() + 1);
        break;
      default:
        Motion(at.x, at.y);
        model_.Move(at.x, at.y);
        break;
    }
    ++pushed_;
  }

  void Compare() {
    ASSERT_EQ(Numbers(result_.values), model_.values);
    ASSERT_EQ(session_.scroll, model_.scroll);
    ASSERT_EQ(result_.applied, model_.applied);
    ASSERT_EQ(session_.dragging_slider, model_.dragging_slider);
    ASSERT_EQ(session_.dragging_scrollbar, model_.dragging_scrollbar);
    ASSERT_EQ(session_.active_param, model_.active);
    ASSERT_EQ(static_cast<int>(applied_.size()), model_.applies);
  }

  // One frame's worth of input, in the heartbeat.
  void Beat() {
    Compare();
    if (HasFatalFailure() || pushed_ >= kEvents) {
      Quit();
      return;
    }
    if (Below(20) == 0) {
      model_.width = 200 + Below(1000);
      model_.height = 40 + Below(900);
      SDL_SetWindowSize(session_.window, model_.width, model_.height);
      Resized(WindowId(), model_.width, model_.height);
      model_.ClampScroll();
    }
    const int pointer_y = Below(model_.height + 20) - 10;
    const bool has_focus = Below(5) != 0;
    Recorder().SetPointer(has_focus ? session_.window : nullptr, Below(model_.width), pointer_y);
    for (int i = Below(40); i > 0 && !model_.finished; --i) {
      PushOne(has_focus ? pointer_y : -1);
    }
  }

  static constexpr long kEvents = 200000;
  std::mt19937 random_{20};
  Model model_;
  long pushed_ = 0;
};

TEST_F(ShaderLoopModelTest, AgreesWithTheRulesOnRandomInput) {
  int dialogs = 0;
  while (pushed_ < kEvents && !HasFatalFailure()) {
    StartOver();
    Recorder().SetDrawMode(DrawMode::Counted);
    SetModalDialogHeartbeat([this] { Beat(); });
    Run();
    SetModalDialogHeartbeat({});
    Compare();
    ++dialogs;
  }
  EXPECT_GT(dialogs, 50);
}

// --- The entry point -----------------------------------------------------------------------------

class ShaderDialogTest : public DialogTest {
 protected:
  std::string WriteShader(const std::string& text, const char* name = "shader.glsl") {
    return folder_.Write(name, text).string();
  }

  ShaderDialogResult Show(const std::string& path, const Values& current = {}) {
    return ShowShaderParameterDialog(
        MakeParent(), path, 1.0F,
        [this](const Values& values) { applied_.push_back(Numbers(values)); }, current);
  }

  TemporaryDirectory folder_;
  std::vector<std::vector<float>> applied_;
};

TEST_F(ShaderDialogTest, OpensOverItsParent) {
  DialogScript script;
  script.Step([this] {
    EXPECT_EQ(Recorder().windows().back().modal_for, MakeParent());
    Quit();
  });
  Show(WriteShader(DeclarationsText(3)));
  const auto& window = Recorder().windows().back();
  EXPECT_EQ(window.title, "Shader Parameters");
  EXPECT_EQ(window.x, 160);
  EXPECT_EQ(window.y, 160);
  EXPECT_EQ(window.w, 900);
  EXPECT_EQ(window.h, 330);
  EXPECT_EQ(window.flags, static_cast<Uint32>(SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE));
  ASSERT_THAT(Recorder().renderers(), SizeIs(1));
  EXPECT_EQ(Recorder().renderers()[0].flags, static_cast<Uint32>(SDL_RENDERER_SOFTWARE));
}

TEST_F(ShaderDialogTest, HeightFollowsTheDeclarations) {
  for (const auto& [count, height] : {std::pair{1, 280}, {10, 500}, {300, 500}}) {
    FlushEvents();
    DialogScript script;
    script.Step([] { Quit(); });
    Show(WriteShader(DeclarationsText(count)));
    EXPECT_EQ(Recorder().windows().back().h, height) << count;
  }
}

TEST_F(ShaderDialogTest, OpensWithoutAParent) {
  DialogScript script;
  script.Wait(1).Step([] { Quit(); });
  const ShaderDialogResult result =
      ShowShaderParameterDialog(nullptr, WriteShader(DeclarationsText(1)), 2.0F, nullptr, {});
  EXPECT_FALSE(result.applied);
  EXPECT_THAT(result.values, SizeIs(1));
  EXPECT_EQ(Recorder().windows().back().modal_for, nullptr);
  EXPECT_EQ(Recorder().windows().back().w, 900) << "the scale is not applied";
}

TEST_F(ShaderDialogTest, OpensItsTwoFonts) {
  DialogScript script;
  script.Step([] { Quit(); });
  Show(WriteShader(DeclarationsText(1)));
  const auto& fonts = Recorder().font_requests();
  ASSERT_THAT(fonts, SizeIs(2));
  EXPECT_EQ(fonts[0].size, 16);
  EXPECT_EQ(fonts[0].style, TTF_STYLE_BOLD);
  EXPECT_THAT(fonts[0].path, ::testing::HasSubstr("SemiBold"));
  EXPECT_EQ(fonts[1].size, 15);
  EXPECT_EQ(fonts[1].style, TTF_STYLE_NORMAL);
  EXPECT_THAT(fonts[1].path, ::testing::HasSubstr("Regular"));
}

TEST_F(ShaderDialogTest, ReleasesFontsRendererWindowThenHandsTheFocusBack) {
  MakeParent();
  DialogScript script;
  script.Wait(1).Step([] {
    Recorder().ForgetCalls();
    Quit();
  });
  Show(WriteShader(DeclarationsText(1)));
  EXPECT_THAT(Recorder().CallsAmong({"TTF_CloseFont", "SDL_DestroyRenderer", "SDL_DestroyWindow",
                                     "SDL_RaiseWindow", "SDL_SetWindowInputFocus"}),
              ElementsAre("TTF_CloseFont", "TTF_CloseFont", "SDL_DestroyRenderer",
                          "SDL_DestroyWindow", "SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, MakeParent()),
              SizeIs(2));
}

TEST_F(ShaderDialogTest, ShowsThePathAsGiven) {
  const std::string path = WriteShader(DeclarationsText(1), "first.glsl");
  const std::string preset = WriteShader("shader0 = first.glsl\n", "a.glslp");
  DialogScript script;
  script.Wait(1).Step([&] {
    EXPECT_TRUE(Recorder().last_frame().HasText(preset));
    EXPECT_TRUE(Recorder().last_frame().HasText("Label 0"));
    Quit();
  });
  Show(preset);
}

TEST_F(ShaderDialogTest, StartsWithTheCurrentValues) {
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); }).Step([] { Quit(); });
  const ShaderDialogResult result =
      Show(WriteShader(DeclarationsText(3)), {{"p1", 2.2F}, {"p1", 9}, {"p2", 99}, {"x", 1}});
  ASSERT_THAT(applied_, SizeIs(1));
  EXPECT_THAT(applied_[0], ElementsAre(5.0F, 2.0F, 10.0F));
  EXPECT_THAT(Numbers(result.values), ElementsAre(5.0F, 2.0F, 10.0F));
  EXPECT_EQ(result.values[1].name, "p1");
  EXPECT_TRUE(result.applied);
}

TEST_F(ShaderDialogTest, ReturnsTheValuesLastShownAppliedOrNot) {
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); }).Step([] { Click(315, 60); }).Step([] {
    KeyDown(SDLK_ESCAPE);
  });
  const ShaderDialogResult result = Show(WriteShader(DeclarationsText(2)));
  ASSERT_THAT(applied_, SizeIs(1));
  EXPECT_THAT(applied_[0], ElementsAre(5.0F, 5.0F));
  EXPECT_FALSE(result.applied);
  EXPECT_THAT(Numbers(result.values), ElementsAre(2.0F, 5.0F));
}

TEST_F(ShaderDialogTest, WithoutDeclarationsSaysSoAndOpensNothing) {
  for (const std::string& path :
       {WriteShader("void main() {}\n"), std::string("/nonexistent.glsl"), std::string()}) {
    const std::size_t windows = Recorder().windows().size();
    const std::size_t boxes = Recorder().simple_message_boxes().size();
    const ShaderDialogResult result = Show(path, {{"p0", 1}});
    EXPECT_FALSE(result.applied);
    EXPECT_THAT(result.values, IsEmpty());
    ASSERT_THAT(Recorder().simple_message_boxes(), SizeIs(boxes + 1));
    const auto& box = Recorder().simple_message_boxes().back();
    EXPECT_EQ(box.flags, static_cast<Uint32>(SDL_MESSAGEBOX_INFORMATION));
    EXPECT_EQ(box.title, "Shader Parameters");
    EXPECT_EQ(box.text, "No #pragma parameter lines were found in the selected shader file.");
    EXPECT_EQ(box.parent, MakeParent());
    EXPECT_LE(Recorder().windows().size(), windows + 1) << "only the parent may be new";
    EXPECT_THAT(Recorder().renderers(), IsEmpty());
    EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 0);
  }
}

TEST_F(ShaderDialogTest, WithoutAWindowReturnsTheStartingValuesSilently) {
  MakeParent();
  const std::string path = WriteShader(DeclarationsText(2));
  for (const char* function : {"SDL_CreateWindow", "SDL_CreateRenderer"}) {
    Recorder().FailCall(function);
    const ShaderDialogResult result = Show(path, {{"p1", 7}});
    EXPECT_FALSE(result.applied);
    EXPECT_THAT(Numbers(result.values), ElementsAre(5.0F, 7.0F)) << function;
  }
  EXPECT_EQ(Recorder().faults_hit(), 2);
  EXPECT_THAT(Recorder().simple_message_boxes(), IsEmpty());
  EXPECT_THAT(Recorder().font_requests(), IsEmpty());
  EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 0) << "the parent's focus was touched";
}

TEST_F(ShaderDialogTest, WithoutAFontSaysSoAndReleasesTheWindow) {
  MakeParent();
  for (const int opened : {0, 1}) {
    int left = opened;
    Recorder().HideFonts([&left](const std::string&) { return left-- <= 0; });
    const ShaderDialogResult result = Show(WriteShader(DeclarationsText(2)));
    EXPECT_FALSE(result.applied);
    EXPECT_THAT(Numbers(result.values), ElementsAre(5.0F, 5.0F));
    ASSERT_FALSE(Recorder().simple_message_boxes().empty());
    const auto& box = Recorder().simple_message_boxes().back();
    EXPECT_EQ(box.flags, static_cast<Uint32>(SDL_MESSAGEBOX_ERROR));
    EXPECT_EQ(box.title, "Shader Parameters");
    EXPECT_EQ(box.text, "Unable to load a font via SDL_ttf.");
    EXPECT_EQ(box.parent, MakeParent());
    EXPECT_EQ(Recorder().presents(), 0);
    EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 0) << "the parent's focus was touched";
    Recorder().ExpectNothingAlive();
  }
  EXPECT_THAT(Recorder().simple_message_boxes(), SizeIs(2));
}

TEST_F(ShaderDialogTest, ThrowingCallbackReachesTheCallerAndLeavesNothing) {
  DialogScript script;
  script.Wait(1).Step([] { KeyDown(SDLK_RETURN); }).MayEndEarly();
  const std::string path = WriteShader(DeclarationsText(2));
  EXPECT_THROW(ShowShaderParameterDialog(
                   MakeParent(), path, 1.0F,
                   [](const Values&) { throw std::runtime_error("from the host"); }, {}),
               std::runtime_error);
  Recorder().ExpectNothingAlive();
  EXPECT_EQ(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_DestroyWindow"}).back(),
            "SDL_RaiseWindow")
      << "the focus was not handed back";
}

TEST_F(ShaderDialogTest, ThrowingHeartbeatReachesTheCallerAndLeavesNothing) {
  DialogScript script;
  script.Wait(1).Step([] { throw std::runtime_error("from the host"); });
  const std::string path = WriteShader(DeclarationsText(2));
  EXPECT_THROW(Show(path), std::runtime_error);
  Recorder().ExpectNothingAlive();
}

TEST_F(ShaderDialogTest, CallbackMayOpenAMessageBox) {
  DialogScript script;
  script.Step([] { Click(315, 60); })
      .Step([] { KeyDown(SDLK_RETURN); })
      .Wait(2)
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText("Applied"));
        KeyDown(SDLK_ESCAPE);
      })
      .Wait(2)
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText("2.000"));
        Click(425, 60);
      })
      .Wait(1)
      .Step([] { CloseWindow(WindowId()); });
  int boxes = 0;
  const ShaderDialogResult result =
      ShowShaderParameterDialog(MakeParent(), WriteShader(DeclarationsText(2)), 1.0F,
                                [&](const Values& values) {
                                  SdlMessageBox::Config config;
                                  config.title = "Applied";
                                  config.message = std::to_string(values.size());
                                  SdlMessageBox(config).Show(Recorder().newest_window(), 1.0F);
                                  ++boxes;
                                },
                                {});
  EXPECT_EQ(boxes, 1);
  EXPECT_TRUE(result.applied);
  EXPECT_THAT(Numbers(result.values), ElementsAre(6.0F, 5.0F));
}

TEST_F(ShaderDialogTest, CallbackSeesTheLiveVector) {
  const Values* first = nullptr;
  const Values* second = nullptr;
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); }).Step([] { KeyDown(SDLK_RETURN); }).Step([] { Quit(); });
  ShowShaderParameterDialog(
      MakeParent(), WriteShader(DeclarationsText(1)), 1.0F,
      [&](const Values& values) { (first == nullptr ? first : second) = &values; }, {});
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(first, second);
}

TEST_F(ShaderDialogTest, EveryFailingDrawCallIsSurvived) {
  const std::string path = WriteShader(DeclarationsText(10));
  for (const char* function :
       {"SDL_RenderFillRect", "SDL_RenderDrawRect", "SDL_RenderDrawLine", "SDL_RenderCopy",
        "SDL_SetRenderDrawColor", "SDL_SetRenderDrawBlendMode", "SDL_RenderSetClipRect",
        "SDL_CreateTextureFromSurface", "TTF_RenderUTF8_Blended", "TTF_SizeUTF8",
        "SDL_SetWindowInputFocus", "SDL_SetWindowModalFor"}) {
    FlushEvents();
    Recorder().FailAlways(function);
    DialogScript script;
    script.Wait(2).Step([] { KeyDown(SDLK_ESCAPE); });
    EXPECT_THAT(Show(path).values, SizeIs(10)) << function;
    Recorder().ClearFaults();
  }
}

}  // namespace
}  // namespace quindle::frontend::gui

// The private pieces that all dialogs share, compiled into this program: steps of a modal frame,
// drawing, the point test, measuring and fitting text.

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

#include "frontend/gui/numbers.h"
#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_modal_events.h"
#include "frontend/gui/sdl_modal_frame.h"
#include "frontend/gui/sdl_text_fit.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"
#include "utils/ascii_text.h"

namespace quindle::frontend::gui {
namespace {

using testing::DialogTest;
using testing::DrawCall;
using testing::DrawKind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Recorder;
using ::testing::SizeIs;

// --- Steps of a modal frame ----------------------------------------------------------------------

class ModalFrame : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    bundle_ = CreateModalWindowBundle(MakeParent(), "Frame", 10, 10, 200, 100, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
    ASSERT_NE(bundle_.window, nullptr);
    own_id_ = SDL_GetWindowID(bundle_.window.get());
    parent_id_ = SDL_GetWindowID(MakeParent());
    testing::FlushEvents();
    Recorder().ForgetCalls();
  }
  void TearDown() override {
    bundle_ = {};
    DialogTest::TearDown();
  }

  // The types of all events that a dialog gets to see.
  std::vector<Uint32> Poll() const {
    std::vector<Uint32> types;
    ModalEventQueue events(bundle_.window.get());
    SDL_Event event;
    while (events.Poll(&event)) {
      types.push_back(event.type);
    }
    return types;
  }

  ModalWindowBundle bundle_;
  Uint32 own_id_ = 0;
  Uint32 parent_id_ = 0;
};

TEST_F(ModalFrame, PollSkipsWindowEventsOfOtherWindowsOnly) {
  testing::WindowEvent(parent_id_, SDL_WINDOWEVENT_CLOSE);
  testing::KeyDown(SDLK_a, parent_id_);
  testing::WindowEvent(own_id_ + 100, SDL_WINDOWEVENT_ENTER);
  testing::TextInput("a", parent_id_);
  testing::Click(1, 2, SDL_BUTTON_LEFT, 1, parent_id_);
  testing::WindowEvent(0, SDL_WINDOWEVENT_CLOSE);
  testing::WindowEvent(own_id_, SDL_WINDOWEVENT_CLOSE);
  testing::Quit();
  EXPECT_THAT(Poll(), ElementsAre(SDL_KEYDOWN, SDL_TEXTINPUT, SDL_MOUSEBUTTONDOWN,
                                  SDL_MOUSEBUTTONUP, SDL_WINDOWEVENT, SDL_QUIT));
  EXPECT_THAT(testing::QueuedEvents(), IsEmpty());
}

TEST_F(ModalFrame, QuitAndCloseCancel) {
  SDL_Event event{};
  event.type = SDL_QUIT;
  EXPECT_TRUE(IsModalCancelEvent(event));
  event.type = SDL_WINDOWEVENT;
  for (int id = SDL_WINDOWEVENT_NONE; id <= SDL_WINDOWEVENT_DISPLAY_CHANGED; ++id) {
    event.window.event = static_cast<Uint8>(id);
    EXPECT_EQ(IsModalCancelEvent(event), id == SDL_WINDOWEVENT_CLOSE) << id;
  }
  event = {};
  event.type = SDL_KEYDOWN;
  EXPECT_FALSE(IsModalCancelEvent(event));
}

TEST_F(ModalFrame, InputThatNamesAnotherWindowIsTold) {
  const auto is_of_other = [this](Uint32 type, Uint32 id) {
    SDL_Event event{};
    event.type = type;
    switch (type) {
      case SDL_KEYDOWN:
      case SDL_KEYUP:
        event.key.windowID = id;
        break;
      case SDL_TEXTINPUT:
        event.text.windowID = id;
        break;
      case SDL_TEXTEDITING:
        event.edit.windowID = id;
        break;
      case SDL_MOUSEMOTION:
        event.motion.windowID = id;
        break;
      case SDL_MOUSEWHEEL:
        event.wheel.windowID = id;
        break;
      default:
        event.button.windowID = id;
    }
    return IsInputOfOtherWindow(bundle_.window.get(), event);
  };
  for (const Uint32 type : {SDL_KEYDOWN, SDL_KEYUP, SDL_TEXTINPUT, SDL_TEXTEDITING, SDL_MOUSEMOTION,
                            SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP, SDL_MOUSEWHEEL}) {
    EXPECT_FALSE(is_of_other(type, 0)) << type;
    EXPECT_FALSE(is_of_other(type, own_id_)) << type;
    EXPECT_TRUE(is_of_other(type, parent_id_)) << type;
  }
  EXPECT_FALSE(is_of_other(SDL_QUIT, parent_id_));
}

TEST_F(ModalFrame, LeftButtonEventsAreTold) {
  for (const Uint32 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP, SDL_MOUSEMOTION}) {
    for (const int button : {SDL_BUTTON_LEFT, SDL_BUTTON_MIDDLE, SDL_BUTTON_RIGHT}) {
      SDL_Event event{};
      event.type = type;
      event.button.button = static_cast<Uint8>(button);
      EXPECT_EQ(IsLeftButtonEvent(event), type != SDL_MOUSEMOTION && button == SDL_BUTTON_LEFT);
    }
  }
}

TEST_F(ModalFrame, PointerIsNowhereWithoutMouseFocus) {
  for (SDL_Window* const focus : {static_cast<SDL_Window*>(nullptr), MakeParent()}) {
    Recorder().SetPointer(focus, 5, 6, SDL_BUTTON_LMASK);
    const ModalPointer pointer = ReadModalPointer(bundle_.window.get());
    EXPECT_EQ((SDL_Point{pointer.x, pointer.y}), (SDL_Point{-1, -1}));
    EXPECT_FALSE(pointer.left_down);
  }
  EXPECT_EQ(Recorder().CallCount("SDL_GetMouseState"), 0);
}

TEST_F(ModalFrame, PointerSeesTheLeftButtonOnly) {
  for (const int mask : {0, SDL_BUTTON_LMASK, SDL_BUTTON_RMASK | SDL_BUTTON_MMASK}) {
    const auto buttons = static_cast<Uint32>(mask);
    Recorder().SetPointer(bundle_.window.get(), 5, 6, buttons);
    const ModalPointer pointer = ReadModalPointer(bundle_.window.get());
    EXPECT_EQ((SDL_Point{pointer.x, pointer.y}), (SDL_Point{5, 6}));
    EXPECT_EQ(pointer.left_down, buttons == SDL_BUTTON_LMASK);
  }
}

TEST_F(ModalFrame, FirstPresentShowsTheWindow) {
  bool shown = false;
  PresentModalFrame(bundle_.window.get(), bundle_.renderer.get(), &shown);
  EXPECT_TRUE(shown);
  PresentModalFrame(bundle_.window.get(), bundle_.renderer.get(), &shown);
  EXPECT_THAT(Recorder().CallsButQuestions(),
              ElementsAre("SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                          "SDL_SetWindowInputFocus", "SDL_RenderPresent"));
}

TEST_F(ModalFrame, DelaysAreEightAndTwelve) {
  EXPECT_EQ(kListFrameDelayMs, 8U);
  EXPECT_EQ(kPanelFrameDelayMs, 12U);
}

TEST_F(ModalFrame, GuardsActAtTheEndOfTheirScope) {
  {
    const ModalParentFocus focus(MakeParent(), nullptr);
    const ModalTextInput text_input;
    EXPECT_TRUE(Recorder().alive().text_input);
    EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 0);
  }
  EXPECT_THAT(Recorder().CallsAmong({"SDL_StartTextInput", "SDL_StopTextInput", "SDL_RaiseWindow",
                                     "SDL_SetWindowInputFocus"}),
              ElementsAre("SDL_StartTextInput", "SDL_StopTextInput", "SDL_RaiseWindow",
                          "SDL_SetWindowInputFocus"));
}

// --- A place on the display ----------------------------------------------------------------------

class DialogPlace : public ModalFrame {
 protected:
  void SetUp() override {
    ModalFrame::SetUp();
    ASSERT_EQ(SDL_GetDisplayUsableBounds(0, &usable_), 0);
  }

  // Where a dialog of 200 x 100 pixels is once it was shown at (x, y).
  SDL_Point ShowAt(int x, int y) {
    SDL_SetWindowPosition(bundle_.window.get(), x, y);
    Recorder().ForgetCalls();
    bool shown = false;
    PresentModalFrame(bundle_.window.get(), bundle_.renderer.get(), &shown);
    SDL_Point place{};
    SDL_GetWindowPosition(bundle_.window.get(), &place.x, &place.y);
    return place;
  }

  SDL_Rect usable_{};
};

TEST_F(DialogPlace, ReachingBeyondTheUsableAreaIsMovedOntoIt) {
  const int right = usable_.x + usable_.w;
  const int bottom = usable_.y + usable_.h;
  for (const char* driver : {"x11", "windows", "cocoa"}) {
    Recorder().SetVideoDriver(driver);
    EXPECT_EQ(ShowAt(right - 199, bottom - 99), (SDL_Point{right - 200, bottom - 100})) << driver;
    EXPECT_EQ(ShowAt(right + 50, 20), (SDL_Point{right - 200, 20})) << driver;
    EXPECT_EQ(ShowAt(usable_.x - 1, usable_.y - 300), (SDL_Point{usable_.x, usable_.y})) << driver;
  }
}

TEST_F(DialogPlace, InsideTheUsableAreaIsLeftAlone) {
  Recorder().SetVideoDriver("windows");
  for (const SDL_Point at : {SDL_Point{usable_.x, usable_.y}, SDL_Point{40, 50},
                             SDL_Point{usable_.x + usable_.w - 200, usable_.y + usable_.h - 100}}) {
    EXPECT_EQ(ShowAt(at.x, at.y), at);
    EXPECT_THAT(Recorder().CallsAmong({"SDL_SetWindowPosition"}), IsEmpty());
  }
}

TEST_F(DialogPlace, LargerThanTheUsableAreaShowsItsTopLeftCorner) {
  Recorder().SetVideoDriver("windows");
  SDL_SetWindowSize(bundle_.window.get(), usable_.w + 100, usable_.h + 100);
  EXPECT_EQ(ShowAt(70, 80), (SDL_Point{usable_.x, usable_.y}));
}

TEST_F(DialogPlace, IsMindedOnceOnly) {
  Recorder().SetVideoDriver("windows");
  bool shown = false;
  PresentModalFrame(bundle_.window.get(), bundle_.renderer.get(), &shown);
  SDL_SetWindowPosition(bundle_.window.get(), usable_.x + usable_.w, 20);
  Recorder().ForgetCalls();
  PresentModalFrame(bundle_.window.get(), bundle_.renderer.get(), &shown);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_SetWindowPosition"}), IsEmpty());
}

TEST_F(DialogPlace, IsNotMindedWithoutAScreenOrWherePlacesAreNotTheClients) {
  const int right = usable_.x + usable_.w;
  for (const char* driver : {"dummy", "offscreen", "wayland"}) {
    Recorder().SetVideoDriver(driver);
    EXPECT_EQ(ShowAt(right, 20), (SDL_Point{right, 20})) << driver;
    EXPECT_THAT(Recorder().CallsAmong(
                    {"SDL_SetWindowPosition", "SDL_PumpEvents", "SDL_GetDisplayUsableBounds"}),
                IsEmpty());
  }
}

TEST_F(DialogPlace, IsLeftAloneWhereTheDisplayIsUnknown) {
  Recorder().SetVideoDriver("windows");
  SDL_SetWindowPosition(bundle_.window.get(), 5000, 20);
  Recorder().ForgetCalls();
  Recorder().FailCall("SDL_GetDisplayUsableBounds");
  bool shown = false;
  PresentModalFrame(bundle_.window.get(), bundle_.renderer.get(), &shown);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_SetWindowPosition"}), IsEmpty());
}

// --- Points and rounding -------------------------------------------------------------------------

TEST(PointInside, LeftAndTopEdgesAreInsideRightAndBottomAreNot) {
  const SDL_Rect rect{10, 20, 5, 4};
  for (int x = 8; x < 18; ++x) {
    for (int y = 18; y < 27; ++y) {
      EXPECT_EQ(IsPointInside(rect, x, y), x >= 10 && x <= 14 && y >= 20 && y <= 23)
          << x << ", " << y;
    }
  }
}

TEST(PointInside, EmptyRectanglesHoldNothing) {
  EXPECT_FALSE(IsPointInside({10, 20, 0, 4}, 10, 20));
  EXPECT_FALSE(IsPointInside({10, 20, 4, 0}, 10, 20));
  EXPECT_FALSE(IsPointInside({10, 20, -4, -4}, 9, 19));
}

TEST(PointInside, DoesNotWrapAtTheEndsOfTheRange) {
  constexpr int kMax = std::numeric_limits<int>::max();
  EXPECT_TRUE(IsPointInside({kMax - 5, 0, kMax, 1}, kMax, 0));
  EXPECT_FALSE(IsPointInside({kMax - 5, 0, kMax, 1}, kMax - 6, 0));
}

TEST(RoundToIntTest, GoesAwayFromZeroAtTheHalf) {
  EXPECT_EQ(RoundToInt(2.5F), 3);
  EXPECT_EQ(RoundToInt(-2.5F), -3);
  EXPECT_EQ(RoundToInt(2.49F), 2);
  EXPECT_EQ(RoundToInt(-0.5F), -1);
}

// --- Drawing -------------------------------------------------------------------------------------

class SharedDrawing : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    bundle_ = CreateModalWindowBundle(nullptr, "Draw", 0, 0, 200, 100, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
    font_ = OpenSdlUiFontHandle(15, false, SdlUiFontKind::Ui);
    ASSERT_NE(font_, nullptr);
    renderer_ = bundle_.renderer.get();
  }
  void TearDown() override {
    font_.reset();
    bundle_ = {};
    DialogTest::TearDown();
  }

  int Width(const std::string& text) const { return MeasureText(font_.get(), text).width; }

  // How often a text that fits in `width` is measured by the four that cut or clip texts.
  long MeasurementsToFit(const std::string& text, int width) const {
    const long before = Recorder().CallCount("TTF_SizeUTF8");
    EXPECT_EQ(FitTextLeft(font_.get(), text, width), text);
    EXPECT_EQ(FitTextRight(font_.get(), text, width), text);
    DrawTextStartVisible(renderer_, font_.get(), text, 0, 0, width, kColTextHi);
    DrawTextEndVisible(renderer_, font_.get(), text, 0, 0, width, kColTextHi);
    return Recorder().CallCount("TTF_SizeUTF8") - before;
  }

  // Cuts a text on either side: what is left fits, and one character more would not.
  void ExpectMostThatFits(const std::string& text, int width) const {
    const std::string left = FitTextLeft(font_.get(), text, width);
    const std::string right = FitTextRight(font_.get(), text, width);
    ASSERT_GE(left.size(), 3U);
    ASSERT_GE(right.size(), 3U);
    EXPECT_LE(Width(left), width);
    EXPECT_LE(Width(right), width);
    const std::size_t kept_left = left.size() - 3;
    const std::size_t kept_right = right.size() - 3;
    EXPECT_EQ(left, text.substr(0, kept_left) + "...");
    EXPECT_EQ(right, "..." + text.substr(text.size() - kept_right));
    EXPECT_GT(Width(text.substr(0, NextCharacter(text, kept_left)) + "..."), width);
    const std::size_t begin = PreviousCharacter(text, text.size() - kept_right);
    EXPECT_GT(Width("..." + text.substr(begin)), width);
  }

  static std::size_t NextCharacter(const std::string& text, std::size_t position) {
    do {
      ++position;
    } while (position < text.size() && utils::is_utf8_continuation(text[position]));
    return position;
  }
  static std::size_t PreviousCharacter(const std::string& text, std::size_t position) {
    do {
      --position;
    } while (utils::is_utf8_continuation(text[position]));
    return position;
  }
  static std::string Utf8(Uint32 code_point) {
    const auto byte = [code_point](unsigned shift, unsigned mark, unsigned mask) {
      return static_cast<char>(mark | (code_point >> shift & mask));
    };
    if (code_point < 0x80) {
      return {byte(0, 0, 0x7F)};
    }
    if (code_point < 0x800) {
      return {byte(6, 0xC0, 0x1F), byte(0, 0x80, 0x3F)};
    }
    if (code_point < 0x10000) {
      return {byte(12, 0xE0, 0x0F), byte(6, 0x80, 0x3F), byte(0, 0x80, 0x3F)};
    }
    return {byte(18, 0xF0, 0x07), byte(12, 0x80, 0x3F), byte(6, 0x80, 0x3F), byte(0, 0x80, 0x3F)};
  }
  static std::string Repeat(int count, const std::string& part) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      text += part;
    }
    return text;
  }

  static const std::vector<DrawCall>& Drawn() { return Recorder().unpresented().draws; }

  ModalWindowBundle bundle_;
  OwnedTtfFont font_;
  SDL_Renderer* renderer_ = nullptr;
};

TEST_F(SharedDrawing, StepsUseTheirColour) {
  ClearFrame(renderer_, {1, 2, 3, 255});
  FillRect(renderer_, {1, 2, 3, 4}, {4, 5, 6, 255});
  OutlineRect(renderer_, {5, 6, 7, 8}, {7, 8, 9, 10});
  FillAndOutlineRect(renderer_, {2, 2, 9, 9}, {11, 12, 13, 255}, {14, 15, 16, 255});
  DrawLine(renderer_, 1, 2, 30, 40, {17, 18, 19, 255});
  ASSERT_THAT(Drawn(), SizeIs(6));
  const std::vector<DrawKind> kinds{DrawKind::Clear, DrawKind::Fill,    DrawKind::Outline,
                                    DrawKind::Fill,  DrawKind::Outline, DrawKind::Line};
  const std::vector<SDL_Color> colors{{1, 2, 3, 255},    {4, 5, 6, 255},    {7, 8, 9, 10},
                                      {11, 12, 13, 255}, {14, 15, 16, 255}, {17, 18, 19, 255}};
  const std::vector<SDL_Rect> rects{{0, 0, 200, 100}, {1, 2, 3, 4}, {5, 6, 7, 8},
                                    {2, 2, 9, 9},     {2, 2, 9, 9}, {0, 0, 0, 0}};
  for (std::size_t i = 0; i < Drawn().size(); ++i) {
    EXPECT_EQ(Drawn()[i].kind, kinds[i]);
    EXPECT_EQ(Drawn()[i].color, colors[i]);
    EXPECT_EQ(Drawn()[i].rect, rects[i]);
  }
  EXPECT_EQ(Drawn()[5].from, (SDL_Point{1, 2}));
  EXPECT_EQ(Drawn()[5].to, (SDL_Point{30, 40}));
}

TEST_F(SharedDrawing, EmptyRectangleHasNoOutline) {
  for (const SDL_Rect& empty :
       {SDL_Rect{5, 6, 0, 8}, SDL_Rect{5, 6, 7, 0}, SDL_Rect{5, 6, -1, 8}, SDL_Rect{5, 6, 7, -8}}) {
    OutlineRect(renderer_, empty, {7, 8, 9, 255});
    EXPECT_THAT(Drawn(), IsEmpty()) << empty.w << 'x' << empty.h;
  }
  OutlineRect(renderer_, {5, 6, 1, 1}, {7, 8, 9, 255});
  EXPECT_THAT(Drawn(), SizeIs(1));
}

TEST_F(SharedDrawing, MeasuresAsSdlTtfDoes) {
  int width = 0;
  int height = 0;
  ASSERT_EQ(TTF_SizeUTF8(font_.get(), "Ag", &width, &height), 0);
  const TextExtent extent = MeasureText(font_.get(), "Ag");
  EXPECT_TRUE(extent.measured);
  EXPECT_EQ(extent.width, width);
  EXPECT_EQ(extent.height, height);
  Recorder().FailCall("TTF_SizeUTF8");
  EXPECT_FALSE(MeasureText(font_.get(), "Ag").measured);
  const long measured = Recorder().CallCount("TTF_SizeUTF8");
  EXPECT_EQ(MeasureText(nullptr, "Ag").width, 0);
  EXPECT_FALSE(MeasureText(nullptr, "Ag").measured);
  EXPECT_EQ(Recorder().CallCount("TTF_SizeUTF8"), measured);
  EXPECT_EQ(FontHeightOrFallback(nullptr, 17), 17);
  EXPECT_EQ(FontHeightOrFallback(font_.get(), 17), TTF_FontHeight(font_.get()));
}

TEST_F(SharedDrawing, ClipNarrowsAndComesBack) {
  const auto clip_in_force = [this] {
    FillRect(renderer_, {0, 0, 1, 1}, {});
    return Drawn().back().clip;
  };
  EXPECT_EQ(clip_in_force(), std::nullopt);
  {
    const ScopedClip outer(renderer_, {10, 10, 50, 50});
    EXPECT_EQ(clip_in_force(), (SDL_Rect{10, 10, 50, 50}));
    {
      const ScopedClip inner(renderer_, {40, 5, 50, 20});
      EXPECT_EQ(clip_in_force(), (SDL_Rect{40, 10, 20, 15}));
    }
    {
      const ScopedClip nothing(renderer_, {70, 70, 5, 5});
      EXPECT_EQ(clip_in_force()->w, 0);
      EXPECT_EQ(clip_in_force()->h, 0);
    }
    EXPECT_EQ(clip_in_force(), (SDL_Rect{10, 10, 50, 50}));
  }
  EXPECT_EQ(clip_in_force(), std::nullopt);
}

TEST_F(SharedDrawing, ClipIsNeverOfNegativeSize) {
  const auto clip_for = [this](const SDL_Rect& area) {
    const ScopedClip clip(renderer_, area);
    FillRect(renderer_, {0, 0, 1, 1}, {});
    return Drawn().back().clip;
  };
  EXPECT_EQ(clip_for({10, 20, -1, 30}), (SDL_Rect{10, 20, 0, 30}));
  EXPECT_EQ(clip_for({10, 20, 30, -1}), (SDL_Rect{10, 20, 30, 0}));
  EXPECT_EQ(clip_for({10, 20, 0, 0}), (SDL_Rect{10, 20, 0, 0}));
  const ScopedClip outer(renderer_, {5, 5, 50, 50});
  EXPECT_EQ(clip_for({10, 20, -1, 30}), (SDL_Rect{10, 20, 0, 0}));
}

// --- Fitting text --------------------------------------------------------------------------------

TEST_F(SharedDrawing, TextThatFitsIsKept) {
  for (const std::string text : {"", "a", "floppies/system.img"}) {
    EXPECT_EQ(FitTextLeft(font_.get(), text, Width(text)), text);
    EXPECT_EQ(FitTextRight(font_.get(), text, Width(text)), text);
  }
  EXPECT_EQ(FitTextLeft(nullptr, "any text", 1), "any text");
  EXPECT_EQ(FitTextRight(nullptr, "any text", 1), "any text");
}

TEST_F(SharedDrawing, LongTextIsCutToTheMostThatFits) {
  const std::string text = "a long path/with some/folders/and a file.img";
  for (int width = Width("...") + 20; width < Width(text); width += 7) {
    ExpectMostThatFits(text, width);
  }
}

// The first guess is how many glyphs of the text's start would fit.
TEST_F(SharedDrawing, WrongFirstGuessStillGivesTheMostThatFits) {
  const std::string narrow(40, 'i');
  const std::string wide(40, 'W');
  for (const std::string& text : {narrow + wide, wide + narrow, Repeat(40, "e\u0301"),
                                  Repeat(20, "e\u0301\u0302\u0323"), Repeat(20, "\u4f60")}) {
    for (int width = Width("..."); width < Width(text); width += 7) {
      ExpectMostThatFits(text, width);
    }
  }
}

TEST_F(SharedDrawing, WithoutAGuessItIsStillTheMostThatFits) {
  Recorder().FailAlways("TTF_MeasureUTF8");
  const std::string text = "a long path/with some/folders/and a file.img";
  for (int width = Width("..."); width < Width(text); width += 7) {
    ExpectMostThatFits(text, width);
  }
}

TEST_F(SharedDrawing, MarksThatTakeNoRoomAreKept) {
  const std::string text = Repeat(30, "e\u0301");
  ASSERT_EQ(Width(text), Width(Repeat(30, "e")));
  EXPECT_EQ(FitTextLeft(font_.get(), text, Width(text)), text);
  EXPECT_EQ(FitTextRight(font_.get(), text, Width(text)), text);
  EXPECT_TRUE(FitTextLeft(font_.get(), text, Width(text) - 1).ends_with("e\u0301..."));
}

// Narrow and wide characters: half of a wide one may take less room than the whole.
TEST_F(SharedDrawing, CutNeverSplitsACharacter) {
  for (const std::string character : {"\u00e9", "\u0152", "\u0174", "\u2014", "\u2030"}) {
    std::string text;
    for (int i = 0; i < 12; ++i) {
      text += character;
    }
    for (int width = Width("..."); width < Width(text); ++width) {
      const std::size_t left = FitTextLeft(font_.get(), text, width).size() - 3;
      const std::size_t right = FitTextRight(font_.get(), text, width).size() - 3;
      EXPECT_EQ(left % character.size(), 0U) << character << " in " << width;
      EXPECT_EQ(right % character.size(), 0U) << character << " in " << width;
    }
  }
}

TEST_F(SharedDrawing, NothingFitsInNoRoom) {
  EXPECT_EQ(FitTextLeft(font_.get(), "text", Width("...") - 1), "");
  EXPECT_EQ(FitTextRight(font_.get(), "text", 0), "");
  EXPECT_EQ(FitTextRight(font_.get(), "text", -5), "");
}

// Measuring costs a third of drawing, so what is short for its room goes without.
TEST_F(SharedDrawing, ShortTextIsNotMeasured) {
  for (const std::string text : {"floppies/system.img", "floppies/Größe.img"}) {
    const int bound = static_cast<int>(text.size()) * TTF_FontHeight(font_.get());
    EXPECT_EQ(MeasurementsToFit(text, bound), 0);
    EXPECT_EQ(MeasurementsToFit(text, bound - 1), 4);
    EXPECT_EQ(MeasurementsToFit(text, Width(text)), 4);
  }
}

// A font may have characters of many times its height: "U+FDFD" is a phrase of four words.
TEST_F(SharedDrawing, CharactersOfThreeBytesAreAlwaysMeasured) {
  for (const Uint32 code_point : {0x7FFU, 0x800U, 0xFDFDU, 0x12031U}) {
    EXPECT_EQ(MeasurementsToFit("a" + Utf8(code_point), 4000), code_point < 0x800 ? 0 : 4)
        << code_point;
  }
}

// What is never measured must really fit, with each of the fonts that a host may have.
TEST_F(SharedDrawing, NoCharacterIsWiderThanItsBytesTimesTheLinesHeight) {
  for (const char* path : {"data/ttf/IBMPlexSans-Regular.ttf", "data/ttf/IBMPlexSans-SemiBold.ttf",
                           "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                           "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf"}) {
    const OwnedTtfFont font(TTF_OpenFont(path, 15));
    ASSERT_NE(font, nullptr) << path;
    TTF_SetFontStyle(font.get(), TTF_STYLE_BOLD);
    Recorder().SetDrawMode(testing::DrawMode::Counted);
    for (Uint32 code_point = 1; code_point < 0x20000; ++code_point) {
      if (code_point >= 0x800 && TTF_GlyphIsProvided32(font.get(), code_point) == 0) {
        continue;
      }
      const std::string character = Utf8(code_point);
      EXPECT_LE(MeasureText(font.get(), character).width,
                static_cast<int>(character.size()) * TTF_FontHeight(font.get()))
          << path << ' ' << code_point;
    }
  }
}

TEST_F(SharedDrawing, HugeTextIsNotMeasuredWhole) {
  const std::string huge(5'000'000, 'x');
  const std::string fitted = FitTextLeft(font_.get(), huge, 200);
  EXPECT_LE(Width(fitted), 200);
  EXPECT_GT(fitted.size(), 10U);
  EXPECT_LT(Recorder().CallCount("TTF_SizeUTF8"), 40);
  // A failed measurement counts as no width: had it been that of the whole text, that would fit.
  Recorder().FailCall("TTF_SizeUTF8");
  EXPECT_LT(FitTextLeft(font_.get(), huge, 200).size(), 1000U);
}

// Marks on one letter take no room, so that their number alone decides.
TEST_F(SharedDrawing, FourBytesForEachPixelAreLookedAtAndNeverLessThan1024) {
  for (const auto& [width, most] : {std::pair{40, 1024}, {256, 1024}, {300, 1200}}) {
    const std::string text = "ee" + Repeat(most / 2 - 1, "\u0301");
    ASSERT_EQ(static_cast<int>(text.size()), most);
    ASSERT_LT(Width(text), 40);
    EXPECT_EQ(FitTextLeft(font_.get(), text, width), text);
    EXPECT_NE(FitTextLeft(font_.get(), "e" + text, width), "e" + text);
    EXPECT_EQ(FitTextRight(font_.get(), text, width), text);
    EXPECT_NE(FitTextRight(font_.get(), "e" + text, width), "e" + text);
  }
}

// Text in the code page of a DOS program: each byte is drawn as a replacement character.
TEST_F(SharedDrawing, BytesThatStartNoCharacterTakeTheirRoom) {
  const std::string text(60, '\x80');
  ASSERT_GT(Width(text), 300);
  for (const std::string start : {"", "\xC3", "\xE2\x82"}) {
    EXPECT_LE(Width(FitTextLeft(font_.get(), start + text, 200)), 200);
    EXPECT_LE(Width(FitTextRight(font_.get(), start + text, 200)), 200);
  }
  EXPECT_EQ(FitTextLeft(font_.get(), text, Width(text)), text);
}

// The bytes behind a view are not looked at, even where they would go on with its last character.
TEST_F(SharedDrawing, ViewMayEndInsideACharacter) {
  const std::string memory = "floppies/\xE2\x82\xAC";
  const std::string_view text = std::string_view(memory).substr(0, memory.size() - 1);
  EXPECT_EQ(FitTextLeft(font_.get(), text, 1000), text);
  for (int width = Width("..."); width < Width(std::string(text)); ++width) {
    EXPECT_LE(Width(FitTextLeft(font_.get(), text, width)), width);
    EXPECT_LE(Width(FitTextRight(font_.get(), text, width)), width);
  }
}

// A list fits dozens of texts in every frame.
TEST_F(SharedDrawing, FewMeasurementsFindTheCut) {
  for (const std::string character : {"m", "\u00e9", "\u0152", "\u2014"}) {
    const std::string text = Repeat(60, character);
    for (int width = 100; width < Width(text); width += 50) {
      const auto measurements = [&](const auto& fit) {
        const long before = Recorder().CallCount("TTF_SizeUTF8");
        fit(font_.get(), text, width);
        return Recorder().CallCount("TTF_SizeUTF8") - before;
      };
      EXPECT_LE(measurements(FitTextLeft), 6) << character << ' ' << width;
      EXPECT_LE(measurements(FitTextRight), 6) << character << ' ' << width;
    }
  }
}

TEST_F(SharedDrawing, StartOfTextShowsInItsRoom) {
  const std::string text = "LTO OFF  PGO OFF  O2 OFF  O3 ON";
  DrawTextStartVisible(renderer_, font_.get(), text, 20, 30, 20 + Width(text), kColTextHi);
  ASSERT_THAT(Drawn(), SizeIs(1));
  EXPECT_EQ(Drawn()[0].clip, std::nullopt);
  DrawTextStartVisible(renderer_, font_.get(), text, 20, 30, 19 + Width(text), kColTextMid);
  ASSERT_THAT(Drawn(), SizeIs(2));
  const DrawCall& clipped = Drawn()[1];
  EXPECT_EQ(clipped.text, text);
  EXPECT_EQ(clipped.color, kColTextMid);
  EXPECT_EQ((SDL_Point{clipped.rect.x, clipped.rect.y}), (SDL_Point{20, 30}));
  EXPECT_EQ(clipped.clip, (SDL_Rect{20, 30, Width(text) - 1, clipped.rect.h}));
  EXPECT_EQ(SDL_RenderIsClipEnabled(renderer_), SDL_FALSE);
}

TEST_F(SharedDrawing, NothingOfATextShowsInNoRoom) {
  for (const int right : {20, 10}) {
    DrawTextStartVisible(renderer_, font_.get(), "text", 20, 30, right, kColTextHi);
    EXPECT_TRUE(Drawn().back().IsClippedAway());
    EXPECT_EQ(Drawn().back().clip->w, 0);
    DrawTextEndVisible(renderer_, font_.get(), "text", 20, 30, right, kColTextHi);
    EXPECT_TRUE(Drawn().back().IsClippedAway());
    EXPECT_EQ(Drawn().back().clip->w, 0);
  }
}

TEST_F(SharedDrawing, NothingIsDrawnWithoutAFont) {
  DrawTextStartVisible(renderer_, nullptr, "text", 20, 30, 21, kColTextHi);
  DrawTextEndVisible(renderer_, nullptr, "text", 20, 30, 21, kColTextHi);
  EXPECT_THAT(Drawn(), IsEmpty());
}

TEST_F(SharedDrawing, StartOfAHugeTextShowsToo) {
  DrawTextStartVisible(renderer_, font_.get(), "disk" + std::string(5'000'000, 'x'), 20, 30, 180,
                       kColTextHi);
  ASSERT_THAT(Drawn(), SizeIs(1));
  EXPECT_EQ(Drawn()[0].rect.x, 20);
  EXPECT_EQ(Drawn()[0].text, "disk" + std::string(1020, 'x'));
}

TEST_F(SharedDrawing, EndOfTextShowsInItsRoom) {
  const std::string text = "C:/a rather long folder name/disk.img";
  DrawTextEndVisible(renderer_, font_.get(), text, 20, 30, 20 + Width(text), kColTextHi);
  ASSERT_THAT(Drawn(), SizeIs(1));
  EXPECT_EQ(Drawn()[0].rect.x, 20);
  EXPECT_EQ(Drawn()[0].clip, std::nullopt);
  DrawTextEndVisible(renderer_, font_.get(), text, 20, 30, 19 + Width(text), kColTextHi);
  ASSERT_THAT(Drawn(), SizeIs(2));
  const DrawCall& clipped = Drawn()[1];
  EXPECT_EQ(clipped.rect.x + clipped.rect.w, 19 + Width(text));
  EXPECT_EQ(clipped.rect.y, 30);
  EXPECT_EQ(clipped.clip, (SDL_Rect{20, 30, Width(text) - 1, clipped.rect.h}));
  EXPECT_EQ(SDL_RenderIsClipEnabled(renderer_), SDL_FALSE);
}

// SDL_ttf draws no text of megabytes at all.
TEST_F(SharedDrawing, EndOfAHugeTextShowsToo) {
  DrawTextEndVisible(renderer_, font_.get(), std::string(5'000'000, 'x') + ".img", 20, 30, 180,
                     kColTextHi);
  ASSERT_THAT(Drawn(), SizeIs(1));
  EXPECT_EQ(Drawn()[0].rect.x + Drawn()[0].rect.w, 180);
  EXPECT_EQ(Drawn()[0].text, std::string(1020, 'x') + ".img");
}

}  // namespace
}  // namespace quindle::frontend::gui

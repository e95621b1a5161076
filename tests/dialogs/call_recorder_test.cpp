// The call recorder and the script, checked with a message box and with plain SDL.

#include "support/call_recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

#include <stdexcept>

#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

using frontend::gui::kColTextHi;
using frontend::gui::SdlMessageBox;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

SdlMessageBox MakeBox() {
  SdlMessageBox::Config config;
  config.title = "Eject disk";
  config.message = "Really?";
  config.buttons = {{7, "Yes", true, false, {}}, {8, "No", false, true, {}}};
  return SdlMessageBox(config);
}

class CallRecorderTest : public DialogTest {};

TEST_F(CallRecorderTest, RecordsAWholeDialog) {
  SDL_Window* const parent = MakeParent();
  DialogScript script;
  script.Wait().Step([] { KeyDown(SDLK_ESCAPE); });
  EXPECT_EQ(MakeBox().Show(parent, 1.0F), 8);
  ASSERT_THAT(Recorder().windows(), SizeIs(2));
  const WindowRecord& window = Recorder().windows().back();
  EXPECT_EQ(window.title, "Eject disk");
  EXPECT_EQ(window.x, 180);
  EXPECT_EQ(window.flags, Uint32{SDL_WINDOW_HIDDEN});
  EXPECT_EQ(window.modal_for, parent);
  EXPECT_EQ(Recorder().presents(), 2);
  EXPECT_THAT(Recorder().delays(), ElementsAre(12, 12));
  const DrawCall* const title = Recorder().last_frame().FindText("Eject disk");
  ASSERT_NE(title, nullptr);
  EXPECT_EQ(title->color, kColTextHi);
  EXPECT_EQ(title->font.path, "./data/ttf/IBMPlexSans-SemiBold.ttf");
  EXPECT_EQ(title->font.size, 14);
  EXPECT_EQ(title->font.style, TTF_STYLE_BOLD);
  EXPECT_EQ(title->rect.x, 10 + 1 + 20 + 42 + 12);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_DestroyRenderer", "SDL_DestroyWindow"}),
              ElementsAre("SDL_DestroyRenderer", "SDL_DestroyWindow"));
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
}

TEST_F(CallRecorderTest, FrameThatIsNotForwardedHoldsTheSame) {
  std::vector<Frame> frames;
  for (const DrawMode mode : {DrawMode::Forwarded, DrawMode::Recorded}) {
    Recorder().SetDrawMode(mode);
    DialogScript script;
    script.Wait().Step([] { Quit(); });
    MakeBox().Show(nullptr, 1.0F);
    frames.push_back(Recorder().last_frame());
    FlushEvents();
  }
  EXPECT_EQ(::testing::PrintToString(frames[0]), ::testing::PrintToString(frames[1]));
  EXPECT_THAT(frames[0].Texts(), Contains("Really?"));
}

TEST_F(CallRecorderTest, CountedFramesKeepNothing) {
  Recorder().SetDrawMode(DrawMode::Counted);
  Recorder().SetMeasureMode(MeasureMode::Approximate);
  DialogScript script;
  script.Wait(5).Step([] { Quit(); });
  MakeBox().Show(nullptr, 1.0F);
  EXPECT_EQ(Recorder().presents(), 6);
  EXPECT_THAT(Recorder().frames(), IsEmpty());
  EXPECT_GT(Recorder().CallCount("SDL_RenderFillRect"), 0);
}

TEST_F(CallRecorderTest, ApproximateMeasuresAgree) {
  Recorder().SetMeasureMode(MeasureMode::Approximate);
  const frontend::gui::OwnedTtfFont font =
      frontend::gui::OpenSdlUiFontHandle(20, false, frontend::gui::SdlUiFontKind::Ui);
  const char* const text = "n\u00e4mlich";  // Seven characters of 11 pixels.
  int width = 0;
  ASSERT_EQ(TTF_SizeUTF8(font.get(), text, &width, nullptr), 0);
  EXPECT_EQ(width, 77);
  int extent = 0;
  int count = 0;
  for (const auto& [room, fitting] : {std::pair{77, 7}, {76, 6}, {22, 2}, {21, 1}, {10, 0}}) {
    ASSERT_EQ(TTF_MeasureUTF8(font.get(), text, room, &extent, &count), 0);
    EXPECT_EQ(count, fitting);
    EXPECT_EQ(extent, fitting * 11);
  }
  EXPECT_EQ(TTF_MeasureUTF8(font.get(), text, 1000, nullptr, nullptr), 0);
}

TEST_F(CallRecorderTest, FailsTheNthCall) {
  Recorder().FailCall("SDL_CreateRenderer", 2);
  Recorder().FailCall("SDL_CreateRenderer", 1);
  EXPECT_EQ(MakeBox().Show(nullptr, 1.0F), -1);
  EXPECT_EQ(Recorder().faults_hit(), 2);
  EXPECT_EQ(Recorder().presents(), 0);
  ASSERT_THAT(Recorder().renderers(), SizeIs(2));
  EXPECT_EQ(Recorder().renderers()[0].renderer, nullptr);
}

TEST_F(CallRecorderTest, NamesWhatCanFail) {
  EXPECT_THAT(WrappedFunctions(), Contains("SDL_DestroyWindow"));
  EXPECT_THAT(WrappedFunctions(true), Not(Contains("SDL_DestroyWindow")));
  EXPECT_THAT(WrappedFunctions(true), Contains("TTF_OpenFont"));
}

TEST_F(CallRecorderTest, AnswersThePointer) {
  SDL_Window* const parent = MakeParent();
  EXPECT_EQ(SDL_GetMouseFocus(), nullptr);
  Recorder().SetPointer(parent, 3, 4, SDL_BUTTON_LMASK);
  int x = 0;
  int y = 0;
  EXPECT_EQ(SDL_GetMouseState(&x, &y), Uint32{SDL_BUTTON_LMASK});
  EXPECT_EQ((SDL_Point{x, y}), (SDL_Point{3, 4}));
  EXPECT_EQ(SDL_GetMouseFocus(), parent);
}

TEST_F(CallRecorderTest, CountsWhatIsAlive) {
  {
    const frontend::gui::ModalWindowBundle bundle =
        frontend::gui::CreateModalWindowBundle(nullptr, "Alive", 0, 0, 320, 200, SDL_WINDOW_HIDDEN,
                                               frontend::gui::ModalRendererMode::Software);
    frontend::gui::GetCachedSdlUiFont(15, false, frontend::gui::SdlUiFontKind::Ui);
    AliveCounts expected;
    expected.windows = 1;
    expected.renderers = 1;
    expected.fonts = 1;
    EXPECT_EQ(Recorder().alive(), expected);
    EXPECT_EQ(Recorder().newest_window(), bundle.window.get());
    EXPECT_EQ(Recorder().newest_renderer(), bundle.renderer.get());
  }
  frontend::gui::ShutdownSdlUiCachedFonts();
  EXPECT_EQ(Recorder().alive(), AliveCounts{});
}

TEST_F(CallRecorderTest, ReportsAWindowDestroyedBeforeItsRenderer) {
  SDL_Window* const window = SDL_CreateWindow("Order", 0, 0, 64, 64, SDL_WINDOW_HIDDEN);
  SDL_Renderer* const renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
  SDL_DestroyWindow(window);
  EXPECT_THAT(Recorder().violations(), ElementsAre(HasSubstr("before its renderer")));
  SDL_DestroyRenderer(renderer);
  Recorder().Reset();
}

TEST_F(CallRecorderTest, ReachesNeitherBrowserNorScreen) {
  EXPECT_EQ(SDL_OpenURL("https://example.org/"), 0);
  EXPECT_EQ(SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "Title", "Text", nullptr), 0);
  SDL_Delay(100'000);
  EXPECT_THAT(Recorder().urls(), ElementsAre("https://example.org/"));
  ASSERT_THAT(Recorder().simple_message_boxes(), SizeIs(1));
  EXPECT_EQ(Recorder().simple_message_boxes()[0].text, "Text");
  EXPECT_THAT(Recorder().delays(), ElementsAre(100'000));
}

TEST_F(CallRecorderTest, HidesAndRedirectsFonts) {
  Recorder().HideAllFonts();
  EXPECT_EQ(frontend::gui::OpenSdlUiFontHandle(14, false, frontend::gui::SdlUiFontKind::Ui),
            nullptr);
  Recorder().HideFonts([](const std::string& path) { return path[0] != '/'; });
  Recorder().RedirectFont("/usr/share/fonts/TTF/DejaVuSans.ttf",
                          "data/ttf/IBMPlexSans-Regular.ttf");
  Recorder().RedirectFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", "missing");
  Recorder().RedirectFont("/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf", "missing");
  EXPECT_NE(frontend::gui::OpenSdlUiFontHandle(14, false, frontend::gui::SdlUiFontKind::Ui),
            nullptr);
  EXPECT_EQ(Recorder().font_requests().back().path, "/usr/share/fonts/TTF/DejaVuSans.ttf");
}

// Collects the failures that an action reports; these are not the test's own.
template <typename Action>
std::vector<std::string> FailuresOf(Action action) {
  ::testing::TestPartResultArray results;
  {
    const ::testing::ScopedFakeTestPartResultReporter reporter(
        ::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ALL_THREADS, &results);
    action();
  }
  std::vector<std::string> messages;
  for (int i = 0; i < results.size(); ++i) {
    messages.emplace_back(results.GetTestPartResult(i).message());
  }
  return messages;
}

class DialogScriptTest : public DialogTest {};

TEST_F(DialogScriptTest, EndsADialogThatNobodyCloses) {
  const auto run = [] {
    DialogScript script(5);
    MakeBox().Show(nullptr, 1.0F);
    EXPECT_EQ(script.frames(), 6);
  };
  EXPECT_THAT(FailuresOf(run), ElementsAre(HasSubstr("still open after 5 frames")));
}

TEST_F(DialogScriptTest, ReportsStepsThatDidNotRun) {
  const auto run = [] {
    DialogScript script;
    script.Step([] { Quit(); }).Wait(3);
    MakeBox().Show(nullptr, 1.0F);
  };
  EXPECT_THAT(FailuresOf(run), ElementsAre(HasSubstr("ended after 1 of 4 steps")));
}

TEST_F(DialogScriptTest, ThrowingStepReachesTheCaller) {
  DialogScript script;
  script.Wait().Step([] { throw std::runtime_error("host"); });
  EXPECT_THROW(MakeBox().Show(nullptr, 1.0F), std::runtime_error);
}

TEST_F(DialogScriptTest, ReadsPixelsOfTheLastFrame) {
  DialogScript script;
  script.Wait().Step([] {
    EXPECT_EQ(PixelAt(0, 0), (SDL_Color{18, 21, 27, 255}));
    Quit();
  });
  MakeBox().Show(nullptr, 1.0F);
}

TEST_F(DialogScriptTest, PushesTextInWholeCharacters) {
  std::string text;
  for (int i = 0; i < 40; ++i) {
    text += "\u00e4";
  }
  TextInput(text);
  std::string joined;
  for (const SDL_Event& event : QueuedEvents()) {
    ASSERT_EQ(event.type, Uint32{SDL_TEXTINPUT});
    const std::string part = event.text.text;
    EXPECT_EQ(part.size() % 2, 0U);
    joined += part;
  }
  EXPECT_EQ(joined, text);
  FlushEvents();
  EXPECT_THAT(QueuedEvents(), IsEmpty());
}

std::vector<Uint32> QueuedTypes() {
  std::vector<Uint32> types;
  for (const SDL_Event& event : QueuedEvents()) {
    types.push_back(event.type);
  }
  return types;
}

// A text event's way into the queue may differ from that of the others, its place must not.
TEST_F(DialogScriptTest, PushesTextBetweenOtherEvents) {
  KeyDown(SDLK_a);
  TextInput("ä", 7);
  KeyUp(SDLK_a);
  EXPECT_THAT(QueuedTypes(), ElementsAre(SDL_KEYDOWN, SDL_TEXTINPUT, SDL_KEYUP));
  const SDL_Event text = QueuedEvents()[1];
  EXPECT_STREQ(text.text.text, "ä");
  EXPECT_EQ(text.text.windowID, 7U);
}

class EventsLeftBehindTest : public DialogTest {
 protected:
  // The id of a window that is no more, with an empty queue.
  static Uint32 IdOfAGoneWindow() {
    SDL_Window* const window = SDL_CreateWindow("Gone", 0, 0, 64, 64, 0);
    const Uint32 id = SDL_GetWindowID(window);
    SDL_DestroyWindow(window);
    FlushEvents();
    return id;
  }

  static constexpr Uint8 kNewsOfItsGoing[] = {SDL_WINDOWEVENT_HIDDEN, SDL_WINDOWEVENT_LEAVE,
                                              SDL_WINDOWEVENT_FOCUS_LOST};
};

TEST_F(EventsLeftBehindTest, AreNoneWhenAWindowOnlyComesAndGoes) {
  SDL_Window* const window = SDL_CreateWindow("Short", 0, 0, 64, 64, 0);
  SDL_RaiseWindow(window);
  FlushEvents();
  SDL_DestroyWindow(window);
  SDL_PumpEvents();
  EXPECT_THAT(EventsLeftBehind(), IsEmpty());
}

TEST_F(EventsLeftBehindTest, LeaveOutTheNewsOfAGoneWindowsGoing) {
  const Uint32 gone = IdOfAGoneWindow();
  for (const Uint8 news : kNewsOfItsGoing) {
    WindowEvent(gone, news);
  }
  EXPECT_THAT(QueuedEvents(), SizeIs(3));
  EXPECT_THAT(EventsLeftBehind(), IsEmpty());
}

TEST_F(EventsLeftBehindTest, HoldTheSameNewsOfOtherWindowsAndOfNone) {
  const Uint32 alive = SDL_GetWindowID(MakeParent());
  for (const Uint8 news : kNewsOfItsGoing) {
    WindowEvent(alive, news);
    WindowEvent(0, news);
  }
  EXPECT_THAT(EventsLeftBehind(), SizeIs(6));
}

TEST_F(EventsLeftBehindTest, HoldAllElseThatNamesAGoneWindow) {
  const Uint32 gone = IdOfAGoneWindow();
  CloseWindow(gone);
  Resized(gone, 100, 100);
  WindowEvent(gone, SDL_WINDOWEVENT_ENTER);
  WindowEvent(gone, SDL_WINDOWEVENT_FOCUS_GAINED);
  KeyDown(SDLK_a, gone);
  Quit();
  EXPECT_THAT(EventsLeftBehind(), SizeIs(6));
}

}  // namespace
}  // namespace quindle::testing

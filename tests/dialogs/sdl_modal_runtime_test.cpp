// The ground under every dialog: release functions, window bundle, heartbeat, focus hand-back, and
// the steps of a modal frame as the message box takes them.

#include "frontend/gui/sdl_modal_runtime.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <memory>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <utility>

#include "frontend/gui/sdl_message_box.h"
#include "support/dialog_test.h"

namespace quindle::frontend::gui {
namespace {

using testing::DialogScript;
using testing::DialogTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::Recorder;
using testing::RendererRecord;
using ::testing::SizeIs;
using testing::WindowRecord;

constexpr int kCenteredMarker = 0x2FFF0000;
constexpr Uint32 kHidden = 0x08;
constexpr Uint32 kHiddenResizable = 0x28;

static_assert(static_cast<int>(ModalRendererMode::Accelerated) == 0);
static_assert(static_cast<int>(ModalRendererMode::Software) == 1);
static_assert(!std::is_copy_constructible_v<ModalWindowBundle>);
static_assert(!std::is_copy_assignable_v<ModalWindowBundle>);
static_assert(std::is_nothrow_move_constructible_v<ModalWindowBundle>);
static_assert(std::is_nothrow_move_assignable_v<ModalWindowBundle>);
static_assert(
    noexcept(DestroySdlSurface(nullptr)) && noexcept(DestroySdlTexture(nullptr)) && noexcept(
        DestroySdlRenderer(
            nullptr)) && noexcept(DestroySdlWindow(nullptr)) && noexcept(CloseSdlTtfFont(nullptr)));

ModalWindowBundle MakeBundle(SDL_Window* parent = nullptr,
                             ModalRendererMode mode = ModalRendererMode::Software) {
  return CreateModalWindowBundle(parent, "Bundle", 80, 80, 320, 200, SDL_WINDOW_HIDDEN, mode);
}

const std::initializer_list<std::string_view> kReleases{"SDL_DestroyRenderer", "SDL_DestroyWindow"};

// --- Release functions ---------------------------------------------------------------------------

class ModalRelease : public DialogTest {};

TEST_F(ModalRelease, DoesNothingForNull) {
  DestroySdlSurface(nullptr);
  DestroySdlTexture(nullptr);
  DestroySdlRenderer(nullptr);
  DestroySdlWindow(nullptr);
  CloseSdlTtfFont(nullptr);
  EXPECT_THAT(Recorder().calls(), IsEmpty());
}

TEST_F(ModalRelease, IsOneCallForEachHandle) {
  ASSERT_EQ(TTF_Init(), 0);
  ModalWindowBundle bundle = MakeBundle();
  TTF_Font* const font = TTF_OpenFont("data/ttf/IBMPlexSans-Regular.ttf", 14);
  SDL_Surface* const surface = TTF_RenderUTF8_Blended(font, "text", SDL_Color{1, 2, 3, 255});
  SDL_Texture* const texture = SDL_CreateTextureFromSurface(bundle.renderer.get(), surface);
  Recorder().ForgetCalls();
  DestroySdlTexture(texture);
  DestroySdlSurface(surface);
  CloseSdlTtfFont(font);
  DestroySdlRenderer(bundle.renderer.release());
  DestroySdlWindow(bundle.window.release());
  std::vector<std::string> names;
  for (const testing::Call& call : Recorder().calls()) {
    names.emplace_back(call.function);
  }
  // X11's windows are released with care, so the driver is asked for.
  EXPECT_THAT(names,
              ElementsAre("SDL_DestroyTexture", "SDL_FreeSurface", "TTF_CloseFont",
                          "SDL_DestroyRenderer", "SDL_GetCurrentVideoDriver", "SDL_DestroyWindow"));
}

// --- Window bundle -------------------------------------------------------------------------------

class ModalWindowBundleTest : public DialogTest {};

TEST_F(ModalWindowBundleTest, IsEmptyAtFirst) {
  const ModalWindowBundle bundle;
  EXPECT_EQ(bundle.window, nullptr);
  EXPECT_EQ(bundle.renderer, nullptr);
}

TEST_F(ModalWindowBundleTest, ReleasesRendererBeforeWindow) {
  { const ModalWindowBundle bundle = MakeBundle(); }
  EXPECT_THAT(Recorder().CallsAmong(kReleases),
              ElementsAre("SDL_DestroyRenderer", "SDL_DestroyWindow"));
}

TEST_F(ModalWindowBundleTest, MoveConstructionEmptiesTheSource) {
  ModalWindowBundle source = MakeBundle();
  SDL_Window* const window = source.window.get();
  SDL_Renderer* const renderer = source.renderer.get();
  const ModalWindowBundle target = std::move(source);
  EXPECT_EQ(target.window.get(), window);
  EXPECT_EQ(target.renderer.get(), renderer);
  EXPECT_EQ(source.window, nullptr);    // NOLINT(bugprone-use-after-move): the promised state.
  EXPECT_EQ(source.renderer, nullptr);  // NOLINT(bugprone-use-after-move)
  EXPECT_THAT(Recorder().CallsAmong(kReleases), IsEmpty());
}

TEST_F(ModalWindowBundleTest, MoveAssignmentReleasesTheOldRendererFirst) {
  ModalWindowBundle target = MakeBundle();
  ModalWindowBundle source = MakeBundle();
  SDL_Window* const old_window = target.window.get();
  SDL_Renderer* const old_renderer = target.renderer.get();
  SDL_Window* const new_window = source.window.get();
  Recorder().ForgetCalls();
  target = std::move(source);
  ASSERT_THAT(Recorder().calls(), SizeIs(3));
  EXPECT_EQ(Recorder().calls()[0].function, "SDL_DestroyRenderer");
  EXPECT_EQ(Recorder().calls()[0].subject, old_renderer);
  EXPECT_EQ(Recorder().calls()[1].function, "SDL_GetCurrentVideoDriver");
  EXPECT_EQ(Recorder().calls()[2].function, "SDL_DestroyWindow");
  EXPECT_EQ(Recorder().calls()[2].subject, old_window);
  EXPECT_EQ(target.window.get(), new_window);
  EXPECT_EQ(source.window, nullptr);    // NOLINT(bugprone-use-after-move): the promised state.
  EXPECT_EQ(source.renderer, nullptr);  // NOLINT(bugprone-use-after-move)
}

TEST_F(ModalWindowBundleTest, AssignedToItselfKeepsItsHandles) {
  ModalWindowBundle bundle = MakeBundle();
  SDL_Window* const window = bundle.window.get();
  SDL_Renderer* const renderer = bundle.renderer.get();
  ModalWindowBundle& same = bundle;
  bundle = std::move(same);
  EXPECT_EQ(bundle.window.get(), window);
  EXPECT_EQ(bundle.renderer.get(), renderer);
  EXPECT_THAT(Recorder().CallsAmong(kReleases), IsEmpty());
}

// --- Creating the window -------------------------------------------------------------------------

class CreateModalWindow : public DialogTest {};

struct Placement {
  int x;
  int y;
  int width;
  int height;
  Uint32 flags;
};

// The offsets, sizes and flags that the dialogs use, and some that none does.
const std::initializer_list<Placement> kPlacements{
    {80, 80, 320, 180, kHidden}, {80, 80, 860, 390, kHidden},
    {60, 50, 820, 492, kHidden}, {60, 60, 900, 410, kHiddenResizable},
    {0, 0, 200, 100, kHidden},   {-30, -7, 200, 100, kHidden | SDL_WINDOW_BORDERLESS},
};

TEST_F(CreateModalWindow, WithParentIsOffsetFromItsCorner) {
  SDL_Window* const parent = MakeParent();
  for (const SDL_Point corner : {SDL_Point{100, 100}, SDL_Point{-40, 333}}) {
    SDL_SetWindowPosition(parent, corner.x, corner.y);
    for (const Placement& wanted : kPlacements) {
      const ModalWindowBundle bundle =
          CreateModalWindowBundle(parent, "Child", wanted.x, wanted.y, wanted.width, wanted.height,
                                  wanted.flags, ModalRendererMode::Software);
      const WindowRecord& made = Recorder().windows().back();
      EXPECT_EQ(made.window, bundle.window.get());
      EXPECT_EQ(made.title, "Child");
      EXPECT_EQ((SDL_Rect{made.x, made.y, made.w, made.h}),
                (SDL_Rect{corner.x + wanted.x, corner.y + wanted.y, wanted.width, wanted.height}));
      EXPECT_EQ(made.flags, wanted.flags);
      EXPECT_EQ(made.modal_for, parent);
    }
  }
}

TEST_F(CreateModalWindow, WithoutParentAddsTheOffsetToTheCentringMarker) {
  for (const Placement& wanted : kPlacements) {
    const ModalWindowBundle bundle =
        CreateModalWindowBundle(nullptr, "Alone", wanted.x, wanted.y, wanted.width, wanted.height,
                                wanted.flags, ModalRendererMode::Software);
    const WindowRecord& made = Recorder().windows().back();
    EXPECT_EQ((SDL_Rect{made.x, made.y, made.w, made.h}),
              (SDL_Rect{kCenteredMarker + wanted.x, kCenteredMarker + wanted.y, wanted.width,
                        wanted.height}));
    EXPECT_EQ(made.flags, wanted.flags);
  }
  EXPECT_EQ(Recorder().CallCount("SDL_SetWindowModalFor"), 0);
  EXPECT_EQ(Recorder().CallCount("SDL_GetWindowPosition"), 0);
}

TEST_F(CreateModalWindow, WithoutParentComesOutCentred) {
  SDL_Rect display;
  ASSERT_EQ(SDL_GetDisplayBounds(0, &display), 0);
  const ModalWindowBundle bundle = MakeBundle();
  SDL_Point corner{0, 0};
  SDL_GetWindowPosition(bundle.window.get(), &corner.x, &corner.y);
  EXPECT_EQ(corner, (SDL_Point{(display.w - 320) / 2, (display.h - 200) / 2}));
}

TEST_F(CreateModalWindow, StaysHidden) {
  const ModalWindowBundle bundle = MakeBundle(MakeParent());
  EXPECT_NE(SDL_GetWindowFlags(bundle.window.get()) & SDL_WINDOW_HIDDEN, 0U);
  EXPECT_THAT(
      Recorder().CallsAmong({"SDL_ShowWindow", "SDL_RaiseWindow", "SDL_SetWindowInputFocus"}),
      IsEmpty());
}

TEST_F(CreateModalWindow, IsMadeModalBeforeItsRendererExists) {
  SDL_Window* const parent = MakeParent();
  Recorder().ForgetCalls();
  const ModalWindowBundle bundle = MakeBundle(parent);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_GetWindowPosition", "SDL_CreateWindow",
                                     "SDL_SetWindowModalFor", "SDL_CreateRenderer"}),
              ElementsAre("SDL_GetWindowPosition", "SDL_CreateWindow", "SDL_SetWindowModalFor",
                          "SDL_CreateRenderer"));
}

TEST_F(CreateModalWindow, RefusedModalityIsNoFailure) {
  SDL_Window* const parent = MakeParent();
  Recorder().FailCall("SDL_SetWindowModalFor");
  const ModalWindowBundle bundle = MakeBundle(parent);
  EXPECT_NE(bundle.window, nullptr);
  EXPECT_NE(bundle.renderer, nullptr);
}

TEST_F(CreateModalWindow, FailedWindowYieldsAnEmptyBundle) {
  for (SDL_Window* const parent : {static_cast<SDL_Window*>(nullptr), MakeParent()}) {
    Recorder().FailCall("SDL_CreateWindow");
    const ModalWindowBundle bundle = MakeBundle(parent);
    EXPECT_EQ(bundle.window, nullptr);
    EXPECT_EQ(bundle.renderer, nullptr);
  }
  EXPECT_EQ(Recorder().CallCount("SDL_SetWindowModalFor"), 0);
  EXPECT_EQ(Recorder().CallCount("SDL_CreateRenderer"), 0);
  EXPECT_EQ(Recorder().CallCount("SDL_DestroyWindow"), 0);
  EXPECT_THAT(Recorder().simple_message_boxes(), IsEmpty());
}

TEST_F(CreateModalWindow, VideoThatIsNotRunningYieldsAnEmptyBundle) {
  SDL_QuitSubSystem(SDL_INIT_VIDEO);
  Recorder().FailAlways("SDL_CreateWindow");  // SDL would start the video subsystem again.
  EXPECT_EQ(MakeBundle().window, nullptr);
}

// --- Choosing the renderer -----------------------------------------------------------------------

class ModalRendererChoice : public DialogTest {};

std::vector<Uint32> RendererFlagsTried() {
  std::vector<Uint32> flags;
  for (const RendererRecord& tried : Recorder().renderers()) {
    EXPECT_EQ(tried.index, -1);
    flags.push_back(tried.flags);
  }
  return flags;
}

TEST_F(ModalRendererChoice, EveryModeButSoftwareAsksForAccelerationFirst) {
  SDL_SetHint(SDL_HINT_RENDER_DRIVER, "software");  // Grants the accelerated request too.
  for (const int mode : {0, 2, 3, -1, 1000}) {
    Recorder().Reset();
    const ModalWindowBundle bundle = MakeBundle(nullptr, static_cast<ModalRendererMode>(mode));
    EXPECT_THAT(RendererFlagsTried(), ElementsAre(SDL_RENDERER_ACCELERATED)) << mode;
    EXPECT_EQ(bundle.renderer.get(), Recorder().renderers()[0].renderer);
  }
  SDL_SetHint(SDL_HINT_RENDER_DRIVER, "");
}

TEST_F(ModalRendererChoice, FallsBackToSoftware) {
  for (const int mode : {0, 2, -1}) {
    Recorder().Reset();
    Recorder().FailCall("SDL_CreateRenderer", 1);
    const ModalWindowBundle bundle = MakeBundle(nullptr, static_cast<ModalRendererMode>(mode));
    EXPECT_THAT(RendererFlagsTried(), ElementsAre(SDL_RENDERER_ACCELERATED, SDL_RENDERER_SOFTWARE))
        << mode;
    EXPECT_EQ(bundle.renderer.get(), Recorder().renderers()[1].renderer);
    EXPECT_NE(bundle.window, nullptr);
  }
}

TEST_F(ModalRendererChoice, SoftwareModeAsksForSoftwareOnly) {
  const ModalWindowBundle bundle = MakeBundle(nullptr, ModalRendererMode::Software);
  EXPECT_THAT(RendererFlagsTried(), ElementsAre(SDL_RENDERER_SOFTWARE));
  EXPECT_NE(bundle.renderer, nullptr);
}

TEST_F(ModalRendererChoice, NoRendererLeavesNoWindowOpen) {
  SDL_Window* const parent = MakeParent();
  const std::pair<ModalRendererMode, std::size_t> cases[] = {{ModalRendererMode::Accelerated, 2},
                                                             {ModalRendererMode::Software, 1}};
  for (const auto& [mode, tries] : cases) {
    Recorder().Reset();
    Recorder().FailAlways("SDL_CreateRenderer");
    const ModalWindowBundle bundle = MakeBundle(parent, mode);
    EXPECT_EQ(bundle.window, nullptr);
    EXPECT_EQ(bundle.renderer, nullptr);
    EXPECT_THAT(Recorder().renderers(), SizeIs(tries));
    EXPECT_THAT(Recorder().CallsAmong(kReleases), ElementsAre("SDL_DestroyWindow"));
    EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 0);
    EXPECT_THAT(Recorder().simple_message_boxes(), IsEmpty());
    Recorder().ExpectNothingAlive();
  }
}

// --- Focus ---------------------------------------------------------------------------------------

class ModalParentFocusTest : public DialogTest {};

TEST_F(ModalParentFocusTest, RaisesTheParentThenFocusesIt) {
  SDL_Window* const parent = MakeParent();
  Recorder().ForgetCalls();
  RestoreModalParentFocus(parent);
  const std::vector<std::string> actions = Recorder().CallsButQuestions();
  EXPECT_THAT(actions, ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
  EXPECT_EQ(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent), actions);
}

TEST_F(ModalParentFocusTest, NoParentIsNoCall) {
  RestoreModalParentFocus(nullptr);
  EXPECT_THAT(Recorder().calls(), IsEmpty());
}

// --- Heartbeat -----------------------------------------------------------------------------------

class ModalHeartbeat : public DialogTest {};

TEST_F(ModalHeartbeat, PumpWithoutCallbackDoesNothing) {
  PumpModalDialogHeartbeat();
  SetModalDialogHeartbeat({});
  PumpModalDialogHeartbeat();
}

TEST_F(ModalHeartbeat, RunsOnceForEachPumpUntilReplacedOrRemoved) {
  std::string beats;
  SetModalDialogHeartbeat([&beats] { beats += 'a'; });
  EXPECT_EQ(beats, "");
  PumpModalDialogHeartbeat();
  PumpModalDialogHeartbeat();
  SetModalDialogHeartbeat([&beats] { beats += 'b'; });
  PumpModalDialogHeartbeat();
  SetModalDialogHeartbeat(nullptr);
  PumpModalDialogHeartbeat();
  EXPECT_EQ(beats, "aab");
}

// A callable that knows how many of it exist and were copied.
class CountedBeat {
 public:
  struct Counts {
    int alive = 0;
    int copies = 0;
    int calls = 0;
    int alive_in_call = 0;
  };

  explicit CountedBeat(Counts* counts) : counts_(counts) { ++counts_->alive; }
  CountedBeat(const CountedBeat& other) : counts_(other.counts_) {
    ++counts_->alive;
    ++counts_->copies;
  }
  CountedBeat& operator=(const CountedBeat&) = delete;
  ~CountedBeat() { --counts_->alive; }

  void operator()() const {
    ++counts_->calls;
    counts_->alive_in_call = counts_->alive;
  }

 private:
  Counts* counts_;
};

TEST_F(ModalHeartbeat, IsMovedInAndCalledAsACopy) {
  CountedBeat::Counts counts;
  std::function<void()> heartbeat = CountedBeat(&counts);
  const int copies_before = counts.copies;
  SetModalDialogHeartbeat(std::move(heartbeat));
  EXPECT_EQ(counts.copies, copies_before);
  EXPECT_EQ(counts.alive, 1);
  PumpModalDialogHeartbeat();
  EXPECT_EQ(counts.calls, 1);
  EXPECT_EQ(counts.alive_in_call, 2);
  EXPECT_EQ(counts.alive, 1);
  SetModalDialogHeartbeat({});
  EXPECT_EQ(counts.alive, 0);
}

TEST_F(ModalHeartbeat, PreviousCallbackIsGoneWhenItsReplacementIsIn) {
  auto owned = std::make_shared<int>(1);
  const std::weak_ptr<int> watched = owned;
  SetModalDialogHeartbeat([owned = std::move(owned)] { static_cast<void>(*owned); });
  ASSERT_FALSE(watched.expired());
  SetModalDialogHeartbeat([] {});
  EXPECT_TRUE(watched.expired());
}

// Tells, when it dies, whether another thread can pump at that moment. The thread outlives the
// probe, because it may be waiting for the lock.
class LockProbe {
 public:
  struct Result {
    bool could_pump = false;
    std::future<void> pump;
  };

  explicit LockProbe(Result* result) : result_(result) {}
  LockProbe(const LockProbe&) = delete;
  LockProbe& operator=(const LockProbe&) = delete;
  ~LockProbe() {
    result_->pump = std::async(std::launch::async, [] { PumpModalDialogHeartbeat(); });
    result_->could_pump =
        result_->pump.wait_for(std::chrono::milliseconds(100)) == std::future_status::ready;
  }

 private:
  Result* result_;
};

TEST_F(ModalHeartbeat, PreviousCallbackDiesWhileTheMutexIsHeld) {
  LockProbe::Result result;
  SetModalDialogHeartbeat([probe = std::make_shared<LockProbe>(&result)] {});
  SetModalDialogHeartbeat([] {});
  ASSERT_TRUE(result.pump.valid());
  EXPECT_FALSE(result.could_pump);
  result.pump.get();
}

TEST_F(ModalHeartbeat, RunsWithoutTheMutex) {
  bool replaced = false;
  std::future<void> other;
  SetModalDialogHeartbeat([&] {
    other = std::async(std::launch::async, [] { SetModalDialogHeartbeat({}); });
    replaced = other.wait_for(std::chrono::seconds(10)) == std::future_status::ready;
  });
  PumpModalDialogHeartbeat();
  EXPECT_TRUE(replaced);
}

TEST_F(ModalHeartbeat, MayReplaceItself) {
  std::string beats;
  auto kept = std::make_shared<std::string>("old");
  SetModalDialogHeartbeat([&beats, kept = std::move(kept)] {
    SetModalDialogHeartbeat([&beats] { beats += "new "; });
    beats += *kept + ' ';  // Its own captures are still there.
  });
  PumpModalDialogHeartbeat();
  EXPECT_EQ(beats, "old ");
  PumpModalDialogHeartbeat();
  EXPECT_EQ(beats, "old new ");
}

TEST_F(ModalHeartbeat, ExceptionPassesAndLeavesItInstalled) {
  CountedBeat::Counts counts;
  SetModalDialogHeartbeat([beat = CountedBeat(&counts)] {
    beat();
    throw std::runtime_error("host");
  });
  const int alive = counts.alive;
  EXPECT_THROW(PumpModalDialogHeartbeat(), std::runtime_error);
  EXPECT_EQ(counts.alive, alive) << "the local copy must be gone";
  EXPECT_THROW(PumpModalDialogHeartbeat(), std::runtime_error);
  EXPECT_EQ(counts.calls, 2);
  SetModalDialogHeartbeat({});
}

// --- A dialog's frames ---------------------------------------------------------------------------

class ModalLoop : public DialogTest {
 protected:
  static SdlMessageBox MakeBox() {
    SdlMessageBox::Config config;
    config.title = "Loop";
    config.message = "Message";
    config.buttons = {{3, "Close", true, true, {}}};
    return SdlMessageBox(std::move(config));
  }
  // The top left corner of the box's single button.
  static SDL_Point ButtonCorner() {
    const std::vector<SDL_Rect> buttons = Recorder().last_frame().Outlines({84, 92, 108, 255});
    EXPECT_THAT(buttons, SizeIs(1));
    return buttons.empty() ? SDL_Point{} : SDL_Point{buttons[0].x, buttons[0].y};
  }
  static constexpr SDL_Color kButtonFill{48, 54, 68, 255};
  static constexpr SDL_Color kButtonHoverFill{68, 76, 92, 255};

  static std::vector<Uint32> TypesLeftBehind() {
    std::vector<Uint32> types;
    for (const SDL_Event& event : testing::EventsLeftBehind()) {
      types.push_back(event.type);
    }
    return types;
  }
};

TEST_F(ModalLoop, MessageBoxWindowIsTheOneItAsksFor) {
  SDL_Window* const parent = MakeParent();
  const std::pair<SDL_Point, SDL_Point> sizes[] = {{{100, 100}, {320, 180}},
                                                   {{420, 160}, {420, 180}},
                                                   {{321, 181}, {321, 181}},
                                                   {{900, 500}, {900, 500}}};
  for (const auto& [configured, expected] : sizes) {
    SdlMessageBox::Config config;
    config.title = "Size";
    config.width = configured.x;
    config.height = configured.y;
    DialogScript script;
    script.Step([] { testing::Quit(); });
    SdlMessageBox(config).Show(parent, 1.0F);
    const WindowRecord& made = Recorder().windows().back();
    EXPECT_EQ(made.title, "Size");
    EXPECT_EQ((SDL_Rect{made.x, made.y, made.w, made.h}),
              (SDL_Rect{180, 180, expected.x, expected.y}));
    EXPECT_EQ(made.flags, kHidden);
    EXPECT_EQ(Recorder().renderers().front().flags, Uint32{SDL_RENDERER_ACCELERATED});
    testing::FlushEvents();
  }
}

TEST_F(ModalLoop, FrameGoesFromHeartbeatToDelay) {
  DialogScript script;
  script
      .Step([] {
        EXPECT_EQ(Recorder().CallCount("SDL_PollEvent"), 0);
        EXPECT_EQ(Recorder().CallCount("SDL_GetWindowSize"), 0);
      })
      .Step([] {
        EXPECT_EQ(Recorder().CallsButQuestions().back(), "SDL_Delay");
        Recorder().ForgetCalls();
      })
      .Step([] {
        // An SDL_PollEvent for each event, and one for the end of the queue.
        std::vector<std::string> calls =
            Recorder().CallsAmong({"SDL_GetWindowSize", "SDL_PollEvent", "SDL_GetMouseFocus",
                                   "SDL_RenderClear", "SDL_RenderPresent", "SDL_Delay"});
        calls.erase(std::unique(calls.begin(), calls.end()), calls.end());
        EXPECT_THAT(calls, ElementsAre("SDL_GetWindowSize", "SDL_PollEvent", "SDL_GetMouseFocus",
                                       "SDL_RenderClear", "SDL_RenderPresent", "SDL_Delay"));
        testing::Quit();
      });
  MakeBox().Show(nullptr, 1.0F);
}

TEST_F(ModalLoop, WindowIsShownRaisedAndFocusedOnceAfterTheFirstPresent) {
  DialogScript script;
  script.Wait(3).Step([] { testing::Quit(); });
  MakeBox().Show(nullptr, 1.0F);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                                     "SDL_SetWindowInputFocus", "SDL_Delay"}),
              ElementsAre("SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                          "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_RenderPresent", "SDL_Delay",
                          "SDL_RenderPresent", "SDL_Delay", "SDL_RenderPresent", "SDL_Delay"));
  for (const testing::Call& call : Recorder().calls()) {
    if (call.function == "SDL_ShowWindow" || call.function == "SDL_RaiseWindow" ||
        call.function == "SDL_SetWindowInputFocus") {
      EXPECT_EQ(call.subject, Recorder().windows().back().window) << call.function;
    }
  }
  EXPECT_THAT(Recorder().delays(), ElementsAre(12, 12, 12, 12));
}

TEST_F(ModalLoop, DecidingFirstFrameIsStillDrawnShownAndDelayed) {
  DialogScript script;
  script.Step([] { testing::Quit(); });
  EXPECT_EQ(MakeBox().Show(nullptr, 1.0F), -1);
  EXPECT_EQ(Recorder().presents(), 1);
  EXPECT_TRUE(Recorder().last_frame().HasText("Message"));
  EXPECT_THAT(Recorder().CallsAmong({"SDL_ShowWindow", "SDL_Delay"}),
              ElementsAre("SDL_ShowWindow", "SDL_Delay"));
}

TEST_F(ModalLoop, WindowEventsOfOtherWindowsAreConsumedAndDropped) {
  const Uint32 parent = SDL_GetWindowID(MakeParent());
  DialogScript script;
  script.Wait()
      .Step([parent] {
        testing::CloseWindow(parent);
        testing::CloseWindow(parent + 1000);
        testing::CloseWindow(0);
      })
      .Step([] { EXPECT_EQ(Recorder().presents(), 2) << "the box must still be open"; })
      .Step([] { testing::CloseWindow(testing::WindowId()); });
  EXPECT_EQ(MakeBox().Show(MakeParent(), 1.0F), -1);
  EXPECT_EQ(script.frames(), 4);
  EXPECT_THAT(TypesLeftBehind(), IsEmpty());
}

TEST_F(ModalLoop, OtherEventsOfItsOwnWindowDoNotCloseIt) {
  DialogScript script;
  script.Wait().Step([] {
    for (int event = SDL_WINDOWEVENT_NONE; event <= SDL_WINDOWEVENT_DISPLAY_CHANGED; ++event) {
      if (event != SDL_WINDOWEVENT_CLOSE) {
        testing::WindowEvent(testing::WindowId(), static_cast<Uint8>(event));
      }
    }
  });
  script.Step([] { EXPECT_EQ(Recorder().presents(), 2) << "the box must still be open"; }).Step([] {
    testing::WindowEvent(testing::WindowId(), 14);
  });
  EXPECT_EQ(MakeBox().Show(nullptr, 1.0F), -1);
}

TEST_F(ModalLoop, QuitIsConsumed) {
  DialogScript script;
  script.Wait().Step([] { testing::Quit(); });
  EXPECT_EQ(MakeBox().Show(MakeParent(), 1.0F), -1);
  EXPECT_THAT(TypesLeftBehind(), IsEmpty());
  EXPECT_EQ(Recorder().presents(), 2);
}

TEST_F(ModalLoop, HoversOnlyWhileTheMouseIsInItsWindow) {
  SDL_Window* const parent = MakeParent();
  SDL_Window* dialog = nullptr;
  SDL_Point corner{0, 0};
  const auto fill_of_button = [&corner] {
    return Recorder().last_frame().FillAt(corner.x, corner.y);
  };
  DialogScript script;
  script.Wait()
      .Step([&] {
        dialog = Recorder().newest_window();
        corner = ButtonCorner();
        Recorder().SetPointer(parent, corner.x, corner.y);
      })
      .Step([&] {
        EXPECT_EQ(fill_of_button(), kButtonFill);
        EXPECT_EQ(Recorder().CallCount("SDL_GetMouseState"), 0);
        Recorder().SetPointer(dialog, corner.x, corner.y);
      })
      .Step([&] {
        EXPECT_EQ(fill_of_button(), kButtonHoverFill);
        Recorder().SetPointer(nullptr, corner.x, corner.y);
      })
      .Step([&] {
        EXPECT_EQ(fill_of_button(), kButtonFill);
        testing::Quit();
      });
  MakeBox().Show(parent, 1.0F);
}

TEST_F(ModalLoop, FocusGoesBackBeforeRendererAndWindowAreReleased) {
  SDL_Window* const parent = MakeParent();
  DialogScript script;
  script.Wait().Step([] {
    testing::Quit();
    Recorder().ForgetCalls();
  });
  MakeBox().Show(parent, 1.0F);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_Delay", "SDL_RaiseWindow", "SDL_SetWindowInputFocus",
                                     "SDL_DestroyRenderer", "SDL_DestroyWindow"}),
              ElementsAre("SDL_Delay", "SDL_RaiseWindow", "SDL_SetWindowInputFocus",
                          "SDL_DestroyRenderer", "SDL_DestroyWindow"));
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent),
              SizeIs(2));
  EXPECT_EQ(Recorder().CallCount("TTF_CloseFont"), Recorder().CallCount("TTF_OpenFont"));
}

TEST_F(ModalLoop, WithoutParentNothingElseGetsTheFocus) {
  DialogScript script;
  script.Wait().Step([] { testing::Quit(); });
  MakeBox().Show(nullptr, 1.0F);
  EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 1);
  EXPECT_EQ(Recorder().CallCount("SDL_SetWindowInputFocus"), 1);
}

TEST_F(ModalLoop, FailedOpeningNeitherPumpsNorTouchesTheParent) {
  SDL_Window* const parent = MakeParent();
  int beats = 0;
  SetModalDialogHeartbeat([&beats] { ++beats; });
  for (const char* const function : {"SDL_CreateWindow", "SDL_CreateRenderer", "TTF_OpenFont"}) {
    Recorder().Reset();
    Recorder().FailAlways(function);
    EXPECT_EQ(MakeBox().Show(parent, 1.0F), -1);
    EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 0) << function;
    EXPECT_EQ(Recorder().CallCount("SDL_SetWindowInputFocus"), 0) << function;
    EXPECT_EQ(Recorder().CallCount("SDL_ShowWindow"), 0) << function;
    EXPECT_THAT(Recorder().simple_message_boxes(), IsEmpty());
    Recorder().ExpectNothingAlive();
  }
  EXPECT_EQ(beats, 0);
}

TEST_F(ModalLoop, HeartbeatThatReplacesItselfHandsOverToTheNextFrame) {
  std::string beats;
  SetModalDialogHeartbeat([&beats] {
    beats += 'a';
    SetModalDialogHeartbeat([&beats] {
      beats += 'b';
      if (beats.size() == 4) {
        testing::Quit();
      }
    });
  });
  MakeBox().Show(nullptr, 1.0F);
  EXPECT_EQ(beats, "abbb");
  EXPECT_EQ(Recorder().presents(), 4);
}

TEST_F(ModalLoop, ThrowingHeartbeatLeavesNothingBehind) {
  SDL_Window* const parent = MakeParent();
  for (const int frame : {0, 1, 5}) {
    Recorder().Reset();
    DialogScript script;
    script.Wait(frame).Step([] { throw std::runtime_error("host"); });
    EXPECT_THROW(MakeBox().Show(parent, 1.0F), std::runtime_error);
    EXPECT_EQ(Recorder().presents(), frame);
    EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent),
                ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
    Recorder().ExpectNothingAlive();
  }
}

TEST_F(ModalLoop, HeartbeatMayOpenAnotherDialog) {
  SDL_Window* const parent = MakeParent();
  int inner_result = 0;
  SDL_Window* inner_window = nullptr;
  DialogScript script;
  script.Wait()
      .Step([&] {
        SDL_Window* const outer_window = Recorder().newest_window();
        inner_result = MakeBox().Show(outer_window, 1.0F);
        EXPECT_EQ(Recorder().newest_window(), outer_window);
      })
      .Wait()  // From here on the inner box pumps.
      .Step([&] {
        inner_window = Recorder().newest_window();
        testing::KeyDown(SDLK_ESCAPE);
      })
      .Wait()  // The outer box again.
      .Step([] { testing::Quit(); });
  EXPECT_EQ(MakeBox().Show(parent, 1.0F), -1);
  EXPECT_EQ(inner_result, 3);
  ASSERT_THAT(Recorder().windows(), SizeIs(3));
  EXPECT_EQ(Recorder().windows()[2].window, inner_window);
  EXPECT_EQ(Recorder().windows()[2].modal_for, Recorder().windows()[1].window);
}

}  // namespace
}  // namespace quindle::frontend::gui

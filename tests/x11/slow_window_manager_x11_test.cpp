// A window that is mapped in a frame that is not shown yet, or no longer: X11 refuses it the focus,
// and Xlib's own answer to that is the end of the program.

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "support/x11_display.h"

// Last: Xlib's macros would break the headers above.
#include <X11/Xatom.h>

#include "frontend/gui/x11_error_trap.h"
#include "frontend/gui/x11_modal_hints.h"

namespace quindle::frontend::gui {
namespace {

using std::chrono::steady_clock;
using ::testing::HasSubstr;
using testing::PressKey;
using testing::RunX11Tool;
using testing::WaitForX11Focus;
using testing::WaitForX11Step;
using testing::WaitForX11Window;
using testing::X11WindowId;
using testing::X11WindowOf;

constexpr const char* kTitle = "Overwrite?";
constexpr int kCancelId = 8;
constexpr int kNoChoice = -1;

void PushQuit() {
  SDL_Event quit{};
  quit.type = SDL_QUIT;
  SDL_PushEvent(&quit);
}

std::string MapStateOf(X11WindowId window) {
  return RunX11Tool({"xwininfo", "-id", std::to_string(window)});
}

class SlowWindowManager : public testing::X11DialogTest {
 protected:
  static void Start(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), QUINDLE_SLOW_WINDOW_MANAGER);
    // It leaves the focus to the window manager.
    if (testing::IsSdlOnTopOfSdl3()) {
      arguments.emplace_back("--activates");
    }
    StartDisplay(arguments);
  }

  int ShowAnd(const std::function<void()>& steps) {
    SdlMessageBox::Config config;
    config.title = kTitle;
    config.message = "The image exists already.";
    config.buttons = {{7, "Yes", true, false, {}}, {kCancelId, "No", false, true, {}}};
    SdlMessageBox box(config);
    return WhileShowing([&] { return box.Show(Parent(), 1.0F); }, steps);
  }

  // Hides the parent, and every other window, but leaves them mapped in their frames.
  void HideParent() const {
    kill(Manager().Id(), SIGUSR1);
    WaitForX11Step("the parent is hidden", [this] {
      return MapStateOf(ParentId()).find("IsUnviewable") != std::string::npos;
    });
  }
};

// --- A frame that comes late ---------------------------------------------------------------------

class LateFrame : public SlowWindowManager {
 public:
  static void SetUpTestSuite() { Start({"200"}); }
};

TEST_F(LateFrame, DialogGetsTheFocus) {
  EXPECT_EQ(ShowAnd([] {
              WaitForX11Focus(WaitForX11Window(kTitle));
              PressKey("Escape");
            }),
            kCancelId);
  testing::PumpX11Until("the host has the focus again",
                        [this] { return testing::FocusedX11Window() == ParentId(); });
}

TEST_F(LateFrame, DialogHasTheFocusByItsSecondFrame) {
  int frames = 0;
  bool has_focus = false;
  SetModalDialogHeartbeat([&] {
    if (++frames == 2) {
      has_focus = testing::FocusedX11Window() == WaitForX11Window(kTitle);
      PushQuit();
    }
  });
  ShowAnd([] {});
  SetModalDialogHeartbeat({});
  EXPECT_TRUE(has_focus);
}

TEST_F(LateFrame, KeyPressedBeforeTheFrameComesIsNotLost) {
  EXPECT_EQ(ShowAnd([] {
              WaitForX11Step("the window is made", [] {
                return !testing::RunProgram({"xdotool", "search", "--name", kTitle}).out.empty();
              });
              PressKey("Escape");
            }),
            kCancelId);
}

TEST_F(LateFrame, ParentThatIsHiddenMeanwhileIsNoEnd) {
  const auto start = steady_clock::now();
  EXPECT_EQ(ShowAnd([this] {
              WaitForX11Focus(WaitForX11Window(kTitle));
              HideParent();
              PushQuit();
            }),
            kNoChoice);
  EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(8));
}

TEST_F(LateFrame, FocusForAHiddenParentIsNoEnd) {
  HideParent();
  const auto start = steady_clock::now();
  RestoreModalParentFocus(Parent());
  SDL_PumpEvents();
  EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(2));
}

// SDL itself asks for the focus as soon as a window is mapped where it sees no window manager.
class LateFrameOfAnOldWindowManager : public SlowWindowManager {
 public:
  static void SetUpTestSuite() { Start({"200", "--old"}); }
};

TEST_F(LateFrameOfAnOldWindowManager, DialogGetsTheFocus) {
  EXPECT_EQ(ShowAnd([] {
              WaitForX11Focus(WaitForX11Window(kTitle));
              PressKey("Escape");
            }),
            kCancelId);
}

// --- A frame that comes after all waiting --------------------------------------------------------

class VeryLateFrame : public SlowWindowManager {
 public:
  static void SetUpTestSuite() { Start({"1500"}); }
};

// Nothing else tells that the dialog wants the keys: no window of the program has them.
TEST_F(VeryLateFrame, DialogGetsTheFocusThatNobodyHas) {
  Display* const display = FindX11Handle(Parent())->display;
  XSetInputFocus(display, None, RevertToNone, CurrentTime);
  testing::PumpX11Until("no window has the focus",
                        [] { return SDL_GetKeyboardFocus() == nullptr; });
  EXPECT_EQ(ShowAnd([] {
              WaitForX11Focus(WaitForX11Window(kTitle));
              PressKey("Escape");
            }),
            kCancelId);
}

// --- A frame that never comes --------------------------------------------------------------------

class MissingFrame : public SlowWindowManager {
 public:
  static void SetUpTestSuite() { Start({"-1"}); }
};

TEST_F(MissingFrame, DialogRunsAndCanBeEnded) {
  int frames = 0;
  SetModalDialogHeartbeat([&frames] {
    if (++frames == 5) {
      PushQuit();
    }
  });
  const auto start = steady_clock::now();
  EXPECT_EQ(ShowAnd([] {}), kNoChoice);
  SetModalDialogHeartbeat({});
  EXPECT_EQ(frames, 5);
  EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(3));
}

// --- A frame that is told of late, or never -----------------------------------------------------

class LateTitle : public SlowWindowManager {
 public:
  static void SetUpTestSuite() { Start({"120", "--titles", "--shows-at-once"}); }
};

class VeryLateTitle : public SlowWindowManager {
 public:
  static void SetUpTestSuite() { Start({"1000", "--titles"}); }
};

class UntoldFrame : public SlowWindowManager {
 public:
  static void SetUpTestSuite() { Start({"0"}); }
};

// Low enough for a dialog to reach beyond the screen.
void MoveParentDown(SDL_Window* parent) {
  SDL_SetWindowPosition(parent, 200, 900);
  testing::PumpX11Until("the parent is there", [parent] {
    int y = 0;
    SDL_GetWindowPosition(parent, nullptr, &y);
    return y >= 900;
  });
}

// Waits until a dialog's window reaches the screen's lower edge exactly, with a title that its
// window manager tells of, and ends the dialog.
void ExpectAtLowerEdge(const SDL_Rect& screen, int title_height) {
  const X11WindowId window = WaitForX11Window(kTitle);
  WaitForX11Step("the dialog stands at the screen's lower edge", [&] {
    const SDL_Rect frame = testing::X11FrameGeometry(window);
    return frame.h == testing::X11WindowGeometry(window).h + title_height &&
           frame.y + frame.h == screen.y + screen.h;
  });
  PushQuit();
}

SDL_Rect Screen() {
  SDL_Rect screen{};
  EXPECT_EQ(SDL_GetDisplayUsableBounds(0, &screen), 0);
  return screen;
}

TEST_F(LateTitle, DialogBelowTheScreenIsMovedUpWithItsTitle) {
  MoveParentDown(Parent());
  EXPECT_EQ(ShowAnd([screen = Screen()] { ExpectAtLowerEdge(screen, 30); }), kNoChoice);
}

TEST_F(VeryLateTitle, DialogBelowTheScreenIsMovedUpWithItsTitle) {
  MoveParentDown(Parent());
  EXPECT_EQ(ShowAnd([screen = Screen()] { ExpectAtLowerEdge(screen, 30); }), kNoChoice);
}

TEST_F(UntoldFrame, DialogBelowTheScreenIsMovedUp) {
  MoveParentDown(Parent());
  EXPECT_EQ(ShowAnd([screen = Screen()] { ExpectAtLowerEdge(screen, 0); }), kNoChoice);
}

// --- Who hears of an error -----------------------------------------------------------------------

int g_errors_heard = 0;
int Hear(Display* /*display*/, XErrorEvent* /*error*/) {
  ++g_errors_heard;
  return 0;
}

class ErrorTrap : public LateFrame {
 protected:
  void SetUp() override {
    LateFrame::SetUp();
    g_errors_heard = 0;
    former_ = XSetErrorHandler(&Hear);
    own_ = FindX11Handle(Parent())->display;
  }
  void TearDown() override {
    XSetErrorHandler(former_);
    LateFrame::TearDown();
  }

  static void MakeError(Display* display) { XMapWindow(display, 1); }  // There is no such window.

  Display* own_ = nullptr;

 private:
  XErrorHandler former_ = nullptr;
};

TEST_F(ErrorTrap, PassesOverErrorsOfSdlsConnectionWhileItLives) {
  {
    const X11ErrorTrap trap(Parent());
    MakeError(own_);
    XSync(own_, False);
    MakeError(own_);
  }
  XSync(own_, False);
  EXPECT_EQ(g_errors_heard, 0);
}

TEST_F(ErrorTrap, LeavesEarlierAndLaterErrorsToTheHostsHandler) {
  MakeError(own_);
  { const X11ErrorTrap trap(Parent()); }
  EXPECT_EQ(g_errors_heard, 1);
  MakeError(own_);
  XSync(own_, False);
  EXPECT_EQ(g_errors_heard, 2);
}

TEST_F(ErrorTrap, LeavesErrorsOfOtherConnectionsToTheHostsHandler) {
  Display* const other = XOpenDisplay(nullptr);
  {
    const X11ErrorTrap trap(Parent());
    MakeError(other);
    XSync(other, False);
  }
  EXPECT_EQ(g_errors_heard, 1);
  XCloseDisplay(other);
}

TEST_F(ErrorTrap, InsideAnotherLeavesTheOuterOneInForce) {
  {
    const X11ErrorTrap outer(Parent());
    { const X11ErrorTrap inner(Parent()); }
    MakeError(own_);
    XSync(own_, False);
    EXPECT_EQ(g_errors_heard, 0);
  }
  MakeError(own_);
  XSync(own_, False);
  EXPECT_EQ(g_errors_heard, 1);
}

TEST_F(ErrorTrap, DialogLeavesTheHostsHandlerInForce) {
  ShowAnd([] {
    WaitForX11Focus(WaitForX11Window(kTitle));
    PressKey("Escape");
  });
  EXPECT_EQ(XSetErrorHandler(&Hear), &Hear);
}

TEST_F(ErrorTrap, TellsWhoHasTheFocus) {
  const X11ErrorTrap trap(Parent());
  ASSERT_TRUE(trap.WaitUntilViewable());
  XSetInputFocus(own_, ParentId(), RevertToParent, CurrentTime);
  EXPECT_TRUE(trap.CanTakeFocusFrom(Parent()));
  const OwnedSdlWindow hidden(SDL_CreateWindow("Hidden", 0, 0, 320, 200, SDL_WINDOW_HIDDEN));
  EXPECT_FALSE(trap.CanTakeFocusFrom(hidden.get()));
  EXPECT_FALSE(X11ErrorTrap(hidden.get()).CanTakeFocusFrom(Parent()));
  XSetInputFocus(own_, PointerRoot, RevertToNone, CurrentTime);
  EXPECT_TRUE(trap.CanTakeFocusFrom(hidden.get()));
}

TEST_F(ErrorTrap, ReleaseOfAWindowThatIsGoneIsNoEnd) {
  OwnedSdlWindow window(SDL_CreateWindow("Gone", 40, 50, 320, 200, SDL_WINDOW_HIDDEN));
  XDestroyWindow(own_, X11WindowOf(window.get()));
  window.reset();
  XSync(own_, False);
  EXPECT_EQ(g_errors_heard, 0);
}

// What is sent to no window goes to the one under the pointer.
TEST_F(ErrorTrap, ModalStateOfAWindowThatIsGoneIsNobodysToTakeOff) {
  ASSERT_TRUE(X11ErrorTrap(Parent()).WaitUntilViewable());
  Display* const other = XOpenDisplay(nullptr);
  XSelectInput(other, ParentId(), SubstructureNotifyMask);
  XSync(other, False);
  testing::MovePointerTo(ParentId(), 3, 3);
  OwnedSdlWindow window(SDL_CreateWindow("Gone", 40, 50, 320, 200, SDL_WINDOW_HIDDEN));
  XDestroyWindow(own_, X11WindowOf(window.get()));
  UnhintX11Modal(window.get());
  EXPECT_EQ(g_errors_heard, 0);
  window.reset();
  XSync(own_, False);
  XSync(other, False);
  XEvent message{};
  EXPECT_EQ(XCheckTypedEvent(other, ClientMessage, &message), False);
  XCloseDisplay(other);
}

// --- The focus of another program ----------------------------------------------------------------

class FocusOfAnotherProgram : public LateFrame {
 protected:
  void SetUp() override {
    LateFrame::SetUp();
    other_ = XOpenDisplay(nullptr);
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    window_ = XCreateWindow(other_, DefaultRootWindow(other_), 600, 400, 60, 40, 0, CopyFromParent,
                            InputOutput, nullptr, CWOverrideRedirect, &attributes);
    XMapWindow(other_, window_);
    XSync(other_, False);
  }
  void TearDown() override {
    XCloseDisplay(other_);
    LateFrame::TearDown();
  }

  void TakeFocus() const {
    XSetInputFocus(other_, window_, RevertToPointerRoot, CurrentTime);
    XSync(other_, False);
    WaitForX11Focus(window_);
  }

  Display* other_ = nullptr;
  Window window_ = 0;
};

// To SDL the window under the pointer is the host's then, and nobody has the keyboard.
TEST_F(FocusOfAnotherProgram, IsNotTakenWhileThePointerIsOnTheParent) {
  EXPECT_EQ(ShowAnd([this] {
              WaitForX11Focus(WaitForX11Window(kTitle));
              testing::MovePointerTo(ParentId(), 3, 3);
              TakeFocus();
              // A dialog looks after its focus in each of its frames.
              std::this_thread::sleep_for(std::chrono::milliseconds(300));
              EXPECT_EQ(testing::FocusedX11Window(), window_);
              PushQuit();
            }),
            kNoChoice);
}

// --- Where a window and its frame are ------------------------------------------------------------

// SDL is not let hear of anything meanwhile.
class FramedWindow : public ErrorTrap {
 protected:
  void SetFrame(Window window, const std::vector<long>& sides) {
    XChangeProperty(own_, window, XInternAtom(own_, "_NET_FRAME_EXTENTS", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(sides.data()),
                    static_cast<int>(sides.size()));
  }
};

SDL_Point PlaceBySdl(SDL_Window* window) {
  SDL_Point place{};
  SDL_GetWindowPosition(window, &place.x, &place.y);
  return place;
}

TEST_F(FramedWindow, IsWhereTheServerHasIt) {
  const SDL_Point before = PlaceBySdl(Parent());
  ASSERT_NE(before.x, 77);
  XMoveWindow(own_, ParentId(), 77, 88);
  XFlush(own_);
  WaitForX11Step("the window has moved", [this] {
    const SDL_Point now = X11ErrorTrap(Parent()).Position();
    return now.x == 77 && now.y == 88;
  });
  EXPECT_EQ(PlaceBySdl(Parent()).x, before.x);
}

TEST_F(FramedWindow, HasTheFrameThatTheServerKeeps) {
  SetFrame(ParentId(), {3, 4, 30, 5});
  const std::optional<FrameSize> frame = X11ErrorTrap(Parent()).Frame();
  ASSERT_TRUE(frame.has_value());
  EXPECT_EQ(frame->left, 3);
  EXPECT_EQ(frame->right, 4);
  EXPECT_EQ(frame->top, 30);
  EXPECT_EQ(frame->bottom, 5);
}

TEST_F(FramedWindow, HasNoFrameWithoutFourNumbers) {
  EXPECT_FALSE(X11ErrorTrap(Parent()).Frame().has_value());
  SetFrame(ParentId(), {3, 4, 30});
  EXPECT_FALSE(X11ErrorTrap(Parent()).Frame().has_value());
}

TEST_F(FramedWindow, ThatIsGoneIsWhereSdlKnewItAndNotOnTheScreen) {
  OwnedSdlWindow window(SDL_CreateWindow("Gone", 40, 50, 320, 200, SDL_WINDOW_HIDDEN));
  ASSERT_NE(window, nullptr);
  const SDL_Point known = PlaceBySdl(window.get());
  XDestroyWindow(own_, X11WindowOf(window.get()));
  {
    const X11ErrorTrap trap(window.get());
    EXPECT_EQ(trap.Position().x, known.x);
    EXPECT_EQ(trap.Position().y, known.y);
    EXPECT_FALSE(trap.Frame().has_value());
    EXPECT_FALSE(trap.IsOnScreen());
  }
  // SDL's own request to take it away fails while the errors are still listened to.
  window.reset();
  XSync(own_, False);
}

}  // namespace
}  // namespace quindle::frontend::gui

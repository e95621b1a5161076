#pragma once

/// Real windows for tests: an X server of the test's own with a window manager, and a user's hands.
///
/// Most tests want one of the two fixtures at the end. A dialog blocks the thread that shows it, so
/// the hands work on another one:
///
///     TEST_F(MyX11Test, EscapeCancels) {
///       const std::string path = WhileShowing([&] { return ShowMyDialog(Parent()); }, [] {
///         const X11WindowId dialog = WaitForX11Window("My dialog");
///         PressKey("Escape");
///       });
///       EXPECT_EQ(path, "");
///     }
///
/// A program under test is driven from the test's own thread:
///
///     ChildProcess program({QUINDLE_DEMO_PROGRAM, "floppy", "--start", folder});
///     ClickAt(WaitForX11Window("Floppy image"), 40, 80);
///     const ProgramResult result = WaitForProgram(&program);
///
/// Every waiting function gives up after ten seconds with X11StepError, which fails the test with
/// its message. Link quindle_x11_support, and never the call recorder, which has no real windows.

#include <SDL.h>
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "support/child_process.h"
#include "support/wait_until.h"
#include "support/window_manager.h"

namespace quindle::testing {

/// An X11 window's id, as xdotool and xprop print it.
using X11WindowId = unsigned long;

/// Something that a step waited for did not happen, or a tool failed.
class X11StepError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An X server on a free display, 1280 x 1024 pixels of 24 bits, with a window manager. While it
/// lives, DISPLAY and SDL_VIDEODRIVER of this process name it.
class X11Display {
 public:
  /// Starts both and waits until they answer. Throws std::runtime_error when one is missing.
  /// `window_manager` is what WindowManager takes; without one when it is empty.
  explicit X11Display(const std::vector<std::string>& window_manager = {"openbox"});
  ~X11Display();
  X11Display(const X11Display&) = delete;
  X11Display& operator=(const X11Display&) = delete;

  /// The display's name, for example ":3".
  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const WindowManager& Manager() const { return *window_manager_; }

 private:
  std::string name_;
  std::unique_ptr<ChildProcess> server_;
  std::unique_ptr<WindowManager> window_manager_;
  std::optional<std::string> former_display_;
  std::optional<std::string> former_driver_;
};

/// Runs xdotool, xprop or the like and returns what it prints, without the last line feed.
std::string RunX11Tool(const std::vector<std::string>& command);

/// The visible window of exactly this title, once there is one.
X11WindowId WaitForX11Window(const std::string& title);

/// How many visible windows have exactly this title now.
std::size_t CountX11Windows(const std::string& title);

/// Waits until the window manager has put `window` where it stays; a click before that may miss.
void WaitForX11WindowToRest(X11WindowId window);

/// Waits until no visible window has this title.
void WaitForX11WindowGone(const std::string& title);

/// Waits for `condition`; `what` names it in the failure message.
void WaitForX11Step(const std::string& what, const std::function<bool()>& condition);

/// The window that receives the keys.
X11WindowId FocusedX11Window();

/// Waits until `window` receives the keys.
void WaitForX11Focus(X11WindowId window);

/// A property as xprop prints it behind the "=" or "#", for example "window id # 0x400006"; empty
/// when the window has no such property.
std::string X11Property(X11WindowId window, const std::string& name);

/// The client area on the screen, in pixels, without the window manager's frame.
SDL_Rect X11WindowGeometry(X11WindowId window);
/// The same with the window manager's frame.
SDL_Rect X11FrameGeometry(X11WindowId window);

/// Moves the pointer to (x, y) in the window, in pixels.
void MovePointerTo(X11WindowId window, int x, int y);
/// Clicks with the left mouse button.
void ClickAt(X11WindowId window, int x, int y);
/// Clicks twice, faster than any double-click time.
void DoubleClickAt(X11WindowId window, int x, int y);
/// Presses the left button at (x1, y1), moves in four steps to (x2, y2) and releases it there.
void DragFromTo(X11WindowId window, int x1, int y1, int x2, int y2);
/// Turns the wheel by `notches` at (x, y): up when positive, down when negative.
void TurnWheelAt(X11WindowId window, int x, int y, int notches);
/// Presses and releases a key, named as xdotool names it: "Escape", "Return", "ctrl+a".
void PressKey(const std::string& key);
/// Types a text, key by key, into the window that has the focus.
void TypeText(const std::string& text);
/// Waits until the window has the focus, and has the window manager close it, as its title bar
/// does.
void CloseByWindowManager(X11WindowId window);

/// Saves what the window shows as a PNG file.
void SaveX11Screenshot(X11WindowId window, const std::string& path);

/// The colour of one pixel of the window, as "#RRGGBB".
std::string X11PixelColour(X11WindowId window, int x, int y);

/// SDL2's interface on SDL3, whose X11 windows behave otherwise in places. It shows in the version
/// alone.
bool IsSdlOnTopOfSdl3();

/// Waits for a program's end. Throws X11StepError, with what it has printed, when it does not end.
ProgramResult WaitForProgram(ChildProcess* program);

/// Runs `steps` on a thread of its own. An exception in them fails the test. When they are over the
/// dialog must end within ten seconds; otherwise the test fails and quit events end the dialog.
class X11Hands {
 public:
  explicit X11Hands(std::function<void()> steps);
  ~X11Hands();
  X11Hands(const X11Hands&) = delete;
  X11Hands& operator=(const X11Hands&) = delete;

 private:
  void Run();

  std::function<void()> steps_;
  std::atomic<bool> dialog_ended_{false};
  std::thread thread_;
};

/// Tests of this fixture have a display; one serves all tests of the suite. A fixture derived from
/// it chooses the window manager in a SetUpTestSuite of its own.
class X11DisplayTest : public ::testing::Test {
 public:
  static void SetUpTestSuite();
  static void StartDisplay(const std::vector<std::string>& window_manager);
  static void TearDownTestSuite();

 protected:
  /// Calls `show`, which blocks, while `steps` run beside it; returns what `show` returns.
  template <typename Show>
  static std::invoke_result_t<Show> WhileShowing(Show show, std::function<void()> steps) {
    const X11Hands hands(std::move(steps));
    return show();
  }

  static const WindowManager& Manager() { return display_->Manager(); }

 private:
  static std::unique_ptr<X11Display> display_;
};

/// Tests of this fixture have SDL video running on the display, and a host window with the focus.
class X11DialogTest : public X11DisplayTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// The host's window: titled "Host", 640 x 480 pixels.
  [[nodiscard]] SDL_Window* Parent() const { return parent_; }
  /// The X11 window of Parent().
  [[nodiscard]] X11WindowId ParentId() const;

 private:
  SDL_Window* parent_ = nullptr;
};

/// The X11 window behind an SDL window.
X11WindowId X11WindowOf(SDL_Window* window);

/// Handles SDL's events on the calling thread, the one of SDL video, until `condition` holds.
/// Throws X11StepError, naming `what`, when it never does.
void PumpX11Until(const std::string& what, const std::function<bool()>& condition);

}  // namespace quindle::testing

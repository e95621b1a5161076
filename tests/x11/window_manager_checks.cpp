#include "window_manager_checks.h"

#include <SDL.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <sstream>
#include <thread>

#include "support/child_process.h"
#include "support/wait_until.h"
#include "support/x11_display.h"

namespace quindle::demo {
namespace {

using testing::ChildProcess;
using testing::ClickAt;
using testing::PressKey;
using testing::RunX11Tool;
using testing::WaitForX11Window;
using testing::WaitForX11WindowGone;
using testing::WaitForX11WindowToRest;
using testing::X11Property;
using testing::X11StepError;
using testing::X11WindowId;

constexpr const char* kHostTitle = "Quindle demo host";
constexpr const char* kBoxTitle = "Message box";
constexpr const char* kBoxKey = "1";
constexpr const char* kHddTitle = "Create HDD Image";
constexpr const char* kHddKey = "6";
constexpr const char* kPickerTitle = "Select HDD Output Folder";
constexpr SDL_Point kChoose{735, 210};
constexpr SDL_Point kHostCorner{8, 8};  // Where no dialog covers the host.

// There is no such thing under this window manager.
class NotThere : public std::exception {};

// The window that gets the keys. Under twm the X focus may be nowhere; then they go to the window
// that the pointer is in.
X11WindowId WindowOfKeys() {
  const std::string focused = testing::RunProgram({"xdotool", "getwindowfocus", "-f"}).out;
  if (focused != "1\n") {
    return std::strtoul(focused.c_str(), nullptr, 10);
  }
  const std::string under = testing::RunProgram({"xdotool", "getmouselocation", "--shell"}).out;
  const std::size_t number = under.find("WINDOW=");
  return number == std::string::npos ? 0 : std::stoul(under.substr(number + 7));
}

void WaitForKeys(X11WindowId window) {
  testing::WaitForX11Step("window " + std::to_string(window) + " gets the keys",
                          [window] { return WindowOfKeys() == window; });
}

void Expect(bool condition, const std::string& what) {
  if (!condition) {
    throw X11StepError(what);
  }
}

// For what must not happen: long enough for a window manager to have done it.
void LetTheWindowManagerAct() {
  std::this_thread::sleep_for(std::chrono::milliseconds(700));
}

// The screen without the window manager's own bars, as far as it says.
SDL_Rect UsableArea() {
  const std::string text = testing::RunProgram({"xprop", "-root", "_NET_WORKAREA"}).out;
  const std::size_t numbers = text.find("= ");
  SDL_Rect area{0, 0, 1280, 1024};
  char comma = 0;
  if (numbers != std::string::npos) {
    std::istringstream(text.substr(numbers + 2)) >> area.x >> comma >> area.y >> comma >> area.w >>
        comma >> area.h;
  }
  return area;
}

bool Lies(const SDL_Rect& rect, const SDL_Rect& in) {
  SDL_Rect both{};
  return SDL_IntersectRect(&rect, &in, &both) == SDL_TRUE && SDL_RectEquals(&both, &rect);
}

class Checks {
 public:
  explicit Checks(const std::vector<std::string>& window_manager)
      : display_(window_manager), program_({QUINDLE_DEMO_PROGRAM}) {
    host_ = WaitForX11Window(kHostTitle);
    WaitForX11WindowToRest(host_);
    FocusHost();
  }

  std::vector<WindowManagerCheck> Run() {
    Try("opens", [this] { box_ = Open(kBoxKey, kBoxTitle); });
    Try("focus", [this] { WaitForKeys(box_); });
    Try("transient", [this] { ExpectTransient(); });
    Try("modal", [this] { ExpectProperty("_NET_WM_STATE", "_NET_WM_STATE_MODAL"); });
    Try("dialog type",
        [this] { ExpectProperty("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DIALOG"); });
    Try("click on parent", [this] { ExpectFocusStaysOn(box_, {host_}); });
    Try("Escape", [] { PressAndExpectGone("Escape", kBoxTitle); });
    Try("focus back", [this] { WaitForKeys(host_); });
    Try("nested picker", [this] { UseNestedPicker(); });
    Try("closed by WM", [this] { CloseByWindowManager(); });
    Try("on screen", [this] { OpenAtScreensEdge(); });
    Try("parent minimised", [this] { CloseWithParentMinimised(); });
    Try("parent on other desktop", [this] { CloseWithParentOnOtherDesktop(); });
    Try("host alive", [this] { EndHost(); });
    return checks_;
  }

 private:
  void Try(const std::string& name, const std::function<void()>& steps) {
    WindowManagerCheck check{name, "yes", ""};
    try {
      Expect(program_.IsRunning(), "the host has ended before: " + program_.Output().err);
      steps();
    } catch (const NotThere&) {
      check.outcome = "-";
    } catch (const std::exception& error) {
      check.outcome = "NO";
      check.why = error.what();
    }
    checks_.push_back(check);
  }

  void FocusHost() const {
    // Under some the focus follows the pointer, under others the click. A click that comes before
    // the window manager has done with the window goes by unheard.
    try {
      ClickAt(host_, kHostCorner.x, kHostCorner.y);
      WaitForKeys(host_);
    } catch (const X11StepError&) {
      ClickAt(host_, kHostCorner.x, kHostCorner.y);
      WaitForKeys(host_);
    }
  }

  static X11WindowId Open(const char* key, const char* title) {
    PressKey(key);
    const X11WindowId window = WaitForX11Window(title);
    WaitForX11WindowToRest(window);
    return window;
  }

  static X11WindowId OpenFocused(const char* key, const char* title) {
    const X11WindowId window = Open(key, title);
    WaitForKeys(window);
    return window;
  }

  static void PressAndExpectGone(const char* key, const char* title) {
    PressKey(key);
    WaitForX11WindowGone(title);
  }

  void ExpectTransient() const {
    const std::string owner = X11Property(box_, "WM_TRANSIENT_FOR");
    const std::size_t number = owner.find("0x");
    Expect(number != std::string::npos && std::stoul(owner.substr(number), nullptr, 16) == host_,
           "the box belongs to " + owner);
  }

  void ExpectProperty(const char* name, const char* content) const {
    const std::string value = X11Property(box_, name);
    Expect(value.find(content) != std::string::npos, std::string(name) + " is " + value);
  }

  static void ExpectFocusStaysOn(X11WindowId window, const std::vector<X11WindowId>& clicked) {
    for (const X11WindowId other : clicked) {
      ClickAt(other, kHostCorner.x, kHostCorner.y);
      LetTheWindowManagerAct();
      const X11WindowId focused = WindowOfKeys();
      Expect(focused == window, "the focus has gone to " + std::to_string(focused) +
                                    " by a click on " + std::to_string(other));
    }
  }

  void UseNestedPicker() const {
    const X11WindowId dialog = OpenFocused(kHddKey, kHddTitle);
    ClickAt(dialog, kChoose.x, kChoose.y);
    const X11WindowId picker = WaitForX11Window(kPickerTitle);
    WaitForX11WindowToRest(picker);
    WaitForKeys(picker);
    ExpectFocusStaysOn(picker, {dialog, host_});
    PressAndExpectGone("Escape", kPickerTitle);
    WaitForKeys(dialog);
    PressAndExpectGone("Escape", kHddTitle);
    WaitForKeys(host_);
  }

  void CloseByWindowManager() const {
    const X11WindowId box = OpenFocused(kBoxKey, kBoxTitle);
    // Twm asks the pointer which window is meant.
    testing::MovePointerTo(box, kHostCorner.x, kHostCorner.y);
    testing::WaitForX11Focus(box);
    PressKey("alt+F4");
    WaitForX11WindowGone(kBoxTitle);
    WaitForKeys(host_);
  }

  void OpenAtScreensEdge() const {
    const std::string id = std::to_string(host_);
    RunX11Tool({"xdotool", "windowsize", id, "500", "440", "windowmove", id, "740", "500"});
    WaitForX11WindowToRest(host_);
    FocusHost();
    const X11WindowId dialog = OpenFocused(kHddKey, kHddTitle);
    // A window manager that tells of no frame is waited for before the dialog is moved.
    const SDL_Rect area = UsableArea();
    SDL_Rect frame{};
    const bool lies = testing::WaitUntil([&] {
      frame = testing::X11FrameGeometry(dialog);
      return Lies(frame, area);
    });
    PressAndExpectGone("Escape", kHddTitle);
    WaitForKeys(host_);
    Expect(lies, "its frame begins at " + std::to_string(frame.x) + ", " + std::to_string(frame.y));
  }

  // The window manager may have hidden the dialog with its parent, so the key is sent to it.
  void CloseUnseen(X11WindowId window) {
    RunX11Tool({"xdotool", "key", "--window", std::to_string(window), "Escape"});
    testing::WaitForX11Step("the dialog closes", [&] {
      return testing::RunProgram({"xprop", "-id", std::to_string(window), "WM_NAME"}).exit_status !=
             0;
    });
    LetTheWindowManagerAct();
    Expect(program_.IsRunning(), "the host has ended: " + program_.Output().err);
  }

  void CloseWithParentMinimised() {
    const X11WindowId box = OpenFocused(kBoxKey, kBoxTitle);
    RunX11Tool({"xdotool", "windowminimize", std::to_string(host_)});
    LetTheWindowManagerAct();
    const bool minimised = X11Property(host_, "WM_STATE").find("Iconic") != std::string::npos;
    CloseUnseen(box);
    BringHostBack();
    if (!minimised) {
      throw NotThere();
    }
  }

  void CloseWithParentOnOtherDesktop() {
    testing::RunProgram({"xdotool", "set_num_desktops", "2"});
    const X11WindowId box = OpenFocused(kBoxKey, kBoxTitle);
    testing::RunProgram({"xdotool", "set_desktop_for_window", std::to_string(host_), "1"});
    LetTheWindowManagerAct();
    const bool moved = X11Property(host_, "_NET_WM_DESKTOP") == "1";
    CloseUnseen(box);
    testing::RunProgram({"xdotool", "set_desktop_for_window", std::to_string(host_), "0"});
    BringHostBack();
    if (!moved) {
      throw NotThere();
    }
  }

  void BringHostBack() const {
    testing::RunProgram({"xdotool", "windowmap", std::to_string(host_)});
    testing::RunProgram({"xdotool", "windowactivate", std::to_string(host_)});
    WaitForX11Window(kHostTitle);
    WaitForX11WindowToRest(host_);
    FocusHost();
  }

  void EndHost() {
    const X11WindowId box = OpenFocused(kBoxKey, kBoxTitle);
    PressAndExpectGone("Escape", kBoxTitle);
    WaitForKeys(host_);
    Expect(box != host_ && program_.IsRunning(), "the host has ended");
  }

  testing::X11Display display_;
  ChildProcess program_;
  X11WindowId host_ = 0;
  X11WindowId box_ = 0;
  std::vector<WindowManagerCheck> checks_;
};

}  // namespace

std::vector<WindowManagerCheck> RunWindowManagerChecks(
    const std::vector<std::string>& window_manager) {
  return Checks(window_manager).Run();
}

}  // namespace quindle::demo

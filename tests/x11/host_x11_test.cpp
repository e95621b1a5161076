// Dialogs over a host that renders with OpenGL, captures the mouse or fills the screen, in real
// windows.

#include <SDL.h>
#include <SDL_opengl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/every_dialog.h"
#include "support/temporary_directory.h"
#include "support/x11_display.h"

namespace quindle::testing {
namespace {

using frontend::gui::SetModalDialogHeartbeat;
using ::testing::Combine;
using ::testing::HasSubstr;
using ::testing::Values;
using ::testing::ValuesIn;
using ::testing::WithParamInterface;

// A hint of SDL's while it lives; empty leaves the choice to SDL.
class ScopedHint {
 public:
  ScopedHint(const char* name, const char* value) : name_(name) {
    if (*value != '\0') {
      SDL_SetHint(name, value);
    }
  }
  ~ScopedHint() { SDL_ResetHint(name_); }
  ScopedHint(const ScopedHint&) = delete;
  ScopedHint& operator=(const ScopedHint&) = delete;
  ScopedHint(ScopedHint&&) = delete;
  ScopedHint& operator=(ScopedHint&&) = delete;

 private:
  const char* name_;
};

class HostX11 : public X11DialogTest {
 protected:
  void TearDown() override {
    SetModalDialogHeartbeat({});
    frontend::gui::ShutdownSdlUiCachedFonts();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    X11DialogTest::TearDown();
  }
};

std::string ContentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// All that a window shows; equal for equal pictures.
std::string PictureOf(X11WindowId window) {
  const TemporaryDirectory folder;
  const std::string path = folder.path() / "window.ppm";
  SaveX11Screenshot(window, path);
  return ContentOf(path);
}

// --- OpenGL --------------------------------------------------------------------------------------

// A host's window with a context of OpenGL 3.3, which is current. It shows one colour at a time.
class OpenGlHost {
 public:
  OpenGlHost() {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 3);
    window_ = SDL_CreateWindow("OpenGL host", 10, 10, 320, 240, SDL_WINDOW_OPENGL);
    context_ = SDL_GL_CreateContext(window_);
    EXPECT_NE(context_, nullptr) << SDL_GetError();
    Load("glClear", &clear_);
    Load("glClearColor", &clear_colour_);
    Load("glGetIntegerv", &get_integer_);
    Load("glReadPixels", &read_pixels_);
  }
  ~OpenGlHost() {
    SDL_GL_DeleteContext(context_);
    frontend::gui::DestroySdlWindow(window_);
  }
  OpenGlHost(const OpenGlHost&) = delete;
  OpenGlHost& operator=(const OpenGlHost&) = delete;
  OpenGlHost(OpenGlHost&&) = delete;
  OpenGlHost& operator=(OpenGlHost&&) = delete;

  SDL_Window* window() const { return window_; }

  bool IsCurrent() const {
    return SDL_GL_GetCurrentContext() == context_ && SDL_GL_GetCurrentWindow() == window_;
  }

  // Fills the window with a colour, one of 256, and says whether it was drawn there.
  bool Show(Uint8 colour) const {
    clear_colour_(static_cast<float>(colour) / 255.0F, 0.5F, 1.0F, 1.0F);
    clear_(GL_COLOR_BUFFER_BIT);
    std::array<Uint8, 4> drawn{};
    read_pixels_(100, 100, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, drawn.data());
    SDL_GL_SwapWindow(window_);
    return drawn[0] == colour && drawn[2] == 255;
  }

  // Whether a context made now is of the core profile, as asked for.
  bool MakesCoreContexts() const {
    const SDL_GLContext second = SDL_GL_CreateContext(window_);
    GLint profile = 0;
    get_integer_(GL_CONTEXT_PROFILE_MASK, &profile);
    SDL_GL_DeleteContext(second);
    SDL_GL_MakeCurrent(window_, context_);
    return second != nullptr && profile == GL_CONTEXT_CORE_PROFILE_BIT;
  }

 private:
  template <typename Function>
  static void Load(const char* name, Function* function) {
    *function = reinterpret_cast<Function>(SDL_GL_GetProcAddress(name));
  }

  SDL_Window* window_ = nullptr;
  SDL_GLContext context_ = nullptr;
  decltype(&glClear) clear_ = nullptr;
  decltype(&glClearColor) clear_colour_ = nullptr;
  decltype(&glGetIntegerv) get_integer_ = nullptr;
  decltype(&glReadPixels) read_pixels_ = nullptr;
};

void PushQuit() {
  SDL_Event quit{};
  quit.type = SDL_QUIT;
  SDL_PushEvent(&quit);
}

// The dialog, and the driver of its renderer; empty: the one that SDL takes.
using DialogAndDriver = std::tuple<NamedDialog, const char*>;

class OpenGlHostX11 : public HostX11, public WithParamInterface<DialogAndDriver> {
 protected:
  static const NamedDialog& Dialog() { return std::get<0>(GetParam()); }

  ScopedHint driver_{SDL_HINT_RENDER_DRIVER, std::get<1>(GetParam())};
};

TEST_P(OpenGlHostX11, DrawsInEachHeartbeatAndAfterwards) {
  const OpenGlHost host;
  int beats = 0;
  int good_beats = 0;
  SetModalDialogHeartbeat([&] {
    ++beats;
    good_beats += host.IsCurrent() && host.Show(static_cast<Uint8>(10 * beats)) ? 1 : 0;
    if (beats == 10) {
      PushQuit();
    }
  });
  Dialog().show(host.window());
  EXPECT_EQ(good_beats, 10);
  EXPECT_EQ(beats, 10);
  EXPECT_TRUE(host.IsCurrent());
  EXPECT_TRUE(host.Show(170));
  EXPECT_TRUE(host.MakesCoreContexts());
}

std::string NameOfDriverTest(const ::testing::TestParamInfo<DialogAndDriver>& test) {
  const std::string driver = std::get<1>(test.param);
  return std::string(std::get<0>(test.param).name) + "_" + (driver.empty() ? "default" : driver);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, OpenGlHostX11,
                         Combine(ValuesIn(EveryDialog()), Values("", "opengles2", "software")),
                         NameOfDriverTest);

// The dialogs' pictures must not suffer from the host's drawing in between.
class OpenGlPictureX11 : public HostX11, public WithParamInterface<DialogAndDriver> {
 protected:
  // What the dialog shows while the heartbeat runs; the host's window is `parent`.
  std::string PictureWith(SDL_Window* parent, const std::function<void()>& heartbeat) {
    std::atomic<int> beats{0};
    SetModalDialogHeartbeat([&] {
      ++beats;
      heartbeat();
    });
    const NamedDialog& dialog = std::get<0>(GetParam());
    std::string picture;
    const X11Hands hands([&] {
      const X11WindowId window = WaitForX11Window(dialog.title);
      WaitForX11Focus(window);
      WaitForX11WindowToRest(window);
      WaitForX11Step("ten more frames",
                     [&beats, start = beats.load()] { return beats > start + 10; });
      picture = PictureOf(window);
      PressKey("Escape");
    });
    dialog.show(parent);
    SetModalDialogHeartbeat({});
    return picture;
  }

  ScopedHint driver_{SDL_HINT_RENDER_DRIVER, std::get<1>(GetParam())};
};

TEST_P(OpenGlPictureX11, OfADialogIsTheSameWhetherTheHostDrawsOrNot) {
  MovePointerTo(ParentId(), 2, 2);
  const OpenGlHost host;
  const std::string drawn_beside = PictureWith(Parent(), [&] { host.Show(90); });
  SDL_GL_MakeCurrent(nullptr, nullptr);
  const std::string alone = PictureWith(Parent(), [] {});
  EXPECT_GT(drawn_beside.size(), 10'000U);
  EXPECT_TRUE(drawn_beside == alone);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, OpenGlPictureX11,
                         Combine(Values(EveryDialog().front(), EveryDialog()[7]),
                                 Values("", "opengles2", "software")),
                         NameOfDriverTest);

class OpenGlX11 : public HostX11 {};

TEST_F(OpenGlX11, ShowsOnTheScreenWhatTheHostDraws) {
  const OpenGlHost host;
  const X11WindowId host_id = X11WindowOf(host.window());
  SetModalDialogHeartbeat([&] { host.Show(0x50); });
  std::string while_open;
  const X11Hands hands([&] {
    WaitForX11Focus(WaitForX11Window(EveryDialog().front().title));
    // In front of where the dialog stands.
    WaitForX11Step("the host's colour", [&] {
      while_open = X11PixelColour(host_id, 20, 20);
      return while_open.starts_with("#50");
    });
    PressKey("Escape");
  });
  EveryDialog().front().show(host.window());
  EXPECT_EQ(while_open.substr(0, 3), "#50");
  EXPECT_EQ(while_open.substr(5, 2), "FF");
}

TEST_F(OpenGlX11, KeepsItsContextFromADialogOfADialog) {
  const OpenGlHost host;
  int beats = 0;
  int good_beats = 0;
  bool is_nested = false;
  SetModalDialogHeartbeat([&] {
    ++beats;
    good_beats += host.IsCurrent() && host.Show(static_cast<Uint8>(beats)) ? 1 : 0;
    if (beats == 5 && !is_nested) {
      is_nested = true;
      EveryDialog().front().show(host.window());
      good_beats += host.IsCurrent() ? 0 : -1;
    } else if (beats >= 10) {
      PushQuit();
    }
  });
  EveryDialog().back().show(host.window());
  EXPECT_TRUE(is_nested);
  EXPECT_GE(beats, 11);
  EXPECT_EQ(good_beats, beats);
  EXPECT_TRUE(host.IsCurrent());
}

// Where SDL works through EGL it has one swap interval for all windows.
class EglX11 : public HostX11 {
 protected:
  ScopedHint egl_{SDL_HINT_VIDEO_X11_FORCE_EGL, "1"};
};

TEST_F(EglX11, KeepsTheHostsSwapInterval) {
  const OpenGlHost host;
  ASSERT_EQ(SDL_GL_SetSwapInterval(1), 0) << SDL_GetError();
  SetModalDialogHeartbeat(PushQuit);
  EveryDialog().front().show(host.window());
  EXPECT_EQ(SDL_GL_GetSwapInterval(), 1);
}

// --- Mouse ---------------------------------------------------------------------------------------

// The centre of the message box's first button: the box is 420 pixels wide, its row ends 30 from
// the right, its two buttons are 84 wide and 8 apart, 28 high in a footer of 52 above 10 pixels.
constexpr int kYesX = 420 - 30 - 84 - 8 - 42;

int YesY(X11WindowId box) {
  return X11WindowGeometry(box).h - 10 - 26;
}

// Shows a message box and clicks on "Yes" in it; the id of what was chosen.
int ClickYes(SDL_Window* parent) {
  frontend::gui::SdlMessageBox::Config config;
  config.title = "Really?";
  config.message = "The disk is in use.";
  config.buttons = {{7, "Yes", true, false, {}}, {8, "No", false, true, {}}};
  const X11Hands hands([] {
    const X11WindowId box = WaitForX11Window("Really?");
    WaitForX11Focus(box);
    WaitForX11WindowToRest(box);
    ClickAt(box, kYesX, YesY(box));
    // Without a click that arrives the box would stay.
    if (!WaitUntil([] { return CountX11Windows("Really?") == 0; })) {
      PressKey("Escape");
    }
  });
  return frontend::gui::SdlMessageBox(config).Show(parent, 1.0F);
}

class MouseX11 : public HostX11 {
 protected:
  void WaitForFocusBack() const {
    PumpX11Until("the host has the focus", [this] {
      return SDL_GetKeyboardFocus() == Parent() && FocusedX11Window() == ParentId();
    });
  }

  // Where the pointer is on the screen.
  static SDL_Point Pointer() {
    SDL_Point pointer{-1, -1};
    std::istringstream text(RunX11Tool({"xdotool", "getmouselocation"}));
    std::string x;
    std::string y;
    text >> x >> y;
    pointer.x = std::stoi(x.substr(2));
    pointer.y = std::stoi(y.substr(2));
    return pointer;
  }

  SDL_Rect HostArea() const { return X11WindowGeometry(ParentId()); }
};

TEST_F(MouseX11, CapturedByTheHostIsFreeForADialogAndCapturedAgain) {
  MovePointerTo(ParentId(), 320, 240);
  ASSERT_EQ(SDL_SetRelativeMouseMode(SDL_TRUE), 0) << SDL_GetError();
  EXPECT_EQ(ClickYes(Parent()), 7);
  EXPECT_TRUE(SDL_GetRelativeMouseMode());

  WaitForFocusBack();
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  RunX11Tool({"xdotool", "mousemove_relative", "--", "40", "-30"});
  SDL_Point moved{0, 0};
  PumpX11Until("relative motion", [&moved] {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
      if (event.type == SDL_MOUSEMOTION) {
        moved.x += event.motion.xrel;
        moved.y += event.motion.yrel;
      }
    }
    return moved.x > 0 && moved.y < 0;
  });
}

TEST_F(MouseX11, ThatTheHostGrabsWorksInADialogAndIsGrabbedAgain) {
  SDL_SetWindowMouseGrab(Parent(), SDL_TRUE);
  EXPECT_EQ(ClickYes(Parent()), 7);
  WaitForFocusBack();
  EXPECT_TRUE(SDL_GetWindowMouseGrab(Parent()));
  RunX11Tool({"xdotool", "mousemove", "5", "5"});
  const SDL_Point pointer = Pointer();
  const SDL_Rect area = HostArea();
  EXPECT_TRUE(SDL_PointInRect(&pointer, &area)) << pointer.x << ", " << pointer.y;
}

TEST_F(MouseX11, ThatTheHostConfinesWorksInADialogAndIsConfinedAgain) {
  const SDL_Rect corner{0, 0, 20, 20};
  SDL_SetWindowMouseRect(Parent(), &corner);
  MovePointerTo(ParentId(), 10, 10);
  SDL_PumpEvents();
  EXPECT_EQ(ClickYes(Parent()), 7);
  WaitForFocusBack();
  const SDL_Rect* const still = SDL_GetWindowMouseRect(Parent());
  ASSERT_NE(still, nullptr);
  EXPECT_TRUE(SDL_RectEquals(still, &corner));
}

TEST_F(MouseX11, AndKeyboardThatTheHostGrabsWorkInADialog) {
  SDL_SetWindowKeyboardGrab(Parent(), SDL_TRUE);
  EXPECT_EQ(ClickYes(Parent()), 7);
  WaitForFocusBack();
  EXPECT_TRUE(SDL_GetWindowKeyboardGrab(Parent()));
  const X11Hands hands([] {
    WaitForX11Focus(WaitForX11Window(EveryDialog().back().title));
    PressKey("Escape");
  });
  EveryDialog().back().show(Parent());
}

TEST_F(MouseX11, ThatTheHostCapturesWithItsButtonsWorksInADialog) {
  SDL_CaptureMouse(SDL_TRUE);
  EXPECT_EQ(ClickYes(Parent()), 7);
}

// --- Full screen ---------------------------------------------------------------------------------

class FullScreenX11 : public HostX11, public WithParamInterface<NamedDialog> {
 protected:
  void SetUp() override {
    HostX11::SetUp();
    ASSERT_EQ(SDL_SetWindowFullscreen(Parent(), SDL_WINDOW_FULLSCREEN_DESKTOP), 0);
    PumpX11Until("the host fills the screen", [this] { return FillsTheScreen(); });
  }

  // SDL3 may end the program when it destroys a window that fills the screen.
  void TearDown() override {
    SDL_SetWindowFullscreen(Parent(), 0);
    PumpX11Until("the host has left the full screen", [this] { return !FillsTheScreen(); });
    HostX11::TearDown();
  }

  bool FillsTheScreen() const {
    const SDL_Rect area = X11WindowGeometry(ParentId());
    const std::string state = X11Property(ParentId(), "_NET_WM_STATE");
    return area.x == 0 && area.y == 0 && area.w == 1280 && area.h == 1024 &&
           state.find("_NET_WM_STATE_FULLSCREEN") != std::string::npos;
  }
};

std::string HexId(X11WindowId window) {
  std::ostringstream text;
  text << "0x" << std::hex << window;
  return text.str();
}

std::string TopmostWindow() {
  const std::string list = RunX11Tool({"xprop", "-root", "_NET_CLIENT_LIST_STACKING"});
  return list.substr(list.rfind(' ') + 1);
}

TEST_P(FullScreenX11, HostKeepsTheScreenUnderADialog) {
  std::string topmost;
  std::string dialog_id;
  bool fills = false;
  const X11Hands hands([&] {
    const X11WindowId dialog = WaitForX11Window(GetParam().title);
    WaitForX11Focus(dialog);
    WaitForX11WindowToRest(dialog);
    dialog_id = HexId(dialog);
    topmost = TopmostWindow();
    fills = FillsTheScreen();
    PressKey("Escape");
  });
  GetParam().show(Parent());
  EXPECT_EQ(topmost, dialog_id);
  EXPECT_TRUE(fills);
  PumpX11Until("the host has the focus", [this] {
    return SDL_GetKeyboardFocus() == Parent() && FocusedX11Window() == ParentId();
  });
  EXPECT_TRUE(FillsTheScreen());
  EXPECT_EQ(SDL_GetWindowFlags(Parent()) & SDL_WINDOW_MINIMIZED, 0U);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, FullScreenX11, ValuesIn(EveryDialog()), NameOfDialogTest);

}  // namespace
}  // namespace quindle::testing

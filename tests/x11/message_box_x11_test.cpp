// The message box as a user meets it: a real window under a window manager.

#include "frontend/gui/sdl_message_box.h"

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <sstream>
#include <string>
#include <thread>

#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/window_focus.h"
#include "support/x11_display.h"
#include "support/x11_requests.h"

namespace quindle::frontend::gui {
namespace {

using testing::ClickAt;
using testing::CloseByWindowManager;
using testing::FocusedX11Window;
using ::testing::HasSubstr;
using testing::MovePointerTo;
using testing::PressKey;
using testing::PumpX11Until;
using testing::WaitForX11Focus;
using testing::WaitForX11Step;
using testing::WaitForX11Window;
using testing::X11FrameGeometry;
using testing::X11PixelColour;
using testing::X11Property;
using testing::X11WindowGeometry;
using testing::X11WindowId;
using testing::X11WindowOf;

constexpr const char* kTitle = "Overwrite?";

SdlMessageBox::Config Question() {
  SdlMessageBox::Config config;
  config.title = kTitle;
  config.message = "The image exists already.";
  config.type = SdlMessageBox::Type::Question;
  config.buttons = {{7, "Yes", true, false, {}}, {8, "No", false, true, {}}};
  return config;
}

// Centre of a button of the box above, which is 420 pixels wide: the row ends 30 pixels from the
// right edge, its buttons are 84 wide and 8 apart, 28 high in a footer of 52 above 10 pixels.
constexpr int kYesX = 420 - 30 - 84 - 8 - 42;
constexpr int kNoX = 420 - 30 - 42;
int ButtonRowY(X11WindowId box) {
  return X11WindowGeometry(box).h - 10 - 26;
}

// Counts the mouse button releases that a window gets, whoever takes them from the queue.
class ButtonReleaseCounter {
 public:
  explicit ButtonReleaseCounter(SDL_Window* window) : window_(SDL_GetWindowID(window)) {
    SDL_AddEventWatch(&Watch, this);
  }
  ~ButtonReleaseCounter() { SDL_DelEventWatch(&Watch, this); }
  ButtonReleaseCounter(const ButtonReleaseCounter&) = delete;
  ButtonReleaseCounter& operator=(const ButtonReleaseCounter&) = delete;

  int Count() const { return count_; }

 private:
  static int Watch(void* self, SDL_Event* event) {
    auto* counter = static_cast<ButtonReleaseCounter*>(self);
    if (event->type == SDL_MOUSEBUTTONUP && event->button.windowID == counter->window_) {
      ++counter->count_;
    }
    return 1;
  }

  Uint32 window_;
  std::atomic<int> count_{0};
};

class MessageBoxX11 : public testing::X11DialogTest {
 protected:
  // Shows the box over the host's window; `steps` gets the box's window once it has the focus.
  int ShowAnd(const std::function<void(X11WindowId)>& steps) {
    SdlMessageBox box(Question());
    return WhileShowing([&] { return box.Show(Parent(), 1.0F); },
                        [&] {
                          const X11WindowId window = WaitForX11Window(kTitle);
                          WaitForX11Focus(window);
                          steps(window);
                        });
  }

  // What X11 is told while the box is open.
  std::string PropertyWhileOpen(const std::string& name) {
    std::string value;
    ShowAnd([&](X11WindowId box) {
      value = X11Property(box, name);
      PressKey("Escape");
    });
    return value;
  }
};

constexpr const char* kModalStates = "_NET_WM_STATE_MODAL, _NET_WM_STATE_SKIP_TASKBAR";

std::string AsXpropWindow(X11WindowId window) {
  std::ostringstream text;
  text << "window id # 0x" << std::hex << window;
  return text.str();
}

using GeometryOfWindow = SDL_Rect (*)(X11WindowId);

// What stands where a window asks to be, shown by a window of SDL alone: the frame, for which a
// window manager takes it, or the area inside it, which SDL3 moves there.
GeometryOfWindow WhatSdlPlaces() {
  constexpr int kPlace = 300;
  const OwnedSdlWindow window(
      SDL_CreateWindow("Placed", kPlace, kPlace, 320, 200, SDL_WINDOW_SHOWN));
  const X11WindowId id = X11WindowOf(window.get());
  testing::WaitForX11WindowToRest(id);
  const bool frame = X11FrameGeometry(id).y == kPlace;
  const SDL_Rect placed = frame ? X11FrameGeometry(id) : X11WindowGeometry(id);
  EXPECT_EQ(placed.x, kPlace);
  EXPECT_EQ(placed.y, kPlace);
  return frame ? X11FrameGeometry : X11WindowGeometry;
}

TEST_F(MessageBoxX11, AppearsAtParentsOffset) {
  const GeometryOfWindow geometry = WhatSdlPlaces();
  const SDL_Rect parent = X11WindowGeometry(ParentId());
  SDL_Rect place{};
  ShowAnd([&](X11WindowId box) {
    testing::WaitForX11WindowToRest(box);
    place = geometry(box);
    PressKey("Escape");
  });
  EXPECT_EQ(place.x, parent.x + 80);
  EXPECT_EQ(place.y, parent.y + 80);
}

TEST_F(MessageBoxX11, IsSizedForItsMessageWhenItAppears) {
  SDL_Rect area{};
  ShowAnd([&](X11WindowId box) {
    area = X11WindowGeometry(box);
    PressKey("Escape");
  });
  const OwnedTtfFont body = OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui);
  EXPECT_EQ(area.w, 420);
  EXPECT_EQ(area.h, 44 + 60 + 12 + TTF_FontHeight(body.get()) + 20 + 52);
}

TEST_F(MessageBoxX11, BelongsToParent) {
  EXPECT_EQ(PropertyWhileOpen("WM_TRANSIENT_FOR"), AsXpropWindow(ParentId()));
}

TEST_F(MessageBoxX11, IsModal) {
  EXPECT_THAT(PropertyWhileOpen("_NET_WM_STATE"), HasSubstr("_NET_WM_STATE_MODAL"));
}

TEST_F(MessageBoxX11, IsNoTaskBarEntry) {
  EXPECT_THAT(PropertyWhileOpen("_NET_WM_STATE"), HasSubstr("_NET_WM_STATE_SKIP_TASKBAR"));
}

TEST_F(MessageBoxX11, IsOfDialogType) {
  EXPECT_EQ(PropertyWhileOpen("_NET_WM_WINDOW_TYPE"), "_NET_WM_WINDOW_TYPE_DIALOG");
}

TEST_F(MessageBoxX11, ClickOnParentLeavesFocusOnBox) {
  const ButtonReleaseCounter parent_clicks(Parent());
  X11WindowId expected = 0;
  X11WindowId focused = 0;
  const int result = ShowAnd([&](X11WindowId box) {
    expected = box;
    ClickAt(ParentId(), 20, 20);
    // By then the window manager has decided about the focus.
    WaitForX11Step("the click arrives", [&] { return parent_clicks.Count() == 1; });
    focused = FocusedX11Window();
    PressKey("Escape");
  });
  EXPECT_EQ(focused, expected);
  EXPECT_EQ(result, 8);
}

TEST_F(MessageBoxX11, ClickOnButtonReturnsItsId) {
  EXPECT_EQ(ShowAnd([](X11WindowId box) { ClickAt(box, kYesX, ButtonRowY(box)); }), 7);
  EXPECT_EQ(ShowAnd([](X11WindowId box) { ClickAt(box, kNoX, ButtonRowY(box)); }), 8);
}

TEST_F(MessageBoxX11, EscapeReturnsCancelButton) {
  EXPECT_EQ(ShowAnd([](X11WindowId) { PressKey("Escape"); }), 8);
}

TEST_F(MessageBoxX11, WindowManagersCloseReturnsNoChoice) {
  EXPECT_EQ(ShowAnd([](X11WindowId box) { CloseByWindowManager(box); }), -1);
}

TEST_F(MessageBoxX11, FocusIsBackOnParentAfterwards) {
  ShowAnd([](X11WindowId) { PressKey("Escape"); });
  PumpX11Until("the host has the focus again", [this] {
    return FocusedX11Window() == ParentId() && SDL_GetKeyboardFocus() == Parent();
  });
}

// A window manager that gave it to the closing box once more would have the next key go nowhere.
TEST_F(MessageBoxX11, FocusStaysOnParentOnceItIsBack) {
  testing::X11FocusWatch watch(ParentId());
  for (int boxes = 1; boxes <= 3; ++boxes) {
    ShowAnd([](X11WindowId) { PressKey("Escape"); });
    PumpX11Until("the parent has the focus", [this] { return FocusedX11Window() == ParentId(); });
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(watch.Losses(), boxes);
  }
}

TEST_F(MessageBoxX11, FocusIsBackOnParentAfterManyBoxes) {
  for (int i = 0; i < 5; ++i) {
    ShowAnd([](X11WindowId) { PressKey("Escape"); });
  }
  PumpX11Until("the host has the focus again", [this] { return FocusedX11Window() == ParentId(); });
}

TEST_F(MessageBoxX11, ButtonUnderPointerIsHighlighted) {
  ShowAnd([&](X11WindowId box) {
    const int y = ButtonRowY(box);
    MovePointerTo(box, kYesX, y);
    // Beside the caption, inside the button.
    WaitForX11Step("the button lights up",
                   [&] { return X11PixelColour(box, kYesX - 36, y) == "#444C5C"; });
    MovePointerTo(ParentId(), 5, 5);
    WaitForX11Step("the button goes dark",
                   [&] { return X11PixelColour(box, kYesX - 36, y) == "#303644"; });
    PressKey("Escape");
  });
}

// X11 counts a window's height in 16 bits and treats 0 as an error that ends the program.
TEST_F(MessageBoxX11, MessageTallerThanAnyWindowIsSurvived) {
  const OwnedTtfFont font = OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui);
  SdlMessageBox::Config config = Question();
  config.message.clear();
  int height = 0;
  do {
    config.message += '\n';
    const int lines = static_cast<int>(config.message.size());
    height = 44 + 60 + 12 + lines * TTF_FontHeight(font.get()) + 20 + 52;
  } while (height % 65536 != 0);
  SdlMessageBox box(config);
  const int result = WhileShowing([&] { return box.Show(Parent(), 1.0F); },
                                  [] {
                                    WaitForX11Focus(WaitForX11Window(kTitle));
                                    PressKey("Escape");
                                  });
  EXPECT_EQ(result, 8);
}

// --- Windows of both renderer modes --------------------------------------------------------------

struct RendererModeCase {
  const char* name;
  ModalRendererMode mode;
};

class ModalWindowX11 : public testing::X11DialogTest,
                       public ::testing::WithParamInterface<RendererModeCase> {
 protected:
  ModalWindowBundle OpenHidden(SDL_Window* parent) const {
    return CreateModalWindowBundle(parent, "Modal", 80, 80, 320, 200, SDL_WINDOW_HIDDEN,
                                   GetParam().mode);
  }

  // Maps the window as a dialog's first frame does.
  static X11WindowId ShowBundle(const ModalWindowBundle& bundle) {
    SDL_RenderPresent(bundle.renderer.get());
    ShowFocusedWindow(bundle.window.get());
    const X11WindowId window = X11WindowOf(bundle.window.get());
    PumpX11Until("the modal window has the focus",
                 [window] { return FocusedX11Window() == window; });
    return window;
  }
};

INSTANTIATE_TEST_SUITE_P(
    RendererModes, ModalWindowX11,
    ::testing::Values(RendererModeCase{"Accelerated", ModalRendererMode::Accelerated},
                      RendererModeCase{"Software", ModalRendererMode::Software}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_P(ModalWindowX11, HintsAreSetBeforeItAppears) {
  const ModalWindowBundle bundle = OpenHidden(Parent());
  ASSERT_NE(bundle.window, nullptr);
  const X11WindowId window = X11WindowOf(bundle.window.get());
  EXPECT_EQ(X11Property(window, "WM_TRANSIENT_FOR"), AsXpropWindow(ParentId()));
  EXPECT_EQ(X11Property(window, "_NET_WM_STATE"), kModalStates);
  EXPECT_EQ(X11Property(window, "_NET_WM_WINDOW_TYPE"), "_NET_WM_WINDOW_TYPE_DIALOG");
}

TEST_P(ModalWindowX11, WindowManagerKeepsHints) {
  const ModalWindowBundle bundle = OpenHidden(Parent());
  ASSERT_NE(bundle.window, nullptr);
  const X11WindowId window = ShowBundle(bundle);
  EXPECT_EQ(X11Property(window, "WM_TRANSIENT_FOR"), AsXpropWindow(ParentId()));
  EXPECT_THAT(X11Property(window, "_NET_WM_STATE"), HasSubstr("_NET_WM_STATE_MODAL"));
  EXPECT_THAT(X11Property(window, "_NET_WM_STATE"), HasSubstr("_NET_WM_STATE_SKIP_TASKBAR"));
  EXPECT_EQ(X11Property(window, "_NET_WM_WINDOW_TYPE"), "_NET_WM_WINDOW_TYPE_DIALOG");
}

TEST_P(ModalWindowX11, WithoutParentIsAnOrdinaryWindow) {
  const ModalWindowBundle bundle = OpenHidden(nullptr);
  ASSERT_NE(bundle.window, nullptr);
  const X11WindowId window = X11WindowOf(bundle.window.get());
  EXPECT_EQ(X11Property(window, "WM_TRANSIENT_FOR"), "");
  EXPECT_EQ(X11Property(window, "_NET_WM_WINDOW_TYPE"), "_NET_WM_WINDOW_TYPE_NORMAL");
  EXPECT_EQ(X11Property(window, "_NET_WM_STATE"), "");
}

TEST_P(ModalWindowX11, WithoutParentIsCentred) {
  const ModalWindowBundle bundle = OpenHidden(nullptr);
  ASSERT_NE(bundle.window, nullptr);
  int x = 0;
  int y = 0;
  SDL_GetWindowPosition(bundle.window.get(), &x, &y);
  EXPECT_EQ(x, (1280 - 320) / 2);
  EXPECT_EQ(y, (1024 - 200) / 2);
}

TEST_P(ModalWindowX11, HostsWindowTypeHintIsPutBack) {
  SDL_SetHint(SDL_HINT_X11_WINDOW_TYPE, "_NET_WM_WINDOW_TYPE_UTILITY");
  const ModalWindowBundle bundle = OpenHidden(Parent());
  EXPECT_STREQ(SDL_GetHint(SDL_HINT_X11_WINDOW_TYPE), "_NET_WM_WINDOW_TYPE_UTILITY");
  SDL_SetHint(SDL_HINT_X11_WINDOW_TYPE, nullptr);
}

TEST_P(ModalWindowX11, UnsetWindowTypeHintStaysUnset) {
  SDL_SetHint(SDL_HINT_X11_WINDOW_TYPE, nullptr);
  const ModalWindowBundle bundle = OpenHidden(Parent());
  EXPECT_EQ(SDL_GetHint(SDL_HINT_X11_WINDOW_TYPE), nullptr);
}

TEST_P(ModalWindowX11, ClickOnParentLeavesFocusOnIt) {
  const ModalWindowBundle bundle = OpenHidden(Parent());
  ASSERT_NE(bundle.window, nullptr);
  const X11WindowId window = ShowBundle(bundle);
  const ButtonReleaseCounter parent_clicks(Parent());
  ClickAt(ParentId(), 20, 20);
  PumpX11Until("the click arrives", [&] { return parent_clicks.Count() == 1; });
  EXPECT_EQ(FocusedX11Window(), window);
}

}  // namespace
}  // namespace quindle::frontend::gui

// A system on which the library cannot tell X11 that a dialog is modal: the dialog comes all the
// same. The SDL functions that lead to Xlib stand in this program, in front of SDL's.

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <string>

#include "frontend/gui/sdl_message_box.h"
#include "support/real_function.h"
#include "support/x11_display.h"

// Last: Xlib's macros would break the headers above.
#include <SDL_syswm.h>

namespace quindle::frontend::gui {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using testing::PressKey;
using testing::RealFunction;
using ::testing::Values;
using testing::WaitForX11Focus;
using testing::WaitForX11Window;
using testing::X11Property;
using testing::X11WindowId;

// What is missing while the dialog opens.
struct Missing {
  const char* what;
  const char* object = "";    // The shared object that cannot be loaded.
  const char* function = "";  // The function that it does not have.
  int unknown_window = 0;     // Which window's X11 handle cannot be had, counted from 1.
  int foreign_window = 0;     // Which window belongs to another window system.
};

void PrintTo(const Missing& missing, std::ostream* out) {
  *out << missing.what;
}

const Missing kNothing{.what = "nothing"};
const Missing* g_missing = &kNothing;
int g_handles_asked_for = 0;
int g_objects_loaded = 0;

// Lets something be missing for as long as it lives.
class ScopedMissing {
 public:
  explicit ScopedMissing(const Missing& missing) {
    g_handles_asked_for = 0;
    g_objects_loaded = 0;
    g_missing = &missing;
  }
  ~ScopedMissing() { g_missing = &kNothing; }
  ScopedMissing(const ScopedMissing&) = delete;
  ScopedMissing& operator=(const ScopedMissing&) = delete;
};

constexpr const char* kTitle = "Overwrite?";
constexpr int kCancelId = 8;

class MissingXlib : public testing::X11DialogTest, public ::testing::WithParamInterface<Missing> {
 protected:
  // Opens a message box and cancels it; returns its X11 state while it was open.
  std::string StateOfADialogThatIsCancelled() {
    SdlMessageBox::Config config;
    config.title = kTitle;
    config.message = "The image exists already.";
    config.buttons = {{7, "Yes", true, false, {}}, {kCancelId, "No", false, true, {}}};
    SdlMessageBox box(config);
    std::string state;
    const int chosen = WhileShowing([&] { return box.Show(Parent(), 1.0F); },
                                    [&] {
                                      const X11WindowId window = WaitForX11Window(kTitle);
                                      WaitForX11Focus(window);
                                      state = X11Property(window, "_NET_WM_STATE");
                                      PressKey("Escape");
                                    });
    EXPECT_EQ(chosen, kCancelId);
    return state;
  }
};

TEST_F(MissingXlib, NothingMissingMakesItModal) {
  const ScopedMissing missing(kNothing);
  EXPECT_THAT(StateOfADialogThatIsCancelled(), HasSubstr("_NET_WM_STATE_MODAL"));
  EXPECT_EQ(g_objects_loaded, 0);
}

TEST_P(MissingXlib, DialogOpensAllTheSame) {
  const ScopedMissing missing(GetParam());
  EXPECT_THAT(StateOfADialogThatIsCancelled(), Not(HasSubstr("_NET_WM_STATE_MODAL")));
  EXPECT_EQ(g_objects_loaded, 0);
}

INSTANTIATE_TEST_SUITE_P(Of, MissingXlib,
                         Values(Missing{.what = "the shared object", .object = "libX11.so.6"},
                                Missing{.what = "one function", .function = "XInternAtom"},
                                Missing{.what = "one function", .function = "XChangeProperty"},
                                Missing{.what = "one function", .function = "XSetTransientForHint"},
                                Missing{.what = "one function", .function = "XGetWindowAttributes"},
                                Missing{.what = "one function", .function = "XGetInputFocus"},
                                Missing{.what = "one function", .function = "XSetErrorHandler"},
                                Missing{.what = "one function", .function = "XSync"},
                                Missing{.what = "one function", .function = "XFlush"},
                                Missing{.what = "the dialog's handle", .unknown_window = 1},
                                Missing{.what = "the parent's handle", .unknown_window = 2},
                                Missing{.what = "an X11 window", .foreign_window = 1}));

}  // namespace
}  // namespace quindle::frontend::gui

using namespace quindle::frontend::gui;  // NOLINT(google-build-using-namespace)

extern "C" {

void* SDL_LoadObject(const char* file) {
  static auto* const real = RealFunction<decltype(SDL_LoadObject)>("SDL_LoadObject");
  void* object = std::strcmp(file, g_missing->object) == 0 ? nullptr : real(file);
  g_objects_loaded += object == nullptr ? 0 : 1;
  return object;
}

void SDL_UnloadObject(void* object) {
  static auto* const real = RealFunction<decltype(SDL_UnloadObject)>("SDL_UnloadObject");
  --g_objects_loaded;
  real(object);
}

void* SDL_LoadFunction(void* object, const char* name) {
  static auto* const real = RealFunction<decltype(SDL_LoadFunction)>("SDL_LoadFunction");
  return std::strcmp(name, g_missing->function) == 0 ? nullptr : real(object, name);
}

SDL_bool SDL_GetWindowWMInfo(SDL_Window* window, SDL_SysWMinfo* info) {
  static auto* const real = RealFunction<decltype(SDL_GetWindowWMInfo)>("SDL_GetWindowWMInfo");
  const int asked = ++g_handles_asked_for;
  if (asked == g_missing->unknown_window) {
    return SDL_FALSE;
  }
  const SDL_bool known = real(window, info);
  if (asked == g_missing->foreign_window) {
    info->subsystem = SDL_SYSWM_WAYLAND;
  }
  return known;
}

}  // extern "C"

#include "support/x11_pointer.h"

#include <memory>

#include "support/x11_display.h"

// Last: Xlib's macros would break the headers above.
#include <X11/Xlib.h>

namespace quindle::testing {
namespace {

struct CloseDisplay {
  void operator()(Display* display) const { XCloseDisplay(display); }
};

bool GrabPointer(Display* display) {
  const bool grabbed = XGrabPointer(display, DefaultRootWindow(display), True, 0, GrabModeAsync,
                                    GrabModeAsync, None, None, CurrentTime) == GrabSuccess;
  if (grabbed) {
    XUngrabPointer(display, CurrentTime);
    XSync(display, False);
  }
  return grabbed;
}

}  // namespace

void WaitForFreePointer() {
  const std::unique_ptr<Display, CloseDisplay> display(XOpenDisplay(nullptr));
  if (display != nullptr) {
    WaitForX11Step("the pointer is free", [&display] { return GrabPointer(display.get()); });
  }
}

}  // namespace quindle::testing

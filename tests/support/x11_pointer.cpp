#include "support/x11_pointer.h"

#include <X11/Xlib.h>

#include <chrono>
#include <memory>
#include <thread>

namespace quindle::testing {
namespace {

constexpr std::chrono::seconds kPatience{2};

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
  using Clock = std::chrono::steady_clock;
  const std::unique_ptr<Display, CloseDisplay> display(XOpenDisplay(nullptr));
  const Clock::time_point deadline = Clock::now() + kPatience;
  while (display != nullptr && !GrabPointer(display.get()) && Clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

}  // namespace quindle::testing

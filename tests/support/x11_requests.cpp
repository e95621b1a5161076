#include "support/x11_requests.h"

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
using OwnedDisplay = std::unique_ptr<Display, CloseDisplay>;

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
  const OwnedDisplay display(XOpenDisplay(nullptr));
  const Clock::time_point deadline = Clock::now() + kPatience;
  while (display != nullptr && !GrabPointer(display.get()) && Clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

void AskToCloseX11Window(unsigned long window) {
  const OwnedDisplay display(XOpenDisplay(nullptr));
  if (display == nullptr) {
    return;
  }
  XEvent request{};
  request.xclient.type = ClientMessage;
  request.xclient.window = window;
  request.xclient.message_type = XInternAtom(display.get(), "_NET_CLOSE_WINDOW", False);
  request.xclient.format = 32;
  XSendEvent(display.get(), DefaultRootWindow(display.get()), False,
             SubstructureRedirectMask | SubstructureNotifyMask, &request);
}

struct X11FocusWatch::Connection {
  OwnedDisplay display{XOpenDisplay(nullptr)};
};

X11FocusWatch::X11FocusWatch(unsigned long window) : connection_(std::make_unique<Connection>()) {
  XSelectInput(connection_->display.get(), window, FocusChangeMask);
  XSync(connection_->display.get(), False);
}

X11FocusWatch::~X11FocusWatch() = default;

int X11FocusWatch::Losses() {
  Display* const display = connection_->display.get();
  XSync(display, False);
  while (XPending(display) > 0) {
    XEvent event;
    XNextEvent(display, &event);
    losses_ += event.type == FocusOut && event.xfocus.mode == NotifyNormal ? 1 : 0;
  }
  return losses_;
}

}  // namespace quindle::testing

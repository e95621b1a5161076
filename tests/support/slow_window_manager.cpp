// A window manager for tests that takes its time, as others do on a busy machine: a window that
// belongs to another one is mapped in its frame at once, and the frame only after a pause.
//
//   slow_window_manager MILLISECONDS          the pause; -1 never maps those frames
//   slow_window_manager MILLISECONDS --old    without the properties of newer window managers
//   slow_window_manager ... --activates       gives the focus to a window that asks for it
//   slow_window_manager ... --titles          frames have a title of 30 pixels above the window,
//   which
//                                             is told last
//   slow_window_manager ... --shows-at-once   makes the pause once the frame is mapped
//
// SIGUSR1 hides all frames, as a change of the desktop does: their windows stay mapped in them.
// Otherwise it gives the focus to ordinary windows when they appear and to nothing else.

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <poll.h>
#include <signal.h>

#include <cstdlib>
#include <map>
#include <set>
#include <string>

namespace {

constexpr int kTitleHeight = 30;
constexpr int kSignalIntervalMs = 20;  // A signal may come just before the waiting.

volatile sig_atomic_t g_hide = 0;

void AskToHide(int) {
  g_hide = 1;
}

int PassOver(Display*, XErrorEvent*) {
  return 0;  // Windows come and go while they are asked about.
}

class SlowWindowManager {
 public:
  SlowWindowManager(int pause_ms, const std::set<std::string>& options)
      : display_(XOpenDisplay(nullptr)),
        pause_ms_(pause_ms),
        activates_(options.contains("--activates")),
        shows_at_once_(options.contains("--shows-at-once")),
        title_height_(options.contains("--titles") ? kTitleHeight : 0) {
    if (display_ == nullptr) {
      std::exit(1);
    }
    XSetErrorHandler(&PassOver);
    root_ = DefaultRootWindow(display_);
    if (!options.contains("--old")) {
      Announce();
    }
    XSelectInput(display_, root_, SubstructureRedirectMask | SubstructureNotifyMask);
    XSync(display_, False);
  }

  [[noreturn]] void Run() {
    while (true) {
      while (XPending(display_) > 0) {
        XEvent event;
        XNextEvent(display_, &event);
        Handle(event);
      }
      pollfd connection{ConnectionNumber(display_), POLLIN, 0};
      poll(&connection, 1, kSignalIntervalMs);
      if (g_hide != 0) {
        g_hide = 0;
        HideFrames();
      }
    }
  }

 private:
  Atom Intern(const char* name) { return XInternAtom(display_, name, False); }

  // What a client looks for to see that there is a window manager.
  void Announce() {
    const Window check = XCreateSimpleWindow(display_, root_, -10, -10, 1, 1, 0, 0, 0);
    for (const Window window : {root_, check}) {
      XChangeProperty(display_, window, Intern("_NET_SUPPORTING_WM_CHECK"), XA_WINDOW, 32,
                      PropModeReplace, reinterpret_cast<const unsigned char*>(&check), 1);
    }
  }

  void Handle(const XEvent& event) {
    switch (event.type) {
      case MapRequest:
        Manage(event.xmaprequest.window);
        break;
      case ConfigureRequest:
        Configure(event.xconfigurerequest);
        break;
      case ClientMessage:
        Activate(event.xclient);
        break;
      case UnmapNotify:
        Forget(event.xunmap.window);
        break;
      case DestroyNotify:
        Forget(event.xdestroywindow.window);
        break;
      default:
        break;
    }
  }

  void Manage(Window window) {
    XWindowAttributes at{};
    XGetWindowAttributes(display_, window, &at);
    const Window frame =
        XCreateSimpleWindow(display_, root_, at.x, at.y, static_cast<unsigned>(at.width),
                            static_cast<unsigned>(at.height + title_height_), 0, 0, 0);
    XSelectInput(display_, frame, SubstructureRedirectMask | SubstructureNotifyMask);
    XReparentWindow(display_, window, frame, 0, title_height_);
    frames_[window] = frame;
    SetNormalState(window);
    if (BelongsToAnother(window)) {
      ShowLate(window, frame);
    } else {
      ShowAtOnce(window, frame);
    }
    if (title_height_ != 0) {
      TellTitle(window);
    }
    XSync(display_, False);
  }

  // SDL says of an ordinary window that it belongs to the root window.
  bool BelongsToAnother(Window window) {
    Window owner = 0;
    return XGetTransientForHint(display_, window, &owner) != 0 && owner != 0 && owner != root_;
  }

  void ShowAtOnce(Window window, Window frame) {
    XMapRaised(display_, frame);
    XMapWindow(display_, window);
    XSetInputFocus(display_, window, RevertToPointerRoot, CurrentTime);
  }

  void ShowLate(Window window, Window frame) {
    XMapWindow(display_, window);
    if (shows_at_once_) {
      XMapRaised(display_, frame);
    }
    XSync(display_, False);
    if (pause_ms_ >= 0) {
      poll(nullptr, 0, pause_ms_);
      XMapRaised(display_, frame);
    }
  }

  void TellTitle(Window window) {
    const long left_right_top_bottom[4] = {0, 0, title_height_, 0};
    XChangeProperty(display_, window, Intern("_NET_FRAME_EXTENTS"), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char*>(left_right_top_bottom),
                    4);
  }

  void SetNormalState(Window window) {
    const Atom wm_state = Intern("WM_STATE");
    const long state[2] = {NormalState, 0};
    XChangeProperty(display_, window, wm_state, wm_state, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(state), 2);
  }

  void Activate(const XClientMessageEvent& message) {
    if (activates_ && message.message_type == Intern("_NET_ACTIVE_WINDOW")) {
      XSetInputFocus(display_, message.window, RevertToPointerRoot, CurrentTime);
    }
  }

  void Configure(const XConfigureRequestEvent& request) {
    XWindowChanges changes{};
    changes.x = request.x;
    changes.y = request.y;
    changes.width = request.width;
    changes.height = request.height;
    const auto found = frames_.find(request.window);
    if (found == frames_.end()) {
      XConfigureWindow(display_, request.window,
                       static_cast<unsigned>(request.value_mask & (CWX | CWY | CWWidth | CWHeight)),
                       &changes);
      return;
    }
    const auto size = static_cast<unsigned>(request.value_mask & (CWWidth | CWHeight));
    XConfigureWindow(display_, request.window, size, &changes);
    changes.height += title_height_;
    XConfigureWindow(display_, found->second,
                     size | static_cast<unsigned>(request.value_mask & (CWX | CWY)), &changes);
    TellPlace(request.window, found->second);
  }

  // A window does not hear by itself that its frame has moved.
  void TellPlace(Window window, Window frame) {
    XWindowAttributes at{};
    XGetWindowAttributes(display_, frame, &at);
    XEvent event{};
    event.xconfigure.type = ConfigureNotify;
    event.xconfigure.event = window;
    event.xconfigure.window = window;
    event.xconfigure.x = at.x;
    event.xconfigure.y = at.y + title_height_;
    event.xconfigure.width = at.width;
    event.xconfigure.height = at.height - title_height_;
    XSendEvent(display_, window, False, StructureNotifyMask, &event);
  }

  void Forget(Window window) {
    const auto found = frames_.find(window);
    if (found != frames_.end()) {
      // The window may go on to live, and would end with its frame.
      XReparentWindow(display_, window, root_, 0, 0);
      XDestroyWindow(display_, found->second);
      frames_.erase(found);
    }
  }

  void HideFrames() {
    for (const auto& [window, frame] : frames_) {
      XUnmapWindow(display_, frame);
    }
    XSync(display_, False);
  }

  Display* display_;
  int pause_ms_;
  bool activates_;
  bool shows_at_once_;
  int title_height_;
  Window root_ = 0;
  std::map<Window, Window> frames_;  // By the window in them.
};

}  // namespace

int main(int argc, char* argv[]) {
  struct sigaction action {};
  action.sa_handler = &AskToHide;
  sigaction(SIGUSR1, &action, nullptr);
  const int pause_ms = argc > 1 ? std::atoi(argv[1]) : 0;
  SlowWindowManager(pause_ms, std::set<std::string>(argv + 1, argv + argc)).Run();
}

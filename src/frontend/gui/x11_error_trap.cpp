#include "frontend/gui/x11_error_trap.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstring>
#include <memory>
#include <utility>

namespace quindle::frontend::gui {

namespace {

SDL_Point PositionBySdl(SDL_Window* window) {
  SDL_Point position{};
  SDL_GetWindowPosition(window, &position.x, &position.y);
  return position;
}

FrameSize FrameBySdl(SDL_Window* window) {
  FrameSize frame;
  SDL_GetWindowBordersSize(window, &frame.top, &frame.left, &frame.bottom, &frame.right);
  return frame;
}

}  // namespace

#if defined(SDL_VIDEO_DRIVER_X11)

namespace {

constexpr std::chrono::milliseconds kViewablePatience{400};
constexpr Uint32 kViewableIntervalMs = 5;

// Xlib has one error handler for all connections and threads of the process.
std::atomic<Display*> g_trapped_display{nullptr};
std::atomic<XErrorHandler> g_handler_of_others{nullptr};

int PassOverErrors(Display* display, XErrorEvent* error) {
  const XErrorHandler others = g_handler_of_others;
  return display == g_trapped_display || others == nullptr ? 0 : others(display, error);
}

}  // namespace

X11ErrorTrap::X11ErrorTrap(SDL_Window* window) : window_(window) {
  if (!IsX11Driver()) {
    return;
  }
  const std::optional<X11Handle> handle = FindX11Handle(window);
  X11Library library;
  if (!handle || !library.IsLoaded()) {
    return;
  }
  // Errors of earlier calls are not this trap's.
  library.sync(handle->display, False);
  Display* const former_display = g_trapped_display.exchange(handle->display);
  XErrorHandler const former_handler = library.set_error_handler(&PassOverErrors);
  if (former_handler != &PassOverErrors) {
    g_handler_of_others = former_handler;
  }
  x11_.emplace(Connection{std::move(library), *handle, former_display, former_handler});
}

X11ErrorTrap::~X11ErrorTrap() {
  if (x11_) {
    x11_->library.sync(x11_->handle.display, False);
    x11_->library.set_error_handler(x11_->former_handler);
    g_trapped_display = x11_->former_display;
  }
}

int X11ErrorTrap::MapState() const {
  XWindowAttributes attributes{};
  const int found =
      x11_->library.get_window_attributes(x11_->handle.display, x11_->handle.window, &attributes);
  return found != 0 ? attributes.map_state : IsUnmapped;
}

bool X11ErrorTrap::WaitUntilViewable() const {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline = Clock::now() + kViewablePatience;
  while (x11_ && MapState() == IsUnviewable) {
    if (Clock::now() >= deadline) {
      return false;
    }
    SDL_Delay(kViewableIntervalMs);
  }
  return true;
}

bool X11ErrorTrap::IsOnScreen() const {
  return !x11_ || MapState() == IsViewable;
}

SDL_Point X11ErrorTrap::Position() const {
  if (x11_) {
    const auto& [library, handle, former_display, former_handler] = *x11_;
    XWindowAttributes attributes{};
    SDL_Point position{};
    Window child = 0;
    if (library.get_window_attributes(handle.display, handle.window, &attributes) != 0 &&
        library.translate_coordinates(handle.display, handle.window, attributes.root, 0, 0,
                                      &position.x, &position.y, &child) != 0) {
      return position;
    }
  }
  return PositionBySdl(window_);
}

std::optional<FrameSize> X11ErrorTrap::Frame() const {
  if (!x11_) {
    return FrameBySdl(window_);
  }
  constexpr Atom kXaCardinal = 6;  // The predefined atom of the type "CARDINAL".
  const auto& [library, handle, former_display, former_handler] = *x11_;
  Atom type = 0;
  int format = 0;
  unsigned long count = 0;
  unsigned long rest = 0;
  unsigned char* bytes = nullptr;
  library.get_window_property(handle.display, handle.window,
                              library.intern_atom(handle.display, "_NET_FRAME_EXTENTS", False), 0,
                              4, False, kXaCardinal, &type, &format, &count, &rest, &bytes);
  const std::unique_ptr<unsigned char, int (*)(void*)> owner(bytes, library.free);
  if (format != 32 || count != 4) {
    return std::nullopt;
  }
  // Xlib hands numbers of 32 bits over as longs.
  std::array<long, 4> sides{};
  std::memcpy(sides.data(), bytes, sizeof(sides));
  return FrameSize{static_cast<int>(sides[0]), static_cast<int>(sides[1]),
                   static_cast<int>(sides[2]), static_cast<int>(sides[3])};
}

bool X11ErrorTrap::CanTakeFocusFrom(SDL_Window* rival) const {
  if (!x11_ || !IsOnScreen()) {
    return false;
  }
  Window focused = 0;
  int revert_to = 0;
  x11_->library.get_input_focus(x11_->handle.display, &focused, &revert_to);
  const std::optional<X11Handle> handle = FindX11Handle(rival);
  return handle && (focused == handle->window || focused == PointerRoot);
}

#else

X11ErrorTrap::X11ErrorTrap(SDL_Window* window) : window_(window) {}
X11ErrorTrap::~X11ErrorTrap() = default;
bool X11ErrorTrap::WaitUntilViewable() const {
  return true;
}
bool X11ErrorTrap::IsOnScreen() const {
  return true;
}
SDL_Point X11ErrorTrap::Position() const {
  return PositionBySdl(window_);
}
std::optional<FrameSize> X11ErrorTrap::Frame() const {
  return FrameBySdl(window_);
}
bool X11ErrorTrap::CanTakeFocusFrom(SDL_Window* /*rival*/) const {
  return false;
}

#endif

}  // namespace quindle::frontend::gui

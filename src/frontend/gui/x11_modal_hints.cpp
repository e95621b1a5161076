#include "frontend/gui/x11_modal_hints.h"

#include <SDL_syswm.h>

#include <array>
#include <cstring>

namespace quindle::frontend::gui {
namespace {

bool IsX11Driver() {
  const char* driver = SDL_GetCurrentVideoDriver();
  return driver != nullptr && std::strcmp(driver, "x11") == 0;
}

}  // namespace

X11DialogWindowType::X11DialogWindowType(bool wanted) : active_(wanted && IsX11Driver()) {
  if (!active_) {
    return;
  }
  if (const char* former = SDL_GetHint(SDL_HINT_X11_WINDOW_TYPE)) {
    former_ = former;
  }
  SDL_SetHint(SDL_HINT_X11_WINDOW_TYPE, "_NET_WM_WINDOW_TYPE_DIALOG");
}

X11DialogWindowType::~X11DialogWindowType() {
  if (active_) {
    SDL_SetHint(SDL_HINT_X11_WINDOW_TYPE, former_ ? former_->c_str() : nullptr);
  }
}

#if defined(SDL_VIDEO_DRIVER_X11)

namespace {

// The Xlib functions used here, found at run time so that the library does not link Xlib. SDL has
// loaded the same object already when its x11 driver runs.
class Xlib {
 public:
  Xlib() : object_(SDL_LoadObject("libX11.so.6")) {
    if (object_ == nullptr) {
      return;
    }
    Load("XInternAtom", &intern_atom_);
    Load("XChangeProperty", &change_property_);
    Load("XSetTransientForHint", &set_transient_for_);
    Load("XFlush", &flush_);
  }
  ~Xlib() {
    if (object_ != nullptr) {
      SDL_UnloadObject(object_);
    }
  }
  Xlib(const Xlib&) = delete;
  Xlib& operator=(const Xlib&) = delete;
  Xlib(Xlib&&) = delete;
  Xlib& operator=(Xlib&&) = delete;

  bool IsLoaded() const {
    return intern_atom_ != nullptr && change_property_ != nullptr &&
           set_transient_for_ != nullptr && flush_ != nullptr;
  }

  void SetTransientFor(Display* display, Window window, Window parent) const {
    set_transient_for_(display, window, parent);
  }

  void SetModalState(Display* display, Window window) const {
    const std::array<Atom, 2> states{Intern(display, "_NET_WM_STATE_MODAL"),
                                     Intern(display, "_NET_WM_STATE_SKIP_TASKBAR")};
    std::array<unsigned char, sizeof(states)> bytes{};
    std::memcpy(bytes.data(), states.data(), sizeof(states));
    change_property_(display, window, Intern(display, "_NET_WM_STATE"), kXaAtom, 32,
                     PropModeReplace, bytes.data(), static_cast<int>(states.size()));
  }

  void Flush(Display* display) const { flush_(display); }

 private:
  static constexpr Atom kXaAtom = 4;  // The predefined atom of the type "ATOM".

  template <typename Function>
  void Load(const char* name, Function** function) {
    void* address = SDL_LoadFunction(object_, name);
    std::memcpy(function, &address, sizeof(address));
  }

  Atom Intern(Display* display, const char* name) const {
    return intern_atom_(display, name, False);
  }

  void* object_;
  Atom (*intern_atom_)(Display*, const char*, Bool) = nullptr;
  int (*change_property_)(Display*, Window, Atom, Atom, int, int, const unsigned char*,
                          int) = nullptr;
  int (*set_transient_for_)(Display*, Window, Window) = nullptr;
  int (*flush_)(Display*) = nullptr;
};

bool GetX11Handle(SDL_Window* window, SDL_SysWMinfo* info) {
  SDL_VERSION(&info->version);
  return SDL_GetWindowWMInfo(window, info) == SDL_TRUE && info->subsystem == SDL_SYSWM_X11;
}

}  // namespace

void MarkX11WindowModal(SDL_Window* window, SDL_Window* parent) {
  SDL_SysWMinfo own{};
  SDL_SysWMinfo owner{};
  if (!IsX11Driver() || !GetX11Handle(window, &own) || !GetX11Handle(parent, &owner)) {
    return;
  }
  const Xlib xlib;
  if (!xlib.IsLoaded()) {
    return;
  }
  Display* display = own.info.x11.display;
  xlib.SetTransientFor(display, own.info.x11.window, owner.info.x11.window);
  xlib.SetModalState(display, own.info.x11.window);
  xlib.Flush(display);
}

#else

void MarkX11WindowModal(SDL_Window* /*window*/, SDL_Window* /*parent*/) {}

#endif

}  // namespace quindle::frontend::gui

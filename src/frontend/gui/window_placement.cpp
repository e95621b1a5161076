#include "frontend/gui/window_placement.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <string_view>

#include "frontend/gui/x11_error_trap.h"

namespace quindle::frontend::gui {
namespace {

// The name under which a minded window keeps when it came onto the screen, in milliseconds.
constexpr const char* kOnScreenSince = "quindle_on_screen_since";

// Not every window has a frame, and not every window manager tells of it.
constexpr Uint32 kFramePatienceMs = 250;

// What the window manager puts around a window, in pixels.
struct FrameSize {
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;
};

bool CanPlaceWindows() {
  constexpr std::array<std::string_view, 3> kDrivers{"x11", "windows", "cocoa"};
  const char* driver = SDL_GetCurrentVideoDriver();
  return driver != nullptr && std::find(kDrivers.begin(), kDrivers.end(), driver) != kDrivers.end();
}

// The offset that brings [start, start + size) into [area, area + area_size), its start at least.
int OffsetInto(int start, int size, int area, int area_size) {
  return std::max(area, std::min(start, area + area_size - size)) - start;
}

void SetOnScreenSince(SDL_Window* window, Uint32 ticks) {
  // Null is for windows that are not minded.
  SDL_SetWindowData(window, kOnScreenSince,
                    std::bit_cast<void*>(std::uintptr_t{std::max(ticks, Uint32{1})}));
}

// Nothing as long as SDL may still hear of a frame.
std::optional<FrameSize> FindFrame(SDL_Window* window) {
  FrameSize frame;
  const bool is_told =
      SDL_GetWindowBordersSize(window, &frame.top, &frame.left, &frame.bottom, &frame.right) == 0;
  const bool is_empty = frame.top == 0 && frame.left == 0 && frame.bottom == 0 && frame.right == 0;
  return is_told && is_empty ? std::nullopt : std::optional(frame);
}

void MoveOntoDisplay(SDL_Window* window, const FrameSize& frame) {
  SDL_Rect usable{};
  if (SDL_GetDisplayUsableBounds(SDL_GetWindowDisplayIndex(window), &usable) != 0) {
    return;
  }
  int x = 0;
  int y = 0;
  int w = 0;
  int h = 0;
  SDL_GetWindowPosition(window, &x, &y);
  SDL_GetWindowSize(window, &w, &h);
  const int dx = OffsetInto(x - frame.left, frame.left + w + frame.right, usable.x, usable.w);
  const int dy = OffsetInto(y - frame.top, frame.top + h + frame.bottom, usable.y, usable.h);
  if (dx != 0 || dy != 0) {
    SDL_SetWindowPosition(window, x + dx, y + dy);
  }
}

}  // namespace

void MindWindowPlace(SDL_Window* window) {
  if (CanPlaceWindows()) {
    SetOnScreenSince(window, SDL_GetTicks());
  }
}

void MoveWindowOntoDisplay(SDL_Window* window) {
  const auto since =
      static_cast<Uint32>(std::bit_cast<std::uintptr_t>(SDL_GetWindowData(window, kOnScreenSince)));
  if (since == 0) {
    return;
  }
  const Uint32 now = SDL_GetTicks();
  if (!X11ErrorTrap(window).IsOnScreen()) {
    SetOnScreenSince(window, now);
    return;
  }
  // SDL learns from its events where the window is and what its frame adds.
  SDL_PumpEvents();
  const std::optional<FrameSize> frame = FindFrame(window);
  if (frame || now - since >= kFramePatienceMs) {
    SDL_SetWindowData(window, kOnScreenSince, nullptr);
    MoveOntoDisplay(window, frame.value_or(FrameSize{}));
  }
}

}  // namespace quindle::frontend::gui

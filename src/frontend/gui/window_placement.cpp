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

// The name under which a minded window keeps for how many frames it has been waited for.
constexpr const char* kMindedFor = "quindle_minded_for";

// A quarter of a second or a little more. Not every window manager tells of its frames.
constexpr std::uintptr_t kPatientFrames = 25;

bool CanPlaceWindows() {
  constexpr std::array<std::string_view, 3> kDrivers{"x11", "windows", "cocoa"};
  const char* driver = SDL_GetCurrentVideoDriver();
  return driver != nullptr && std::find(kDrivers.begin(), kDrivers.end(), driver) != kDrivers.end();
}

// The offset that brings [start, start + size) into [area, area + area_size), its start at least.
int OffsetInto(int start, int size, int area, int area_size) {
  return std::max(area, std::min(start, area + area_size - size)) - start;
}

// From 1 on: null is for a window that is not minded.
void SetMindedFor(SDL_Window* window, std::uintptr_t frames) {
  SDL_SetWindowData(window, kMindedFor, std::bit_cast<void*>(frames));
}

// `at` is where the window is, inside its frame.
void MoveOntoDisplay(SDL_Window* window, const SDL_Point& at, const FrameSize& frame) {
  SDL_Rect usable{};
  if (SDL_GetDisplayUsableBounds(SDL_GetWindowDisplayIndex(window), &usable) != 0) {
    return;
  }
  int w = 0;
  int h = 0;
  SDL_GetWindowSize(window, &w, &h);
  const SDL_Point corner{at.x - frame.left, at.y - frame.top};
  const int dx = OffsetInto(corner.x, frame.left + w + frame.right, usable.x, usable.w);
  const int dy = OffsetInto(corner.y, frame.top + h + frame.bottom, usable.y, usable.h);
  if (dx != 0 || dy != 0) {
    // SDL takes off the frame that it knows of, which it may not know of yet.
    int top = 0;
    int left = 0;
    SDL_GetWindowBordersSize(window, &top, &left, nullptr, nullptr);
    SDL_SetWindowPosition(window, corner.x + dx + left, corner.y + dy + top);
  }
}

}  // namespace

void MindWindowPlace(SDL_Window* window) {
  if (CanPlaceWindows()) {
    SetMindedFor(window, 1);
  }
}

void MoveWindowOntoDisplay(SDL_Window* window) {
  const auto frames = std::bit_cast<std::uintptr_t>(SDL_GetWindowData(window, kMindedFor));
  if (frames == 0) {
    return;
  }
  const X11ErrorTrap trap(window);
  if (!trap.IsOnScreen()) {
    return;
  }
  // SDL learns from its events where the window is and what its frame adds.
  SDL_PumpEvents();
  const std::optional<FrameSize> frame = trap.Frame();
  if (frame || frames == kPatientFrames) {
    SDL_SetWindowData(window, kMindedFor, nullptr);
    MoveOntoDisplay(window, trap.Position(), frame.value_or(FrameSize{}));
  } else {
    SetMindedFor(window, frames + 1);
  }
}

}  // namespace quindle::frontend::gui

#include "frontend/gui/window_placement.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quindle::frontend::gui {
namespace {

bool CanPlaceWindows() {
  constexpr std::array<std::string_view, 3> kDrivers{"x11", "windows", "cocoa"};
  const char* driver = SDL_GetCurrentVideoDriver();
  return driver != nullptr && std::find(kDrivers.begin(), kDrivers.end(), driver) != kDrivers.end();
}

// The offset that brings [start, start + size) into [area, area + area_size), its start at least.
int OffsetInto(int start, int size, int area, int area_size) {
  return std::max(area, std::min(start, area + area_size - size)) - start;
}

}  // namespace

void MoveWindowOntoDisplay(SDL_Window* window) {
  SDL_Rect usable{};
  if (!CanPlaceWindows() ||
      SDL_GetDisplayUsableBounds(SDL_GetWindowDisplayIndex(window), &usable) != 0) {
    return;
  }
  // The window manager may have put it elsewhere than asked; SDL learns where from its events.
  SDL_PumpEvents();
  int x = 0;
  int y = 0;
  int w = 0;
  int h = 0;
  SDL_GetWindowPosition(window, &x, &y);
  SDL_GetWindowSize(window, &w, &h);
  int top = 0;
  int left = 0;
  int bottom = 0;
  int right = 0;
  SDL_GetWindowBordersSize(window, &top, &left, &bottom, &right);
  const int dx = OffsetInto(x - left, left + w + right, usable.x, usable.w);
  const int dy = OffsetInto(y - top, top + h + bottom, usable.y, usable.h);
  if (dx != 0 || dy != 0) {
    SDL_SetWindowPosition(window, x + dx, y + dy);
  }
}

}  // namespace quindle::frontend::gui

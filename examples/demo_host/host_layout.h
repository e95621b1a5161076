#pragma once

#include <SDL.h>

#include <vector>

namespace quindle::demo {

// The demo window's parts, in window pixels.
struct HostLayout {
  SDL_Rect picture{0, 0, 0, 0};   // The guest picture.
  std::vector<SDL_Rect> buttons;  // One for each caption, in order.
  SDL_Rect result{0, 0, 0, 0};    // The last result, up to two lines.
  SDL_Rect status{0, 0, 0, 0};    // One line.
};

inline constexpr int kHostMargin = 12;
inline constexpr int kHostButtonHeight = 32;
inline constexpr int kHostButtonPadding = 12;  // On either side of a caption.
inline constexpr int kHostTextLine = 22;

// Lays a window of `width` x `height` out. The buttons flow in rows; `caption_widths` are the
// widths of their captions. What the texts and buttons leave is the picture's.
HostLayout BuildHostLayout(int width, int height, const std::vector<int>& caption_widths);

// Index of the button at a position; -1 when there is none.
int FindHostButton(const HostLayout& layout, int x, int y);

}  // namespace quindle::demo

#pragma once

// Private. Text in an area that may be too small for it. Text that fits is drawn exactly where and
// as it stands. Widths are pixels; a UTF-8 sequence is never cut.

#include <SDL.h>
#include <SDL_ttf.h>

#include <string>
#include <string_view>

namespace quindle::frontend::gui {

// `text` when it is at most `max_width` wide in `font`, otherwise as many of its first characters
// as fit in front of an ellipsis. `text` unchanged without a font; empty when nothing fits.
std::string FitTextLeft(TTF_Font* font, std::string_view text, int max_width);

// As FitTextLeft, but keeps the last characters, behind the ellipsis.
std::string FitTextRight(TTF_Font* font, std::string_view text, int max_width);

// Draws `text` at (x, y). When it is wider than from x to `right` (exclusive) it is clipped to
// [x, right).
void DrawTextStartVisible(SDL_Renderer* renderer, TTF_Font* font, std::string_view text, int x,
                          int y, int right, SDL_Color color);

// As DrawTextStartVisible, but a text that is wider is moved left so that its end shows.
void DrawTextEndVisible(SDL_Renderer* renderer, TTF_Font* font, std::string_view text, int x, int y,
                        int right, SDL_Color color);

}  // namespace quindle::frontend::gui

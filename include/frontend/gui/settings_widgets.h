#pragma once

/// The controls of the settings dialog. Each draws itself and, where it can be used, reports what
/// the mouse does to it; nothing is kept between calls. Coordinates are pixels of the dialog's
/// canvas of 820 x 492, y growing downwards; text is UTF-8. Renderers and fonts are borrowed; with
/// a null font a control is drawn without its text, placed as if the font were 16 pixels high. Call
/// from the thread that owns SDL video.

#include <SDL.h>
#include <SDL_ttf.h>

#include <string>
#include <vector>

#include "frontend/gui/export.h"

namespace quindle::frontend::gui {

/// One choice of a radio group.
struct RadioOption {
  std::string label;  ///< Text beside the circle.
  std::string value;  ///< What the choice stands for; compared byte by byte with the selected one.
};

/// Draws one line of `text` with its top-left corner at (`x`, `y`). Nothing is drawn when
/// `renderer` or `font` is null or `text` is empty.
QUINDLE_SDL_UI_EXPORT void DrawText(SDL_Renderer* renderer, TTF_Font* font, const std::string& text,
                                    int x, int y, SDL_Color colour);

/// Returns the line height of `font` in pixels, or `fallback` when it is null.
QUINDLE_SDL_UI_EXPORT int FontHeightOr(TTF_Font* font, int fallback);

/// True when (`x`, `y`) lies in `r`; left and top edges inside, right and bottom edges outside.
QUINDLE_SDL_UI_EXPORT bool IsInRect(int x, int y, const SDL_Rect& r);

/// Draws a push button with its caption centred in `rect`. A caption that cannot be rendered is
/// left out.
QUINDLE_SDL_UI_EXPORT void DrawButton(SDL_Renderer* renderer, TTF_Font* font, const SDL_Rect& rect,
                                      const std::string& caption, bool hovered);

/// Draws a radio group, one row of 34 pixels per option, downwards from (`x`, `y`). Every option
/// whose value is `selected_value` shows as selected. `hovered_index` is the row to highlight, -1
/// for none.
QUINDLE_SDL_UI_EXPORT void DrawRadioGroup(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                                          const std::vector<RadioOption>& options,
                                          const std::string& selected_value, int hovered_index);

/// Returns the row of a group of `count` options at (`x`, `y`) that is under the mouse, or -1. The
/// rows reach from `x` to column 807, the right edge of the content area, whatever `x` is.
QUINDLE_SDL_UI_EXPORT int HitTestRadioGroup(int mouse_x, int mouse_y, int x, int y, int count);

/// Draws a checkbox with its top-left corner at (`x`, `y`) and its label. Returns whether the mouse
/// is over its row (583 pixels wide), which is then highlighted.
QUINDLE_SDL_UI_EXPORT bool DrawCheckbox(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                                        bool checked, const std::string& label, int mouse_x,
                                        int mouse_y);

/// Draws a slider for a fraction; its track starts at `x` and is `width` pixels wide. The bar shows
/// `value` limited to 0 .. 1, the label the value itself as a whole percentage.
///
/// Returns whether the slider is pressed: `mouse_down` (the left button's state) with the mouse
/// over the track or at most 8 pixels beside it. Then `*out_value` receives the fraction under the
/// mouse, 0 .. 1, unrounded. `out_value` may be null; it is written only when the slider is
/// pressed.
QUINDLE_SDL_UI_EXPORT bool DrawSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                                      int width, double value, int mouse_x, int mouse_y,
                                      bool mouse_down, double* out_value);

/// Draws a slider for a value between `min_value` and `max_value`, which may come in either order.
/// Bar and label show `value` limited to that range, the label with two decimals and `suffix`
/// (UTF-8; null for none). Pressing works as with DrawSlider; `*out_value` receives the value under
/// the mouse, within the range, unrounded.
QUINDLE_SDL_UI_EXPORT bool DrawRangeSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                                           int width, double value, double min_value,
                                           double max_value, int mouse_x, int mouse_y,
                                           bool mouse_down, double* out_value, const char* suffix);

}  // namespace quindle::frontend::gui

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

/// Draws one line of text. Nothing is drawn when the renderer or the font is null or the text
/// empty.
/// @param renderer the target; borrowed
/// @param font borrowed; may be null
/// @param text UTF-8
/// @param x left edge of the text
/// @param y top of the text
/// @param colour colour of the text
QUINDLE_SDL_UI_EXPORT void DrawText(SDL_Renderer* renderer, TTF_Font* font, const std::string& text,
                                    int x, int y, SDL_Color colour);

/// Tells how high a line of text is.
/// @param font borrowed; may be null
/// @param fallback the answer for a null font
/// @return the line height in pixels
QUINDLE_SDL_UI_EXPORT int FontHeightOr(TTF_Font* font, int fallback);

/// Tells whether a point lies in a rectangle; left and top edges inside, right and bottom outside.
/// @param x the point's column
/// @param y the point's row
/// @param r the rectangle
/// @return true when it does
QUINDLE_SDL_UI_EXPORT bool IsInRect(int x, int y, const SDL_Rect& r);

/// Draws a push button with its caption in the middle.
/// @param renderer the target; borrowed
/// @param font borrowed; may be null
/// @param rect the button
/// @param caption UTF-8; left out when it cannot be rendered
/// @param hovered whether to highlight the button
QUINDLE_SDL_UI_EXPORT void DrawButton(SDL_Renderer* renderer, TTF_Font* font, const SDL_Rect& rect,
                                      const std::string& caption, bool hovered);

/// Draws a radio group, one row of 34 pixels per option.
/// @param renderer the target; borrowed
/// @param font borrowed; may be null
/// @param x left edge of the circles
/// @param y top of the first row
/// @param options the rows from top to bottom
/// @param selected_value every option with this value shows as selected
/// @param hovered_index the row to highlight; -1 for none
QUINDLE_SDL_UI_EXPORT void DrawRadioGroup(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                                          const std::vector<RadioOption>& options,
                                          const std::string& selected_value, int hovered_index);

/// Finds the row of a radio group that is under the mouse. Rows end at column 807, the right edge
/// of the content area, wherever the group starts.
/// @param mouse_x the pointer's column
/// @param mouse_y the pointer's row
/// @param x left edge of the group
/// @param y top of its first row
/// @param count number of rows
/// @return the row, from 0, or -1 when there is none
QUINDLE_SDL_UI_EXPORT int HitTestRadioGroup(int mouse_x, int mouse_y, int x, int y, int count);

/// Draws a checkbox with its label. The row under the mouse, 583 pixels wide, is highlighted.
/// @param renderer the target; borrowed
/// @param font borrowed; may be null
/// @param x left edge of the box
/// @param y top of the box
/// @param checked whether the box is filled
/// @param label UTF-8
/// @param mouse_x the pointer's column
/// @param mouse_y the pointer's row
/// @return whether the mouse is over the row
QUINDLE_SDL_UI_EXPORT bool DrawCheckbox(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                                        bool checked, const std::string& label, int mouse_x,
                                        int mouse_y);

/// Draws a slider for a fraction. It is pressed while the button is held with the mouse in the band
/// of 20 pixels from `y` - 2 downwards that reaches 8 pixels beyond the track at either end.
/// @param renderer the target; borrowed
/// @param font borrowed; may be null
/// @param x left end of the track
/// @param y top of the slider; the middle of the track, 6 pixels high, lies 8 pixels below
/// @param width length of the track
/// @param value the label shows it as a whole percentage, the bar limited to 0 .. 1
/// @param mouse_x the pointer's column
/// @param mouse_y the pointer's row
/// @param mouse_down whether the left button is held
/// @param out_value receives the fraction under the mouse, 0 .. 1 and unrounded, while the slider
/// is pressed, and is left alone otherwise; beside the track the nearer end counts; may be null
/// @return whether the slider is pressed
QUINDLE_SDL_UI_EXPORT bool DrawSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                                      int width, double value, int mouse_x, int mouse_y,
                                      bool mouse_down, double* out_value);

/// Draws a slider for a value of a range. It is pressed where that of DrawSlider is.
/// @param renderer the target; borrowed
/// @param font borrowed; may be null
/// @param x left end of the track
/// @param y top of the slider, as for DrawSlider
/// @param width length of the track
/// @param value bar and label show it limited to the range, the label with two decimals
/// @param min_value one end of the range
/// @param max_value the other end; the two may come in either order
/// @param mouse_x the pointer's column
/// @param mouse_y the pointer's row
/// @param mouse_down whether the left button is held
/// @param out_value receives the value under the mouse, unrounded, while the slider is pressed, and
/// is left alone otherwise; within the range, which counts as at least 0.0001 long; may be null
/// @param suffix UTF-8, put behind the number in the label; may be null
/// @return whether the slider is pressed
QUINDLE_SDL_UI_EXPORT bool DrawRangeSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                                           int width, double value, double min_value,
                                           double max_value, int mouse_x, int mouse_y,
                                           bool mouse_down, double* out_value, const char* suffix);

}  // namespace quindle::frontend::gui

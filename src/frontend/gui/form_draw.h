#pragma once

// Private. What the two forms with text fields, HDD image and screenshot, draw alike: colours, font
// and texts. Where a thing stands and when it is drawn is the dialog's. Coordinates are window
// pixels, handles are borrowed.

#include <SDL.h>
#include <SDL_ttf.h>

#include <string_view>

namespace quindle::frontend::gui {

inline constexpr SDL_Color kFormBackground{20, 23, 27, 255};
inline constexpr SDL_Color kFormFieldFill{46, 52, 60, 255};
inline constexpr SDL_Color kFormFieldOutline{80, 86, 96, 255};
inline constexpr SDL_Color kFormFocusedFieldOutline{160, 176, 210, 255};
inline constexpr SDL_Color kFormButtonFill{56, 64, 74, 255};
inline constexpr SDL_Color kFormButtonOutline{95, 104, 116, 255};
inline constexpr SDL_Color kFormText{232, 236, 240, 255};
inline constexpr SDL_Color kFormDimText{170, 178, 190, 255};

inline constexpr int kFormLabelX = 20;
inline constexpr int kFormFieldPadding = 8;  // From a field's side edge to its text.

// The cached font of all texts of a form; null when no font file can be opened.
TTF_Font* FormFont();

// Draws nothing and opens no font without renderer or text.
void DrawFormText(SDL_Renderer* renderer, const char* text, int x, int y, SDL_Color color);

// Draws bytes that need not be text. What is too long is clipped to [x, right) and shows its end,
// where typing goes on.
void DrawFormTextEnd(SDL_Renderer* renderer, std::string_view bytes, int x, int y, int right,
                     SDL_Color color);

// The same inside a field, `drop` below its top edge.
void DrawFormFieldText(SDL_Renderer* renderer, const SDL_Rect& field, std::string_view bytes,
                       int drop);

}  // namespace quindle::frontend::gui

#pragma once

// Private. Colours and measures that several sources of the settings dialog share.

#include <SDL.h>

namespace quindle::frontend::gui {

inline constexpr SDL_Color kSettingsHover{40, 46, 60, 255};
inline constexpr SDL_Color kSettingsAccent{106, 166, 255, 255};
inline constexpr SDL_Color kSettingsGroove{52, 58, 70, 255};  // Separators and slider tracks.

// A missing font counts as so high, in pixels.
inline constexpr int kMissingFontHeight = 16;

}  // namespace quindle::frontend::gui

#include "frontend/gui/settings_widgets.h"

#include <algorithm>
#include <cmath>

#include "frontend/gui/float_text.h"
#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_style.h"

namespace quindle::frontend::gui {
namespace {

constexpr SDL_Color kButtonFill{48, 54, 68, 255};
constexpr SDL_Color kButtonHoverFill{68, 76, 92, 255};
constexpr SDL_Color kButtonBorder{84, 92, 108, 255};
constexpr SDL_Color kFrame{100, 108, 122, 255};

constexpr int kLabelIndent = 26;  // From a circle's or box's left edge to its label.
constexpr int kRowIndent = 4;     // How far the row highlight reaches left of the control.
constexpr int kRowWidth = 583;
constexpr int kContentRight = 807;  // Last column of the content area.
constexpr int kRadioRowHeight = 34;
constexpr int kRadioCentreY = 17;
constexpr int kRadioRadius = 8;
constexpr int kRadioHole = 6;
constexpr int kRadioDot = 4;
constexpr int kCheckboxSize = 16;
constexpr int kSliderTrackTop = 5;
constexpr int kSliderTrackHeight = 6;
constexpr int kSliderCentreY = 8;
constexpr int kKnobRadius = 8;

// Draws, point by point, what lies within `radius` of (cx, cy) but not within `hole`; a negative
// hole leaves the disc whole.
void DrawRing(SDL_Renderer* renderer, int cx, int cy, int radius, int hole, SDL_Color color) {
  SDL_SetRenderDrawColor(renderer, color.r, color.g, color.b, color.a);
  const int hole_squared = hole < 0 ? -1 : hole * hole;
  for (int dy = -radius; dy <= radius; ++dy) {
    for (int dx = -radius; dx <= radius; ++dx) {
      const int distance_squared = dx * dx + dy * dy;
      if (distance_squared > hole_squared && distance_squared <= radius * radius) {
        SDL_RenderDrawPoint(renderer, cx + dx, cy + dy);
      }
    }
  }
}

void DrawDisc(SDL_Renderer* renderer, int cx, int cy, int radius, SDL_Color color) {
  DrawRing(renderer, cx, cy, radius, -1, color);
}

void DrawRadioRow(SDL_Renderer* renderer, TTF_Font* font, int x, int top, const RadioOption& option,
                  bool selected, bool hovered) {
  if (hovered) {
    FillRect(renderer, SDL_Rect{x - kRowIndent, top, kRowWidth, kRadioRowHeight}, kSettingsHover);
  }
  const int centre_x = x + kRadioRadius;
  const int centre_y = top + kRadioCentreY;
  DrawRing(renderer, centre_x, centre_y, kRadioRadius, kRadioHole, kFrame);
  if (selected) {
    DrawDisc(renderer, centre_x, centre_y, kRadioDot, kSettingsAccent);
  }
  DrawText(renderer, font, option.label, x + kLabelIndent,
           centre_y - FontHeightOr(font, kMissingFontHeight) / 2,
           selected ? kColTextHi : kColTextMid);
}

// The tick has the colour of the square under it on purpose: a checked box is a filled one.
void DrawCheckMark(SDL_Renderer* renderer, int x, int y) {
  FillRect(renderer, SDL_Rect{x + 3, y + 3, 10, 10}, kSettingsAccent);
  DrawLine(renderer, x + 3, y + 8, x + 6, y + 11, kSettingsAccent);
  DrawLine(renderer, x + 6, y + 11, x + 12, y + 4, kSettingsAccent);
}

// `value` limited to low .. high; `low` for what is no number, so that no such value is ever
// converted to pixels.
double Limit(double value, double low, double high) {
  if (!(value > low)) {
    return low;
  }
  return value < high ? value : high;
}

// Where a slider stands.
struct SliderTrack {
  int x = 0;
  int y = 0;
  int width = 0;
};

void DrawSliderBar(SDL_Renderer* renderer, TTF_Font* font, const SliderTrack& track,
                   double fraction, const std::string& label) {
  const int top = track.y + kSliderTrackTop;
  const int filled = static_cast<int>(fraction * track.width);
  FillRect(renderer, SDL_Rect{track.x, top, track.width, kSliderTrackHeight}, kSettingsGroove);
  if (filled > 0) {
    FillRect(renderer, SDL_Rect{track.x, top, filled, kSliderTrackHeight}, kSettingsAccent);
  }
  const int centre_y = track.y + kSliderCentreY;
  DrawDisc(renderer, track.x + filled, centre_y, kKnobRadius, kSettingsAccent);
  DrawText(renderer, font, label, track.x + track.width + 12,
           centre_y - FontHeightOr(font, kMissingFontHeight) / 2, kColTextMid);
}

bool IsSliderPressed(const SliderTrack& track, int mouse_x, int mouse_y, bool mouse_down) {
  const SDL_Rect area{track.x - kKnobRadius, track.y - 2, track.width + 2 * kKnobRadius, 20};
  return mouse_down && IsInRect(mouse_x, mouse_y, area);
}

double FractionUnderMouse(const SliderTrack& track, int mouse_x) {
  return Limit((static_cast<double>(mouse_x) - track.x) / track.width, 0.0, 1.0);
}

// Adding zero turns the negative zero of a small negative fraction into a plain one.
std::string PercentLabel(double fraction) {
  return FormatFixed(std::round(fraction * 100.0) + 0.0, 0) + "%";
}

}  // namespace

void DrawText(SDL_Renderer* renderer, TTF_Font* font, const std::string& text, int x, int y,
              SDL_Color colour) {
  DrawSdlUiText(renderer, font, text, x, y, colour, nullptr);
}

int FontHeightOr(TTF_Font* font, int fallback) {
  return FontHeightOrFallback(font, fallback);
}

bool IsInRect(int x, int y, const SDL_Rect& r) {
  return IsPointInside(r, x, y);
}

void DrawButton(SDL_Renderer* renderer, TTF_Font* font, const SDL_Rect& rect,
                const std::string& caption, bool hovered) {
  FillAndOutlineRect(renderer, rect, hovered ? kButtonHoverFill : kButtonFill, kButtonBorder);
  if (font == nullptr) {
    return;
  }
  // Centred by the rendered size, which may differ from the measured one.
  const OwnedSdlSurface surface(TTF_RenderUTF8_Blended(font, caption.c_str(), kColTextHi));
  if (surface == nullptr) {
    return;
  }
  const OwnedSdlTexture texture(SDL_CreateTextureFromSurface(renderer, surface.get()));
  if (texture == nullptr) {
    return;
  }
  const SDL_Rect target{rect.x + (rect.w - surface->w) / 2, rect.y + (rect.h - surface->h) / 2,
                        surface->w, surface->h};
  SDL_RenderCopy(renderer, texture.get(), nullptr, &target);
}

void DrawRadioGroup(SDL_Renderer* renderer, TTF_Font* font, int x, int y,
                    const std::vector<RadioOption>& options, const std::string& selected_value,
                    int hovered_index) {
  int index = 0;
  for (const RadioOption& option : options) {
    DrawRadioRow(renderer, font, x, y + kRadioRowHeight * index, option,
                 option.value == selected_value, index == hovered_index);
    ++index;
  }
}

int HitTestRadioGroup(int mouse_x, int mouse_y, int x, int y, int count) {
  if (mouse_x < x || mouse_x > kContentRight || mouse_y < y) {
    return -1;
  }
  const long long row = (static_cast<long long>(mouse_y) - y) / kRadioRowHeight;
  return row < count ? static_cast<int>(row) : -1;
}

bool DrawCheckbox(SDL_Renderer* renderer, TTF_Font* font, int x, int y, bool checked,
                  const std::string& label, int mouse_x, int mouse_y) {
  const int font_height = FontHeightOr(font, kMissingFontHeight);
  const SDL_Rect row{x - kRowIndent, y - 5, kRowWidth, std::max(font_height, kCheckboxSize) + 10};
  const bool hovered = IsInRect(mouse_x, mouse_y, row);
  if (hovered) {
    FillRect(renderer, row, kSettingsHover);
  }
  OutlineRect(renderer, SDL_Rect{x, y, kCheckboxSize, kCheckboxSize}, kFrame);
  if (checked) {
    DrawCheckMark(renderer, x, y);
  }
  DrawText(renderer, font, label, x + kLabelIndent, y + (kCheckboxSize - font_height) / 2,
           checked ? kColTextHi : kColTextMid);
  return hovered;
}

bool DrawSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y, int width, double value,
                int mouse_x, int mouse_y, bool mouse_down, double* out_value) {
  const SliderTrack track{x, y, width};
  DrawSliderBar(renderer, font, track, Limit(value, 0.0, 1.0), PercentLabel(value));
  const bool pressed = IsSliderPressed(track, mouse_x, mouse_y, mouse_down);
  if (pressed && out_value != nullptr) {
    *out_value = FractionUnderMouse(track, mouse_x);
  }
  return pressed;
}

bool DrawRangeSlider(SDL_Renderer* renderer, TTF_Font* font, int x, int y, int width, double value,
                     double min_value, double max_value, int mouse_x, int mouse_y, bool mouse_down,
                     double* out_value, const char* suffix) {
  const SliderTrack track{x, y, width};
  const double low = std::min(min_value, max_value);
  const double high = std::max(min_value, max_value);
  const double span = std::max(high - low, 0.0001);
  std::string label = FormatFixed(Limit(value, low, high), 2);
  label += suffix == nullptr ? "" : suffix;
  DrawSliderBar(renderer, font, track, Limit((value - low) / span, 0.0, 1.0), label);
  const bool pressed = IsSliderPressed(track, mouse_x, mouse_y, mouse_down);
  if (pressed && out_value != nullptr) {
    *out_value = low + FractionUnderMouse(track, mouse_x) * span;
  }
  return pressed;
}

}  // namespace quindle::frontend::gui

#include "frontend/gui/sdl_text_fit.h"

#include <algorithm>

#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::frontend::gui {
namespace {

constexpr std::string_view kEllipsis = "...";

// More bytes than this cannot stand in `width` pixels. Measuring stays cheap for a line of
// megabytes, whatever it holds.
std::size_t MaxBytesInWidth(int width) {
  constexpr std::size_t kMaxBytesPerPixel = 4;
  return static_cast<std::size_t>(std::max(width, 0)) * kMaxBytesPerPixel;
}

bool IsContinuationByte(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// The greatest start of a UTF-8 sequence at or before `position`.
std::size_t BoundaryAtOrBefore(std::string_view text, std::size_t position) {
  while (position > 0 && position < text.size() && IsContinuationByte(text[position])) {
    --position;
  }
  return position;
}

// The least start of a UTF-8 sequence at or behind `position`.
std::size_t BoundaryAtOrBehind(std::string_view text, std::size_t position) {
  while (position < text.size() && IsContinuationByte(text[position])) {
    ++position;
  }
  return position;
}

int WidthOf(TTF_Font* font, const std::string& text) {
  return MeasureText(font, text).width;
}

bool Fits(TTF_Font* font, std::string_view text, int max_width) {
  return text.size() <= MaxBytesInWidth(max_width) && WidthOf(font, std::string(text)) <= max_width;
}

// The greatest count of kept bytes, at most `limit`, for which `shortened(count)` is at most
// `max_width` wide; 0 when not even the ellipsis fits.
template <typename Shortened>
std::size_t LongestFit(TTF_Font* font, std::size_t limit, int max_width, Shortened shortened) {
  std::size_t fitting = 0;
  while (fitting < limit) {
    const std::size_t tried = fitting + (limit - fitting + 1) / 2;
    if (WidthOf(font, shortened(tried)) <= max_width) {
      fitting = tried;
    } else {
      limit = tried - 1;
    }
  }
  return fitting;
}

template <typename Shortened>
std::string ShortenedToFit(TTF_Font* font, std::string_view text, int max_width,
                           Shortened shortened) {
  const std::size_t limit = std::min(text.size(), MaxBytesInWidth(max_width));
  std::string result = shortened(LongestFit(font, limit, max_width, shortened));
  return WidthOf(font, result) <= max_width ? result : std::string();
}

}  // namespace

std::string FitTextLeft(TTF_Font* font, std::string_view text, int max_width) {
  if (font == nullptr || Fits(font, text, max_width)) {
    return std::string(text);
  }
  return ShortenedToFit(font, text, max_width, [text](std::size_t kept) {
    return std::string(text.substr(0, BoundaryAtOrBefore(text, kept))).append(kEllipsis);
  });
}

std::string FitTextRight(TTF_Font* font, std::string_view text, int max_width) {
  if (font == nullptr || Fits(font, text, max_width)) {
    return std::string(text);
  }
  return ShortenedToFit(font, text, max_width, [text](std::size_t kept) {
    return std::string(kEllipsis).append(text.substr(BoundaryAtOrBehind(text, text.size() - kept)));
  });
}

void DrawTextEndVisible(SDL_Renderer* renderer, TTF_Font* font, std::string_view text, int x, int y,
                        int right, SDL_Color color) {
  const int room = std::max(right - x, 0);
  if (font == nullptr || Fits(font, text, room)) {
    DrawSdlUiText(renderer, font, text, x, y, color, nullptr);
    return;
  }
  const std::size_t kept = std::min(text.size(), MaxBytesInWidth(room));
  const std::string end(text.substr(BoundaryAtOrBehind(text, text.size() - kept)));
  const TextExtent extent = MeasureText(font, end);
  const ScopedClip clip(renderer, SDL_Rect{x, y, room, extent.height});
  DrawSdlUiText(renderer, font, end, right - extent.width, y, color, nullptr);
}

}  // namespace quindle::frontend::gui

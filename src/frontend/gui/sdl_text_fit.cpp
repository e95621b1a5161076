#include "frontend/gui/sdl_text_fit.h"

#include <algorithm>

#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "utils/ascii_text.h"

namespace quindle::frontend::gui {
namespace {

constexpr std::string_view kEllipsis = "...";

// Measuring stays cheap for a line of megabytes: no more bytes of it are looked at. A text that
// shows in its room has fewer, unless its characters stand on top of each other.
std::size_t MostBytesIn(int width) {
  constexpr std::size_t kBytesPerPixel = 4;
  constexpr std::size_t kBytesInAnyWidth = 1024;
  return std::max(kBytesInAnyWidth, static_cast<std::size_t>(std::max(width, 0)) * kBytesPerPixel);
}

// Measuring costs a third of drawing, so a text that is short for its room goes without. No
// character of one or two bytes is wider than the line is high for each of them. Of those with more
// bytes some are: a whole phrase can be one character.
bool IsShortFor(TTF_Font* font, std::string_view text, int width) {
  constexpr unsigned char kFirstOfThreeBytes = 0xE0;
  return static_cast<long long>(text.size()) * TTF_FontHeight(font) <= width &&
         std::all_of(text.begin(), text.end(),
                     [](unsigned char byte) { return byte < kFirstOfThreeBytes; });
}

bool Fits(TTF_Font* font, std::string_view text, int width) {
  return text.size() <= MostBytesIn(width) &&
         (IsShortFor(font, text, width) || MeasureText(font, std::string(text)).width <= width);
}

bool IsInsideCharacter(std::string_view text, std::size_t position) {
  return position > 0 && position < text.size() && utils::is_utf8_continuation(text[position]);
}

// At most the first `count` bytes; whole characters.
std::string_view Beginning(std::string_view text, std::size_t count) {
  while (IsInsideCharacter(text, count)) {
    --count;
  }
  return text.substr(0, count);
}

// At most the last `count` bytes; whole characters.
std::string_view End(std::string_view text, std::size_t count) {
  std::size_t begin = text.size() - count;
  while (IsInsideCharacter(text, begin)) {
    ++begin;
  }
  return text.substr(begin);
}

// About as many bytes of a text that does not fit as stand in `width` pixels. SDL_ttf counts
// glyphs, which are not always characters, from the text's left.
std::size_t GuessBytesIn(TTF_Font* font, const std::string& text, int width) {
  int glyphs = 0;
  TTF_MeasureUTF8(font, text.c_str(), width, nullptr, &glyphs);
  std::size_t bytes = 0;
  while (bytes < text.size() && (utils::is_utf8_continuation(text[bytes]) || glyphs-- > 0)) {
    ++bytes;
  }
  return bytes;
}

// `shortened(count)`, a text of at most `count` bytes and the ellipsis, for the greatest count that
// fits. Looks near the guess first, which is seldom wrong.
template <typename Shortened>
std::string LongestThatFits(TTF_Font* font, std::string_view text, int width, Shortened shortened) {
  const int room = width - MeasureText(font, std::string(kEllipsis)).width;
  if (room < 0) {
    return {};
  }
  std::size_t fitting = 0;
  std::size_t too_long = std::min(text.size(), MostBytesIn(width));
  std::size_t tried = GuessBytesIn(font, std::string(text.substr(0, too_long)), room);
  for (std::size_t step = 1; fitting + 1 < too_long; step *= 2) {
    if (tried <= fitting || tried >= too_long) {
      tried = fitting + (too_long - fitting) / 2;
    }
    if (Fits(font, shortened(tried), width)) {
      fitting = tried;
      tried += step;
    } else {
      too_long = tried;
      tried -= std::min(tried, step);
    }
  }
  return shortened(fitting);
}

}  // namespace

std::string FitTextLeft(TTF_Font* font, std::string_view text, int max_width) {
  if (font == nullptr || Fits(font, text, max_width)) {
    return std::string(text);
  }
  return LongestThatFits(font, text, max_width, [text](std::size_t count) {
    return std::string(Beginning(text, count)).append(kEllipsis);
  });
}

std::string FitTextRight(TTF_Font* font, std::string_view text, int max_width) {
  if (font == nullptr || Fits(font, text, max_width)) {
    return std::string(text);
  }
  return LongestThatFits(font, text, max_width, [text](std::size_t count) {
    return std::string(kEllipsis).append(End(text, count));
  });
}

void DrawTextStartVisible(SDL_Renderer* renderer, TTF_Font* font, std::string_view text, int x,
                          int y, int right, SDL_Color color) {
  const int room = std::max(right - x, 0);
  if (font == nullptr || Fits(font, text, room)) {
    DrawSdlUiText(renderer, font, text, x, y, color, nullptr);
    return;
  }
  const std::string start(Beginning(text, std::min(text.size(), MostBytesIn(room))));
  const ScopedClip clip(renderer, SDL_Rect{x, y, room, MeasureText(font, start).height});
  DrawSdlUiText(renderer, font, start, x, y, color, nullptr);
}

void DrawTextEndVisible(SDL_Renderer* renderer, TTF_Font* font, std::string_view text, int x, int y,
                        int right, SDL_Color color) {
  const int room = std::max(right - x, 0);
  if (font == nullptr || Fits(font, text, room)) {
    DrawSdlUiText(renderer, font, text, x, y, color, nullptr);
    return;
  }
  const std::string end(End(text, std::min(text.size(), MostBytesIn(room))));
  const TextExtent extent = MeasureText(font, end);
  const ScopedClip clip(renderer, SDL_Rect{x, y, room, extent.height});
  DrawSdlUiText(renderer, font, end, right - extent.width, y, color, nullptr);
}

}  // namespace quindle::frontend::gui

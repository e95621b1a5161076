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

// The end of what is drawn as one character from `begin` on. A byte that starts no UTF-8 sequence
// is drawn alone, however many of its kind follow.
std::size_t CharacterEnd(std::string_view text, std::size_t begin) {
  const auto lead = static_cast<unsigned char>(text[begin]);
  if (lead < 0xC0) {
    return begin + 1;
  }
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  const std::size_t last = std::min(text.size(), begin + length);
  std::size_t end = begin + 1;
  while (end < last && IsContinuationByte(text[end])) {
    ++end;
  }
  return end;
}

// The code point of one UTF-8 sequence; the replacement character for a byte that starts none, any
// value for other bytes that are no sequence.
Uint32 CodePointOf(std::string_view sequence) {
  constexpr unsigned kLeadMasks[] = {0x00, 0x7F, 0x1F, 0x0F, 0x07};
  const auto lead = static_cast<unsigned char>(sequence.front());
  if (sequence.size() == 1 && lead >= 0x80) {
    return 0xFFFD;
  }
  Uint32 code_point = lead & kLeadMasks[std::min<std::size_t>(sequence.size(), 4)];
  for (const char byte : sequence.substr(1)) {
    code_point = code_point << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  return code_point;
}

// Pixels from one character to the next, without kerning. Costs a hundredth of a measurement. Where
// it cannot be had, about what a letter takes: with none at all every text would seem to fit.
int AdvanceOf(TTF_Font* font, std::string_view sequence) {
  int advance = 0;
  const int status =
      TTF_GlyphMetrics32(font, CodePointOf(sequence), nullptr, nullptr, nullptr, nullptr, &advance);
  return status == 0 ? std::max(advance, 0) : TTF_FontHeight(font) / 2;
}

// About as many of the first bytes of `text` as fit in `room` pixels; whole characters.
std::size_t EstimateLeadingBytes(TTF_Font* font, std::string_view text, int room) {
  std::size_t end = 0;
  while (end < text.size()) {
    const std::size_t next = CharacterEnd(text, end);
    room -= AdvanceOf(font, text.substr(end, next - end));
    if (room < 0) {
      break;
    }
    end = next;
  }
  return end;
}

// As EstimateLeadingBytes, of the last bytes.
std::size_t EstimateTrailingBytes(TTF_Font* font, std::string_view text, int room) {
  std::size_t begin = text.size();
  while (begin > 0) {
    const std::size_t previous = BoundaryAtOrBefore(text, begin - 1);
    room -= AdvanceOf(font, text.substr(previous, begin - previous));
    if (room < 0) {
      break;
    }
    begin = previous;
  }
  return text.size() - begin;
}

// True when the characters side by side, without kerning, are at most `room` pixels wide.
bool FitsByAdvances(TTF_Font* font, std::string_view text, int room) {
  return EstimateLeadingBytes(font, text, room) == text.size();
}

// Kerning and ligatures neither double nor halve a text: only one of about the width in question is
// measured, which costs half as much as drawing it.
bool Fits(TTF_Font* font, std::string_view text, int max_width) {
  if (text.size() > MaxBytesInWidth(max_width)) {
    return false;
  }
  return FitsByAdvances(font, text, max_width / 2) ||
         (FitsByAdvances(font, text, 2 * max_width) &&
          WidthOf(font, std::string(text)) <= max_width);
}

// The greatest count of kept bytes, at most `limit`, for which `shortened(count)` is at most
// `max_width` wide; 0 when not even the ellipsis fits. Looks near `guess` first, since a
// measurement costs as much as a fifth of drawing the text: a good guess takes two.
template <typename Shortened>
std::size_t LongestFit(TTF_Font* font, std::size_t limit, std::size_t guess, int max_width,
                       Shortened shortened) {
  std::size_t fitting = 0;
  std::size_t too_long = limit + 1;
  std::size_t tried = guess;
  for (std::size_t step = 1; fitting + 1 < too_long; step *= 2) {
    if (tried <= fitting || tried >= too_long) {
      tried = fitting + (too_long - fitting) / 2;
    }
    if (WidthOf(font, shortened(tried)) <= max_width) {
      fitting = tried;
      tried += step;
    } else {
      too_long = tried;
      tried -= std::min(tried, step);
    }
  }
  return fitting;
}

template <typename Estimate, typename Shortened>
std::string ShortenedToFit(TTF_Font* font, std::string_view text, int max_width, Estimate estimate,
                           Shortened shortened) {
  const std::size_t limit = std::min(text.size(), MaxBytesInWidth(max_width));
  const int room = max_width - WidthOf(font, std::string(kEllipsis));
  if (room < 0) {
    return {};
  }
  const std::size_t guess = estimate(font, text, room);
  return shortened(LongestFit(font, limit, guess, max_width, shortened));
}

}  // namespace

std::string FitTextLeft(TTF_Font* font, std::string_view text, int max_width) {
  if (font == nullptr || Fits(font, text, max_width)) {
    return std::string(text);
  }
  return ShortenedToFit(font, text, max_width, EstimateLeadingBytes, [text](std::size_t kept) {
    return std::string(text.substr(0, BoundaryAtOrBefore(text, kept))).append(kEllipsis);
  });
}

std::string FitTextRight(TTF_Font* font, std::string_view text, int max_width) {
  if (font == nullptr || Fits(font, text, max_width)) {
    return std::string(text);
  }
  return ShortenedToFit(font, text, max_width, EstimateTrailingBytes, [text](std::size_t kept) {
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

// SDL_ttf's functions as the library sees them in a test program: written down, then forwarded.

#include <SDL.h>
#include <SDL_ttf.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "support/recorder_state.h"

using quindle::testing::DrawMode;
using quindle::testing::EnterCall;
using quindle::testing::FontState;
using quindle::testing::FontUse;
using quindle::testing::InsideTtf;
using quindle::testing::MeasureMode;
using quindle::testing::RecorderState;
using quindle::testing::RenderedText;
using quindle::testing::State;

namespace {

FontState* FindFont(const TTF_Font* font) {
  auto& fonts = State().alive_fonts;
  const auto found = std::find_if(fonts.begin(), fonts.end(),
                                  [font](const auto& entry) { return entry.first == font; });
  return found == fonts.end() ? nullptr : &found->second;
}

bool MeasuresApproximately(const TTF_Font* font) {
  return State().measure_mode == MeasureMode::Approximate && FindFont(font) != nullptr;
}

int CountCharacters(std::string_view text) {
  return static_cast<int>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
}

int ApproximateWidth(const TTF_Font* font, int characters) {
  return characters * FindFont(font)->use.size * 55 / 100;
}

SDL_Point ApproximateSize(const TTF_Font* font, std::string_view text) {
  return {ApproximateWidth(font, CountCharacters(text)), FindFont(font)->use.size * 13 / 10};
}

bool IsHidden(const std::string& path) {
  return State().hidden_fonts && State().hidden_fonts(path);
}

// A surface of the right size over pixels that nobody looks at.
SDL_Surface* MakeBlankSurface(int width, int height) {
  static std::array<Uint32, 1U << 18U> pixels{};
  const int w = std::max(width, 1);
  const int h = std::max(height, 1);
  if (static_cast<std::size_t>(w) * static_cast<std::size_t>(h) > pixels.size()) {
    return SDL_CreateRGBSurfaceWithFormat(0, w, h, 32, SDL_PIXELFORMAT_ARGB8888);
  }
  return SDL_CreateRGBSurfaceWithFormatFrom(pixels.data(), w, h, 32, w * 4,
                                            SDL_PIXELFORMAT_ARGB8888);
}

}  // namespace

extern "C" {

QUINDLE_WRAP_SLOT(TTF_Init, true)
int TTF_Init() {
  QUINDLE_REAL(TTF_Init);
  return EnterCall(slot, nullptr) ? -1 : real();
}

QUINDLE_WRAP_SLOT(TTF_Quit, false)
void TTF_Quit() {
  QUINDLE_REAL(TTF_Quit);
  EnterCall(slot, nullptr);
  real();
}

QUINDLE_WRAP_SLOT(TTF_WasInit, true)
int TTF_WasInit() {
  QUINDLE_REAL(TTF_WasInit);
  return EnterCall(slot, nullptr) ? 0 : real();
}

QUINDLE_WRAP_SLOT(TTF_OpenFont, true)
TTF_Font* TTF_OpenFont(const char* file, int size) {
  QUINDLE_REAL(TTF_OpenFont);
  const bool fails = EnterCall(slot, nullptr);
  RecorderState& state = State();
  const std::string path = file;
  TTF_Font* font = nullptr;
  if (!fails && !IsHidden(path)) {
    const InsideTtf inside;
    const auto redirect = state.font_redirects.find(path);
    font = real(redirect == state.font_redirects.end() ? file : redirect->second.c_str(), size);
  }
  state.font_requests.push_back({path, size, font != nullptr, 0});
  if (font != nullptr) {
    state.alive_fonts[font] = {FontUse{path, size, 0}, state.font_requests.size() - 1};
  }
  return font;
}

QUINDLE_WRAP_SLOT(TTF_CloseFont, false)
void TTF_CloseFont(TTF_Font* font) {
  QUINDLE_REAL(TTF_CloseFont);
  if (InsideTtf::IsActive()) {
    real(font);
    return;
  }
  EnterCall(slot, font);
  if (State().alive_fonts.erase(font) == 0) {
    State().violations.emplace_back("TTF_CloseFont of no font");
    return;
  }
  State().baseline.erase(font);
  const InsideTtf inside;
  real(font);
}

QUINDLE_WRAP_SLOT(TTF_SetFontStyle, false)
void TTF_SetFontStyle(TTF_Font* font, int style) {
  QUINDLE_REAL(TTF_SetFontStyle);
  EnterCall(slot, font);
  if (FontState* found = FindFont(font)) {
    found->use.style = style;
    if (found->request) {
      State().font_requests[*found->request].style = style;
    }
  }
  real(font, style);
}

QUINDLE_WRAP_SLOT(TTF_GetFontStyle, false)
int TTF_GetFontStyle(const TTF_Font* font) {
  QUINDLE_REAL(TTF_GetFontStyle);
  EnterCall(slot, font);
  return real(font);
}

QUINDLE_WRAP_SLOT(TTF_FontHeight, false)
int TTF_FontHeight(const TTF_Font* font) {
  QUINDLE_REAL(TTF_FontHeight);
  EnterCall(slot, font);
  return MeasuresApproximately(font) ? ApproximateSize(font, "").y : real(font);
}

QUINDLE_WRAP_SLOT(TTF_GlyphIsProvided32, true)
int TTF_GlyphIsProvided32(TTF_Font* font, Uint32 code_point) {
  QUINDLE_REAL(TTF_GlyphIsProvided32);
  return EnterCall(slot, font) ? 0 : real(font, code_point);
}

QUINDLE_WRAP_SLOT(TTF_GlyphMetrics32, true)
int TTF_GlyphMetrics32(TTF_Font* font, Uint32 code_point, int* min_x, int* max_x, int* min_y,
                       int* max_y, int* advance) {
  QUINDLE_REAL(TTF_GlyphMetrics32);
  if (EnterCall(slot, font)) {
    return -1;
  }
  const InsideTtf inside;
  return real(font, code_point, min_x, max_x, min_y, max_y, advance);
}

QUINDLE_WRAP_SLOT(TTF_SizeUTF8, true)
int TTF_SizeUTF8(TTF_Font* font, const char* text, int* w, int* h) {
  QUINDLE_REAL(TTF_SizeUTF8);
  if (EnterCall(slot, font)) {
    return -1;
  }
  if (!MeasuresApproximately(font)) {
    const InsideTtf inside;
    return real(font, text, w, h);
  }
  const SDL_Point size = ApproximateSize(font, text);
  if (w != nullptr) {
    *w = size.x;
  }
  if (h != nullptr) {
    *h = size.y;
  }
  return 0;
}

QUINDLE_WRAP_SLOT(TTF_MeasureUTF8, true)
int TTF_MeasureUTF8(TTF_Font* font, const char* text, int measure_width, int* extent, int* count) {
  QUINDLE_REAL(TTF_MeasureUTF8);
  if (EnterCall(slot, font)) {
    return -1;
  }
  if (!MeasuresApproximately(font)) {
    const InsideTtf inside;
    return real(font, text, measure_width, extent, count);
  }
  const int characters = CountCharacters(text);
  int fitting = 0;
  while (fitting < characters && ApproximateWidth(font, fitting + 1) <= measure_width) {
    ++fitting;
  }
  if (extent != nullptr) {
    *extent = ApproximateWidth(font, fitting);
  }
  if (count != nullptr) {
    *count = fitting;
  }
  return 0;
}

QUINDLE_WRAP_SLOT(TTF_RenderUTF8_Blended, true)
SDL_Surface* TTF_RenderUTF8_Blended(TTF_Font* font, const char* text, SDL_Color color) {
  QUINDLE_REAL(TTF_RenderUTF8_Blended);
  if (EnterCall(slot, font)) {
    return nullptr;
  }
  SDL_Surface* surface = nullptr;
  if (State().draw_mode == DrawMode::Forwarded) {
    const InsideTtf inside;
    surface = real(font, text, color);
  } else if (MeasuresApproximately(font)) {
    const SDL_Point size = ApproximateSize(font, text);
    surface = MakeBlankSurface(size.x, size.y);
  } else {
    static auto* const measure =
        quindle::testing::RealFunction<int(TTF_Font*, const char*, int*, int*)>("TTF_SizeUTF8");
    const InsideTtf inside;
    int w = 0;
    int h = 0;
    if (measure(font, text, &w, &h) == 0 && w > 0) {
      surface = MakeBlankSurface(w, h);
    }
  }
  if (surface != nullptr) {
    std::optional<RenderedText> rendered;
    if (const FontState* found = FindFont(font)) {
      rendered = RenderedText{text, found->use, color};
    }
    State().alive_surfaces[surface] = std::move(rendered);
  }
  return surface;
}

}  // extern "C"

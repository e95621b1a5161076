#include "frontend/gui/sdl_draw.h"

#include <algorithm>

namespace quindle::frontend::gui {
namespace {

void UseColor(SDL_Renderer* renderer, SDL_Color color) {
  SDL_SetRenderDrawColor(renderer, color.r, color.g, color.b, color.a);
}

}  // namespace

void ClearFrame(SDL_Renderer* renderer, SDL_Color color) {
  UseColor(renderer, color);
  SDL_RenderClear(renderer);
}

void FillRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color color) {
  UseColor(renderer, color);
  SDL_RenderFillRect(renderer, &rect);
}

void OutlineRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color color) {
  if (SDL_RectEmpty(&rect) == SDL_TRUE) {
    return;  // SDL would draw its corners.
  }
  UseColor(renderer, color);
  SDL_RenderDrawRect(renderer, &rect);
}

void FillAndOutlineRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color fill,
                        SDL_Color outline) {
  FillRect(renderer, rect, fill);
  OutlineRect(renderer, rect, outline);
}

void DrawLine(SDL_Renderer* renderer, int x1, int y1, int x2, int y2, SDL_Color color) {
  UseColor(renderer, color);
  SDL_RenderDrawLine(renderer, x1, y1, x2, y2);
}

bool IsPointInside(const SDL_Rect& rect, int x, int y) {
  // Wider than int: a rectangle near the ends of the range must not wrap round.
  const long long px = x;
  const long long py = y;
  return px >= rect.x && py >= rect.y && px < static_cast<long long>(rect.x) + rect.w &&
         py < static_cast<long long>(rect.y) + rect.h;
}

TextExtent MeasureText(TTF_Font* font, const std::string& text) {
  TextExtent extent;
  if (font == nullptr) {
    return extent;
  }
  if (TTF_SizeUTF8(font, text.c_str(), &extent.width, &extent.height) != 0) {
    return TextExtent{};
  }
  extent.measured = true;
  return extent;
}

int FontHeightOrFallback(TTF_Font* font, int fallback) {
  return font == nullptr ? fallback : TTF_FontHeight(font);
}

ScopedClip::ScopedClip(SDL_Renderer* renderer, const SDL_Rect& area)
    : renderer_(renderer), had_clip_(SDL_RenderIsClipEnabled(renderer) == SDL_TRUE) {
  SDL_Rect clip{area.x, area.y, std::max(area.w, 0), std::max(area.h, 0)};
  if (had_clip_) {
    SDL_RenderGetClipRect(renderer_, &former_);
    if (SDL_IntersectRect(&former_, &area, &clip) == SDL_FALSE) {
      clip = SDL_Rect{area.x, area.y, 0, 0};
    }
  }
  SDL_RenderSetClipRect(renderer_, &clip);
}

ScopedClip::~ScopedClip() {
  SDL_RenderSetClipRect(renderer_, had_clip_ ? &former_ : nullptr);
}

}  // namespace quindle::frontend::gui

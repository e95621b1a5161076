#pragma once

// Private. The drawing steps, the point test and the text measurement that all dialogs share; they
// exist here and nowhere else. Coordinates are window pixels, handles are borrowed.

#include <SDL.h>
#include <SDL_ttf.h>

#include <string>

namespace quindle::frontend::gui {

// Fills the whole target with one colour.
void ClearFrame(SDL_Renderer* renderer, SDL_Color color);
void FillRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color color);
// One pixel wide, inside the rectangle's edges; nothing for an empty rectangle.
void OutlineRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color color);
void FillAndOutlineRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color fill,
                        SDL_Color outline);
// Both end points are drawn.
void DrawLine(SDL_Renderer* renderer, int x1, int y1, int x2, int y2, SDL_Color color);

// Left and top edges inside, right and bottom edges outside.
bool IsPointInside(const SDL_Rect& rect, int x, int y);

// Size of a line of text; empty when there is no font, no text or the measurement failed.
struct TextExtent {
  int width = 0;
  int height = 0;
  bool measured = false;
};
TextExtent MeasureText(TTF_Font* font, const std::string& text);

// Height of a font's line, or `fallback` without a font.
int FontHeightOrFallback(TTF_Font* font, int fallback);

// Narrows the renderer's clip rectangle to `area` and puts the former one back when it goes out of
// scope. An area without room leaves nothing to draw on.
class ScopedClip {
 public:
  ScopedClip(SDL_Renderer* renderer, const SDL_Rect& area);
  ~ScopedClip();
  ScopedClip(const ScopedClip&) = delete;
  ScopedClip& operator=(const ScopedClip&) = delete;
  ScopedClip(ScopedClip&&) = delete;
  ScopedClip& operator=(ScopedClip&&) = delete;

 private:
  SDL_Renderer* renderer_;
  bool had_clip_;
  SDL_Rect former_{0, 0, 0, 0};
};

}  // namespace quindle::frontend::gui

#pragma once

// What one frame of a dialog drew, as the call recorder saw it.
//
//   const Frame& frame = Recorder().last_frame();
//   const DrawCall* title = frame.FindText("Settings");
//   ASSERT_NE(title, nullptr);
//   EXPECT_EQ(title->color, kColTextHi);
//   EXPECT_THAT(frame.Fills({18, 21, 27, 255}), ElementsAre(SDL_Rect{0, 0, 420, 180}));

#include <SDL.h>

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "support/sdl_values.h"

namespace quindle::testing {

enum class DrawKind { Clear, Fill, Outline, Line, Point, Text, Copy };

// The font that a text was drawn with.
struct FontUse {
  std::string path;
  int size = 0;   // Points.
  int style = 0;  // TTF_STYLE_...

  bool operator==(const FontUse&) const = default;
};

// One draw call. Only the fields that its kind names hold something.
struct DrawCall {
  DrawKind kind = DrawKind::Clear;
  SDL_Rect rect{0, 0, 0, 0};     // Fill, Outline, Text, Copy: the target; Clear: the whole window.
  SDL_Point from{0, 0};          // Line: its first end; Point: the point.
  SDL_Point to{0, 0};            // Line: its second end.
  SDL_Color color{0, 0, 0, 0};   // The draw colour in force; Text: the text's colour.
  std::optional<SDL_Rect> clip;  // The clip rectangle in force; nothing when there is none.
  std::optional<SDL_Rect> source;  // Text, Copy: the part of the texture; nothing for all of it.
  std::string text;                // Text: the string as it was given to SDL_ttf.
  FontUse font;                    // Text: the font at the moment of rendering.

  // True when the clip rectangle leaves nothing of `rect`.
  bool IsClippedAway() const;
};

// The draw calls from one present to the next, in order.
struct Frame {
  SDL_Renderer* renderer = nullptr;
  SDL_Window* window = nullptr;
  std::vector<DrawCall> draws;

  // The first text that is exactly `text`; null when there is none.
  const DrawCall* FindText(std::string_view text) const;
  // The first text that holds `part`; null when there is none.
  const DrawCall* FindTextContaining(std::string_view part) const;
  bool HasText(std::string_view text) const { return FindText(text) != nullptr; }
  // All texts in the order of drawing; those that are clipped away too.
  std::vector<std::string> Texts() const;
  // The texts of which something shows inside the clip rectangle.
  std::vector<std::string> VisibleTexts() const;
  std::vector<DrawCall> OfKind(DrawKind kind) const;
  // Rectangles filled or outlined in a colour, in the order of drawing.
  std::vector<SDL_Rect> Fills(SDL_Color color) const;
  std::vector<SDL_Rect> Outlines(SDL_Color color) const;
  // Lines drawn in a colour, in the order of drawing.
  std::vector<DrawCall> Lines(SDL_Color color) const;
  // The colour that clears and fills leave at a point; nothing when none covers it. Outlines,
  // lines and texts are not looked at.
  std::optional<SDL_Color> FillAt(int x, int y) const;
};

std::ostream& operator<<(std::ostream& out, DrawKind kind);
void PrintTo(const FontUse& font, std::ostream* out);
void PrintTo(const DrawCall& call, std::ostream* out);
// One draw call a line.
void PrintTo(const Frame& frame, std::ostream* out);

}  // namespace quindle::testing

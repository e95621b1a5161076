#pragma once

// SDL's plain records in expectations: they compare field by field and GoogleTest prints them.
//
//   EXPECT_EQ(layout.frame, (SDL_Rect{10, 10, 300, 160}));
//   EXPECT_EQ(call.color, kColTextHi);

#include <SDL.h>

#include <ostream>

inline bool operator==(const SDL_Rect& a, const SDL_Rect& b) {
  return a.x == b.x && a.y == b.y && a.w == b.w && a.h == b.h;
}

inline bool operator==(const SDL_Point& a, const SDL_Point& b) {
  return a.x == b.x && a.y == b.y;
}

inline bool operator==(const SDL_Color& a, const SDL_Color& b) {
  return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}

inline void PrintTo(const SDL_Rect& rect, std::ostream* out) {
  *out << '(' << rect.x << ", " << rect.y << ", " << rect.w << ", " << rect.h << ')';
}

inline void PrintTo(const SDL_Point& point, std::ostream* out) {
  *out << '(' << point.x << ", " << point.y << ')';
}

inline void PrintTo(const SDL_Color& color, std::ostream* out) {
  *out << "rgba(" << int{color.r} << ", " << int{color.g} << ", " << int{color.b} << ", "
       << int{color.a} << ')';
}

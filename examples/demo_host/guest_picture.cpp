#include "guest_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <stdexcept>
#include <string>

namespace quindle::demo {
namespace {

// Palette: 16 fixed colours, then three ramps that each fill the rest of their range.
constexpr int kGreyRamp = 16;   // 32 greys, black to white.
constexpr int kSkyRamp = 48;    // 64 blues, dark to light.
constexpr int kHueWheel = 112;  // 128 hues; the band that uses them is turned by the frame.
constexpr int kGreys = 32;
constexpr int kBlues = 64;
constexpr int kHues = 128;

// Fixed colours.
constexpr Uint8 kBlack = 0;
constexpr Uint8 kWhite = 1;
constexpr Uint8 kGrid = 2;
constexpr Uint8 kBall = 3;
constexpr Uint8 kBallLight = 4;
constexpr Uint8 kFirstBar = 8;  // Eight colour bars.

Uint8 Level(double fraction) {
  return static_cast<Uint8>(std::lround(fraction * 255.0));
}

SDL_Color Hue(double turn) {
  const auto channel = [turn](double offset) {
    return Level(0.5 + 0.5 * std::cos(2.0 * std::numbers::pi * (turn - offset)));
  };
  return {channel(0.0), channel(1.0 / 3.0), channel(2.0 / 3.0), 255};
}

using Palette = std::array<SDL_Color, 256>;

// Fills `count` colours from `first`; `colour` gives them for 0 (the first) to 1 (the last).
template <typename Colour>
void FillRamp(Palette* palette, int first, int count, Colour colour) {
  for (int i = 0; i < count; ++i) {
    palette->at(static_cast<unsigned>(first + i)) = colour(i / (count - 1.0));
  }
}

SDL_Color Grey(double t) {
  return {Level(t), Level(t), Level(t), 255};
}

SDL_Color Sky(double t) {
  return {Level(0.05 + 0.25 * t), Level(0.09 + 0.35 * t), Level(0.2 + 0.4 * t), 255};
}

// White, yellow, cyan, green, magenta, red, blue, black.
SDL_Color Bar(unsigned bar) {
  const auto channel = [bits = 7 - bar](unsigned bit) {
    return static_cast<Uint8>((bits & bit) != 0 ? 191 : 0);
  };
  return {channel(2), channel(4), channel(1), 255};
}

Palette MakePalette() {
  Palette palette{};
  palette.fill({0, 0, 0, 255});
  palette[kWhite] = {255, 255, 255, 255};
  palette[kGrid] = {92, 104, 124, 255};
  palette[kBall] = {214, 48, 49, 255};
  palette[kBallLight] = {255, 214, 200, 255};
  for (unsigned bar = 0; bar < 8; ++bar) {
    palette[kFirstBar + bar] = Bar(bar);
  }
  FillRamp(&palette, kGreyRamp, kGreys, &Grey);
  FillRamp(&palette, kSkyRamp, kBlues, &Sky);
  FillRamp(&palette, kHueWheel, kHues, [](double t) { return Hue(t * (kHues - 1) / kHues); });
  return palette;
}

void Fill(SDL_Surface* canvas, const SDL_Rect& area, int colour) {
  SDL_FillRect(canvas, &area, static_cast<Uint32>(colour));
}

void Plot(SDL_Surface* canvas, int x, int y, int colour) {
  Fill(canvas, {x, y, 1, 1}, colour);
}

void DrawSkyAndGrid(SDL_Surface* canvas) {
  for (int y = 0; y < canvas->h; ++y) {
    Fill(canvas, {0, y, canvas->w, 1}, kSkyRamp + y * (kBlues - 1) / (canvas->h - 1));
  }
  for (int x = 0; x <= canvas->w; x += 20) {
    Fill(canvas, {x == canvas->w ? x - 1 : x, 0, 1, canvas->h}, kGrid);
  }
  for (int y = 0; y <= canvas->h; y += 20) {
    Fill(canvas, {0, y == canvas->h ? y - 1 : y, canvas->w, 1}, kGrid);
  }
}

void DrawBars(SDL_Surface* canvas) {
  for (int bar = 0; bar < 8; ++bar) {
    Fill(canvas, {40 + bar * 30, 40, 30, 50}, kFirstBar + bar);
  }
  for (int i = 0; i < 24; ++i) {
    Fill(canvas, {40 + i * 10, 90, 10, 20}, kGreyRamp + i * (kGreys - 1) / 23);
  }
}

// A band whose hues run to the left, one step a frame.
void DrawHueBand(SDL_Surface* canvas, int frame) {
  for (int x = 0; x < 240; ++x) {
    Fill(canvas, {40 + x, 110, 1, 20}, kHueWheel + (x * kHues / 240 + frame) % kHues);
  }
}

// A pixel is 1.2 times as high as it is wide on a 4:3 monitor, so a circle is drawn flat.
int FlatHalfHeight(int radius, int dx) {
  const double half = std::sqrt(static_cast<double>(radius * radius - dx * dx));
  return static_cast<int>(std::lround(half / 1.2));
}

// Walked along both axes, so that neither the flat nor the steep parts have holes.
void DrawCircle(SDL_Surface* canvas, int cx, int cy, int radius) {
  for (int dx = -radius; dx <= radius; ++dx) {
    const int half = FlatHalfHeight(radius, dx);
    Plot(canvas, cx + dx, cy - half, kWhite);
    Plot(canvas, cx + dx, cy + half, kWhite);
  }
  const int flat_radius = FlatHalfHeight(radius, 0);
  for (int dy = -flat_radius; dy <= flat_radius; ++dy) {
    const double rise = std::min<double>(radius, 1.2 * std::abs(dy));
    const auto half = static_cast<int>(std::lround(std::sqrt(radius * radius - rise * rise)));
    Plot(canvas, cx - half, cy + dy, kWhite);
    Plot(canvas, cx + half, cy + dy, kWhite);
  }
}

void DrawBall(SDL_Surface* canvas, int cx, int cy, int radius) {
  for (int dx = -radius; dx <= radius; ++dx) {
    const int half = FlatHalfHeight(radius, dx);
    Fill(canvas, {cx + dx, cy - half, 1, 2 * half + 1}, kBall);
  }
  Fill(canvas, {cx - radius / 2, cy - radius / 2, 4, 3}, kBallLight);
}

// Goes from 0 up to `range` and back, two pixels a frame.
int BounceBetween(int frame, int range) {
  const int phase = frame * 2 % (2 * range);
  return phase <= range ? phase : 2 * range - phase;
}

// Digits of three by five dots, a row per octal figure, top row first.
constexpr std::array<unsigned, 10> kDigits = {075557, 026227, 071747, 071717, 055711,
                                              074717, 074757, 071111, 075757, 075717};

void DrawDigit(SDL_Surface* canvas, unsigned digit, int left, int top) {
  for (int row = 0; row < 5; ++row) {
    for (int column = 0; column < 3; ++column) {
      const int bit = (4 - row) * 3 + (2 - column);
      if (((kDigits[digit] >> bit) & 1U) != 0) {
        Fill(canvas, {left + column * 3, top + row * 3, 3, 3}, kWhite);
      }
    }
  }
}

void DrawCounter(SDL_Surface* canvas, int frame) {
  Fill(canvas, {130, 139, 60, 22}, kBlack);
  auto rest = static_cast<unsigned>(frame % 10000);
  for (int place = 3; place >= 0; --place) {
    DrawDigit(canvas, rest % 10, 136 + place * 13, 143);
    rest /= 10;
  }
}

// Single lit pixels in the corners show whether the whole picture is on screen.
void DrawCorners(SDL_Surface* canvas) {
  for (const int x : {0, canvas->w - 1}) {
    for (const int y : {0, canvas->h - 1}) {
      Plot(canvas, x, y, kWhite);
    }
  }
}

}  // namespace

GuestPicture::GuestPicture()
    : canvas_(SDL_CreateRGBSurfaceWithFormat(0, kWidth, kHeight, 8, SDL_PIXELFORMAT_INDEX8)) {
  const Palette palette = MakePalette();
  if (canvas_ == nullptr ||
      SDL_SetPaletteColors(canvas_->format->palette, palette.data(), 0, 256) != 0) {
    throw std::runtime_error(std::string("cannot make the guest picture: ") + SDL_GetError());
  }
  DrawFrame(0);
}

void GuestPicture::Advance() {
  DrawFrame(frame_ + 1);
}

void GuestPicture::DrawFrame(int frame) {
  frame_ = frame;
  SDL_Surface* canvas = canvas_.get();
  DrawSkyAndGrid(canvas);
  DrawBars(canvas);
  DrawHueBand(canvas, frame);
  DrawCircle(canvas, kWidth / 2, kHeight / 2, 110);
  DrawCounter(canvas, frame);
  constexpr int kRadius = 12;
  DrawBall(canvas, kRadius + BounceBetween(frame, kWidth - 2 * kRadius - 1),
           kHeight - kRadius - BounceBetween(frame, 40), kRadius);
  DrawCorners(canvas);
}

}  // namespace quindle::demo

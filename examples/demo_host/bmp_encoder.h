#pragma once

#include <SDL.h>

#include <cstdint>
#include <vector>

namespace quindle::demo {

enum class BmpCompression {
  None,
  Rle8,  // Run-length encoding of 8-bit pixels.
};

// The bytes of a BMP file that holds `picture`, whose format must be SDL_PIXELFORMAT_INDEX8, with
// its palette. Throws std::invalid_argument for any other format.
std::vector<std::uint8_t> EncodeBmp(const SDL_Surface& picture, BmpCompression compression);

}  // namespace quindle::demo

#pragma once

#include <SDL.h>

#include <cstdint>
#include <vector>

namespace quindle::demo {

// The bytes of a PNG file that holds `picture`, whose format must be SDL_PIXELFORMAT_INDEX8, with
// its palette. `compression` is zlib's level, 0 (none) to 9 (smallest). Throws std::runtime_error.
std::vector<std::uint8_t> EncodePng(const SDL_Surface& picture, int compression);

}  // namespace quindle::demo

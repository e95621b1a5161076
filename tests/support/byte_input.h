#pragma once

// Turns bytes into a user's input, for fuzzing and for soaking: any bytes are some input.

#include <SDL.h>

#include <cstddef>
#include <cstdint>

namespace quindle::testing {

// Bytes that one event takes.
inline constexpr std::size_t kBytesPerEvent = 5;

// Pushes the event that kBytesPerEvent bytes stand for, and moves the pointer where the event says.
// Never allocates.
void PushEventFromBytes(const std::uint8_t* bytes);

}  // namespace quindle::testing

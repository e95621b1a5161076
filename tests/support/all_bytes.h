#pragma once

// What a user cannot type in one go but a text field must sort out.

#include <string>

namespace quindle::testing {

// Every byte that a C string can hold, from 1 to 255.
inline std::string AllBytes() {
  std::string bytes;
  for (int byte = 1; byte <= 255; ++byte) {
    bytes.push_back(static_cast<char>(byte));
  }
  return bytes;
}

}  // namespace quindle::testing

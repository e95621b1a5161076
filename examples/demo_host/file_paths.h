#pragma once

#include <filesystem>
#include <string>

namespace quindle::demo {

// Paths as texts, both ways: UTF-8 on Windows, as in the library's and SDL's interfaces, and the
// bytes themselves elsewhere.
inline std::filesystem::path PathOf(const std::string& text) {
  return std::u8string(text.begin(), text.end());
}

inline std::string TextOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace quindle::demo

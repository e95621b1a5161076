#include "utils/string_utils.h"

#include <algorithm>

namespace quindle::utils {
namespace {

constexpr std::string_view kDots = "...";

char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsContinuationByte(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// At most `limit` bytes from the end of `text`, starting with a whole character.
std::string_view RightmostCharacters(std::string_view text, std::size_t limit) {
  std::string_view tail = text.substr(text.size() - std::min(limit, text.size()));
  while (!tail.empty() && IsContinuationByte(tail.front())) {
    tail.remove_prefix(1);
  }
  return tail;
}

}  // namespace

std::string ascii_to_lower(std::string_view text) {
  std::string lowered(text);
  std::transform(lowered.begin(), lowered.end(), lowered.begin(), AsciiLower);
  return lowered;
}

std::string ellipsize_left(std::string_view text, std::size_t maxChars) {
  if (text.size() <= maxChars) {
    return std::string(text);
  }
  if (maxChars <= kDots.size()) {
    return std::string(RightmostCharacters(text, maxChars));
  }
  return std::string(kDots).append(RightmostCharacters(text, maxChars - kDots.size()));
}

}  // namespace quindle::utils

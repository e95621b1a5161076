#include "utils/string_utils.h"

#include <algorithm>

#include "utils/ascii_text.h"

namespace quindle::utils {
namespace {

constexpr std::string_view kDots = "...";
// A UTF-8 character has at most so many bytes behind its first.
constexpr std::size_t kMaxContinuationBytes = 3;

char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// At most `limit` bytes from the end of the longer `text`, starting with a whole character. Text
// that is no UTF-8 may hold long runs of continuation bytes; those beyond one character are kept.
std::string_view RightmostCharacters(std::string_view text, std::size_t limit) {
  const std::string_view tail = text.substr(text.size() - limit);
  const std::size_t most = std::min(tail.size(), kMaxContinuationBytes);
  std::size_t cut = 0;
  while (cut < most && is_utf8_continuation(tail[cut])) {
    ++cut;
  }
  return tail.substr(cut);
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

#pragma once

// Private, but for all three libraries. White space, digits and lines of byte strings, by the rules
// of the C locale, and the bytes of UTF-8.

#include <cstddef>
#include <string_view>

namespace quindle::utils {

// What isspace says in the C locale; no byte of a UTF-8 sequence is white space.
constexpr bool is_ascii_space(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool is_ascii_digit(char c) {
  return c >= '0' && c <= '9';
}

// True for a byte that continues a UTF-8 sequence, that is, starts no character.
constexpr bool is_utf8_continuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

constexpr std::string_view trim_leading_space(std::string_view text) {
  while (!text.empty() && is_ascii_space(text.front())) {
    text.remove_prefix(1);
  }
  return text;
}

constexpr std::string_view trim_trailing_space(std::string_view text) {
  while (!text.empty() && is_ascii_space(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

constexpr std::string_view trim_space(std::string_view text) {
  return trim_trailing_space(trim_leading_space(text));
}

// Removes what precedes the first '\n' of *rest from it and returns that; all of it without one.
// The '\n' goes too and belongs to neither.
constexpr std::string_view take_line(std::string_view* rest) {
  const std::string_view line = rest->substr(0, rest->find('\n'));
  rest->remove_prefix(line.size() < rest->size() ? line.size() + 1 : line.size());
  return line;
}

}  // namespace quindle::utils

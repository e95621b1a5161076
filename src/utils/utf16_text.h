#pragma once

// Private, but for all three libraries. Between UTF-8, which the interface speaks, and the UTF-16
// of systems that name their files in it. Both directions take any input and neither throws but for
// memory.

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "utils/ascii_text.h"

namespace quindle::utils {

// A sequence of UTF-8 or UTF-16 at the beginning of a text; no unit of the text when it is
// ill-formed.
struct DecodedCharacter {
  char32_t code_point = 0;
  std::size_t length = 0;  // In units of the text.
};

inline constexpr char32_t kFirstSurrogate = 0xD800;
inline constexpr char32_t kFirstLowSurrogate = 0xDC00;
inline constexpr char32_t kLastSurrogate = 0xDFFF;
inline constexpr char32_t kFirstBeyondPlane0 = 0x10000;
inline constexpr char32_t kLastCodePoint = 0x10FFFF;

constexpr bool is_surrogate(char32_t code_point) {
  return code_point >= kFirstSurrogate && code_point <= kLastSurrogate;
}

// `text` is not empty.
constexpr DecodedCharacter decode_utf8(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80U) {
    return {lead, 1};
  }
  const std::size_t length = lead >= 0xF0U ? 4 : lead >= 0xE0U ? 3 : 2;
  constexpr std::array<char32_t, 5> kLeastOfLength{0, 0, 0x80, 0x800, kFirstBeyondPlane0};
  if (lead < 0xC0U || lead > 0xF7U || text.size() < length) {
    return {};
  }
  char32_t code_point = lead & (0x7FU >> length);
  for (const char byte : text.substr(1, length - 1)) {
    if (!is_utf8_continuation(byte)) {
      return {};
    }
    code_point = (code_point << 6U) | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  const bool valid = code_point >= kLeastOfLength[length] && code_point <= kLastCodePoint &&
                     !is_surrogate(code_point);
  return valid ? DecodedCharacter{code_point, length} : DecodedCharacter{};
}

// `text` is not empty.
constexpr DecodedCharacter decode_utf16(std::u16string_view text) {
  const char32_t first = text.front();
  if (!is_surrogate(first)) {
    return {first, 1};
  }
  const char32_t second = text.size() > 1 ? text[1] : 0;
  if (first >= kFirstLowSurrogate || second < kFirstLowSurrogate || second > kLastSurrogate) {
    return {};
  }
  return {kFirstBeyondPlane0 + ((first - kFirstSurrogate) << 10U) + (second - kFirstLowSurrogate),
          2};
}

inline void append_utf16(char32_t code_point, std::u16string* text) {
  if (code_point < kFirstBeyondPlane0) {
    text->push_back(static_cast<char16_t>(code_point));
    return;
  }
  const char32_t offset = code_point - kFirstBeyondPlane0;
  text->push_back(static_cast<char16_t>(kFirstSurrogate + (offset >> 10U)));
  text->push_back(static_cast<char16_t>(kFirstLowSurrogate + (offset & 0x3FFU)));
}

// Also of a surrogate, which gives three bytes that are no UTF-8.
inline void append_utf8(char32_t code_point, std::string* text) {
  if (code_point < 0x80U) {
    text->push_back(static_cast<char>(code_point));
    return;
  }
  const unsigned following = code_point >= kFirstBeyondPlane0 ? 3 : code_point >= 0x800U ? 2 : 1;
  const char32_t lead_mark = (0xFF00U >> (following + 1)) & 0xFFU;
  text->push_back(static_cast<char>(lead_mark | (code_point >> (6U * following))));
  for (unsigned i = following; i-- > 0;) {
    text->push_back(static_cast<char>(0x80U | ((code_point >> (6U * i)) & 0x3FU)));
  }
}

// A byte that is no part of UTF-8 stands in UTF-16 as this and a low surrogate of its own. No file
// of Windows has this character in its name, and no well-formed text has that surrogate.
inline constexpr char16_t kStrayByteMark = u'|';

inline std::u16string utf16_from_text(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const DecodedCharacter character = decode_utf8(bytes);
    if (character.length > 0) {
      append_utf16(character.code_point, &text);
    } else {
      text.push_back(kStrayByteMark);
      text.push_back(
          static_cast<char16_t>(kFirstLowSurrogate + static_cast<unsigned char>(bytes.front())));
    }
    bytes.remove_prefix(character.length > 0 ? character.length : 1);
  }
  return text;
}

constexpr bool starts_with_stray_byte(std::u16string_view text) {
  return text.size() > 1 && text.front() == kStrayByteMark &&
         text[1] >= kFirstLowSurrogate + 0x80 && text[1] <= kFirstLowSurrogate + 0xFF;
}

// Undoes utf16_from_text for every text. What was never UTF-16 comes out as bytes that are no
// UTF-8.
inline std::string text_from_utf16(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    if (starts_with_stray_byte(text)) {
      bytes.push_back(static_cast<char>(text[1] & 0xFFU));
      text.remove_prefix(2);
      continue;
    }
    const DecodedCharacter character = decode_utf16(text);
    append_utf8(character.length > 0 ? character.code_point : text.front(), &bytes);
    text.remove_prefix(character.length > 0 ? character.length : 1);
  }
  return bytes;
}

constexpr bool is_utf16(std::u16string_view text) {
  while (!text.empty()) {
    const std::size_t length = decode_utf16(text).length;
    if (length == 0) {
      return false;
    }
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace quindle::utils

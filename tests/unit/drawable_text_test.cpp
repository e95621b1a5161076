#include "frontend/gui/drawable_text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quindle::frontend::gui {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kMark = "\xEF\xBF\xBD";
constexpr std::uint32_t kLastCodePoint = 0x10FFFF;

// So many marks: one for each byte that cannot be drawn.
std::string Marks(std::size_t count) {
  std::string marks;
  for (std::size_t i = 0; i < count; ++i) {
    marks += kMark;
  }
  return marks;
}

char Continuation(std::uint32_t code_point, unsigned shift) {
  return static_cast<char>(0x80U | ((code_point >> shift) & 0x3FU));
}

// The bytes of a code point, surrogates and values past the last one included.
std::string Utf8(std::uint32_t code_point) {
  if (code_point < 0x80) {
    return {static_cast<char>(code_point)};
  }
  if (code_point < 0x800) {
    return {static_cast<char>(0xC0U | code_point >> 6U), Continuation(code_point, 0)};
  }
  if (code_point < 0x10000) {
    return {static_cast<char>(0xE0U | code_point >> 12U), Continuation(code_point, 6),
            Continuation(code_point, 0)};
  }
  return {static_cast<char>(0xF0U | code_point >> 18U), Continuation(code_point, 12),
          Continuation(code_point, 6), Continuation(code_point, 0)};
}

bool IsControlOrSurrogate(std::uint32_t code_point) {
  return code_point < 0x20 || (code_point >= 0x7F && code_point < 0xA0) ||
         (code_point >= 0xD800 && code_point < 0xE000);
}

TEST(DrawableText, KeepsEveryCharacterButControlsAndSurrogates) {
  for (std::uint32_t code_point = 0; code_point <= kLastCodePoint; ++code_point) {
    const std::string bytes = Utf8(code_point);
    const std::string shown = IsControlOrSurrogate(code_point) ? Marks(bytes.size()) : bytes;
    ASSERT_EQ(DrawableText(bytes), shown) << std::hex << code_point;
  }
}

TEST(DrawableText, ShowsCodePointsPastTheLastAsMarks) {
  for (std::uint32_t code_point = kLastCodePoint + 1; code_point < 0x200000; code_point += 0xFFF) {
    ASSERT_EQ(DrawableText(Utf8(code_point)), Marks(4)) << std::hex << code_point;
  }
}

TEST(DrawableText, ShowsOverlongFormsAsMarks) {
  for (const std::string_view overlong :
       {"\xC0\x80"sv, "\xC1\xBF"sv, "\xE0\x80\x80"sv, "\xE0\x9F\xBF"sv, "\xF0\x80\x80\x80"sv,
        "\xF0\x8F\xBF\xBF"sv}) {
    EXPECT_EQ(DrawableText(overlong), Marks(overlong.size()));
  }
}

// A sequence whose byte `broken` is none of its continuation bytes: what stands before it goes byte
// by byte, what stands at it and behind it is read anew.
TEST(DrawableText, ReadsOnAtTheByteThatBreaksASequence) {
  for (const std::string& whole : {Utf8(0xE9), Utf8(0x20AC), Utf8(0x1F600)}) {
    for (std::size_t broken = 1; broken < whole.size(); ++broken) {
      const std::string start = whole.substr(0, broken);
      for (const std::string& next : {std::string("A"), Utf8(0xE9), Utf8(0x1F600)}) {
        EXPECT_EQ(DrawableText(start + next), Marks(broken) + next);
      }
      const std::string rest = Marks(whole.size() - broken - 1);
      EXPECT_EQ(DrawableText(start + "A" + whole.substr(broken + 1)), Marks(broken) + "A" + rest);
    }
  }
}

TEST(DrawableText, ShowsATruncatedEndAsMarks) {
  for (const std::string& whole : {Utf8(0xE9), Utf8(0x20AC), Utf8(0x1F600)}) {
    for (std::size_t kept = 1; kept < whole.size(); ++kept) {
      // The view ends there, but the memory behind it goes on.
      EXPECT_EQ(DrawableText(std::string_view(whole).substr(0, kept)), Marks(kept));
    }
  }
}

TEST(DrawableText, ShowsBytesThatStartNothingAsMarks) {
  for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
    const std::string alone(1, static_cast<char>(byte));
    EXPECT_EQ(DrawableText(alone), kMark) << byte;
    EXPECT_EQ(DrawableText("a" + alone + "b"), "a" + std::string(kMark) + "b") << byte;
  }
}

TEST(DrawableText, TakesANulByteForAnyOtherControl) {
  EXPECT_EQ(DrawableText("a\0b"sv), "a" + std::string(kMark) + "b");
  EXPECT_EQ(DrawableText(""), "");
}

}  // namespace
}  // namespace quindle::frontend::gui

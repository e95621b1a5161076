#include "utils/string_utils.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace quindle::utils {
namespace {

// Characters of one to four bytes, so that a cut meets every kind at every offset.
constexpr std::string_view kMixedText =
    "/home/J\xC3\xBCrgen/\xE2\x82\xAC\xE2\x82\xAC/\xF0\x9F\x92\xBE\xF0\x9F\x92\xBE/a\xC3\xA9z.img";

// Length of the UTF-8 character at the front of `text`; 0 when there is none.
std::size_t CharacterLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length > text.size()) {
    return 0;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U) {
      return 0;
    }
  }
  return length;
}

bool IsValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = CharacterLength(text);
    if (length == 0) {
      return false;
    }
    text.remove_prefix(length);
  }
  return true;
}

// The longest run of whole characters at the end of `text` that fits `limit`, found the slow way.
std::string_view LongestWholeTail(std::string_view text, std::size_t limit) {
  while (text.size() > limit) {
    text.remove_prefix(CharacterLength(text));
  }
  return text;
}

TEST(AsciiToLower, LowersTheLettersAToZAndNoOtherByte) {
  for (int value = 0; value < 256; ++value) {
    const char byte = static_cast<char>(value);
    const bool is_capital = value >= 'A' && value <= 'Z';
    const char expected = is_capital ? static_cast<char>(value + 32) : byte;
    EXPECT_EQ(ascii_to_lower(std::string(1, byte)), std::string(1, expected)) << value;
  }
}

TEST(AsciiToLower, KeepsLengthOrderAndNulBytes) {
  using namespace std::string_literals;
  EXPECT_EQ(ascii_to_lower(""), "");
  EXPECT_EQ(ascii_to_lower("Disk.IMG"), "disk.img");
  EXPECT_EQ(ascii_to_lower("A\0B"s), "a\0b"s);
  EXPECT_EQ(ascii_to_lower("\xC3\x84PFEL"), "\xC3\x84pfel");
}

TEST(AsciiToLower, TakesAViewThatIsNotNulTerminated) {
  const std::string_view text = "ABCDEF";
  EXPECT_EQ(ascii_to_lower(text.substr(1, 2)), "bc");
}

struct EllipsisCase {
  std::string_view text;
  std::size_t limit;
  std::string_view expected;
};

class EllipsizeLeft : public ::testing::TestWithParam<EllipsisCase> {};

TEST_P(EllipsizeLeft, YieldsTheExpectedText) {
  EXPECT_EQ(ellipsize_left(GetParam().text, GetParam().limit), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EllipsizeLeft,
    ::testing::Values(
        // Text that fits is returned as it is.
        EllipsisCase{"", 0, ""}, EllipsisCase{"", 5, ""}, EllipsisCase{"abcdef", 6, "abcdef"},
        EllipsisCase{"abcdef", 7, "abcdef"}, EllipsisCase{"abc", 3, "abc"},
        EllipsisCase{"abcdef", std::string_view::npos, "abcdef"},
        EllipsisCase{"\xFF\x80\x80\x80\x80", 5, "\xFF\x80\x80\x80\x80"},
        // The dots count within the limit.
        EllipsisCase{"abcdef", 5, "...ef"}, EllipsisCase{"abcdef", 4, "...f"},
        // Under 4 there is no room for dots and text.
        EllipsisCase{"abcdef", 3, "def"}, EllipsisCase{"abcdef", 2, "ef"},
        EllipsisCase{"abcdef", 1, "f"}, EllipsisCase{"abcdef", 0, ""},
        // A character that does not fit whole is left out.
        EllipsisCase{"abcd\xC3\xA9", 4, "..."}, EllipsisCase{"abcd\xC3\xA9", 5, "...\xC3\xA9"},
        EllipsisCase{"abcd\xC3\xA9", 1, ""}, EllipsisCase{"abcd\xC3\xA9", 2, "\xC3\xA9"},
        EllipsisCase{"ab\xE2\x82\xACz", 5, "...z"},
        EllipsisCase{"abcd\xE2\x82\xACz", 7, "...\xE2\x82\xACz"},
        EllipsisCase{"abc\xF0\x9F\x92\xBE", 6, "..."}, EllipsisCase{"\xF0\x9F\x92\xBE", 3, ""},
        // Of bytes that are no UTF-8 a cut costs at most three.
        EllipsisCase{"ab\x80\x80\x80\x80\x80\x80", 7, "...\x80"},
        EllipsisCase{"ab\x80\x80\x80\x80\x80\x80", 3, ""},
        EllipsisCase{"abcdefg\x80\x80\x80\x80z", 8, "...\x80z"}));

TEST(EllipsizeLeftProperty, KeepsTheLongestWholeTailAtEveryLimit) {
  ASSERT_TRUE(IsValidUtf8(kMixedText));
  for (std::size_t limit = 0; limit < kMixedText.size(); ++limit) {
    const std::string shortened = ellipsize_left(kMixedText, limit);
    const bool has_dots = limit >= 4;
    const std::string expected = has_dots
                                     ? "..." + std::string(LongestWholeTail(kMixedText, limit - 3))
                                     : std::string(LongestWholeTail(kMixedText, limit));
    EXPECT_EQ(shortened, expected) << limit;
    EXPECT_TRUE(IsValidUtf8(shortened)) << limit;
    EXPECT_LE(shortened.size(), limit);
    EXPECT_GE(shortened.size() + 3, limit);
    EXPECT_TRUE(kMixedText.ends_with(std::string_view(shortened).substr(has_dots ? 3 : 0)));
  }
  EXPECT_EQ(ellipsize_left(kMixedText, kMixedText.size()), kMixedText);
  EXPECT_EQ(ellipsize_left(kMixedText, kMixedText.size() + 1), kMixedText);
}

TEST(EllipsizeLeftProperty, LosesAtMostThreeBytesOfAnything) {
  for (int fill = 0; fill < 256; ++fill) {
    const std::string text(40, static_cast<char>(fill));
    for (std::size_t limit = 0; limit <= 41; ++limit) {
      const std::string shortened = ellipsize_left(text, limit);
      const std::size_t room = std::min(limit, text.size());
      EXPECT_LE(shortened.size(), room);
      EXPECT_GE(shortened.size() + 3, room) << "byte " << fill << ", limit " << limit;
    }
  }
}

TEST(EllipsizeLeftView, TakesAViewThatIsNotNulTerminated) {
  const std::string_view text = "0123456789";
  EXPECT_EQ(ellipsize_left(text.substr(0, 8), 5), "...67");
}

}  // namespace
}  // namespace quindle::utils

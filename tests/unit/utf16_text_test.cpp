// Names of Windows as text and back, on any system.

#include "utils/utf16_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quindle::utils {
namespace {

using namespace std::string_literals;

std::string RoundTrip(std::string_view text) {
  return text_from_utf16(utf16_from_text(text));
}

TEST(Utf16Text, HasEveryCharacterInBothForms) {
  for (char32_t code_point = 0; code_point <= kLastCodePoint; ++code_point) {
    if (is_surrogate(code_point)) {
      continue;
    }
    std::u16string utf16;
    std::string utf8;
    append_utf16(code_point, &utf16);
    append_utf8(code_point, &utf8);
    ASSERT_EQ(utf16_from_text(utf8), utf16) << static_cast<unsigned long>(code_point);
    ASSERT_EQ(text_from_utf16(utf16), utf8) << static_cast<unsigned long>(code_point);
    ASSERT_TRUE(is_utf16(utf16)) << static_cast<unsigned long>(code_point);
    ASSERT_EQ(decode_utf8(utf8).code_point, code_point);
  }
}

TEST(Utf16Text, KnowsTheFormsAtTheirBounds) {
  EXPECT_EQ(utf16_from_text("a\x7F"), u"a\u007F");
  EXPECT_EQ(utf16_from_text("\xC2\x80\xDF\xBF"), u"\u0080\u07FF");
  EXPECT_EQ(utf16_from_text("\xE0\xA0\x80\xEF\xBF\xBF"), u"\u0800\uFFFF");
  EXPECT_EQ(utf16_from_text("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), u"\U00010000\U0010FFFF");
  EXPECT_EQ(utf16_from_text("\0a"s), u"\0a"s);
  EXPECT_EQ(utf16_from_text(""), u"");
}

TEST(Utf16Text, TakesNoByteThatIsNoPartOfACharacter) {
  const std::string ill_formed[] = {"\x80",
                                    "\xBF",
                                    "\xC0\x80",
                                    "\xC1\xBF",
                                    "\xC2",
                                    "\xC2"
                                    "a",
                                    "\xE0\x9F\xBF",
                                    "\xE1\x80",
                                    "\xED\xA0\x80",
                                    "\xED\xBF\xBF",
                                    "\xF0\x8F\xBF\xBF",
                                    "\xF1\x80\x80",
                                    "\xF4\x90\x80\x80",
                                    "\xF5\x80\x80\x80",
                                    "\xFE",
                                    "\xFF"};
  for (const std::string& bytes : ill_formed) {
    EXPECT_EQ(decode_utf8(bytes).length, 0U) << ::testing::PrintToString(bytes);
    EXPECT_FALSE(is_utf16(utf16_from_text(bytes))) << ::testing::PrintToString(bytes);
  }
}

TEST(Utf16Text, GivesBackTheBytesThatAreNoText) {
  const std::string texts[] = {"\xFF",
                               "C:/sch\xE4rfe/\xC3\xA4.glsl",
                               "|\xFF|\x80||",
                               "\xC2"
                               "a\xED\xA0\x80\xF0\x9F\x92",
                               "|\xC3\xA9",
                               "|\xF0\x9F\x92\xBE"};
  for (const std::string& text : texts) {
    EXPECT_EQ(RoundTrip(text), text);
  }
  std::string every_pair;
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      every_pair = {static_cast<char>(first), static_cast<char>(second)};
      ASSERT_EQ(RoundTrip(every_pair), every_pair);
    }
  }
}

// Another text that is ill-formed must not become the name of a file that is there.
TEST(Utf16Text, MarksWhatIsNoTextWithWhatNoFileHasInItsName) {
  for (int byte = 0x80; byte < 0x100; ++byte) {
    const std::u16string name = utf16_from_text(std::string(1, static_cast<char>(byte)));
    EXPECT_NE(name.find(u'|'), std::u16string::npos) << byte;
  }
  EXPECT_EQ(utf16_from_text("schärfe.img").find(u'|'), std::u16string::npos);
}

TEST(Utf16Text, DeniesHalfPairsToBeText) {
  const std::u16string high(1, char16_t{0xD83D});
  const std::u16string low(1, char16_t{0xDCBE});
  EXPECT_TRUE(is_utf16(high + low));
  EXPECT_TRUE(is_utf16(u""));
  for (const std::u16string& name :
       {high, low, low + high, u"a" + high, high + u"a", low + u"a.img", high + high + low,
        low + low, high + u"\uE000"}) {
    EXPECT_FALSE(is_utf16(name));
    EXPECT_EQ(decode_utf8(text_from_utf16(name.substr(name.find_first_not_of(u'a')))).length, 0U);
  }
}

// A lone half of a pair is no byte of a text, and the mark in front of another character none.
TEST(Utf16Text, TakesOnlyAMarkedByteForOne) {
  EXPECT_EQ(text_from_utf16(std::u16string{char16_t{0xDCFF}}), "\xED\xB3\xBF");
  EXPECT_EQ(text_from_utf16(std::u16string{u'|', char16_t{0xDD00}}), "|\xED\xB4\x80");
  EXPECT_EQ(text_from_utf16(std::u16string{u'|', char16_t{0xDC7F}}), "|\xED\xB1\xBF");
  EXPECT_EQ(text_from_utf16(std::u16string{u'|', char16_t{0xDC80}}), "\x80");
  EXPECT_EQ(text_from_utf16(std::u16string{u'a', char16_t{0xDCFF}}), "a\xED\xB3\xBF");
  EXPECT_EQ(text_from_utf16(u"|"), "|");
}

}  // namespace
}  // namespace quindle::utils

#include "frontend/gui/text_entry.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "utils/ascii_text.h"

namespace quindle::frontend::gui {
namespace {

TEST(TextEntryTextOr, StandsInForAnEmptyTextAlone) {
  EXPECT_EQ(TextOr("", "disk.img"), "disk.img");
  EXPECT_EQ(TextOr("a", "disk.img"), "a");
  EXPECT_EQ(TextOr(" ", "disk.img"), " ");
  EXPECT_EQ(TextOr("", ""), "");
  const std::string with_null("\0x", 2);
  EXPECT_EQ(TextOr(with_null, "disk.img"), with_null);
}

TEST(TextEntryDigitString, NeedsOneDigitAndOnlyDigits) {
  EXPECT_TRUE(IsDigitString("0"));
  EXPECT_TRUE(IsDigitString("0123456789"));
  EXPECT_FALSE(IsDigitString(""));
  EXPECT_FALSE(IsDigitString("-5"));
  EXPECT_FALSE(IsDigitString("5 "));
  EXPECT_FALSE(IsDigitString(" 5"));
  EXPECT_FALSE(IsDigitString("1.5"));
  EXPECT_FALSE(IsDigitString(std::string_view("1\0", 2)));
}

TEST(TextEntryTyping, SkipsRefusedBytesAndGoesOn) {
  std::string text;
  TypeAcceptedBytes("12a4", utils::is_ascii_digit, 10, &text);
  EXPECT_EQ(text, "124");
}

TEST(TextEntryTyping, StopsAtTheLimit) {
  std::string text = "12";
  TypeAcceptedBytes("345", utils::is_ascii_digit, 3, &text);
  EXPECT_EQ(text, "123");
  TypeAcceptedBytes("4", utils::is_ascii_digit, 3, &text);
  EXPECT_EQ(text, "123");
}

TEST(TextEntryTyping, KeepsATextThatIsLongerThanTheLimit) {
  std::string text = "123456";
  TypeAcceptedBytes("7", utils::is_ascii_digit, 3, &text);
  EXPECT_EQ(text, "123456");
}

TEST(TextEntryRemoval, TakesOneByte) {
  std::string text = "ab\xC3\xA9";
  RemoveLastByte(&text);
  EXPECT_EQ(text, "ab\xC3");
}

TEST(TextEntryRemoval, LeavesEmptyAndNullAlone) {
  std::string text;
  RemoveLastByte(&text);
  EXPECT_EQ(text, "");
  RemoveLastByte(nullptr);
}

}  // namespace
}  // namespace quindle::frontend::gui

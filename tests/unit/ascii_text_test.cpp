#include "utils/ascii_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quindle::utils {
namespace {

TEST(AsciiSpace, IsExactlySixBytes) {
  for (int value = 0; value < 256; ++value) {
    const char byte = static_cast<char>(value);
    const bool expected = std::string_view(" \t\n\v\f\r").find(byte) != std::string_view::npos;
    EXPECT_EQ(is_ascii_space(byte), expected) << value;
  }
}

TEST(AsciiDigit, TheTenDigitsAndNothingElse) {
  for (int byte = -128; byte <= 127; ++byte) {
    const char c = static_cast<char>(byte);
    const bool digit = std::string_view("0123456789").find(c) != std::string_view::npos;
    EXPECT_EQ(is_ascii_digit(c), digit) << byte;
  }
}

TEST(Utf8Continuation, EveryByteButTheFirstOfACharacter) {
  for (int value = 0; value < 256; ++value) {
    EXPECT_EQ(is_utf8_continuation(static_cast<char>(value)), value >= 0x80 && value < 0xC0);
  }
}

TEST(TrimSpace, KeepsWhatStandsInside) {
  EXPECT_EQ(trim_space(""), "");
  EXPECT_EQ(trim_space(" \t\r\n"), "");
  EXPECT_EQ(trim_space("a"), "a");
  EXPECT_EQ(trim_space("  a \t b\r\n"), "a \t b");
  EXPECT_EQ(trim_leading_space(" \n a b \n"), "a b \n");
  EXPECT_EQ(trim_trailing_space(" \n a b \n"), " \n a b");
}

TEST(TakeLine, SplitsAtLineFeedsOnly) {
  std::string_view rest = "one\r\n\ntwo\rthree\n";
  EXPECT_EQ(take_line(&rest), "one\r");
  EXPECT_EQ(take_line(&rest), "");
  EXPECT_EQ(take_line(&rest), "two\rthree");
  EXPECT_TRUE(rest.empty());
}

TEST(TakeLine, TakesALastLineWithoutLineFeed) {
  std::string_view rest = "one\ntwo";
  EXPECT_EQ(take_line(&rest), "one");
  EXPECT_EQ(rest, "two");
  EXPECT_EQ(take_line(&rest), "two");
  EXPECT_TRUE(rest.empty());
  EXPECT_EQ(take_line(&rest), "");
}

}  // namespace
}  // namespace quindle::utils

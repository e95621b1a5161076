// Formats and file names of screenshots.

#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "frontend/gui/screenshot_save_dialog.h"
#include "utils/path_utils.h"
#include "utils/string_utils.h"

namespace quindle::frontend::gui {
namespace {

constexpr ScreenshotSaveFormat kPng = ScreenshotSaveFormat::Png;
constexpr ScreenshotSaveFormat kJpeg = ScreenshotSaveFormat::Jpeg;
constexpr ScreenshotSaveFormat kBmp = ScreenshotSaveFormat::Bmp;
constexpr auto kUnknown = static_cast<ScreenshotSaveFormat>(3);
constexpr auto kLastUnknown = static_cast<ScreenshotSaveFormat>(255);

// --- Table ---------------------------------------------------------------------------------------

TEST(ScreenshotFormat, IsOneByteInTheOrderOfTheList) {
  EXPECT_EQ(sizeof(ScreenshotSaveFormat), 1U);
  EXPECT_EQ(static_cast<int>(kPng), 0);
  EXPECT_EQ(static_cast<int>(kJpeg), 1);
  EXPECT_EQ(static_cast<int>(kBmp), 2);
}

struct TextCase {
  ScreenshotSaveFormat format;
  const char* label;
  const char* extension;
  const char* option_label;
};

TEST(ScreenshotFormat, HasItsTexts) {
  constexpr TextCase kCases[] = {
      {kPng, "PNG (*.png)", "png", "PNG compression (0-9):"},
      {kJpeg, "JPEG (*.jpg)", "jpg", "JPEG quality (1-100):"},
      {kBmp, "BMP (*.bmp)", "bmp", "BMP options:"},
      {kUnknown, "PNG (*.png)", "png", "PNG compression (0-9):"},
      {kLastUnknown, "PNG (*.png)", "png", "PNG compression (0-9):"},
  };
  for (const TextCase& c : kCases) {
    EXPECT_EQ(FormatLabel(c.format), c.label);
    EXPECT_STREQ(ScreenshotSaveFormatExtension(c.format), c.extension);
    EXPECT_STREQ(FormatValueLabel(c.format), c.option_label);
  }
}

// --- Option values -------------------------------------------------------------------------------

struct ValueCase {
  ScreenshotSaveFormat format;
  const char* text;
  int fallback;
  int value;
};

TEST(ScreenshotOption, IsParsedClampedOrFallsBack) {
  constexpr ValueCase kCases[] = {
      {kJpeg, "0", 90, 1},
      {kJpeg, "1", 90, 1},
      {kJpeg, "2", 90, 2},
      {kJpeg, "99", 90, 99},
      {kJpeg, "100", 90, 100},
      {kJpeg, "101", 90, 100},
      {kJpeg, "250", 90, 100},
      {kJpeg, "", 90, 90},
      {kJpeg, "-5", 90, 90},
      {kJpeg, "+5", 90, 90},
      {kJpeg, " 5", 90, 90},
      {kJpeg, "5 ", 90, 90},
      {kJpeg, "5.0", 90, 90},
      {kJpeg, "5x", 90, 90},
      {kJpeg, "0x5", 90, 90},
      {kJpeg, "2147483647", 90, 100},
      {kJpeg, "2147483648", 90, 90},
      {kJpeg, "99999999999", 90, 90},
      {kJpeg, "99999999999999999999999", 90, 90},
      {kPng, "0", 6, 0},
      {kPng, "9", 6, 9},
      {kPng, "10", 6, 9},
      {kPng, "12", 6, 9},
      {kPng, "007", 6, 7},
      {kPng, "", 6, 6},
      {kPng, "-1", 6, 6},
      {kUnknown, "12", 6, 9},
      {kLastUnknown, "0", 6, 0},
      {kBmp, "1", 0, 0},
      {kBmp, "0", 5, 5},
      {kBmp, "", 5, 5},
      {kBmp, "x", 5, 5},
      // The fallback is returned as it stands, out of range or not.
      {kJpeg, "", 1000, 1000},
      {kJpeg, "x", -1, -1},
      {kPng, "99999999999", INT_MIN, INT_MIN},
      {kBmp, "7", INT_MAX, INT_MAX},
  };
  for (const ValueCase& c : kCases) {
    EXPECT_EQ(ClampFormatValue(c.format, c.text, c.fallback), c.value)
        << static_cast<int>(c.format) << " \"" << c.text << '"';
  }
}

// --- File names ----------------------------------------------------------------------------------

struct NameCase {
  const char* name;
  ScreenshotSaveFormat format;
  const char* result;
};

TEST(ScreenshotFileName, GetsTheFormatsExtension) {
  constexpr NameCase kCases[] = {
      {"shot.png", kJpeg, "shot.jpg"},
      {"shot.png", kPng, "shot.png"},
      {"shot.png", kBmp, "shot.bmp"},
      {"shot.jpeg", kUnknown, "shot.png"},
      {"shot", kBmp, "shot.bmp"},
      {"game.v1", kPng, "game.png"},
      {"a.b.c", kJpeg, "a.b.jpg"},
      {"shot.", kPng, "shot.png"},
      {".png", kPng, ".png.png"},
      {"", kPng, "quindle_capture.png"},
      {".", kJpeg, "quindle_capture.jpg"},
      {"..", kBmp, "quindle_capture.bmp"},
      {"/tmp/", kPng, "quindle_capture.png"},
      {"/tmp/deep/shot.png", kBmp, "shot.bmp"},
      {"C:\\shots\\shot.png", kBmp, "shot.bmp"},
      {"my shot 1.PNG", kPng, "my shot 1.png"},
      {"\xC3\xA9.x", kPng, "\xC3\xA9.png"},
  };
  for (const NameCase& c : kCases) {
    EXPECT_EQ(ReplaceFilenameExtension(c.name, c.format), c.result) << c.name;
  }
}

TEST(DefaultScreenshotFileNameClock, IsFollowed) {
  const auto name_at = [](std::time_t time) {
    char text[64];
    std::strftime(text, sizeof text, "quindle_capture_%Y_%m_%d_%H_%M_%S.png",
                  std::localtime(&time));
    return std::string(text);
  };
  const std::time_t before = std::time(nullptr);
  const std::string name = MakeDefaultScreenshotFilename(kPng);
  const std::time_t after = std::time(nullptr);
  bool found = false;
  for (std::time_t time = before; time <= after; ++time) {
    found = found || name == name_at(time);
  }
  EXPECT_TRUE(found) << name;
}

// --- Forwarders ----------------------------------------------------------------------------------

TEST(ScreenshotFileNameChar, IsTheFileNameRule) {
  for (int byte = -128; byte <= 127; ++byte) {
    const char c = static_cast<char>(byte);
    EXPECT_EQ(IsAllowedFilenameChar(c), utils::is_allowed_filename_char(c)) << byte;
  }
}

TEST(ScreenshotEllipsis, KeepsTheEnd) {
  EXPECT_EQ(EllipsizeLeft("/a/very/long/path/shot.png", 12), ".../shot.png");
  const std::string text = "0123456789";
  for (std::size_t limit = 0; limit <= 12; ++limit) {
    EXPECT_EQ(EllipsizeLeft(text, limit), utils::ellipsize_left(text, limit));
  }
}

TEST(ScreenshotInside, LeftAndTopEdgesInsideRightAndBottomOutside) {
  const SDL_Rect rect{10, 20, 5, 7};
  EXPECT_TRUE(IsInside(rect, 10, 20));
  EXPECT_TRUE(IsInside(rect, 14, 26));
  EXPECT_FALSE(IsInside(rect, 9, 20));
  EXPECT_FALSE(IsInside(rect, 10, 19));
  EXPECT_FALSE(IsInside(rect, 15, 20));
  EXPECT_FALSE(IsInside(rect, 10, 27));
  EXPECT_FALSE(IsInside(SDL_Rect{10, 20, 0, 7}, 10, 20));
}

}  // namespace
}  // namespace quindle::frontend::gui

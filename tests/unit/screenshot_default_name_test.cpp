// The default file name of a screenshot. The calendar answers as the test says.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <optional>
#include <string>

#include "frontend/gui/screenshot_save_dialog.h"

namespace {

// What localtime_r answers for every time; the real answer when empty.
std::optional<std::tm> g_calendar;
bool g_calendar_fails = false;

}  // namespace

extern "C" std::tm* localtime_r(const std::time_t* time, std::tm* result) noexcept {
  if (g_calendar_fails) {
    return nullptr;
  }
  if (g_calendar) {
    *result = *g_calendar;
    return result;
  }
  using LocalTime = std::tm* (*)(const std::time_t*, std::tm*);
  static const auto kReal = reinterpret_cast<LocalTime>(dlsym(RTLD_NEXT, "localtime_r"));
  return kReal(time, result);
}

namespace quindle::frontend::gui {
namespace {

constexpr ScreenshotSaveFormat kPng = ScreenshotSaveFormat::Png;
constexpr ScreenshotSaveFormat kJpeg = ScreenshotSaveFormat::Jpeg;
constexpr ScreenshotSaveFormat kBmp = ScreenshotSaveFormat::Bmp;
constexpr auto kUnknown = static_cast<ScreenshotSaveFormat>(3);

class DefaultScreenshotFileName : public ::testing::Test {
 protected:
  void SetUp() override {
    std::tm calendar{};
    calendar.tm_year = 126;
    calendar.tm_mon = 10;
    calendar.tm_mday = 14;
    calendar.tm_hour = 23;
    calendar.tm_min = 5;
    calendar.tm_sec = 9;
    g_calendar = calendar;
  }
  void TearDown() override {
    g_calendar.reset();
    g_calendar_fails = false;
  }
};

TEST_F(DefaultScreenshotFileName, IsMadeOfTheLocalTime) {
  EXPECT_EQ(MakeDefaultScreenshotFilename(kPng), "quindle_capture_2026_11_14_23_05_09.png");
  EXPECT_EQ(MakeDefaultScreenshotFilename(kJpeg), "quindle_capture_2026_11_14_23_05_09.jpg");
  EXPECT_EQ(MakeDefaultScreenshotFilename(kBmp), "quindle_capture_2026_11_14_23_05_09.bmp");
  EXPECT_EQ(MakeDefaultScreenshotFilename(kUnknown), "quindle_capture_2026_11_14_23_05_09.png");
}

TEST_F(DefaultScreenshotFileName, PadsWithZeros) {
  std::tm calendar{};
  calendar.tm_year = 1 - 1900;
  calendar.tm_mday = 2;
  g_calendar = calendar;
  EXPECT_EQ(MakeDefaultScreenshotFilename(kPng), "quindle_capture_0001_01_02_00_00_00.png");
}

TEST_F(DefaultScreenshotFileName, AFailedConversionYieldsZeroFields) {
  g_calendar_fails = true;
  EXPECT_EQ(MakeDefaultScreenshotFilename(kPng), "quindle_capture_1900_01_00_00_00_00.png");
}

TEST_F(DefaultScreenshotFileName, NeverOverrunsItsBuffer) {
  std::tm calendar{};
  calendar.tm_year = INT_MAX - 1900;
  calendar.tm_mon = INT_MAX - 1;
  calendar.tm_mday = calendar.tm_hour = calendar.tm_min = calendar.tm_sec = INT_MIN;
  g_calendar = calendar;
  const std::string name = MakeDefaultScreenshotFilename(kPng);
  EXPECT_EQ(name.size(), 63U + 4U);
  EXPECT_EQ(name.substr(0, 26), "quindle_capture_2147483647");
}

}  // namespace
}  // namespace quindle::frontend::gui

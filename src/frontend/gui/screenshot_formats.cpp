// Formats and file names of screenshots: the pure rules behind the screenshot dialog.

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <stdexcept>

#include "frontend/gui/local_time.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/text_entry.h"
#include "utils/path_utils.h"
#include "utils/string_utils.h"

namespace quindle::frontend::gui {
namespace {

constexpr const char* kCapturePrefix = "quindle_capture";

struct FormatTexts {
  const char* list_label;
  const char* extension;
  const char* option_label;
};

const FormatTexts& TextsOf(ScreenshotSaveFormat format) {
  static constexpr FormatTexts kPng{"PNG (*.png)", "png", "PNG compression (0-9):"};
  static constexpr FormatTexts kJpeg{"JPEG (*.jpg)", "jpg", "JPEG quality (1-100):"};
  static constexpr FormatTexts kBmp{"BMP (*.bmp)", "bmp", "BMP options:"};
  switch (format) {
    case ScreenshotSaveFormat::Jpeg:
      return kJpeg;
    case ScreenshotSaveFormat::Bmp:
      return kBmp;
    case ScreenshotSaveFormat::Png:
    default:
      return kPng;
  }
}

int ClampToOptionRange(ScreenshotSaveFormat format, int value, int fallback) {
  switch (format) {
    case ScreenshotSaveFormat::Jpeg:
      return std::clamp(value, 1, 100);
    case ScreenshotSaveFormat::Bmp:
      return fallback;
    case ScreenshotSaveFormat::Png:
    default:
      return std::clamp(value, 0, 9);
  }
}

std::string WithExtension(const std::string& stem, ScreenshotSaveFormat format) {
  return stem + '.' + ScreenshotSaveFormatExtension(format);
}

}  // namespace

std::string FormatLabel(ScreenshotSaveFormat format) {
  return TextsOf(format).list_label;
}

const char* FormatValueLabel(ScreenshotSaveFormat format) {
  return TextsOf(format).option_label;
}

const char* ScreenshotSaveFormatExtension(ScreenshotSaveFormat format) {
  return TextsOf(format).extension;
}

int ClampFormatValue(ScreenshotSaveFormat format, const std::string& text, int fallback) {
  if (!IsDigitString(text)) {
    return fallback;
  }
  try {
    return ClampToOptionRange(format, std::stoi(text), fallback);
  } catch (const std::out_of_range&) {
    return fallback;
  }
}

std::string ReplaceFilenameExtension(const std::string& name, ScreenshotSaveFormat format) {
  return WithExtension(utils::stem_or_filename_from_path(name, kCapturePrefix), format);
}

std::string MakeDefaultScreenshotFilename(ScreenshotSaveFormat format) {
  const std::tm local = ToLocalTime(std::time(nullptr));
  std::array<char, 64> stem{};
  std::snprintf(stem.data(), stem.size(), "%s_%04d_%02d_%02d_%02d_%02d_%02d", kCapturePrefix,
                local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                local.tm_sec);
  return WithExtension(stem.data(), format);
}

bool IsAllowedFilenameChar(char c) {
  return utils::is_allowed_filename_char(c);
}

std::string EllipsizeLeft(const std::string& text, std::size_t maxChars) {
  return utils::ellipsize_left(text, maxChars);
}

bool IsInside(const SDL_Rect& rect, int x, int y) {
  return IsPointInside(rect, x, y);
}

}  // namespace quindle::frontend::gui

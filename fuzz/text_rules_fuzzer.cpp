// The small text rules: sizes, options, file names, paths, and the message box's wrapping.

#include <SDL_ttf.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "utils/path_utils.h"
#include "utils/string_utils.h"

namespace {

namespace gui = quindle::frontend::gui;
namespace utils = quindle::utils;

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void CheckSizes(const std::string& text, unsigned int fallback) {
  const unsigned int size = gui::ParseHddCreateSizeMbOrDefault(text, fallback);
  Require(size >= 1 || size == fallback);
}

void CheckScreenshotRules(const std::string& text, int fallback) {
  using Format = gui::ScreenshotSaveFormat;
  for (const Format format : {Format::Png, Format::Jpeg, Format::Bmp}) {
    const int value = gui::ClampFormatValue(format, text, fallback);
    Require(value == fallback || (value >= 0 && value <= 100));
    const std::string name = gui::ReplaceFilenameExtension(text, format);
    Require(name.ends_with(std::string(".") + gui::ScreenshotSaveFormatExtension(format)));
    Require(name.find('/') == std::string::npos);
  }
}

void CheckPaths(const std::string& text, std::size_t limit) {
  const std::string shortened = utils::ellipsize_left(text, limit);
  Require(shortened.size() <= limit || shortened == text);
  Require(text.ends_with(utils::filename_from_path(text)));
  Require(!utils::stem_or_filename_from_path(text, "fallback").empty());
  gui::BuildHddCreateTargetPath(text, text);
  Require(utils::ascii_to_lower(text).size() == text.size());
  gui::IsShaderPickerEntry(text);
}

void CheckWrapping(const std::string& text, int width) {
  static const gui::OwnedTtfFont font = gui::OpenSdlUiFontHandle(14, false, gui::SdlUiFontKind::Ui);
  gui::SdlMessageBox::Config config;
  config.title = text;
  config.message = text;
  const gui::SdlMessageBoxLayout layout =
      gui::BuildSdlMessageBoxLayout(config, 1.0F, width, 200, font.get(), font.get());
  Require(!layout.lines.empty());
  Require(layout.targetHeight >= layout.minHeight);
  for (const std::string& line : layout.lines) {
    Require(line.find('\n') == std::string::npos && line.find('\t') == std::string::npos);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) {
    return 0;
  }
  const std::string text(data + 2, data + size);
  CheckSizes(text, data[0]);
  CheckScreenshotRules(text, data[0]);
  CheckPaths(text, data[1]);
  CheckWrapping(text, 4 * data[0]);
  return 0;
}

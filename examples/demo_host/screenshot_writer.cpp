#include "screenshot_writer.h"

#include <SDL_image.h>

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bmp_encoder.h"
#include "byte_stream.h"
#include "file_paths.h"
#include "new_file.h"
#include "png_encoder.h"

namespace quindle::demo {
namespace {

using frontend::gui::ScreenshotSaveDialogResult;
using frontend::gui::ScreenshotSaveFormat;
using Bytes = std::vector<std::uint8_t>;

Bytes EncodeJpeg(const SDL_Surface& picture, int quality) {
  ByteStream stream;
  // The picture is only read; SDL_image's signature does not say so.
  auto* source = const_cast<SDL_Surface*>(&picture);
  if (IMG_SaveJPG_RW(source, stream.Get(), 0, quality) != 0) {
    throw std::runtime_error(std::string("cannot encode the picture: ") + IMG_GetError());
  }
  return stream.Bytes();
}

Bytes Encode(const SDL_Surface& picture, const ScreenshotSaveDialogResult& result) {
  switch (result.format) {
    case ScreenshotSaveFormat::Jpeg:
      return EncodeJpeg(picture, result.jpeg_quality);
    case ScreenshotSaveFormat::Bmp:
      return EncodeBmp(picture, result.bmp_rle ? BmpCompression::Rle8 : BmpCompression::None);
    case ScreenshotSaveFormat::Png:
    default:
      return EncodePng(picture, result.png_compression);
  }
}

}  // namespace

std::string ScreenshotPath(const ScreenshotSaveDialogResult& result) {
  return TextOf(PathOf(result.folder) / PathOf(result.file_name));
}

void WriteScreenshot(const SDL_Surface& picture, const ScreenshotSaveDialogResult& result) {
  const Bytes bytes = Encode(picture, result);
  NewFile file(ScreenshotPath(result));
  file.Write(bytes);
  file.Keep();
}

}  // namespace quindle::demo

#include "screenshot_writer.h"

#include <SDL_image.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

#include "bmp_encoder.h"
#include "new_file.h"
#include "png_encoder.h"

namespace quindle::demo {
namespace {

using frontend::gui::ScreenshotSaveDialogResult;
using frontend::gui::ScreenshotSaveFormat;
using Bytes = std::vector<std::uint8_t>;

// An SDL stream that appends to a vector of bytes. SDL is C: no exception may leave it.
std::size_t SDLCALL AppendToBytes(SDL_RWops* stream, const void* data, std::size_t size,
                                  std::size_t count) {
  auto* out = static_cast<Bytes*>(stream->hidden.unknown.data1);
  const auto* first = static_cast<const std::uint8_t*>(data);
  try {
    out->insert(out->end(), first, first + size * count);
    return count;
  } catch (const std::bad_alloc&) {
    return 0;
  }
}

using OwnedStream = std::unique_ptr<SDL_RWops, decltype(&SDL_FreeRW)>;

OwnedStream OpenByteStream(Bytes* out) {
  OwnedStream stream(SDL_AllocRW(), &SDL_FreeRW);
  if (stream == nullptr) {
    throw std::bad_alloc();
  }
  stream->write = AppendToBytes;
  stream->hidden.unknown.data1 = out;
  return stream;
}

Bytes EncodeJpeg(const SDL_Surface& picture, int quality) {
  Bytes out;
  const OwnedStream stream = OpenByteStream(&out);
  // The picture is only read; SDL_image's signature does not say so.
  auto* source = const_cast<SDL_Surface*>(&picture);
  if (IMG_SaveJPG_RW(source, stream.get(), 0, quality) != 0) {
    throw std::runtime_error(std::string("cannot encode the picture: ") + IMG_GetError());
  }
  return out;
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
  return (std::filesystem::path(result.folder) / result.file_name).string();
}

void WriteScreenshot(const SDL_Surface& picture, const ScreenshotSaveDialogResult& result) {
  const Bytes bytes = Encode(picture, result);
  NewFile file(ScreenshotPath(result));
  file.Write(bytes);
  file.Keep();
}

}  // namespace quindle::demo

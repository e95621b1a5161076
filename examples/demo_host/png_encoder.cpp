#include "png_encoder.h"

#include <png.h>

#include <array>
#include <csetjmp>
#include <cstddef>
#include <new>
#include <stdexcept>
#include <string>

namespace quindle::demo {
namespace {

using Bytes = std::vector<std::uint8_t>;

// libpng leaves its functions by longjmp, which passes over destructors. So nothing between setjmp
// and the calls owns anything; what is owned stands in EncodePng, and no exception crosses libpng.

void Append(png_structp png, png_bytep data, std::size_t size) {
  auto* out = static_cast<Bytes*>(png_get_io_ptr(png));
  bool appended = true;
  try {
    out->insert(out->end(), data, data + size);
  } catch (const std::bad_alloc&) {
    appended = false;
  }
  if (!appended) {
    png_error(png, "out of memory");
  }
}

void Flush(png_structp /*png*/) {}

[[noreturn]] void Fail(png_structp png, png_const_charp message) {
  auto* text = static_cast<std::array<char, 128>*>(png_get_error_ptr(png));
  SDL_strlcpy(text->data(), message, text->size());
  png_longjmp(png, 1);
}

void Warn(png_structp /*png*/, png_const_charp /*message*/) {}

// What one file needs of libpng.
struct PngWriter {
  png_structp png = nullptr;
  png_infop info = nullptr;
  std::array<char, 128> error{};

  PngWriter()
      : png(png_create_write_struct(PNG_LIBPNG_VER_STRING, &error, Fail, Warn)),
        info(png == nullptr ? nullptr : png_create_info_struct(png)) {}
  PngWriter(const PngWriter&) = delete;
  PngWriter& operator=(const PngWriter&) = delete;
  ~PngWriter() { png_destroy_write_struct(&png, &info); }
};

std::array<png_color, 256> PaletteOf(const SDL_Surface& picture) {
  std::array<png_color, 256> palette{};
  const SDL_Palette& source = *picture.format->palette;
  for (int i = 0; i < source.ncolors && i < 256; ++i) {
    const SDL_Color& color = source.colors[i];
    palette[static_cast<std::size_t>(i)] = {color.r, color.g, color.b};
  }
  return palette;
}

// False when libpng gave up; its message is then in writer->error.
bool WritePicture(PngWriter* writer, const SDL_Surface& picture, const png_color* palette,
                  int compression, Bytes* out) {
  if (setjmp(png_jmpbuf(writer->png)) != 0) {
    return false;
  }
  png_set_write_fn(writer->png, out, Append, Flush);
  png_set_compression_level(writer->png, compression);
  png_set_IHDR(writer->png, writer->info, static_cast<png_uint_32>(picture.w),
               static_cast<png_uint_32>(picture.h), 8, PNG_COLOR_TYPE_PALETTE, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_set_PLTE(writer->png, writer->info, palette, 256);
  png_write_info(writer->png, writer->info);
  const auto* pixels = static_cast<const png_byte*>(picture.pixels);
  for (int y = 0; y < picture.h; ++y) {
    png_write_row(writer->png, pixels + static_cast<std::ptrdiff_t>(y) * picture.pitch);
  }
  png_write_end(writer->png, nullptr);
  return true;
}

}  // namespace

std::vector<std::uint8_t> EncodePng(const SDL_Surface& picture, int compression) {
  if (picture.format->format != SDL_PIXELFORMAT_INDEX8) {
    throw std::runtime_error("only pictures of 8-bit indexed pixels become PNG files here");
  }
  PngWriter writer;
  if (writer.info == nullptr) {
    throw std::runtime_error("cannot start libpng");
  }
  const std::array<png_color, 256> palette = PaletteOf(picture);
  Bytes out;
  if (!WritePicture(&writer, picture, palette.data(), compression, &out)) {
    throw std::runtime_error(std::string("cannot encode the picture: ") + writer.error.data());
  }
  return out;
}

}  // namespace quindle::demo

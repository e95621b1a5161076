#include "bmp_encoder.h"

#include <algorithm>
#include <span>
#include <stdexcept>

namespace quindle::demo {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Row = std::span<const std::uint8_t>;

constexpr std::size_t kFileHeaderSize = 14;
constexpr std::uint32_t kInfoHeaderSize = 40;
constexpr std::size_t kPaletteEntries = 256;
constexpr std::uint32_t kPixelOffset =
    static_cast<std::uint32_t>(kFileHeaderSize + kInfoHeaderSize + kPaletteEntries * 4);
constexpr std::uint32_t kPixelsPerMetre = 2835;  // 72 dots per inch.

// Codes of the run-length encoding: a zero byte, then one of these, or a count of literal pixels
// from 3 up.
constexpr std::uint8_t kEscape = 0;
constexpr std::uint8_t kEndOfLine = 0;
constexpr std::uint8_t kEndOfBitmap = 1;
constexpr std::size_t kMinLiterals = 3;
constexpr std::size_t kMaxCount = 255;

// --- Little-endian numbers -----------------------------------------------------------------------

void Put16(Bytes* out, std::uint32_t value) {
  out->push_back(static_cast<std::uint8_t>(value & 0xFFU));
  out->push_back(static_cast<std::uint8_t>(value >> 8U & 0xFFU));
}

void Put32(Bytes* out, std::uint32_t value) {
  Put16(out, value & 0xFFFFU);
  Put16(out, value >> 16U);
}

// --- Headers -------------------------------------------------------------------------------------

void PutFileHeader(Bytes* out, std::size_t pixel_bytes) {
  out->push_back('B');
  out->push_back('M');
  Put32(out, static_cast<std::uint32_t>(kPixelOffset + pixel_bytes));
  Put32(out, 0);  // Reserved.
  Put32(out, kPixelOffset);
}

void PutInfoHeader(Bytes* out, const SDL_Surface& picture, BmpCompression compression,
                   std::size_t pixel_bytes) {
  Put32(out, kInfoHeaderSize);
  Put32(out, static_cast<std::uint32_t>(picture.w));
  Put32(out, static_cast<std::uint32_t>(picture.h));
  Put16(out, 1);  // Planes.
  Put16(out, 8);  // Bits a pixel.
  Put32(out, compression == BmpCompression::Rle8 ? 1 : 0);
  Put32(out, static_cast<std::uint32_t>(pixel_bytes));
  Put32(out, kPixelsPerMetre);
  Put32(out, kPixelsPerMetre);
  Put32(out, kPaletteEntries);
  Put32(out, 0);  // All of them matter.
}

void PutPalette(Bytes* out, const SDL_Palette& palette) {
  const std::span<const SDL_Color> colors(palette.colors,
                                          static_cast<std::size_t>(palette.ncolors));
  for (std::size_t i = 0; i < kPaletteEntries; ++i) {
    const SDL_Color color = i < colors.size() ? colors[i] : SDL_Color{0, 0, 0, 0};
    out->insert(out->end(), {color.b, color.g, color.r, 0});
  }
}

// --- Pixels --------------------------------------------------------------------------------------

Row PictureRow(const SDL_Surface& picture, int y) {
  const auto* pixels = static_cast<const std::uint8_t*>(picture.pixels);
  const std::size_t offset = static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.pitch);
  return {pixels + offset, static_cast<std::size_t>(picture.w)};
}

// Rows of plain pixels are padded to a multiple of four bytes.
void PutPlainRow(Bytes* out, Row row) {
  out->insert(out->end(), row.begin(), row.end());
  out->resize(out->size() + (4 - row.size() % 4) % 4, 0);
}

// How many pixels at the start of `row` have the same value.
std::size_t RunLength(Row row) {
  const std::size_t limit = std::min(row.size(), kMaxCount);
  std::size_t length = 1;
  while (length < limit && row[length] == row[0]) {
    ++length;
  }
  return length;
}

// How many pixels at the start of `row` are better given one by one than as runs.
std::size_t LiteralLength(Row row) {
  const std::size_t limit = std::min(row.size(), kMaxCount);
  std::size_t length = 0;
  while (length < limit && RunLength(row.subspan(length)) < kMinLiterals) {
    ++length;
  }
  return length;
}

void PutRun(Bytes* out, std::size_t length, std::uint8_t value) {
  out->push_back(static_cast<std::uint8_t>(length));
  out->push_back(value);
}

// Literals are padded to an even number of bytes.
void PutLiterals(Bytes* out, Row literals) {
  out->push_back(kEscape);
  out->push_back(static_cast<std::uint8_t>(literals.size()));
  out->insert(out->end(), literals.begin(), literals.end());
  out->resize(out->size() + literals.size() % 2, 0);
}

void PutEncodedRow(Bytes* out, Row row) {
  while (!row.empty()) {
    const std::size_t literals = LiteralLength(row);
    if (literals >= kMinLiterals) {
      PutLiterals(out, row.first(literals));
      row = row.subspan(literals);
    } else {
      const std::size_t length = RunLength(row);
      PutRun(out, length, row[0]);
      row = row.subspan(length);
    }
  }
  out->push_back(kEscape);
  out->push_back(kEndOfLine);
}

// The last row comes first.
Bytes EncodePixels(const SDL_Surface& picture, BmpCompression compression) {
  Bytes pixels;
  for (int y = picture.h - 1; y >= 0; --y) {
    if (compression == BmpCompression::Rle8) {
      PutEncodedRow(&pixels, PictureRow(picture, y));
    } else {
      PutPlainRow(&pixels, PictureRow(picture, y));
    }
  }
  if (compression == BmpCompression::Rle8) {
    pixels.push_back(kEscape);
    pixels.push_back(kEndOfBitmap);
  }
  return pixels;
}

}  // namespace

std::vector<std::uint8_t> EncodeBmp(const SDL_Surface& picture, BmpCompression compression) {
  if (picture.format->format != SDL_PIXELFORMAT_INDEX8) {
    throw std::invalid_argument("only pictures of 8-bit indexed pixels become BMP files here");
  }
  const Bytes pixels = EncodePixels(picture, compression);
  Bytes file;
  PutFileHeader(&file, pixels.size());
  PutInfoHeader(&file, picture, compression, pixels.size());
  PutPalette(&file, *picture.format->palette);
  file.insert(file.end(), pixels.begin(), pixels.end());
  return file;
}

}  // namespace quindle::demo

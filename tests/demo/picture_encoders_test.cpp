// The picture files of the demo host, opened again by SDL and by ImageMagick.

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "bmp_encoder.h"
#include "demo/resource_limits.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "guest_picture.h"
#include "png_encoder.h"
#include "screenshot_writer.h"
#include "support/child_process.h"
#include "support/temporary_directory.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;
using frontend::gui::OwnedSdlSurface;
using frontend::gui::ScreenshotSaveDialogResult;
using frontend::gui::ScreenshotSaveFormat;
using ::testing::HasSubstr;
using testing::RunProgram;
using testing::TemporaryDirectory;
using Bytes = std::vector<std::uint8_t>;

OwnedSdlSurface MakePicture(int width, int height) {
  OwnedSdlSurface picture(
      SDL_CreateRGBSurfaceWithFormat(0, width, height, 8, SDL_PIXELFORMAT_INDEX8));
  for (int i = 0; i < 256; ++i) {
    const auto level = static_cast<Uint8>(i);
    picture->format->palette->colors[i] = {level, static_cast<Uint8>(255 - i),
                                           static_cast<Uint8>(i * 7), 255};
  }
  return picture;
}

std::uint8_t* PixelAt(SDL_Surface* picture, int x, int y) {
  return static_cast<std::uint8_t*>(picture->pixels) + y * picture->pitch + x;
}

// The pixels row by row, without what pads the rows.
Bytes PixelsOf(SDL_Surface* picture) {
  Bytes pixels;
  const int row = picture->w * picture->format->BytesPerPixel;
  for (int y = 0; y < picture->h; ++y) {
    const std::uint8_t* first = PixelAt(picture, 0, y);
    pixels.insert(pixels.end(), first, first + row);
  }
  return pixels;
}

Bytes ColoursOf(SDL_Surface* picture) {
  const OwnedSdlSurface rgb(SDL_ConvertSurfaceFormat(picture, SDL_PIXELFORMAT_RGB24, 0));
  return PixelsOf(rgb.get());
}

OwnedSdlSurface DecodeBmp(const Bytes& file) {
  return OwnedSdlSurface(
      SDL_LoadBMP_RW(SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())), 1));
}

std::uint32_t Number32(const Bytes& file, std::size_t at) {
  return file[at] | static_cast<std::uint32_t>(file[at + 1]) << 8U |
         static_cast<std::uint32_t>(file[at + 2]) << 16U |
         static_cast<std::uint32_t>(file[at + 3]) << 24U;
}

std::string Identify(const std::string& format, const fs::path& file) {
  const auto result = RunProgram({"identify", "-format", format, file.string()});
  EXPECT_EQ(result.exit_status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  return result.out;
}

// What ImageMagick makes of the file: red, green and blue of each pixel.
Bytes ColoursByImageMagick(const fs::path& file) {
  const auto result = RunProgram({"convert", file.string(), "-depth", "8", "rgb:-"});
  EXPECT_EQ(result.exit_status, 0) << result.err;
  return {result.out.begin(), result.out.end()};
}

// --- BMP -----------------------------------------------------------------------------------------

TEST(BmpEncoder, HeaderNamesTheEncoding) {
  const OwnedSdlSurface picture = MakePicture(5, 3);
  const Bytes plain = EncodeBmp(*picture, BmpCompression::None);
  const Bytes rle = EncodeBmp(*picture, BmpCompression::Rle8);
  EXPECT_EQ(Number32(plain, 30), 0U);
  EXPECT_EQ(Number32(rle, 30), 1U);
  EXPECT_EQ(plain.size(), 14U + 40U + 1024U + 3U * 8U);
  for (const Bytes& file : {plain, rle}) {
    EXPECT_EQ(file[0], 'B');
    EXPECT_EQ(file[1], 'M');
    EXPECT_EQ(Number32(file, 2), file.size());
    EXPECT_EQ(Number32(file, 10), 14U + 40U + 1024U);
    EXPECT_EQ(Number32(file, 18), 5U);
    EXPECT_EQ(Number32(file, 22), 3U);
    EXPECT_EQ(Number32(file, 34), file.size() - (14U + 40U + 1024U));
  }
}

TEST(BmpEncoder, RunsAndLiteralsAreEncoded) {
  const OwnedSdlSurface picture = MakePicture(9, 1);
  const std::uint8_t row[] = {7, 7, 7, 7, 1, 2, 3, 5, 5};
  std::copy(std::begin(row), std::end(row), PixelAt(picture.get(), 0, 0));
  const Bytes file = EncodeBmp(*picture, BmpCompression::Rle8);
  const Bytes pixels(file.begin() + 14 + 40 + 1024, file.end());
  EXPECT_EQ(pixels, (Bytes{4, 7, 0, 5, 1, 2, 3, 5, 5, 0, 0, 0, 0, 1}));
}

TEST(BmpEncoder, DecodesToTheSamePixels) {
  std::mt19937 random(20261121);
  const auto below = [&random](int end) {
    return static_cast<int>(random() % static_cast<unsigned int>(end));
  };
  for (int round = 0; round < 400; ++round) {
    // Widths around the longest run, and pictures from noise to few long runs.
    const OwnedSdlSurface picture = MakePicture(1 + below(round % 4 == 0 ? 600 : 12), 1 + below(9));
    const int repeats = 1 + below(6) * below(80);
    int value = 0;
    for (int y = 0; y < picture->h; ++y) {
      for (int x = 0; x < picture->w; ++x) {
        value = below(repeats) == 0 ? below(round % 3 == 0 ? 2 : 256) : value;
        *PixelAt(picture.get(), x, y) = static_cast<std::uint8_t>(value);
      }
    }
    for (const BmpCompression compression : {BmpCompression::None, BmpCompression::Rle8}) {
      const OwnedSdlSurface decoded = DecodeBmp(EncodeBmp(*picture, compression));
      ASSERT_NE(decoded, nullptr) << SDL_GetError();
      ASSERT_EQ(decoded->format->format, Uint32{SDL_PIXELFORMAT_INDEX8});
      ASSERT_EQ(PixelsOf(decoded.get()), PixelsOf(picture.get())) << round;
      ASSERT_EQ(ColoursOf(decoded.get()), ColoursOf(picture.get())) << round;
    }
  }
}

TEST(BmpEncoder, LongRunsBecomeSmall) {
  const OwnedSdlSurface picture = MakePicture(300, 10);
  EXPECT_LT(EncodeBmp(*picture, BmpCompression::Rle8).size(), 14U + 40U + 1024U + 10U * 8U);
}

TEST(BmpEncoder, TakesIndexedPicturesOnly) {
  const OwnedSdlSurface picture(SDL_CreateRGBSurfaceWithFormat(0, 4, 4, 24, SDL_PIXELFORMAT_RGB24));
  EXPECT_THROW(EncodeBmp(*picture, BmpCompression::None), std::invalid_argument);
  EXPECT_THROW(EncodePng(*picture, 2), std::runtime_error);
}

// --- PNG -----------------------------------------------------------------------------------------

// zlib's own mark of the level, in the second byte of its stream: 0 for levels 0 and 1, then 1, 2
// for level 6, 3 for 7 to 9.
int ZlibLevelMark(const Bytes& png) {
  const std::string text(png.begin(), png.end());
  const std::size_t data = text.find("IDAT") + 4;
  return png[data + 1] >> 6U;
}

TEST(PngEncoder, CompressionLevelCounts) {
  const GuestPicture guest;
  const Bytes none = EncodePng(*guest.Canvas(), 0);
  const Bytes fast = EncodePng(*guest.Canvas(), 2);
  const Bytes best = EncodePng(*guest.Canvas(), 9);
  EXPECT_GT(none.size(), 320U * 200U);
  EXPECT_LT(fast.size(), none.size() / 4);
  EXPECT_LT(best.size(), fast.size());
  EXPECT_EQ(ZlibLevelMark(none), 0);
  EXPECT_EQ(ZlibLevelMark(EncodePng(*guest.Canvas(), 3)), 1);
  EXPECT_EQ(ZlibLevelMark(EncodePng(*guest.Canvas(), 6)), 2);
  EXPECT_EQ(ZlibLevelMark(best), 3);
}

TEST(PngEncoder, PictureThatIsNoneIsReported) {
  SDL_Surface empty = *GuestPicture().Canvas();
  SDL_PixelFormat format{};
  SDL_Palette palette{};
  format.format = SDL_PIXELFORMAT_INDEX8;
  format.palette = &palette;
  empty.format = &format;
  empty.w = empty.h = 0;
  try {
    EncodePng(empty, 2);
    ADD_FAILURE() << "a picture without pixels was encoded";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("cannot encode the picture: "));
  }
}

// --- Files ---------------------------------------------------------------------------------------

class ScreenshotFile : public ::testing::Test {
 protected:
  ScreenshotSaveDialogResult Result(const std::string& name, ScreenshotSaveFormat format) const {
    ScreenshotSaveDialogResult result;
    result.accepted = true;
    result.folder = folder_.path();
    result.file_name = name;
    result.format = format;
    return result;
  }
  fs::path Write(const ScreenshotSaveDialogResult& result) const {
    WriteScreenshot(*guest_.Canvas(), result);
    return ScreenshotPath(result);
  }

  TemporaryDirectory folder_;
  GuestPicture guest_;
};

TEST_F(ScreenshotFile, PngIsReadByOthers) {
  for (const int level : {0, 2, 9}) {
    auto result = Result("shot" + std::to_string(level) + ".png", ScreenshotSaveFormat::Png);
    result.png_compression = level;
    const fs::path file = Write(result);
    EXPECT_EQ(file, folder_.path() / result.file_name);
    EXPECT_EQ(Identify("%m %w %h %z", file), "PNG 320 200 8");
    EXPECT_EQ(ColoursByImageMagick(file), ColoursOf(guest_.Canvas()));
  }
}

TEST_F(ScreenshotFile, BmpIsReadByOthers) {
  for (const bool rle : {false, true}) {
    auto result = Result(rle ? "rle.bmp" : "plain.bmp", ScreenshotSaveFormat::Bmp);
    result.bmp_rle = rle;
    const fs::path file = Write(result);
    EXPECT_THAT(Identify("%m %w %h %z %C", file),
                ::testing::MatchesRegex(rle ? "BMP3? 320 200 8 RLE" : "BMP3? 320 200 8 None"));
    EXPECT_EQ(ColoursByImageMagick(file), ColoursOf(guest_.Canvas()));
  }
  EXPECT_LT(fs::file_size(folder_.path() / "rle.bmp"), fs::file_size(folder_.path() / "plain.bmp"));
}

TEST_F(ScreenshotFile, JpegIsReadByOthersAndHasItsQuality) {
  for (const int quality : {1, 40, 90, 100}) {
    auto result = Result("shot" + std::to_string(quality) + ".jpg", ScreenshotSaveFormat::Jpeg);
    result.jpeg_quality = quality;
    EXPECT_EQ(Identify("%m %w %h %z %Q", Write(result)),
              "JPEG 320 200 8 " + std::to_string(quality));
  }
}

TEST_F(ScreenshotFile, JpegShowsThePicture) {
  auto result = Result("shot.jpg", ScreenshotSaveFormat::Jpeg);
  result.jpeg_quality = 100;
  const Bytes decoded = ColoursByImageMagick(Write(result));
  const Bytes original = ColoursOf(guest_.Canvas());
  ASSERT_EQ(decoded.size(), original.size());
  double error = 0;
  for (std::size_t i = 0; i < original.size(); ++i) {
    error += std::abs(static_cast<double>(decoded[i]) - original[i]);
  }
  EXPECT_LT(error / static_cast<double>(original.size()), 6.0);
}

TEST_F(ScreenshotFile, ExistingFileIsLeftAsItIs) {
  folder_.Write("shot.png", "mine");
  EXPECT_THROW(Write(Result("shot.png", ScreenshotSaveFormat::Png)), std::runtime_error);
  EXPECT_EQ(fs::file_size(folder_.path() / "shot.png"), 4U);
}

TEST_F(ScreenshotFile, FullFolderLeavesNoPart) {
  for (const ScreenshotSaveFormat format :
       {ScreenshotSaveFormat::Png, ScreenshotSaveFormat::Jpeg, ScreenshotSaveFormat::Bmp}) {
    const FileSizeLimit limit(512);
    EXPECT_THROW(Write(Result("shot", format)), std::runtime_error);
    EXPECT_TRUE(fs::is_empty(folder_.path()));
  }
}

}  // namespace
}  // namespace quindle::demo

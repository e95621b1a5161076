#include "guest_picture.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "guest_view.h"

namespace quindle::demo {
namespace {

std::string Pixels(const GuestPicture& guest) {
  std::string pixels;
  for (int y = 0; y < GuestPicture::kHeight; ++y) {
    pixels.append(static_cast<const char*>(guest.Canvas()->pixels) + y * guest.Canvas()->pitch,
                  GuestPicture::kWidth);
  }
  return pixels;
}

TEST(GuestPicture, IsIndexedWithAPaletteOf256) {
  const GuestPicture guest;
  EXPECT_EQ(guest.Canvas()->w, 320);
  EXPECT_EQ(guest.Canvas()->h, 200);
  EXPECT_EQ(guest.Canvas()->format->format, SDL_PIXELFORMAT_INDEX8);
  EXPECT_EQ(guest.Canvas()->format->palette->ncolors, 256);
}

TEST(GuestPicture, UsesManyColours) {
  const GuestPicture guest;
  const std::string pixels = Pixels(guest);
  EXPECT_GT(std::set<char>(pixels.begin(), pixels.end()).size(), 100U);
}

TEST(GuestPicture, AdvanceChangesThePicture) {
  GuestPicture guest;
  std::string previous = Pixels(guest);
  for (int frame = 1; frame <= 300; ++frame) {
    guest.Advance();
    EXPECT_EQ(guest.Frame(), frame);
    const std::string now = Pixels(guest);
    ASSERT_NE(now, previous) << "frame " << frame;
    previous = now;
  }
}

TEST(GuestPicture, FrameDependsOnItsNumberAlone) {
  GuestPicture advanced;
  for (int i = 0; i < 75; ++i) {
    advanced.Advance();
  }
  GuestPicture jumped;
  jumped.DrawFrame(75);
  EXPECT_EQ(Pixels(jumped), Pixels(advanced));
}

TEST(GuestView, FitsThePictureAtFourToThree) {
  const auto expect = [](SDL_Rect area, SDL_Rect fitted) {
    const SDL_Rect actual = FitGuestPicture(area);
    EXPECT_TRUE(SDL_RectEquals(&actual, &fitted))
        << actual.x << " " << actual.y << " " << actual.w << " " << actual.h;
  };
  expect({0, 0, 400, 300}, {0, 0, 400, 300});
  expect({10, 20, 800, 300}, {210, 20, 400, 300});
  expect({10, 20, 400, 500}, {10, 120, 400, 300});
  expect({0, 0, 0, 0}, {0, 0, 1, 1});
}

}  // namespace
}  // namespace quindle::demo

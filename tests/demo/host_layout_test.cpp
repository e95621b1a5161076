#include "host_layout.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <vector>

namespace quindle::demo {
namespace {

// The captions of ten dialogs, about as wide as they are.
const std::vector<int> kCaptionWidths = {110, 90, 80, 60, 70, 90, 100, 120, 80, 60};

class HostLayoutAtSize : public ::testing::TestWithParam<SDL_Point> {
 protected:
  const SDL_Point size_ = GetParam();
  const HostLayout layout_ = BuildHostLayout(size_.x, size_.y, kCaptionWidths);
};

TEST_P(HostLayoutAtSize, EveryPartLiesInTheWindow) {
  const SDL_Rect window{0, 0, size_.x, size_.y};
  std::vector<SDL_Rect> parts = layout_.buttons;
  parts.insert(parts.end(), {layout_.picture, layout_.result, layout_.status});
  for (const SDL_Rect& part : parts) {
    SDL_Rect both;
    ASSERT_TRUE(SDL_IntersectRect(&window, &part, &both));
    EXPECT_TRUE(SDL_RectEquals(&both, &part)) << part.x << " " << part.y;
  }
}

TEST_P(HostLayoutAtSize, NoTwoPartsOverlap) {
  std::vector<SDL_Rect> parts = layout_.buttons;
  parts.insert(parts.end(), {layout_.picture, layout_.result, layout_.status});
  for (size_t a = 0; a < parts.size(); ++a) {
    for (size_t b = a + 1; b < parts.size(); ++b) {
      EXPECT_FALSE(SDL_HasIntersection(&parts[a], &parts[b])) << a << " and " << b;
    }
  }
}

TEST_P(HostLayoutAtSize, EachButtonIsFoundAtItsCornersOnly) {
  ASSERT_EQ(layout_.buttons.size(), kCaptionWidths.size());
  for (size_t i = 0; i < layout_.buttons.size(); ++i) {
    const SDL_Rect& button = layout_.buttons[i];
    const int index = static_cast<int>(i);
    EXPECT_EQ(FindHostButton(layout_, button.x, button.y), index);
    EXPECT_EQ(FindHostButton(layout_, button.x + button.w - 1, button.y + button.h - 1), index);
    EXPECT_EQ(FindHostButton(layout_, button.x - 1, button.y), -1);
    EXPECT_EQ(FindHostButton(layout_, button.x, button.y + button.h), -1);
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, HostLayoutAtSize,
                         ::testing::Values(SDL_Point{480, 420}, SDL_Point{900, 760},
                                           SDL_Point{1920, 1080}, SDL_Point{500, 2000}));

TEST(HostLayout, ButtonsWrapWhereTheWindowEnds) {
  const HostLayout narrow = BuildHostLayout(480, 600, {200, 200, 200});
  EXPECT_EQ(narrow.buttons[0].y, narrow.buttons[1].y);
  EXPECT_GT(narrow.buttons[2].y, narrow.buttons[1].y);
  EXPECT_EQ(narrow.buttons[2].x, narrow.buttons[0].x);
}

TEST(HostLayout, TooSmallAWindowGivesNoNegativeSize) {
  const HostLayout layout = BuildHostLayout(1, 1, {});
  EXPECT_GT(layout.picture.w, 0);
  EXPECT_GT(layout.picture.h, 0);
  EXPECT_GT(layout.result.w, 0);
}

}  // namespace
}  // namespace quindle::demo

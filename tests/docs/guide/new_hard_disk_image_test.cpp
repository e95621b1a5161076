#include "guide/new_hard_disk_image.inc"

#include "block_test.h"

namespace {

struct CreatedImage {
  std::string path;
  std::uint64_t bytes = 0;
  bool operator==(const CreatedImage&) const = default;
};

std::vector<CreatedImage> g_images;

}  // namespace

bool CreateImage(const std::string& path, std::uint64_t bytes) {
  g_images.push_back({path, bytes});
  return true;
}

namespace quindle::testing {
namespace {

class GuideNewDisk : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    g_images.clear();
  }
};

TEST_F(GuideNewDisk, IsCreatedWhereAndAsLargeAsTheUserSaid) {
  DialogScript script;
  script
      .Step([] {
        for (int digit = 0; digit < 2; ++digit) {
          KeyDown(SDLK_BACKSPACE);
        }
        TextInput("8192");
      })
      .Step([] { KeyDown(SDLK_RETURN); });
  AskForNewDisk(MakeParent(), "/disks");
  EXPECT_EQ(g_images, (std::vector<CreatedImage>{{"/disks/disk.img", 8589934592U}}));
}

TEST_F(GuideNewDisk, IsNotCreatedWhenTheUserCancels) {
  DialogScript script;
  script.Step([] { KeyDown(SDLK_ESCAPE); });
  AskForNewDisk(MakeParent(), "/disks");
  EXPECT_TRUE(g_images.empty());
}

}  // namespace
}  // namespace quindle::testing

#include "guide/save_a_screenshot.inc"

#include "block_test.h"

namespace {

std::vector<quindle::frontend::gui::ScreenshotSaveDialogResult> g_written;

}  // namespace

void WriteScreenshot(const gui::ScreenshotSaveDialogResult& target) {
  g_written.push_back(target);
}

namespace quindle::testing {
namespace {

class GuideScreenshot : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    g_written.clear();
  }
};

TEST_F(GuideScreenshot, IsWrittenAsTheUserSaidAndItsFolderKept) {
  std::string last_folder;
  DialogScript script;
  script.Step([] { KeyDown(SDLK_RETURN); });
  AskForScreenshot(MakeParent(), &last_folder);
  ASSERT_EQ(g_written.size(), 1U);
  EXPECT_EQ(g_written[0].format, gui::ScreenshotSaveFormat::Png);
  EXPECT_EQ(g_written[0].png_compression, 6);
  EXPECT_TRUE(g_written[0].file_name.ends_with(".png")) << g_written[0].file_name;
  EXPECT_FALSE(last_folder.empty());
  EXPECT_EQ(last_folder, g_written[0].folder);
}

TEST_F(GuideScreenshot, IsNotWrittenWhenTheUserCancels) {
  std::string last_folder = "/pictures";
  DialogScript script;
  script.Step([] { KeyDown(SDLK_ESCAPE); });
  AskForScreenshot(MakeParent(), &last_folder);
  EXPECT_TRUE(g_written.empty());
  EXPECT_EQ(last_folder, "/pictures");
}

}  // namespace
}  // namespace quindle::testing

#include "guide/file_and_folder_pickers.inc"

#include "block_test.h"

namespace {

std::vector<std::string> g_inserted;

}  // namespace

void InsertFloppy(const std::string& path) {
  g_inserted.push_back(path);
}

namespace quindle::testing {
namespace {

class GuidePickers : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    g_inserted.clear();
    image_ = disks_.Write("boot.img", "");
    last_folder_ = disks_.path().string();
  }

  void AskWhileUserPresses(std::vector<SDL_Keycode> keys) {
    DialogScript script;
    for (const SDL_Keycode key : keys) {
      script.Step([key] { KeyDown(key); });
    }
    AskForFloppy(MakeParent(), &last_folder_);
  }

  TemporaryDirectory disks_;
  std::filesystem::path image_;
  std::string last_folder_;
};

TEST_F(GuidePickers, InsertTheChosenImageAndKeepItsFolder) {
  AskWhileUserPresses({SDLK_DOWN, SDLK_RETURN});  // Past "..".
  EXPECT_EQ(g_inserted, std::vector<std::string>{image_.string()});
  EXPECT_EQ(last_folder_, disks_.path().string());
}

TEST_F(GuidePickers, OpenInTheKeptFolderWhenTheImageIsGone) {
  AskWhileUserPresses({SDLK_DOWN, SDLK_RETURN});
  std::filesystem::remove(image_);
  FlushEvents();
  AskWhileUserPresses({SDLK_UNKNOWN, SDLK_ESCAPE});
  EXPECT_TRUE(Recorder().last_frame().HasText(disks_.path().string()));
}

TEST_F(GuidePickers, ChangeNothingWhenCancelled) {
  AskWhileUserPresses({SDLK_DOWN, SDLK_ESCAPE});
  EXPECT_TRUE(g_inserted.empty());
  EXPECT_EQ(last_folder_, disks_.path().string());
}

TEST_F(GuidePickers, AskForABackupFolderWithTheTextsGiven) {
  const ScopedWorkingDirectory here(disks_.path());
  DialogScript script;
  script.Wait().Step([] {
    EXPECT_EQ(Recorder().windows().back().title, "Backup");
    EXPECT_TRUE(Recorder().last_frame().HasText("Choose where the backups go"));
    ClickCaption("Select");
  });
  EXPECT_TRUE(std::filesystem::equivalent(AskForBackupFolder(MakeParent()), disks_.path()));
}

}  // namespace
}  // namespace quindle::testing

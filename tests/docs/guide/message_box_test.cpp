#include "guide/message_box.inc"

#include "block_test.h"

namespace {

int g_saves = 0;
Uint32 g_window_while_saving = 0;

}  // namespace

void SaveState() {
  ++g_saves;
  g_window_while_saving = quindle::testing::WindowId();
}

namespace quindle::testing {
namespace {

class GuideMessageBox : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    g_saves = 0;
    g_window_while_saving = 0;
  }

  bool MayQuitWhenUser(std::function<void()> acts) {
    DialogScript script;
    script.Wait().Step(std::move(acts));
    return MayQuit(MakeParent());
  }
};

TEST_F(GuideMessageBox, SavesWhileTheBoxIsOpenAndMayQuit) {
  EXPECT_TRUE(MayQuitWhenUser([] { ClickCaption("Save"); }));
  EXPECT_EQ(g_saves, 1);
  EXPECT_NE(g_window_while_saving, 0U);
  EXPECT_NE(g_window_while_saving, SDL_GetWindowID(MakeParent()));
}

TEST_F(GuideMessageBox, DiscardsWithoutSaving) {
  EXPECT_TRUE(MayQuitWhenUser([] { ClickCaption("Discard"); }));
  EXPECT_EQ(g_saves, 0);
}

TEST_F(GuideMessageBox, GoesOnAtEscapeAndWhenItIsClosed) {
  EXPECT_FALSE(MayQuitWhenUser([] { KeyDown(SDLK_ESCAPE); }));
  FlushEvents();
  EXPECT_FALSE(MayQuitWhenUser([] { CloseWindow(WindowId()); }));
  EXPECT_EQ(g_saves, 0);
}

}  // namespace
}  // namespace quindle::testing

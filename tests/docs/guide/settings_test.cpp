#include "guide/settings.inc"

#include "block_test.h"

namespace {

std::vector<gui::SettingsDialogValues> g_stored;

}  // namespace

void Store(const gui::SettingsDialogValues& values) {
  g_stored.push_back(values);
}

namespace quindle::testing {
namespace {

class GuideSettings : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    g_stored.clear();
  }

  void EditWhileUser(std::vector<std::function<void()>> acts) {
    gui::SettingsDialogValues current;
    current.target_fps = 50;
    DialogScript script;
    script.Wait();
    for (std::function<void()>& act : acts) {
      script.Step(std::move(act));
    }
    EditSettings(MakeParent(), current);
    EXPECT_TRUE(script.IsFinished());
  }
};

TEST_F(GuideSettings, AreStoredAtEachApplyAndTheDialogStaysOpen) {
  EditWhileUser({[] { ClickCaption("Apply"); }, [] { ClickCaption("Apply"); },
                 [] { ClickCaption("Cancel"); }});
  ASSERT_EQ(g_stored.size(), 2U);
  EXPECT_EQ(g_stored[0].target_fps, 50);
}

TEST_F(GuideSettings, EachWayToCloseStoresNothing) {
  EditWhileUser({[] { ClickCaption("Cancel"); }});
  FlushEvents();
  EditWhileUser({[] { KeyDown(SDLK_ESCAPE, WindowId()); }});
  FlushEvents();
  EditWhileUser({[] { CloseWindow(WindowId()); }});
  FlushEvents();
  EditWhileUser({[] { Quit(); }});
  EXPECT_TRUE(g_stored.empty());
}

TEST_F(GuideSettings, NothingElseClosesTheDialog) {
  EditWhileUser({[] { KeyDown(SDLK_RETURN, WindowId()); }, [] { ClickCaption("Renderer"); },
                 [] { Click(500, 400, SDL_BUTTON_LEFT, 1, WindowId()); },
                 [] { KeyDown(SDLK_ESCAPE); },  // Names no window.
                 [] { ClickCaption("Cancel"); }});
}

}  // namespace
}  // namespace quindle::testing

#include "guide/captured_mouse.inc"

#include "block_test.h"

namespace quindle::testing {
namespace {

class GuideCapturedMouse : public DialogTest {
 protected:
  void AnswerWith(const char* caption) {
    DialogScript script;
    script.Wait().Step([caption] {
      EXPECT_FALSE(SDL_GetRelativeMouseMode());
      ClickCaption(caption);
    });
    AskWhetherToFreeTheMouse(MakeParent());
  }
};

TEST_F(GuideCapturedMouse, IsToggled) {
  ToggleMouseCapture();
  EXPECT_TRUE(SDL_GetRelativeMouseMode());
  ToggleMouseCapture();
  EXPECT_FALSE(SDL_GetRelativeMouseMode());
}

TEST_F(GuideCapturedMouse, IsFreedOnlyWhenTheUserSaysSo) {
  ToggleMouseCapture();
  AnswerWith("Keep");
  EXPECT_TRUE(SDL_GetRelativeMouseMode());
  FlushEvents();
  AnswerWith("Free");
  EXPECT_FALSE(SDL_GetRelativeMouseMode());
}

TEST_F(GuideCapturedMouse, CannotBeFreedForGoodFromACallback) {
  ToggleMouseCapture();
  gui::SdlMessageBox::Config box;
  box.buttons = {{1, "Free", true, true, [] { SDL_SetRelativeMouseMode(SDL_FALSE); }}};
  DialogScript script;
  script.Wait().Step([] { KeyDown(SDLK_ESCAPE); });
  EXPECT_EQ(gui::SdlMessageBox(box).Show(MakeParent(), 1.0F), 1);
  EXPECT_TRUE(SDL_GetRelativeMouseMode());
}

}  // namespace
}  // namespace quindle::testing

#include "guide/full_screen.inc"

#include "block_test.h"
#include "frontend/gui/about_dialog.h"

namespace quindle::testing {
namespace {

class GuideFullScreen : public DialogTest {};

TEST_F(GuideFullScreen, IsToggledAndStaysUnderADialog) {
  SDL_Window* const window = MakeParent();
  ToggleFullScreen(window);
  EXPECT_TRUE(IsFullScreen(window));
  DialogScript script;
  script.Wait().Step([] { KeyDown(SDLK_ESCAPE); });
  frontend::gui::ShowSimpleAboutDialog(window, 1.0F);
  EXPECT_EQ(SDL_GetWindowFlags(window) & SDL_WINDOW_FULLSCREEN_DESKTOP,
            Uint32{SDL_WINDOW_FULLSCREEN_DESKTOP});
  ToggleFullScreen(window);
  EXPECT_FALSE(IsFullScreen(window));
}

}  // namespace
}  // namespace quindle::testing

#include "guide/opengl.inc"

#include "block_test.h"
#include "frontend/gui/about_dialog.h"

namespace {

int g_pictures_in_context = 0;
SDL_GLContext g_context = nullptr;

}  // namespace

void DrawGuestPicture() {
  g_pictures_in_context += SDL_GL_GetCurrentContext() == g_context ? 1 : 0;
}

namespace quindle::testing {
namespace {

class GuideOpenGl : public DialogTest {
 protected:
  // Escape after `frames`.
  static void ShowAbout(SDL_Window* parent, int frames) {
    int shown = 0;
    Recorder().OnDelay([frames, &shown](Uint32) {
      if (++shown == frames - 1) {
        KeyDown(SDLK_ESCAPE);
      }
    });
    frontend::gui::ShowSimpleAboutDialog(parent, 1.0F);
    Recorder().OnDelay({});
  }
};

TEST_F(GuideOpenGl, TheHeartbeatDrawsInTheHostsContext) {
  SDL_Window* const window = MakeParent();
  g_context = Recorder().StartOpenGl(window);
  g_pictures_in_context = 0;
  KeepDrawing(window);
  ShowAbout(window, 4);
  EXPECT_EQ(g_pictures_in_context, 4);
  EXPECT_EQ(SDL_GL_GetCurrentContext(), g_context);
}

}  // namespace
}  // namespace quindle::testing

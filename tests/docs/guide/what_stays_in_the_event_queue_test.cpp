#include "guide/what_stays_in_the_event_queue.inc"

#include "block_test.h"
#include "frontend/gui/hdd_create_dialog.h"

namespace quindle::testing {
namespace {

class GuideQueue : public DialogTest {
 protected:
  void ShowFormWhileUser(std::function<void()> acts) {
    DialogScript script;
    script.Wait().Step(std::move(acts));
    frontend::gui::ShowSimpleHddCreateDialog(MakeParent(), "", 0);
  }
};

TEST_F(GuideQueue, TheWatchSeesTheQuitThatTheDialogConsumes) {
  g_quit_requested = false;
  InstallQuitWatch();
  ShowFormWhileUser([] { KeyDown(SDLK_ESCAPE); });
  EXPECT_FALSE(g_quit_requested);
  FlushEvents();
  ShowFormWhileUser([] { Quit(); });
  EXPECT_TRUE(g_quit_requested);
  EXPECT_FALSE(SDL_HasEvent(SDL_QUIT));
  SDL_DelEventWatch(WatchForQuit, nullptr);
}

TEST_F(GuideQueue, TheHostNeverSeesTheReleaseOfAKeyThatWasHeld) {
  ShowFormWhileUser([this] {
    KeyUp(SDLK_a, SDL_GetWindowID(MakeParent()));
    KeyDown(SDLK_ESCAPE);
  });
  EXPECT_FALSE(SDL_HasEvent(SDL_KEYUP));
}

TEST_F(GuideQueue, TheHostsOwnEventsStandInItAgain) {
  ShowFormWhileUser([] {
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    SDL_PushEvent(&event);
    KeyDown(SDLK_ESCAPE);
  });
  EXPECT_TRUE(SDL_HasEvent(SDL_USEREVENT));
}

TEST_F(GuideQueue, TextInputIsOffAfterwardsWhoeverHadSwitchedItOn) {
  SDL_StartTextInput();
  ShowFormWhileUser([] { KeyDown(SDLK_ESCAPE); });
  EXPECT_FALSE(SDL_IsTextInputActive());
}

TEST_F(GuideQueue, TextInputIsOffInAnOuterDialogToo) {
  DialogScript script;
  script.Wait()
      .Step([this] { frontend::gui::ShowSimpleHddCreateDialog(MakeParent(), "", 0); })
      .Step([] { KeyDown(SDLK_ESCAPE); })
      .Step([] {
        EXPECT_FALSE(SDL_IsTextInputActive());
        KeyDown(SDLK_ESCAPE);
      });
  frontend::gui::ShowSimpleHddCreateDialog(MakeParent(), "", 0);
}

}  // namespace
}  // namespace quindle::testing

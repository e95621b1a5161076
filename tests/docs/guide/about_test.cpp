#include "guide/about.inc"

#include "block_test.h"

namespace quindle::testing {
namespace {

class GuideAbout : public DialogTest {};

TEST_F(GuideAbout, OpensOverTheHost) {
  DialogScript script;
  script.Wait().Step([this] {
    EXPECT_EQ(Recorder().windows().back().title, "About Quindle");
    EXPECT_EQ(Recorder().windows().back().modal_for, MakeParent());
    KeyDown(SDLK_ESCAPE);
  });
  ShowAbout(MakeParent());
  EXPECT_TRUE(script.IsFinished());
}

}  // namespace
}  // namespace quindle::testing

// The driver under GoogleTest: one test that passes and one that fails, for report_in_words.sh.

#include <gtest/gtest.h>

#include "asked_twice.h"
#include "frontend/gui/testing/dialog_driver.h"

namespace {

using quindle::frontend::gui::testing::DialogDriver;

TEST(AskTwice, IsAnswered) {
  const quindle::testing::TestVideo video;
  DialogDriver user;
  user.PressButton(1).PressButton(2);
  EXPECT_TRUE(quindle::testing::AskTwice());
  EXPECT_EQ(user.failure(), "");
}

TEST(AskTwice, LacksAButton) {
  const quindle::testing::TestVideo video;
  DialogDriver user;
  user.PressButton(1).PressButton(7);
  EXPECT_FALSE(quindle::testing::AskTwice());
  EXPECT_EQ(user.failure(), "");
}

}  // namespace

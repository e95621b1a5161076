// The driver under Catch2, of version 2 or 3: one test that passes and one that fails, for
// report_in_words.sh.

#if __has_include(<catch2/catch_test_macros.hpp>)
#include <catch2/catch_test_macros.hpp>
#else
#define CATCH_CONFIG_MAIN
#include <catch2/catch.hpp>
#endif

#include "asked_twice.h"
#include "frontend/gui/testing/dialog_driver.h"

namespace {

using quindle::frontend::gui::testing::DialogDriver;

TEST_CASE("is answered") {
  const quindle::testing::TestVideo video;
  DialogDriver user;
  user.PressButton(1).PressButton(2);
  CHECK(quindle::testing::AskTwice());
  CHECK(user.failure() == "");
}

TEST_CASE("lacks a button") {
  const quindle::testing::TestVideo video;
  DialogDriver user;
  user.PressButton(1).PressButton(7);
  CHECK_FALSE(quindle::testing::AskTwice());
  CHECK(user.failure() == "");
}

}  // namespace

// The dialogs under window managers of different habits. scripts/window_managers tries more.

#include <gtest/gtest.h>

#include <string>

#include "window_manager_checks.h"

namespace quindle::demo {
namespace {

class UnderWindowManager : public ::testing::TestWithParam<const char*> {};

TEST_P(UnderWindowManager, EveryCheckHolds) {
  for (const WindowManagerCheck& check : RunWindowManagerChecks({GetParam()})) {
    EXPECT_NE(check.outcome, "NO") << check.name << ": " << check.why;
  }
}

INSTANTIATE_TEST_SUITE_P(Named, UnderWindowManager,
                         ::testing::Values("fluxbox", "icewm", "i3", "openbox"),
                         [](const auto& test) { return std::string(test.param); });

}  // namespace
}  // namespace quindle::demo

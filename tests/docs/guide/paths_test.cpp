#include "guide/paths.inc"

#include <gtest/gtest.h>

namespace quindle::testing {
namespace {

TEST(GuidePaths, AreTheirBytes) {
  EXPECT_EQ(PathOfText("disks/\xC3\xA9.img"), std::filesystem::path("disks") / "\xC3\xA9.img");
  EXPECT_EQ(TextOfPath("disks/\xC3\xA9.img"), "disks/\xC3\xA9.img");
}

#if !defined(_WIN32)
TEST(GuidePaths, NeedNotBeUtf8) {
  EXPECT_EQ(TextOfPath(PathOfText("\xFF/a")), "\xFF/a");
  EXPECT_EQ(PathOfText("\xFF").native(), "\xFF");
}
#endif

}  // namespace
}  // namespace quindle::testing

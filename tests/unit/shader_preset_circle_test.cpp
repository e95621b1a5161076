// Presets that refer to each other in a circle. How often a file is opened, Linux says.

#include <gtest/gtest.h>

#include <filesystem>

#include "opengl/shader_preset.h"
#include "support/open_counter.h"
#include "support/temporary_directory.h"

namespace quindle::opengl {
namespace {

namespace fs = std::filesystem;
using quindle::testing::OpenCounter;
using quindle::testing::TemporaryDirectory;

TEST(ResolveGlslpFirstPass, ReadsNoPresetOfACircleTwice) {
  const TemporaryDirectory root;
  const fs::path a = root.Write("a.glslp", "#reference \"p/b.glslp\"\n");
  const fs::path b = root.Write("p/b.glslp", "#reference \"../p/../a.glslp\"\n");
  const OpenCounter opened_a(a);
  const OpenCounter opened_b(b);
  EXPECT_EQ(ResolveGlslpFirstPass(a), "");
  EXPECT_EQ(opened_a.Take(), 1);
  EXPECT_EQ(opened_b.Take(), 1);
}

}  // namespace
}  // namespace quindle::opengl

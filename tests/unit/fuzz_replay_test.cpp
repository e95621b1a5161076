#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "support/shader_fuzz_checks.h"

namespace quindle::testing {
namespace {

namespace fs = std::filesystem;

// A fuzz target: its name, which names its folders, and its check.
struct FuzzTarget {
  const char* name;
  void (*check)(const std::string& bytes);
};

void PrintTo(const FuzzTarget& target, std::ostream* out) {
  *out << target.name;
}

std::vector<fs::path> FilesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  if (fs::is_directory(folder)) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string ReadBytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class FuzzReplay : public ::testing::TestWithParam<FuzzTarget> {
 protected:
  // Runs the target's check on every file of a folder; returns how many there were.
  static std::size_t Replay(const fs::path& folder) {
    const std::vector<fs::path> files = FilesIn(folder);
    for (const fs::path& file : files) {
      SCOPED_TRACE(file.string());
      EXPECT_NO_THROW(GetParam().check(ReadBytes(file)));
    }
    return files.size();
  }
};

TEST_P(FuzzReplay, SeedsHoldTheRules) {
  EXPECT_GT(Replay(fs::path("fuzz/corpus") / GetParam().name), 0U);
}

// What was found once stays in that folder; without findings there is none.
TEST_P(FuzzReplay, FindingsHoldTheRules) {
  Replay(fs::path("tests/data/fuzz") / GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Targets, FuzzReplay,
                         ::testing::Values(FuzzTarget{"shader_declarations", CheckDeclarations},
                                           FuzzTarget{"preset_overrides", CheckOverrides},
                                           FuzzTarget{"preset_resolution", CheckResolution}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace quindle::testing

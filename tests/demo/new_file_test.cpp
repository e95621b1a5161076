// Files that the demo host makes: never over another one, never half of one.

#include "new_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "demo/resource_limits.h"
#include "disk_image_writer.h"
#include "support/temporary_directory.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using testing::TemporaryDirectory;

std::string ReadAll(const fs::path& file) {
  std::ostringstream bytes;
  bytes << std::ifstream(file, std::ios::binary).rdbuf();
  return bytes.str();
}

// The message of what `act` throws; empty when it throws nothing.
template <typename Act>
std::string MessageOf(Act act) {
  try {
    act();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(NewFile, KeptFileHoldsWhatWasWritten) {
  const TemporaryDirectory folder;
  const fs::path path = folder.path() / "shot";
  const std::vector<std::uint8_t> bytes = {1, 0, 255, 4};
  NewFile file(path);
  file.Write(bytes);
  file.Write({});
  file.Write(bytes);
  file.Keep();
  EXPECT_EQ(ReadAll(path), std::string("\1\0\xFF\4\1\0\xFF\4", 8));
}

TEST(NewFile, IsGoneUnlessKept) {
  const TemporaryDirectory folder;
  {
    NewFile file(folder.path() / "shot");
    file.Write(std::vector<std::uint8_t>(10, 7));
    EXPECT_TRUE(fs::exists(folder.path() / "shot"));
  }
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(NewFile, ExistingNamesAreRefusedAndLeftAlone) {
  const TemporaryDirectory folder;
  const fs::path taken = folder.Write("taken", "mine");
  const fs::path dangling = folder.path() / "dangling";
  fs::create_symlink(folder.path() / "nowhere", dangling);
  for (const fs::path& path : {taken, dangling, folder.MakeFolder("folder")}) {
    const std::string message = MessageOf([&] { NewFile file(path); });
    EXPECT_EQ(message, path.string() + " exists already; it was left as it is");
  }
  EXPECT_EQ(ReadAll(taken), "mine");
  EXPECT_TRUE(fs::is_symlink(dangling));
  EXPECT_FALSE(fs::exists(folder.path() / "nowhere"));
}

TEST(NewFile, MissingFolderIsReported) {
  const TemporaryDirectory folder;
  const fs::path path = folder.path() / "none" / "shot";
  EXPECT_EQ(MessageOf([&] { NewFile file(path); }),
            "cannot write " + path.string() + ": No such file or directory");
}

TEST(NewFile, ReadOnlyFolderIsReported) {
  const TemporaryDirectory folder;
  fs::permissions(folder.path(), fs::perms(0555));
  const fs::path path = folder.path() / "shot";
  {
    const WithoutPrivileges unprivileged;
    EXPECT_EQ(MessageOf([&] { NewFile file(path); }),
              "cannot write " + path.string() + ": Permission denied");
  }
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(NewFile, FullFolderIsReportedAndLeavesNoPart) {
  const TemporaryDirectory folder;
  const fs::path path = folder.path() / "shot";
  const std::string message = MessageOf([&] {
    NewFile file(path);
    const FileSizeLimit limit(1000);
    file.Write(std::vector<std::uint8_t>(600, 1));
    EXPECT_EQ(fs::file_size(path), 600U);
    file.Write(std::vector<std::uint8_t>(600, 1));
  });
  EXPECT_EQ(message, "cannot write " + path.string() + ": File too large");
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(DiskImage, IsSparseAndHasExactlyTheSize) {
  const TemporaryDirectory folder;
  for (const std::uint32_t size_mb : {1U, 3U, 5000U}) {
    const fs::path path = folder.path() / std::to_string(size_mb);
    WriteDiskImage(path, size_mb);
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_size, static_cast<off_t>(size_mb) * 1024 * 1024);
    EXPECT_LT(status.st_blocks * 512, 65536);
  }
  EXPECT_EQ(ReadAll(folder.path() / "1"), std::string(1024 * 1024, '\0'));
}

TEST(DiskImage, TooLargeAnImageIsReportedAndLeavesNoPart) {
  const TemporaryDirectory folder;
  const fs::path path = folder.path() / "disk.img";
  const FileSizeLimit limit(1024 * 1024);
  WriteDiskImage(folder.path() / "fits", 1);
  EXPECT_EQ(MessageOf([&] { WriteDiskImage(path, 2); }),
            "cannot write " + path.string() + ": File too large");
  EXPECT_FALSE(fs::exists(path));
}

}  // namespace
}  // namespace quindle::demo

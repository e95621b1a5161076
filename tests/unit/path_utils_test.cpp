#include "utils/path_utils.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quindle::utils {
namespace {

struct NameCase {
  std::string_view path;
  std::string_view filename;
  std::string_view stem;
};

constexpr std::string_view kFallback = "quindle_capture";

constexpr NameCase kNameCases[] = {
    // No separator: the whole text.
    {"disk.img", "disk.img", "disk"},
    {"disk", "disk", "disk"},
    {"", "", kFallback},
    // Both separators, mixed, leading, repeated.
    {"/data/disk.img", "disk.img", "disk"},
    {"C:\\DOS\\disk.img", "disk.img", "disk"},
    {"/data\\disk.img", "disk.img", "disk"},
    {"C:\\data/disk.img", "disk.img", "disk"},
    {"/disk.img", "disk.img", "disk"},
    {"\\disk.img", "disk.img", "disk"},
    {"data//disk.img", "disk.img", "disk"},
    {"C:disk.img", "C:disk.img", "C:disk"},
    // A trailing separator gives an empty last component.
    {"/data/", "", kFallback},
    {"data\\", "", kFallback},
    {"/", "", kFallback},
    {"\\", "", kFallback},
    // Only the last dot starts the extension.
    {"archive.tar.gz", "archive.tar.gz", "archive.tar"},
    {"a.b.c.d", "a.b.c.d", "a.b.c"},
    {"name.", "name.", "name"},
    {"name..", "name..", "name."},
    {"my shot.png", "my shot.png", "my shot"},
    // A name whose only dot comes first is all stem.
    {".img", ".img", ".img"},
    {"/data/.img", ".img", ".img"},
    {".config.img", ".config.img", ".config"},
    {"..img", "..img", "."},
    {"...", "...", ".."},
    // Dots of folders do not count.
    {"/a.b/c", "c", "c"},
    {"C:\\a.b\\c", "c", "c"},
    // "." and ".." have no usable stem.
    {".", ".", kFallback},
    {"..", "..", kFallback},
    {"/data/.", ".", kFallback},
    {"data\\..", "..", kFallback},
    // Bytes of 0x80 and above are text like any other.
    {"/\xC3\xA9t\xC3\xA9/\xE2\x82\xAC.img", "\xE2\x82\xAC.img", "\xE2\x82\xAC"},
};

TEST(FilenameFromPath, ReturnsWhatFollowsTheLastSeparator) {
  for (const NameCase& row : kNameCases) {
    EXPECT_EQ(filename_from_path(row.path), row.filename) << row.path;
  }
}

TEST(StemOrFilenameFromPath, ReturnsTheStemOrTheFallback) {
  for (const NameCase& row : kNameCases) {
    EXPECT_EQ(stem_or_filename_from_path(row.path, kFallback), row.stem) << row.path;
  }
}

TEST(StemOrFilenameFromPath, ReturnsTheFallbackAsItStands) {
  for (const std::string_view fallback : {"", "a/b.c", "..", "name.ext"}) {
    EXPECT_EQ(stem_or_filename_from_path("", fallback), fallback);
  }
}

TEST(PathUtils, TakeViewsThatAreNotNulTerminated) {
  const std::string_view path = "/data/disk.img/tail";
  EXPECT_EQ(filename_from_path(path.substr(0, 14)), "disk.img");
  EXPECT_EQ(stem_or_filename_from_path(path.substr(0, 14), ""), "disk");
}

TEST(IsAllowedFilenameChar, AcceptsPrintableAsciiExceptReservedCharacters) {
  constexpr std::string_view kAllowed =
      " !#$%&'()+,-.0123456789;=@ABCDEFGHIJKLMNOPQRSTUVWXYZ[]^_`abcdefghijklmnopqrstuvwxyz{}~";
  ASSERT_EQ(kAllowed.size(), 95U - 9U);
  for (int value = 0; value < 256; ++value) {
    const char byte = static_cast<char>(value);
    const bool expected = kAllowed.find(byte) != std::string_view::npos;
    EXPECT_EQ(is_allowed_filename_char(byte), expected) << value;
  }
}

}  // namespace
}  // namespace quindle::utils

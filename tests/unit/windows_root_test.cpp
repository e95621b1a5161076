#include "utils/windows_root.h"

#include <gtest/gtest.h>

#include <string_view>

namespace quindle::utils {
namespace {

TEST(WindowsRoot, IsWhatHasNothingAboveIt) {
  for (const std::u16string_view path :
       {u"C:\\", u"C:/", u"c:", u"C:\\\\", u"\\", u"/", u"\\\\server\\share",
        u"\\\\server\\share\\", u"//server/share", u"//server/share/", u"\\\\server",
        u"\\\\?\\C:\\", u"\\\\?\\C:", u"\\\\.\\C:\\", u"\\\\?\\UNC\\server\\share",
        u"\\\\?\\unc\\server\\share\\", u"\\\\?\\UNC\\server"}) {
    EXPECT_TRUE(is_windows_root(path)) << std::string(path.begin(), path.end());
  }
}

TEST(WindowsRoot, IsNoFolderBelow) {
  for (const std::u16string_view path :
       {u"C:\\games", u"C:/games/", u"C:games", u"\\games", u"/games", u"games", u".", u"..",
        u"\\\\server\\share\\games", u"//server/share/games", u"\\\\?\\C:\\games",
        u"\\\\?\\UNC\\server\\share\\games", u"\\\\UNC\\share\\games", u"games\\a",
        u"///games/a"}) {
    EXPECT_FALSE(is_windows_root(path)) << std::string(path.begin(), path.end());
  }
}

}  // namespace
}  // namespace quindle::utils

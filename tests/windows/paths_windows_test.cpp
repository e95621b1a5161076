// Paths as UTF-8, and the rows of the pickers, without a dialog.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "opengl/shader_preset.h"
#include "support/temporary_directory.h"
#include "utils/path_text.h"
#include "utils/windows_files.h"
#include "windows/deep_folder.h"
#include "windows/names_of_many_scripts.h"

namespace quindle::testing {
namespace {

namespace fs = std::filesystem;
using namespace frontend::gui;  // NOLINT(google-build-using-namespace)
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;
using utils::path_from_text;
using utils::text_from_path;

std::string WithSlashes(std::string text) {
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

std::string WithBackslashes(std::string text) {
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

std::vector<std::string> TextsOf(const std::vector<PickerEntry>& rows) {
  std::vector<std::string> texts;
  for (const PickerEntry& row : rows) {
    texts.push_back(text_from_path(row.path));
  }
  return texts;
}

// Where the row ".." leads; empty without one.
std::string ParentRowOf(const std::string& folder) {
  const std::vector<PickerEntry> rows = ReadFolderPickerEntries(path_from_text(folder));
  return rows.empty() || rows.front().name != ".." ? "" : text_from_path(rows.front().path);
}

std::vector<PickerEntry> Floppies(const fs::path& folder) {
  return ReadFilteredPickerEntries(folder, IsAllowedImagePickerEntry);
}

// --- Texts ---------------------------------------------------------------------------------------

TEST(PathText, IsUtf8OfEveryScript) {
  const TemporaryDirectory folder;
  folder.Write(fs::path(u"Größe"), "1");
  folder.Write(fs::path(u"дискета"), "2");
  folder.Write(fs::path(u"ゲーム"), "3");
  folder.Write(fs::path(u"\U0001F4BE"), "4");
  for (const char* name : {"Größe", "дискета", "ゲーム", "\U0001F4BE"}) {
    const fs::path path = folder.path() / path_from_text(name);
    EXPECT_TRUE(fs::exists(path)) << name;
    EXPECT_EQ(text_from_path(path.filename()), name);
    EXPECT_TRUE(utils::has_text(path)) << name;
  }
}

TEST(PathText, IsNoFileWhereItIsNoUtf8) {
  const TemporaryDirectory folder;
  // What a code page, or a replacement, would make of the byte.
  for (const fs::path& name : {fs::path(u"\u00FF.glsl"), fs::path(u"\uFFFD.glsl"),
                               fs::path(u"\u0178.glsl"), fs::path(u"y.glsl"), fs::path(u".glsl")}) {
    folder.Write(name, "#pragma parameter A \"A\" 1 0 2 1\n");
  }
  const std::string text = text_from_path(folder.path()) + "\\\xFF.glsl";
  std::error_code error;
  EXPECT_FALSE(fs::exists(path_from_text(text), error));
  EXPECT_THAT(ParseShaderParameterSpecs(text), IsEmpty());
  EXPECT_THAT(ParseGlslpParameterOverrides(text + "p"), IsEmpty());
  EXPECT_EQ(ResolveShaderGlslPath(text), text);
  EXPECT_EQ(ResolveShaderGlslPath(text + "p"), "");
  EXPECT_EQ(text_from_path(path_from_text(text)), text);
}

TEST(PathText, IsMissingForHalfACharacter) {
  for (const wchar_t half : {wchar_t{0xD83D}, wchar_t{0xDCBE}}) {
    EXPECT_FALSE(utils::has_text(fs::path(std::wstring(L"C:\\a") + half)));
    EXPECT_NO_THROW(text_from_path(fs::path(std::wstring(L"C:\\a") + half)));
  }
}

TEST(PathText, CannotMakeTheFileThatItDoesNotName) {
  EXPECT_EQ(BuildHddCreateTargetPath("C:\\\xE4", "a.img"), "C:\\\xE4\\a.img");
  EXPECT_EQ(BuildHddCreateTargetPath("C:/\xE4", "\xC3\xA4.img"), "C:/\xE4/\xC3\xA4.img");
}

// --- Forms ---------------------------------------------------------------------------------------

TEST(TargetPath, HasTheSeparatorsOfItsFolder) {
  const struct {
    const char* folder;
    const char* expected;
  } rows[] = {{"", "./a.img"},
              {".", "./a.img"},
              {"disks", "disks/a.img"},
              {"C:/games", "C:/games/a.img"},
              {"C:/games/", "C:/games/a.img"},
              {"C:\\games", "C:\\games\\a.img"},
              {"C:\\games\\", "C:\\games\\a.img"},
              {"C:\\games/old", "C:\\games/old/a.img"},
              {"C:/games\\old", "C:/games\\old\\a.img"},
              {"C:\\", "C:\\a.img"},
              {"C:/", "C:/a.img"},
              {"C:", "C:a.img"},
              {"\\", "\\a.img"},
              {"/", "/a.img"},
              {"..\\disks", "..\\disks\\a.img"},
              {"\\\\server\\share", "\\\\server\\share\\a.img"},
              {"//server/share", "//server/share/a.img"},
              {"\\\\?\\C:\\games", "\\\\?\\C:\\games\\a.img"},
              {"C:/ゲーム", "C:/ゲーム/a.img"}};
  for (const auto& row : rows) {
    EXPECT_EQ(BuildHddCreateTargetPath(row.folder, "a.img"), row.expected) << row.folder;
  }
}

TEST(TargetPath, IsAnAbsoluteNameItself) {
  EXPECT_EQ(BuildHddCreateTargetPath("C:/games", "D:\\a.img"), "D:\\a.img");
  EXPECT_EQ(BuildHddCreateTargetPath("C:\\games", "D:/a.img"), "D:/a.img");
}

TEST(FirstPass, HasTheSeparatorsOfItsPreset) {
  const TemporaryDirectory folder;
  folder.Write("presets/a.glslp", "shader0 = \"../src\\\\ゲーム.glsl\"\n");
  folder.Write("presets/b.glslp", "#reference \"sub\\c.glslp\"\n");
  folder.Write("presets/sub/c.glslp", "shader0 = d.glsl\n");
  const std::string root = text_from_path(folder.path());
  const std::string slashes = WithSlashes(root);
  using opengl::ResolveGlslpFirstPass;
  EXPECT_EQ(ResolveGlslpFirstPass(slashes + "/presets/a.glslp"), slashes + "/src/ゲーム.glsl");
  EXPECT_EQ(ResolveGlslpFirstPass(root + "\\presets\\a.glslp"), root + "\\src\\ゲーム.glsl");
  EXPECT_EQ(ResolveGlslpFirstPass(slashes + "/presets/b.glslp"), slashes + "/presets/sub/d.glsl");
  EXPECT_EQ(ResolveGlslpFirstPass(root + "\\presets\\b.glslp"), root + "\\presets\\sub\\d.glsl");
}

TEST(FirstPass, IsAnAbsoluteNameAsItIsWritten) {
  const TemporaryDirectory folder;
  const fs::path preset = folder.Write("a.glslp", "shader0 = \"D:\\x/дом.glsl\"\n");
  EXPECT_EQ(opengl::ResolveGlslpFirstPass(text_from_path(preset)), "D:\\x/дом.glsl");
}

TEST(ShaderFiles, AreReadByTheirUtf8Names) {
  const TemporaryDirectory folder;
  folder.Write(fs::path(u"Тени/ゲーム\U0001F4BE.glsl"), "#pragma parameter A \"A\" 1 0 2 1\n");
  const fs::path preset =
      folder.Write(fs::path(u"Тени/größe.glslp"),
                   "shader0 = \"ゲーム\U0001F4BE.glsl\"\nparameters = \"A\"\nA = 2\n");
  EXPECT_THAT(ParseShaderParameterSpecs(text_from_path(preset)), SizeIs(1));
  EXPECT_THAT(ParseGlslpParameterOverrides(text_from_path(preset)), SizeIs(1));
}

// Not every Windows has a limit, and Wine has none.
TEST(SystemName, HasNoLimitWhereThePathIsLong) {
  using utils::unlimited_windows_path;
  const std::wstring tail(300, L'n');
  EXPECT_EQ(unlimited_windows_path(L"C:\\" + tail), L"\\\\?\\C:\\" + tail);
  EXPECT_EQ(unlimited_windows_path(L"\\\\server\\share\\" + tail),
            L"\\\\?\\UNC\\server\\share\\" + tail);
  EXPECT_EQ(unlimited_windows_path(L"\\\\?\\C:\\" + tail), L"\\\\?\\C:\\" + tail);
  EXPECT_EQ(unlimited_windows_path(L"\\\\.\\C:\\" + tail), L"\\\\.\\C:\\" + tail);
  EXPECT_EQ(unlimited_windows_path(L"C:\\short"), L"C:\\short");
  // A folder must leave room for a name of twelve.
  EXPECT_EQ(unlimited_windows_path(L"C:\\" + std::wstring(244, L'n')).size(), 247U);
  EXPECT_EQ(unlimited_windows_path(L"C:\\" + std::wstring(245, L'n')).size(), 252U);
}

// --- Rows ----------------------------------------------------------------------------------------

TEST(PickerRows, HaveNamesOfEveryScript) {
  const TemporaryDirectory folder;
  for (const char* name : kNamesOfManyScripts) {
    folder.Write(path_from_text(name), "");
  }
  std::vector<std::string> names;
  for (const PickerEntry& row : Floppies(folder.path())) {
    names.push_back(row.name);
    EXPECT_TRUE(row.name == ".." || fs::exists(row.path)) << row.name;
  }
  EXPECT_THAT(names, UnorderedElementsAre("..", kLatinName, kCyrillicName, kJapaneseName,
                                          kBeyondPlane0Name));
}

TEST(PickerRows, AreFoldersThenAcceptedFilesByName) {
  const TemporaryDirectory folder;
  for (const char* name : {"b.IMG", "A.ima", "c.txt", ".hidden/x"}) {
    folder.Write(name, "");
  }
  (void)folder.MakeFolder("Zed.txt");
  std::vector<std::string> names;
  for (const PickerEntry& row : Floppies(folder.path())) {
    names.push_back(row.name + (row.is_directory ? "/" : ""));
  }
  EXPECT_THAT(names, ElementsAre("../", ".hidden/", "Zed.txt/", "A.ima", "b.IMG"));
  EXPECT_THAT(ReadFolderPickerEntries(folder.path()), SizeIs(3));
}

TEST(PickerRows, KeepTheFormOfTheFolder) {
  const TemporaryDirectory folder;
  folder.Write("games/a.img", "");
  (void)folder.MakeFolder("games/sub");
  const std::string root = text_from_path(folder.path());
  for (const std::string& start : {WithSlashes(root), WithBackslashes(root)}) {
    const std::string separator = start.find('/') == std::string::npos ? "\\" : "/";
    const std::string games = start + separator + "games";
    EXPECT_THAT(TextsOf(Floppies(path_from_text(games))),
                ElementsAre(start, games + separator + "sub", games + separator + "a.img"));
    EXPECT_THAT(TextsOf(Floppies(path_from_text(games + separator))),
                ElementsAre(games, games + separator + "sub", games + separator + "a.img"));
  }
}

TEST(PickerRows, OfARelativeFolderAreRelative) {
  const TemporaryDirectory folder;
  folder.Write("floppies/a.img", "");
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  EXPECT_THAT(TextsOf(Floppies("floppies")), ElementsAre("floppies/a.img"));
  EXPECT_THAT(TextsOf(Floppies(".\\floppies")), ElementsAre(".", ".\\floppies\\a.img"));
  fs::current_path(before);
}

TEST(PickerRows, LeadUpToTheRootAndNoFarther) {
  EXPECT_EQ(ParentRowOf("C:\\windows\\system32"), "C:\\windows");
  EXPECT_EQ(ParentRowOf("C:\\windows"), "C:\\");
  EXPECT_EQ(ParentRowOf("C:/windows"), "C:/");
  EXPECT_EQ(ParentRowOf("\\\\server\\share\\games"), "\\\\server\\share");
  EXPECT_EQ(ParentRowOf("//server/share/games"), "//server/share");
  EXPECT_EQ(ParentRowOf("\\\\?\\C:\\windows"), "\\\\?\\C:\\");
  EXPECT_EQ(ParentRowOf("//?/C:/windows"), "//?/C:/");
  EXPECT_EQ(ParentRowOf("C:windows"), "C:");
  for (const char* root :
       {"C:\\", "C:/", "C:", "\\", "/", "\\\\server\\share", "//server/share",
        "\\\\server\\share\\", "\\\\?\\C:\\", "\\\\?\\C:", "\\\\?\\UNC\\server\\share"}) {
    EXPECT_EQ(ParentRowOf(root), "") << root;
  }
}

TEST(PickerRows, OfTheRootAreItsFolders) {
  const std::vector<std::string> texts = TextsOf(ReadFolderPickerEntries("C:\\"));
  EXPECT_THAT(texts, ::testing::Contains(::testing::StrCaseEq("C:\\windows")));
  EXPECT_THAT(texts, ::testing::Not(::testing::Contains("C:\\.")));
}

TEST(PickerRows, AreThoseOfPathsBeyondTheLimitToo) {
  const TemporaryDirectory folder;
  const DeepFolder deep(folder.path(), L"a.img");
  const std::string file = text_from_path(deep.file());
  EXPECT_THAT(TextsOf(Floppies(deep.path())), ::testing::Contains(file));
  EXPECT_THAT(TextsOf(Floppies(path_from_text(WithSlashes(text_from_path(deep.path()))))),
              ::testing::Contains(WithSlashes(file)));
  EXPECT_THAT(ParseShaderParameterSpecs(file), SizeIs(1));
}

TEST(PickerRows, AreNoneOfWhatCannotBeListed) {
  const TemporaryDirectory folder;
  const std::string file = text_from_path(folder.Write("a.img", ""));
  const std::string missing = text_from_path(folder.path()) + "\\missing";
  for (const std::string& dir :
       {file, missing, missing + "\\below", std::string("NUL"), std::string("C:\\\xFF"),
        std::string("C:\\a?"), std::string("C:\\*")}) {
    for (const PickerEntry& row : Floppies(path_from_text(dir))) {
      EXPECT_EQ(row.name, "..") << dir;
    }
  }
  EXPECT_THAT(Floppies({}), IsEmpty());
}

}  // namespace
}  // namespace quindle::testing

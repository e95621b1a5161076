#include "opengl/shader_preset.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <ostream>
#include <string>

#include "support/temporary_directory.h"
#include "utils/path_text.h"

namespace quindle::opengl {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using quindle::testing::TemporaryDirectory;

// With the separators of POSIX; where a backslash is no separator, it stays.
std::string InOneForm(const std::string& path) {
  return utils::text_from_path(utils::path_from_text(path).generic_u8string());
}

std::string Resolve(const fs::path& preset) {
  return InOneForm(ResolveGlslpFirstPass(utils::text_from_path(preset)));
}

struct PresetCase {
  const char* name;
  std::string text;
  // Relative to the preset collection's root; empty when nothing is found.
  std::string expected;
};

void PrintTo(const PresetCase& row, std::ostream* out) {
  *out << row.name;
}

// Every preset is written to "presets/crt/test.glslp"; nothing else is there.
class ResolveGlslpFirstPassLine : public ::testing::TestWithParam<PresetCase> {};

TEST_P(ResolveGlslpFirstPassLine, YieldsTheNamedFile) {
  const TemporaryDirectory root;
  const fs::path preset = root.Write("presets/crt/test.glslp", GetParam().text);
  const std::string& expected = GetParam().expected;
  EXPECT_EQ(Resolve(preset),
            expected.empty() ? "" : InOneForm(utils::text_from_path(root.path()) + "/" + expected));
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ResolveGlslpFirstPassLine,
    ::testing::Values(
        PresetCase{"Bare", "shaders = 1\nshader0 = a.glsl\n", "presets/crt/a.glsl"},
        PresetCase{"Quoted", "shader0 = \"a.glsl\"\n", "presets/crt/a.glsl"},
        PresetCase{"NoBlanks", "shader0=a.glsl", "presets/crt/a.glsl"},
        PresetCase{"QuotedNoBlanks", "shader0=\"a.glsl\"", "presets/crt/a.glsl"},
        PresetCase{"ManyBlanks", " \t shader0 \t =\t  a.glsl \t \n", "presets/crt/a.glsl"},
        PresetCase{"NoFinalLineFeed", "shaders = 1\nshader0 = a.glsl", "presets/crt/a.glsl"},
        PresetCase{"ByteOrderMark", "\xEF\xBB\xBFshader0 = a.glsl\n", "presets/crt/a.glsl"},
        PresetCase{"ByteOrderMarkThenBlanks", "\xEF\xBB\xBF \r\nshader0 = a.glsl\n",
                   "presets/crt/a.glsl"},
        PresetCase{"ByteOrderMarkAlone", "\xEF\xBB\xBF", ""},
        PresetCase{"SecondByteOrderMark", "\xEF\xBB\xBF\xEF\xBB\xBFshader0 = a.glsl\n", ""},
        PresetCase{"HalfAByteOrderMark", "\xEF\xBBshader0 = a.glsl\n", ""},
        PresetCase{"ByteOrderMarkLater", "\n\xEF\xBB\xBFshader0 = a.glsl\n", ""},
        PresetCase{"CrLfBare", "shaders = 1\r\nshader0 = a.glsl\r\nx = y\r\n",
                   "presets/crt/a.glsl"},
        PresetCase{"CrLfQuoted", "shader0 = \"a.glsl\"\r\n", "presets/crt/a.glsl"},
        PresetCase{"CrLfUnclosed", "shader0 = \"a.glsl\r\nx = \"y\"\r\n", "presets/crt/a.glsl"},
        PresetCase{"UnclosedQuote", "shader0 = \"a.glsl\nshader1 = \"b.glsl\"\n",
                   "presets/crt/a.glsl"},
        PresetCase{"UnclosedQuoteKeepsHash", "shader0 = \"a # b.glsl\n", "presets/crt/a # b.glsl"},
        PresetCase{"EqualsInValue", "shader0 = a=b.glsl\n", "presets/crt/a=b.glsl"},
        PresetCase{"LongName", "shader0 = " + std::string(300, 'n') + ".glsl\n",
                   "presets/crt/" + std::string(300, 'n') + ".glsl"}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Comments, ResolveGlslpFirstPassLine,
    ::testing::Values(
        PresetCase{"HashBehindBare", "shader0 = a.glsl # note\n", "presets/crt/a.glsl"},
        PresetCase{"SlashesBehindBare", "shader0 = a.glsl // note\n", "presets/crt/a.glsl"},
        PresetCase{"TabBeforeComment", "shader0 = a.glsl\t#note\n", "presets/crt/a.glsl"},
        PresetCase{"FirstCommentEnds", "shader0 = a b.glsl  // x # y\n", "presets/crt/a b.glsl"},
        PresetCase{"HashInsideWord", "shader0 = a#b.glsl\n", "presets/crt/a#b.glsl"},
        PresetCase{"SlashesInsideWord", "shader0 = a//b.glsl\n", "presets/crt/a/b.glsl"},
        PresetCase{"OneSlashIsNoComment", "shader0 = a /b.glsl\n", "presets/crt/a /b.glsl"},
        PresetCase{"HashInsideQuotes", "shader0 = \"a # b.glsl\"\n", "presets/crt/a # b.glsl"},
        PresetCase{"SlashesInsideQuotes", "shader0 = \"a //b.glsl\"\n", "presets/crt/a /b.glsl"},
        PresetCase{"BehindQuotes", "shader0 = \"a.glsl\" # \"b.glsl\"\n", "presets/crt/a.glsl"},
        PresetCase{"JunkBehindQuotes", "shader0 = \"a.glsl\"b\n", "presets/crt/a.glsl"},
        PresetCase{"HashLine", "#shader0 = a.glsl\nshader0 = b.glsl\n", "presets/crt/b.glsl"},
        PresetCase{"IndentedHashLine", " \t# shader0 = a.glsl\nshader0 = b.glsl\n",
                   "presets/crt/b.glsl"},
        PresetCase{"SlashesLine", "//shader0 = a.glsl\nshader0 = b.glsl\n", "presets/crt/b.glsl"},
        PresetCase{"IndentedSlashesLine", "  // shader0 = a.glsl\nshader0 = b.glsl\n",
                   "presets/crt/b.glsl"},
        PresetCase{"OnlyAComment", "shader0 = # a.glsl\n", ""},
        PresetCase{"OnlySlashes", "shader0 = // a.glsl\n", ""}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Keys, ResolveGlslpFirstPassLine,
    ::testing::Values(
        PresetCase{"FirstLineWins", "shader0 = a.glsl\nshader0 = b.glsl\n", "presets/crt/a.glsl"},
        PresetCase{"FirstLineWinsEvenEmpty", "shader0 =\nshader0 = b.glsl\n", ""},
        PresetCase{"AnywhereInTheFile", "shader1 = b.glsl\n\nshader0 = a.glsl\n",
                   "presets/crt/a.glsl"},
        PresetCase{"LongerKeys", "shader00 = x.glsl\nshader0_a = x.glsl\nshader0 = a.glsl\n",
                   "presets/crt/a.glsl"},
        PresetCase{"LeadingText", "xshader0 = x.glsl\nmy shader0 = x.glsl\nshader0 = a.glsl\n",
                   "presets/crt/a.glsl"},
        PresetCase{"OtherCase", "Shader0 = x.glsl\nSHADER0 = x.glsl\n", ""},
        PresetCase{"QuotedKey", "\"shader0\" = x.glsl\n", ""},
        PresetCase{"OtherPass", "shader1 = a.glsl\n", ""},
        PresetCase{"NoEquals", "shader0 a.glsl\nshader0\n", ""},
        PresetCase{"ValueNamesTheKey", "alias = shader0 = a.glsl\n", ""},
        PresetCase{"EmptyValue", "shader0 =\n", ""},
        PresetCase{"EmptyQuotes", "shader0 = \"\"\n", ""},
        PresetCase{"LoneQuote", "shader0 = \"\n", ""}, PresetCase{"EmptyFile", "", ""},
        PresetCase{"BlankLines", "\n\r\n \t\n", ""},
        PresetCase{"Binary", "\x7F\0\xFF=\0\n==\n\"\n#\n/\n"s, ""}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Paths, ResolveGlslpFirstPassLine,
    ::testing::Values(
        PresetCase{"Below", "shader0 = shaders/a.glsl\n", "presets/crt/shaders/a.glsl"},
        PresetCase{"Above", "shader0 = ../shaders/a.glsl\n", "presets/shaders/a.glsl"},
        PresetCase{"TwoAboveQuoted", "shader0 = \"../../shaders/a.glsl\"\n", "shaders/a.glsl"},
        PresetCase{"DotSegments", "shader0 = ./x/.././a.glsl\n", "presets/crt/a.glsl"},
        PresetCase{"Blanks", "shader0 = my shaders/a b.glsl\n", "presets/crt/my shaders/a b.glsl"},
        PresetCase{"Ampersand", "shader0 = x & y/a&b.glsl\n", "presets/crt/x & y/a&b.glsl"},
        PresetCase{"NotAscii", "shader0 = \xC3\xA9/\xE2\x82\xAC.glsl\n",
                   "presets/crt/\xC3\xA9/\xE2\x82\xAC.glsl"},
        PresetCase{"Backslashes", "shader0 = shaders\\x\\a.glsl\n", "presets/crt/shaders/x/a.glsl"},
        PresetCase{"BackslashesAbove", "shader0 = \"..\\..\\shaders\\a.glsl\"\n", "shaders/a.glsl"},
        PresetCase{"MixedSeparators", "shader0 = ..\\x/a.glsl\n", "presets/x/a.glsl"}),
    [](const auto& row) { return row.param.name; });

#if defined(_WIN32)
constexpr std::array<const char*, 2> kAbsolute{"C:/shaders/a.glsl", "C:/shaders/x\\a.glsl"};
#else
constexpr std::array<const char*, 3> kAbsolute{"/shaders/a.glsl", "/x/../y//a.glsl",
                                               "/shaders/x\\a.glsl"};
#endif

TEST(ResolveGlslpFirstPass, ReturnsAnAbsolutePathAsWritten) {
  const TemporaryDirectory root;
  for (const char* written : kAbsolute) {
    const std::string same = InOneForm(written);
    EXPECT_EQ(Resolve(root.Write("a.glslp", "shader0 = "s + written)), same);
    EXPECT_EQ(Resolve(root.Write("a.glslp", "shader0 = \""s + written + "\"")), same);
  }
}

TEST(ResolveGlslpFirstPass, KeepsABackslashInTheNameOfAFileThatExists) {
  const TemporaryDirectory root;
  const fs::path preset = root.Write("a.glslp", "shader0 = x\\a.glsl\n");
  EXPECT_EQ(Resolve(preset), root.path() / "x/a.glsl");
  const fs::path exact = root.Write("x\\a.glsl", "");
  EXPECT_EQ(Resolve(preset), exact);
}

// Restores the working directory, which is shared by all tests of the program.
class WorkingDirectory {
 public:
  explicit WorkingDirectory(const fs::path& path) : before_(fs::current_path()) {
    fs::current_path(path);
  }
  WorkingDirectory(const WorkingDirectory&) = delete;
  WorkingDirectory& operator=(const WorkingDirectory&) = delete;
  ~WorkingDirectory() { fs::current_path(before_); }

 private:
  fs::path before_;
};

TEST(ResolveGlslpFirstPass, KeepsARelativePresetPathRelative) {
  const TemporaryDirectory root;
  root.Write("p/a.glslp", "shader0 = ../s/a.glsl\n");
  root.Write("b.glslp", "shader0 = s/b.glsl\n");
  const WorkingDirectory inside(root.path());
  EXPECT_EQ(Resolve("p/a.glslp"), "s/a.glsl");
  EXPECT_EQ(Resolve("./p/a.glslp"), "s/a.glsl");
  EXPECT_EQ(Resolve("b.glslp"), "s/b.glsl");
}

TEST(ResolveGlslpFirstPass, LooksForBackslashNamesBesideThePresetOnly) {
  const TemporaryDirectory root;
  const fs::path preset = root.Write("p/a.glslp", "shader0 = x\\a.glsl\n");
  root.Write("x\\a.glsl", "");
  const WorkingDirectory inside(root.path());
  EXPECT_EQ(Resolve(preset), root.path() / "p/x/a.glsl");
}

TEST(ResolveGlslpFirstPass, YieldsNothingForAnUnreadablePreset) {
  const TemporaryDirectory root;
  EXPECT_EQ(Resolve(""), "");
  EXPECT_EQ(Resolve(root.path()), "");
  EXPECT_EQ(Resolve(root.path() / "missing.glslp"), "");
  EXPECT_EQ(Resolve("/dev/zero"), "");
}

struct ReferenceCase {
  const char* name;
  std::string text;
  bool followed;
};

void PrintTo(const ReferenceCase& row, std::ostream* out) {
  *out << row.name;
}

class ResolveGlslpFirstPassReference : public ::testing::TestWithParam<ReferenceCase> {};

TEST_P(ResolveGlslpFirstPassReference, IsFollowedOrNot) {
  const TemporaryDirectory root;
  const fs::path preset = root.Write("p/a.glslp", GetParam().text);
  root.Write("p/other.glslp", "shader0 = found.glsl\n");
  EXPECT_EQ(Resolve(preset), GetParam().followed
                                 ? InOneForm(utils::text_from_path(root.path() / "p/found.glsl"))
                                 : "");
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ResolveGlslpFirstPassReference,
    ::testing::Values(
        ReferenceCase{"Quoted", "#reference \"other.glslp\"\n", true},
        ReferenceCase{"Bare", "#reference other.glslp\n", true},
        ReferenceCase{"ByteOrderMark", "\xEF\xBB\xBF#reference \"other.glslp\"\n", true},
        ReferenceCase{"Indented", "  #reference\t\"other.glslp\"  \r\n", true},
        ReferenceCase{"NoBlank", "#reference\"other.glslp\"", true},
        ReferenceCase{"UnclosedQuote", "#reference \"other.glslp\r\nx = y\n", true},
        ReferenceCase{"CommentBehindBare", "#reference other.glslp # note\n", true},
        ReferenceCase{"CommentBehindQuotes", "#reference \"other.glslp\" // note\n", true},
        ReferenceCase{"Backslash", "#reference \"..\\p\\other.glslp\"\n", true},
        ReferenceCase{"BehindOtherLines", "x = y\n# note\n#reference \"other.glslp\"\n", true},
        ReferenceCase{"FirstReferenceWins",
                      "#reference \"other.glslp\"\n#reference \"missing.glslp\"\n", true},
        ReferenceCase{"FirstReferenceMissing",
                      "#reference \"missing.glslp\"\n#reference \"other.glslp\"\n", false},
        ReferenceCase{"SpacedHash", "# reference \"other.glslp\"\n", false},
        ReferenceCase{"InComment", "// #reference \"other.glslp\"\n", false},
        ReferenceCase{"LongerWord", "#references \"other.glslp\"\n", false},
        ReferenceCase{"NoHash", "reference \"other.glslp\"\n", false},
        ReferenceCase{"OtherCase", "#Reference \"other.glslp\"\n", false},
        ReferenceCase{"NoName", "#reference\n#reference \"other.glslp\n", true},
        ReferenceCase{"EmptyName", "#reference \"\"\n", false},
        ReferenceCase{"Itself", "#reference \"a.glslp\"\n", false},
        ReferenceCase{"EmptyFirstPassBehindIsOne", "#reference \"other.glslp\"\nshader0 =\n",
                      false},
        ReferenceCase{"EmptyFirstPassIsOne", "shader0 =\n#reference \"other.glslp\"\n", false}),
    [](const auto& row) { return row.param.name; });

TEST(ResolveGlslpFirstPass, PrefersItsOwnFirstPassToAReference) {
  const TemporaryDirectory root;
  root.Write("other.glslp", "shader0 = other.glsl\n");
  for (const char* text : {"#reference \"other.glslp\"\nshader0 = own.glsl\n",
                           "shader0 = own.glsl\n#reference \"other.glslp\"\n"}) {
    EXPECT_EQ(Resolve(root.Write("a.glslp", text)), root.path() / "own.glsl");
  }
}

TEST(ResolveGlslpFirstPass, ResolvesEachReferenceAgainstTheFileThatSaysIt) {
  const TemporaryDirectory root;
  const fs::path preset = root.Write("one/a.glslp", "#reference \"../two/b.glslp\"\n");
  root.Write("two/b.glslp", "#reference \"deep/c.glslp\"\n");
  root.Write("two/deep/c.glslp", "shader0 = ../x.glsl\n");
  EXPECT_EQ(Resolve(preset), root.path() / "two/x.glsl");
}

TEST(ResolveGlslpFirstPass, FollowsAnAbsoluteReference) {
  const TemporaryDirectory root;
  const fs::path other = root.Write("two/b.glslp", "shader0 = x.glsl\n");
  const fs::path preset = root.Write("one/a.glslp", "#reference \"" + other.string() + "\"\n");
  EXPECT_EQ(Resolve(preset), root.path() / "two/x.glsl");
}

// Writes 0.glslp, which refers to 1.glslp, and so on; only the last, `depth`, names a first pass.
fs::path WriteChain(const TemporaryDirectory& root, int depth) {
  for (int i = 0; i < depth; ++i) {
    root.Write(std::to_string(i) + ".glslp",
               "#reference \"" + std::to_string(i + 1) + ".glslp\"\n");
  }
  root.Write(std::to_string(depth) + ".glslp", "shader0 = end.glsl\n");
  return root.path() / "0.glslp";
}

TEST(ResolveGlslpFirstPass, FollowsReferencesSixteenDeep) {
  for (const int depth : {0, 1, 2, 15, 16}) {
    const TemporaryDirectory root;
    EXPECT_EQ(Resolve(WriteChain(root, depth)), root.path() / "end.glsl") << depth;
  }
  for (const int depth : {17, 18, 40}) {
    const TemporaryDirectory root;
    EXPECT_EQ(Resolve(WriteChain(root, depth)), "") << depth;
  }
}

}  // namespace
}  // namespace quindle::opengl

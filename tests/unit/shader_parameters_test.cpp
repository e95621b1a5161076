#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <locale>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "frontend/gui/shader_parameter_dialog.h"
#include "support/german_process.h"
#include "support/shader_reference.h"
#include "support/temporary_directory.h"

namespace quindle::frontend::gui {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using quindle::testing::GermanProcess;
using quindle::testing::TemporaryDirectory;

using Numbers = std::array<float, 4>;
using Names = std::vector<std::string>;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kGreatest = std::numeric_limits<float>::max();
constexpr float kSmallest = std::numeric_limits<float>::denorm_min();

// NaNs and signs of zero count too.
bool SameBits(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

bool SameSpec(const ShaderParameterSpec& a, const ShaderParameterSpec& b) {
  return a.name == b.name && a.label == b.label && SameBits(a.default_value, b.default_value) &&
         SameBits(a.min_value, b.min_value) && SameBits(a.max_value, b.max_value) &&
         SameBits(a.step, b.step);
}

bool SameValue(const ShaderParameterValue& a, const ShaderParameterValue& b) {
  return a.name == b.name && SameBits(a.value, b.value);
}

std::string Describe(const ShaderParameterSpec& spec) {
  return "{" + spec.name + "|" + spec.label + "|" +
         ::testing::PrintToString(
             Numbers{spec.default_value, spec.min_value, spec.max_value, spec.step}) +
         "}";
}

std::string Describe(const std::vector<ShaderParameterSpec>& specs) {
  std::string text;
  for (const ShaderParameterSpec& spec : specs) {
    text += Describe(spec) + "\n";
  }
  return text;
}

std::string Describe(const std::vector<ShaderParameterValue>& values) {
  std::string text;
  for (const ShaderParameterValue& value : values) {
    text += "{" + value.name + "|" + ::testing::PrintToString(value.value) + "}\n";
  }
  return text;
}

void ExpectSame(const std::vector<ShaderParameterSpec>& actual,
                const std::vector<ShaderParameterSpec>& expected) {
  EXPECT_TRUE(std::equal(actual.begin(), actual.end(), expected.begin(), expected.end(), SameSpec))
      << "actual:\n"
      << Describe(actual) << "expected:\n"
      << Describe(expected);
}

void ExpectSame(const std::vector<ShaderParameterValue>& actual,
                const std::vector<ShaderParameterValue>& expected) {
  EXPECT_TRUE(std::equal(actual.begin(), actual.end(), expected.begin(), expected.end(), SameValue))
      << "actual:\n"
      << Describe(actual) << "expected:\n"
      << Describe(expected);
}

std::vector<ShaderParameterSpec> ParseShaderText(std::string_view text) {
  const TemporaryDirectory folder;
  return ParseShaderParameterSpecs(folder.Write("shader.glsl", text).string());
}

std::vector<ShaderParameterValue> ParsePresetText(std::string_view text) {
  const TemporaryDirectory folder;
  return ParseGlslpParameterOverrides(folder.Write("preset.glslp", text).string());
}

// --- Numbers of a declaration --------------------------------------------------------------------

struct NumbersCase {
  const char* name;
  std::string text;                 // What stands behind the label's closing quote.
  std::optional<Numbers> expected;  // Nothing when the declaration is dropped.
};

void PrintTo(const NumbersCase& row, std::ostream* out) {
  *out << row.text;
}

template <typename Case>
std::string CaseName(const ::testing::TestParamInfo<Case>& row) {
  return row.param.name;
}

class ShaderDeclarationNumbers : public ::testing::TestWithParam<NumbersCase> {};

TEST_P(ShaderDeclarationNumbers, AreExtractedAsByAStream) {
  const std::vector<ShaderParameterSpec> specs =
      ParseShaderText("#pragma parameter n \"L\"" + GetParam().text + "\n");
  std::vector<ShaderParameterSpec> expected;
  if (GetParam().expected) {
    const Numbers& n = *GetParam().expected;
    expected.push_back({"n", "L", n[0], n[1], n[2], n[3]});
  }
  ExpectSame(specs, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ShaderDeclarationNumbers,
    ::testing::Values(
        NumbersCase{"Plain", " 2.2 1.0 3.0 0.05", Numbers{2.2F, 1, 3, 0.05F}},
        NumbersCase{"GluedToTheQuote", "1 0 2 0.5", Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"Tabs", "\t1\t0\t2\t0.5", Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"AllKindsOfSpace", " \t\v\f\r1\f0\v2\r0.5\r", Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"CrLf", " 1 0 2 0.5\r", Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"TrailingPoint", " 256. 0. 512. 1.", Numbers{256, 0, 512, 1}},
        NumbersCase{"LeadingPoint", " .5 .25 .75 .125", Numbers{0.5F, 0.25F, 0.75F, 0.125F}},
        NumbersCase{"LeadingPlus", " +1 +0 +2 +.5", Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"Negative", " -1 -2.5 -.5 0.5", Numbers{-1, -2.5F, -0.5F, 0.5F}},
        NumbersCase{"NegativeZero", " -0 -0 2 0.5", Numbers{-0.0F, -0.0F, 2, 0.5F}},
        NumbersCase{"LeadingZeros", " 0001 000.5 0002 00.25", Numbers{1, 0.5F, 2, 0.25F}},
        NumbersCase{"Exponents", " 1e1 1E0 2e+1 5e-1", Numbers{10, 1, 20, 0.5F}},
        NumbersCase{"ExponentBehindPoint", " 1.e1 .1e1 2.5e0 5.e-1", Numbers{10, 1, 2.5F, 0.5F}},
        NumbersCase{"UnderflowIsZero", " 1e-50 0 2 1", Numbers{0, 0, 2, 1}},
        NumbersCase{"NegativeUnderflow", " -1e-50 0 2 1", Numbers{-0.0F, 0, 2, 1}},
        NumbersCase{"StepUnderflowIsContinuous", " 1 0 2 1e-60", Numbers{1, 0, 2, 0}},
        NumbersCase{"Subnormal", " 1e-45 0 1e-40 1e-45", Numbers{kSmallest, 0, 1e-40F, kSmallest}},
        NumbersCase{"Greatest", " 3.4028235e38 -3.4028235e38 3.4028235e38 1",
                    Numbers{kGreatest, -kGreatest, kGreatest, 1}},
        NumbersCase{"RoundedToGreatest", " 3.40282356e38 0 1 1", Numbers{kGreatest, 0, 1, 1}},
        NumbersCase{"Overflow", " 1e39 0 2 1", std::nullopt},
        NumbersCase{"NegativeOverflow", " -1e39 0 2 1", std::nullopt},
        NumbersCase{"OverflowInFourthPlace", " 1 0 2 1e39", std::nullopt},
        NumbersCase{"HugeExponent", " 1e999999999999 0 2 1", std::nullopt},
        NumbersCase{"HugeNegativeExponent", " 1e-999999999999 0 2 1", Numbers{0, 0, 2, 1}},
        NumbersCase{"ManyDigits",
                    " 1." + std::string(2000, '0') + " 0 " + std::string(300, '0') + "2 1",
                    Numbers{1, 0, 2, 1}},
        NumbersCase{"HalfwayRoundsToEven", " 16777217 0 33554432 1",
                    Numbers{16777216, 0, 33554432, 1}},
        NumbersCase{"JustAboveHalfway", " 16777217.0000001 0 33554432 1",
                    Numbers{16777218, 0, 33554432, 1}},
        NumbersCase{"NotRoundedTwice", " 1.00000017881393432617187499 0 2 1",
                    Numbers{1.0000001192092896F, 0, 2, 1}},
        NumbersCase{"TwoPoints", " 1.0.0 2 3 4", Numbers{1, 0, 2, 3}},
        NumbersCase{"GluedSigns", " 1-2+3-4", Numbers{1, -2, 3, 0}},
        NumbersCase{"GluedPoints", " 1.5.5.25.125", Numbers{1.5F, 0.25F, 0.5F, 0.125F}},
        NumbersCase{"PointBehindExponent", " 1e1.5 0 2", Numbers{10, 0, 0.5F, 2}},
        NumbersCase{"JunkBehindTheFourth", " 1 0 2 5junk", Numbers{1, 0, 2, 5}},
        NumbersCase{"FloatSuffixInFourth", " 1 0 2 0.5f", Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"FifthNumber", " 1 0 2 0.5 9", Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"CommentBehind", " 1 0 2 0.5 // brightness", Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"CommentGlued", " 1 0 2 0.5//", Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"NulBehind", " 1 0 2 0.5\0 7"s, Numbers{1, 0, 2, 0.5F}},
        NumbersCase{"NulBetween", " 1 0\0 2 0.5"s, std::nullopt},
        NumbersCase{"JunkInFirst", " 1junk 0 2 1", std::nullopt},
        NumbersCase{"FloatSuffixInFirst", " 1.0f 0.0f 2.0f 0.5f", std::nullopt},
        NumbersCase{"ThreeNumbers", " 1 0 2", std::nullopt},
        NumbersCase{"ThreeNumbersAndSpace", " 1 0 2 \t\r", std::nullopt},
        NumbersCase{"NoNumbers", "", std::nullopt},
        NumbersCase{"Words", " one zero two half", std::nullopt},
        NumbersCase{"Commas", " 1, 0, 2, 0.5", std::nullopt},
        NumbersCase{"CommaAsPoint", " 1,5 0 2 0.5", std::nullopt},
        NumbersCase{"CommaInFourth", " 1 0 2 0,5", Numbers{1, 0, 2, 0}},
        NumbersCase{"Thousands", " 1'000 0 2 1", std::nullopt},
        NumbersCase{"HexFails", " 0x10 0 32 1", std::nullopt},
        NumbersCase{"HexInFourthIsZero", " 1 0 2 0x10", Numbers{1, 0, 2, 0}},
        NumbersCase{"HexFloat", " 1 0 2 0x1p-2", Numbers{1, 0, 2, 0}},
        NumbersCase{"Infinity", " inf 0 2 1", std::nullopt},
        NumbersCase{"InfinityInFourth", " 1 0 2 inf", std::nullopt},
        NumbersCase{"Nan", " nan 0 2 1", std::nullopt},
        NumbersCase{"NanStep", " 1 0 2 nan", std::nullopt},
        NumbersCase{"BareExponent", " 1e 0 2 1", std::nullopt},
        NumbersCase{"BareExponentInFourth", " 1 0 2 1e", std::nullopt},
        NumbersCase{"BareSignedExponent", " 1e+ 0 2 1", std::nullopt},
        NumbersCase{"ExponentThenSpace", " 1e 5 0 2 1", std::nullopt},
        NumbersCase{"TwoExponents", " 1e1e1 0 2 1", std::nullopt},
        NumbersCase{"OnlyExponent", " e5 0 2 1", std::nullopt},
        NumbersCase{"OnlyPoint", " . 0 2 1", std::nullopt},
        NumbersCase{"PointWithExponent", " .e5 0 2 1", std::nullopt},
        NumbersCase{"OnlySign", " - 0 2 1", std::nullopt},
        NumbersCase{"TwoSigns", " +-1 0 2 1", std::nullopt},
        NumbersCase{"SignThenSpace", " - 1 0 2 1", std::nullopt},
        NumbersCase{"SwappedBounds", " 5 10 0 1", Numbers{5, 0, 10, 1}},
        NumbersCase{"EqualBounds", " 5 3 3 1", Numbers{5, 3, 3, 1}},
        NumbersCase{"NegativeStep", " 50 0 10 -1", Numbers{50, 0, 10, 0}},
        NumbersCase{"ZeroStep", " 1 0 10 0", Numbers{1, 0, 10, 0}},
        NumbersCase{"NegativeZeroStep", " 1 0 10 -0", Numbers{1, 0, 10, 0}},
        NumbersCase{"SmallestStep", " 1 0 10 1e-45", Numbers{1, 0, 10, kSmallest}},
        NumbersCase{"DefaultOutside", " -7 0 10 1", Numbers{-7, 0, 10, 1}}),
    CaseName<NumbersCase>);

// --- Lines of a shader ---------------------------------------------------------------------------

struct LineCase {
  const char* name;
  std::string text;
  std::vector<std::string> expected;  // "name|label" of each declaration kept.
};

void PrintTo(const LineCase& row, std::ostream* out) {
  *out << row.text;
}

class ShaderDeclarationLine : public ::testing::TestWithParam<LineCase> {};

TEST_P(ShaderDeclarationLine, YieldsNameAndLabel) {
  std::vector<std::string> found;
  for (const ShaderParameterSpec& spec : ParseShaderText(GetParam().text)) {
    found.push_back(spec.name + "|" + spec.label);
  }
  EXPECT_EQ(found, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ShaderDeclarationLine,
    ::testing::Values(
        LineCase{"Plain", "#pragma parameter gamma \"Gamma\" 2.2 1 3 0.05\n", {"gamma|Gamma"}},
        LineCase{"NoLineFeedAtTheEnd", "#pragma parameter x \"L\" 1 0 2 1", {"x|L"}},
        LineCase{"Indented", "  \t #pragma parameter x \"L\" 1 0 2 1", {"x|L"}},
        LineCase{"IndentedByAllSpace", "\v\f\r\t #pragma parameter x \"L\" 1 0 2 1", {"x|L"}},
        LineCase{"CommentedOut", "// #pragma parameter x \"L\" 1 0 2 1", {}},
        LineCase{"BehindCode", "void main() {} #pragma parameter x \"L\" 1 0 2 1", {}},
        LineCase{"SpaceBehindHash", "# pragma parameter x \"L\" 1 0 2 1", {}},
        LineCase{"UpperCasePragma", "#PRAGMA parameter x \"L\" 1 0 2 1", {}},
        LineCase{"UpperCaseParameter", "#pragma PARAMETER x \"L\" 1 0 2 1", {}},
        LineCase{"NoSpaceBeforeParameter", "#pragmaparameter x \"L\" 1 0 2 1", {"x|L"}},
        LineCase{"NoSpaceBehindParameter", "#pragma parameterFOO \"L\" 1 0 2 1", {"FOO|L"}},
        LineCase{"WordsBeforeParameter", "#pragma once and parameter x \"L\" 1 0 2 1", {"x|L"}},
        LineCase{"PluralTakesTheS", "#pragma parameters x \"L\" 1 0 2 1", {"s|L"}},
        LineCase{
            "FirstOccurrenceCounts", "#pragma parameter parameter \"L\" 1 0 2 1", {"parameter|L"}},
        LineCase{
            "FirstOccurrenceInAWord", "#pragma myparameter x parameter y \"L\" 1 0 2 1", {"x|L"}},
        LineCase{"ParameterOnlyInTheLabel", "#pragma \"a parameter b\" c \"L\" 1 0 2 1", {"b\"|L"}},
        LineCase{"OtherPragma", "#pragma optimize(on) \"L\" 1 0 2 1", {}},
        LineCase{"OnlyPragma", "#pragma", {}}, LineCase{"SixCharacters", "#pragm", {}},
        LineCase{"OnlyParameter", "#pragma parameter", {}},
        LineCase{"OnlySpaceBehind", "#pragma parameter  \t\r", {}},
        LineCase{"OnlyAName", "#pragma parameter x", {}},
        LineCase{"NoQuotes", "#pragma parameter x L 1 0 2 1", {}},
        LineCase{"OneQuote", "#pragma parameter x \"L 1 0 2 1", {}},
        LineCase{"EmptyLabel", "#pragma parameter x \"\" 1 0 2 1", {}},
        LineCase{"EmptyLabelThenAnother", "#pragma parameter x \"\" \"M\" 1 0 2 1", {}},
        LineCase{"BlankLabel", "#pragma parameter x \" \" 1 0 2 1", {"x| "}},
        LineCase{"BlanksAtBothEnds", "#pragma parameter x \"  L  \" 1 0 2 1", {"x|  L  "}},
        LineCase{"NoEscapes", "#pragma parameter x \"a\\\" 1 0 2 1", {"x|a\\"}},
        LineCase{"TextBeforeTheLabel", "#pragma parameter x is a \"L\" 1 0 2 1", {"x|L"}},
        LineCase{"NumbersBeforeTheLabel", "#pragma parameter x 1 0 2 1 \"L\"", {}},
        LineCase{"ThirdQuote", "#pragma parameter x \"L\" \"M\" 1 0 2 1", {}},
        LineCase{"LabelGluedToName", "#pragma parameter x\"L\" 1 0 2 1", {}},
        LineCase{"QuoteInTheName", "#pragma parameter x\"L\" \"M\" 1 0 2 1", {"x\"L\"|M"}},
        LineCase{"ManyBlanks", "#pragma   parameter \t x \t \"L\" \t 1 0 2 1", {"x|L"}},
        LineCase{
            "Utf8Label", "#pragma parameter x \"Gr\u00f6\u00dfe\" 1 0 2 1", {"x|Gr\u00f6\u00dfe"}},
        LineCase{
            "LatinBytes", "#pragma parameter \xe9 \"\xa0\x85\xff\" 1 0 2 1", {"\xe9|\xa0\x85\xff"}},
        LineCase{"LatinSpaceIsNoSpace", "\xa0#pragma parameter x \"L\" 1 0 2 1", {}},
        LineCase{"NulInNameAndLabel", "#pragma parameter a\0b \"c\0d\" 1 0 2 1"s, {"a\0b|c\0d"s}},
        LineCase{"CrLf",
                 "#pragma parameter a \"A\" 1 0 2 1\r\n#pragma parameter b \"B\" 1 0 2 1\r\n",
                 {"a|A", "b|B"}},
        LineCase{"LoneCrEndsNoLine",
                 "#pragma parameter a \"A\" 1 0 2 1\r#pragma parameter b \"B\" 1 0 2 1\r",
                 {"a|A"}},
        LineCase{"CrInTheLabel", "#pragma parameter a \"A\rB\" 1 0 2 1", {"a|A\rB"}},
        LineCase{"LabelOverTwoLines", "#pragma parameter a \"A\nB\" 1 0 2 1", {}},
        LineCase{"ByteOrderMarkHidesTheFirstLine",
                 "\xef\xbb\xbf#pragma parameter a \"A\" 1 0 2 1\n#pragma parameter b \"B\" 1 0 2 1",
                 {"b|B"}},
        LineCase{"FileOrder",
                 "#pragma parameter b \"B\" 1 0 2 1\n\nvoid main() {}\n"
                 "#pragma parameter a \"A\" 1 0 2 1\n",
                 {"b|B", "a|A"}},
        LineCase{"DuplicatesAreKept",
                 "#pragma parameter a \"A\" 1 0 2 1\n#pragma parameter a \"B\" 1 0 2 1\n",
                 {"a|A", "a|B"}},
        LineCase{"MalformedIsSkipped",
                 "#pragma parameter a \"A\" 1 0 2 1\n#pragma parameter x \"X\" 1 0\n"
                 "#pragma parameter b \"B\" 1 0 2 1\n",
                 {"a|A", "b|B"}},
        LineCase{"NumbersNeverComeFromTheNextLine", "#pragma parameter a \"A\" 1 0 2\n1\n", {}},
        LineCase{"Empty", "", {}}, LineCase{"OnlyLineFeeds", "\n\n\n", {}}),
    CaseName<LineCase>);

// --- Values of a preset --------------------------------------------------------------------------

struct ValueCase {
  const char* name;
  std::string text;  // What stands behind the '='.
  std::optional<float> expected;
};

void PrintTo(const ValueCase& row, std::ostream* out) {
  *out << row.text;
}

class PresetValue : public ::testing::TestWithParam<ValueCase> {};

TEST_P(PresetValue, IsConvertedAsByStof) {
  const std::vector<ShaderParameterValue> values =
      ParsePresetText("parameters = \"g\"\ng =" + GetParam().text + "\n");
  std::vector<ShaderParameterValue> expected;
  if (GetParam().expected) {
    expected.push_back({"g", *GetParam().expected});
  }
  ExpectSame(values, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, PresetValue,
    ::testing::Values(
        ValueCase{"Plain", " 2.4", 2.4F}, ValueCase{"NoBlank", "2.4", 2.4F},
        ValueCase{"Quoted", " \"0.9\"", 0.9F}, ValueCase{"BlankInQuotes", " \" 0.9 \"", 0.9F},
        ValueCase{"Tab", "\t1\t", 1.0F}, ValueCase{"CrLf", " 1.5\r", 1.5F},
        ValueCase{"CrLfQuoted", " \"1.5\"\r", 1.5F}, ValueCase{"TwoCrs", " 1.5\r\r", 1.5F},
        ValueCase{"Negative", " -1.5", -1.5F}, ValueCase{"LeadingPlus", " +1.5", 1.5F},
        ValueCase{"NegativeZero", " -0.0", -0.0F}, ValueCase{"TrailingPoint", " 256.", 256.0F},
        ValueCase{"LeadingPoint", " .5", 0.5F}, ValueCase{"Exponent", " 1e2", 100.0F},
        ValueCase{"BareExponent", " 1e", 1.0F}, ValueCase{"BareSignedExponent", " 1e+", 1.0F},
        ValueCase{"Junk", " 1.5x", 1.5F}, ValueCase{"TwoPoints", " 1.0.0", 1.0F},
        ValueCase{"Comment", " 2.0 # note", 2.0F}, ValueCase{"SlashComment", " 2.0// note", 2.0F},
        ValueCase{"Semicolon", " 2.0;", 2.0F}, ValueCase{"FloatSuffix", " 2.0f", 2.0F},
        ValueCase{"CommaAsPoint", " 1,5", 1.0F}, ValueCase{"SecondEquals", " 1=2", 1.0F},
        ValueCase{"Hex", " 0x10", 16.0F}, ValueCase{"HexFloat", " 0x1.8p1", 3.0F},
        ValueCase{"UpperHex", " 0XAP0", 10.0F}, ValueCase{"HexWithoutDigits", " 0x", 0.0F},
        ValueCase{"HexJunk", " 0xg", 0.0F}, ValueCase{"Infinity", " inf", kInfinity},
        ValueCase{"LongInfinity", " INFINITY", kInfinity},
        ValueCase{"NegativeInfinity", " -Inf", -kInfinity},
        ValueCase{"InfinityAndJunk", " infx", kInfinity}, ValueCase{"Nan", " nan", kNan},
        ValueCase{"UpperNan", " NAN", kNan}, ValueCase{"NanWithPayload", " nan(1)", std::nanf("1")},
        ValueCase{"Overflow", " 1e60", std::nullopt},
        ValueCase{"NegativeOverflow", " -1e60", std::nullopt},
        ValueCase{"HexOverflow", " 0x1p128", std::nullopt},
        ValueCase{"Underflow", " 1e-50", std::nullopt},
        ValueCase{"InexactSubnormal", " 1e-40", std::nullopt},
        ValueCase{"ExactSubnormal", " 0x1p-149", kSmallest},
        ValueCase{"SmallestNormal", " 1.17549436e-38", 1.17549435e-38F},
        // Taken on every processor; std::stof takes it on those alone that round before they look.
        ValueCase{"RoundedUpToSmallestNormal", " 1.17549435e-38", 1.17549435e-38F},
        ValueCase{"Greatest", " 3.4028235e38", kGreatest},
        ValueCase{"RoundedToGreatest", " 3.40282356e38", kGreatest},
        ValueCase{"JustOutOfRange", " 3.4028236e38", std::nullopt},
        ValueCase{"ExactZeroIsInRange", " 0e-999", 0.0F},
        ValueCase{"ManyDigits", " 0." + std::string(3000, '3'), 0.33333334F},
        ValueCase{"Word", " abc", std::nullopt}, ValueCase{"Empty", "", std::nullopt},
        ValueCase{"OnlySpace", "  \t", std::nullopt},
        ValueCase{"EmptyQuotes", " \"\"", std::nullopt}, ValueCase{"OneQuote", " \"", std::nullopt},
        ValueCase{"OpenQuote", " \"1.5", std::nullopt}, ValueCase{"CloseQuote", " 1.5\"", 1.5F},
        ValueCase{"TwiceQuoted", " \"\"1.5\"\"", std::nullopt},
        ValueCase{"QuotedThenComment", " \"1.5\" # note", std::nullopt},
        ValueCase{"QuotedThenQuotedComment", " \"1.5\" # \"note\"", 1.5F},
        ValueCase{"OnlySign", " -", std::nullopt}, ValueCase{"TwoSigns", " --1", std::nullopt},
        ValueCase{"SignThenSpace", " - 1", std::nullopt},
        ValueCase{"OnlyPoint", " .", std::nullopt}, ValueCase{"NulBehind", " 1.5\0 9"s, 1.5F},
        ValueCase{"NulBefore", " \0 1.5"s, std::nullopt},
        ValueCase{"VerticalTabInQuotes", " \"\v1\"", 1.0F}),
    CaseName<ValueCase>);

// --- Lines of a preset ---------------------------------------------------------------------------

struct PresetCase {
  const char* name;
  std::string text;
  std::vector<std::string> expected;  // "key=value" of each entry; the values are small integers.
};

void PrintTo(const PresetCase& row, std::ostream* out) {
  *out << row.text;
}

class PresetLines : public ::testing::TestWithParam<PresetCase> {};

TEST_P(PresetLines, YieldTheListedValues) {
  std::vector<std::string> found;
  for (const ShaderParameterValue& value : ParsePresetText(GetParam().text)) {
    found.push_back(value.name + "=" + std::to_string(std::lround(value.value)));
  }
  EXPECT_EQ(found, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, PresetLines,
    ::testing::Values(
        PresetCase{"OrderOfTheValueLines", "parameters = \"a;b\"\nb = 2\na = 1\n", {"b=2", "a=1"}},
        PresetCase{"BareList", "parameters = a ; ; b\na = 1\nb = 2\n", {"a=1", "b=2"}},
        PresetCase{"NoBlanks", "parameters=\"a;b\"\na=1\nb=2", {"a=1", "b=2"}},
        PresetCase{"OneName", "parameters = a\na = 1\n", {"a=1"}},
        PresetCase{"BlanksInTheQuotes", "parameters = \" a ; b \"\na = 1\nb = 2", {"a=1", "b=2"}},
        PresetCase{"TrailingSemicolon", "parameters = a;b;\na = 1\nb = 2", {"a=1", "b=2"}},
        PresetCase{"CommasMakeOneName", "parameters = \"a,b\"\na = 1\nb = 2\na,b = 3", {"a,b=3"}},
        PresetCase{"BlanksMakeOneName", "parameters = a b\na = 1\na b = 3", {"a b=3"}},
        PresetCase{"TextBehindTheQuotes", "parameters = \"a\" # \"b\"\na = 1\nb = 2", {"a=1"}},
        PresetCase{"TextBeforeTheQuotes", "parameters = b \"a\"\na = 1\nb = 2", {"a=1"}},
        PresetCase{"OneQuoteIsPartOfTheName",
                   "parameters = \"a;b\na = 1\nb = 2\n\"a = 3",
                   {"b=2", "\"a=3"}},
        PresetCase{
            "BareListWithComment", "parameters = a # note\na = 1\na # note = 3", {"a # note=3"}},
        PresetCase{
            "SecondEqualsIsPartOfTheList", "parameters = a=b;c\na=b = 1\nc = 3\na = 2", {"c=3"}},
        PresetCase{"ValuesBeforeTheList", "a = 1\nparameters = a\na = 2", {"a=1", "a=2"}},
        PresetCase{"Duplicates", "parameters = a\na = 1\na = 2", {"a=1", "a=2"}},
        PresetCase{"NameListedTwice", "parameters = a;a\na = 1", {"a=1"}},
        PresetCase{"CaseCounts", "parameters = gamma\nGAMMA = 1\ngamma = 2", {"gamma=2"}},
        PresetCase{"NotListed", "parameters = a\nb = 1", {}},
        PresetCase{"NoList", "a = 1\nb = 2", {}},
        PresetCase{"UpperCaseList", "PARAMETERS = a\na = 1", {}},
        PresetCase{"IndentedList", "  parameters = a\n  a = 1", {"a=1"}},
        PresetCase{"CommentedList", "# parameters = a\na = 1", {}},
        PresetCase{"ListWithoutEquals", "parameters a\nparameters = a\na = 1", {"a=1"}},
        PresetCase{"WordAlone", "parameters\nparameters = a\na = 1", {"a=1"}},
        PresetCase{"ElevenCharacters", "parameters=\nparameters = a\na = 1", {}},
        PresetCase{"EmptyListEndsTheScan", "parameters = \"\"\nparameters = a\na = 1", {}},
        PresetCase{"ListOfSemicolonsEndsTheScan", "parameters = ;;\nparameters = a\na = 1", {}},
        PresetCase{
            "SecondListDoesNotCount", "parameters = a\nparameters = b\na = 1\nb = 2", {"a=1"}},
        PresetCase{
            "TextBehindTheWord", "parameters_version = a\nparameters = b\na = 1\nb = 2", {"a=1"}},
        PresetCase{"NumberAsList", "parameters_version = 2\nparameters = b\n2 = 7\nb = 2", {"2=7"}},
        PresetCase{"SingularIsNoList", "parameter = a\na = 1", {}},
        PresetCase{"ListedListName", "parameters = \"parameters;a\"\na = 1", {"a=1"}},
        PresetCase{"ListLineAsValue", "parameters = parameters\nparameters = 5", {"parameters=5"}},
        PresetCase{"CrLf", "parameters = \"a;b\"\r\na = 1\r\nb = \"2\"\r\n", {"a=1", "b=2"}},
        PresetCase{"LoneCrEndsNoLine", "parameters = a\ra = 1\r", {}},
        PresetCase{"ByteOrderMarkHidesTheList", "\xef\xbb\xbfparameters = a\na = 1", {}},
        PresetCase{"ByteOrderMarkHidesAValue",
                   "\xef\xbb\xbf"
                   "a = 1\nparameters = a\na = 2",
                   {"a=2"}},
        PresetCase{"EmptyKey", "parameters = a\n= 1\n = 2\na = 3", {"a=3"}},
        PresetCase{"NoEquals", "parameters = a\na 1\na", {}},
        PresetCase{"SpaceAroundTheKey", "parameters = a\n\t a \t= 1", {"a=1"}},
        PresetCase{"CommentedValue", "parameters = a\n# a = 1\n// a = 2\n;a = 3", {}},
        PresetCase{"BadValueIsSkipped", "parameters = a\na = abc\na = 1e60\na = 2", {"a=2"}},
        PresetCase{"OtherLines",
                   "shaders = 1\nshader0 = a.glsl\n#reference \"b.glslp\"\nparameters = a\na = 1",
                   {"a=1"}},
        PresetCase{"Utf8Names",
                   "parameters = gr\u00f6\u00dfe\ngr\u00f6\u00dfe = 1",
                   {"gr\u00f6\u00dfe=1"}},
        PresetCase{"NulInNames", "parameters = a\0b\na\0b = 1\na = 2"s, {"a\0b=1"s}},
        PresetCase{"BlankLines", "\n\r\n \nparameters = a\n\n \t\na = 1\n\n", {"a=1"}},
        PresetCase{"Empty", "", {}}, PresetCase{"OnlyLineFeeds", "\n\n", {}}),
    CaseName<PresetCase>);

// --- Files ---------------------------------------------------------------------------------------

constexpr const char* kDeclaration = "#pragma parameter x \"L\" 1 0 2 1\n";

TEST(ParseShaderParameterSpecs, MissingFileGivesNothing) {
  EXPECT_TRUE(ParseShaderParameterSpecs("/nonexistent/shader.glsl").empty());
  EXPECT_TRUE(ParseShaderParameterSpecs("/nonexistent/shader.glslp").empty());
  EXPECT_TRUE(ParseShaderParameterSpecs("").empty());
}

TEST(ParseShaderParameterSpecs, FolderGivesNothing) {
  const TemporaryDirectory folder;
  EXPECT_TRUE(ParseShaderParameterSpecs(folder.path().string()).empty());
}

TEST(ParseShaderParameterSpecs, ReadsAnyExtensionButThePresetsAsSource) {
  const TemporaryDirectory folder;
  for (const char* name : {"a.glsl", "a.frag", "a", "a.glslp.txt", "a.glslpx", ".glslp"}) {
    EXPECT_EQ(ParseShaderParameterSpecs(folder.Write(name, kDeclaration).string()).size(), 1U)
        << name;
  }
}

TEST(ParseShaderParameterSpecs, ReadsThePresetsFirstPass) {
  const TemporaryDirectory folder;
  folder.Write("first.glsl", kDeclaration);
  folder.Write("second.glsl", std::string(kDeclaration) + kDeclaration);
  const char* const preset = "shaders = 2\nshader0 = first.glsl\nshader1 = second.glsl\n";
  for (const char* name : {"a.glslp", "a.GLSLP", "a.GlslP"}) {
    EXPECT_EQ(ParseShaderParameterSpecs(folder.Write(name, preset).string()).size(), 1U) << name;
  }
}

TEST(ParseShaderParameterSpecs, PresetWithoutAFirstPassGivesNothing) {
  const TemporaryDirectory folder;
  // Its own lines must not be taken for declarations.
  EXPECT_TRUE(ParseShaderParameterSpecs(folder.Write("a.glslp", kDeclaration).string()).empty());
  EXPECT_TRUE(
      ParseShaderParameterSpecs(folder.Write("b.glslp", "shader0 = missing.glsl\n").string())
          .empty());
}

TEST(ResolveShaderGlslPath, LeavesOtherPathsAlone) {
  for (const char* path :
       {"", "a.glsl", "./b/../a.GLSL", ".glslp", "x/.glslp", "a.glslp/b", "a."}) {
    EXPECT_EQ(ResolveShaderGlslPath(path), path);
  }
}

TEST(ResolveShaderGlslPath, NamesThePresetsFirstPassWhetherItExistsOrNot) {
  const TemporaryDirectory folder;
  const fs::path preset = folder.Write("a.GLSLP", "shader0 = \"missing.glsl\"\n");
  EXPECT_EQ(ResolveShaderGlslPath(preset.string()), (folder.path() / "missing.glsl").string());
  EXPECT_EQ(ResolveShaderGlslPath((folder.path() / "none.glslp").string()), "");
}

TEST(ParseGlslpParameterOverrides, ReadsPresetsOnly) {
  const TemporaryDirectory folder;
  const char* const text = "parameters = a\na = 1\n";
  for (const char* name : {"a.glslp", "a.GLSLP", "b.c.glslp"}) {
    EXPECT_EQ(ParseGlslpParameterOverrides(folder.Write(name, text).string()).size(), 1U) << name;
  }
  for (const char* name : {"a.glsl", "a", ".glslp", "a.glslp.txt", "a.cgp"}) {
    EXPECT_TRUE(ParseGlslpParameterOverrides(folder.Write(name, text).string()).empty()) << name;
  }
}

TEST(ParseGlslpParameterOverrides, UnreadableFileGivesNothing) {
  const TemporaryDirectory folder;
  EXPECT_TRUE(ParseGlslpParameterOverrides((folder.path() / "none.glslp").string()).empty());
  EXPECT_TRUE(ParseGlslpParameterOverrides(folder.MakeFolder("dir.glslp").string()).empty());
}

TEST(ParseGlslpParameterOverrides, FollowsNoReference) {
  const TemporaryDirectory folder;
  folder.Write("base.glslp", "parameters = a\na = 1\n");
  const fs::path preset = folder.Write("top.glslp", "#reference \"base.glslp\"\na = 2\n");
  EXPECT_TRUE(ParseGlslpParameterOverrides(preset.string()).empty());
}

TEST(ParseGlslpParameterOverrides, LeavesNoRangeErrorInErrno) {
  const TemporaryDirectory folder;
  const std::string preset = folder.Write("a.glslp", "parameters = a\na = 1e60\n").string();
  errno = 0;
  EXPECT_TRUE(ParseGlslpParameterOverrides(preset).empty());
  const int after_parsing = errno;
  EXPECT_NE(after_parsing, ERANGE);
}

// A file as found in the wild: many hands, many habits.
TEST(ParseShaderParameterSpecs, TakesAMixedFileAsItComes) {
  const std::vector<ShaderParameterSpec> specs = ParseShaderText(
      "\xef\xbb\xbf/* cr\xe9"
      "dits */\r\n"
      "#version 120\r\n"
      "#pragma parameter CURVE\t\" Curvature \"\t0.05 0.0 0.3 0.01\r\n"
      "#pragma parameter mask \"Mask (0 = off)\"0.0 0.0 1.0 1.0\r\n"
      "#pragma parameter size \"Size\" 256. 1. 1024. 1.\r\n"
      "#pragma parameter bogus \"Three numbers\" 1.0 0.0 2.0\r\n"
      "\t#pragma parameter last \"Last\" 1 0 2 0.5 // half\r\n"
      "#ifdef PARAMETER_UNIFORM\r\nuniform float CURVE;\r\n#endif\r\n");
  ExpectSame(specs, {{"CURVE", " Curvature ", 0.05F, 0, 0.3F, 0.01F},
                     {"mask", "Mask (0 = off)", 0, 0, 1, 1},
                     {"size", "Size", 256, 1, 1024, 1},
                     {"last", "Last", 1, 0, 2, 0.5F}});
}

// --- Agreement with the standard library ---------------------------------------------------------

using Random = std::mt19937;

std::size_t Below(Random* random, std::size_t limit) {
  return std::uniform_int_distribution<std::size_t>(0, limit - 1)(*random);
}

std::string Pieces(Random* random, const std::vector<std::string>& pieces, std::size_t most) {
  std::string text;
  for (std::size_t left = Below(random, most + 1); left > 0; --left) {
    text += pieces[Below(random, pieces.size())];
  }
  return text;
}

const std::vector<std::string> kNumberPieces = {
    "0",   "1", "2",   "5",  "9", "10",   "00", ".", ".",   "e",   "E",        "-",       "+",
    " ",   " ", "\t",  "\r", "x", "0x",   "p",  "f", "inf", "nan", "e-4",      "e38",     "e-45",
    "e39", ",", "\0"s, "\v", "'", "\xa0", "#",  ";", "1.5", "-0",  "16777217", "infinity"};

std::vector<std::string> LinePieces() {
  std::vector<std::string> pieces = kNumberPieces;
  for (const char* piece : {"#pragma",
                            "#pragma parameter ",
                            "#pragma parameter n \"L\" ",
                            "parameter",
                            "\"",
                            "\"L\"",
                            "\n",
                            "\n",
                            "\r\n",
                            "name",
                            " 1 0 2 0.5",
                            "parameters = ",
                            "parameters",
                            "=",
                            " = ",
                            ";",
                            "a",
                            "b",
                            "\"a;b\"",
                            "\na = ",
                            "\nb = \""}) {
    pieces.emplace_back(piece);
  }
  return pieces;
}

TEST(ShaderParsers, ExtractNumbersAsTheStandardStream) {
  Random random(1);
  std::string text;
  for (int line = 0; line < 40000; ++line) {
    text += "#pragma parameter n \"L\" " + Pieces(&random, kNumberPieces, 12) + " 1 0.5 2 3\n";
  }
  const std::vector<ShaderParameterSpec> expected = quindle::testing::ReferenceDeclarations(text);
  EXPECT_GT(expected.size(), 5000U);
  EXPECT_LT(expected.size(), 35000U);
  ExpectSame(ParseShaderText(text), expected);
}

TEST(ShaderParsers, ConvertValuesAsStof) {
  Random random(2);
  std::string text = "parameters = a\n";
  for (int line = 0; line < 40000; ++line) {
    text += "a = " + Pieces(&random, kNumberPieces, 6) + "\n";
  }
  const std::vector<ShaderParameterValue> expected = quindle::testing::ReferenceOverrides(text);
  EXPECT_GT(expected.size(), 5000U);
  EXPECT_LT(expected.size(), 35000U);
  ExpectSame(ParsePresetText(text), expected);
}

TEST(ShaderParsers, ReadEveryRepresentableKindOfFloat) {
  Random random(3);
  std::string declarations;
  std::string preset = "parameters = a\n";
  for (int i = 0; i < 20000; ++i) {
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    std::array<char, 64> digits{};
    const char* const form = i % 2 == 0 ? "%.9g" : "%.5e";
    std::snprintf(digits.data(), digits.size(), form, static_cast<double>(value));
    declarations += "#pragma parameter n \"L\" 1 0 1 " + std::string(digits.data()) + "\n";
    preset += "a = " + std::string(digits.data()) + "\n";
  }
  ExpectSame(ParseShaderText(declarations), quindle::testing::ReferenceDeclarations(declarations));
  ExpectSame(ParsePresetText(preset), quindle::testing::ReferenceOverrides(preset));
}

TEST(ShaderParsers, AgreeWithThePlainRulesOnAnyText) {
  Random random(4);
  const std::vector<std::string> pieces = LinePieces();
  const TemporaryDirectory folder;
  for (int round = 0; round < 1500; ++round) {
    const std::string text = Pieces(&random, pieces, 40);
    SCOPED_TRACE(text);
    const fs::path file = folder.Write("any.glslp", text);
    ExpectSame(ParseGlslpParameterOverrides(file.string()),
               quindle::testing::ReferenceOverrides(text));
    const fs::path shader = folder.Write("any.glsl", text);
    ExpectSame(ParseShaderParameterSpecs(shader.string()),
               quindle::testing::ReferenceDeclarations(text));
    if (HasFailure()) {
      break;
    }
  }
}

// --- Locales -------------------------------------------------------------------------------------

TEST(ShaderParsersLocale, GermanHostGetsTheSameNumbers) {
  const GermanProcess process;
  ASSERT_TRUE(process.IsGerman()) << "the system has no German locale";
  ASSERT_EQ(std::strtof("1,5", nullptr), 1.5F) << "the locale does not use a comma";
  ExpectSame(ParseShaderText("#pragma parameter n \"L\" 1.5 0.25 2.75 0.5\n"
                             "#pragma parameter m \"L\" 1,5 0 2 1\n"
                             "#pragma parameter t \"L\" 1.000 0 2.000 1\n"),
             {{"n", "L", 1.5F, 0.25F, 2.75F, 0.5F}, {"t", "L", 1, 0, 2, 1}});
  ExpectSame(ParsePresetText("parameters = a\na = 1.5\na = 1,5\na = \"2.5\"\na = 1.000.5\n"),
             {{"a", 1.5F}, {"a", 1.0F}, {"a", 2.5F}, {"a", 1.0F}});
}

class CommaPoint : public std::numpunct<char> {
 protected:
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(ShaderParsersLocale, GlobalStreamLocaleDoesNotCount) {
  const std::locale former =
      std::locale::global(std::locale(std::locale::classic(), new CommaPoint));
  const std::vector<ShaderParameterSpec> specs =
      ParseShaderText("#pragma parameter n \"L\" 1.5 0.25 2.75 0.5\n");
  const std::vector<ShaderParameterValue> values = ParsePresetText("parameters = a\na = 1.5\n");
  std::locale::global(former);
  ExpectSame(specs, {{"n", "L", 1.5F, 0.25F, 2.75F, 0.5F}});
  ExpectSame(values, {{"a", 1.5F}});
}

// --- Snapping ------------------------------------------------------------------------------------

struct SnapCase {
  const char* name;
  float min_value;
  float max_value;
  float step;
  float value;
  float expected;
};

void PrintTo(const SnapCase& row, std::ostream* out) {
  *out << row.name;
}

class SnapToStepRule : public ::testing::TestWithParam<SnapCase> {};

TEST_P(SnapToStepRule, GivesExactlyThisFloat) {
  const SnapCase& row = GetParam();
  const float snapped =
      SnapToStep({"n", "L", 0, row.min_value, row.max_value, row.step}, row.value);
  EXPECT_TRUE(SameBits(snapped, row.expected)) << snapped << " is not " << row.expected;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SnapToStepRule,
    ::testing::Values(
        SnapCase{"OnTheGrid", 0, 2, 0.5F, 1.5F, 1.5F},
        SnapCase{"DownToTheGrid", 0, 2, 0.5F, 1.74F, 1.5F},
        SnapCase{"UpToTheGrid", 0, 2, 0.5F, 1.76F, 2.0F},
        SnapCase{"HalfwayGoesUp", 0, 2, 0.5F, 1.25F, 1.5F},
        SnapCase{"HalfwayAwayFromZeroNotToEven", 0, 10, 1, 2.5F, 3},
        SnapCase{"HalfwayIsMeasuredFromTheMinimum", -3, 3, 2, -2, -1},
        SnapCase{"GridStartsAtTheMinimum", 0.3F, 9, 1, 5, 5.3F},
        SnapCase{"BelowTheMinimum", 1, 3, 0.5F, -7, 1},
        SnapCase{"AboveTheMaximum", 1, 3, 0.5F, 7, 3}, SnapCase{"FinalClampWins", 0, 5, 2, 7, 5},
        SnapCase{"MaximumWithHalfAStepLeft", 0, 5, 2, 5, 5},
        SnapCase{"MaximumOutOfReach", 0, 5, 3, 5, 5},
        SnapCase{"MaximumWithLessThanHalfAStepLeft", 0, 1.0F, 0.3F, 1.0F, 0.90000004F},
        SnapCase{"StepBeyondTheRange", 0, 1, 5, 0.9F, 0},
        SnapCase{"StepTwiceTheRange", 0, 1, 2, 1, 1},
        SnapCase{"ContinuousKeepsTheValue", 0, 1, 0, 0.123456F, 0.123456F},
        SnapCase{"ContinuousIsClamped", 0, 1, 0, 2, 1},
        SnapCase{"NegativeStepIsContinuous", 0, 1, -0.5F, 0.3F, 0.3F},
        SnapCase{"EqualBounds", 3, 3, 0.5F, 9, 3},
        SnapCase{"NanBecomesTheMinimum", 1, 3, 0.5F, kNan, 1},
        SnapCase{"NanBecomesTheMinimumWithoutStep", 1, 3, 0, kNan, 1},
        SnapCase{"Infinity", 1, 3, 0.5F, kInfinity, 3},
        SnapCase{"NegativeInfinity", 1, 3, 0.5F, -kInfinity, 1},
        SnapCase{"InfiniteStepIsUndefinedAndGivesTheMinimum", 1, 3, kInfinity, 2, 1},
        SnapCase{"NanStepGivesTheMinimum", 1, 3, kNan, 2, 1},
        SnapCase{"InfiniteRange", -kInfinity, kInfinity, 1, 5, -kInfinity},
        SnapCase{"HugeRange", -kGreatest, kGreatest, 1, 0, 0},
        SnapCase{"HugeRangeOverflows", -kGreatest, kGreatest, 1, kGreatest, kGreatest},
        SnapCase{"SwappedBoundsGiveTheMaximum", 5, 2, 0, 3, 2},
        // These tell single precision from double, and separate rounding from fused.
        SnapCase{"RoundedAfterTheProduct", -2, -1, 0.01F, -1.81F, -1.80999994F},
        SnapCase{"RoundedAfterTheProductAgain", -2, 0, 0.02F, -1.56F, -1.55999994F},
        SnapCase{"QuotientInSinglePrecision", 0, 2, 0.01F, 0.065F, 0.07F},
        SnapCase{"QuotientInSinglePrecisionAgain", 0, 2, 0.01F, 0.145F, 0.149999991F}),
    CaseName<SnapCase>);

struct RandomSpec {
  ShaderParameterSpec spec;
  float value = 0.0F;
};

// Magnitudes from 2^-20 to 2^20; the step is at least 2^-18 of the greater bound.
RandomSpec MakeRandomSpec(Random* random) {
  std::uniform_real_distribution<float> unit(-1.0F, 1.0F);
  std::uniform_int_distribution<int> exponent(-20, 20);
  std::uniform_int_distribution<int> fineness(-18, 2);
  RandomSpec made;
  made.spec.min_value = std::ldexp(unit(*random), exponent(*random));
  made.spec.max_value = std::ldexp(unit(*random), exponent(*random));
  if (made.spec.min_value > made.spec.max_value) {
    std::swap(made.spec.min_value, made.spec.max_value);
  }
  const float greater = std::max(std::abs(made.spec.min_value), std::abs(made.spec.max_value));
  const float mantissa = 1.0F + std::abs(unit(*random));
  made.spec.step = Below(random, 8) == 0 ? 0.0F : std::ldexp(greater * mantissa, fineness(*random));
  const float range = made.spec.max_value - made.spec.min_value;
  made.value = made.spec.min_value + range * (unit(*random) * 0.75F + 0.5F);
  return made;
}

bool IsOnGrid(const ShaderParameterSpec& spec, float value) {
  const float nearest = std::round((value - spec.min_value) / spec.step);
  for (const float steps : {nearest - 1.0F, nearest, nearest + 1.0F}) {
    const float product = spec.step * steps;
    if (product + spec.min_value == value) {
      return true;
    }
  }
  return false;
}

TEST(SnapToStepProperty, IsIdempotentWithinBoundsAndOnTheGridOrAtABound) {
  Random random(5);
  for (int i = 0; i < 300000; ++i) {
    const RandomSpec made = MakeRandomSpec(&random);
    const ShaderParameterSpec& spec = made.spec;
    const float snapped = SnapToStep(spec, made.value);
    const bool at_bound = snapped == spec.min_value || snapped == spec.max_value;
    ASSERT_GE(snapped, spec.min_value) << Describe(spec) << made.value;
    ASSERT_LE(snapped, spec.max_value) << Describe(spec) << made.value;
    ASSERT_TRUE(at_bound || spec.step == 0.0F || IsOnGrid(spec, snapped))
        << Describe(spec) << made.value;
    ASSERT_EQ(SnapToStep(spec, snapped), snapped) << Describe(spec) << made.value;
  }
}

TEST(SnapToStepProperty, StaysWithinBoundsForAnyFloats) {
  Random random(6);
  const auto any = [&random] { return std::bit_cast<float>(static_cast<std::uint32_t>(random())); };
  for (int i = 0; i < 300000; ++i) {
    ShaderParameterSpec spec{"n", "L", 0, any(), any(), any()};
    if (std::isnan(spec.min_value) || std::isnan(spec.max_value)) {
      continue;
    }
    if (spec.min_value > spec.max_value) {
      std::swap(spec.min_value, spec.max_value);
    }
    const float snapped = SnapToStep(spec, any());
    ASSERT_GE(snapped, spec.min_value) << Describe(spec);
    ASSERT_LE(snapped, spec.max_value) << Describe(spec);
  }
}

// Where the step is about as small as the distance of neighbouring floats, single precision cannot
// hold the grid, and snapping twice may move by one float more. The formula holds all the same.
TEST(SnapToStepProperty, IsNotIdempotentAtTheLimitOfPrecision) {
  const ShaderParameterSpec spec{"n", "L", 0, -1830844.75F, 2723902.5F, 0.870991707F};
  const float once = SnapToStep(spec, 2661179.75F);
  EXPECT_EQ(once, 2661180.25F);
  EXPECT_EQ(SnapToStep(spec, once), 2661180.75F);
}

// --- Starting values -----------------------------------------------------------------------------

TEST(InitializeShaderDialogResult, GivesOneSnappedValuePerDeclaration) {
  const std::vector<ShaderParameterSpec> specs = {
      {"a", "A", 1, 0, 2, 0.5F}, {"b", "B", 50, 0, 10, 0}, {"c", "C", 0.3F, 0, 1, 0.25F}};
  const ShaderDialogResult result = InitializeShaderDialogResult(specs, {});
  EXPECT_FALSE(result.applied);
  ExpectSame(result.values, {{"a", 1}, {"b", 10}, {"c", 0.25F}});
}

TEST(InitializeShaderDialogResult, FirstMatchInCurrentWins) {
  const std::vector<ShaderParameterSpec> specs = {{"a", "A", 1, 0, 9, 0}, {"b", "B", 2, 0, 9, 0}};
  const ShaderDialogResult result =
      InitializeShaderDialogResult(specs, {{"x", 7}, {"b", 5}, {"a", 3}, {"a", 4}, {"b", 6}});
  ExpectSame(result.values, {{"a", 3}, {"b", 5}});
}

TEST(InitializeShaderDialogResult, ClampsAndSnapsCurrentValues) {
  const std::vector<ShaderParameterSpec> specs = {
      {"a", "A", 1, 0, 5, 2}, {"b", "B", 1, 0, 5, 0}, {"c", "C", 1, 2, 5, 1}};
  const ShaderDialogResult result =
      InitializeShaderDialogResult(specs, {{"a", 7}, {"b", -7}, {"c", kNan}});
  ExpectSame(result.values, {{"a", 5}, {"b", 0}, {"c", 2}});
}

TEST(InitializeShaderDialogResult, NamesMatchByteByByte) {
  const std::vector<ShaderParameterSpec> specs = {{"a", "A", 1, 0, 9, 0},
                                                  {"a\0b"s, "B", 2, 0, 9, 0}};
  const ShaderDialogResult result =
      InitializeShaderDialogResult(specs, {{"A", 5}, {"a ", 6}, {"a\0"s, 7}, {"a\0b"s, 8}});
  ExpectSame(result.values, {{"a", 1}, {"a\0b"s, 8}});
}

TEST(InitializeShaderDialogResult, DuplicateDeclarationsShareTheMatch) {
  const std::vector<ShaderParameterSpec> specs = {{"a", "A", 1, 0, 9, 0}, {"a", "B", 2, 0, 4, 0}};
  ExpectSame(InitializeShaderDialogResult(specs, {{"a", 6}}).values, {{"a", 6}, {"a", 4}});
  ExpectSame(InitializeShaderDialogResult(specs, {}).values, {{"a", 1}, {"a", 2}});
}

TEST(InitializeShaderDialogResult, WithoutDeclarationsIsEmpty) {
  const ShaderDialogResult result = InitializeShaderDialogResult({}, {{"a", 1}});
  EXPECT_FALSE(result.applied);
  EXPECT_TRUE(result.values.empty());
}

TEST(InitializeShaderDialogResult, TakesAPresetsOverridesWithTheFirstWinning) {
  const std::vector<ShaderParameterSpec> specs = {{"gamma", "G", 2.2F, 1, 3, 0}};
  const std::vector<ShaderParameterValue> overrides = ParsePresetText(
      "parameters = \"gamma;later_pass\"\ngamma = 2.5\nlater_pass = 1\ngamma = 3\n");
  ASSERT_EQ(overrides.size(), 3U);
  ExpectSame(InitializeShaderDialogResult(specs, overrides).values, {{"gamma", 2.5F}});
}

}  // namespace
}  // namespace quindle::frontend::gui

// Floats as text: the rules of the C library in the C locale, by both ways of reading and writing
// them.

#include "frontend/gui/float_text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "frontend/gui/float_conversion.h"
#include "support/german_process.h"
#include "support/shader_reference.h"

namespace quindle::frontend::gui {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

std::string InBits(std::optional<float> value) {
  if (!value) {
    return "none";
  }
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%08x", std::bit_cast<std::uint32_t>(*value));
  return text.data();
}

float NanWith(std::uint32_t bits) {
  return std::bit_cast<float>(0x7FC00000U | bits);
}

// --- What is a number
// ------------------------------------------------------------------------------

struct PrefixCase {
  const char* text;
  std::optional<float> expected;
};

const std::vector<PrefixCase>& Prefixes() {
  static const std::vector<PrefixCase> kCases = {
      {"", {}},
      {" ", {}},
      {"x", {}},
      {"+", {}},
      {".", {}},
      {"-.", {}},
      {"e5", {}},
      {".e5", {}},
      {"+-1", {}},
      {"- 1", {}},
      {"1", 1.0F},
      {"+1", 1.0F},
      {"-1", -1.0F},
      {" \t\n\v\f\r1.5", 1.5F},
      {"1.5x", 1.5F},
      {"1,5", 1.0F},
      {"1.", 1.0F},
      {".5", 0.5F},
      {"-.5.5", -0.5F},
      {"1.000.5", 1.0F},
      {"1e2", 100.0F},
      {"1E+2", 100.0F},
      {"1e-2", 0.01F},
      {"1e", 1.0F},
      {"1e+", 1.0F},
      {"1e 5", 1.0F},
      {"1.5e1.5", 15.0F},
      {"1p5", 1.0F},
      {"0x", 0.0F},
      {"0x.", 0.0F},
      {"0xg", 0.0F},
      {"0x10", 16.0F},
      {"0X1F", 31.0F},
      {"0x.8", 0.5F},
      {"0x1.", 1.0F},
      {"-0x1.8p1", -3.0F},
      {"0x1P+4z", 16.0F},
      {"0x1p", 1.0F},
      {"0x1p-", 1.0F},
      {"0x1e5", 485.0F},
      {"0x0x1", 0.0F},
      {"00x1", 0.0F},
      {"0", 0.0F},
      {"-0", -0.0F},
      {"-0e999999999999", -0.0F},
      {"0x0p999999999999", 0.0F},
      {"inf", kInfinity},
      {"-INF", -kInfinity},
      {"Infinity", kInfinity},
      {"infinite", kInfinity},
      {"in", {}},
      {"nan", NanWith(0)},
      {"-NaN", NanWith(0x80000000U)},
      {"nan()", NanWith(0)},
      {"nan(12)", NanWith(12)},
      {"nan(0x1F)", NanWith(31)},
      {"nan(017)", NanWith(15)},
      {"nan(0)", NanWith(0)},
      {"nan(99999999999999999999999{)", NanWith(0)},
      {"nan(0x)", NanWith(0)},
      {"nan(08)", NanWith(0)},
      {"nan(1_2)", NanWith(0)},
      {"nan(12", NanWith(0)},
      {"nan(-1)", NanWith(0)},
      {"nan(99999999999999999999999)", NanWith(0x3FFFFF)},
      {"nan(18446744073709551615)", NanWith(0x3FFFFF)},
      {"nan(18446744073709551616)", NanWith(0x3FFFFF)},
      {"nan(0x10000000000000000)", NanWith(0x3FFFFF)},
      {"nan(02000000000000000000000)", NanWith(0x3FFFFF)},
      {"nan(99999999999999999999999_)", NanWith(0)},
      {"nan(99999999999999999999999", NanWith(0)},
      {"na", {}},
  };
  return kCases;
}

TEST(ParseFloatPrefixText, TakesTheLongestNumber) {
  for (const PrefixCase& row : Prefixes()) {
    EXPECT_EQ(InBits(ParseFloatPrefix(row.text)), InBits(row.expected)) << row.text;
  }
}

TEST(ParseFloatPrefixText, EndsAtANulByte) {
  EXPECT_EQ(ParseFloatPrefix(std::string("1\0002", 3)), 1.0F);
  EXPECT_EQ(ParseFloatPrefix(std::string("\0001", 2)), std::nullopt);
}

TEST(ParseFloatPrefixText, LeavesErrnoAlone) {
  errno = EDOM;
  EXPECT_EQ(ParseFloatPrefix("1e99"), std::nullopt);
  EXPECT_EQ(FloatByCLibrary({"1e99", FloatBase::Decimal}), std::nullopt);
  EXPECT_EQ(errno, EDOM);
}

// --- What is in range
// ------------------------------------------------------------------------------

// The digits of half the least float's double, with all that there are.
std::string ExactDigits(double value) {
  std::array<char, 1200> text{};
  std::snprintf(text.data(), text.size(), "%.1100f", value);
  return text.data();
}

struct RangeCase {
  const char* name;
  std::string text;
  std::optional<float> expected;
};

std::vector<RangeCase> Ranges() {
  return {
      {"greatest", "3.4028234663852886e38", std::numeric_limits<float>::max()},
      {"rounded down to the greatest", "3.40282356e38", std::numeric_limits<float>::max()},
      {"too great", "3.40282357e38", {}},
      {"far too great", "1e999999999999999999999", {}},
      {"great and negative", "-1e40", {}},
      {"long and great", std::string(40, '9'), {}},
      {"long and small again", std::string(400, '9') + "e-400", 1.0F},
      {"great in hex", "0x1p128", {}},
      {"greatest in hex", "0x1.fffffep127", std::numeric_limits<float>::max()},
      {"rounded up out of range in hex", "0x1.ffffffp127", {}},
      {"least with all digits", "1.17549435e-38", std::numeric_limits<float>::min()},
      {"least with all digits in hex", "0x1p-126", std::numeric_limits<float>::min()},
      {"rounded up to that", "0x1.ffffffp-127", std::numeric_limits<float>::min()},
      {"not quite", "0x1.fffffefp-127", {}},
      {"rounded up to that, in decimal", ExactDigits(0x1.ffffffp-127),
       std::numeric_limits<float>::min()},
      {"not quite, in decimal", ExactDigits(0x1.ffffffp-127 - 0x1p-170), {}},
      {"fewer digits suffice", "0x1p-149", std::numeric_limits<float>::denorm_min()},
      {"fewer digits suffice, written otherwise", "0x0.0008p-136",
       std::numeric_limits<float>::denorm_min()},
      {"fewer digits suffice, in decimal", ExactDigits(0x1p-149),
       std::numeric_limits<float>::denorm_min()},
      {"digits are lost", "0x1.8p-149", {}},
      {"digits are lost far behind", "0x1.00000000000000000001p-149", {}},
      {"digits are lost in decimal", "1.4012984643248171e-45", {}},
      {"digits are lost further up", "1e-40", {}},
      {"next to nothing", "1e-50", {}},
      {"nearer to nothing", "-1e-400", {}},
      {"nearest to nothing", "1e-999999999999999999999", {}},
      {"next to nothing in hex", "0x1p-200", {}},
      {"nearer to nothing in hex", "0x1p-99999", {}},
      {"nothing after all", "0.000e-400", 0.0F},
      {"one after all", "0." + std::string(300, '0') + "1e301", 1.0F},
  };
}

TEST(ParseFloatPrefixRange, EndsWhereAFloatLosesDigits) {
  for (const RangeCase& row : Ranges()) {
    EXPECT_EQ(InBits(ParseFloatPrefix(row.text)), InBits(row.expected)) << row.name;
  }
}

// --- Both ways are one
// -----------------------------------------------------------------------------

using Random = std::mt19937;

int Below(Random* random, int bound) {
  return std::uniform_int_distribution<int>(0, bound - 1)(*random);
}

#if defined(__GLIBC__)

std::string RandomPieces(Random* random) {
  static const std::vector<std::string> kPieces = {
      " ", "+",   "-",   ".",       "e",    "E",    "p",   "0x",    "0",     "1",
      "9", "37",  "000", "5",       "e-38", "e-45", "e38", "p-126", "p-149", "f",
      "A", "inf", "nan", "nan(0x1", "nan(", ")",    ",",   "\t",    "e-4",   "123456789",
  };
  std::string text;
  for (int count = Below(random, 7); count >= 0; --count) {
    text += kPieces[static_cast<std::size_t>(Below(random, static_cast<int>(kPieces.size())))];
  }
  return text;
}

// A float of any bits, in a form that C writes, to more or fewer digits than it has.
std::string RandomFloat(Random* random) {
  static constexpr std::array<const char*, 3> kForms{"%.*g", "%.*e", "%.*a"};
  float value = std::bit_cast<float>(static_cast<std::uint32_t>((*random)()));
  if (Below(random, 3) == 0) {
    value = std::ldexp(value, -200);
  }
  std::array<char, 400> text{};
  std::snprintf(text.data(), text.size(), kForms[static_cast<std::size_t>(Below(random, 3))],
                Below(random, 160), static_cast<double>(value));
  return text.data();
}

// What may stand in a not-a-number's brackets, some of it too great for any number.
std::string RandomNan(Random* random) {
  static const std::string kWordChars = "00123456789789xabfFz_";
  std::string text = "nan(";
  for (int count = Below(random, 28); count > 0; --count) {
    text += kWordChars[static_cast<std::size_t>(
        Below(random, Below(random, 2) == 0 ? 15 : static_cast<int>(kWordChars.size())))];
  }
  return text + (Below(random, 10) == 0 ? "" : ")");
}

std::string RandomText(Random* random) {
  switch (Below(random, 5)) {
    case 0:
      return RandomNan(random);
    case 1:
    case 2:
      return RandomFloat(random);
    default:
      return RandomPieces(random);
  }
}

TEST(ParseFloatPrefixText, AgreesWithTheCLibraryOnAnyText) {
  Random random(11);
  int numbers = 0;
  int none = 0;
  for (int round = 0; round < 100000 && !HasFailure(); ++round) {
    const std::string text = RandomText(&random);
    const std::optional<float> expected = testing::ReferenceFloat(text);
    EXPECT_EQ(InBits(ParseFloatPrefix(text)), InBits(expected)) << text;
    ++(expected ? numbers : none);
  }
  EXPECT_GT(numbers, 30000);
  EXPECT_GT(none, 10000);
}

#endif

#if QUINDLE_HAS_FLOAT_CHARS

bool HasAllDigits(std::optional<float> value) {
  return value && (*value == 0.0F || std::abs(*value) > std::numeric_limits<float>::min());
}

// Where digits are lost, the C libraries differ.
TEST(FloatByCLibraryDigits, AgreesWithTheOtherWay) {
  Random random(12);
  int compared = 0;
  for (int round = 0; round < 60000 && !HasFailure(); ++round) {
    std::array<char, 40> text{};
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()) >> 1U);
    std::snprintf(text.data(), text.size(), "%.*e", Below(&random, 20), static_cast<double>(value));
    const FloatDigits digits{text.data(), FloatBase::Decimal};
    if (!std::isfinite(value) || !HasAllDigits(FloatByChars(digits))) {
      continue;
    }
    EXPECT_EQ(InBits(FloatByCLibrary(digits)), InBits(FloatByChars(digits))) << text.data();
    ++compared;
  }
  EXPECT_GT(compared, 40000);
}

TEST(FixedByCLibraryDigits, AgreeWithTheOtherWay) {
  Random random(13);
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double value : {0.0, -0.0, 0.5, 1.5, 2.5, -1e300, infinity, -infinity, std::nan("")}) {
    EXPECT_EQ(FixedByCLibrary(value, 3), FixedByChars(value, 3));
  }
  for (int round = 0; round < 100000 && !HasFailure(); ++round) {
    const auto value =
        static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
    const int decimals = Below(&random, 65);
    if (std::isfinite(value)) {
      EXPECT_EQ(FixedByCLibrary(value, decimals), FixedByChars(value, decimals)) << decimals;
    }
  }
}

#endif

TEST(FloatByCLibraryDigits, AreReadInBothBases) {
  EXPECT_EQ(FloatByCLibrary({"1.5e1", FloatBase::Decimal}), 15.0F);
  EXPECT_EQ(FloatByCLibrary({"1.8p1", FloatBase::Hex}), 3.0F);
  EXPECT_EQ(FloatByCLibrary({"1e39", FloatBase::Decimal}), std::nullopt);
  EXPECT_EQ(FloatByCLibrary({"1e-60", FloatBase::Decimal}), std::nullopt);
}

// --- Locales -------------------------------------------------------------------------------------

TEST(FloatTextLocale, DoesNotCount) {
  const quindle::testing::GermanProcess process;
  ASSERT_TRUE(process.IsGerman()) << "the system has no German locale";
  ASSERT_EQ(std::strtof("1,5", nullptr), 1.5F) << "the locale does not use a comma";
  EXPECT_EQ(ParseFloatPrefix("1.5"), 1.5F);
  EXPECT_EQ(ParseFloatPrefix("1,5"), 1.0F);
  EXPECT_EQ(FloatByCLibrary({"1.5", FloatBase::Decimal}), 1.5F);
  EXPECT_EQ(FormatFixed(1234.5, 1), "1234.5");
  EXPECT_EQ(FixedByCLibrary(1234.5, 1), "1234.5");
}

// --- Written -------------------------------------------------------------------------------------

TEST(FormatFixedText, HasExactlyTheDecimals) {
  EXPECT_EQ(FormatFixed(1.5, 0), "2");
  EXPECT_EQ(FormatFixed(2.5, 0), "2");
  EXPECT_EQ(FormatFixed(-0.125, 2), "-0.12");
  EXPECT_EQ(FormatFixed(0.1, 20), "0.10000000000000000555");
  EXPECT_EQ(FormatFixed(1e22, 1), "10000000000000000000000.0");
  EXPECT_EQ(FormatFixed(std::numeric_limits<double>::max(), 64).size(), 309U + 65);
}

TEST(FormatFixedText, SaysInWordsWhatIsNoNumber) {
  EXPECT_EQ(FormatFixed(std::numeric_limits<double>::infinity(), 2), "inf");
  EXPECT_EQ(FormatFixed(-std::numeric_limits<double>::infinity(), 2), "-inf");
  EXPECT_EQ(FormatFixed(std::nan(""), 2), "nan");
}

}  // namespace
}  // namespace quindle::frontend::gui

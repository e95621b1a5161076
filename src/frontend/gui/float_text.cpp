#include "frontend/gui/float_text.h"

#include <locale.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "utils/ascii_text.h"

namespace quindle::frontend::gui {
namespace {

// The C locale, for conversions that must not follow the process locale.
class CLocale {
 public:
  CLocale() : handle_(newlocale(LC_ALL_MASK, "C", nullptr)) {}
  ~CLocale() { freelocale(handle_); }
  CLocale(const CLocale&) = delete;
  CLocale& operator=(const CLocale&) = delete;
  CLocale(CLocale&&) = delete;
  CLocale& operator=(CLocale&&) = delete;

  locale_t Get() const { return handle_; }

 private:
  locale_t handle_;
};

// Leaves the host's errno as it was.
class ErrnoGuard {
 public:
  ErrnoGuard() : former_(errno) { errno = 0; }
  ~ErrnoGuard() { errno = former_; }
  ErrnoGuard(const ErrnoGuard&) = delete;
  ErrnoGuard& operator=(const ErrnoGuard&) = delete;
  ErrnoGuard(ErrnoGuard&&) = delete;
  ErrnoGuard& operator=(ErrnoGuard&&) = delete;

 private:
  int former_;
};

struct Conversion {
  float value = 0.0F;
  std::size_t length = 0;  // Bytes converted; 0 when there was no number.
  bool out_of_range = false;
};

Conversion ConvertPrefix(const std::string& text) {
  static const CLocale c_locale;
  const ErrnoGuard guard;
  char* end = nullptr;
  Conversion conversion;
  conversion.value = strtof_l(text.c_str(), &end, c_locale.Get());
  conversion.length = static_cast<std::size_t>(end - text.c_str());
  conversion.out_of_range = errno == ERANGE;
  return conversion;
}

bool IsSign(char c) {
  return c == '+' || c == '-';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsExponentMark(char c) {
  return c == 'e' || c == 'E';
}

// The bytes that extraction gathers from the front of `text` before it converts them.
std::size_t ExtractionLength(std::string_view text) {
  const auto sign_at = [text](std::size_t i) { return i < text.size() && IsSign(text[i]); };
  bool digit_seen = false;
  bool point_seen = false;
  bool exponent_seen = false;
  std::size_t i = sign_at(0) ? 1 : 0;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (IsDigit(c)) {
      digit_seen = true;
    } else if (c == '.' && !point_seen && !exponent_seen) {
      point_seen = true;
    } else if (IsExponentMark(c) && digit_seen && !exponent_seen) {
      exponent_seen = true;
      i += sign_at(i + 1) ? std::size_t{1} : 0;
    } else {
      break;
    }
  }
  return i;
}

}  // namespace

std::optional<float> ExtractFloat(std::string_view* text) {
  *text = utils::trim_leading_space(*text);
  const std::string gathered(text->substr(0, ExtractionLength(*text)));
  text->remove_prefix(gathered.size());
  const Conversion conversion = ConvertPrefix(gathered);
  const bool complete = !gathered.empty() && conversion.length == gathered.size();
  if (!complete || std::isinf(conversion.value)) {
    return std::nullopt;
  }
  return conversion.value;
}

std::optional<float> ParseFloatPrefix(const std::string& text) {
  const Conversion conversion = ConvertPrefix(text);
  if (conversion.length == 0 || conversion.out_of_range) {
    return std::nullopt;
  }
  return conversion.value;
}

std::string FormatFixed(double value, int decimals) {
  // The greatest double has 309 digits before the point.
  std::array<char, 384> buffer{};
  const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                    value, std::chars_format::fixed, decimals);
  return {buffer.data(), result.ptr};
}

}  // namespace quindle::frontend::gui

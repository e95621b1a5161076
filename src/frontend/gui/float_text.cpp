#include "frontend/gui/float_text.h"

#include <locale.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstdlib>

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

}  // namespace

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

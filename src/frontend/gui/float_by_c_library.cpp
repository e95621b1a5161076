// Floats by the C library, which follows the process's locale: only its decimal point matters here.

#include <cerrno>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <ios>
#include <locale>
#include <sstream>

#include "frontend/gui/float_conversion.h"

namespace quindle::frontend::gui {
namespace {

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

std::string WithLocalPoint(const FloatDigits& digits) {
  std::string text(digits.base == FloatBase::Hex ? "0x" : "");
  const std::size_t point = digits.text.find('.');
  text += digits.text.substr(0, point);
  if (point != std::string_view::npos) {
    text += std::localeconv()->decimal_point;
    text += digits.text.substr(point + 1);
  }
  return text;
}

}  // namespace

std::optional<float> FloatByCLibrary(const FloatDigits& digits) {
  const std::string text = WithLocalPoint(digits);
  const ErrnoGuard guard;
  const float value = std::strtof(text.c_str(), nullptr);
  if (errno == ERANGE) {
    return std::nullopt;
  }
  return value;
}

std::string FixedByCLibrary(double value, int decimals) {
  // A stream's words for these are up to the C library.
  if (!std::isfinite(value)) {
    return std::string(std::signbit(value) ? "-" : "") + (std::isnan(value) ? "nan" : "inf");
  }
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text.setf(std::ios_base::fixed, std::ios_base::floatfield);
  text.precision(decimals);
  text << value;
  return text.str();
}

}  // namespace quindle::frontend::gui

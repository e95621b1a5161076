#include "utils/path_utils.h"

namespace quindle::utils {
namespace {

std::string_view LastComponent(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

}  // namespace

std::string filename_from_path(std::string_view path) {
  return std::string(LastComponent(path));
}

std::string stem_or_filename_from_path(std::string_view path, std::string_view fallback) {
  const std::string_view name = LastComponent(path);
  if (name.empty() || name == "." || name == "..") {
    return std::string(fallback);
  }
  const std::size_t dot = name.rfind('.');
  const bool has_extension = dot != std::string_view::npos && dot != 0;
  return std::string(has_extension ? name.substr(0, dot) : name);
}

bool is_allowed_filename_char(char c) {
  constexpr std::string_view kReserved = "/\\:*?\"<>|";
  return c >= ' ' && c <= '~' && kReserved.find(c) == std::string_view::npos;
}

}  // namespace quindle::utils

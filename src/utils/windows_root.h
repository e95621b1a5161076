#pragma once

// Private. Which paths of Windows have nothing above them. Text alone: no file is looked at.

#include <cstddef>
#include <string_view>

namespace quindle::utils {

constexpr bool is_windows_separator(char16_t unit) {
  return unit == u'/' || unit == u'\\';
}

// Removes the separators in front of *rest, then the name behind them, which it returns.
constexpr std::u16string_view take_windows_name(std::u16string_view* rest) {
  while (!rest->empty() && is_windows_separator(rest->front())) {
    rest->remove_prefix(1);
  }
  const std::u16string_view name = rest->substr(0, rest->find_first_of(u"/\\"));
  rest->remove_prefix(name.size());
  return name;
}

// "\\server\share", and "\\?\C:" and "\\?\UNC\server\share", which say the same to the system
// alone. Two names make such a root, four with "UNC".
constexpr std::size_t names_of_network_root(std::u16string_view path) {
  const std::u16string_view first = take_windows_name(&path);
  const bool is_prefix = first == u"?" || first == u".";
  const std::u16string_view second = take_windows_name(&path);
  return is_prefix && (second == u"UNC" || second == u"unc") ? 4 : 2;
}

// True for the root of a drive ("C:\", "C:"), of the current one ("\"), and for a share of a
// server, with or without separators behind it.
constexpr bool is_windows_root(std::u16string_view path) {
  const bool is_network = path.size() > 2 && is_windows_separator(path[0]) &&
                          is_windows_separator(path[1]) && !is_windows_separator(path[2]);
  std::size_t names = is_network ? names_of_network_root(path) : 0;
  if (!is_network && path.size() > 1 && path[1] == u':') {
    path.remove_prefix(2);
  }
  for (; names > 0; --names) {
    take_windows_name(&path);
  }
  return path.find_first_not_of(u"/\\") == std::u16string_view::npos;
}

}  // namespace quindle::utils

#pragma once

/// The rules of the shader parsers once more, written for plainness with the standard library's own
/// streams and conversions: what the library's faster code must agree with. strtof follows the
/// process locale, so compare under the C locale only.

#include <algorithm>
#include <bit>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <locale>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "frontend/gui/shader_parameter_dialog.h"

namespace quindle::testing {

/// `text` without white space at both ends.
inline std::string ReferenceTrim(const std::string& text) {
  std::size_t begin = 0;
  std::size_t end = text.size();
  while (begin < end && std::isspace(static_cast<unsigned char>(text[begin])) != 0) {
    ++begin;
  }
  while (end > begin && std::isspace(static_cast<unsigned char>(text[end - 1])) != 0) {
    --end;
  }
  return text.substr(begin, end - begin);
}

/// Reads one declaration line; false when the line is none.
inline bool ReferenceDeclaration(std::string line, frontend::gui::ShaderParameterSpec* spec) {
  std::size_t begin = 0;
  while (begin < line.size() && std::isspace(static_cast<unsigned char>(line[begin])) != 0) {
    ++begin;
  }
  line.erase(0, begin);
  if (line.size() < 7 || line.compare(0, 7, "#pragma") != 0) {
    return false;
  }
  std::size_t at = line.find("parameter");
  if (at == std::string::npos) {
    return false;
  }
  at += 9;
  while (at < line.size() && std::isspace(static_cast<unsigned char>(line[at])) != 0) {
    ++at;
  }
  if (at == line.size()) {
    return false;
  }
  std::size_t end = at;
  while (end < line.size() && std::isspace(static_cast<unsigned char>(line[end])) == 0) {
    ++end;
  }
  spec->name = line.substr(at, end - at);
  const std::size_t open = line.find('"', end);
  const std::size_t close = open == std::string::npos ? open : line.find('"', open + 1);
  if (close == std::string::npos || close == open + 1) {
    return false;
  }
  spec->label = line.substr(open + 1, close - open - 1);
  std::istringstream numbers(line.substr(close + 1));
  numbers.imbue(std::locale::classic());
  numbers >> spec->default_value >> spec->min_value >> spec->max_value >> spec->step;
  if (numbers.fail()) {
    return false;
  }
  if (spec->min_value > spec->max_value) {
    std::swap(spec->min_value, spec->max_value);
  }
  if (!(spec->step > 0.0F)) {
    spec->step = 0.0F;
  }
  return true;
}

/// Reads a shader source's text.
inline std::vector<frontend::gui::ShaderParameterSpec> ReferenceDeclarations(
    const std::string& contents) {
  std::vector<frontend::gui::ShaderParameterSpec> specs;
  std::istringstream lines(contents);
  for (std::string line; std::getline(lines, line);) {
    frontend::gui::ShaderParameterSpec spec;
    if (ReferenceDeclaration(line, &spec)) {
      specs.push_back(spec);
    }
  }
  return specs;
}

/// A preset's line without line end and white space.
inline std::string ReferencePresetLine(std::string line) {
  if (!line.empty() && line.back() == '\r') {
    line.pop_back();
  }
  return ReferenceTrim(line);
}

/// The names of a preset's first list.
inline std::vector<std::string> ReferenceNames(const std::string& contents) {
  std::vector<std::string> names;
  std::istringstream lines(contents);
  for (std::string raw; std::getline(lines, raw);) {
    const std::string line = ReferencePresetLine(raw);
    if (line.size() < 11 || line.compare(0, 10, "parameters") != 0) {
      continue;
    }
    const std::size_t equals = line.find('=', 10);
    if (equals == std::string::npos) {
      continue;
    }
    std::string list = line.substr(equals + 1);
    const std::size_t open = list.find('"');
    const std::size_t close = open == std::string::npos ? open : list.find('"', open + 1);
    list =
        close == std::string::npos ? ReferenceTrim(list) : list.substr(open + 1, close - open - 1);
    std::istringstream pieces(list);
    for (std::string piece; std::getline(pieces, piece, ';');) {
      piece = ReferenceTrim(piece);
      if (!piece.empty()) {
        names.push_back(piece);
      }
    }
    break;
  }
  return names;
}

/// What std::stof makes of it, but that a NaN is always quiet and in range: one C library makes
/// another one out of "nan(7)", and some say ERANGE when the brackets hold too great a number.
inline std::optional<float> ReferenceFloat(const std::string& text) {
  char* end = nullptr;
  errno = 0;
  const float value = std::strtof(text.c_str(), &end);
  if (std::isnan(value)) {
    return std::bit_cast<float>(std::bit_cast<std::uint32_t>(value) | 0x400000U);
  }
  if (end == text.c_str() || errno == ERANGE) {
    return std::nullopt;
  }
  return value;
}

/// Reads a preset's text.
inline std::vector<frontend::gui::ShaderParameterValue> ReferenceOverrides(
    const std::string& contents) {
  std::vector<frontend::gui::ShaderParameterValue> values;
  const std::vector<std::string> names = ReferenceNames(contents);
  std::istringstream lines(contents);
  for (std::string raw; std::getline(lines, raw);) {
    const std::string line = ReferencePresetLine(raw);
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos || equals == 0) {
      continue;
    }
    const std::string key = ReferenceTrim(line.substr(0, equals));
    if (std::find(names.begin(), names.end(), key) == names.end()) {
      continue;
    }
    std::string text = ReferenceTrim(line.substr(equals + 1));
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
      text = text.substr(1, text.size() - 2);
    }
    if (const std::optional<float> value = ReferenceFloat(text)) {
      values.push_back({key, *value});
    }
  }
  return values;
}

}  // namespace quindle::testing

#include "json_output.h"

#include <iostream>

namespace quindle::demo {
namespace {

using nlohmann::ordered_json;

bool IsUtf8(const std::string& bytes) {
  try {
    static_cast<void>(ordered_json(bytes).dump());
    return true;
  } catch (const ordered_json::type_error&) {
    return false;
  }
}

std::string HexDigits(const std::string& bytes) {
  static constexpr char kFigures[] = "0123456789abcdef";
  std::string digits;
  digits.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    digits += kFigures[byte >> 4U];
    digits += kFigures[byte & 15U];
  }
  return digits;
}

}  // namespace

std::string JsonLine(const ordered_json& value) {
  return value.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

void PrintJsonLine(const ordered_json& value) {
  std::cout << JsonLine(value) << std::endl;
}

void AddPath(ordered_json* object, const std::string& key, const std::string& path) {
  (*object)[key] = path.empty() ? ordered_json(nullptr) : ordered_json(path);
  if (!IsUtf8(path)) {
    (*object)[key + "_hex"] = HexDigits(path);
  }
}

}  // namespace quindle::demo

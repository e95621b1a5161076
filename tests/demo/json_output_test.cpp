#include "json_output.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

namespace quindle::demo {
namespace {

using nlohmann::ordered_json;

std::string LineWithPath(const std::string& path) {
  ordered_json object;
  AddPath(&object, "path", path);
  return JsonLine(object);
}

// The path that a reader of the line gets back, byte for byte.
std::string PathFromLine(const std::string& line) {
  const auto object = nlohmann::json::parse(line);
  if (!object.contains("path_hex")) {
    return object["path"];
  }
  const std::string hex = object["path_hex"];
  std::string bytes;
  for (size_t i = 0; i < hex.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

TEST(JsonOutput, CancelledPathIsNull) {
  EXPECT_EQ(LineWithPath(""), R"({"path":null})");
}

TEST(JsonOutput, Utf8PathIsAString) {
  EXPECT_EQ(LineWithPath("a/Grüße.img"), R"({"path":"a/Grüße.img"})");
}

TEST(JsonOutput, OtherBytesAreGivenInHexadecimal) {
  EXPECT_EQ(LineWithPath("a\xFF.img"),
            "{\"path\":\"a\xEF\xBF\xBD.img\",\"path_hex\":\"61ff2e696d67\"}");
}

TEST(JsonOutput, EveryPathComesBackUnchanged) {
  std::string every_byte;
  for (int byte = 1; byte < 256; ++byte) {
    every_byte += static_cast<char>(byte);
  }
  for (const std::string& path :
       {std::string("plain"), std::string("line\nfeed\ttab"), std::string("\"quoted\\"),
        std::string("\xC3"), std::string("\xED\xA0\x80"), std::string("\xEF\xBF\xBD"),
        every_byte}) {
    EXPECT_EQ(PathFromLine(LineWithPath(path)), path);
  }
}

TEST(JsonOutput, IsAlwaysOneLine) {
  EXPECT_EQ(LineWithPath("a\nb\rc").find_first_of("\r\n"), std::string::npos);
}

TEST(JsonOutput, BrokenTextDoesNotThrow) {
  EXPECT_EQ(JsonLine({{"label", "\xFF"}}), "{\"label\":\"\xEF\xBF\xBD\"}");
}

TEST(JsonOutput, MembersKeepTheirOrder) {
  ordered_json object = {{"z", 1}, {"a", 2}};
  AddPath(&object, "m", "p");
  EXPECT_EQ(JsonLine(object), R"({"z":1,"a":2,"m":"p"})");
}

}  // namespace
}  // namespace quindle::demo

#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace quindle::demo {

// Prints `value` on stdout as one line and flushes. Bytes of its strings that are not UTF-8 appear
// as U+FFFD; use AddPath for what must be exact.
void PrintJsonLine(const nlohmann::ordered_json& value);

// The text that PrintJsonLine prints, without the line's end.
std::string JsonLine(const nlohmann::ordered_json& value);

// Adds the file system path `path`, given as its bytes, to `object` under `key`: null when empty,
// otherwise a string. A path that is not valid UTF-8 loses nothing: its bytes are then added as
// lower-case hexadecimal digits under `key` + "_hex", and bytes that cannot be shown appear as
// U+FFFD in the string.
void AddPath(nlohmann::ordered_json* object, const std::string& key, const std::string& path);

}  // namespace quindle::demo

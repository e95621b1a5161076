#include "opengl/shader_preset.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "utils/ascii_text.h"
#include "utils/file_utils.h"
#include "utils/path_text.h"

namespace quindle::opengl {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMaxReferenceDepth = 16;
constexpr std::string_view kFirstPassKey = "shader0";
constexpr std::string_view kReferenceWord = "#reference";

// What a preset says about its first pass; the views point into the preset's text.
struct PresetSources {
  std::optional<std::string_view> first_pass;
  std::optional<std::string_view> reference;
};

bool IsCommentMark(std::string_view text) {
  return text.starts_with('#') || text.starts_with("//");
}

// `text` up to the white space that stands before a comment. "#" and "//" inside a word belong to
// it, as in "a#b.glsl".
std::string_view WithoutComment(std::string_view text) {
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (utils::is_ascii_space(text[i - 1]) && IsCommentMark(text.substr(i))) {
      return text.substr(0, i);
    }
  }
  return text;
}

// The file name in the rest of a line: quoted (the closing quote may be missing) or bare.
std::string_view ReadFileName(std::string_view rest) {
  const std::string_view value = utils::trim_space(rest);
  if (value.starts_with('"')) {
    const std::string_view quoted = value.substr(1);
    return quoted.substr(0, quoted.find('"'));
  }
  return utils::trim_space(WithoutComment(rest));
}

std::optional<std::string_view> ReadReference(std::string_view line) {
  if (!line.starts_with(kReferenceWord)) {
    return std::nullopt;
  }
  const std::string_view rest = line.substr(kReferenceWord.size());
  const bool ends_word =
      rest.starts_with('"') || (!rest.empty() && utils::is_ascii_space(rest.front()));
  return ends_word ? std::optional(ReadFileName(rest)) : std::nullopt;
}

// A line that is commented out has another key, such as "//shader0".
std::optional<std::string_view> ReadFirstPass(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos ||
      utils::trim_space(line.substr(0, equals)) != kFirstPassKey) {
    return std::nullopt;
  }
  return ReadFileName(line.substr(equals + 1));
}

PresetSources FindSources(std::string_view text) {
  PresetSources sources;
  while (!text.empty() && !sources.first_pass) {
    const std::string_view line = utils::trim_space(utils::take_line(&text));
    sources.first_pass = ReadFirstPass(line);
    if (!sources.reference) {
      sources.reference = ReadReference(line);
    }
  }
  return sources;
}

// The path of the file that `preset` calls `name`; empty when it names none.
std::string ResolveFileName(const fs::path& preset, std::string_view name) {
  if (name.empty() || utils::path_from_text(name).is_absolute()) {
    return std::string(name);
  }
  const fs::path folder = preset.parent_path();
  fs::path path = folder / utils::path_from_text(name);
  std::error_code error;
  if (name.find('\\') != std::string_view::npos && !fs::exists(path, error)) {
    std::string slashes(name);
    std::replace(slashes.begin(), slashes.end(), '\\', '/');
    path = folder / utils::path_from_text(slashes);
  }
  return utils::text_from_path(utils::with_separators_of(preset, path.lexically_normal()));
}

std::string ReadPreset(const fs::path& path) {
  std::string text;
  std::string unused_error;
  utils::read_text_file(path, text, unused_error, nullptr, nullptr);
  return text;
}

// Some editors begin a file with a byte-order mark, which belongs to no line.
std::string_view WithoutByteOrderMark(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

}  // namespace

std::string ResolveGlslpFirstPass(const std::string& presetPath) {
  std::vector<fs::path> visited;
  fs::path preset = utils::path_from_text(presetPath);
  while (!preset.empty() && visited.size() <= kMaxReferenceDepth &&
         std::find(visited.begin(), visited.end(), preset.lexically_normal()) == visited.end()) {
    visited.push_back(preset.lexically_normal());
    const std::string text = ReadPreset(preset);
    const PresetSources sources = FindSources(WithoutByteOrderMark(text));
    if (sources.first_pass) {
      return ResolveFileName(preset, *sources.first_pass);
    }
    preset = utils::path_from_text(ResolveFileName(preset, sources.reference.value_or("")));
  }
  return {};
}

}  // namespace quindle::opengl

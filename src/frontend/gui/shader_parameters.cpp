// Declarations, preset overrides and snapping. No SDL call.

#include <algorithm>
#include <cmath>
#include <locale>
#include <optional>
#include <sstream>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "frontend/gui/float_text.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "opengl/shader_preset.h"
#include "utils/ascii_text.h"
#include "utils/file_utils.h"
#include "utils/path_text.h"
#include "utils/string_utils.h"

namespace quindle::frontend::gui {
namespace {

constexpr std::string_view kPragma = "#pragma";
constexpr std::string_view kParameter = "parameter";
constexpr std::string_view kParameterList = "parameters";
constexpr std::string_view kPresetExtension = ".glslp";

// Names point into the preset's text.
using NameSet = std::unordered_set<std::string_view>;

std::string_view TrimStr(std::string_view text) {
  return utils::trim_space(text);
}

std::string ExtLower(const std::string& path) {
  return utils::ascii_to_lower(utils::text_from_path(utils::path_from_text(path).extension()));
}

std::optional<std::string> ReadSource(const std::string& path) {
  std::string contents;
  std::string error;
  if (!utils::read_text_file(utils::path_from_text(path), contents, error, "cannot open file",
                             "cannot read file")) {
    return std::nullopt;
  }
  return contents;
}

// --- Declarations --------------------------------------------------------------------------------

// What follows "parameter" on a pragma line; nothing for any other line.
std::optional<std::string_view> DeclarationOnLine(std::string_view line) {
  line = utils::trim_leading_space(line);
  if (!line.starts_with(kPragma)) {
    return std::nullopt;
  }
  const std::size_t word = line.find(kParameter);
  if (word == std::string_view::npos) {
    return std::nullopt;
  }
  return line.substr(word + kParameter.size());
}

// Removes the name in front of *rest from it; empty when only white space is left.
std::string_view TakeName(std::string_view* rest) {
  *rest = utils::trim_leading_space(*rest);
  const auto end = std::find_if(rest->begin(), rest->end(), utils::is_ascii_space);
  const std::string_view name = rest->substr(0, static_cast<std::size_t>(end - rest->begin()));
  rest->remove_prefix(name.size());
  return name;
}

// The text between the first two double quotes of *rest, which is cut behind them; nothing when
// either is missing.
std::optional<std::string_view> TakeQuoted(std::string_view* rest) {
  const std::size_t open = rest->find('"');
  if (open == std::string_view::npos) {
    return std::nullopt;
  }
  const std::size_t close = rest->find('"', open + 1);
  if (close == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view quoted = rest->substr(open + 1, close - open - 1);
  rest->remove_prefix(close + 1);
  return quoted;
}

// With a decimal point, whatever locale the host has set.
bool ExtractNumbers(std::string_view rest, ShaderParameterSpec* spec) {
  std::istringstream numbers{std::string(rest)};
  numbers.imbue(std::locale::classic());
  numbers.exceptions(std::ios::badbit);  // Memory that ran out is no bad content.
  numbers >> spec->default_value >> spec->min_value >> spec->max_value >> spec->step;
  return !numbers.fail();
}

void NormaliseSpec(ShaderParameterSpec* spec) {
  if (spec->min_value > spec->max_value) {
    std::swap(spec->min_value, spec->max_value);
  }
  // Written so that a NaN becomes 0 as well.
  if (!(spec->step > 0.0F)) {
    spec->step = 0.0F;
  }
}

std::optional<ShaderParameterSpec> ParseDeclaration(std::string_view line) {
  std::optional<std::string_view> rest = DeclarationOnLine(line);
  if (!rest) {
    return std::nullopt;
  }
  const std::string_view name = TakeName(&*rest);
  const std::optional<std::string_view> label = TakeQuoted(&*rest);
  if (name.empty() || !label || label->empty()) {
    return std::nullopt;
  }
  ShaderParameterSpec spec;
  if (!ExtractNumbers(*rest, &spec)) {
    return std::nullopt;
  }
  spec.name = name;
  spec.label = *label;
  NormaliseSpec(&spec);
  return spec;
}

// --- Preset overrides ----------------------------------------------------------------------------

// A line of a preset without its white space and the line end's '\r'.
std::string_view TakePresetLine(std::string_view* rest) {
  return TrimStr(utils::take_line(rest));
}

// The list behind the '=' of a "parameters" line; nothing for any other line. What stands between
// the word and the '=' does not matter.
std::optional<std::string_view> ListOnLine(std::string_view line) {
  if (!line.starts_with(kParameterList)) {
    return std::nullopt;
  }
  const std::size_t equals = line.find('=', kParameterList.size());
  if (equals == std::string_view::npos) {
    return std::nullopt;
  }
  std::string_view list = line.substr(equals + 1);
  const std::optional<std::string_view> quoted = TakeQuoted(&list);
  return quoted ? *quoted : list;
}

NameSet SplitNames(std::string_view list) {
  NameSet names;
  while (!list.empty()) {
    const std::string_view piece = list.substr(0, list.find(';'));
    list.remove_prefix(std::min(piece.size() + 1, list.size()));
    const std::string_view name = TrimStr(piece);
    if (!name.empty()) {
      names.insert(name);
    }
  }
  return names;
}

// The names of the first list; later ones do not count, even when it is empty.
NameSet ReadListedNames(std::string_view contents) {
  while (!contents.empty()) {
    const std::optional<std::string_view> list = ListOnLine(TakePresetLine(&contents));
    if (list) {
      return SplitNames(*list);
    }
  }
  return {};
}

std::string_view WithoutQuotes(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

std::optional<ShaderParameterValue> ParseValueLine(std::string_view line, const NameSet& names) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view key = TrimStr(line.substr(0, equals));
  // No listed name is empty, so an empty key drops out here too.
  if (names.count(key) == 0) {
    return std::nullopt;
  }
  const std::string_view text = WithoutQuotes(TrimStr(line.substr(equals + 1)));
  const std::optional<float> value = ParseFloatPrefix(std::string(text));
  if (!value) {
    return std::nullopt;
  }
  return ShaderParameterValue{std::string(key), *value};
}

// --- Bounds --------------------------------------------------------------------------------------

// The order of the operands makes a NaN the lower bound.
float ClampToBounds(const ShaderParameterSpec& spec, float v) {
  return std::min(spec.max_value, std::max(spec.min_value, v));
}

}  // namespace

std::string ResolveShaderGlslPath(const std::string& path) {
  return ExtLower(path) == kPresetExtension ? opengl::ResolveGlslpFirstPass(path) : path;
}

std::vector<ShaderParameterSpec> ParseShaderParameterSpecs(const std::string& path) {
  std::vector<ShaderParameterSpec> specs;
  const std::optional<std::string> contents = ReadSource(ResolveShaderGlslPath(path));
  if (!contents) {
    return specs;
  }
  std::string_view rest = *contents;
  while (!rest.empty()) {
    std::optional<ShaderParameterSpec> spec = ParseDeclaration(utils::take_line(&rest));
    if (spec) {
      specs.push_back(std::move(*spec));
    }
  }
  return specs;
}

std::vector<ShaderParameterValue> ParseGlslpParameterOverrides(const std::string& preset_path) {
  std::vector<ShaderParameterValue> values;
  if (ExtLower(preset_path) != kPresetExtension) {
    return values;
  }
  const std::optional<std::string> contents = ReadSource(preset_path);
  if (!contents) {
    return values;
  }
  const NameSet names = ReadListedNames(*contents);
  std::string_view rest = *contents;
  while (!names.empty() && !rest.empty()) {
    std::optional<ShaderParameterValue> value = ParseValueLine(TakePresetLine(&rest), names);
    if (value) {
      values.push_back(std::move(*value));
    }
  }
  return values;
}

float SnapToStep(const ShaderParameterSpec& spec, float v) {
  const float clamped = ClampToBounds(spec, v);
  if (spec.step <= 0.0F) {
    return clamped;
  }
  const float steps = std::round((clamped - spec.min_value) / spec.step);
  return ClampToBounds(spec, spec.step * steps + spec.min_value);
}

ShaderDialogResult InitializeShaderDialogResult(const std::vector<ShaderParameterSpec>& specs,
                                                const std::vector<ShaderParameterValue>& current) {
  std::unordered_map<std::string_view, float> first_values;
  for (const ShaderParameterValue& value : current) {
    first_values.emplace(value.name, value.value);
  }
  ShaderDialogResult result;
  result.values.reserve(specs.size());
  for (const ShaderParameterSpec& spec : specs) {
    const auto found = first_values.find(spec.name);
    const float start = found == first_values.end() ? spec.default_value : found->second;
    result.values.push_back({spec.name, SnapToStep(spec, start)});
  }
  return result;
}

}  // namespace quindle::frontend::gui

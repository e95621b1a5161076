#pragma once

/// What must hold for the shader parsers whatever bytes they are given. The fuzz targets and the
/// test that replays their inputs share these; each throws std::logic_error when something does not
/// hold. The process must run under the C locale.

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "frontend/gui/shader_parameter_dialog.h"
#include "support/shader_reference.h"
#include "support/temporary_directory.h"

namespace quindle::testing {

/// The folder in which inputs become files; made once, as making one costs more than a parse.
inline const TemporaryDirectory& FuzzFolder() {
  static const TemporaryDirectory folder;
  return folder;
}

/// Throws when `holds` is false.
inline void Require(bool holds, const char* rule) {
  if (!holds) {
    throw std::logic_error(rule);
  }
}

/// True when both are the same float, bit by bit.
inline bool IsSameFloat(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

/// Checks one declaration against the one that the plain rules give, and what the dialog makes of
/// it.
inline void CheckSpec(const frontend::gui::ShaderParameterSpec& spec,
                      const frontend::gui::ShaderParameterSpec& expected) {
  Require(spec.name == expected.name && spec.label == expected.label, "texts differ");
  Require(IsSameFloat(spec.default_value, expected.default_value) &&
              IsSameFloat(spec.min_value, expected.min_value) &&
              IsSameFloat(spec.max_value, expected.max_value) &&
              IsSameFloat(spec.step, expected.step),
          "numbers differ");
  Require(!spec.name.empty() && !spec.label.empty(), "empty name or label");
  Require(
      std::isfinite(spec.default_value) && spec.min_value <= spec.max_value && spec.step >= 0.0F,
      "numbers are not in order");
  const frontend::gui::ShaderDialogGeometry geometry;
  for (const float value : {frontend::gui::SnapToStep(spec, spec.default_value),
                            frontend::gui::ShaderDialogValueFromMouse(spec, geometry, 300)}) {
    Require(value >= spec.min_value && value <= spec.max_value, "value out of bounds");
  }
}

/// Takes `bytes` for a shader's source.
inline void CheckDeclarations(const std::string& bytes) {
  const std::string file = FuzzFolder().Write("shader.glsl", bytes).string();
  const auto specs = frontend::gui::ParseShaderParameterSpecs(file);
  const auto expected = ReferenceDeclarations(bytes);
  Require(specs.size() == expected.size(), "number of declarations differs");
  for (std::size_t i = 0; i < specs.size(); ++i) {
    CheckSpec(specs[i], expected[i]);
  }
  const auto start = frontend::gui::InitializeShaderDialogResult(specs, {});
  Require(start.values.size() == specs.size(), "number of starting values differs");
}

/// Takes `bytes` for a preset's text.
inline void CheckOverrides(const std::string& bytes) {
  const std::string file = FuzzFolder().Write("preset.glslp", bytes).string();
  const auto values = frontend::gui::ParseGlslpParameterOverrides(file);
  const auto expected = ReferenceOverrides(bytes);
  Require(values.size() == expected.size(), "number of values differs");
  for (std::size_t i = 0; i < values.size(); ++i) {
    Require(values[i].name == expected[i].name, "names differ");
    Require(IsSameFloat(values[i].value, expected[i].value), "values differ");
  }
}

/// Takes `bytes` for three presets with a NUL byte between them, which may refer to each other, and
/// resolves the first.
inline void CheckResolution(const std::string& bytes) {
  std::string rest = bytes;
  for (const char* name : {"a.glslp", "b.glslp", "c.glslp"}) {
    const std::size_t end = rest.find('\0');
    FuzzFolder().Write(name, rest.substr(0, end));
    rest = end == std::string::npos ? std::string() : rest.substr(end + 1);
  }
  const std::string preset = (FuzzFolder().path() / "a.glslp").string();
  const std::string source = frontend::gui::ResolveShaderGlslPath(preset);
  Require(source == frontend::gui::ResolveShaderGlslPath(preset), "not the same twice");
  Require(source.empty() || std::filesystem::path(source).is_absolute(),
          "the preset's folder is missing");
}

}  // namespace quindle::testing

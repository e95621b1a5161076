#pragma once

/// Shader presets (".glslp").

#include <string>

#include "opengl/export.h"

namespace quindle::opengl {

/// Finds the shader source of a preset's first pass.
///
/// The first line whose key is exactly `shader0` counts; comment lines (`#`, `//`) and a byte-order
/// mark in front do not. The value may stand in double quotes. A relative path is joined to the
/// folder of the preset that holds the line and normalised lexically; an absolute one is returned
/// as written. A backslash separates components when no file of that exact name exists. A preset
/// without `shader0` that says `#reference "other.glslp"` is followed, at most 16 deep and never in
/// a circle. Whether the shader source exists is not checked. Never throws for a file's content or
/// state. Callable from any thread.
/// @param presetPath the preset file; on Windows UTF-8, and its separators are the result's
/// @return the path of the shader source, relative when `presetPath` is; empty when the preset
/// cannot be read or names none
QUINDLE_OPENGL_EXPORT std::string ResolveGlslpFirstPass(const std::string& presetPath);

}  // namespace quindle::opengl

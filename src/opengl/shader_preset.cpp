#include "opengl/shader_preset.h"

namespace quindle::opengl {

std::string ResolveGlslpFirstPass(const std::string&) {
  return {};
}

}  // namespace quindle::opengl

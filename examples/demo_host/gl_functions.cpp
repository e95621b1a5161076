#include "gl_functions.h"

#include <SDL.h>

#include <stdexcept>
#include <string>

namespace quindle::demo {
namespace {

template <typename Function>
void Load(const char* name, Function* function) {
  // SDL hands out data pointers for functions.
  *function = reinterpret_cast<Function>(SDL_GL_GetProcAddress(name));
  if (*function == nullptr) {
    throw std::runtime_error(std::string("the OpenGL driver has no ") + name);
  }
}

}  // namespace

GlFunctions LoadGlFunctions() {
  GlFunctions functions;
#define QUINDLE_GL_LOAD(name, type) Load("gl" #name, &functions.name);
  QUINDLE_GL_FUNCTIONS(QUINDLE_GL_LOAD)
#undef QUINDLE_GL_LOAD
  return functions;
}

}  // namespace quindle::demo

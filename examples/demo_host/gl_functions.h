#pragma once

#include <SDL_opengl.h>

namespace quindle::demo {

// The OpenGL functions that the shader pass calls, by their names without "gl": X(Name, type).
// None is linked; SDL finds them in the driver.
#define QUINDLE_GL_FUNCTIONS(X)                              \
  X(AttachShader, PFNGLATTACHSHADERPROC)                     \
  X(BindFramebuffer, PFNGLBINDFRAMEBUFFERPROC)               \
  X(BindTexture, decltype(&glBindTexture))                   \
  X(CheckFramebufferStatus, PFNGLCHECKFRAMEBUFFERSTATUSPROC) \
  X(CompileShader, PFNGLCOMPILESHADERPROC)                   \
  X(CreateProgram, PFNGLCREATEPROGRAMPROC)                   \
  X(CreateShader, PFNGLCREATESHADERPROC)                     \
  X(DeleteShader, PFNGLDELETESHADERPROC)                     \
  X(FramebufferTexture2D, PFNGLFRAMEBUFFERTEXTURE2DPROC)     \
  X(GenFramebuffers, PFNGLGENFRAMEBUFFERSPROC)               \
  X(GenTextures, decltype(&glGenTextures))                   \
  X(GetProgramInfoLog, PFNGLGETPROGRAMINFOLOGPROC)           \
  X(GetProgramiv, PFNGLGETPROGRAMIVPROC)                     \
  X(GetShaderInfoLog, PFNGLGETSHADERINFOLOGPROC)             \
  X(GetShaderiv, PFNGLGETSHADERIVPROC)                       \
  X(GetUniformLocation, PFNGLGETUNIFORMLOCATIONPROC)         \
  X(LinkProgram, PFNGLLINKPROGRAMPROC)                       \
  X(ReadPixels, decltype(&glReadPixels))                     \
  X(Rectf, decltype(&glRectf))                               \
  X(ShaderSource, PFNGLSHADERSOURCEPROC)                     \
  X(TexImage2D, decltype(&glTexImage2D))                     \
  X(TexParameteri, decltype(&glTexParameteri))               \
  X(Uniform1f, PFNGLUNIFORM1FPROC)                           \
  X(Uniform1i, PFNGLUNIFORM1IPROC)                           \
  X(Uniform2f, PFNGLUNIFORM2FPROC)                           \
  X(UseProgram, PFNGLUSEPROGRAMPROC)                         \
  X(Viewport, decltype(&glViewport))

struct GlFunctions {
#define QUINDLE_GL_MEMBER(name, type) type name = nullptr;
  QUINDLE_GL_FUNCTIONS(QUINDLE_GL_MEMBER)
#undef QUINDLE_GL_MEMBER
};

// Finds the functions of the current context. Throws std::runtime_error that names the first one
// that the driver does not have.
GlFunctions LoadGlFunctions();

}  // namespace quindle::demo

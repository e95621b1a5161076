#include "shader_pass.h"

#include <stdexcept>

#include "gl_context_guard.h"

namespace quindle::demo {
namespace {

using frontend::gui::OwnedSdlSurface;

constexpr const char* kVertexSource =
    "#version 120\n"
    "varying vec2 Position;\n"
    "void main() {\n"
    "  gl_Position = gl_Vertex;\n"
    "  Position = gl_Vertex.xy * 0.5 + 0.5;\n"
    "}\n";

std::runtime_error NoOpenGl() {
  return std::runtime_error(std::string("no OpenGL context: ") + SDL_GetError());
}

using GetParameter = PFNGLGETSHADERIVPROC;
using GetLog = PFNGLGETSHADERINFOLOGPROC;

// Throws with the driver's words when compiling or linking `object` failed.
void RequireSuccess(GLuint object, GLenum status, GetParameter get_parameter, GetLog get_log) {
  GLint good = GL_FALSE;
  get_parameter(object, status, &good);
  if (good == GL_TRUE) {
    return;
  }
  std::string log(1024, '\0');
  GLsizei length = 0;
  get_log(object, static_cast<GLsizei>(log.size()), &length, log.data());
  log.resize(static_cast<size_t>(length));
  throw std::runtime_error("the shader does not compile: " + log);
}

GLuint Compile(const GlFunctions& gl, GLenum kind, const std::string& source) {
  const GLuint shader = gl.CreateShader(kind);
  const GLchar* text = source.c_str();
  gl.ShaderSource(shader, 1, &text, nullptr);
  gl.CompileShader(shader);
  RequireSuccess(shader, GL_COMPILE_STATUS, gl.GetShaderiv, gl.GetShaderInfoLog);
  return shader;
}

GLuint MakeTexture(const GlFunctions& gl) {
  GLuint texture = 0;
  gl.GenTextures(1, &texture);
  gl.BindTexture(GL_TEXTURE_2D, texture);
  for (const int filter : {GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER}) {
    gl.TexParameteri(GL_TEXTURE_2D, static_cast<GLenum>(filter), GL_LINEAR);
  }
  for (const int wrap : {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T}) {
    gl.TexParameteri(GL_TEXTURE_2D, static_cast<GLenum>(wrap), GL_CLAMP_TO_EDGE);
  }
  return texture;
}

}  // namespace

ShaderPass::ShaderPass(const std::string& source) {
  window_.reset(SDL_CreateWindow("Shader", 0, 0, 1, 1, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN));
  if (window_ == nullptr) {
    throw NoOpenGl();
  }
  context_.reset(SDL_GL_CreateContext(window_.get()));
  if (context_ == nullptr) {
    throw NoOpenGl();
  }
  gl_ = LoadGlFunctions();
  Build(source);
}

bool ShaderPass::IsCurrent() const {
  return SDL_GL_GetCurrentContext() == context_.get() && SDL_GL_GetCurrentWindow() == window_.get();
}

void ShaderPass::Build(const std::string& source) {
  program_ = gl_.CreateProgram();
  for (const GLuint shader :
       {Compile(gl_, GL_VERTEX_SHADER, kVertexSource), Compile(gl_, GL_FRAGMENT_SHADER, source)}) {
    gl_.AttachShader(program_, shader);
    gl_.DeleteShader(shader);
  }
  gl_.LinkProgram(program_);
  RequireSuccess(program_, GL_LINK_STATUS, gl_.GetProgramiv, gl_.GetProgramInfoLog);
  picture_texture_ = MakeTexture(gl_);
  target_texture_ = MakeTexture(gl_);
  gl_.GenFramebuffers(1, &framebuffer_);
}

void ShaderPass::SetParameters(const std::vector<frontend::gui::ShaderParameterValue>& values) {
  const GlContextGuard former;
  SDL_GL_MakeCurrent(window_.get(), context_.get());
  gl_.UseProgram(program_);
  for (const frontend::gui::ShaderParameterValue& value : values) {
    // A location of -1 is passed over by OpenGL itself.
    gl_.Uniform1f(gl_.GetUniformLocation(program_, value.name.c_str()), value.value);
  }
}

OwnedSdlSurface ShaderPass::Render(SDL_Surface* picture, int width, int height) {
  const GlContextGuard former;
  SDL_GL_MakeCurrent(window_.get(), context_.get());
  OwnedSdlSurface result(
      SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_RGBA32));
  gl_.BindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
  if (result == nullptr || !ResizeTarget(width, height)) {
    return nullptr;
  }
  gl_.UseProgram(program_);
  Upload(picture);
  gl_.Viewport(0, 0, width, height);
  gl_.Rectf(-1.0F, -1.0F, 1.0F, 1.0F);
  // The first row read is the bottom one, into which the picture's top row was drawn.
  gl_.ReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, result->pixels);
  return result;
}

void ShaderPass::Upload(SDL_Surface* picture) {
  const OwnedSdlSurface pixels(SDL_ConvertSurfaceFormat(picture, SDL_PIXELFORMAT_RGBA32, 0));
  if (pixels == nullptr) {
    return;
  }
  gl_.BindTexture(GL_TEXTURE_2D, picture_texture_);
  gl_.TexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, pixels->w, pixels->h, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 pixels->pixels);
  gl_.Uniform1i(gl_.GetUniformLocation(program_, "Picture"), 0);
  gl_.Uniform2f(gl_.GetUniformLocation(program_, "PictureSize"), static_cast<GLfloat>(pixels->w),
                static_cast<GLfloat>(pixels->h));
}

bool ShaderPass::ResizeTarget(int width, int height) {
  if (width != target_width_ || height != target_height_) {
    gl_.BindTexture(GL_TEXTURE_2D, target_texture_);
    gl_.TexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    gl_.FramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, target_texture_,
                             0);
    target_width_ = width;
    target_height_ = height;
  }
  return gl_.CheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
}

}  // namespace quindle::demo

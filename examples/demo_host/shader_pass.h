#pragma once

#include <SDL.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "gl_functions.h"

namespace quindle::demo {

struct DeleteGlContext {
  void operator()(void* context) const noexcept { SDL_GL_DeleteContext(context); }
};
using OwnedGlContext = std::unique_ptr<std::remove_pointer_t<SDL_GLContext>, DeleteGlContext>;

// Runs one fragment shader over a picture, in an OpenGL context of its own that no window shows.
// That context is current from the start; if another one is, it stays so. The shader gets
//   varying vec2 Position       0 .. 1 from the top-left corner
//   uniform sampler2D Picture   the picture
//   uniform vec2 PictureSize    its size in pixels
// and a uniform float for each parameter.
class ShaderPass {
 public:
  // Throws std::runtime_error when there is no OpenGL, or with the driver's words when it does not
  // take the shader. `source` is the fragment shader's text.
  explicit ShaderPass(const std::string& source);
  ShaderPass(const ShaderPass&) = delete;
  ShaderPass& operator=(const ShaderPass&) = delete;
  ShaderPass(ShaderPass&&) = delete;
  ShaderPass& operator=(ShaderPass&&) = delete;
  ~ShaderPass() = default;

  // Sets the uniforms of these names; those that the shader does not have are passed over.
  void SetParameters(const std::vector<frontend::gui::ShaderParameterValue>& values);

  // Whether its context is the current one.
  bool IsCurrent() const;

  // Draws `picture` through the shader at `width` x `height` pixels, which are 1 or more. Null when
  // the driver refuses.
  frontend::gui::OwnedSdlSurface Render(SDL_Surface* picture, int width, int height);

 private:
  void Build(const std::string& source);
  void Upload(SDL_Surface* picture);
  bool ResizeTarget(int width, int height);

  frontend::gui::OwnedSdlWindow window_;
  OwnedGlContext context_;
  GlFunctions gl_;
  GLuint program_ = 0;  // This and what follows goes with the context.
  GLuint picture_texture_ = 0;
  GLuint target_texture_ = 0;
  GLuint framebuffer_ = 0;
  int target_width_ = 0;
  int target_height_ = 0;
};

}  // namespace quindle::demo

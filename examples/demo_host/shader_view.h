#pragma once

#include <memory>
#include <string>
#include <vector>

#include "demo_session.h"
#include "guest_view.h"
#include "shader_pass.h"

namespace quindle::demo {

// Shows the guest picture through a fragment shader, or as it is where that is not possible.
class ShaderGuestView : public GuestView {
 public:
  // Compiles the shader file `path`. A failure is kept for the status line.
  explicit ShaderGuestView(const std::string& path);

  // The values from the next picture on.
  void SetParameters(const std::vector<frontend::gui::ShaderParameterValue>& values);
  // Those set last.
  const std::vector<frontend::gui::ShaderParameterValue>& Parameters() const { return parameters_; }

  void Draw(SDL_Renderer* renderer, const GuestPicture& picture, const SDL_Rect& area) override;
  bool IsReady() const override { return pass_ == nullptr || pass_->IsCurrent(); }
  std::string Describe() const override { return description_; }

 private:
  std::unique_ptr<ShaderPass> pass_;  // Null when it could not be made.
  PlainGuestView plain_;
  std::string description_;
  std::vector<frontend::gui::ShaderParameterValue> parameters_;
};

// The preset that the demo window shows its picture with.
inline constexpr const char* kDemoPreset = "data/shaders/demo_crt.glslp";

// Shows the session's picture through the demo's shader, with the preset's values; the view that is
// there already, if it is one.
ShaderGuestView& InstallShaderView(DemoSession& session);
// Shows it through the shader, or as it is when it was shown through the shader.
void ToggleShaderView(DemoSession& session);

}  // namespace quindle::demo

#pragma once

#include <memory>
#include <string>
#include <vector>

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

  void Draw(SDL_Renderer* renderer, const GuestPicture& picture, const SDL_Rect& area) override;
  std::string Describe() const override { return description_; }

 private:
  std::unique_ptr<ShaderPass> pass_;  // Null when it could not be made.
  PlainGuestView plain_;
  std::string description_;
};

}  // namespace quindle::demo

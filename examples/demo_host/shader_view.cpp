#include "shader_view.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "file_paths.h"
#include "frontend/gui/shader_parameter_dialog.h"

namespace quindle::demo {
namespace {

namespace gui = frontend::gui;

std::string ReadFile(const std::string& path) {
  std::ifstream file(PathOf(path), std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  if (!file) {
    throw std::runtime_error("cannot read " + path);
  }
  return text.str();
}

}  // namespace

ShaderGuestView::ShaderGuestView(const std::string& path) {
  try {
    pass_ = std::make_unique<ShaderPass>(ReadFile(path));
    description_ = "shader: " + TextOf(PathOf(path).filename());
  } catch (const std::exception& error) {
    description_ = std::string("shader not shown: ") + error.what();
  }
}

void ShaderGuestView::SetParameters(
    const std::vector<frontend::gui::ShaderParameterValue>& values) {
  parameters_ = values;
  if (pass_ != nullptr) {
    pass_->SetParameters(values);
  }
}

void ShaderGuestView::Draw(SDL_Renderer* renderer, const GuestPicture& picture,
                           const SDL_Rect& area) {
  frontend::gui::OwnedSdlSurface shaded;
  if (pass_ != nullptr) {
    shaded = pass_->Render(picture.Canvas(), std::max(area.w, 1), std::max(area.h, 1));
  }
  const frontend::gui::OwnedSdlTexture texture(
      shaded == nullptr ? nullptr : SDL_CreateTextureFromSurface(renderer, shaded.get()));
  if (texture == nullptr) {
    plain_.Draw(renderer, picture, area);
    return;
  }
  SDL_RenderCopy(renderer, texture.get(), nullptr, &area);
}

ShaderGuestView& InstallShaderView(DemoSession& session) {
  if (auto* const installed = dynamic_cast<ShaderGuestView*>(session.view.get())) {
    return *installed;
  }
  auto view = std::make_unique<ShaderGuestView>(gui::ResolveShaderGlslPath(kDemoPreset));
  ShaderGuestView& installed = *view;
  session.view = std::move(view);
  installed.SetParameters(
      gui::InitializeShaderDialogResult(gui::ParseShaderParameterSpecs(kDemoPreset),
                                        gui::ParseGlslpParameterOverrides(kDemoPreset))
          .values);
  return installed;
}

void ToggleShaderView(DemoSession& session) {
  if (dynamic_cast<ShaderGuestView*>(session.view.get()) != nullptr) {
    session.view = std::make_unique<PlainGuestView>();
  } else {
    InstallShaderView(session);
  }
}

}  // namespace quindle::demo

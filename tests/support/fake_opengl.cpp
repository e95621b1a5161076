#include "support/fake_opengl.h"

namespace quindle::testing {

SDL_GLContext FakeOpenGl::Start(SDL_Window* window) {
  // Anything that is no renderer's; nobody looks into a context.
  static char host_context = 0;
  is_there_ = true;
  MakeCurrent(window, &host_context);
  return &host_context;
}

void FakeOpenGl::MakeCurrent(SDL_Window* window, SDL_GLContext context) {
  context_ = context;
  window_ = context == nullptr ? nullptr : window;
}

int FakeOpenGl::Attribute(SDL_GLattr attribute) const {
  const auto found = attributes_.find(attribute);
  return found == attributes_.end() ? 0 : found->second;
}

void FakeOpenGl::SetAttribute(SDL_GLattr attribute, int value) {
  attributes_[attribute] = value;
}

int FakeOpenGl::SwapInterval() const {
  const auto found = swap_intervals_.find(window_);
  return found == swap_intervals_.end() ? 0 : found->second;
}

void FakeOpenGl::SetSwapInterval(int interval) {
  swap_intervals_[window_] = interval;
}

void FakeOpenGl::RendererMade(SDL_Window* window, SDL_Renderer* renderer) {
  MakeCurrent(window, renderer);
  if (renderer != nullptr) {
    attributes_[SDL_GL_CONTEXT_PROFILE_MASK] = 0;
    attributes_[SDL_GL_CONTEXT_MAJOR_VERSION] = 2;
    attributes_[SDL_GL_CONTEXT_MINOR_VERSION] = 1;
    swap_intervals_.clear();
  }
}

void FakeOpenGl::RendererPresents(SDL_Window* window, SDL_Renderer* renderer) {
  MakeCurrent(window, renderer);
}

void FakeOpenGl::RendererEnds() {
  MakeCurrent(nullptr, nullptr);
}

void FakeOpenGl::WindowEnds(SDL_Window* window) {
  if (window == window_) {
    MakeCurrent(nullptr, nullptr);
  }
}

}  // namespace quindle::testing

#include "tour_pictures.h"

#include <SDL_image.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "file_paths.h"
#include "frontend/gui/sdl_modal_runtime.h"

namespace quindle::demo {
namespace {

using frontend::gui::OwnedSdlSurface;

OwnedSdlSurface MakeSurface(int width, int height) {
  OwnedSdlSurface surface(
      SDL_CreateRGBSurfaceWithFormat(0, width, height, 24, SDL_PIXELFORMAT_RGB24));
  if (surface == nullptr) {
    throw std::runtime_error(std::string("cannot make a picture: ") + SDL_GetError());
  }
  return surface;
}

OwnedSdlSurface ReadWindow(SDL_Window* window) {
  SDL_Renderer* renderer = SDL_GetRenderer(window);
  int width = 0;
  int height = 0;
  if (renderer == nullptr || SDL_GetRendererOutputSize(renderer, &width, &height) != 0) {
    throw std::runtime_error("cannot read a window that has no renderer");
  }
  OwnedSdlSurface picture = MakeSurface(width, height);
  if (SDL_RenderReadPixels(renderer, nullptr, SDL_PIXELFORMAT_RGB24, picture->pixels,
                           picture->pitch) != 0) {
    throw std::runtime_error(std::string("cannot read a window: ") + SDL_GetError());
  }
  return picture;
}

SDL_Point OffsetFrom(SDL_Window* host, SDL_Window* window) {
  SDL_Point origin{0, 0};
  SDL_Point corner{0, 0};
  SDL_GetWindowPosition(host, &origin.x, &origin.y);
  SDL_GetWindowPosition(window, &corner.x, &corner.y);
  return {corner.x - origin.x, corner.y - origin.y};
}

}  // namespace

TourPictures::TourPictures(std::filesystem::path folder) : folder_(std::move(folder)) {
  std::filesystem::create_directories(folder_);
}

void TourPictures::Save(SDL_Window* window, const std::string& name) {
  Write(ReadWindow(window).get(), name);
}

void TourPictures::SaveOver(SDL_Window* host, SDL_Window* window, const std::string& name) {
  const OwnedSdlSurface behind = ReadWindow(host);
  const OwnedSdlSurface front = ReadWindow(window);
  const SDL_Point at = OffsetFrom(host, window);
  // Grown where the dialog reaches past the host's edges.
  const OwnedSdlSurface both =
      MakeSurface(std::max(behind->w, at.x + front->w), std::max(behind->h, at.y + front->h));
  SDL_BlitSurface(behind.get(), nullptr, both.get(), nullptr);
  SDL_Rect target{at.x, at.y, front->w, front->h};
  SDL_BlitSurface(front.get(), nullptr, both.get(), &target);
  Write(both.get(), name);
}

void TourPictures::Write(SDL_Surface* picture, const std::string& name) {
  const std::string file = name + ".png";
  if (IMG_SavePNG(picture, TextOf(folder_ / file).c_str()) != 0) {
    throw std::runtime_error("cannot save " + TextOf(folder_ / file) + ": " + IMG_GetError());
  }
  names_.push_back(file);
}

std::vector<std::string> TourPictures::TakeNames() {
  return std::exchange(names_, {});
}

}  // namespace quindle::demo

#include "guest_view.h"

#include <algorithm>

namespace quindle::demo {

void PlainGuestView::Draw(SDL_Renderer* renderer, const GuestPicture& picture,
                          const SDL_Rect& area) {
  const frontend::gui::OwnedSdlTexture texture(
      SDL_CreateTextureFromSurface(renderer, picture.Canvas()));
  if (texture != nullptr) {
    SDL_RenderCopy(renderer, texture.get(), nullptr, &area);
  }
}

SDL_Rect FitGuestPicture(const SDL_Rect& area) {
  const int width = std::max(
      1, std::min(area.w, area.h * GuestPicture::kAspectWidth / GuestPicture::kAspectHeight));
  const int height = width * GuestPicture::kAspectHeight / GuestPicture::kAspectWidth;
  return {area.x + (area.w - width) / 2, area.y + (area.h - height) / 2, width,
          std::max(1, height)};
}

}  // namespace quindle::demo

#include "tour_camera.h"

#include "host_window.h"
#include "tour_pictures.h"

namespace quindle::demo {

std::function<void(SDL_Window*)> TourCamera::Take(const std::string& name) const {
  return [&pictures = pictures_, name](SDL_Window* dialog) { pictures.Save(dialog, name); };
}

std::function<void(SDL_Window*)> TourCamera::TakeOverHost(const std::string& name) const {
  return [&host = host_, &pictures = pictures_, name](SDL_Window* dialog) {
    host.Draw();
    pictures.SaveOver(host.Window(), dialog, name);
  };
}

TourPlay LookAndLeave(const std::string& name) {
  return [name](DialogDriver& user, const TourCamera& camera) {
    user.Do(camera.Take(name)).PressEscape();
  };
}

}  // namespace quindle::demo

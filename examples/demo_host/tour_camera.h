#pragma once

#include <SDL.h>

#include <functional>
#include <string>

#include "frontend/gui/testing/dialog_driver.h"

namespace quindle::demo {

using frontend::gui::testing::DialogDriver;

class HostWindow;
class TourPictures;

// Takes pictures as steps of a driver: user.Do(camera.Take("about")).PressEscape().
class TourCamera {
 public:
  // Lifetime: both must outlive the steps.
  TourCamera(HostWindow* host, TourPictures* pictures) : host_(*host), pictures_(*pictures) {}

  // A step that saves what the dialog shows as `name`.png in the tour's folder. Names are unique in
  // a tour; begin them with the command's name.
  std::function<void(SDL_Window*)> Take(const std::string& name) const;
  // As Take, with the demo window behind the dialog.
  std::function<void(SDL_Window*)> TakeOverHost(const std::string& name) const;

 private:
  HostWindow& host_;
  TourPictures& pictures_;
};

// Tells the driver what the user of a scene does.
using TourPlay = std::function<void(DialogDriver& user, const TourCamera& camera)>;

// A user who looks at the dialog, for the picture `name`, and leaves it by Escape.
TourPlay LookAndLeave(const std::string& name);

}  // namespace quindle::demo

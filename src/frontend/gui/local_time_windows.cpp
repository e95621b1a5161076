#include <time.h>

#include "frontend/gui/local_time.h"

namespace quindle::frontend::gui {

std::tm ToLocalTime(std::time_t time) {
  std::tm local{};
  // A failure fills in -1.
  if (localtime_s(&local, &time) != 0) {
    local = {};
  }
  return local;
}

}  // namespace quindle::frontend::gui

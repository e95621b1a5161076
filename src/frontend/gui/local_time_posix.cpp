#include <time.h>

#include "frontend/gui/local_time.h"

namespace quindle::frontend::gui {

std::tm ToLocalTime(std::time_t time) {
  std::tm local{};
  localtime_r(&time, &local);
  return local;
}

}  // namespace quindle::frontend::gui

#include "console.h"

namespace quindle::demo {

void JoinConsole() {}

}  // namespace quindle::demo

// SDL renames main on some systems, so its header stands here.
#include <SDL.h>

#include "command_line.h"

int main(int argc, char* argv[]) {
  return quindle::demo::RunDemo(argc, argv);
}

// SDL renames main on some systems, so its header stands here.
#include <SDL.h>

#include "command_line.h"
#include "console.h"

int main(int argc, char* argv[]) {
  quindle::demo::JoinConsole();
  return quindle::demo::RunDemo(argc, argv);
}

#include "command_table.h"

// One line for each dialog: X(Name) stands for MakeNameCommand(). See demo_command.h.
#define QUINDLE_DEMO_COMMANDS(X) \
  X(Message)                     \
  X(Floppy)                      \
  X(ShaderFile)                  \
  X(Font)                        \
  X(Folder)                      \
  X(Hdd)                         \
  X(Screenshot)                  \
  X(Shader)                      \
  X(Settings)                    \
  X(About)

namespace quindle::demo {

#define QUINDLE_DECLARE_COMMAND(name) std::unique_ptr<DemoCommand> Make##name##Command();
QUINDLE_DEMO_COMMANDS(QUINDLE_DECLARE_COMMAND)
#undef QUINDLE_DECLARE_COMMAND

DemoCommands MakeDemoCommands() {
  DemoCommands commands;
#define QUINDLE_ADD_COMMAND(name) commands.push_back(Make##name##Command());
  QUINDLE_DEMO_COMMANDS(QUINDLE_ADD_COMMAND)
#undef QUINDLE_ADD_COMMAND
  return commands;
}

}  // namespace quindle::demo

// window_manager_row NAME [ARGUMENT...] prints one row of the table of scripts/window_managers
// and, above it, the head of the table. Ends with 1 when a check does not hold.

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "window_manager_checks.h"

int main(int argc, char* argv[]) {
  const std::vector<std::string> command(argv + 1, argv + argc);
  if (command.empty()) {
    std::fprintf(stderr, "usage: window_manager_row NAME [ARGUMENT...]\n");
    return 2;
  }
  try {
    std::string names = "| window manager |";
    std::string line = "|---|";
    std::string row = "| " + command[0] + " |";
    std::string reasons;
    for (const auto& check : quindle::demo::RunWindowManagerChecks(command)) {
      names += ' ' + check.name + " |";
      line += "---|";
      row += ' ' + check.outcome + " |";
      if (!check.why.empty()) {
        reasons += command[0] + ", " + check.name + ": " + check.why + '\n';
      }
    }
    std::printf("%s\n%s\n%s\n", names.c_str(), line.c_str(), row.c_str());
    std::fputs(reasons.c_str(), stderr);
    return reasons.empty() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", command[0].c_str(), error.what());
    return 1;
  }
}

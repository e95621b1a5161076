#pragma once

namespace quindle::demo {

// Lets what is printed reach the console from which the program was started, where the system does
// not by itself. Call it first; a program that was started from none prints nowhere.
void JoinConsole();

}  // namespace quindle::demo

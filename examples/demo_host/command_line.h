#pragma once

namespace quindle::demo {

// The whole program: reads the arguments, runs what they ask for and returns the exit status. With
// no arguments it opens the demo window.
int RunDemo(int argc, const char* const* argv);

}  // namespace quindle::demo

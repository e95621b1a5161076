#pragma once

#include <string>

namespace quindle::demo {

// The library looks for its fonts in "data/ttf" under the working directory. Where there is none,
// this moves the process to the folder that holds "data": the program's own, the installed one, or
// the source tree from which the program was built. Call it once, before any path is used.
void EnterDataDirectory();

// A path that the user gave, which is relative to where the program was started: returned as it is
// while that is still the working directory, otherwise made absolute. Empty stays empty.
std::string ResolveUserPath(const std::string& path);

// A folder in which something is to be saved: `folder`, or where the program was started when that
// is empty. Stays empty while the program works where it was started.
std::string FolderOrStart(const std::string& folder);

}  // namespace quindle::demo

#pragma once

// The dialogs as the benchmarks show them: filled as a user's would be.

#include <SDL.h>

#include <span>
#include <string>

namespace quindle::bench {

struct BenchDialog {
  const char* name;  // One word, as a command line takes it.
  // Shows the dialog until it is told to quit; `folder` is what the pickers list.
  void (*show)(SDL_Window* parent, const std::string& folder);
};

// Every dialog once.
std::span<const BenchDialog> BenchDialogs();

// Null when there is none of this name.
const BenchDialog* FindBenchDialog(const std::string& name);

// Makes a folder with `count` empty files in it, half of them floppy images; removed at the
// program's end. The same folder for the same count.
const std::string& FolderOfFiles(int count);
// As FolderOfFiles, but all of them are floppy images.
const std::string& FolderOfImages(int count);

}  // namespace quindle::bench

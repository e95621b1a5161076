#pragma once

// What the fault tests do in each dialog. A scenario shows one dialog and plays a fixed script; it
// must end by itself whatever call fails on the way, because after its steps a quit comes in every
// frame.

#include <SDL.h>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace quindle::testing {

// Puts the pointer over the innermost dialog; how is the test program's business.
using PointAt = void (*)(int x, int y, bool left_down);

struct FaultScenario {
  const char* name;
  int windows;  // How many the script opens when nothing fails.
  void (*show)(SDL_Window* parent);
  std::vector<void (*)(PointAt point_at)> steps;
};

// All scenarios; they read what FaultSamples made in the working directory.
const std::vector<FaultScenario>& FaultScenarios();

// The files that the scenarios read, and a working directory that holds them and data/ttf.
class FaultSamples {
 public:
  explicit FaultSamples(const std::filesystem::path& source_directory);
  ~FaultSamples();
  FaultSamples(const FaultSamples&) = delete;
  FaultSamples& operator=(const FaultSamples&) = delete;
  FaultSamples(FaultSamples&&) = delete;
  FaultSamples& operator=(FaultSamples&&) = delete;

 private:
  std::filesystem::path former_directory_;
  std::filesystem::path directory_;
};

// Shows a scenario's dialog with its script as heartbeat. Returns false when the dialog went on for
// far more frames than the script needs (it is then broken off). Exceptions pass through; the
// heartbeat is removed in every case.
bool PlayScenario(const FaultScenario& scenario, SDL_Window* parent, PointAt point_at);

// Heartbeats of the last scenario played.
std::size_t FramesPlayed();

}  // namespace quindle::testing

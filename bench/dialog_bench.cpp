// Processor time of a frame of each dialog, on the software renderer.

#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

#include "bench_dialogs.h"
#include "frame_meter.h"

namespace quindle::bench {
namespace {

constexpr int kFrames = 1000;

void FramesOfDialog(benchmark::State& state, const BenchDialog& dialog) {
  const std::string& folder = FolderOfFiles(50);
  for ([[maybe_unused]] auto _ : state) {
    std::vector<Seconds> times = TimeFrames(kFrames + 1, [&] { dialog.show(nullptr, folder); });
    times.erase(times.begin());  // Opening.
    state.SetIterationTime(Median(std::move(times)).count());
  }
}

const int kRegistered = [] {
  for (const BenchDialog& dialog : BenchDialogs()) {
    benchmark::RegisterBenchmark(
        ("Dialogs/Frame/" + std::string(dialog.name)).c_str(),
        [&dialog](benchmark::State& state) { FramesOfDialog(state, dialog); })
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond)
        ->Iterations(1);
  }
  return 0;
}();

}  // namespace
}  // namespace quindle::bench

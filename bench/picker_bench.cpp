// How long the pickers take to list a folder, to open and to draw a frame, whatever it holds.

#include <SDL.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "allocation_meter.h"
#include "bench_dialogs.h"
#include "frame_meter.h"
#include "frontend/gui/sdl_pickers.h"
#include "utils/string_utils.h"

namespace quindle::bench {
namespace {

namespace fs = std::filesystem;
using frontend::gui::PickerEntry;
using frontend::gui::SdlPickerDialogOptions;

// The least that any listing has to do: one pass with the type that came with the directory, one
// lowered key for each accepted row, one sort of the keys. A picker's rows come on top.
std::vector<std::string> FloorListing(const fs::path& dir) {
  std::vector<std::string> keys;
  std::error_code error;
  for (fs::directory_iterator it(dir, error); !error && it != fs::directory_iterator();
       it.increment(error)) {
    if (it->is_regular_file(error) && frontend::gui::IsAllowedImagePickerEntry(it->path())) {
      keys.push_back(utils::ascii_to_lower(it->path().filename().native()));
    }
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

std::vector<PickerEntry> PickerListing(const fs::path& dir) {
  return frontend::gui::ReadFilteredPickerEntries(dir, frontend::gui::IsAllowedImagePickerEntry);
}

// Without the time that the release of the result takes.
template <typename Work>
Seconds TimeOf(Work work) {
  const Seconds start = ProcessorTime();
  const auto result = work();
  const Seconds time = ProcessorTime() - start;
  benchmark::DoNotOptimize(result.size());
  return time;
}

void ListingAgainstFloor(benchmark::State& state) {
  const fs::path dir = FolderOfFiles(static_cast<int>(state.range(0)));
  std::vector<Seconds> floor;
  std::vector<Seconds> picker;
  for ([[maybe_unused]] auto _ : state) {
    floor.push_back(TimeOf([&] { return FloorListing(dir); }));
    picker.push_back(TimeOf([&] { return PickerListing(dir); }));
    state.SetIterationTime(picker.back().count());
  }
  state.counters["floor_ms"] = 1000.0 * Median(floor).count();
  state.counters["ratio"] = Median(picker) / Median(floor);
  state.counters["limit"] = 1.3;
}
BENCHMARK(ListingAgainstFloor)
    ->Name("Pickers/ListingAgainstFloor")
    ->Arg(50)
    ->Arg(10000)
    ->Arg(100000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(15);
BENCHMARK(ListingAgainstFloor)
    ->Name("Pickers/ListingAgainstFloor")
    ->Arg(1000000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void BytesPerRow(benchmark::State& state) {
  const fs::path dir = FolderOfFiles(static_cast<int>(state.range(0)));
  for ([[maybe_unused]] auto _ : state) {
    const std::size_t before = AllocatedBytes();
    ResetPeakAllocatedBytes();
    const std::vector<PickerEntry> rows = PickerListing(dir);
    const auto count = static_cast<double>(rows.size());
    state.counters["bytes_per_row"] = static_cast<double>(AllocatedBytes() - before) / count;
    state.counters["peak_per_row"] = static_cast<double>(PeakAllocatedBytes() - before) / count;
  }
  state.counters["limit"] = 400;
}
BENCHMARK(BytesPerRow)->Name("Pickers/BytesPerRow")->Arg(100000)->Iterations(1);

// What LoadManyRows hands to the dialog; a loader is a plain function.
int g_row_count = 0;
std::size_t g_name_length = 0;  // Bytes, when the names are to be longer than they are anyway.

std::vector<PickerEntry> LoadManyRows(const fs::path& dir) {
  std::vector<PickerEntry> rows;
  for (int i = 0; i < g_row_count; ++i) {
    std::string name = "Disk " + std::to_string(100000 + i);
    name.append(std::max(g_name_length, name.size()) - name.size(),
                static_cast<char>('a' + i % 26));
    rows.push_back(PickerEntry{name, dir / name, false});
  }
  return rows;
}

SdlPickerDialogOptions OptionsWithRows(int count, std::size_t name_length) {
  g_row_count = count;
  g_name_length = name_length;
  SdlPickerDialogOptions options;
  options.title = "Benchmark";
  options.hint = "Select floppy image (*.ima, *.img)";
  options.start_dir = "/";
  options.load_entries = LoadManyRows;
  options.accept_label = "Open";
  options.cancel_label = "Cancel";
  return options;
}

Seconds MedianFrame(int row_count, std::size_t name_length = 0) {
  const SdlPickerDialogOptions options = OptionsWithRows(row_count, name_length);
  std::vector<Seconds> times =
      TimeFrames(60, [&options] { frontend::gui::RunSimplePickerDialog(nullptr, options); });
  times.erase(times.begin());  // Opening.
  return Median(std::move(times));
}

void FrameOfManyRowsAgainstFew(benchmark::State& state) {
  std::vector<Seconds> few;
  std::vector<Seconds> many;
  for ([[maybe_unused]] auto _ : state) {
    few.push_back(MedianFrame(30));
    many.push_back(MedianFrame(static_cast<int>(state.range(0))));
    state.SetIterationTime(many.back().count());
  }
  state.counters["frame_of_30_ms"] = 1000.0 * Median(few).count();
  state.counters["ratio"] = Median(many) / Median(few);
  state.counters["limit"] = 1.5;
}
BENCHMARK(FrameOfManyRowsAgainstFew)
    ->Name("Pickers/FrameOfManyRowsAgainst30")
    ->Arg(100000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

// Names that have to be cut against names that nearly fill the row: the measuring may not cost more
// than the drawing.
void FrameOfCutNamesAgainstFull(benchmark::State& state) {
  std::vector<Seconds> full;
  std::vector<Seconds> cut;
  for ([[maybe_unused]] auto _ : state) {
    full.push_back(MedianFrame(30, 70));
    cut.push_back(MedianFrame(30, 255));
    state.SetIterationTime(cut.back().count());
  }
  state.counters["frame_of_full_ms"] = 1000.0 * Median(full).count();
  state.counters["ratio"] = Median(cut) / Median(full);
  state.counters["limit"] = 2;
}
BENCHMARK(FrameOfCutNamesAgainstFull)
    ->Name("Pickers/FrameOfCutNamesAgainstFull")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

// From the call to the end of the first frame, which is on the screen then; the folder is in the
// system's cache.
void OpenToFirstPresent(benchmark::State& state) {
  const std::string& dir = FolderOfFiles(static_cast<int>(state.range(0)));
  for ([[maybe_unused]] auto _ : state) {
    const std::vector<Seconds> times =
        TimeFrames(1, [&dir] { frontend::gui::ShowSimpleFloppyFilePicker(nullptr, dir); });
    state.SetIterationTime(times.front().count());
  }
}
BENCHMARK(OpenToFirstPresent)
    ->Name("Pickers/OpenToFirstPresent")
    ->Arg(50)
    ->Arg(10000)
    ->Arg(100000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quindle::bench

// Runs all benchmarks and writes their figures as one table.
//
//   quindle_bench_report FOLDER      writes FOLDER/benchmarks.json and FOLDER/benchmarks.md
//
// Run from the source folder, on a machine that does nothing else. Takes some ten minutes. Dialogs
// are measured in real windows on an X server of its own, on the software path: no graphics driver
// is loaded, as with the hint that the guide recommends to hosts.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench_dialogs.h"
#include "figure_table.h"
#include "support/child_process.h"
#include "support/x11_display.h"

namespace quindle::bench {
namespace {

namespace fs = std::filesystem;
using testing::ProgramResult;
using Figures = std::map<std::string, double>;

constexpr const char* kOpeningGroup = "Opening, from the call to the first frame on the screen";
constexpr const char* kIdleGroup = "Processor time of a dialog that stands open, untouched";
constexpr const char* kGapGroup = "Between two heartbeats, under random input for 5 s";
constexpr const char* kWheelGroup = "From a notch of the wheel to the frame that shows it";
constexpr const char* kMemoryGroup = "Peak resident memory";
constexpr const char* kFolderGroup = "File picker on a large folder of floppy images";
constexpr const char* kFrameGroup = "Processor time of a frame, software renderer, median of 1,000";
constexpr const char* kListingGroup =
    "Listing against the floor: one pass, one key a file, one sort";
constexpr const char* kOtherGroup = "Growth with the content, and parsing";

constexpr double kOpeningAim = 1.5;           // Times the floor.
constexpr double kIdleAim = 3;                // Percent of a core.
constexpr double kGapAim = 50;                // ms
constexpr double kWheelAim = 20;              // ms
constexpr double kMemoryAim = 15;             // MB
constexpr double kLargeFolderAim = 250;       // ms, for 100,000 files.
constexpr double kLargeFolderMemoryAim = 40;  // MB, for the same.
constexpr int kLargeFolder = 100000;

std::string RunOrThrow(const std::vector<std::string>& command) {
  const ProgramResult result = testing::RunProgram(command, std::chrono::minutes(15));
  if (result.exit_status != 0) {
    throw std::runtime_error(command.front() + " failed: " + result.err);
  }
  return result.out;
}

// The figures of one measure of one dialog, from a process of its own.
Figures Probe(const std::string& measure, const std::string& dialog, const std::string& folder,
              bool alone = false) {
  std::vector<std::string> command{QUINDLE_LIVE_PROBE_PROGRAM, measure, dialog, folder};
  if (alone) {
    command.emplace_back("alone");
  }
  std::istringstream lines(RunOrThrow(command));
  Figures figures;
  std::string name;
  double value = 0;
  while (lines >> name >> value) {
    figures[name] = value;
  }
  return figures;
}

// The aim of a dialog's opening; only the two that a user meets most have one.
std::optional<double> OpeningAim(const std::string& dialog) {
  const bool has_aim = dialog == "message" || dialog == "picker";
  return has_aim ? std::optional<double>(kOpeningAim) : std::nullopt;
}

void AddOpening(const std::string& dialog, std::vector<TableRow>* rows) {
  const Figures figures = Probe("opening", dialog, FolderOfFiles(50));
  rows->push_back({kOpeningGroup, dialog, figures.at("open_ms"), "ms", {}});
  rows->push_back(
      {kOpeningGroup, dialog + ": a bare window of its size", figures.at("floor_ms"), "ms", {}});
  rows->push_back({kOpeningGroup, dialog + ": times the bare window", figures.at("open_per_floor"),
                   "", OpeningAim(dialog)});
}

void AddFirstOpenings(std::vector<TableRow>* rows) {
  for (const char* dialog : {"message", "picker"}) {
    const double first = Probe("first-opening", dialog, FolderOfFiles(50)).at("first_open_ms");
    rows->push_back(
        {kOpeningGroup, std::string(dialog) + ": first of its process", first, "ms", {}});
  }
  const double floor = Probe("first-floor", "message", FolderOfFiles(50)).at("first_floor_ms");
  rows->push_back({kOpeningGroup, "bare window: first of its process", floor, "ms", {}});
}

void AddIdle(const std::string& dialog, std::vector<TableRow>* rows) {
  const Figures figures = Probe("idle", dialog, FolderOfFiles(50));
  rows->push_back({kIdleGroup, dialog, figures.at("idle_percent"), "% of a core", kIdleAim});
}

void AddGaps(const std::string& dialog, std::vector<TableRow>* rows) {
  const Figures figures = Probe("gaps", dialog, FolderOfFiles(50));
  rows->push_back({kGapGroup, dialog + ": p50", figures.at("gap_p50_ms"), "ms", {}});
  rows->push_back({kGapGroup, dialog + ": p99", figures.at("gap_p99_ms"), "ms", {}});
  rows->push_back({kGapGroup, dialog + ": longest", figures.at("gap_max_ms"), "ms", kGapAim});
  rows->push_back({kGapGroup,
                   dialog + ": longest with a listing in it",
                   figures.at("gap_listing_max_ms"),
                   "ms",
                   {}});
}

void AddMemory(const std::string& dialog, std::vector<TableRow>* rows) {
  const double alone = Probe("memory", dialog, FolderOfFiles(50), true).at("peak_mb");
  const double growth = Probe("memory", dialog, FolderOfFiles(50)).at("growth_mb");
  rows->push_back({kMemoryGroup, dialog + ": stand-alone", alone, "MB", kMemoryAim});
  rows->push_back({kMemoryGroup, dialog + ": growth of a host with a window", growth, "MB", {}});
}

void AddLiveRows(std::vector<TableRow>* rows) {
  for (const BenchDialog& dialog : BenchDialogs()) {
    std::fprintf(stderr, "measuring %s\n", dialog.name);
    AddOpening(dialog.name, rows);
    AddIdle(dialog.name, rows);
    AddGaps(dialog.name, rows);
    AddMemory(dialog.name, rows);
  }
  AddFirstOpenings(rows);
  for (const char* dialog : {"picker", "shader"}) {
    const Figures figures = Probe("wheel", dialog, FolderOfFiles(50));
    rows->push_back(
        {kWheelGroup, std::string(dialog) + ": p50", figures.at("wheel_p50_ms"), "ms", {}});
    rows->push_back({kWheelGroup, std::string(dialog) + ": longest", figures.at("wheel_max_ms"),
                     "ms", kWheelAim});
  }
}

void AddLargeFolder(int count, std::vector<TableRow>* rows) {
  std::fprintf(stderr, "measuring the picker on %d files\n", count);
  const std::string& folder = FolderOfImages(count);
  const double shown = Probe("first-opening", "picker", folder).at("first_open_ms");
  const double growth = Probe("memory", "picker", folder).at("growth_mb");
  const bool has_aim = count == kLargeFolder;
  const std::string name = std::to_string(count) + " files";
  rows->push_back({kFolderGroup, name + ": shown after", shown, "ms",
                   has_aim ? std::optional<double>(kLargeFolderAim) : std::nullopt});
  rows->push_back({kFolderGroup, name + ": growth of the host", growth, "MB",
                   has_aim ? std::optional<double>(kLargeFolderMemoryAim) : std::nullopt});
}

// The graphics driver that SDL loads for a window's surface when it is not told to go without.
void AddMemoryWithDriver(std::vector<TableRow>* rows) {
  unsetenv("SDL_FRAMEBUFFER_ACCELERATION");
  const double alone = Probe("memory", "picker", FolderOfFiles(50), true).at("peak_mb");
  rows->push_back({kMemoryGroup, "picker: stand-alone, without the hint", alone, "MB", {}});
  setenv("SDL_FRAMEBUFFER_ACCELERATION", "0", 1);
}

// --- The benchmarks without a display ------------------------------------------------------------

std::string GroupOf(const std::string& benchmark) {
  if (benchmark.starts_with("Dialogs/Frame/")) {
    return kFrameGroup;
  }
  return benchmark.starts_with("Pickers/Listing") ? kListingGroup : kOtherGroup;
}

// "Pickers/ListingAgainstFloor/50/iterations:15/manual_time" without what it says of the runs.
std::string PlainName(const std::string& benchmark) {
  std::string name = benchmark.substr(0, benchmark.find("/iterations:"));
  return name.substr(0, name.find("/manual_time"));
}

void AddBenchmark(const nlohmann::json& run, std::vector<TableRow>* rows) {
  const std::string name = run.at("name");
  const std::string group = GroupOf(name);
  if (name.ends_with("/manual_time")) {  // The others count no time.
    rows->push_back({group, PlainName(name), run.at("real_time"), run.at("time_unit"), {}});
  }
  for (const char* counter : {"ratio", "bytes_per_row"}) {
    if (run.contains(counter)) {
      const auto limit =
          run.contains("limit") ? std::optional<double>(run.at("limit")) : std::nullopt;
      rows->push_back({group, PlainName(name) + ": " + counter, run.at(counter), "", limit});
    }
  }
}

void AddBenchmarks(std::vector<TableRow>* rows) {
  std::fprintf(stderr, "running the benchmarks without a display\n");
  const nlohmann::json report =
      nlohmann::json::parse(RunOrThrow({QUINDLE_BENCH_PROGRAM, "--benchmark_format=json"}));
  for (const nlohmann::json& run : report.at("benchmarks")) {
    AddBenchmark(run, rows);
  }
}

// --- The whole -----------------------------------------------------------------------------------

std::vector<TableRow> MeasureAll() {
  std::vector<TableRow> rows;
  {
    const testing::X11Display display;
    setenv("SDL_FRAMEBUFFER_ACCELERATION", "0", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    AddLiveRows(&rows);
    AddMemoryWithDriver(&rows);
    for (const int count : {50, 10000, kLargeFolder, 1000000}) {
      AddLargeFolder(count, &rows);
    }
  }
  AddBenchmarks(&rows);
  return rows;
}

void WriteText(const fs::path& file, const std::string& text) {
  std::ofstream out(file);
  out << text;
  if (!out.flush()) {
    throw std::runtime_error("cannot write " + file.string());
  }
}

int Report(const fs::path& folder) {
  const std::vector<TableRow> rows = MeasureAll();
  fs::create_directories(folder);
  WriteText(folder / "benchmarks.json", TableAsJson(rows));
  WriteText(folder / "benchmarks.md", "# Benchmarks\n\n" + TableAsMarkdown(rows));
  std::fputs(TableAsMarkdown(rows).c_str(), stdout);
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace quindle::bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: quindle_bench_report FOLDER\n");
    return EXIT_FAILURE;
  }
  try {
    return quindle::bench::Report(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quindle_bench_report: %s\n", error.what());
    return EXIT_FAILURE;
  }
}

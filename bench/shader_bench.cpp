// How long the shader dialog takes to draw a frame and its parsers to read a file, whatever they
// hold.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "frame_meter.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "support/temporary_directory.h"

namespace quindle::bench {
namespace {

constexpr std::size_t kMiB = std::size_t{1024} * 1024;

const testing::TemporaryDirectory& Folder() {
  static const testing::TemporaryDirectory folder;
  return folder;
}

// Every line is equally long, so that files of any size hold the same mix.
std::string Declaration(std::size_t index) {
  const std::string number = std::to_string(100 + index % 900);
  return "#pragma parameter PARAM_" + number + " \"Parameter " + number +
         "\" 37.5 0.0 100.0 0.25\n";
}

// Declarations of at most `bytes` bytes.
std::string Declarations(std::size_t bytes) {
  std::string text;
  for (std::size_t i = 0; text.size() + Declaration(i).size() <= bytes; ++i) {
    text += Declaration(i);
  }
  return text;
}

// A preset of at most `bytes` bytes with a list of names and a value on each line.
std::string Overrides(std::size_t bytes) {
  std::string text = "parameters = \"";
  for (int i = 100; i < 200; ++i) {
    text += "PARAM_" + std::to_string(i) + ";";
  }
  text += "\"\n";
  const auto line = [](std::size_t i) {
    return "PARAM_" + std::to_string(100 + i % 100) + " = \"37.5\"\n";
  };
  for (std::size_t i = 0; text.size() + line(i).size() <= bytes; ++i) {
    text += line(i);
  }
  return text;
}

std::string WriteFile(const std::string& name, const std::string& extension,
                      const std::string& text) {
  return Folder().Write(name + extension, text).string();
}

// --- Frames --------------------------------------------------------------------------------------

Seconds MedianFrame(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    text += Declaration(i);
  }
  const std::string file = WriteFile("frame", ".glsl", text);
  std::vector<Seconds> times = TimeFrames(
      60, [&file] { frontend::gui::ShowShaderParameterDialog(nullptr, file, 1.0F, {}, {}); });
  times.erase(times.begin());  // Opening.
  return Median(std::move(times));
}

void FrameOfManyParametersAgainst10(benchmark::State& state) {
  std::vector<Seconds> few;
  std::vector<Seconds> many;
  for (auto _ : state) {
    few.push_back(MedianFrame(10));
    many.push_back(MedianFrame(static_cast<std::size_t>(state.range(0))));
    state.SetIterationTime(many.back().count());
  }
  state.counters["frame_of_10_ms"] = 1000.0 * Median(few).count();
  state.counters["ratio"] = Median(many) / Median(few);
  state.counters["limit"] = 1.5;
}
BENCHMARK(FrameOfManyParametersAgainst10)
    ->Name("Shader/FrameOfManyParametersAgainst10")
    ->Arg(300)
    ->Arg(100000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

// --- Parsing -------------------------------------------------------------------------------------

Seconds TimeToParse(const std::string& file) {
  const Seconds start = ProcessorTime();
  std::size_t count = frontend::gui::ParseShaderParameterSpecs(file).size();
  count += frontend::gui::ParseGlslpParameterOverrides(file).size();
  benchmark::DoNotOptimize(count);
  return ProcessorTime() - start;
}

using MakeText = std::string (*)(std::size_t bytes);

void ParseOf64MiB(benchmark::State& state, MakeText make_text, const char* extension) {
  const std::string file = WriteFile("large", extension, make_text(64 * kMiB));
  for (auto _ : state) {
    state.SetIterationTime(TimeToParse(file).count());
  }
}
BENCHMARK_CAPTURE(ParseOf64MiB, declarations, &Declarations, ".glsl")
    ->Name("Shader/DeclarationsOf64MiB")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(9);
BENCHMARK_CAPTURE(ParseOf64MiB, overrides, &Overrides, ".glslp")
    ->Name("Shader/OverridesOf64MiB")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(9);

// A file that is one line, of a kind that would tempt a parser into reading it again and again.
struct LongLine {
  const char* name;
  const char* extension;
  std::string beginning;
  std::string repeated;
};

std::string TextOf(const LongLine& line, std::size_t bytes) {
  std::string text = line.beginning;
  text.reserve(bytes);
  while (text.size() + line.repeated.size() <= bytes) {
    text += line.repeated;
  }
  return text;
}

// Measured by the byte, against the 1 MiB of declarations.
void LongLineByTheByte(benchmark::State& state, const LongLine& line) {
  constexpr std::size_t kBytes = 32 * kMiB;
  const std::string ordinary = WriteFile("small", ".glsl", Declarations(kMiB));
  const std::string file = WriteFile("line", line.extension, TextOf(line, kBytes));
  std::vector<Seconds> ordinary_times;
  std::vector<Seconds> times;
  for (auto _ : state) {
    ordinary_times.push_back(TimeToParse(ordinary));
    times.push_back(TimeToParse(file));
    state.SetIterationTime(times.back().count());
  }
  const double per_byte = Median(times).count() / static_cast<double>(kBytes);
  state.counters["ns_per_byte"] = 1e9 * per_byte;
  state.counters["ratio"] = per_byte / (Median(ordinary_times).count() / static_cast<double>(kMiB));
  state.counters["limit"] = 1;
}

const int kRegistered = [] {
  const std::string declaration = "#pragma parameter x ";
  for (const LongLine& line : std::vector<LongLine>{
           {"Spaces", ".glsl", "", " "},
           {"NearlyParameter", ".glsl", "#pragma ", "paramete"},
           {"Name", ".glsl", "#pragma parameter ", "x"},
           {"OpenQuote", ".glsl", declaration + '"', "x"},
           {"Label", ".glsl", declaration, "\"x"},
           {"Digits", ".glsl", declaration + "\"L\" ", "7"},
           {"Zeros", ".glsl", declaration + "\"L\" 0.", "0"},
           {"Exponent", ".glsl", declaration + "\"L\" 1e", "9"},
           {"PragmasWithoutEnd", ".glsl", "", declaration},
           {"ListOfNames", ".glslp", "parameters = ", "ab;"},
           {"EqualsSigns", ".glslp", "parameters = a\n", "="},
       }) {
    benchmark::RegisterBenchmark(
        (std::string("Shader/LineOf32MiB/") + line.name).c_str(),
        [line](benchmark::State& state) { LongLineByTheByte(state, line); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(3);
  }
  return 0;
}();

}  // namespace
}  // namespace quindle::bench

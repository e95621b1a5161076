#include "tour_samples.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFloppies[] = {
    "Adventure Disk 1.img",
    "Adventure Disk 2.img",
    "boot.img",
    "Letters 1991.ima",
    "paint.img",
    "savegames.img",
    "tools.ima",
    "read me.txt",
};

constexpr const char* kShader =
    "#pragma parameter BRIGHTNESS \"Brightness\" 1.0 0.0 2.0 0.05\n"
    "#pragma parameter CONTRAST \"Contrast\" 1.0 0.0 2.0 0.05\n"
    "#pragma parameter SCANLINE \"Scanline strength\" 0.3 0.0 1.0 0.01\n";

constexpr const char* kPreset =
    "shaders = 1\n"
    "shader0 = \"scanlines.glsl\"\n"
    "parameters = \"SCANLINE;CONTRAST\"\n"
    "SCANLINE = 0.45\n"
    "CONTRAST = 1.1\n";

fs::path MakeTemporaryFolder() {
  std::random_device random;
  fs::path folder;
  do {
    folder = fs::temp_directory_path() / ("quindle-tour-" + std::to_string(random()));
  } while (!fs::create_directory(folder));
  return folder;
}

void WriteFile(const fs::path& path, const char* text) {
  std::ofstream(path) << text;
}

void FillSamples(const fs::path& root) {
  for (const char* folder : {"captures", "disks", "floppies/Games", "floppies/Tools", "shaders"}) {
    fs::create_directories(root / folder);
  }
  for (const char* floppy : kFloppies) {
    WriteFile(root / "floppies" / floppy, "sample");
  }
  WriteFile(root / "shaders" / "scanlines.glsl", kShader);
  WriteFile(root / "shaders" / "plain.glsl", "void main() {}\n");
  WriteFile(root / "shaders" / "soft scanlines.glslp", kPreset);
}

// Not every system lets every user make a link.
void LendData(const fs::path& data, const fs::path& lent) {
  std::error_code error;
  fs::create_directory_symlink(data, lent, error);
  if (error) {
    fs::copy(data, lent, fs::copy_options::recursive);
  }
}

}  // namespace

TourSamples::TemporaryFolder::TemporaryFolder() : path(MakeTemporaryFolder()) {}

TourSamples::TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path, ignored);
}

TourSamples::TourSamples() : previous_(fs::current_path()) {
  FillSamples(root_.path);
  LendData(previous_ / "data", root_.path / "data");
  fs::current_path(root_.path);
}

TourSamples::~TourSamples() {
  std::error_code ignored;
  fs::current_path(previous_, ignored);
}

}  // namespace quindle::demo

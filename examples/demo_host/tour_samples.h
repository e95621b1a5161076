#pragma once

#include <filesystem>

namespace quindle::demo {

// A sample tree in a new temporary folder, entered as working directory for as long as this object
// lives and removed at the end:
//   captures/  disks/    empty folders
//   floppies/            floppy images, two folders, and a text file that the picker leaves out
//   shaders/             two shaders and a preset
//   data                 a link to the program's own data (fonts, shaders)
// Scenes may add files of their own.
class TourSamples {
 public:
  // Throws std::filesystem::filesystem_error or std::runtime_error.
  TourSamples();
  TourSamples(const TourSamples&) = delete;
  TourSamples& operator=(const TourSamples&) = delete;
  ~TourSamples();

 private:
  // A folder that is removed with all it holds.
  struct TemporaryFolder {
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    std::filesystem::path path;
  };

  std::filesystem::path previous_;
  TemporaryFolder root_;
};

}  // namespace quindle::demo

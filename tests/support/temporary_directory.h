#pragma once

/// A directory of a test's own, gone with everything in it when the test ends.

#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace quindle::testing {

/// Sole owner of a fresh, empty directory.
class TemporaryDirectory {
 public:
  /// Makes the directory; throws std::filesystem::filesystem_error when that fails.
  TemporaryDirectory() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("quindle_test_" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  /// The directory's absolute path.
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Makes a folder, with those above it, and returns its path.
  [[nodiscard]] std::filesystem::path MakeFolder(const std::filesystem::path& name) const {
    std::filesystem::create_directories(path_ / name);
    return path_ / name;
  }

  /// Writes a file byte by byte as given, makes the folders above it, and returns its path. Throws
  /// std::runtime_error when the file cannot be written.
  std::filesystem::path Write(const std::filesystem::path& name, std::string_view bytes) const {
    const std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) {
      throw std::runtime_error("cannot write " + file.string());
    }
    return file;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace quindle::testing

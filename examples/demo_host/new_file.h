#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace quindle::demo {

// A file that did not exist before. What already has the name is never touched, and unless Keep()
// has been called the file is gone again when this object ends: nobody meets half a file.
//
// Every failure throws std::runtime_error with one line for the user that names the path.
class NewFile {
 public:
  // Creates the file, empty. Fails when anything has that name, a dangling link too.
  explicit NewFile(std::string path);
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();

  // Appends all of `bytes`.
  void Write(std::span<const std::uint8_t> bytes);
  // Makes the file `size` bytes long. What has not been written reads as zeros and takes no room.
  void Resize(std::uint64_t size);
  // Closes the file for good. Only then has everything arrived: some file systems report a full
  // disk no earlier.
  void Keep();

 private:
  std::string path_;
  std::intptr_t handle_;  // The system's.
};

}  // namespace quindle::demo

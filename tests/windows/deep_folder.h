#pragma once

// A folder whose path is longer than MAX_PATH, which takes the "\\?\" form of names to make.

#include <windows.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace quindle::testing {

// Sole owner of the folders that it makes, and of one file in the deepest of them.
class DeepFolder {
 public:
  // Below a folder that is there. Throws std::runtime_error when that fails.
  DeepFolder(const std::filesystem::path& folder, const std::wstring& file_name) {
    std::wstring deep = folder.native();
    while (deep.size() < 400) {
      deep += L"\\a folder with a name that is not short at all";
      made_.push_back(Unlimited(deep));
      if (CreateDirectoryW(made_.back().c_str(), nullptr) == 0) {
        throw std::runtime_error("cannot make a deep folder");
      }
    }
    path_ = deep;
    file_ = path_ / file_name;
    WriteFileText();
  }
  DeepFolder(const DeepFolder&) = delete;
  DeepFolder& operator=(const DeepFolder&) = delete;
  ~DeepFolder() {
    DeleteFileW(Unlimited(file_.native()).c_str());
    for (auto folder = made_.rbegin(); folder != made_.rend(); ++folder) {
      RemoveDirectoryW(folder->c_str());
    }
  }

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  // Holds the line that declares a shader's parameter.
  [[nodiscard]] const std::filesystem::path& file() const { return file_; }

  static constexpr const char* kText = "#pragma parameter A \"A\" 1 0 2 1\n";

 private:
  static std::wstring Unlimited(const std::wstring& path) { return L"\\\\?\\" + path; }

  void WriteFileText() const {
    const std::string text = kText;
    const HANDLE file = CreateFileW(Unlimited(file_.native()).c_str(), GENERIC_WRITE, 0, nullptr,
                                    CREATE_NEW, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
      throw std::runtime_error("cannot make a file in a deep folder");
    }
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
  }

  std::vector<std::wstring> made_;
  std::filesystem::path path_;
  std::filesystem::path file_;
};

}  // namespace quindle::testing

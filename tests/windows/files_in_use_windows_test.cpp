// Reading what Windows has beside ordinary files: devices by their names, files in use.

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "support/temporary_directory.h"
#include "utils/file_utils.h"
#include "utils/path_text.h"
#include "windows/deep_folder.h"
#include "windows/import_patch.h"

namespace quindle::testing {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOpenError = "cannot open file";
constexpr const char* kReadError = "cannot read file";
constexpr std::uintmax_t kLargestFile = std::uintmax_t{64} * 1024 * 1024;

struct CloseFile {
  using pointer = HANDLE;
  void operator()(HANDLE file) const noexcept { CloseHandle(file); }
};
using OwnedFile = std::unique_ptr<HANDLE, CloseFile>;

OwnedFile Open(const fs::path& path, DWORD access, DWORD share) {
  const HANDLE file = CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(file, INVALID_HANDLE_VALUE);
  return OwnedFile(file);
}

// The contents, or the error behind "!".
std::string Read(const fs::path& path) {
  std::string contents;
  std::string error;
  const bool done = utils::read_text_file(path, contents, error, kOpenError, kReadError);
  EXPECT_EQ(done, error.empty());
  return done ? contents : "!" + error;
}

const std::string kCannotOpen = std::string("!") + kOpenError;
const std::string kCannotRead = std::string("!") + kReadError;

TEST(ReadTextFileOnWindows, ReadsByNamesOfEveryScript) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write(fs::path(u"Größe/дом/ゲーム\U0001F4BE.txt"), "a\r\n\x1A b");
  EXPECT_EQ(Read(file), "a\r\n\x1A b");
  EXPECT_EQ(Read(file.generic_wstring()), "a\r\n\x1A b");
}

TEST(ReadTextFileOnWindows, CannotOpenDevicesWhateverTheyAreCalled) {
  const TemporaryDirectory folder;
  const auto start = std::chrono::steady_clock::now();
  for (const char* name :
       {"NUL", "nul", "CON", "con", "AUX", "PRN", "COM1", "com9", "LPT1", "NUL.txt", "CON.glsl",
        "COM1.txt", "NUL:", "NUL ", "CONIN$", "CONOUT$"}) {
    EXPECT_EQ(Read(name), kCannotOpen) << name;
    EXPECT_EQ(Read(folder.path() / name), kCannotOpen) << name;
  }
  for (const char* name : {"\\\\.\\NUL", "\\\\.\\COM1", "\\\\.\\CON", "\\\\.\\pipe\\none",
                           "\\\\.\\PhysicalDrive0", "//./NUL", "\\\\?\\pipe\\none", "\\\\?\\NUL",
                           "\\\\?\\COM1", "\\\\?\\GLOBALROOT\\Device\\Null"}) {
    EXPECT_EQ(Read(name), kCannotOpen) << name;
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

int g_opened = 0;

HANDLE WINAPI CountOpened(LPCWSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                          DWORD disposition, DWORD flags, HANDLE model) {
  ++g_opened;
  return CreateFileW(name, access, share, security, disposition, flags, model);
}

// Opening a device can do something: wait for a line, take a console's input.
TEST(ReadTextFileOnWindows, DoesNotEvenOpenWhatIsNoRegularFile) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("a", "text");
  const ImportPatch count("libquindle_utils.dll", "CreateFileW",
                          reinterpret_cast<void*>(&CountOpened));
  for (const fs::path& path : {fs::path("NUL"), fs::path("COM1"), folder.path() / "CON.txt",
                               fs::path("\\\\.\\pipe\\none"), folder.path()}) {
    EXPECT_EQ(Read(path), kCannotOpen) << path;
  }
  EXPECT_EQ(g_opened, 0);
  Read(file);
  EXPECT_EQ(g_opened, 1);
}

TEST(ReadTextFileOnWindows, CannotOpenAPipe) {
  const wchar_t* const name = L"\\\\.\\pipe\\quindle_test";
  const OwnedFile pipe(
      CreateNamedPipeW(name, PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE, 1, 0, 0, 0, nullptr));
  ASSERT_NE(pipe.get(), INVALID_HANDLE_VALUE);
  EXPECT_EQ(Read(name), kCannotOpen);
  EXPECT_EQ(Read("\\\\?\\pipe\\quindle_test"), kCannotOpen);
}

TEST(ReadTextFileOnWindows, CannotOpenFolders) {
  const TemporaryDirectory folder;
  EXPECT_EQ(Read(folder.path()), kCannotOpen);
  EXPECT_EQ(Read(folder.path() / ""), kCannotOpen);
  EXPECT_EQ(Read("C:\\"), kCannotOpen);
  EXPECT_EQ(Read("C:"), kCannotOpen);
  EXPECT_EQ(Read("."), kCannotOpen);
}

TEST(ReadTextFileOnWindows, CannotOpenWhatIsNotThere) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("a", "text");
  EXPECT_EQ(Read(""), kCannotOpen);
  EXPECT_EQ(Read(folder.path() / "missing"), kCannotOpen);
  EXPECT_EQ(Read(file / "below"), kCannotOpen);
  EXPECT_EQ(Read(folder.path() / "?"), kCannotOpen);
  EXPECT_EQ(Read(folder.path() / "*"), kCannotOpen);
  EXPECT_EQ(Read(utils::path_from_text("C:\\\xFF")), kCannotOpen);
  EXPECT_EQ(Read(file.native() + std::wstring(1, L'\0') + L"b"), kCannotOpen);
  EXPECT_EQ(Read(folder.path() / std::wstring(300, L'n')), kCannotOpen);
  EXPECT_EQ(Read(folder.path() / std::wstring(40000, L'n')), kCannotOpen);
}

TEST(ReadTextFileOnWindows, CannotOpenAFileThatSomebodyHasForHimself) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("a", "text");
  {
    const OwnedFile own = Open(file, GENERIC_READ | GENERIC_WRITE, 0);
    EXPECT_EQ(Read(file), kCannotOpen);
  }
  EXPECT_EQ(Read(file), "text");
}

TEST(ReadTextFileOnWindows, ReadsAFileThatSomebodyWritesOn) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("a", "text");
  const OwnedFile writer =
      Open(file, GENERIC_WRITE | DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
  EXPECT_EQ(Read(file), "text");
}

TEST(ReadTextFileOnWindows, CannotReadMoreThanSixtyFourMebibytes) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("a", "x");
  fs::resize_file(file, kLargestFile);
  EXPECT_EQ(Read(file).size(), kLargestFile);
  for (const std::uintmax_t size : {kLargestFile + 1, kLargestFile * 16}) {
    fs::resize_file(file, size);
    EXPECT_EQ(Read(file), kCannotRead) << size;
  }
}

TEST(ReadTextFileOnWindows, ReadsBeyondTheLimitOfPaths) {
  const TemporaryDirectory folder;
  const DeepFolder deep(folder.path(), L"a.txt");
  EXPECT_EQ(Read(deep.file()), DeepFolder::kText);
}

}  // namespace
}  // namespace quindle::testing

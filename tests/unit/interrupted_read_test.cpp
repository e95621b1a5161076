// What a signal, a slow disk, a broken or a changing one does to the reading of a file. open() and
// read() stand in this program, in front of the C library's.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "support/real_function.h"
#include "support/temporary_directory.h"
#include "utils/file_utils.h"

namespace quindle::utils {
namespace {

using quindle::testing::RealFunction;
using quindle::testing::TemporaryDirectory;

// How the calls behave while a file is read.
struct Disk {
  int interrupted_opens = 0;  // So many next opens fail with EINTR.
  int interrupted_reads = 0;  // So many reads do, before each that succeeds.
  std::size_t most_bytes = SIZE_MAX;
  int broken_after = -1;  // So many reads succeed, the next fails with EIO; negative: never.
  const char* opens_instead = nullptr;  // What the name leads to once it has been looked at.
};

Disk g_disk;
bool g_reading = false;
int g_interruptions = 0;
int g_interruptions_of_this_read = 0;
int g_reads = 0;

int FailWith(int error) {
  errno = error;
  return -1;
}

bool IsInterrupted(int* left) {
  if (!g_reading || *left <= 0) {
    return false;
  }
  --*left;
  ++g_interruptions;
  return true;
}

struct ReadResult {
  bool ok = false;
  std::string contents = "untouched";
  std::string error = "untouched";
};

ReadResult ReadFrom(const Disk& disk, const std::string& text) {
  const TemporaryDirectory folder;
  const std::filesystem::path file = folder.Write("text", text);
  g_disk = disk;
  g_interruptions = 0;
  g_interruptions_of_this_read = disk.interrupted_reads;
  g_reads = 0;
  g_reading = true;
  ReadResult result;
  result.ok = read_text_file(file, result.contents, result.error, "cannot open", "cannot read");
  g_reading = false;
  return result;
}

TEST(InterruptedRead, OpensAgainUntilItIsNotInterrupted) {
  const ReadResult result = ReadFrom({.interrupted_opens = 3}, "hello");
  EXPECT_TRUE(result.ok);
  EXPECT_EQ(result.contents, "hello");
  EXPECT_EQ(g_interruptions, 3);
}

TEST(InterruptedRead, ReadsOnWhereItWasInterrupted) {
  const ReadResult result = ReadFrom({.interrupted_reads = 2, .most_bytes = 2}, "hello");
  EXPECT_TRUE(result.ok);
  EXPECT_EQ(result.contents, "hello");
  // Three reads of bytes and the one that finds the end.
  EXPECT_EQ(g_interruptions, 8);
}

TEST(InterruptedRead, JoinsWhatComesInPieces) {
  const ReadResult result = ReadFrom({.most_bytes = 1}, std::string(3000, 'x') + "y");
  EXPECT_TRUE(result.ok);
  EXPECT_EQ(result.contents, std::string(3000, 'x') + "y");
}

TEST(InterruptedRead, HalfAFileIsNone) {
  const ReadResult result = ReadFrom({.most_bytes = 2, .broken_after = 1}, "hello");
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.contents, "untouched");
  EXPECT_EQ(result.error, "cannot read");
  EXPECT_EQ(g_reads, 2);
}

TEST(InterruptedRead, NameMayLeadToAFolderByTheTimeItIsOpened) {
  const ReadResult result = ReadFrom({.opens_instead = "/"}, "hello");
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.contents, "untouched");
  EXPECT_EQ(result.error, "cannot open");
  EXPECT_EQ(g_reads, 0);
}

}  // namespace
}  // namespace quindle::utils

using namespace quindle::utils;  // NOLINT(google-build-using-namespace)

extern "C" {

int open(const char* path, int flags, ...) {
  static auto* const real = RealFunction<int(const char*, int, mode_t)>("open");
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  if (IsInterrupted(&g_disk.interrupted_opens)) {
    return FailWith(EINTR);
  }
  const bool leads_elsewhere = g_reading && g_disk.opens_instead != nullptr;
  return real(leads_elsewhere ? g_disk.opens_instead : path, flags, mode);
}

ssize_t read(int file, void* bytes, size_t size) {
  static auto* const real = RealFunction<decltype(read)>("read");
  if (!g_reading) {
    return real(file, bytes, size);
  }
  if (IsInterrupted(&g_interruptions_of_this_read)) {
    return FailWith(EINTR);
  }
  g_interruptions_of_this_read = g_disk.interrupted_reads;
  if (g_reads++ == g_disk.broken_after) {
    return FailWith(EIO);
  }
  return real(file, bytes, std::min<std::size_t>(size, g_disk.most_bytes));
}

}  // extern "C"

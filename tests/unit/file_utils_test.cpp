#include "utils/file_utils.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <string>
#include <thread>

#include "support/open_counter.h"
#include "support/temporary_directory.h"

namespace quindle::utils {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using quindle::testing::OpenCounter;
using quindle::testing::TemporaryDirectory;

constexpr const char* kOpenError = "cannot open file";
constexpr const char* kReadError = "cannot read file";
constexpr const char* kUntouched = "untouched";
constexpr std::uintmax_t kLargestFile = std::uintmax_t{64} * 1024 * 1024;

struct ReadResult {
  bool ok = false;
  std::string contents = kUntouched;
  std::string error = kUntouched;
};

ReadResult Read(const fs::path& path) {
  ReadResult result;
  result.ok = read_text_file(path, result.contents, result.error, kOpenError, kReadError);
  return result;
}

void ExpectFailure(const fs::path& path, const char* error) {
  const ReadResult result = Read(path);
  EXPECT_FALSE(result.ok) << path;
  EXPECT_EQ(result.contents, kUntouched) << path;
  EXPECT_EQ(result.error, error) << path;
}

void ExpectContents(const fs::path& path, const std::string& contents) {
  const ReadResult result = Read(path);
  EXPECT_TRUE(result.ok) << path;
  // Not EXPECT_EQ: a failure would print megabytes.
  EXPECT_TRUE(result.contents == contents) << path << " has " << result.contents.size() << " bytes";
  EXPECT_EQ(result.error, kUntouched) << path;
}

// While it lives, the process can open no file.
class NoFreeDescriptor {
 public:
  NoFreeDescriptor() {
    EXPECT_EQ(getrlimit(RLIMIT_NOFILE, &before_), 0);
    const rlimit none{0, before_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  }
  NoFreeDescriptor(const NoFreeDescriptor&) = delete;
  NoFreeDescriptor& operator=(const NoFreeDescriptor&) = delete;
  ~NoFreeDescriptor() { EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &before_), 0); }

 private:
  rlimit before_{};
};

std::size_t OpenDescriptors() {
  const fs::directory_iterator entries("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

TEST(ReadTextFile, ReturnsEveryByteAsItStands) {
  const TemporaryDirectory folder;
  std::string every_byte;
  for (int value = 0; value < 256; ++value) {
    every_byte.push_back(static_cast<char>(value));
  }
  const std::string texts[] = {
      "",        "a",   "\n",      "no line feed at the end", "line\nline\n",
      "\r\n",    "\0"s, "a\0b\0"s, "\xEF\xBB\xBFmark",        "\x1A behind an end mark",
      every_byte};
  for (const std::string& text : texts) {
    ExpectContents(folder.Write("text", text), text);
  }
}

TEST(ReadTextFile, ReadsAcrossChunks) {
  const TemporaryDirectory folder;
  for (const std::size_t size : {4095U, 65535U, 65536U, 65537U, 131072U, 1000003U}) {
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i) {
      text[i] = static_cast<char>(i * 31 % 251);
    }
    ExpectContents(folder.Write("text", text), text);
  }
}

TEST(ReadTextFile, FollowsALinkToARegularFile) {
  const TemporaryDirectory folder;
  fs::create_symlink(folder.Write("text", "hello"), folder.path() / "link");
  ExpectContents(folder.path() / "link", "hello");
}

TEST(ReadTextFile, TakesNamesThatAreNotAscii) {
  const TemporaryDirectory folder;
  ExpectContents(folder.Write("\xC3\xA9 \xFF & .txt", "hello"), "hello");
}

TEST(ReadTextFile, ReadsAFileThatReportsNoSizeToItsEnd) {
  struct stat status {};
  ASSERT_EQ(stat("/proc/self/status", &status), 0);
  ASSERT_EQ(status.st_size, 0);
  const ReadResult result = Read("/proc/self/status");
  EXPECT_TRUE(result.ok);
  EXPECT_NE(result.contents.find("\nPid:\t" + std::to_string(getpid()) + "\n"), std::string::npos);
  EXPECT_NE(result.contents.find("ctxt_switches"), std::string::npos);
}

TEST(ReadTextFile, AcceptsExactlySixtyFourMebibytes) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("large", "x");
  fs::resize_file(file, kLargestFile);
  std::string expected(kLargestFile, '\0');
  expected.front() = 'x';
  ExpectContents(file, expected);
}

TEST(ReadTextFile, CannotReadALargerFile) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("large", "x");
  for (const std::uintmax_t size : {kLargestFile + 1, kLargestFile * 1024}) {
    fs::resize_file(file, size);
    ExpectFailure(file, kReadError);
  }
}

TEST(ReadTextFile, StopsAtTheLimitInAFileThatReportsNoSize) {
  struct stat status {};
  ASSERT_EQ(stat("/proc/self/pagemap", &status), 0);
  ASSERT_EQ(status.st_size, 0);
  ExpectFailure("/proc/self/pagemap", kReadError);
}

TEST(ReadTextFile, CannotReadWhereReadingFails) {
  // Nothing is mapped at address 0, where this file begins.
  ExpectFailure("/proc/self/mem", kReadError);
}

TEST(ReadTextFile, CannotOpenWhatIsNotThere) {
  const TemporaryDirectory folder;
  ExpectFailure("", kOpenError);
  ExpectFailure(folder.path() / "missing", kOpenError);
  ExpectFailure(folder.path() / "missing" / "below", kOpenError);
  ExpectFailure(folder.Write("file", "text") / "below", kOpenError);
  ExpectFailure(folder.path() / std::string(300, 'n'), kOpenError);
  ExpectFailure("/" + std::string(5000, '/') + "etc", kOpenError);
}

TEST(ReadTextFile, CannotOpenALinkThatLeadsNowhere) {
  const TemporaryDirectory folder;
  fs::create_symlink("missing", folder.path() / "dangling");
  fs::create_symlink("circle_b", folder.path() / "circle_a");
  fs::create_symlink("circle_a", folder.path() / "circle_b");
  ExpectFailure(folder.path() / "dangling", kOpenError);
  ExpectFailure(folder.path() / "circle_a", kOpenError);
}

TEST(ReadTextFile, CannotOpenADirectory) {
  const TemporaryDirectory folder;
  fs::create_directory_symlink(folder.path(), folder.path() / "link");
  ExpectFailure(folder.path(), kOpenError);
  ExpectFailure(folder.path() / "link", kOpenError);
}

TEST(ReadTextFile, CannotOpenADevice) {
  ExpectFailure("/dev/null", kOpenError);
  ExpectFailure("/dev/zero", kOpenError);
}

TEST(ReadTextFile, CannotOpenASocket) {
  const TemporaryDirectory folder;
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string name = folder.path() / "socket";
  ASSERT_LT(name.size(), sizeof(address.sun_path));
  std::memcpy(address.sun_path, name.c_str(), name.size());
  const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
  ExpectFailure(name, kOpenError);
  close(listener);
}

TEST(ReadTextFile, NeverBlocksOnAFifo) {
  const TemporaryDirectory folder;
  const fs::path fifo = folder.path() / "fifo";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  fs::create_symlink("fifo", folder.path() / "link");
  const auto start = std::chrono::steady_clock::now();
  ExpectFailure(fifo, kOpenError);
  ExpectFailure(folder.path() / "link", kOpenError);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

// Opening a device can do something: rewind a tape, start a watchdog.
TEST(ReadTextFile, DoesNotEvenOpenWhatIsNoRegularFile) {
  const TemporaryDirectory folder;
  const fs::path fifo = folder.path() / "fifo";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  const OpenCounter opened_fifo(fifo);
  Read(fifo);
  EXPECT_EQ(opened_fifo.Take(), 0);
  const fs::path file = folder.Write("text", "hello");
  const OpenCounter opened_file(file);
  Read(file);
  EXPECT_EQ(opened_file.Take(), 1);
}

// While a second thread swaps a regular file and a FIFO under one name, a read sees one or the
// other, and never waits for a writer.
TEST(ReadTextFile, NeverBlocksWhenTheFileBecomesAFifo) {
  const TemporaryDirectory folder;
  const fs::path name = folder.path() / "name";
  const fs::path other = folder.path() / "other";
  folder.Write("name", "text");
  ASSERT_EQ(mkfifo(other.c_str(), 0600), 0);
  std::atomic<bool> stop = false;
  std::atomic<int> failed_swaps = 0;
  std::thread swapper([&] {
    while (!stop) {
      failed_swaps +=
          renameat2(AT_FDCWD, name.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) != 0;
    }
  });
  for (int i = 0; i < 20000; ++i) {
    const ReadResult result = Read(name);
    EXPECT_EQ(result.contents, result.ok ? "text" : kUntouched);
    EXPECT_EQ(result.error, result.ok ? kUntouched : kOpenError);
  }
  stop = true;
  swapper.join();
  EXPECT_EQ(failed_swaps, 0);
}

TEST(ReadTextFile, TakesANameWithANulByteForMissing) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("text", "hello");
  ExpectFailure(fs::path(file.string() + "\0.glsl"s), kOpenError);
}

// A file that is there but does not open. Permissions would not do: root may read everything.
TEST(ReadTextFile, CannotOpenWithoutAFreeDescriptor) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("text", "hello");
  const NoFreeDescriptor guard;
  ExpectFailure(file, kOpenError);
}

TEST(ReadTextFile, StoresAnEmptyTextForANullMessage) {
  const TemporaryDirectory folder;
  std::string contents = kUntouched;
  std::string error = kUntouched;
  EXPECT_FALSE(read_text_file(folder.path(), contents, error, nullptr, kReadError));
  EXPECT_EQ(error, "");
  error = kUntouched;
  EXPECT_FALSE(read_text_file("/proc/self/mem", contents, error, kOpenError, nullptr));
  EXPECT_EQ(error, "");
  EXPECT_EQ(contents, kUntouched);
}

TEST(ReadTextFile, StoresTheCallersWording) {
  std::string contents;
  std::string error;
  EXPECT_FALSE(read_text_file("/dev/null", contents, error, "no door", "no light"));
  EXPECT_EQ(error, "no door");
  EXPECT_FALSE(read_text_file("/proc/self/mem", contents, error, "no door", "no light"));
  EXPECT_EQ(error, "no light");
}

TEST(ReadTextFile, LeavesNoDescriptorOpen) {
  const TemporaryDirectory folder;
  const fs::path file = folder.Write("text", "hello");
  const std::size_t before = OpenDescriptors();
  for (int i = 0; i < 100; ++i) {
    Read(file);
    Read(folder.path());
    Read("/proc/self/mem");
    Read("/dev/null");
  }
  EXPECT_EQ(OpenDescriptors(), before);
}

}  // namespace
}  // namespace quindle::utils

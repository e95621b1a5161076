#pragma once

// Conditions under which files cannot be written, for as long as an object lives.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace quindle::demo {

// No file of this process grows beyond `bytes`: for the writer the same as a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &former_), 0);
    const rlimit limit{bytes, former_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() { EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &former_), 0); }

 private:
  rlimit former_{};
};

// File permissions count, which for root they otherwise do not.
class WithoutPrivileges {
 public:
  WithoutPrivileges() : former_(geteuid()) {
    constexpr uid_t kNobody = 65534;
    if (former_ == 0) {
      EXPECT_EQ(seteuid(kNobody), 0);
    }
  }
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
  ~WithoutPrivileges() { EXPECT_EQ(seteuid(former_), 0); }

 private:
  uid_t former_;
};

}  // namespace quindle::demo

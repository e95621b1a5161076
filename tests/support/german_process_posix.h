#pragma once

#include <clocale>
#include <cstdlib>
#include <locale>
#include <string>

#include "support/temporary_directory.h"

namespace quindle::testing {

// The process speaks German while this lives. Where the system has no such locale, it is compiled.
class GermanProcess {
 public:
  GermanProcess() {
    if (std::setlocale(LC_ALL, kGerman) == nullptr) {
      Compile();
    }
    german_ = std::setlocale(LC_ALL, kGerman) != nullptr;
    if (german_) {
      std::locale::global(std::locale(kGerman));
    }
  }
  ~GermanProcess() {
    std::locale::global(former_);
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
  }
  GermanProcess(const GermanProcess&) = delete;
  GermanProcess& operator=(const GermanProcess&) = delete;

  [[nodiscard]] bool IsGerman() const { return german_; }

 private:
  static constexpr const char* kGerman = "de_DE.UTF-8";

  void Compile() {
    const std::string command =
        "localedef -i de_DE -f UTF-8 '" + (folder_.path() / kGerman).string() + "' >/dev/null 2>&1";
    // Warnings make its exit code useless; whether it worked shows in setlocale.
    [[maybe_unused]] const int ignored = std::system(command.c_str());
    setenv("LOCPATH", folder_.path().c_str(), 1);
  }

  TemporaryDirectory folder_;
  std::locale former_;
  bool german_ = false;
};

}  // namespace quindle::testing

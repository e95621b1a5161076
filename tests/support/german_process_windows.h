#pragma once

#include <clocale>

namespace quindle::testing {

// The process speaks German while this lives; the C++ library of MinGW knows no locale but C.
class GermanProcess {
 public:
  GermanProcess() : german_(std::setlocale(LC_ALL, "German_Germany.1252") != nullptr) {}
  ~GermanProcess() { std::setlocale(LC_ALL, "C"); }
  GermanProcess(const GermanProcess&) = delete;
  GermanProcess& operator=(const GermanProcess&) = delete;

  [[nodiscard]] bool IsGerman() const { return german_; }

 private:
  bool german_;
};

}  // namespace quindle::testing

#pragma once

// The function of a shared library that one of a test program's own stands in front of.

#include <dlfcn.h>

#include <cstring>

namespace quindle::testing {

template <typename Function>
Function* RealFunction(const char* name) {
  void* address = dlsym(RTLD_NEXT, name);
  Function* function = nullptr;
  static_assert(sizeof(function) == sizeof(address));
  std::memcpy(&function, &address, sizeof(function));
  return function;
}

}  // namespace quindle::testing

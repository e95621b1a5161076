#pragma once

// Another function in the place of one that the library imports: what stands in for symbol
// interposition here.

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

namespace quindle::testing {

// While it lives, the DLL calls `replacement` instead of the function that it imports as `name`.
class ImportPatch {
 public:
  // Throws std::runtime_error when the DLL is not loaded or imports no such function.
  ImportPatch(const char* dll, const char* name, void* replacement)
      : slot_(FindSlot(reinterpret_cast<std::uint8_t*>(GetModuleHandleA(dll)), name)) {
    if (slot_ == nullptr) {
      throw std::runtime_error(std::string(dll) + " does not import " + name);
    }
    former_ = *slot_;
    Store(replacement);
  }
  ImportPatch(const ImportPatch&) = delete;
  ImportPatch& operator=(const ImportPatch&) = delete;
  ~ImportPatch() { Store(former_); }

 private:
  static void** FindSlot(std::uint8_t* image, const char* name) {
    if (image == nullptr) {
      return nullptr;
    }
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(image + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(image + imports.VirtualAddress);
    for (; library->Name != 0; ++library) {
      auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(image + library->OriginalFirstThunk);
      auto* slots = reinterpret_cast<void**>(image + library->FirstThunk);
      for (; names->u1.AddressOfData != 0; ++names, ++slots) {
        const auto* entry =
            reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(image + names->u1.AddressOfData);
        if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal) &&
            std::strcmp(reinterpret_cast<const char*>(entry->Name), name) == 0) {
          return slots;
        }
      }
    }
    return nullptr;
  }

  void Store(void* function) {
    DWORD former = 0;
    VirtualProtect(slot_, sizeof(*slot_), PAGE_READWRITE, &former);
    *slot_ = function;
    VirtualProtect(slot_, sizeof(*slot_), former, &former);
  }

  void** slot_;
  void* former_ = nullptr;
};

}  // namespace quindle::testing

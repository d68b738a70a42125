#include "tests/windows/replaced_import.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

// The entry of the import table with the function's address; nullptr if the program does
// not import the function.
void** FindImport(const char* name) {
  BYTE* const base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* library =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  for (; library->Name != 0; ++library) {
    const auto* names =
        reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    void** places = reinterpret_cast<void**>(base + library->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++places) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) {
        continue;
      }
      const auto* found =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(found->Name), name) == 0) {
        return places;
      }
    }
  }
  return nullptr;
}

void Write(void** place, void* address) {
  DWORD protection = 0;
  VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
  *place = address;
  VirtualProtect(place, sizeof *place, protection, &protection);
}

}  // namespace

ReplacedImport::ReplacedImport(const char* name, void* replacement, std::nullptr_t)
    : place_(FindImport(name)) {
  if (place_ == nullptr) {
    ADD_FAILURE() << "The program does not import " << name;
    return;
  }
  former_ = *place_;
  Write(place_, replacement);
}

ReplacedImport::~ReplacedImport() {
  if (place_ != nullptr) {
    Write(place_, former_);
  }
}

#ifndef CORVALIS_TESTS_WINDOWS_REPLACED_IMPORT_H_
#define CORVALIS_TESTS_WINDOWS_REPLACED_IMPORT_H_

#include <windows.h>

#include <cstddef>

// Replaces a function of a DLL by another one of the same type, for the calls of this
// program, until it is destroyed. The other function can count calls, or do what Windows
// does and Wine does not. Calls from one DLL to another are not replaced.
class ReplacedImport {
 public:
  template <typename F>
  ReplacedImport(const char* name, F* replacement)
      : ReplacedImport(name, reinterpret_cast<void*>(replacement), nullptr) {}
  ReplacedImport(const ReplacedImport&) = delete;
  ReplacedImport& operator=(const ReplacedImport&) = delete;
  ~ReplacedImport();

  // The replaced function. Its name now means the other one.
  template <typename F>
  F* Former() const {
    return reinterpret_cast<F*>(former_);
  }

 private:
  ReplacedImport(const char* name, void* replacement, std::nullptr_t);

  void** place_;
  void* former_ = nullptr;
};

#endif  // CORVALIS_TESTS_WINDOWS_REPLACED_IMPORT_H_

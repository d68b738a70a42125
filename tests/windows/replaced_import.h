#ifndef CORVALIS_TESTS_WINDOWS_REPLACED_IMPORT_H_
#define CORVALIS_TESTS_WINDOWS_REPLACED_IMPORT_H_

#include <windows.h>

#include <cstddef>

// While one lives, the calls of this program to a function of a DLL go to
// another function of the same type, which can count them or behave as Windows
// does where Wine does otherwise. Calls from one DLL to another stay.
class ReplacedImport {
 public:
  template <typename F>
  ReplacedImport(const char* name, F* replacement)
      : ReplacedImport(name, reinterpret_cast<void*>(replacement), nullptr) {}
  ReplacedImport(const ReplacedImport&) = delete;
  ReplacedImport& operator=(const ReplacedImport&) = delete;
  ~ReplacedImport();

  // The function that calls went to before. Its own name leads to the other one.
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

#ifndef CORVALIS_TESTS_WINDOWS_COUNTED_OBJECT_H_
#define CORVALIS_TESTS_WINDOWS_COUNTED_OBJECT_H_

#include <windows.h>

#include <gtest/gtest.h>
#include <unknwn.h>

// A COM object with one interface that a test owns. Its destructor expects that all other
// references have been released.
template <typename Interface>
class CountedObject : public Interface {
 public:
  explicit CountedObject(REFIID id) : id_(id) {}
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;
  virtual ~CountedObject() { EXPECT_EQ(references_, 1U) << "references to it"; }

  ULONG references() const { return references_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = id == IID_IUnknown || id == id_;
    *object = isKnown ? static_cast<Interface*>(this) : nullptr;
    if (isKnown) {
      AddRef();
    }
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }

 private:
  IID id_;
  ULONG references_ = 1;
};

#endif  // CORVALIS_TESTS_WINDOWS_COUNTED_OBJECT_H_

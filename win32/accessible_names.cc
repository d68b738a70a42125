#include "win32/accessible_names.h"

#include <oleacc.h>

namespace win32 {

bool AccessibleNames::Set(HWND control, const wchar_t* name) {
  if (services_ == nullptr) {
    void* services = nullptr;
    if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IAccPropServices, &services))) {
      return false;
    }
    services_ = static_cast<IAccPropServices*>(services);
  }
  if (SUCCEEDED(services_->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                          PROPID_ACC_NAME, name))) {
    named_.push_back(control);
  }
  return true;
}

void AccessibleNames::Clear() {
  for (const HWND control : named_) {
    services_->ClearHwndProps(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                              &PROPID_ACC_NAME, 1);
  }
  named_.clear();
  if (services_ != nullptr) {
    services_->Release();
    services_ = nullptr;
  }
}

}  // namespace win32

#ifndef CORVALIS_TESTS_WINDOWS_DRAG_DATA_H_
#define CORVALIS_TESTS_WINDOWS_DRAG_DATA_H_

#include <windows.h>

#include <ole2.h>

#include <string>
#include <vector>

// The data of a drag: one clipboard format in a block of memory. It starts with one
// reference, and deletes itself when the last one is released.
class DragData final : public IDataObject {
 public:
  DragData(CLIPFORMAT format, std::string bytes);

  // A list of files (CF_HDROP) with these paths.
  static DragData* Files(const std::vector<std::wstring>& paths);
  static DragData* Text(const std::wstring& text);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override;
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override;
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) override;
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override {
    return OLE_E_ADVISENOTSUPPORTED;
  }

 private:
  FORMATETC format_;
  std::string bytes_;
  LONG references_ = 1;
};

#endif  // CORVALIS_TESTS_WINDOWS_DRAG_DATA_H_

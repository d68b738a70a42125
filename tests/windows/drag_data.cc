#include "tests/windows/drag_data.h"

#include <shlobj.h>

#include <cstring>
#include <utility>

namespace {

std::string BytesOf(const std::wstring& text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

}  // namespace

DragData::DragData(CLIPFORMAT format, std::string bytes)
    : format_{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}, bytes_(std::move(bytes)) {}

DragData* DragData::Files(const std::vector<std::wstring>& paths) {
  DROPFILES header{};
  header.pFiles = sizeof header;
  header.fWide = TRUE;
  std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
  for (const std::wstring& path : paths) {
    bytes += BytesOf(path + L'\0');
  }
  bytes += BytesOf(std::wstring(1, L'\0'));
  return new DragData(CF_HDROP, std::move(bytes));
}

DragData* DragData::Text(const std::wstring& text) {
  return new DragData(CF_UNICODETEXT, BytesOf(text + L'\0'));
}

HRESULT DragData::QueryInterface(REFIID id, void** object) {
  if (id != IID_IUnknown && id != IID_IDataObject) {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  *object = static_cast<IDataObject*>(this);
  AddRef();
  return S_OK;
}

ULONG DragData::AddRef() { return static_cast<ULONG>(InterlockedIncrement(&references_)); }

ULONG DragData::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) {
    delete this;
  }
  return static_cast<ULONG>(left);
}

HRESULT DragData::GetData(FORMATETC* format, STGMEDIUM* medium) {
  if (QueryGetData(format) != S_OK) {
    return DV_E_FORMATETC;
  }
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes_.size());
  std::memcpy(GlobalLock(memory), bytes_.data(), bytes_.size());
  GlobalUnlock(memory);
  *medium = {};
  medium->tymed = TYMED_HGLOBAL;
  medium->hGlobal = memory;
  return S_OK;
}

HRESULT DragData::QueryGetData(FORMATETC* format) {
  const bool has =
      format->cfFormat == format_.cfFormat && (format->tymed & static_cast<DWORD>(TYMED_HGLOBAL));
  return has ? S_OK : DV_E_FORMATETC;
}

HRESULT DragData::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) {
  out->ptd = nullptr;
  return E_NOTIMPL;
}

HRESULT DragData::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
  return direction == DATADIR_GET ? SHCreateStdEnumFmtEtc(1, &format_, formats) : E_NOTIMPL;
}

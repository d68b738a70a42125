#include "win32/file_drop.h"

#include <ole2.h>
#include <shellapi.h>

#include <exception>
#include <optional>
#include <utility>

#include "win32/control_event.h"
#include "win32/text.h"

namespace win32 {
namespace {

FORMATETC FileListFormat() { return {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}; }

void AppendPathsIn(HDROP drop, std::vector<std::wstring>& paths) {
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT index = 0; index < count; ++index) {
    std::wstring path(DragQueryFileW(drop, index, nullptr, 0) + 1, L'\0');
    path.resize(DragQueryFileW(drop, index, path.data(), static_cast<UINT>(path.size())));
    paths.push_back(std::move(path));
  }
}

}  // namespace

// OLE may keep a reference longer than the FileDrop lives, but calls the target only
// while the control is registered.
class FileDrop::Target final : public IDropTarget {
 public:
  explicit Target(FileDrop& owner) : owner_(owner) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (id != IID_IUnknown && id != IID_IDropTarget) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = static_cast<IDropTarget*>(this);
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }

  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
    FORMATETC format = FileListFormat();
    holdsFiles_ = data != nullptr && data->QueryGetData(&format) == S_OK;
    *effect = EffectOf(*effect);
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override {
    *effect = EffectOf(*effect);
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }

  HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
    *effect = EffectOf(*effect);
    FORMATETC format = FileListFormat();
    STGMEDIUM medium{};
    if (*effect == DROPEFFECT_NONE || data->GetData(&format, &medium) != S_OK) {
      *effect = DROPEFFECT_NONE;
      return S_OK;
    }
    try {
      AppendPathsIn(static_cast<HDROP>(medium.hGlobal), owner_.paths_);
    } catch (const std::exception&) {  // must not reach OLE
      *effect = DROPEFFECT_NONE;
    }
    ReleaseStgMedium(&medium);
    if (*effect == DROPEFFECT_MOVE) {
      *effect = DROPEFFECT_NONE;  // otherwise the source would delete the files
    }
    ReportLater(owner_.control_, kFilesDropped);
    return S_OK;
  }

 private:
  // Answers with "move" only if the source allows nothing else.
  DWORD EffectOf(DWORD allowed) const {
    if (!holdsFiles_ || !IsWindowEnabled(GetParent(owner_.control_))) {
      return DROPEFFECT_NONE;
    }
    for (const DWORD effect : {DROPEFFECT_COPY, DROPEFFECT_LINK, DROPEFFECT_MOVE}) {
      if ((allowed & effect) != 0) {
        return effect;
      }
    }
    return DROPEFFECT_NONE;
  }

  FileDrop& owner_;
  ULONG references_ = 1;
  bool holdsFiles_ = false;
};

DroppedFiles FileDrop::Take() {
  DroppedFiles files;
  for (std::wstring& path : std::exchange(paths_, {})) {
    if (std::optional<std::string> bytes = PathToBytes(path)) {
      files.paths.push_back(*std::move(bytes));
    } else {
      files.refused.push_back(std::move(path));
    }
  }
  return files;
}

void FileDrop::Attach(HWND control) {
  control_ = control;
  auto* const target = new Target(*this);
  RegisterDragDrop(control, target);
  target->Release();
  // OLE keeps a reference until RevokeDragDrop(), which the analyzer cannot know.
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)

void FileDrop::Detach() {
  if (control_ != nullptr) {
    RevokeDragDrop(std::exchange(control_, nullptr));
  }
}

}  // namespace win32

#include <windows.h>

#include <oleacc.h>

#include <map>

#include "tests/windows/counted_object.h"
#include "tests/windows/window_tour.h"
#include "win32/window_text.h"

namespace {

// Stands in for the service of Windows that keeps the names of controls. Wine has none.
class KeptNames final : public CountedObject<IAccPropServices> {
 public:
  KeptNames() : CountedObject(IID_IAccPropServices) {}

  std::map<HWND, std::wstring> names;

  HRESULT WINAPI SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                LPCWSTR text) override {
    EXPECT_EQ(object, static_cast<DWORD>(OBJID_CLIENT));
    EXPECT_EQ(child, static_cast<DWORD>(CHILDID_SELF));
    EXPECT_TRUE(property == PROPID_ACC_NAME);
    names[window] = text;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND window, DWORD object, DWORD child,
                                const MSAAPROPID* properties, int count) override {
    EXPECT_EQ(object, static_cast<DWORD>(OBJID_CLIENT));
    EXPECT_EQ(child, static_cast<DWORD>(CHILDID_SELF));
    EXPECT_EQ(count, 1);
    EXPECT_TRUE(*properties == PROPID_ACC_NAME);
    EXPECT_TRUE(IsWindow(window)) << "cleared too late";
    EXPECT_EQ(names.erase(window), 1U);
    return S_OK;
  }

  // The program calls no other function.
  HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_NOTIMPL;
  }
};

// Makes COM return that service until it is destroyed.
class KeptNamesFactory final : public CountedObject<IClassFactory> {
 public:
  explicit KeptNamesFactory(KeptNames& names) : CountedObject(IID_IClassFactory), names_(names) {
    EXPECT_EQ(CoRegisterClassObject(CLSID_AccPropServices, this, CLSCTX_INPROC_SERVER,
                                    REGCLS_MULTIPLEUSE, &cookie_),
              S_OK);
  }
  ~KeptNamesFactory() override { CoRevokeClassObject(cookie_); }

  HRESULT WINAPI CreateInstance(IUnknown*, REFIID id, void** object) override {
    return names_.QueryInterface(id, object);
  }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }

 private:
  KeptNames& names_;
  DWORD cookie_ = 0;
};

// The names that a screen reader says for the controls that the user can act on.
const std::map<int, std::wstring> kNames = {
    {IDC_FORM2_SSTAB1, L"Pages"},
    {IDC_FORM2_COMMAND5, L"Quit"},

    {IDC_FORM2_COMMAND13, L"Change Menu Type"},
    {IDC_FORM2_LIST1, L"Menu entries :"},
    {IDC_FORM2_COMMAND2, L"Add"},
    {IDC_FORM2_COMMAND3, L"Edit"},
    {IDC_FORM2_COMMAND7, L"Delete"},
    {IDC_FORM2_COMMAND4, L"Move Up"},
    {IDC_FORM2_COMMAND8, L"Move Down"},
    {IDC_FORM2_COMMAND9, L"Separator"},
    {IDC_FORM2_COMMAND11, L"Change Icon"},

    {IDC_FORM2_COMMAND14, L"Change Menu Type"},
    {IDC_FORM2_DRIVE1, L"Drive :"},
    {IDC_FORM2_DIR1, L"Folder :"},
    {IDC_FORM2_TEXT7, L"Current Path :"},
    {IDC_FORM2_TEXT8, L"File Pattern :"},
    {IDC_FORM2_CHECK2, L"Display Folders"},
    {IDC_FORM2_CHECK3, L"Display Hidden Files"},
    {IDC_FORM2_CHECK4, L"Hide file extentions for known file types"},
    {IDC_FORM2_COMMAND15, L"Save Changes"},

    {IDC_FORM2_TEXT3, L"Sample :"},
    {IDC_FORM2_COMMAND6, L"Change Font"},
    {IDC_FORM2_PICTURE1, L"Show the icon on the desktop colour"},
    {IDC_FORM2_HSCROLL1, L"Icon in the file :"},
    {IDC_FORM2_COMMAND10, L"Select Icon File"},
    {IDC_FORM2_CHECK1, L"Show small icons in menu"},
    {IDC_FORM2_COMMAND12, L"Save Changes"},

    {IDC_FORM3_TEXT1, L"Full path of the item"},
    {IDC_FORM3_COMMAND3, L"Browse..."},
    {IDC_FORM3_TEXT2, L"Additional Command Line Arguments"},
    {IDC_FORM3_TEXT3, L"Start in"},
    {IDC_FORM3_TEXT4, L"Name of the shortcut"},
    {IDC_FORM3_COMMAND4, L"< Back"},
    {IDC_FORM3_COMMAND1, L"Next >"},
    {IDC_FORM3_COMMAND5, L"Finish"},
    {IDC_FORM3_COMMAND2, L"Cancel"},

    {IDC_FORM4_HSCROLL1, L"Icon in the file :"},
    {IDC_FORM4_COMMAND2, L"Select Icon Library"},
    {IDC_FORM4_COMMAND1, L"OK"},
    {IDC_FORM4_COMMAND3, L"Cancel"}};

}  // namespace

// Has to outlive the windows.
class KeepsNames {
 protected:
  KeptNames kept;
};

class AccessibleNamesTest : public KeepsNames, public WindowTour {
 protected:
  // The name of a control by the rules of Windows: the name that was given to it, or a
  // button's text, or the text of the label right before it, even of a hidden one.
  std::wstring NameOf(HWND control) {
    if (const auto given = kept.names.find(control); given != kept.names.end()) {
      return given->second;
    }
    if (ClassOf(control) == "Button") {
      return win32::WindowText(control);
    }
    const HWND before = RelatedWindow(control, GW_HWNDPREV);
    return before != nullptr && ClassOf(before) == "Static" ? win32::WindowText(before)
                                                            : std::wstring();
  }

  // True if the keyboard or the mouse does something at the control.
  static bool CanBeActedOn(HWND control) {
    const LONG style = GetWindowLongA(control, GWL_STYLE);
    return (style & WS_TABSTOP) != 0 || (ClassOf(control) == "Static" && (style & SS_NOTIFY) != 0);
  }
};

TEST_F(AccessibleNamesTest, EveryControlToActOnSaysWhatItDoes) {
  const KeptNamesFactory factory(kept);
  std::map<int, std::wstring> found;
  VisitAll([&](const std::string&, HWND window) {
    for (const HWND control : Shown(window)) {
      if (CanBeActedOn(control)) {
        found[GetDlgCtrlID(control)] = NameOf(control);
      }
    }
  });
  EXPECT_EQ(found, kNames);
}

TEST_F(AccessibleNamesTest, EveryPreviewSaysWhoseIconItShows) {
  const KeptNamesFactory factory(kept);
  std::map<int, std::wstring> found;
  VisitAll([&](const std::string&, HWND window) {
    for (const int id : {IDC_FORM2_ICONIC1, IDC_FORM4_PICTURE1}) {
      if (const HWND box = GetDlgItem(window, id)) {
        found[id] = NameOf(box);
      }
    }
  });
  EXPECT_EQ(found, (std::map<int, std::wstring>{{IDC_FORM2_ICONIC1, L"Icon of the selected entry"},
                                                {IDC_FORM4_PICTURE1, L"Chosen icon"}}));
}

TEST_F(AccessibleNamesTest, NamesGoWithTheirWindow) {
  const KeptNamesFactory factory(kept);
  ASSERT_TRUE(Open(testing_menus::UserDefinedMenu({})));
  const std::size_t own = kept.names.size();
  EXPECT_GT(own, 0U);
  Press(IDC_FORM2_COMMAND2);
  EXPECT_GT(kept.names.size(), own);
  SendMessageA(GetDlgItem(ThreadWindow("Form3"), IDC_FORM3_COMMAND2), BM_CLICK, 0, 0);
  RunMessages();
  EXPECT_EQ(kept.names.size(), own);
  SendMessageA(form().window(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(kept.names.empty());
  EXPECT_EQ(kept.references(), 1U);
  EXPECT_TRUE(TakeQuit());
}

#include "editor/form2.h"

#include <commctrl.h>

#include <utility>

#include "editor/default_picture.h"
#include "editor/list_keys.h"
#include "menufile/failure.h"
#include "resources/resource.h"
#include "win32/message_box.h"
#include "win32/route.h"
#include "win32/scale.h"
#include "win32/window_text.h"

namespace editor {
namespace {

constexpr win32::Route<Form2> kRoutes[] = {
    {IDC_FORM2_SSTAB1, win32::kTabChanged, &Form2::SSTab1Change},
    {IDC_FORM2_COMMAND5, BN_CLICKED, &Form2::Command5Click},

    {IDC_FORM2_LIST1, LBN_SELCHANGE, &Form2::List1Click},
    {IDC_FORM2_LIST1, LBN_DBLCLK, &Form2::Command3Click},
    {IDC_FORM2_LIST1, win32::kFilesDropped, &Form2::List1Drop},
    {IDC_FORM2_COMMAND2, BN_CLICKED, &Form2::Command2Click},
    {IDC_FORM2_COMMAND3, BN_CLICKED, &Form2::Command3Click},
    {IDC_FORM2_COMMAND7, BN_CLICKED, &Form2::Command7Click},
    {IDC_FORM2_COMMAND4, BN_CLICKED, &Form2::Command4Click},
    {IDC_FORM2_COMMAND8, BN_CLICKED, &Form2::Command8Click},
    {IDC_FORM2_COMMAND9, BN_CLICKED, &Form2::Command9Click},
    {IDC_FORM2_COMMAND11, BN_CLICKED, &Form2::ChangeItemIcon},
    {IDC_FORM2_COMMAND13, BN_CLICKED, &Form2::Command13Click},

    {IDC_FORM2_DRIVE1, CBN_DROPDOWN, &Form2::Drive1DropDown},
    {IDC_FORM2_DRIVE1, CBN_SELCHANGE, &Form2::Drive1Change},
    {IDC_FORM2_DIR1, LBN_DBLCLK, &Form2::OpenSelectedFolder},
    {IDC_FORM2_DIR1, win32::kEnterPressed, &Form2::OpenSelectedFolder},
    {IDC_FORM2_TEXT7, EN_CHANGE, &Form2::Text7Change},
    {IDC_FORM2_TEXT7, EN_KILLFOCUS, &Form2::Text7LostFocus},
    {IDC_FORM2_COMMAND15, BN_CLICKED, &Form2::Command15Click},
    {IDC_FORM2_COMMAND14, BN_CLICKED, &Form2::Command14Click},

    {IDC_FORM2_COMMAND6, BN_CLICKED, &Form2::ChangeMenuFont},
    {IDC_FORM2_PICTURE1, STN_CLICKED, &Form2::ShowPreviewOnDesktopColour},
    {IDC_FORM2_HSCROLL1, win32::kScrolled, &Form2::ShowIconAt},
    {IDC_FORM2_COMMAND10, BN_CLICKED, &Form2::SelectIconSourceFile},
    {IDC_FORM2_COMMAND12, BN_CLICKED, &Form2::SaveAppearance},
};

// The captions of the tabs, and their pages. The page of the first tab depends on the
// type of the menu: contents_.
constexpr const wchar_t* kTabNames[] = {L"Contents", L"Appearance", L"About"};
constexpr Page kTabPages[] = {kItemPage, kAppearancePage, kAboutPage};

}  // namespace

Form2::Form2(std::string menuFilePath, menufile::FileSystem& files)
    : Form(kForm2Plan, nullptr, kItemPage), menu_(files, std::move(menuFilePath)) {
  for (const wchar_t* tab : kTabNames) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(tab);
    SendMessageW(Control(IDC_FORM2_SSTAB1), TCM_INSERTITEMW, std::size(kTabNames),
                 reinterpret_cast<LPARAM>(&item));
  }
  items_.Attach(Control(IDC_FORM2_LIST1));
  AnswerListKeys(items_);
  list1Drop_.Attach(Control(IDC_FORM2_LIST1));
  iconic1_.SetParentsBackground();
  iconic1_.Attach(Control(IDC_FORM2_ICONIC1));
  CreateDirectoryPage();
  ShowPictures();
  CreateAppearancePage();
  OnArranged();
}

Form2::~Form2() = default;

bool Form2::StartUp() {
  if (menu_.WasCutShort()) {
    if (win32::AskYesOrNo(window(),
                          L"The last change to the menu file was interrupted.\r"
                          L"Would you like to finish it?")) {
      menu_.AnswerYes();
    } else {
      menu_.AnswerNo();
    }
  }
  if (!LoadMenuFile()) {
    return false;
  }
  // A directory page that the menu has not filled shows the start folder.
  if (contents_ != kDirectoryPage) {
    StartDirectoryPage();
    Dir1Change();
  }
  ShowIconAt();
  SelectTab(0);
  return true;
}

bool Form2::LoadMenuFile() {
  const ItemList::Filling filling(items_);
  return menufile::LoadMenuFile(menu_, DefaultPictureFile(), *this);
}

bool Form2::Rewrite(const menufile::MenuChange& change) {
  if (menufile::RewriteMenuFile(menu_, change) == menufile::ChangeResult::EarlierFinished) {
    ReadAgain();
    return false;
  }
  return true;
}

bool Form2::AddEntries(const std::vector<menufile::EntryTexts>& entries, bool deletesScratchFile) {
  if (menufile::AddEntries(menu_, entries, deletesScratchFile) ==
      menufile::ChangeResult::EarlierFinished) {
    ReadAgain();
    return false;
  }
  const ItemList::Filling filling(items_);
  for (const menufile::EntryTexts& entry : entries) {
    items_.Append(entry.caption, entry.target);
  }
  return true;
}

std::optional<menufile::MenuEntry> Form2::ReadEntry(int row) {
  try {
    auto entry = menufile::ReadMenuEntry(menu_, static_cast<std::size_t>(row));
    if (!entry) {
      ReadAgain();
    }
    return entry;
  } catch (const menufile::Failure& failure) {
    win32::ShowError(window(), win32::ToText(failure.what()));
    return std::nullopt;
  }
}

void Form2::ReadAgain() {
  items_.Clear();
  items_.SetIcon(0, nullptr);
  items_.Hidden(0) = {};
  iconic1_.Clear();
  ShowContents(kItemPage);
  if (!LoadMenuFile()) {
    OnClose();
  }
}

void Form2::ShowChild(std::unique_ptr<win32::Form> child) {
  child_ = std::move(child);
  ShowWindow(child_->window(), SW_SHOW);
}

void Form2::OpenChild(std::unique_ptr<win32::Form> child) {
  ShowChild(std::move(child));
  EnableWindow(window(), FALSE);
}

void Form2::CloseChild() {
  // Enable this window first: otherwise Windows would activate another program's window
  // when the child closes.
  EnableWindow(window(), TRUE);
  child_->Close();
  ShowWindow(window(), SW_SHOW);
  SetForegroundWindow(window());
}

void Form2::Command5Click() { OnClose(); }

void Form2::List1Click() {
  iconic1_.Clear();
  if (const int row = items_.Selected(); row >= 0) {
    ShowRowIcon(row);
  }
}

void Form2::SSTab1Change() {
  const LRESULT tab = SendMessageW(Control(IDC_FORM2_SSTAB1), TCM_GETCURSEL, 0, 0);
  if (tab >= 0) {
    ShowPages(tab == 0 ? contents_ : kTabPages[tab]);
  }
}

void Form2::SelectTab(int tab) {
  SendMessageW(Control(IDC_FORM2_SSTAB1), TCM_SETCURSEL, static_cast<WPARAM>(tab), 0);
  SSTab1Change();
}

void Form2::ShowContents(Page page) {
  contents_ = page;
  SSTab1Change();
}

void Form2::OnCommand(int id, UINT event) { win32::Follow<Form2>(kRoutes, *this, id, event); }

void Form2::OnDrawItem(const DRAWITEMSTRUCT& item) {
  if (item.hwndItem == dir1_.window()) {
    dir1_.Draw(item);
    return;
  }
  const bool isPreview = item.hwndItem == iconic1_.control();
  (isPreview ? iconic1_ : AppearancePicture()).Paint(item);
}

// Ctrl+Tab and Ctrl+Page Down go to the next tab, Ctrl+Shift+Tab and Ctrl+Page Up to
// the one before.
bool Form2::OnKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) >= 0) {
    return false;
  }
  int step = 0;
  if (message.wParam == VK_NEXT || message.wParam == VK_PRIOR) {
    step = message.wParam == VK_NEXT ? 1 : -1;
  } else if (message.wParam == VK_TAB) {
    step = GetKeyState(VK_SHIFT) < 0 ? -1 : 1;
  } else {
    return false;
  }
  const HWND tabs = Control(IDC_FORM2_SSTAB1);
  const int count = static_cast<int>(std::size(kTabNames));
  const int tab = static_cast<int>(SendMessageW(tabs, TCM_GETCURSEL, 0, 0));
  SelectTab((tab + step + count) % count);
  SetFocus(tabs);
  return true;
}

// The program ends at once, even if a child window is open.
void Form2::OnClose() {
  if (child_) {
    child_->Close();
  }
  if (menu_.HasUnfinished()) {
    try {
      menu_.FinishEarlier();
    } catch (const menufile::Failure& failure) {
      win32::ShowError(window(), win32::ToText(failure.what()) +
                                     L"\n\nThe last change to the menu file was interrupted. "
                                     L"Corvalis Edit will offer to finish it at its next start.");
    }
  }
  list1Drop_.Detach();
  Close();
  PostQuitMessage(EXIT_SUCCESS);
}

// The preview has the background of the window, so it is drawn again. The picture of
// the appearance page stays: it is the one that would be saved.
void Form2::OnColoursChanged() { List1Click(); }

void Form2::OnFontChanged() {
  ShowPictures();
  ShowSampleFont();
  items_.FitToFont();
  dir1_.SetDpi(dpi());
  dir1_.FitToFont();
}

// The height of a combo box depends on its font alone, so it is set here.
void Form2::OnArranged() {
  win32::MatchHeight(Control(IDC_FORM2_DRIVE1), Control(IDC_FORM2_TEXT8));
}

bool Form2::ConfirmUpgrade() {
  return win32::AskYesOrNo(window(),
                           L"The menu file is invalid or a previous version.\r"
                           L"Would you like to update the file?");
}

void Form2::AppendItem(std::size_t row, const menufile::MenuItemRecord& item) {
  items_.AppendItem(static_cast<int>(row), item);
}

void Form2::ShowPictures() {
  const SIZE size = win32::StandardIconSize(dpi());
  const auto show = [this](int control, std::size_t number, win32::UniqueIcon icon) {
    SetPicture(control, icon.get());
    pictures_[number] = std::move(icon);
  };
  show(IDC_FORM2_IMAGE4, 0, win32::LoadIconOfSize(IDI_CONTENTS, size));
  show(IDC_FORM2_IMAGE5, 1, win32::LoadIconOfSize(IDI_FOLDER, size));
  show(IDC_FORM2_IMAGE3, 2, win32::LoadIconOfSize(IDI_APPEARANCE, size));
  show(IDC_FORM2_IMAGE1, 3, DefaultIcon(size));
}

}  // namespace editor

#ifndef CORVALIS_EDITOR_FORM2_H_
#define CORVALIS_EDITOR_FORM2_H_

#include <windows.h>

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/item_list.h"
#include "menufile/changes.h"
#include "menufile/file_system.h"
#include "menufile/loader.h"
#include "menufile/menu_file.h"
#include "win32/file_drop.h"
#include "win32/folder_list.h"
#include "win32/form.h"
#include "win32/handles.h"
#include "win32/picture_box.h"
#include "win32/text.h"

namespace editor {

// Which controls of Form2 are shown, as bits.
enum Page : unsigned {
  kItemPage = 1,        // `Frame3`, on the tab "Contents"
  kDirectoryPage = 2,   // `Frame4`, there too, for a directory-pointer menu
  kAppearancePage = 4,  // the tab "Appearance"
  kAboutPage = 8,       // the tab "About"
  kHidden = 16,         // on no page
};

// The main window: it shows one menu file, and each change that it is asked for
// goes straight to that file. There is no menu in memory besides what the
// controls show.
//
// The plan of its controls stands in form2_plan.cc, the table that routes their
// events to the handlers below in form2.cc.
class Form2 final : public win32::Form, private menufile::MenuView {
 public:
  // On the menu file of that path, in bytes. `files` is borrowed.
  Form2(std::string menuFilePath, menufile::FileSystem& files);
  ~Form2() override;

  // Start-up: offers to finish a change that was interrupted, and reads the menu
  // file into the window, which is still hidden. False when the user declined to
  // have the file converted. Throws menufile::Failure.
  bool Load();

  // For the windows that this one opens and for the handlers.
  menufile::MenuFile& menu() { return menu_; }
  ItemList& items() { return items_; }
  win32::PictureBox& iconic1() { return iconic1_; }

  // Reads the file again, into a list that is empty.
  bool LoadMenuFile();

  // All changes to the menu file go through these two. They return true when the
  // window is to be brought up to date: the change was made, or it failed and
  // ignores that. They return false when an earlier change was finished instead.
  // The window then shows the menu as it is now, and the button that was pressed
  // does nothing more: what it was pressed for may not be where the user saw it.
  // They throw menufile::Failure, unless the change ignores it.
  bool Rewrite(const menufile::MenuChange& change);
  // Adds entries to the file and to the list. Shows them only when all are in the
  // file.
  bool AddEntries(const std::vector<menufile::EntryTexts>& entries, bool deletesScratchFile);
  // Reads the file again into the window, whatever that showed.
  void ReadAgain();

  // A row's entry as the menu file has it. Nothing, after a message, when the file
  // can no longer be read, and nothing when an earlier change was finished instead.
  std::optional<menufile::MenuEntry> ReadEntry(int row);

  // Shows a window that this one has made, which is owned from here on.
  void ShowChild(std::unique_ptr<win32::Form> child);
  // The same, and disables this one while the child is open.
  void OpenChild(std::unique_ptr<win32::Form> child);
  // The window closes: enables this one and brings it to the front.
  void CloseChild();

  // Draws the icon of a list row into the preview, `iconic1`: the row's own, or
  // else the shell's for the row's target (icons/row_icon.cc).
  void ShowRowIcon(int row);

  // editor/form2.cc
  void Command5Click();  // Quit
  void List1Click();
  void SSTab1Change();

  // editor/directory_page.cc
  void Drive1DropDown();
  void Drive1Change();
  void Dir1Change();
  void Dir1KeyPress();  // Enter, or a double-click
  void Text7Change();
  void Text7LostFocus();
  void Command15Click();  // Save Changes
  void Command13Click();  // Change Menu Type, to a directory pointer
  void Command14Click();  // Change Menu Type, to a user-defined list

  // listedit/
  void Command4Click();  // Move Up
  void Command8Click();  // Move Down
  void Command7Click();  // Delete
  void Command9Click();  // Separator

  // wizard/
  void Command2Click();  // Add
  void Command3Click();  // Edit
  void List1Drop();

  // icons/
  void ChangeItemIcon();              // Command11
  void ShowIconAt();                  // HScroll1
  void SelectIconSourceFile();        // Command10
  void ShowPreviewOnDesktopColour();  // Picture1
  void ChangeMenuFont();              // Command6
  void SaveAppearance();              // Command12

 private:
  // The state of the appearance page, defined where its handlers are.
  struct AppearancePage;
  struct DeleteAppearancePage {
    void operator()(AppearancePage* page) const;
  };

  void OnCommand(int id, UINT event) override;
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;
  bool OnKey(const MSG& message) override;
  void OnClose() override;
  void OnColoursChanged() override;
  void OnFontChanged() override;
  void OnArranged() override;

  bool ConfirmUpgrade() override;
  void AppendItem(std::size_t row, const menufile::MenuItemRecord& item) override;
  // wizard/drop.cc
  void AddDropped(const std::vector<std::string>& paths);
  // editor/directory_page.cc
  void ShowDirectoryPointer(const menufile::DirectoryPointerRecord& directory) override;
  void CreateDirectoryPage();
  // Lets the lists of the page begin where they begin, unless they have.
  void StartDirectoryPage();
  // Shows the drive of a path in the drive list; none for a path on a server. False
  // if that is the drive shown already, or if it is not there.
  bool ShowDrive(const std::wstring& path);
  // Lets the folder list go to the folder on a server that the path box names, if it
  // names one.
  void FollowServerPath();
  // False when the rewrite failed, of which nobody is told.
  bool RewriteSilently(const menufile::MenuChange& change);
  // Shows the other page of the tab "Contents", from which the user came here.
  void SwitchContents(Page page, int button);

  // icons/appearance_page.cc
  void ShowAppearance(const menufile::AppearanceRecord& appearance) override;
  bool OnMessage(UINT message, WPARAM wide, LPARAM data, LRESULT& result) override;
  void CreateAppearancePage();
  void ShowSampleFont();
  const win32::PictureBox& AppearancePicture() const;

  void SelectTab(int tab);
  // Shows the page of a menu type on the tab "Contents".
  void ShowContents(Page page);
  // In the size of the DPI.
  void ShowPictures();

  menufile::MenuFile menu_;
  std::array<win32::UniqueIcon, 4> pictures_;  // of the pages
  Page contents_ = kItemPage;
  ItemList items_;
  win32::FileDrop list1Drop_;
  win32::PictureBox iconic1_;
  win32::FolderList dir1_;
  std::wstring drive_;         // that the drive list shows
  std::wstring followedPath_;  // the last one that FollowServerPath() saw
  // What the menu file has for the boxes of the directory page.
  win32::ShownBytes folderPath_;
  win32::ShownBytes filePattern_;
  std::unique_ptr<AppearancePage, DeleteAppearancePage> appearancePage_;
  std::unique_ptr<win32::Form> child_;
};

// The plan of the window's controls.
extern const win32::FormPlan kForm2Plan;

}  // namespace editor

#endif  // CORVALIS_EDITOR_FORM2_H_

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

// The pages of Form2, one bit each.
enum Page : unsigned {
  kItemPage = 1,        // `Frame3`, on the tab "Contents"
  kDirectoryPage = 2,   // `Frame4`, there too, for a directory-pointer menu
  kAppearancePage = 4,  // the tab "Appearance"
  kAboutPage = 8,       // the tab "About"
  kHidden = 16,         // on no page
};

// The main window. It shows one menu file and writes each change to that file at once.
// There is no menu in memory but what the controls show.
//
// form2_plan.cc has the plan of its controls. form2.cc has the table that routes their
// events to the handlers below.
class Form2 final : public win32::Form, private menufile::MenuView {
 public:
  // `menuFilePath` is in the ANSI code page. `files` is borrowed.
  Form2(std::string menuFilePath, menufile::FileSystem& files);
  ~Form2() override;

  // To be called once, while the window is hidden: offers to finish an interrupted
  // change, and loads the menu file. Returns false if the user declined to convert the
  // file. Throws menufile::Failure.
  bool StartUp();

  // For the handlers, and for the windows that this one opens.
  menufile::MenuFile& menu() { return menu_; }
  ItemList& items() { return items_; }
  win32::PictureBox& iconic1() { return iconic1_; }

  // Loads the menu file into the window; the list has to be empty. Returns false if the
  // user declined to convert the file. Throws menufile::Failure.
  bool LoadMenuFile();

  // All changes to the menu file go through the next two. They return true if the
  // change was made, or if it failed and ignores failures: the handler then updates the
  // window. They return false if an earlier change was finished instead. The window then
  // shows the present menu, and the handler does nothing more, because the row that the
  // user meant may be another one now. They throw menufile::Failure, unless the change
  // ignores failures.
  bool Rewrite(const menufile::MenuChange& change);
  // Adds entries to the file and then to the list.
  bool AddEntries(const std::vector<menufile::EntryTexts>& entries, bool deletesScratchFile);
  // Empties the window and loads the menu file again.
  void ReadAgain();

  // Reads the entry of a row (0-based) from the menu file. Returns nothing if the file
  // cannot be read, after a message, or if an earlier change was finished instead.
  std::optional<menufile::MenuEntry> ReadEntry(int row);

  // Shows a child window and owns it from here on.
  void ShowChild(std::unique_ptr<win32::Form> child);
  // Shows a child window and disables this one while the child is open.
  void OpenChild(std::unique_ptr<win32::Form> child);
  // Closes the child window, enables this one and brings it to the front.
  void CloseChild();

  // Draws the icon of a list row into the preview, `iconic1`: the row's own icon, or
  // the shell's icon of the target if the row has none (icons/row_icon.cc).
  void ShowRowIcon(int row);

  // editor/form2.cc
  void Command5Click();  // Quit
  void List1Click();
  void SSTab1Change();

  // editor/directory_page.cc
  void Drive1DropDown();
  void Drive1Change();
  void Dir1Change();
  void OpenSelectedFolder();  // Dir1: Enter or a double-click
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
  // Fills the drive list and the folder list if they are still empty.
  void StartDirectoryPage();
  // Selects the drive of a path in the drive list, or none for a path on a server.
  // Returns true if the selection has changed.
  bool ShowDrive(const std::wstring& path);
  // Opens the path of the path box in the folder list if it is on a server.
  void FollowServerPath();
  // The same as Rewrite(), but returns false, without a message, if it fails.
  bool RewriteSilently(const menufile::MenuChange& change);
  // Shows the other page of the tab "Contents" and moves the focus to `button` there.
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
  // Loads the pictures of the pages in the size for the DPI, and shows them.
  void ShowPictures();

  menufile::MenuFile menu_;
  std::array<win32::UniqueIcon, 4> pictures_;  // shown on the pages
  Page contents_ = kItemPage;
  ItemList items_;
  win32::FileDrop list1Drop_;
  win32::PictureBox iconic1_;
  win32::FolderList dir1_;
  std::wstring drive_;         // the selected drive
  std::wstring followedPath_;  // the path box at the last FollowServerPath()
  // The bytes in the menu file for the boxes of the directory page.
  win32::ShownBytes folderPath_;
  win32::ShownBytes filePattern_;
  std::unique_ptr<AppearancePage, DeleteAppearancePage> appearancePage_;
  std::unique_ptr<win32::Form> child_;
};

// The plan of the window's controls.
extern const win32::FormPlan kForm2Plan;

}  // namespace editor

#endif  // CORVALIS_EDITOR_FORM2_H_

#ifndef CORVALIS_EDITOR_START_FOLDER_H_
#define CORVALIS_EDITOR_START_FOLDER_H_

#include <string>

namespace editor {

// A change writes its scratch file in the current folder, so a folder that takes no
// file, such as that of Windows, would prevent every change. If the current folder is
// one, this makes the folder of the menu at `menuPath` the current one or, if that
// takes no file either, the user's folder for temporary files.
//
// To be called at start-up only. Does nothing if the path is not absolute, because it
// would mean another file afterwards. Nothing else in the program changes the current
// folder.
void LeaveFolderThatTakesNoFile(const std::wstring& menuPath);

}  // namespace editor

#endif  // CORVALIS_EDITOR_START_FOLDER_H_

#ifndef CORVALIS_EDITOR_START_FOLDER_H_
#define CORVALIS_EDITOR_START_FOLDER_H_

#include <string>

namespace editor {

// A change writes its scratch file in the current folder. Where that takes no
// file, as the folder of a program or of Windows, no change could be made: then
// the folder of the menu at `menuPath` becomes the current one or, if that takes
// none either, the user's folder for temporary files.
//
// Only at start-up, and only for a path that means the same file afterwards: an
// absolute one. Nothing else of the program changes the current folder.
void LeaveFolderThatTakesNoFile(const std::wstring& menuPath);

}  // namespace editor

#endif  // CORVALIS_EDITOR_START_FOLDER_H_

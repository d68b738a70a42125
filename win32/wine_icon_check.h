#ifndef CORVALIS_WIN32_WINE_ICON_CHECK_H_
#define CORVALIS_WIN32_WINE_ICON_CHECK_H_

#include <string>

namespace win32 {

// True where Wine runs this program.
bool IsWine();

// False where extracting the icon would make Wine read beyond the end of the
// file, which can end the program: Wine believes what the headers of an icon
// file, program or library say. Always true on Windows, which looks twice, and
// for a file that cannot be opened.
//
// `path` is in the system's ANSI code page and is searched for as ExtractIconA()
// does; `index` is 0-based, or minus the number of a resource. The answer is
// kept until the file has another size or another time of its last change.
bool MayExtractIcon(const std::string& path, int index);

}  // namespace win32

#endif  // CORVALIS_WIN32_WINE_ICON_CHECK_H_

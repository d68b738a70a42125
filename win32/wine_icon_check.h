#ifndef CORVALIS_WIN32_WINE_ICON_CHECK_H_
#define CORVALIS_WIN32_WINE_ICON_CHECK_H_

#include <string>

namespace win32 {

// True if the program runs under Wine.
bool IsWine();

// Returns false if Wine would read beyond the end of the file while it extracts the
// icon, which can crash the program: Wine does not check the sizes in the headers of
// an icon file, program or library. Always true on Windows, which checks them, and for
// a file that cannot be opened.
//
// `path` is in the system's ANSI code page, and is searched for as ExtractIconA() does.
// `index` is 0-based, or a negative resource id. The answer is cached until the size
// or the modification time of the file changes.
bool MayExtractIcon(const std::string& path, int index);

}  // namespace win32

#endif  // CORVALIS_WIN32_WINE_ICON_CHECK_H_

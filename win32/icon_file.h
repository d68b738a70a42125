#ifndef CORVALIS_WIN32_ICON_FILE_H_
#define CORVALIS_WIN32_ICON_FILE_H_

#include <string>

namespace win32 {

// Whether icons may be extracted from the file. False for an icon file, program
// or library that says of its icons what is beyond its end: it was cut short, or
// lies. Windows itself looks twice, but Wine reads on and crashes. A file of
// another kind, and one that cannot be opened, is left to Windows. The path is
// searched for as in ExtractIconA().
bool IsSoundIconFile(const std::string& path);

}  // namespace win32

#endif  // CORVALIS_WIN32_ICON_FILE_H_

#ifndef CORVALIS_TESTS_WINDOWS_ICON_FILES_H_
#define CORVALIS_TESTS_WINDOWS_ICON_FILES_H_

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

// Files with icons, put together byte by byte. An icon is known by its colour:
// 32 by 32 pixels, all of that colour but for a white square in the corner at
// the top left and a transparent one at the bottom right.
namespace testing_icons {

inline constexpr int kIconSize = 32;
inline constexpr COLORREF kWhite = RGB(255, 255, 255);

// Colours that no other icon and no part of a window has.
std::vector<COLORREF> Colours(int count);

// What a pixel of such an icon shows on a background.
COLORREF PixelOf(COLORREF icon, int x, int y, COLORREF background);

// All of them, from the top left one, row by row.
std::vector<COLORREF> PixelsOf(COLORREF icon, COLORREF background);

// An icon file with one image.
std::string IconFile(COLORREF icon);

// The same whose pixels begin, in the bottom row, with the given bytes.
std::string IconFileHolding(const std::string& bytes);

// A library (a program, when `isProgram`) without code but with that many
// icons: of the given colours, over and over. Any number of icons is drawn from
// as many images as there are colours.
std::string Library(const std::vector<COLORREF>& colours, std::size_t count,
                    bool isProgram = false);
inline std::string Library(const std::vector<COLORREF>& colours) {
  return Library(colours, colours.size());
}

}  // namespace testing_icons

#endif  // CORVALIS_TESTS_WINDOWS_ICON_FILES_H_

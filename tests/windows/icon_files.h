#ifndef CORVALIS_TESTS_WINDOWS_ICON_FILES_H_
#define CORVALIS_TESTS_WINDOWS_ICON_FILES_H_

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

// Makes files with icons. An icon is named by its colour: it has 32 by 32 pixels of that
// colour, with a white square at the top left and a transparent one at the bottom right.
namespace testing_icons {

inline constexpr int kIconSize = 32;
inline constexpr COLORREF kWhite = RGB(255, 255, 255);

// Colours that no other icon and no window has.
std::vector<COLORREF> Colours(int count);

// A pixel of such an icon on a background.
COLORREF PixelOf(COLORREF icon, int x, int y, COLORREF background);

// All of its pixels, row by row from the top left.
std::vector<COLORREF> PixelsOf(COLORREF icon, COLORREF background);

// The bitmap file that the Appearance page saves: 24 bits for each pixel, the bottom row
// first. `pixels` are those of an icon.
std::string BitmapFile(const std::vector<COLORREF>& pixels);

// An icon file with one image.
std::string IconFile(COLORREF icon);

// The same, but its pixels begin with these bytes, in the bottom row.
std::string IconFileHolding(const std::string& bytes);

// A library, or a program if `isProgram` is true, without code but with `count` icons.
// They have the given colours in turn, and share one image for each colour.
std::string Library(const std::vector<COLORREF>& colours, std::size_t count,
                    bool isProgram = false);
inline std::string Library(const std::vector<COLORREF>& colours) {
  return Library(colours, colours.size());
}

}  // namespace testing_icons

#endif  // CORVALIS_TESTS_WINDOWS_ICON_FILES_H_

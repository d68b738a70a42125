#ifndef CORVALIS_EDITOR_DEFAULT_PICTURE_H_
#define CORVALIS_EDITOR_DEFAULT_PICTURE_H_

#include <string_view>

#include "win32/handles.h"

namespace editor {

// The picture of a converted menu file: an icon file of 2238 bytes with one image of
// 32 by 32 pixels in 256 colours. The bytes belong to the program's resources.
std::string_view DefaultPictureFile();

// The same picture as an icon of that size, in pixels.
win32::UniqueIcon DefaultIcon(SIZE size);

}  // namespace editor

#endif  // CORVALIS_EDITOR_DEFAULT_PICTURE_H_

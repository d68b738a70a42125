#ifndef CORVALIS_EDITOR_DEFAULT_PICTURE_H_
#define CORVALIS_EDITOR_DEFAULT_PICTURE_H_

#include <string_view>

#include "win32/handles.h"

namespace editor {

// The picture that a converted menu file gets: an icon file of 2238 bytes with
// one image, 32 by 32 pixels in 256 colours, as it stands in the program.
std::string_view DefaultPictureFile();

// The same as an icon of that size, in pixels.
win32::UniqueIcon DefaultIcon(SIZE size);

}  // namespace editor

#endif  // CORVALIS_EDITOR_DEFAULT_PICTURE_H_

#ifndef CORVALIS_WIN32_CONTROLS_H_
#define CORVALIS_WIN32_CONTROLS_H_

#include <windows.h>

#include <cstddef>
#include <span>
#include <vector>

#include "win32/layout.h"
#include "win32/plan.h"

namespace win32 {

// All that the places of a window's controls depend on.
struct Arrangement {
  Layout layout;
  SIZE area;     // the area that the controls fill, in pixels
  POINT origin;  // the top left corner of that area in the client area
  UINT dpi;
};

// The controls of a window, by its plan. Windows destroys them with the window.
class Controls {
 public:
  explicit Controls(std::span<const ControlRow> rows) : rows_(rows) {}

  // Creates the controls and shows those of these pages (bits as in ControlRow). Group
  // boxes are created after what they frame, and a tab control last. So each is below
  // what lies on it in the z-order, and a drop from another process finds the right
  // control.
  void Create(HWND parent, HFONT font, const Arrangement& arrangement, unsigned pages);

  // Returns nullptr if no control has that id.
  HWND Find(int id) const;
  // The control's row in the plan; nullptr if it has none.
  const ControlRow* RowOf(HWND control) const;
  // The tab control; nullptr if there is none.
  HWND Tabs() const { return tabs_; }

  void MoveTo(const Arrangement& arrangement) const;
  void SetFont(HFONT font) const;
  // Shows the controls of `pages` and hides the others. `formerPages` are those shown
  // before.
  void Show(unsigned pages, unsigned formerPages) const;
  // Sends a message to every control.
  void Tell(UINT message, WPARAM wide, LPARAM data) const;

 private:
  void Create(std::size_t number, HWND parent, HFONT font, const Arrangement& arrangement,
              unsigned pages);

  std::span<const ControlRow> rows_;
  std::vector<HWND> windows_;  // one for each row
  HWND tabs_ = nullptr;
};

// The tool tips of a window's controls. Windows destroys them with the window, too.
class ToolTips {
 public:
  void Create(HWND parent, const Controls& controls, std::span<const ControlText> texts);

  // The caller passes on every mouse message to the window or its controls.
  void Relay(MSG& message) const;
  void Tell(UINT message, WPARAM wide, LPARAM data) const;

 private:
  HWND window_ = nullptr;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_CONTROLS_H_

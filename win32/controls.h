#ifndef CORVALIS_WIN32_CONTROLS_H_
#define CORVALIS_WIN32_CONTROLS_H_

#include <windows.h>

#include <cstddef>
#include <span>
#include <vector>

#include "win32/layout.h"
#include "win32/plan.h"

namespace win32 {

// What the places of a window's controls follow from.
struct Arrangement {
  Layout layout;
  SIZE area;     // that the controls fill, in pixels
  POINT origin;  // of that area in the client area
  UINT dpi;
};

// The controls of a window, as its plan has them. They go with the window.
class Controls {
 public:
  explicit Controls(std::span<const ControlRow> rows) : rows_(rows) {}

  // Creates them in their places; those of these pages (bits as in ControlRow) are
  // shown. Group boxes come after what they frame, and a tab control after all else:
  // so each is behind what lies on it, also for a drag from another process.
  void Create(HWND parent, HFONT font, const Arrangement& arrangement, unsigned pages);

  // nullptr when there is none of that id.
  HWND Find(int id) const;
  // The row of the plan; nullptr when the window is no control of it.
  const ControlRow* RowOf(HWND control) const;
  // The tab control; nullptr when there is none.
  HWND Tabs() const { return tabs_; }

  void MoveTo(const Arrangement& arrangement) const;
  void SetFont(HFONT font) const;
  // Shows the controls of these pages and hides those that only others have.
  void Show(unsigned pages, unsigned formerPages) const;
  // Sends a message to each.
  void Tell(UINT message, WPARAM wide, LPARAM data) const;

 private:
  void Create(std::size_t number, HWND parent, HFONT font, const Arrangement& arrangement,
              unsigned pages);

  std::span<const ControlRow> rows_;
  std::vector<HWND> windows_;  // one for each row
  HWND tabs_ = nullptr;
};

// A window's tool tips for its controls. They go with the window, too.
class ToolTips {
 public:
  void Create(HWND parent, const Controls& controls, std::span<const ControlText> texts);

  // Every mouse message to the window or its controls is to be passed on.
  void Relay(MSG& message) const;
  void Tell(UINT message, WPARAM wide, LPARAM data) const;

 private:
  HWND window_ = nullptr;
};

}  // namespace win32

#endif  // CORVALIS_WIN32_CONTROLS_H_

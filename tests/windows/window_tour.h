#ifndef CORVALIS_TESTS_WINDOWS_WINDOW_TOUR_H_
#define CORVALIS_TESTS_WINDOWS_WINDOW_TOUR_H_

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/windows/form2_test_base.h"

// Comes to every page of every window, for tests of what is alike in all of
// them.
class WindowTour : public Form2Test {
 protected:
  // Called with the page's name and its window, again and again.
  using Visit = std::function<void(const std::string& page, HWND window)>;
  void VisitAll(const Visit& visit);

  // The controls that the page shows, in z-order, from the front.
  static std::vector<HWND> Shown(HWND window);
  static std::string Class(HWND control);
  static bool IsFrame(HWND control);
  // Within its window.
  static RECT Place(HWND control);
  // The window that this thread has open; nullptr when there is none.
  static HWND Find(const std::string& windowClass);

 private:
  void VisitChild(const std::string& page, const std::string& windowClass, int cancelButton,
                  const Visit& visit);
};

#endif  // CORVALIS_TESTS_WINDOWS_WINDOW_TOUR_H_

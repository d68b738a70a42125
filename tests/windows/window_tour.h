#ifndef CORVALIS_TESTS_WINDOWS_WINDOW_TOUR_H_
#define CORVALIS_TESTS_WINDOWS_WINDOW_TOUR_H_

#include "tests/windows/form2_test_base.h"
#include "tests/windows/related_window.h"

// Visits every page of every window, for tests that apply to all of them.
class WindowTour : public Form2Test {
 protected:
  // Called for each page, with its name and its window.
  using Visit = std::function<void(const std::string& page, HWND window)>;
  void VisitAll(const Visit& visit);

  // The visible controls of the page in z-order, the top one first.
  static std::vector<HWND> Shown(HWND window);
  static bool IsFrame(HWND control);
  // The place of a control in its window's client area.
  static RECT Place(HWND control);
  static void Enlarge(HWND window, int width, int height);

 private:
  void VisitChild(const std::string& page, const char* windowClass, int cancelButton,
                  const Visit& visit);
};

#endif  // CORVALIS_TESTS_WINDOWS_WINDOW_TOUR_H_

#ifndef CORVALIS_WIN32_ROUTE_H_
#define CORVALIS_WIN32_ROUTE_H_

#include <windows.h>

#include <span>

namespace win32 {

// The handler of a control's event in a form of type F. The event is a notification
// code of WM_COMMAND or a ControlEvent.
template <typename F>
struct Route {
  int control;
  UINT event;
  void (F::*handler)();
};

// Calls every handler that the table has for the event.
template <typename F>
void Follow(std::span<const Route<F>> routes, F& form, int control, UINT event) {
  for (const Route<F>& route : routes) {
    if (route.control == control && route.event == event) {
      (form.*route.handler)();
    }
  }
}

}  // namespace win32

#endif  // CORVALIS_WIN32_ROUTE_H_

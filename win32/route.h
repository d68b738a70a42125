#ifndef CORVALIS_WIN32_ROUTE_H_
#define CORVALIS_WIN32_ROUTE_H_

#include <windows.h>

#include <span>

namespace win32 {

// What goes where in a form of type F: the handler of a control's event, which
// is a notification code of WM_COMMAND or a ControlEvent.
template <typename F>
struct Route {
  int control;
  UINT event;
  void (F::*handler)();
};

// Calls the handlers that the table names for the event, if any.
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

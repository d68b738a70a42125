#include "tests/windows/outside/drag.h"

#include <atomic>

#include "tests/windows/counted_object.h"
#include "tests/windows/outside/program.h"

namespace outside {
namespace {

constexpr DWORD kStep = 40;  // milliseconds from one movement to the next

// What the window that the drag begins in works with.
struct Source {
  DragData* data;
  HWND target;
  DWORD thread;
  DragResult result;
  std::atomic<bool> begun = false;
  std::atomic<bool> ended = false;
};

class DropSource final : public CountedObject<IDropSource> {
 public:
  explicit DropSource(DragResult& result) : CountedObject(IID_IDropSource), result_(result) {}

  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
    if (escape) {
      return DRAGDROP_S_CANCEL;
    }
    return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override {
    result_.shownEffect = effect;
    return DRAGDROP_S_USEDEFAULTCURSORS;
  }

 private:
  DragResult& result_;
};

POINT Middle(HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void MoveMouse(POINT from, POINT to) {
  constexpr int kSteps = 10;
  for (int step = 1; step <= kSteps; ++step) {
    SetCursorPos(from.x + (to.x - from.x) * step / kSteps,
                 from.y + (to.y - from.y) * step / kSteps);
    // SetCursorPos() alone tells no one of the movement.
    mouse_event(MOUSEEVENTF_MOVE, 0, 0, 0, 0);
    Sleep(kStep);
  }
}

// The pointer's place is told to Windows by several parties under Wine, so that
// it may jump back once after a movement.
void PutMouseAt(POINT place) {
  WaitUntil([&] {
    SetCursorPos(place.x, place.y);
    Sleep(kStep);
    POINT now{};
    GetCursorPos(&now);
    return now.x == place.x && now.y == place.y;
  });
}

// The hand that holds the mouse: a thread of its own, for DoDragDrop() returns
// only when the button is let go.
DWORD WINAPI Hand(void* window) {
  const HWND source = static_cast<HWND>(window);
  auto& what = *reinterpret_cast<Source*>(GetWindowLongPtrA(source, GWLP_USERDATA));
  const POINT begin = Middle(source);
  for (int tries = 0; tries < 10 && !what.begun; ++tries) {
    if (tries > 0) {
      mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    }
    PutMouseAt(begin);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    WaitUntil([&] { return what.begun.load(); }, 10 * kStep);
  }
  if (what.begun) {
    const POINT end = Middle(what.target);
    MoveMouse(begin, end);
    PutMouseAt(end);
    mouse_event(MOUSEEVENTF_MOVE, 0, 0, 0, 0);
    Sleep(5 * kStep);
  }
  LARGE_INTEGER frequency{};
  LARGE_INTEGER now{};
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&now);
  what.result.letGo =
      1e6 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
  mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
  // The message of it may have gone to a window that came to the front just
  // then; any other makes OLE look at the button again.
  WaitUntil([&] {
    Sleep(kStep);
    return !what.begun || what.ended || !PostThreadMessageA(what.thread, WM_MOUSEMOVE, 0, 0);
  });
  return 0;
}

void RunMessages() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    DispatchMessageA(&message);
  }
}

// A window that has just appeared may take the front once more.
void WaitForFront(HWND window) {
  ULONGLONG since = 0;
  WaitUntil([&] {
    RunMessages();
    if (GetForegroundWindow() != window) {
      since = 0;
    } else if (since == 0) {
      since = GetTickCount64();
    }
    return since != 0 && GetTickCount64() - since > 5 * kStep;
  });
}

LRESULT CALLBACK SourceProcedure(HWND window, UINT message, WPARAM wide, LPARAM data) {
  auto* const what = reinterpret_cast<Source*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (message == WM_LBUTTONDOWN && !what->begun) {
    what->begun = true;
    DropSource source(what->result);
    const HRESULT ended =
        DoDragDrop(what->data, &source, DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK,
                   &what->result.effect);
    what->result.dropped = ended == DRAGDROP_S_DROP;
    what->ended = true;
    return 0;
  }
  return DefWindowProcA(window, message, wide, data);
}

}  // namespace

DragResult DragTo(HWND target, DragData* data) {
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = SourceProcedure;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));  // the arrow
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  windowClass.lpszClassName = "DragSource";
  RegisterClassA(&windowClass);

  WaitForFront(GetLastActivePopup(GetAncestor(target, GA_ROOT)));
  Source source{data, target, GetCurrentThreadId(), {}};
  // In a corner, where it covers nothing.
  const HWND window = CreateWindowExA(WS_EX_TOPMOST, "DragSource", "", WS_POPUP | WS_VISIBLE, 0, 0,
                                      80, 60, nullptr, nullptr, windowClass.hInstance, nullptr);
  SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&source));
  SetForegroundWindow(window);
  WaitForFront(window);
  const HANDLE hand = CreateThread(nullptr, 0, Hand, window, 0, nullptr);
  WaitUntil([&] {
    RunMessages();
    return source.ended || (!source.begun && WaitForSingleObject(hand, 0) == WAIT_OBJECT_0);
  });
  WaitForSingleObject(hand, kPatience);
  source.result.begun = source.begun;
  CloseHandle(hand);
  DestroyWindow(window);
  data->Release();
  return source.result;
}

}  // namespace outside

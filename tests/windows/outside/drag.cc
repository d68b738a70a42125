#include "tests/windows/outside/drag.h"

#include <atomic>

#include "tests/windows/counted_object.h"
#include "tests/windows/outside/program.h"

namespace outside {
namespace {

constexpr DWORD kTry = 400;  // milliseconds until the next try with the mouse

// The state of the window in which the drag begins.
struct Source {
  DragData* data;
  HWND target;
  DWORD thread;
  const std::function<void()>& letsGo;
  DragResult result;
  std::atomic<int> looks = 0;  // the number of calls of GiveFeedback()
  std::atomic<bool> begun = false;
  std::atomic<bool> ended = false;
};

class DropSource final : public CountedObject<IDropSource> {
 public:
  explicit DropSource(Source& source) : CountedObject(IID_IDropSource), source_(source) {}

  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
    if (escape) {
      return DRAGDROP_S_CANCEL;
    }
    return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override {
    source_.result.shownEffect = effect;
    ++source_.looks;
    return DRAGDROP_S_USEDEFAULTCURSORS;
  }

 private:
  Source& source_;
};

POINT Middle(HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

// Moves the mouse, and waits until the drag has noticed that.
void Drag(Source& source, POINT place) {
  WaitUntil([&] {
    const int before = source.looks;
    SetCursorPos(place.x, place.y);
    // SetCursorPos() alone sends no mouse message.
    mouse_event(MOUSEEVENTF_MOVE, 0, 0, 0, 0);
    return WaitUntil([&] { return source.ended || source.looks != before; }, kTry);
  });
}

// Under Wine, several sources set the place of the pointer, so it may jump back once after
// a movement. It has to be seen in its place several times.
void PutMouseAt(POINT place) {
  int seen = -1;
  WaitUntil([&] {
    POINT now{};
    GetCursorPos(&now);
    if (seen < 0 || now.x != place.x || now.y != place.y) {
      SetCursorPos(place.x, place.y);
      seen = 0;
    }
    return ++seen == 3;
  });
}

// Moves the mouse in a thread of its own, because DoDragDrop() returns only after the
// button is released.
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
    WaitUntil([&] { return what.begun.load(); }, kTry);
  }
  if (what.begun) {
    const POINT end = Middle(what.target);
    constexpr int kSteps = 10;
    for (int step = 1; step <= kSteps; ++step) {
      Drag(what, {begin.x + (end.x - begin.x) * step / kSteps,
                  begin.y + (end.y - begin.y) * step / kSteps});
    }
    PutMouseAt(end);
    Drag(what, end);
  }
  what.letsGo();
  LARGE_INTEGER frequency{};
  LARGE_INTEGER now{};
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&now);
  what.result.letGo =
      1e6 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
  mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
  // The message may have gone to a window that just came to the front. Any other message
  // makes OLE check the button again.
  WaitUntil([&] {
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

// A window that has just opened may come to the front again, so this one has to be seen
// there several times.
void WaitForFront(HWND window) {
  int seen = 0;
  WaitUntil([&] {
    RunMessages();
    seen = GetForegroundWindow() == window ? seen + 1 : 0;
    return seen == 10;
  });
}

LRESULT CALLBACK SourceProcedure(HWND window, UINT message, WPARAM wide, LPARAM data) {
  auto* const what = reinterpret_cast<Source*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (message == WM_LBUTTONDOWN && !what->begun) {
    what->begun = true;
    DropSource source(*what);
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

DragResult DragTo(HWND target, DragData* data, const std::function<void()>& letsGo) {
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = SourceProcedure;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));  // the arrow
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
  windowClass.lpszClassName = "DragSource";
  RegisterClassA(&windowClass);

  WaitForFront(GetLastActivePopup(GetAncestor(target, GA_ROOT)));
  Source source{data, target, GetCurrentThreadId(), letsGo, {}};
  // A corner, where the window covers nothing.
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

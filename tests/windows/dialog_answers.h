#ifndef CORVALIS_TESTS_WINDOWS_DIALOG_ANSWERS_H_
#define CORVALIS_TESTS_WINDOWS_DIALOG_ANSWERS_H_

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

// A message box as the user saw it.
struct ShownBox {
  std::string title;
  std::string text;
  std::vector<std::string> buttons;  // their English captions, without "&"
  HWND owner = nullptr;              // which was disabled meanwhile; nullptr for none
  std::wstring wideText;
};

// Answers the modal boxes and dialogs that the code under test opens on this
// thread while this object lives: message boxes in the order of the answers
// given, common dialogs by what OnDialog() was given. A box that no answer is
// left for is closed with its first button and recorded all the same. Failures of the
// test are an answer that no box came for, and a box that belongs to no window while
// the user sees one of the program's.
class DialogAnswers {
 public:
  DialogAnswers();
  ~DialogAnswers();
  DialogAnswers(const DialogAnswers&) = delete;
  DialogAnswers& operator=(const DialogAnswers&) = delete;

  // The ids of the buttons to press, IDYES for one, first box first.
  void Answer(std::vector<int> buttons);

  // Called with the next dialog that is no message box, once it is up; it has
  // to make it close in the end.
  void OnDialog(std::function<void(HWND)> drive);

  // All message boxes shown so far.
  const std::vector<ShownBox>& Shown() const { return shown_; }

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wide, LPARAM data);
  static void CALLBACK Tick(HWND, UINT, UINT_PTR timer, DWORD);
  void Handle(HWND dialog);

  static DialogAnswers* current_;
  HHOOK hook_;
  std::vector<HWND> opened_;
  std::deque<int> answers_;
  std::deque<std::function<void(HWND)>> drives_;
  std::vector<ShownBox> shown_;
};

#endif  // CORVALIS_TESTS_WINDOWS_DIALOG_ANSWERS_H_

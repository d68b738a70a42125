#ifndef CORVALIS_TESTS_WINDOWS_DIALOG_ANSWERS_H_
#define CORVALIS_TESTS_WINDOWS_DIALOG_ANSWERS_H_

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

struct ShownBox {
  std::string title;
  std::string text;
  std::vector<std::string> buttons;  // their English captions, without "&"
  HWND owner = nullptr;              // disabled meanwhile; nullptr for none
  std::wstring wideText;
};

// Answers the message boxes and dialogs that the code under test opens on this thread.
// Answer() gives the answers for message boxes, OnDialog() those for common dialogs. A
// box without an answer is closed by its first button and recorded. The test fails if an
// answer is left at the end, or if a box has no owner while a window of the program is
// visible.
class DialogAnswers {
 public:
  DialogAnswers();
  ~DialogAnswers();
  DialogAnswers(const DialogAnswers&) = delete;
  DialogAnswers& operator=(const DialogAnswers&) = delete;

  // Adds the ids of the buttons to press, such as IDYES, one for each box.
  void Answer(std::vector<int> buttons);

  // Calls `drive` with the next open dialog that is not a message box. `drive` has to
  // make the dialog close.
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


#include <gtest/gtest-spi.h>

#include "tests/windows/form2_test_base.h"

TEST(DialogAnswersTest, AnAnswerThatNoBoxCameForIsAFailure) {
  EXPECT_NONFATAL_FAILURE(
      {
        DialogAnswers answers;
        answers.Answer({IDYES});
      },
      "1 message boxes did not come");
  EXPECT_NONFATAL_FAILURE(
      {
        DialogAnswers answers;
        answers.OnDialog([](HWND) {});
      },
      "1 dialogs did not come");
}

class DialogOwnerTest : public Form2Test {};

TEST_F(DialogOwnerTest, ABoxThatBelongsToNoWindowIsAFailure) {
  const auto show = [](HWND owner) { MessageBoxA(owner, "Text", "Title", MB_OK); };
  ASSERT_TRUE(Open(testing_menus::UserDefinedMenu({})));
  show(nullptr);
  ShowWindow(form().window(), SW_SHOW);
  show(form().window());
  EXPECT_NONFATAL_FAILURE(show(nullptr), "the box belongs to no window: Title, Text");
  EXPECT_EQ(answers.Shown().size(), 3U);
}

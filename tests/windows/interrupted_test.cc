// Changes that end while the menu file is being written.
#include "tests/windows/failing_files.h"
#include "tests/windows/form2_test_base.h"

using testing_menus::DirectoryMenu;
using testing_menus::ItemLine;
using testing_menus::kAppearance;
using testing_menus::UserDefinedMenu;

namespace {

const std::string kMenu = UserDefinedMenu(
    {ItemLine("One", "C:\\1"), ItemLine("Two", "C:\\2"), ItemLine("Three", "C:\\3")});

class InterruptedTest : public Form2Test {
 protected:
  void ExpectTheQuestion() {
    ASSERT_GE(answers.Shown().size(), 1U);
    EXPECT_EQ(answers.Shown()[0].title, "Query?");
    EXPECT_EQ(answers.Shown()[0].text,
              "The last change to the menu file was interrupted.\rWould you like to finish it?");
    EXPECT_EQ(answers.Shown()[0].buttons, (std::vector<std::string>{"Yes", "No"}));
  }
};

}  // namespace

TEST_F(InterruptedTest, IsFinishedOnYes) {
  for (const char* scratch : {"temporaryfile", "zoltempfileoktodelete"}) {
    for (const std::string& whole : {kMenu, DirectoryMenu("\"C:\\\",\"*.*\",1,0,0\r\n")}) {
      WriteBytes(PathOf(scratch), whole);
      answers.Answer({IDYES});
      ASSERT_TRUE(Open(whole.substr(0, whole.size() / 2)));
      ExpectTheQuestion();
      EXPECT_EQ(MenuBytes(), whole);
      EXPECT_FALSE(Exists(PathOf(scratch)));
    }
  }
  EXPECT_EQ(answers.Shown().size(), 4U);
}

TEST_F(InterruptedTest, StaysOnNo) {
  const std::string menu = UserDefinedMenu({ItemLine("One", "C:\\1")});
  WriteBytes(PathOf("temporaryfile"), kMenu);
  answers.Answer({IDNO});
  ASSERT_TRUE(Open(menu));
  ExpectTheQuestion();
  EXPECT_EQ(answers.Shown().size(), 1U);
  EXPECT_EQ(Rows(), std::vector<std::string>{"One"});
  EXPECT_EQ(MenuBytes(), menu);
  EXPECT_EQ(ReadBytes(PathOf("temporaryfile")), kMenu);
}

TEST_F(InterruptedTest, WithANewPictureIsFinishedOnYes) {
  const std::string bitmap("BM\x0A\0\0\0<\r\n<", 10);
  const std::string description =
      "\r\n<START ZOL>\r\n\"USERDEF\"\r\n" + kAppearance + ItemLine("One", "C:\\1");
  WriteBytes(PathOf("zoltempfileoktodelete"), description);
  answers.Answer({IDYES});
  ASSERT_TRUE(Open(bitmap + description.substr(0, 20)));
  ExpectTheQuestion();
  EXPECT_EQ(MenuBytes(), bitmap + description);
  EXPECT_EQ(Rows(), std::vector<std::string>{"One"});
}

TEST_F(InterruptedTest, IsNotSeenInAnythingElse) {
  for (const std::string& scratch : {std::string(), kMenu, kMenu.substr(0, kMenu.size() - 1),
                                     std::string("other"), kMenu + "\r\n"}) {
    WriteBytes(PathOf("temporaryfile"), scratch);
    WriteBytes(PathOf("zoltempfileoktodelete"), scratch);
    ASSERT_TRUE(Open(kMenu));
    ASSERT_EQ(answers.Shown().size(), 0U) << scratch << answers.Shown()[0].text;
    EXPECT_EQ(MenuBytes(), kMenu);
    EXPECT_EQ(ReadBytes(PathOf("temporaryfile")), scratch);
  }
}

// The entries must survive: the first change leaves half of the menu file, and
// the whole in the scratch file, which the second one would delete first.
TEST_F(InterruptedTest, IsFinishedByTheNextChangeOfTheSameWindow) {
  FailingFiles failing(windowsFiles, MenuPath());
  files = &failing;
  ASSERT_TRUE(Open(kMenu));
  menufile::MenuChange change;
  change.errorMode = menufile::ErrorMode::Ignores;
  change.recordRule = menufile::KeepRecord;
  failing.failing = true;
  form().Rewrite(change);
  EXPECT_EQ(MenuBytes(), kMenu.substr(0, kMenu.size() / 2));
  EXPECT_EQ(ReadBytes(PathOf("temporaryfile")), kMenu);
  form().Rewrite(change);
  EXPECT_EQ(ReadBytes(PathOf("temporaryfile")), kMenu);
  EXPECT_THROW(form().OpenToAppend(), menufile::Failure);
  EXPECT_EQ(ReadBytes(PathOf("temporaryfile")), kMenu);
  failing.failing = false;
  form().OpenToAppend().Append({menufile::Value::Quoted("Four"), {}, {}, {}, {}, {}});
  EXPECT_EQ(MenuBytes(), kMenu + "\"Four\",\"\",\"\",\"\",\"\",\r\n");
  EXPECT_FALSE(Exists(PathOf("temporaryfile")));
}


#include "menufile/menu_file.h"
#include "tests/windows/directory_test_base.h"
#include "tests/windows/faulty_files.h"

using namespace testing_menus;

namespace {

// One of the three buttons that write, and a menu for it.
struct Action {
  const char* name;
  int button;
  bool onDirectoryPage;
  int questions;
};

constexpr Action kActions[] = {
    {"Save Changes", IDC_FORM2_COMMAND15, true, 0},
    {"Change Menu Type, to a directory pointer", IDC_FORM2_COMMAND13, false, 1},
    {"Change Menu Type, to a user-defined list", IDC_FORM2_COMMAND14, true, 1},
};

// After every failure there is no message, the menu keeps its bytes, and the window stays
// as it was.
class DirectoryFailuresTest : public DirectoryTest {
 protected:
  static std::string MenuFor(const Action& action) {
    return action.onDirectoryPage
               ? DirectoryMenu(Line("C:\\windows\\", "*.exe", "0,1,0"))
               : UserDefinedMenu({ItemLine("One", "C:\\one.exe"), ItemLine("Two", "C:\\two.exe")});
  }

  static std::string NewMenuFor(const Action& action) {
    switch (action.button) {
      case IDC_FORM2_COMMAND15:
        return DirectoryMenu(Line("C:\\windows\\", "*.changed", "0,1,0"));
      case IDC_FORM2_COMMAND13:
        return DirectoryMenu("\"C:\\\",\"*.*\",1,0,0\r\n");
      default:
        return UserDefinedMenu({});
    }
  }

  // Loads the menu, changes the page, calls `spoil`, presses the button, and calls
  // `repair`.
  void PressSpoiled(const Action& action, const std::function<void()>& spoil,
                    const std::function<void()>& repair) {
    SCOPED_TRACE(action.name);
    ASSERT_TRUE(Open(MenuFor(action)));
    if (action.onDirectoryPage) {
      Type(IDC_FORM2_TEXT8, "*.changed");
    }
    const std::size_t shownBefore = answers.Shown().size();
    answers.Answer(std::vector<int>(static_cast<std::size_t>(action.questions), IDYES));
    spoil();
    Press(action.button);
    repair();
    ASSERT_EQ(answers.Shown().size() - shownBefore, static_cast<std::size_t>(action.questions));
    if (action.questions == 1) {
      EXPECT_EQ(answers.Shown().back().text, kQuestion);
    }
  }

  void ExpectAsItWas(const Action& action) {
    EXPECT_EQ(MenuBytes(), MenuFor(action)) << action.name;
    EXPECT_FALSE(Exists(PathOf("temporaryfile"))) << action.name;
    ExpectWindowAsItWas(action);
  }

  void ExpectWindowAsItWas(const Action& action) {
    SCOPED_TRACE(action.name);
    EXPECT_EQ(ShowsDirectoryPage(), action.onDirectoryPage);
    if (action.onDirectoryPage) {
      ExpectPage({.path = "C:\\windows\\", .pattern = "*.changed", .checks = "001"});
    } else {
      EXPECT_EQ(Rows(), (Texts{"One", "Two"}));
      EXPECT_EQ(form().items().Hidden(1).tag, "C:\\two.exe");
    }
  }

  // The button works after the repair.
  void ExpectWorksNow(const Action& action) {
    answers.Answer(std::vector<int>(static_cast<std::size_t>(action.questions), IDYES));
    Press(action.button);
    EXPECT_EQ(MenuBytes(), NewMenuFor(action)) << action.name;
    EXPECT_FALSE(Exists(PathOf("temporaryfile"))) << action.name;
  }
};

TEST_F(DirectoryFailuresTest, AMenuOrAScratchFileThatCannotBeWritten) {
  std::optional<LockedFile> lock;
  std::vector<Obstacle> obstacles = Obstacles();
  obstacles.push_back({"a menu file that nobody else may open",
                       [&] { lock.emplace(MenuPath(), 0); }, [&] { lock.reset(); }});
  obstacles.push_back({"a scratch file that another program holds",
                       [&] {
                         lock.emplace(PathOf("temporaryfile"), 0, GENERIC_READ | GENERIC_WRITE,
                                      CREATE_ALWAYS);
                       },
                       [&] {
                         lock.reset();
                         DeleteFileA(PathOf("temporaryfile").c_str());
                       }});
  for (const Action& action : kActions) {
    for (const Obstacle& obstacle : obstacles) {
      SCOPED_TRACE(obstacle.name);
      PressSpoiled(action, obstacle.make, obstacle.remove);
      ExpectAsItWas(action);
      ExpectWorksNow(action);
    }
  }
}

TEST_F(DirectoryFailuresTest, AMenuThatIsGone) {
  for (const Action& action : kActions) {
    PressSpoiled(
        action, [&] { DeleteFileA(MenuPath().c_str()); }, [] {});
    EXPECT_FALSE(Exists(MenuPath())) << action.name;
    EXPECT_FALSE(Exists(PathOf("temporaryfile"))) << action.name;
    ExpectWindowAsItWas(action);
  }
}

// Another program has cut the file meanwhile: it keeps its bytes.
TEST_F(DirectoryFailuresTest, AMenuThatIsCutShort) {
  for (const Action& action : kActions) {
    for (const std::string& rest :
         {std::string(), std::string("no menu at all"), kPicture, kPicture + "\r\n<START ZOL>\r\n",
          kPicture + "\r\n<START ZOL>\r\n\"USERDEF\"\r\n0,\"Tahoma\",8"}) {
      PressSpoiled(
          action, [&] { WriteBytes(MenuPath(), rest); }, [] {});
      EXPECT_EQ(MenuBytes(), rest) << action.name;
      ExpectWindowAsItWas(action);
      DeleteFileA(PathOf("temporaryfile").c_str());
    }
  }
}

TEST_F(DirectoryFailuresTest, AFailureAtAnyStepLeavesTheOldMenuOrOneThatIsFinishedLater) {
  for (const Action& action : kActions) {
    FaultyFiles failing(windowsFiles);
    files = &failing;
    int steps = 0;
    int cut = 0;
    for (bool undisturbed = false; !undisturbed && steps < 60; ++steps) {
      SCOPED_TRACE(action.name + std::string(", step ") + std::to_string(steps));
      DeleteFileA(PathOf("temporaryfile").c_str());
      PressSpoiled(
          action, [&] { failing.operationsLeft = steps; },
          [&] {
            undisturbed = *failing.operationsLeft >= 0;
            failing.operationsLeft.reset();
          });
      const std::string menu = MenuBytes();
      if (menu == MenuFor(action)) {
        ExpectWindowAsItWas(action);
      } else if (menu != NewMenuFor(action)) {
        ++cut;
        ExpectWindowAsItWas(action);
        menufile::MenuFile next(windowsFiles, MenuPath());
        EXPECT_TRUE(next.WasCutShort());
        next.AnswerYes();
        EXPECT_EQ(MenuBytes(), NewMenuFor(action));
      }
    }
    EXPECT_EQ(MenuBytes(), NewMenuFor(action));
    EXPECT_GT(cut, 0);
    EXPECT_GT(steps, 5);
    EXPECT_LT(steps, 60);
    files = &windowsFiles;
  }
}

}  // namespace

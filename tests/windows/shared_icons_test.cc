#include <windows.h>

#include <shellapi.h>

#include <set>

#include "tests/windows/icon_test_base.h"
#include "tests/windows/replaced_import.h"

using testing_icons::Library;
using namespace testing_menus;

namespace {

int extractions = 0;
int rootsAsked = 0;

// Replaces ExtractIconEx(). By the name of the file it fails and writes nothing, writes
// nullptr for no icon, or returns an icon.
UINT WINAPI ExtractAsToldByName(const char* file, int, HICON* large, HICON*, UINT) {
  ++extractions;
  const std::string name = file;
  if (name.find("nothing") != std::string::npos) {
    *large = nullptr;
  } else if (name.find("icon") != std::string::npos) {
    *large = CopyIcon(LoadIconW(nullptr, reinterpret_cast<const wchar_t*>(32512)));
    return 1;
  }
  return 0;
}

DWORD WINAPI NoRootAnswers(const wchar_t* path) {
  const std::wstring name = path;
  if (name.starts_with(L"Q:") || name.starts_with(L"\\\\away")) {
    ++rootsAsked;
    SetLastError(ERROR_BAD_NETPATH);
    return INVALID_FILE_ATTRIBUTES;
  }
  WIN32_FILE_ATTRIBUTE_DATA file{};
  return GetFileAttributesExW(path, GetFileExInfoStandard, &file) ? file.dwFileAttributes
                                                                  : INVALID_FILE_ATTRIBUTES;
}

class SharedIconsTest : public IconTest {
 protected:
  SharedIconsTest() { extractions = rootsAsked = 0; }

  Texts Icons() {
    Texts icons;
    for (const editor::HiddenRow& row : HiddenRows()) {
      icons.push_back(row.text);
    }
    return icons;
  }

  static std::string Line(const std::string& iconFile, int index = 0) {
    return ItemLine("Entry", "C:\\target.exe", "", "", iconFile, std::to_string(index));
  }

  void PressSeparator(int row) {
    SelectRow(row);
    Press(IDC_FORM2_COMMAND9);
  }
};

TEST_F(SharedIconsTest, ARowShowsTheHandleAsItStandsAfterTheCall) {
  const ReplacedImport extract("ExtractIconExA", ExtractAsToldByName);
  ASSERT_TRUE(Open(UserDefinedMenu({Line("unwritten"), Line("icon"), Line("unwritten"),
                                    Line("nothing"), Line("unwritten"), Line("icon", 1)})));
  const Texts icons = Icons();
  EXPECT_EQ(icons[0], "0");
  EXPECT_TRUE(IsIcon(icons[1]));
  EXPECT_EQ(icons[2], icons[1]);
  EXPECT_EQ(icons[3], "0");
  EXPECT_EQ(icons[4], "0");
  EXPECT_TRUE(IsIcon(icons[5]));
  EXPECT_NE(icons[5], icons[1]);
  EXPECT_EQ(extractions, 4) << "once for each index of a file";
}

TEST_F(SharedIconsTest, AFileThatIsNotSafeToReadLeavesTheRowWithoutAnIcon) {
  const std::string cut = Write("cut.dll", Library(colours).substr(0, 5000));
  ASSERT_TRUE(Open(UserDefinedMenu({Line(twelve, 3), Line(cut, 3), Line(PathOf("missing"))})));
  EXPECT_TRUE(IsIcon(Icons()[0]));
  EXPECT_EQ(Icons()[1], "0");
  EXPECT_EQ(Icons()[2], "0");
}

TEST_F(SharedIconsTest, AServerOrDriveThatDoesNotAnswerIsAskedOnce) {
  const ReplacedImport extract("ExtractIconExA", ExtractAsToldByName);
  const ReplacedImport attributes("GetFileAttributesW", NoRootAnswers);
  Texts lines;
  for (int index = 0; index < 5; ++index) {
    lines.push_back(Line("\\\\away\\share\\icons.dll", index));
    lines.push_back(Line("\\\\away\\share\\icon " + std::to_string(index) + ".ico"));
    lines.push_back(Line("Q:\\icons.dll", index));
  }
  ASSERT_TRUE(Open(UserDefinedMenu(lines)));
  EXPECT_EQ(rootsAsked, 2);
  EXPECT_EQ(extractions, 0);
  EXPECT_EQ(Icons(), Texts(15, "0"));
  PressSeparator(0);
  EXPECT_EQ(rootsAsked, 2);
}

TEST_F(SharedIconsTest, AReloadKeepsTheIconsAndAsksForNone) {
  Texts lines;
  for (int index = 0; index < 12; ++index) {
    lines.push_back(Line(twelve, index));
  }
  lines.push_back(Line(PathOf("missing.dll")));
  ASSERT_TRUE(Open(UserDefinedMenu(lines)));
  Texts icons = Icons();
  const ReplacedImport extract("ExtractIconExA", ExtractAsToldByName);
  for (int row = 0; row < 5; ++row) {
    PressSeparator(row);
    icons.insert(icons.begin() + row, "0");
    EXPECT_EQ(Icons(), icons);
  }
  EXPECT_EQ(extractions, 0);
  for (std::size_t row = 5; row < icons.size(); ++row) {
    EXPECT_TRUE(IsIcon(icons[row])) << row;
  }
}

TEST_F(SharedIconsTest, WhatNoRowNamesAnyMoreIsReleased) {
  ASSERT_TRUE(Open(UserDefinedMenu({Line(twelve, 0), Line(twelve, 1), Line(twelve, 1)})));
  const Texts icons = Icons();
  WriteBytes(MenuPath(), UserDefinedMenu({Line(twelve, 1), Line(twelve, 2)}));
  PressSeparator(0);
  EXPECT_EQ(Icons()[1], icons[1]);
  EXPECT_FALSE(IsIcon(icons[0]));
  // Another icon may have got the same handle.
  EXPECT_EQ(std::set<std::string>({Icons()[1], Icons()[2]}).size(), 2U);

  SelectRow(1);
  Press(IDC_FORM2_COMMAND7);  // Delete
  EXPECT_FALSE(IsIcon(icons[1]));
  PressSeparator(0);
  EXPECT_TRUE(IsIcon(Icons()[2]));

  const std::string last = Icons()[2];
  answers.Answer({IDYES});
  Press(IDC_FORM2_COMMAND13);  // to a directory pointer
  EXPECT_FALSE(IsIcon(last));
}

TEST_F(SharedIconsTest, AnIconIsExtractedAnewAfterItWasReleased) {
  ASSERT_TRUE(Open(UserDefinedMenu({Line(twelve, 0), Line(two, 0)})));
  SelectRow(0);
  Press(IDC_FORM2_COMMAND7);
  WriteBytes(MenuPath(), UserDefinedMenu({Line(twelve, 0), Line(two, 0)}));
  PressSeparator(1);
  EXPECT_TRUE(IsIcon(Icons()[0]));
  SelectRow(0);
  EXPECT_EQ(Painted(IDC_FORM2_ICONIC1), ShowingOnPage(colours[0]));
}

}  // namespace

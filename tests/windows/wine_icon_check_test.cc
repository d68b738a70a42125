#include "win32/wine_icon_check.h"

#include <cstring>
#include <tuple>

#include "icons/icon_browser.h"
#include "tests/windows/icon_test_base.h"

using namespace testing_icons;
using win32::MayExtractIcon;

namespace {

// Offsets in files of testing_icons, in bytes.
constexpr std::size_t kFileEntry = 6;                // the entry of an icon file's first image
constexpr std::size_t kFileImage = kFileEntry + 16;  // that image
constexpr std::size_t kDosHeader = 64;
constexpr std::size_t kFileHeader = kDosHeader + sizeof(DWORD);
constexpr std::size_t kSections = kDosHeader + sizeof(IMAGE_NT_HEADERS64);
constexpr std::size_t kPage = 4096;

template <typename T>
void Put(std::string& bytes, std::size_t at, const T& value) {
  ASSERT_LE(at + sizeof value, bytes.size());
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

template <typename T>
T Get(const std::string& bytes, std::size_t at) {
  T value{};
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}

class WineIconCheckTest : public IconTest {
 protected:
  bool May(const std::string& bytes, int index = 0) {
    const std::string path = Write("icons " + std::to_string(++files_), bytes);
    return MayExtractIcon(path, index);
  }

  int Count(const std::string& bytes) {
    icons::IconBrowser browser;
    browser.SetSource(Write("icons " + std::to_string(++files_), bytes));
    return browser.CountIcons().icons;
  }

  // A file that ends at the end of a page, so that a read beyond it crashes.
  static std::string EndingWithAPage(std::string bytes) {
    bytes.resize((bytes.size() + kPage - 1) / kPage * kPage);
    return bytes;
  }

  // An icon file whose one image has these bytes, at the end of the last page.
  static std::string IconFileOf(const std::string& image) {
    std::string file = IconFile(RGB(1, 2, 3));
    file.resize((kFileImage + image.size() + kPage - 1) / kPage * kPage - image.size());
    Put(file, kFileEntry + 8, static_cast<DWORD>(image.size()));
    Put(file, kFileEntry + 12, static_cast<DWORD>(file.size()));
    return file + image;
  }

  // A 16-bit library with one icon. The last bytes of its size are missing in the file,
  // because they are only padding.
  static std::string OldLibrary() {
    constexpr int kShift = 4;
    std::string file(0x200, '\0');
    IMAGE_DOS_HEADER dos{};
    dos.e_magic = IMAGE_DOS_SIGNATURE;
    dos.e_lfanew = sizeof dos;
    Put(file, 0, dos);
    Put(file, kDosHeader, WORD{IMAGE_OS2_SIGNATURE});
    Put(file, kDosHeader + 0x24, WORD{0x40});  // the table of resources
    Put(file, kDosHeader + 0x26, WORD{0x80});  // the table after it
    const std::string icon = IconFile(RGB(9, 8, 7));
    const std::string image = icon.substr(kFileImage);
    const WORD table[] = {kShift,
                          // One icon: offset, size, flags, id, and two reserved words.
                          0x8003, 1, 0, 0, 0x20, WORD((image.size() >> kShift) + 1), 0, 0x8001, 0,
                          0,
                          // One group.
                          0x800E, 1, 0, 0, 0x18, 2, 0, 0x8001, 0, 0, 0};
    Put(file, kDosHeader + 0x40, table);
    std::string group = icon.substr(0, kFileImage - sizeof(DWORD));
    group += std::string("\1\0", 2);
    file.replace(0x180, group.size(), group);
    return file + image;
  }

 private:
  int files_ = 0;
};

TEST_F(WineIconCheckTest, WineRunsTheseTests) { ASSERT_TRUE(win32::IsWine()); }

// With each of these, Wine read beyond the end.
TEST_F(WineIconCheckTest, RefusesAnImageWithoutSizeAtTheEnd) { EXPECT_FALSE(May(IconFileOf(""))); }

TEST_F(WineIconCheckTest, RefusesAnAnimatedImage) {
  EXPECT_FALSE(May(
      IconFileOf(std::string("RIFF\xFF\xFF\xFF\x7F", 8) + "ACONLIST" + std::string(40, '\xFF'))));
}

TEST_F(WineIconCheckTest, RefusesAHeaderWhoseSizeNeedsMoreThan32Bits) {
  for (const auto& [width, height, colours] :
       {std::tuple{0x10000, 0x8000, 0}, std::tuple{0x8000, 0x10000, 0},
        std::tuple{0x7FFFFFFF, 2, 0}, std::tuple{-1, 64, 0}, std::tuple{32, 64, -1}}) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biClrUsed = static_cast<DWORD>(colours);
    std::string image(sizeof header, '\0');
    Put(image, 0, header);
    const std::string file = IconFileOf(image);
    std::string lying = file;
    Put(lying, kFileEntry + 8, DWORD{0x7FFFFFFF});
    EXPECT_FALSE(May(lying)) << width << ' ' << height << ' ' << colours;
    EXPECT_EQ(Count(lying), 0);
    EXPECT_EQ(Count(file), 0);
  }
}

TEST_F(WineIconCheckTest, RefusesSectionsThatOverlap) {
  std::string library = EndingWithAPage(Library(colours));
  const auto section = Get<IMAGE_SECTION_HEADER>(library, kSections);
  IMAGE_SECTION_HEADER first = section;
  first.SizeOfRawData = 16;  // contains the first bytes of the resources at another offset
  first.PointerToRawData = static_cast<DWORD>(library.size() - 4);
  Put(library, kFileHeader + offsetof(IMAGE_FILE_HEADER, NumberOfSections), WORD{2});
  Put(library, kSections, first);
  Put(library, kSections + sizeof section, section);
  EXPECT_FALSE(May(library));
}

TEST_F(WineIconCheckTest, RefusesAnOldHeaderThatEndsTooEarly) {
  std::string file(kPage, '\0');
  IMAGE_DOS_HEADER dos{};
  dos.e_magic = IMAGE_DOS_SIGNATURE;
  dos.e_lfanew = kPage - 4;
  Put(file, 0, dos);
  Put(file, kPage - 4, WORD{IMAGE_OS2_SIGNATURE});
  EXPECT_FALSE(May(file));
}

// Windows and Wine read these.
TEST_F(WineIconCheckTest, ReadsAnIconFileWhoseLastImageIsCutShort) {
  std::string file = IconFile(colours[0]);
  std::string small = file.substr(kFileEntry, 16);
  small[0] = small[1] = 16;
  file.insert(kFileImage, small);
  Put(file, 4, WORD{2});
  Put(file, kFileEntry + 12, static_cast<DWORD>(kFileImage + 16));
  Put(file, kFileImage + 12, static_cast<DWORD>(file.size() - 10));
  EXPECT_EQ(Count(file), 1);
}

TEST_F(WineIconCheckTest, ReadsAPackedProgramWhoseSecondIconIsElsewhere) {
  std::string library = Library(colours, 2);
  const auto section = Get<IMAGE_SECTION_HEADER>(library, kSections);
  // The last data entry but one is that of the first group.
  const std::size_t leaves =
      library.find(std::string("\x00\x00\x00\x00", 4), section.PointerToRawData);
  ASSERT_NE(leaves, std::string::npos);
  for (std::size_t at = section.PointerToRawData; at + 16 <= library.size(); at += 8) {
    const auto data = Get<IMAGE_RESOURCE_DATA_ENTRY>(library, at);
    const std::size_t groupSize = 6 + 14;
    if (data.Size == groupSize && data.CodePage == 0 && data.Reserved == 0 &&
        data.OffsetToData > Get<IMAGE_RESOURCE_DATA_ENTRY>(library, at - 16).OffsetToData) {
      const bool isSecond = Get<IMAGE_RESOURCE_DATA_ENTRY>(library, at - 16).Size == groupSize;
      if (isSecond) {
        Put(library, at, DWORD{0x00900000});
      }
    }
  }
  EXPECT_EQ(Count(library), 1);
}

TEST_F(WineIconCheckTest, ReadsAnOldLibraryThatIsNotPadded) { EXPECT_EQ(Count(OldLibrary()), 1); }

TEST_F(WineIconCheckTest, JudgesTheIconThatIsAskedFor) {
  // The images are the last bytes of the file.
  const std::string library = Library(colours);
  const std::size_t imageSize = IconFile(colours[0]).size() - kFileImage;
  const std::size_t at = library.find(IconFile(colours[7]).substr(kFileImage));
  ASSERT_NE(at, std::string::npos);
  std::string bad = library;
  bad.replace(at, 4, "RIFF");
  for (int index = 0; index < 12; ++index) {
    EXPECT_EQ(May(bad, index), index != 7) << index;
  }
  EXPECT_TRUE(May(bad, -3));
  EXPECT_FALSE(May(bad, -8)) << "the number of the eighth";
  EXPECT_TRUE(May(library, 7));
  EXPECT_GT(imageSize, 0U);
}

TEST_F(WineIconCheckTest, KeepsItsVerdictForAFileThatHasNotChanged) {
  const std::string path = Write("kept.ico", IconFile(colours[0]));
  EXPECT_TRUE(MayExtractIcon(path, 0));
  // Nobody can open the file now. For a file that cannot be opened, the answer is true.
  WriteBytes(path, IconFile(colours[0]).substr(0, 500));
  EXPECT_FALSE(MayExtractIcon(path, 0));
  {
    const LockedFile lock(path, 0);
    EXPECT_FALSE(MayExtractIcon(path, 0));
  }
  WriteBytes(path, IconFile(colours[0]));
  EXPECT_TRUE(MayExtractIcon(path, 0));
}

// A read beyond the end of the file would crash the test.
TEST_F(WineIconCheckTest, FilesThatEndWithAPageDoNoHarm) {
  const std::string library = EndingWithAPage(Library(colours));
  const std::string beginning = library.substr(0, kPage);
  for (std::size_t at = 0; at + 4 <= 0x500; at += 4) {
    for (const DWORD value : {0xFFFFFFFFU, 0x7FFFFFFFU, 0x80000FF8U, 0x00001FF0U, 0x00000FFCU}) {
      std::string lying = beginning;
      Put(lying, at, value);
      EXPECT_LE(Count(lying), 12) << at;
    }
  }
}

}  // namespace

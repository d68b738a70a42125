// Writes any menu that can be written. It has to load as the same menu, and a rewrite
// without a change has to give the same bytes.
//
// The input is a byte with flags, the picture, the font name, and then the texts
// and numbers of the entries; each text comes after its length.
#include <cmath>
#include <cstring>

#include "menufile/reader.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/sample_menus.h"
#include "tests/menufile/user_change.h"

namespace {

using namespace menufile;

// A quoted field can hold anything but a quote.
std::string QuotedText(FuzzInput& input) {
  std::string text = input.Text();
  std::erase(text, '"');
  return text;
}

// The text of any number, or nothing.
std::string Number(FuzzInput& input) {
  const unsigned kind = input.Byte();
  if (kind < 128) {
    return kind == 0 ? "" : std::to_string(static_cast<int>(kind) - 64);
  }
  std::uint64_t bits = 0;
  for (int i = 0; i < 8; ++i) {
    bits = bits << 8 | input.Byte();
  }
  double number;
  std::memcpy(&number, &bits, sizeof number);
  if (!std::isfinite(number)) {
    return "";
  }
  return kind % 2 == 0 ? NumberText(number) : FontSizeText(std::fmod(number, 10000)).value();
}

std::string ToldText(const std::string& text) { return "T:" + text; }
std::string ToldNumber(const std::string& text) { return text.empty() ? "E" : "N:" + text; }

// True if loader and writers find the marker after the picture, and not in it.
bool EndsAtMarker(const std::string& picture) {
  const std::string bytes = picture + std::string(kMarker);
  MenuReader loading(bytes, "");
  MenuReader writing(bytes, "");
  return loading.SkipMarkerLine() && loading.offset() == bytes.size() &&
         writing.SkipMarker() == picture.size() + 2;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const unsigned flags = input.Byte();
  const bool pointer = flags % 2 == 1;
  std::string menu = input.Text();
  if (!EndsAtMarker(menu)) {
    return 0;
  }
  menu += kMarker;
  AppendTypeLine(menu, TypeKeyword(pointer ? MenuType::DirectoryPointer : MenuType::UserDefined));

  std::vector<Shown> shown;
  const std::string font = QuotedText(input);
  std::vector<std::string> numbers;
  for (int i = 0; i < 4; ++i) {
    numbers.push_back(Number(input));
  }
  AppendLine(menu,
             AppearanceRecord{Value::Bare(numbers[0]), Value::Quoted(font), Value::Bare(numbers[1]),
                              Value::Bare(numbers[2]), Value::Bare(numbers[3])});
  shown.push_back({"appearance", ToldNumber(numbers[0]), ToldText(font), ToldNumber(numbers[1]),
                   ToldNumber(numbers[2]), ToldNumber(numbers[3])});
  if (pointer) {
    const std::string folder = QuotedText(input);
    const std::string pattern = QuotedText(input);
    for (std::string& number : numbers) {
      number = Number(input);
    }
    AppendLine(menu, DirectoryPointerRecord{Value::Quoted(folder), Value::Quoted(pattern),
                                            Value::Bare(numbers[0]), Value::Bare(numbers[1]),
                                            Value::Bare(numbers[2])});
    shown.push_back({"directory", ToldText(folder), ToldText(pattern), ToldNumber(numbers[0]),
                     ToldNumber(numbers[1]), ToldNumber(numbers[2])});
  }
  for (int row = 0; !pointer && !input.Empty(); ++row) {
    std::vector<std::string> f;
    for (int i = 0; i < 5; ++i) {
      f.push_back(QuotedText(input));
    }
    const std::string index = Number(input);
    AppendLine(menu, MenuItemRecord{Value::Quoted(f[0]), Value::Quoted(f[1]), Value::Quoted(f[2]),
                                    Value::Quoted(f[3]), Value::Quoted(f[4]), Value::Bare(index)});
    shown.push_back({"item", std::to_string(row), ToldText(f[0]), ToldText(f[1]), ToldText(f[2]),
                     ToldText(f[3]), ToldText(f[4]), ToldNumber(index)});
  }

  MemoryFiles files;
  files.Put(kMenuPath, menu);
  Require(Load(files) == LoadedMenu{shown, LoadedMenu::End::Menu, ""}, "what was written loads");
  if (!pointer) {
    Make(files, kMenuPath, SampleChange(UserChange::Kind::Keep));
    Require(files.Get(kMenuPath) == menu, "a rewrite gives back the same bytes");
  }
  return 0;
}

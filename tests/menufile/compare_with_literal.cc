#include "tests/menufile/compare_with_literal.h"

#include "menufile/failure.h"
#include "tests/menufile/literal_file.h"
#include "tests/menufile/loaded_menu.h"

namespace menufile {
namespace {

// The bytes for a message, with line ends and other unprintable ones as numbers.
std::string Printable(std::string_view bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < ' ' || byte > '~') {
      text += {'{', kDigits[byte / 16], kDigits[byte % 16], '}'};
    } else {
      text += c;
    }
  }
  return text;
}

bool HasMarkerLine(std::string_view bytes) {
  LiteralFile file(bytes);
  while (!file.AtEnd()) {
    if (file.ReadLine() == "<START ZOL>") {
      return true;
    }
  }
  return false;
}

// True for a picture that holds the marker. The literal rewrite would write it, and every
// reader would then take a part of it for the description.
bool RefusesPicture(const std::string& picture) {
  return (picture + "\r").find("<START ZOL>\r") != std::string::npos;
}

}  // namespace

Comparison CompareWithLiteral(std::string_view menu, const std::optional<std::string>& leftover,
                              bool scratchCanBeDeleted, const UserChange& operation) {
  // RewriteMenuFile() deletes an old scratch file with a menu in it. The literal rewrite
  // would take the end of that menu for entries.
  const bool isEmptied = leftover && HasMarkerLine(*leftover);
  const LiteralResult literal =
      RewriteLiterally(menu, isEmptied ? std::nullopt : leftover, scratchCanBeDeleted, operation);

  const char* const scratchFile = ScratchFileOf(operation.kind);
  MemoryFiles files;
  // Small blocks of many sizes, so that lines, fields and the marker lie across their ends.
  constexpr std::size_t kLargestBlock = 61;
  files.SetBlockSize(menu.size() % kLargestBlock + 1);
  files.Put(kMenuPath, menu);
  if (leftover) {
    files.Put(scratchFile, *leftover);
  }
  if (!scratchCanBeDeleted) {
    files.ForbidRemove(scratchFile);
  }
  Comparison comparison;
  try {
    Make(files, kMenuPath, operation);
  } catch (const Failure&) {
    comparison.failed = true;
  }
  const std::string written = files.Get(kMenuPath).value_or("(no file)");
  const std::string scratch = files.Get(scratchFile).value_or("(no file)");
  if (operation.kind == UserChange::Kind::SaveAppearance &&
      RefusesPicture(operation.appearance.picture)) {
    comparison.difference =
        comparison.failed && written == menu ? "" : "a picture with the marker was not refused";
    comparison.failed = true;
    return comparison;
  }
  std::string expectedScratch = literal.scratch.value_or("(no file)");
  if (comparison.failed != literal.failed) {
    comparison.difference = comparison.failed ? "only the rewrite failed" : "the rewrite went on";
  } else if (written != literal.menu) {
    comparison.difference =
        "menu file\n" + Printable(written) + "\nliterally\n" + Printable(literal.menu);
  } else if (literal.noMarker && literal.failed) {
    // The scratch file is then a useless copy of the menu. The literal one may have one
    // line end more.
  } else if (scratch != expectedScratch) {
    comparison.difference =
        "scratch file\n" + Printable(scratch) + "\nexpected\n" + Printable(expectedScratch);
  }
  return comparison;
}

}  // namespace menufile

#include "tests/menufile/compare_with_literal.h"

#include "menufile/failure.h"
#include "tests/menufile/literal_rewrite.h"
#include "tests/menufile/loaded_menu.h"
#include "tests/menufile/memory_files.h"

namespace menufile {
namespace {

// For messages: line ends and other unprintable bytes as numbers.
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
  std::string line;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] != '\r') {
      line += bytes[i];
      continue;
    }
    if (line == "<START ZOL>") {
      return true;
    }
    line.clear();
    if (i + 1 < bytes.size() && bytes[i + 1] == '\n') {
      ++i;
    }
  }
  return line == "<START ZOL>";
}

// A picture that the literal rewrite would put there, for every reader to split the
// menu in the middle of it.
bool RefusesPicture(const std::string& picture) {
  return (picture + "\r").find("<START ZOL>\r") != std::string::npos;
}

}  // namespace

Comparison CompareWithLiteral(std::string_view menu, const std::optional<std::string>& leftover,
                              bool scratchCanBeDeleted, const UserChange& operation) {
  // A leftover with a menu in it goes, where the literal rewrite would have taken
  // the end of it for entries.
  const bool isEmptied = leftover && HasMarkerLine(*leftover);
  const LiteralResult literal =
      RewriteLiterally(menu, isEmptied ? std::nullopt : leftover, scratchCanBeDeleted, operation);

  const char* const scratchFile = ScratchFileOf(operation.kind);
  MemoryFiles files;
  // So that lines, fields and the marker lie across the ends of blocks, each in
  // many ways.
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
  if (operation.kind == UserChange::Kind::SaveAppearance &&
      RefusesPicture(operation.appearance.picture)) {
    comparison.failed = true;
    bool wasRefused = false;
    try {
      Make(files, kMenuPath, operation);
    } catch (const Failure&) {
      wasRefused = files.Get(kMenuPath) == menu;
    }
    comparison.difference = wasRefused ? "" : "a picture with the marker was not refused";
    return comparison;
  }
  try {
    Make(files, kMenuPath, operation);
  } catch (const Failure&) {
    comparison.failed = true;
  }
  const std::string written = files.Get(kMenuPath).value_or("(no file)");
  const std::string scratch = files.Get(scratchFile).value_or("(no file)");
  std::string expectedScratch = literal.scratch.value_or("(no file)");
  if (comparison.failed != literal.failed) {
    comparison.difference = comparison.failed ? "only the rewrite failed" : "the rewrite went on";
  } else if (written != literal.menu) {
    comparison.difference =
        "menu file\n" + Printable(written) + "\nliterally\n" + Printable(literal.menu);
  } else if (literal.noMarker && literal.failed) {
    // The scratch file is then a copy of the menu, of use to no one. The
    // literal one may have another line end behind it.
  } else if (scratch != expectedScratch) {
    comparison.difference =
        "scratch file\n" + Printable(scratch) + "\nexpected\n" + Printable(expectedScratch);
  }
  return comparison;
}

}  // namespace menufile

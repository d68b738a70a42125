#include "menufile/reader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "menufile/failure.h"

namespace menufile {
namespace {

// The first quote, or `end`. It looks at eight bytes at a time: fields are so short
// that a library call for each would take longer than the search.
inline const char* FindQuote(const char* at, const char* end) {
  using Word = std::uint64_t;
  static_assert(std::endian::native == std::endian::little);
  constexpr Word kLowBits = 0x0101010101010101;
  constexpr Word kHighBits = kLowBits << 7;
  if (at != end && *at == '"') {
    return at;  // many fields are empty
  }
  for (Word word = 0; end - at >= std::ptrdiff_t{sizeof word}; at += sizeof word) {
    std::memcpy(&word, at, sizeof word);
    word ^= kLowBits * '"';
    // A quote has become a zero byte. The lowest bit set in `zeros` lies in the first
    // such byte.
    if (const Word zeros = (word - kLowBits) & ~word & kHighBits) {
      return at + std::countr_zero(zeros) / 8;
    }
  }
  return std::find(at, end, '"');
}

// The comma or line end after a field, or `end`.
const char* FindFieldEnd(const char* at, const char* end) {
  while (at != end && *at != ',' && *at != '\r' && *at != '\n') {
    ++at;
  }
  return at;
}

// The field ends of an entry in the usual layout: five quoted texts with a comma
// after each, then digits or nothing, then CR LF.
struct PlainItem {
  std::array<const char*, 5> quotes{};  // the closing quotes of the texts
  const char* lineEnd = nullptr;        // nullptr for any other layout
};

inline PlainItem FindPlainItem(const char* at, const char* end) {
  PlainItem item;
  for (const char*& quote : item.quotes) {
    if (at == end || *at != '"') {
      return item;
    }
    quote = FindQuote(at + 1, end);
    if (end - quote < 2 || quote[1] != ',') {
      return item;
    }
    at = quote + 2;
  }
  while (at != end && *at >= '0' && *at <= '9') {
    ++at;
  }
  if (end - at >= 2 && at[0] == '\r' && at[1] == '\n') {
    item.lineEnd = at;
  }
  return item;
}

MenuItemRecord RecordOf(const char* begin, const PlainItem& item) {
  const auto& [a, b, c, d, e] = item.quotes;
  constexpr int kBetween = 3;  // the length of `","`
  const std::string_view index{e + 2, item.lineEnd};
  // Other digits are written in a shorter form.
  constexpr std::size_t kMostDigits = 9;
  const bool isShortest = index.size() <= kMostDigits && (index.size() <= 1 || index[0] != '0');
  return {Value::Quoted({begin + 1, a}),
          Value::Quoted({a + kBetween, b}),
          Value::Quoted({b + kBetween, c}),
          Value::Quoted({c + kBetween, d}),
          Value::Quoted({d + kBetween, e}),
          Value::Bare(index),
          isShortest ? std::string_view(begin, item.lineEnd + 2) : std::string_view()};
}

}  // namespace

bool MenuReader::SkipMarkerLine() { return SkipMarker(true).has_value(); }

std::optional<std::uint64_t> MenuReader::SkipMarker() { return SkipMarker(false); }

// A line ends at a CR or at CR LF. A lone LF, which a picture may hold, ends no line.
std::optional<std::uint64_t> MenuReader::SkipMarker(bool wholeLine) {
  constexpr std::size_t kLineEnd = 2;
  const auto beginsLine = [this](std::size_t at) {
    return at == 0 || bytes_[at - 1] == '\r' ||
           (at >= kLineEnd && bytes_[at - 1] == '\n' && bytes_[at - 2] == '\r');
  };
  for (;;) {
    const std::size_t at = std::min(bytes_.find(kMarkerText, offset_), bytes_.size());
    const std::size_t end = at + kMarkerText.size();
    // The bytes in memory may end inside the marker or its line end: read more before
    // judging them.
    if (moreFollows_ && end + kLineEnd >= bytes_.size()) {
      const std::size_t longest = kMarkerText.size() + kLineEnd;
      const std::size_t unsure =
          std::max(offset_, bytes_.size() - std::min(bytes_.size(), longest));
      const std::size_t kept = unsure - std::min(unsure, kLineEnd);
      Advance(kept);
      offset_ = unsure - kept;
      continue;
    }
    if (at == bytes_.size()) {
      offset_ = at;
      return std::nullopt;
    }
    const bool endsLine = end == bytes_.size() || bytes_[end] == '\r';
    if (endsLine && (!wholeLine || beginsLine(at))) {
      offset_ = AfterFieldEnd(bytes_.data() + end);
      return Position() + at;
    }
    offset_ = at + 1;
  }
}

void MenuReader::Advance(std::size_t at) {
  file_->Advance(at);
  bytes_ = file_->bytes();
  moreFollows_ = file_->MoreFollows();
  offset_ = 0;
}

// A record that reaches the end of the bytes in memory may go on in the file. And
// AtEnd() must be true only at the end of the file, so one byte more is needed.
template <typename Read>
inline auto MenuReader::ReadRecord(const Read& read) {
  for (;;) {
    const std::size_t start = offset_;
    auto record = read();
    if (offset_ < bytes_.size() || !moreFollows_) {
      return record;
    }
    Advance(start);
  }
}

Value MenuReader::ReadTypeLine() {
  return ReadRecord([this] { return ReadField("the type line", "menu type"); });
}

AppearanceRecord MenuReader::ReadAppearance() {
  constexpr const char* kRecord = "the appearance line";
  return ReadRecord([this] {
    return AppearanceRecord{ReadField(kRecord, "smallIcons"), ReadField(kRecord, "fontName"),
                            ReadField(kRecord, "fontSize"), ReadField(kRecord, "fontBold"),
                            ReadField(kRecord, "fontItalic")};
  });
}

MenuItemRecord MenuReader::ReadItem() {
  ++entriesRead_;
  const char* const begin = bytes_.data() + offset_;
  const char* const end = bytes_.data() + bytes_.size();
  const PlainItem plain = FindPlainItem(begin, end);
  if (plain.lineEnd != nullptr && (plain.lineEnd + 2 != end || !moreFollows_)) {
    offset_ += static_cast<std::size_t>(plain.lineEnd + 2 - begin);
    return RecordOf(begin, plain);
  }
  constexpr const char* kRecord = "entry";
  return ReadRecord([this] {
    return MenuItemRecord{ReadField(kRecord, "caption"),   ReadField(kRecord, "target"),
                          ReadField(kRecord, "arguments"), ReadField(kRecord, "startIn"),
                          ReadField(kRecord, "iconFile"),  ReadField(kRecord, "iconIndex")};
  });
}

DirectoryPointerRecord MenuReader::ReadDirectoryPointer() {
  constexpr const char* kRecord = "the directory line";
  return ReadRecord([this] {
    return DirectoryPointerRecord{
        ReadField(kRecord, "folderPath"), ReadField(kRecord, "filePattern"),
        ReadField(kRecord, "showFolders"), ReadField(kRecord, "hideKnownExtensions"),
        ReadField(kRecord, "showHiddenFiles")};
  });
}

Value MenuReader::ReadField(const char* record, const char* field) {
  const char* const end = bytes_.data() + bytes_.size();
  const char* at = bytes_.data() + offset_;
  while (at != end && *at == ' ') {
    ++at;
  }
  if (at == end) {
    return EndedField(Value(), record, field);
  }
  if (*at == '"') {
    ++at;
    const char* const quote = FindQuote(at, end);
    if (quote == end) {
      return EndedField(Value::Quoted({at, end}), record, field);
    }
    offset_ = AfterFieldEnd(FindFieldEnd(quote + 1, end));
    return Value::Quoted({at, quote});
  }
  const char* fieldEnd = FindFieldEnd(at, end);
  offset_ = AfterFieldEnd(fieldEnd);
  while (fieldEnd != at && fieldEnd[-1] == ' ') {
    --fieldEnd;
  }
  return Value::Bare({at, fieldEnd});
}

// The value of a text without a closing quote is everything after the opening quote,
// so that a caller that goes on loses nothing.
Value MenuReader::EndedField(const Value& soFar, const char* record, const char* field) {
  offset_ = bytes_.size();
  if (moreFollows_ || pastEnd_ == PastEnd::LeavesEmpty) {
    return soFar;
  }
  std::string doing = std::string("read ") + record;
  if (entriesRead_ > 0) {
    doing += ' ' + std::to_string(entriesRead_);
  }
  throw Failure(path_, doing + ", field " + field + ", of the file", "The file ends too early",
                Position() + bytes_.size());
}

std::size_t MenuReader::AfterFieldEnd(const char* at) const {
  const char* const end = bytes_.data() + bytes_.size();
  if (at != end) {
    at += end - at > 1 && at[0] == '\r' && at[1] == '\n' ? 2 : 1;
  }
  return static_cast<std::size_t>(at - bytes_.data());
}

bool HasMarkerLine(File& file, std::size_t blockSize) {
  FileWindow window(file, blockSize);
  return MenuReader(window, "").SkipMarkerLine();
}

}  // namespace menufile

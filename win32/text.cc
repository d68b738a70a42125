#include "win32/text.h"

#include <windows.h>

#include <algorithm>

#include "win32/handles.h"

namespace win32 {
namespace {

constexpr wchar_t kReplacement = L'\xFFFD';

// Returns nothing if the flags forbid the bytes.
std::optional<std::wstring> Decode(std::string_view bytes, DWORD flags) {
  const auto convert = [&](wchar_t* out, int size) {
    return MultiByteToWideChar(CP_ACP, flags, bytes.data(), static_cast<int>(bytes.size()), out,
                               size);
  };
  std::wstring text(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
  if (text.empty() && !bytes.empty()) {
    return std::nullopt;
  }
  convert(text.data(), static_cast<int>(text.size()));
  return text;
}

std::string Encode(std::wstring_view text) {
  const auto convert = [&](char* out, int size) {
    return WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), out, size,
                               nullptr, nullptr);
  };
  std::string bytes(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(bytes.data(), static_cast<int>(bytes.size()));
  return bytes;
}

// The first character of the bytes, and the number of bytes that it takes. Bytes that
// stand for no character give U+FFFD and 1.
std::pair<std::wstring, std::size_t> FirstCharacter(std::string_view bytes) {
  CPINFO page{};
  GetCPInfo(CP_ACP, &page);
  for (std::size_t length = 1; length <= std::min<std::size_t>(page.MaxCharSize, bytes.size());
       ++length) {
    if (auto character = Decode(bytes.substr(0, length), MB_ERR_INVALID_CHARS)) {
      return {*character, length};
    }
  }
  // The code page may give such a byte a private character that converts back.
  const std::wstring character = Decode(bytes.substr(0, 1), 0).value_or(L"");
  const bool isOwn = Encode(character) == bytes.substr(0, 1);
  return {isOwn ? character : std::wstring(1, kReplacement), 1};
}

constexpr std::wstring_view kSeparators = L"\\/";

// The 8.3 name of the file at `path`, whose last part is `name`. Empty if there is no
// such file, or if its volume has no short names.
std::wstring ShortNameOf(const std::wstring& path, std::wstring_view name) {
  // FindFirstFile() takes all of these as wildcards; `"`, `<` and `>` are the older ones.
  if (name.find_first_of(L"*?\"<>") != std::wstring_view::npos) {
    return {};
  }
  WIN32_FIND_DATAW found{};
  const HANDLE handle = FindFirstFileW(path.c_str(), &found);
  if (handle == INVALID_HANDLE_VALUE) {
    return {};
  }
  const UniqueSearch search(handle);
  return found.cAlternateFileName;
}

}  // namespace

std::wstring ToText(std::string_view bytes) {
  if (const std::optional<std::wstring> text = Decode(bytes, MB_ERR_INVALID_CHARS)) {
    return *text;
  }
  // Convert character by character: Windows would turn the others into question marks,
  // or into middle dots in Japanese.
  std::wstring text;
  while (!bytes.empty()) {
    const auto [character, length] = FirstCharacter(bytes);
    text += character;
    bytes.remove_prefix(length);
  }
  return text;
}

// Converting back and comparing works in every code page. The flags of Windows against
// replacing characters are not allowed in all of them.
std::optional<std::string> ToBytes(std::wstring_view text) {
  std::string bytes = Encode(text);
  const bool isHeld =
      text.find(kReplacement) == std::wstring_view::npos && Decode(bytes, 0).value_or(L"") == text;
  return isHeld ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<std::string> PathToBytes(std::wstring_view path) {
  std::string bytes;
  for (std::size_t from = 0; from < path.size();) {
    const std::size_t end = std::min(path.find_first_of(kSeparators, from), path.size());
    const std::wstring_view name = path.substr(from, end - from);
    std::optional<std::string> part = ToBytes(name);
    if (!part) {
      const std::wstring shortName = ShortNameOf(std::wstring(path.substr(0, end)), name);
      part = shortName.empty() ? std::nullopt : ToBytes(shortName);
    }
    if (!part) {
      return std::nullopt;
    }
    bytes += *part;
    if (end < path.size()) {
      bytes += static_cast<char>(path[end]);
    }
    from = end + 1;
  }
  return bytes;
}

}  // namespace win32

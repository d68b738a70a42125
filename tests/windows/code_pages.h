#ifndef CORVALIS_TESTS_WINDOWS_CODE_PAGES_H_
#define CORVALIS_TESTS_WINDOWS_CODE_PAGES_H_

#include <windows.h>

#include <stdexcept>
#include <string>

// Texts for the tests that run in each of these code pages (tools/code_page.sh).
namespace testing_pages {

struct Page {
  UINT number;
  std::wstring held;   // characters that it has
  std::string bytes;   // the bytes of `held`
  std::wstring other;  // a character that it does not have
};

// Some characters have the second byte 0x5C or 0x7C, as a backslash or a bar. For some
// characters that a page does not have, Windows knows a similar letter of the page.
inline const Page kPages[] = {
    {932, L"a\x8868\x30DD\x672C\x30BD", "a\x95\\\x83|\x96{\x83\\", L"\xE9"},
    {936, L"\x4E2D\x4E85\x4E57", "\xD6\xD0\x81|\x81\\", L"\xD55C"},
    {949, L"\xD55C", "\xC7\xD1", L"\xE9"},
    {1251, L"\x416\x443\x43A\x44F", "\xC6\xF3\xEA\xFF", L"\xE9"},
    {1252, L"\xE4\xDF\xFF\x20AC\x152\x81\x8D\x8F\x90\x9D",
     "\xE4\xDF\xFF\x80\x8C\x81\x8D\x8F\x90\x9D", L"\x141"},
    {1255, L"\x5E9\x5DC\x5D5\x5DD", "\xF9\xEC\xE5\xED", L"\xE9"},
    {1256, L"\x633\x644\x627\x645", "\xD3\xE1\xC7\xE3", L"\x141"},
    {65001, L"\xE9\x416\x4E2D\xD55C\x5E9\xD83D\xDE00",
     "\xC3\xA9\xD0\x96\xE4\xB8\xAD\xED\x95\x9C\xD7\xA9\xF0\x9F\x98\x80", L"\xFFFD"},
};

// The page of this process.
inline const Page& ThisPage() {
  for (const Page& page : kPages) {
    if (page.number == GetACP()) {
      return page;
    }
  }
  throw std::runtime_error("no texts for code page " + std::to_string(GetACP()));
}

}  // namespace testing_pages

#endif  // CORVALIS_TESTS_WINDOWS_CODE_PAGES_H_

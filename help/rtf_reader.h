#pragma once
// A reader for the rich-text files of the guide: the subset a word processor writes for simple
// documents (groups, paragraphs, bold, italic, underline, fonts and sizes, colours, Windows-1252
// escapes and Unicode escapes with their fallback, tabs, line breaks, simple tables, bookmarks and
// hyperlink fields), turned into HTML for a rich-text viewer. Whatever the bytes, it never fails:
// what it cannot show it skips, and says what it skipped.

#include <string>
#include <string_view>
#include <vector>

namespace contavia::help {

struct RtfPage {
  std::string html;  // UTF-8
  // Control words the reader does not know (each once, in order of appearance). The text that
  // follows them is still shown.
  std::vector<std::string> unknownWords;
  // Characters that could not be shown: text inside an unknown destination group, bytes that
  // Windows-1252 leaves undefined, a broken Unicode escape, text past the deepest nesting.
  std::size_t droppedCharacters = 0;
};

RtfPage rtfToHtml(std::string_view rtf);

}  // namespace contavia::help

// The reader of the guide's rich-text files: small pieces written here, with the HTML each gives.

#include "help/rtf_reader.h"

#include <gtest/gtest.h>

#include <string>

namespace contavia::help {
namespace {

// What the page shows, without the frame of every page.
std::string body(const RtfPage& page) {
  const std::string& html = page.html;
  const std::size_t start = html.find('>', html.find("<body")) + 1;
  return html.substr(start, html.rfind("</body>") - start);
}

struct Piece {
  const char* what;
  const char* rtf;
  const char* html;
};

TEST(RtfReader, PiecesGiveTheirHtml) {
  const Piece pieces[] = {
      {"accented letters in Windows-1252", R"({\rtf1\ansi Citt\'e0 \'e8 bella\par})",
       "<p>Città è bella</p>\n"},
      {"a Unicode escape skips its fallback, \\uc says how long it is",
       R"({\rtf1 A\u8364?B{\uc2\u8594\'3f\'3f}C\par})", "<p>A€B→C</p>\n"},
      {"nested groups keep and restore the format", R"({\rtf1 a{\b b{\i c}d}e\par})",
       "<p>a<b>b</b><b><i>c</i></b><b>d</b>e</p>\n"},
      {"a table, then a paragraph after it",
       R"({\rtf1\trowd\cellx1000\cellx2000\pard\intbl\b x\b0\cell y\par z\cell\row\pard w\par})",
       "<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">\n"
       "<tr><td><b>x</b></td><td>y<br>z</td></tr>\n</table>\n<p>w</p>\n"},
      {"an unknown control word is skipped, its text kept", R"({\rtf1 a\foo b\par})",
       "<p>ab</p>\n"},
      {"a bookmark and a link to a bookmark of another topic",
       R"({\rtf1{\*\bkmkstart qui}{\*\bkmkend qui}Vedi {\field{\*\fldinst HYPERLINK "le procedure.rtf" \\l "movimenti"}{\fldrslt i movimenti}}.\par})",
       "<p><a name=\"qui\"></a>Vedi <a href=\"le%20procedure.rtf#movimenti\">i movimenti</a>."
       "</p>\n"},
      {"a field that is not a link shows its result only",
       R"({\rtf1{\field{\*\fldinst PAGE}{\fldrslt 3}}\par})", "<p>3</p>\n"},
      {"fixed-pitch lines keep their blanks",
       R"({\rtf1{\fonttbl{\f0 Arial;}{\f1\fmodern Courier New;}}\f1  a  b\line c\par})",
       "<p><span style=\"font-family:'Courier New',monospace\">&nbsp;a &nbsp;b<br>c</span>"
       "</p>\n"},
      {"a heading with its spacing and indents",
       R"({\rtf1\pard\outlinelevel1\sb240\li568\fi-284\qc T\par\pard U\par})",
       "<h2 style=\"margin-top:16px;margin-left:37px;text-indent:-18px;text-align:center\">T</h2>\n"
       "<p>U</p>\n"},
      {"sizes and colours from the colour table",
       R"({\rtf1{\colortbl;\red0\green0\blue128;}\fs32\cf1 Blu\cf0\fs21 x\plain y\par})",
       "<p><span style=\"font-size:16pt;color:#000080\">Blu</span>"
       "<span style=\"font-size:10.5pt\">x</span>y</p>\n"},
      {"markup characters are escaped; \\{ \\} \\\\ are text", R"({\rtf1 <a & "b"> \{\}\\\par})",
       "<p>&lt;a &amp; &quot;b&quot;&gt; {}\\</p>\n"},
      {"named characters, a tab, an empty paragraph",
       R"({\rtf1\bullet\tab\ldblquote x\rdblquote\~\emdash\par\par})",
       "<p>•&emsp;“x”&nbsp;—</p>\n<p>&nbsp;</p>\n"},
  };
  for (const Piece& piece : pieces) {
    SCOPED_TRACE(piece.what);
    const RtfPage page = rtfToHtml(piece.rtf);
    EXPECT_EQ(body(page), piece.html);
  }
  EXPECT_EQ(rtfToHtml(R"({\rtf1 a\foo b\foo\bar c})").unknownWords,
            (std::vector<std::string>{"foo", "bar"}));
}

TEST(RtfReader, WhatCannotBeShownIsCountedNeverCrashes) {
  struct Damaged {
    std::string rtf;
    std::size_t dropped;
  };
  const Damaged cases[] = {
      {R"({\rtf1 a{\*\ignota testo}b\par})", 5},  // an unknown destination
      {R"({\rtf1 a\'81\'8db\par})", 2},           // bytes Windows-1252 leaves undefined
      {R"({\rtf1 a\'4})", 1},                     // an escape cut short
      {R"({\rtf1 \u55296?\u70000?x})", 2},        // a lone surrogate, then too large
      {std::string(100000, '{') + "x" + std::string(100000, '}'), 1},  // past the deepest nesting
      {"}}}{\\rtf1\\b99999999999999999999 x\\fs-5 y\\", 0},  // braces and numbers out of range
  };
  for (const Damaged& c : cases) {
    SCOPED_TRACE(c.rtf.substr(0, 40));
    EXPECT_EQ(rtfToHtml(c.rtf).droppedCharacters, c.dropped);
  }
}

}  // namespace
}  // namespace contavia::help

#include "help/rtf_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <utility>

#include "common/text.h"
#include "help/html_text.h"

namespace contavia::help {
namespace {

// Deeper groups than this are not followed: their text is dropped (and counted), so that a
// damaged file cannot grow the reader without bound.
constexpr std::size_t kMaxDepth = 256;
// Twips per pixel of the viewer (1440 twips per inch, 96 pixels per inch).
constexpr int kTwipsPerPixel = 15;
constexpr int kDefaultSize = 20;  // half points: 10 pt

enum class Destination {
  Text,              // shown
  Skip,              // known, not shown (style sheet, document information, pictures, ...)
  Unknown,           // an unknown "\*" destination: its text is dropped and counted
  FontTable,         // font names
  ColorTable,        // colours
  FieldInstruction,  // the instruction of a field, such as HYPERLINK "target"
  Bookmark,          // the name of a bookmark
};

struct CharFormat {
  bool bold = false;
  bool italic = false;
  bool underline = false;
  int font = 0;
  int size = kDefaultSize;
  int color = 0;
  std::string link;  // the target of the hyperlink field this text is the result of
  bool operator==(const CharFormat&) const = default;
};

struct Group {
  CharFormat format;
  Destination destination = Destination::Text;
  int unicodeFallback = 1;  // characters after "\u" that stand for it in older readers
  std::string fieldLink;    // the target of the field this group belongs to
};

struct ParagraphFormat {
  int outlineLevel = -1;  // a heading from level 0
  int leftIndent = 0;     // twips
  int firstIndent = 0;
  int spaceBefore = 0;
  int spaceAfter = 0;
  bool centred = false;
  bool inTable = false;
};

struct Font {
  std::string name;
  bool fixedPitch = false;
};

// Control words that do nothing here, known so that they are not reported.
constexpr std::array kIgnoredWords = {
    "rtf",    "ansi",   "ansicpg",     "deff",   "fcharset", "fprq",     "fswiss",    "fmodern",
    "froman", "fnil",   "fscript",     "fdecor", "ftech",    "viewkind", "trgaph",    "trleft",
    "cellx",  "ql",     "qr",          "qj",     "lang",     "langfe",   "widowctrl", "deftab",
    "paperw", "paperh", "margl",       "margr",  "margt",    "margb",    "sl",        "slmult",
    "ltrpar", "ltrch",  "nowidctlpar", "uc1",    "keepn",    "sectd",    "bkmkend"};

// Destinations that are known and not shown.
constexpr std::array kSkippedDestinations = {"stylesheet",   "info",      "pict",
                                             "header",       "footer",    "headerl",
                                             "headerr",      "headerf",   "footerl",
                                             "footerr",      "footerf",   "footnote",
                                             "object",       "listtable", "listoverridetable",
                                             "generator",    "filetbl",   "revtbl",
                                             "rsidtbl",      "themedata", "colorschememapping",
                                             "latentstyles", "datastore", "xmlnstbl"};

template <std::size_t N>
bool among(const std::array<const char*, N>& words, std::string_view word) {
  return std::any_of(words.begin(), words.end(), [&](const char* known) { return word == known; });
}

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// The words of a field instruction; a quoted text is one word without its quotes.
std::vector<std::string> instructionWords(std::string_view instruction) {
  std::vector<std::string> words;
  std::size_t i = 0;
  while (i < instruction.size()) {
    if (instruction[i] == ' ') {
      ++i;
    } else if (instruction[i] == '"') {
      const std::size_t end = std::min(instruction.find('"', i + 1), instruction.size());
      words.emplace_back(instruction.substr(i + 1, end - i - 1));
      i = end + 1;
    } else {
      const std::size_t end = std::min(instruction.find(' ', i), instruction.size());
      words.emplace_back(instruction.substr(i, end - i));
      i = end;
    }
  }
  return words;
}

// HYPERLINK "target" \l "bookmark" as the address of a link; empty for any other field.
std::string hyperlinkTarget(std::string_view instruction) {
  const std::vector<std::string> words = instructionWords(instruction);
  if (words.empty() || !equalsIgnoringCase(words[0], "HYPERLINK")) {
    return {};
  }
  std::string target;
  std::string bookmark;
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (words[i] == "\\l" && i + 1 < words.size()) {
      bookmark = words[++i];
    } else if (words[i].size() == 2 && words[i][0] == '\\' && i + 1 < words.size()) {
      ++i;  // another switch and its argument (a tooltip, a frame)
    } else if (target.empty()) {
      target = words[i];
    }
  }
  std::string address;
  for (const char c : target) {
    address += c == ' ' ? std::string("%20") : std::string(1, c);
  }
  return bookmark.empty() ? address : address + "#" + bookmark;
}

std::string pixels(int twips) { return std::to_string(twips / kTwipsPerPixel) + "px"; }

class Reader {
 public:
  explicit Reader(std::string_view rtf) : rtf_(rtf) { groups_.emplace_back(); }

  RtfPage read() {
    while (pos_ < rtf_.size()) {
      const char c = rtf_[pos_++];
      if (c == '{') {
        openGroup();
      } else if (c == '}') {
        closeGroup();
      } else if (c == '\\') {
        control();
      } else if (c == '\t') {
        tab();
      } else if (static_cast<unsigned char>(c) >= 0x20) {
        byte(static_cast<std::uint8_t>(c));
      }
    }
    endParagraph(/*atEnd=*/true);
    page_.html = "<html><body style=\"font-family:'" + fontName(defaultFont_) +
                 "'; font-size:10pt\">" + body_ + "</body></html>";
    return std::move(page_);
  }

 private:
  Group& group() { return groups_.back(); }
  bool dropping() const { return overflow_ > 0; }

  void openGroup() {
    pendingFallback_ = 0;
    if (groups_.size() >= kMaxDepth || dropping()) {
      ++overflow_;
      return;
    }
    groups_.push_back(groups_.back());
  }

  void closeGroup() {
    pendingFallback_ = 0;
    if (dropping()) {
      --overflow_;
      return;
    }
    if (groups_.size() <= 1) {
      return;  // a "}" too many
    }
    const Group closed = std::move(groups_.back());
    groups_.pop_back();
    if (closed.destination == Destination::FieldInstruction) {
      group().fieldLink = hyperlinkTarget(instruction_);
    } else if (closed.destination == Destination::Bookmark &&
               group().destination == Destination::Text) {
      anchor_ += "<a name=\"";
      appendHtmlEscaped(anchor_, bookmark_);
      anchor_ += "\"></a>";
    } else if (closed.destination == Destination::FontTable && !fontName_.empty()) {
      endFontName();
    }
  }

  void control() {
    if (pos_ >= rtf_.size()) {
      return;
    }
    const char c = rtf_[pos_];
    if (!isLetter(c)) {
      ++pos_;
      symbol(c);
      return;
    }
    const std::size_t start = pos_;
    while (pos_ < rtf_.size() && isLetter(rtf_[pos_])) {
      ++pos_;
    }
    const std::string_view word = rtf_.substr(start, pos_ - start);
    bool hasParameter = false;
    long long parameter = 0;
    bool negative = false;
    if (pos_ < rtf_.size() && rtf_[pos_] == '-') {
      negative = true;
      ++pos_;
    }
    while (pos_ < rtf_.size() && rtf_[pos_] >= '0' && rtf_[pos_] <= '9') {
      hasParameter = true;
      parameter = std::min(parameter * 10 + (rtf_[pos_++] - '0'), 1LL << 32);
    }
    if (pos_ < rtf_.size() && rtf_[pos_] == ' ') {
      ++pos_;  // the blank that ends a control word is not text
    }
    const long long value = negative ? -parameter : parameter;
    const int bounded = static_cast<int>(std::clamp(value, -(1LL << 30), 1LL << 30));
    word_(word, hasParameter, bounded);
  }

  void symbol(char c) {
    switch (c) {
      case '\'': {
        const int high = pos_ + 1 < rtf_.size() ? hexDigitValue(rtf_[pos_]) : -1;
        const int low = pos_ + 1 < rtf_.size() ? hexDigitValue(rtf_[pos_ + 1]) : -1;
        if (high >= 0 && low >= 0) {
          const int value = high * 16 + low;
          pos_ += 2;
          byte(static_cast<std::uint8_t>(value));
        } else {
          dropped();
        }
        break;
      }
      case '\\':
      case '{':
      case '}':
        byte(static_cast<std::uint8_t>(c));
        break;
      case '~':
        character(0x00A0);
        break;
      case '_':
        character(0x2011);
        break;
      case '*':
        starred_ = true;
        break;
      case '\n':
      case '\r':
        paragraph();
        break;
      default:
        break;  // "\-" optional hyphen, "\|", "\:" and the like show nothing
    }
  }

  // One control word; `starred` when "\*" came just before it.
  void word_(std::string_view word, bool hasParameter, int value) {
    const bool starred = std::exchange(starred_, false);
    if (word != "u") {
      pendingFallback_ = 0;
    }
    const int on = hasParameter ? value : 1;
    Group& g = group();
    CharFormat& f = g.format;
    if (destination(word, starred)) {
      return;
    }
    if (g.destination == Destination::FontTable) {
      fontTableWord(word, value);
      return;
    }
    if (g.destination == Destination::ColorTable) {
      colorTableWord(word, value);
      return;
    }
    if (word == "par") {
      paragraph();
    } else if (word == "line") {
      textHtml("<br>");
    } else if (word == "tab") {
      tab();
    } else if (word == "b") {
      f.bold = on != 0;
    } else if (word == "i") {
      f.italic = on != 0;
    } else if (word == "ul") {
      f.underline = on != 0;
    } else if (word == "ulnone") {
      f.underline = false;
    } else if (word == "f") {
      f.font = value;
    } else if (word == "fs") {
      f.size = hasParameter && value > 0 ? value : kDefaultSize;
    } else if (word == "cf") {
      f.color = value;
    } else if (word == "plain") {
      f = CharFormat{.link = f.link};
      f.font = defaultFont_;
    } else if (word == "pard") {
      paragraphFormat_ = ParagraphFormat{};
    } else if (word == "outlinelevel") {
      paragraphFormat_.outlineLevel = std::clamp(value, 0, 5);
    } else if (word == "li") {
      paragraphFormat_.leftIndent = value;
    } else if (word == "fi") {
      paragraphFormat_.firstIndent = value;
    } else if (word == "sb") {
      paragraphFormat_.spaceBefore = value;
    } else if (word == "sa") {
      paragraphFormat_.spaceAfter = value;
    } else if (word == "qc") {
      paragraphFormat_.centred = true;
    } else if (word == "intbl") {
      paragraphFormat_.inTable = true;
    } else if (word == "cell") {
      endCell();
    } else if (word == "row") {
      endRow();
    } else if (word == "trowd") {
      // a new row: its cells come with the paragraphs that follow
    } else if (word == "u") {
      unicode(value);
    } else if (word == "uc") {
      g.unicodeFallback = std::clamp(value, 0, 16);
    } else if (word == "deff") {
      defaultFont_ = value;
    } else if (!special(word) && !among(kIgnoredWords, word) &&
               g.destination == Destination::Text &&
               std::find(page_.unknownWords.begin(), page_.unknownWords.end(), word) ==
                   page_.unknownWords.end()) {
      page_.unknownWords.emplace_back(word);
    }
  }

  // The control words that start a destination group. True when `word` was one.
  bool destination(std::string_view word, bool starred) {
    Group& g = group();
    if (g.destination == Destination::Skip || g.destination == Destination::Unknown) {
      return true;  // nothing inside a group that is not shown matters
    }
    if (word == "fonttbl") {
      g.destination = Destination::FontTable;
    } else if (word == "colortbl") {
      g.destination = Destination::ColorTable;
      colors_.clear();
      colorDefined_ = false;
    } else if (word == "fldinst") {
      g.destination = Destination::FieldInstruction;
      instruction_.clear();
    } else if (word == "fldrslt") {
      g.format.link = g.fieldLink;
    } else if (word == "field") {
      g.fieldLink.clear();
    } else if (word == "bkmkstart") {
      g.destination = Destination::Bookmark;
      bookmark_.clear();
    } else if (word == "bkmkend" || among(kSkippedDestinations, word)) {
      g.destination = Destination::Skip;
    } else if (starred) {
      g.destination = Destination::Unknown;
    } else {
      return false;
    }
    return true;
  }

  void fontTableWord(std::string_view word, int value) {
    if (word == "f") {
      fontIndex_ = value;
      fontName_.clear();
      fixedPitch_ = false;
    } else if (word == "fmodern") {
      fixedPitch_ = true;
    }
  }

  void colorTableWord(std::string_view word, int value) {
    const int part = std::clamp(value, 0, 255);
    if (word == "red") {
      color_ = (color_ & 0x00FFFF) | (part << 16);
    } else if (word == "green") {
      color_ = (color_ & 0xFF00FF) | (part << 8);
    } else if (word == "blue") {
      color_ = (color_ & 0xFFFF00) | part;
    } else {
      return;
    }
    colorDefined_ = true;
  }

  // Named characters.
  bool special(std::string_view word) {
    static constexpr std::array<std::pair<const char*, char32_t>, 7> kNamed = {{
        {"bullet", 0x2022},
        {"emdash", 0x2014},
        {"endash", 0x2013},
        {"lquote", 0x2018},
        {"rquote", 0x2019},
        {"ldblquote", 0x201C},
        {"rdblquote", 0x201D},
    }};
    for (const auto& [name, cp] : kNamed) {
      if (word == name) {
        character(cp);
        return true;
      }
    }
    return false;
  }

  // "\uN": a UTF-16 unit as a signed 16-bit number; a pair of surrogates makes one character.
  void unicode(int value) {
    pendingFallback_ = group().unicodeFallback;
    const char32_t high = std::exchange(highSurrogate_, 0);
    if (value < -32768 || value > 65535) {
      dropped();
      if (high != 0) {
        dropped();
      }
      return;
    }
    const auto unit = static_cast<char32_t>(value < 0 ? value + 0x10000 : value);
    const bool isHigh = unit >= 0xD800 && unit <= 0xDBFF;
    const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
    if (high != 0 && !isLow) {
      dropped();  // a first half with no second
    }
    if (isHigh) {
      highSurrogate_ = unit;
    } else if (isLow && high == 0) {
      dropped();  // a second half with no first
    } else {
      character(isLow ? 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00) : unit);
    }
  }

  void tab() {
    if (group().destination == Destination::Text && !dropping()) {
      textHtml("&emsp;");
    }
  }

  // One byte of text, in Windows-1252.
  void byte(std::uint8_t b) {
    if (pendingFallback_ > 0) {
      --pendingFallback_;  // the stand-in of the Unicode character just shown
      return;
    }
    if (std::exchange(highSurrogate_, 0) != 0) {
      dropped();  // the first half of a pair, and no second
    }
    if (isUndefinedWindows1252(b)) {
      dropped();
      return;
    }
    character(codePointOfByte(b));
  }

  void dropped() { ++page_.droppedCharacters; }

  // One character in the current destination.
  void character(char32_t cp) {
    if (dropping()) {
      dropped();
      return;
    }
    std::string utf8;
    appendUtf8(utf8, cp);
    switch (group().destination) {
      case Destination::Text:
        shown(cp, utf8);
        break;
      case Destination::Unknown:
        dropped();
        break;
      case Destination::FieldInstruction:
        instruction_ += utf8;
        break;
      case Destination::Bookmark:
        bookmark_ += utf8;
        break;
      case Destination::FontTable:
        fontText(utf8);
        break;
      case Destination::ColorTable:
        if (cp == ';') {
          colors_.push_back(colorDefined_ ? color_ : -1);
          color_ = 0;
          colorDefined_ = false;
        }
        break;
      case Destination::Skip:
        break;
    }
  }

  void fontText(const std::string& utf8) {
    if (utf8 == ";") {
      endFontName();
    } else {
      fontName_ += utf8;
    }
  }

  void endFontName() {
    fonts_.resize(std::max<std::size_t>(
        fonts_.size(), static_cast<std::size_t>(std::clamp(fontIndex_, 0, 255)) + 1));
    fonts_[static_cast<std::size_t>(std::clamp(fontIndex_, 0, 255))] = {trim(fontName_),
                                                                        fixedPitch_};
    fontName_.clear();
  }

  void shown(char32_t cp, const std::string& utf8) {
    // Blanks in a row stay, as in the fixed-pitch lines.
    const bool keptBlank = cp == ' ' && (paragraph_.empty() || lastWasSpace_);
    if (keptBlank || cp == 0x00A0) {
      textHtml("&nbsp;");
    } else {
      std::string escaped;
      appendHtmlEscaped(escaped, utf8);
      textHtml(escaped);
    }
    lastWasSpace_ = cp == ' ';
  }

  // Text of the paragraph, already HTML, in the current character format.
  void textHtml(std::string_view html) {
    if (group().destination != Destination::Text || dropping()) {
      return;
    }
    const CharFormat& f = group().format;
    if (!spanOpen_ || !(f == spanFormat_)) {
      closeSpan();
      openSpan(f);
    }
    paragraph_ += anchor_;
    anchor_.clear();
    paragraph_ += html;
    lastWasSpace_ = false;
  }

  std::string fontName(int index) const {
    const auto i = static_cast<std::size_t>(index);
    return index >= 0 && i < fonts_.size() && !fonts_[i].name.empty() ? fonts_[i].name
                                                                      : std::string("Arial");
  }

  bool fixedPitch(int index) const {
    const auto i = static_cast<std::size_t>(index);
    return index >= 0 && i < fonts_.size() && fonts_[i].fixedPitch;
  }

  // Opens the tags of `f`; the tags that close them, in the reverse order, wait in spanClose_.
  void openSpan(const CharFormat& f) {
    spanFormat_ = f;
    spanOpen_ = true;
    spanClose_.clear();
    const auto open = [this](const std::string& tag, const char* close) {
      paragraph_ += tag;
      spanClose_.insert(0, close);
    };
    if (!f.link.empty()) {
      std::string tag = "<a href=\"";
      appendHtmlEscaped(tag, f.link);
      open(tag + "\">", "</a>");
    }
    if (f.bold) {
      open("<b>", "</b>");
    }
    if (f.italic) {
      open("<i>", "</i>");
    }
    if (f.underline) {
      open("<u>", "</u>");
    }
    std::string style;
    if (f.font != defaultFont_) {
      style += "font-family:'";
      appendHtmlEscaped(style, fontName(f.font));
      style += fixedPitch(f.font) ? "',monospace;" : "';";
    }
    if (f.size != kDefaultSize) {
      style += "font-size:" + std::to_string(f.size / 2) + (f.size % 2 != 0 ? ".5pt;" : "pt;");
    }
    const auto color = static_cast<std::size_t>(f.color);
    if (f.color > 0 && color < colors_.size() && colors_[color] >= 0) {
      std::array<char, 8> hex{};
      std::snprintf(hex.data(), hex.size(), "#%06x", colors_[color]);
      style += "color:" + std::string(hex.data()) + ";";
    }
    if (!style.empty()) {
      style.pop_back();
      open("<span style=\"" + style + "\">", "</span>");
    }
  }

  void closeSpan() {
    if (spanOpen_) {
      paragraph_ += spanClose_;
      spanOpen_ = false;
    }
  }

  // The paragraph's text so far, with its tags closed.
  std::string takeParagraph() {
    closeSpan();
    std::string text = std::move(paragraph_) + std::exchange(anchor_, {});
    paragraph_.clear();
    lastWasSpace_ = false;
    return text;
  }

  void paragraph() {
    if (group().destination != Destination::Text || dropping()) {
      return;
    }
    if (paragraphFormat_.inTable) {
      cell_ += takeParagraph() + "<br>";
      return;
    }
    endParagraph(/*atEnd=*/false);
  }

  void endParagraph(bool atEnd) {
    std::string text = takeParagraph();
    if (atEnd && text.empty()) {
      endTable();
      return;
    }
    if (paragraphFormat_.inTable && atEnd) {
      cell_ += text;
      endRow();
      endTable();
      return;
    }
    endTable();
    const ParagraphFormat& p = paragraphFormat_;
    std::string style;
    auto add = [&](const char* property, int twips) {
      if (twips != 0) {
        style += std::string(property) + ":" + pixels(twips) + ";";
      }
    };
    add("margin-top", p.spaceBefore);
    add("margin-bottom", p.spaceAfter);
    add("margin-left", p.leftIndent);
    add("text-indent", p.firstIndent);
    if (p.centred) {
      style += "text-align:center;";
    }
    const std::string tag =
        p.outlineLevel >= 0 ? "h" + std::to_string(std::min(p.outlineLevel, 5) + 1) : "p";
    body_ += "<" + tag;
    if (!style.empty()) {
      style.pop_back();
      body_ += " style=\"" + style + "\"";
    }
    body_ += ">" + (text.empty() ? std::string("&nbsp;") : text) + "</" + tag + ">\n";
  }

  void endCell() {
    if (group().destination != Destination::Text || dropping()) {
      return;
    }
    row_ += "<td>" + cell_ + takeParagraph() + "</td>";
    cell_.clear();
  }

  void endRow() {
    if (group().destination != Destination::Text || dropping()) {
      return;
    }
    if (!cell_.empty() || !paragraph_.empty()) {
      endCell();
    }
    table_ += "<tr>" + row_ + "</tr>\n";
    row_.clear();
  }

  void endTable() {
    if (!row_.empty()) {
      table_ += "<tr>" + row_ + "</tr>\n";
      row_.clear();
    }
    if (!table_.empty()) {
      body_ += "<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">\n" + table_ + "</table>\n";
      table_.clear();
    }
  }

  std::string_view rtf_;
  std::size_t pos_ = 0;
  std::vector<Group> groups_;
  std::size_t overflow_ = 0;  // groups opened past the deepest nesting
  bool starred_ = false;
  int pendingFallback_ = 0;
  char32_t highSurrogate_ = 0;

  std::vector<Font> fonts_;
  int defaultFont_ = 0;
  int fontIndex_ = 0;
  std::string fontName_;
  bool fixedPitch_ = false;
  std::vector<int> colors_;  // 0xRRGGBB, -1 for the automatic colour
  int color_ = 0;
  bool colorDefined_ = false;
  std::string instruction_;
  std::string bookmark_;

  ParagraphFormat paragraphFormat_;
  std::string paragraph_;
  std::string anchor_;  // bookmarks waiting for the next text
  bool spanOpen_ = false;
  std::string spanClose_;  // the closing tags of the open span
  CharFormat spanFormat_;
  bool lastWasSpace_ = false;
  std::string cell_;
  std::string row_;
  std::string table_;
  std::string body_;
  RtfPage page_;
};

}  // namespace

RtfPage rtfToHtml(std::string_view rtf) { return Reader(rtf).read(); }

}  // namespace contavia::help

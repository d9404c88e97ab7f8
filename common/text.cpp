#include "common/text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace contavia {
namespace {

// Code points of the Windows-1252 bytes 0x80..0x9F; the five undefined bytes map to the C1
// control of the same value, so that every byte survives a round trip.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

int byteOfCodePoint(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
    return static_cast<int>(cp);
  }
  for (std::size_t i = 0; i < kHighControls.size(); ++i) {
    if (kHighControls[i] == cp) {
      return static_cast<int>(0x80 + i);
    }
  }
  return -1;
}

// Length in bytes of the UTF-8 sequence starting at text[i]; 1 for an invalid byte.
std::size_t sequenceLength(std::string_view text, std::size_t i) {
  const auto lead = static_cast<std::uint8_t>(text[i]);
  std::size_t len = 1;
  if (lead >= 0xF0 && lead <= 0xF4) {
    len = 4;
  } else if (lead >= 0xE0) {
    len = 3;
  } else if (lead >= 0xC2 && lead <= 0xDF) {
    len = 2;
  }
  if (lead >= 0xF5 || (lead >= 0x80 && lead < 0xC2) || i + len > text.size()) {
    return 1;
  }
  for (std::size_t k = 1; k < len; ++k) {
    if ((static_cast<std::uint8_t>(text[i + k]) & 0xC0) != 0x80) {
      return 1;
    }
  }
  return len;
}

// Decodes one character at text[i]; an invalid byte is taken as a Windows-1252 byte.
char32_t decodeAt(std::string_view text, std::size_t i, std::size_t len) {
  const auto lead = static_cast<std::uint8_t>(text[i]);
  if (len == 1) {
    return lead < 0x80 ? lead : codePointOfByte(lead);
  }
  char32_t cp = lead & (len == 2 ? 0x1F : len == 3 ? 0x0F : 0x07);
  for (std::size_t k = 1; k < len; ++k) {
    cp = (cp << 6) | (static_cast<std::uint8_t>(text[i + k]) & 0x3F);
  }
  return cp;
}

// Length of the run of plain ASCII bytes at the start of text, up to `limit` bytes.
std::size_t asciiRun(std::string_view text, std::size_t limit) {
  const std::size_t end = std::min(limit, text.size());
  std::size_t i = 0;
  while (i < end && static_cast<std::uint8_t>(text[i]) < 0x80) {
    ++i;
  }
  return i;
}

// Byte offset of character number `chars` (or text.size() when the text is shorter). Plain
// ASCII, by far the most common text, is one byte a character.
std::size_t byteOffsetOfChar(std::string_view text, std::size_t chars) {
  std::size_t i = asciiRun(text, chars);
  for (std::size_t c = i; c < chars && i < text.size(); ++c) {
    i += sequenceLength(text, i);
  }
  return i;
}

bool isBlank(char c) { return c == ' '; }

}  // namespace

char32_t codePointOfByte(std::uint8_t byte) {
  if (byte >= 0x80 && byte <= 0x9F) {
    return kHighControls[byte - 0x80];
  }
  return byte;
}

bool isUndefinedWindows1252(std::uint8_t byte) {
  return byte >= 0x80 && byte <= 0x9F && kHighControls[byte - 0x80] == byte;
}

void appendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out.push_back(static_cast<char>(cp));
  } else if (cp < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else if (cp < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

std::size_t charCount(std::string_view text) {
  std::size_t count = asciiRun(text, text.size());
  for (std::size_t i = count; i < text.size(); i += sequenceLength(text, i)) {
    ++count;
  }
  return count;
}

std::string leftChars(std::string_view text, std::size_t count) {
  return std::string(text.substr(0, byteOffsetOfChar(text, count)));
}

std::string rightChars(std::string_view text, std::size_t count) {
  const std::size_t total = charCount(text);
  if (count >= total) {
    return std::string(text);
  }
  return std::string(text.substr(byteOffsetOfChar(text, total - count)));
}

std::string midChars(std::string_view text, std::size_t start, std::size_t count) {
  const std::size_t from = byteOffsetOfChar(text, start);
  const std::string_view rest = text.substr(from);
  return std::string(rest.substr(0, byteOffsetOfChar(rest, count)));
}

std::string padRight(std::string_view text, std::size_t width) {
  const std::size_t cut = byteOffsetOfChar(text, width);
  std::string out;
  out.reserve(cut + width);
  out.append(text.substr(0, cut));
  out.append(width - charCount(out), ' ');
  return out;
}

std::string padLeft(std::string_view text, std::size_t width) {
  const std::size_t n = charCount(text);
  std::string out;
  if (n < width) {
    out.append(width - n, ' ');
  }
  out.append(text);
  return out;
}

std::string trimRight(std::string_view text) {
  std::size_t end = text.size();
  while (end > 0 && isBlank(text[end - 1])) {
    --end;
  }
  return std::string(text.substr(0, end));
}

std::string trimLeft(std::string_view text) {
  std::size_t start = 0;
  while (start < text.size() && isBlank(text[start])) {
    ++start;
  }
  return std::string(text.substr(start));
}

std::string trim(std::string_view text) { return trimLeft(trimRight(text)); }

std::string decodeWindows1252(const std::uint8_t* bytes, std::size_t size) {
  std::string out(size, ' ');  // NUL bytes (fields never assigned) stay blanks
  for (std::size_t i = 0; i < size; ++i) {
    const std::uint8_t b = bytes[i];
    if (b >= 0x80) {
      // Past plain ASCII, as in "Società": the rest character by character.
      out.resize(i);
      for (; i < size; ++i) {
        appendUtf8(out, bytes[i] == 0 ? U' ' : codePointOfByte(bytes[i]));
      }
      return out;
    }
    if (b != 0) {
      out[i] = static_cast<char>(b);
    }
  }
  return out;
}

void encodeWindows1252(std::string_view text, std::uint8_t* out, std::size_t width) {
  std::size_t written = 0;
  for (std::size_t i = 0; i < text.size() && written < width;) {
    const std::size_t len = sequenceLength(text, i);
    const int byte = byteOfCodePoint(decodeAt(text, i, len));
    out[written++] = byte < 0 ? static_cast<std::uint8_t>('?') : static_cast<std::uint8_t>(byte);
    i += len;
  }
  for (; written < width; ++written) {
    out[written] = ' ';
  }
}

std::string asStoredText(std::string_view text) {
  std::vector<std::uint8_t> bytes(charCount(text));
  encodeWindows1252(text, bytes.data(), bytes.size());
  return decodeWindows1252(bytes.data(), bytes.size());
}

std::string foldCase(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t len = sequenceLength(text, i);
    char32_t cp = decodeAt(text, i, len);
    if ((cp >= U'a' && cp <= U'z') || (cp >= 0xE0 && cp <= 0xFE && cp != 0xF7)) {
      cp -= 0x20;
    } else if (cp == 0x0161 || cp == 0x0153 || cp == 0x017E) {  // š œ ž
      --cp;
    } else if (cp == 0x00FF) {  // ÿ
      cp = 0x0178;
    }
    // A byte that is not UTF-8 is taken as Windows-1252, as everywhere else.
    appendUtf8(out, cp);
    i += len;
  }
  return out;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
  return foldCase(a) == foldCase(b);
}

}  // namespace contavia

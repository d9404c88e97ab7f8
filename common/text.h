#pragma once
// Text helpers. Text inside the program is UTF-8; widths are counted in characters (code points),
// never in bytes, so that columns of accented text ("Società", "Perù") stay aligned.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace contavia {

// Number of characters (code points) of a UTF-8 text.
std::size_t charCount(std::string_view text);

// The first `count` characters of `text`.
std::string leftChars(std::string_view text, std::size_t count);
// The last `count` characters of `text`.
std::string rightChars(std::string_view text, std::size_t count);
// `count` characters starting at character `start` (0-based), as VB's Mid.
std::string midChars(std::string_view text, std::size_t start, std::size_t count);

// Blanks on the right up to `width` characters; a longer text is cut to `width`.
std::string padRight(std::string_view text, std::size_t width);
// Blanks on the left up to `width` characters; a longer text is left as it is.
std::string padLeft(std::string_view text, std::size_t width);

std::string trimRight(std::string_view text);
std::string trimLeft(std::string_view text);
std::string trim(std::string_view text);

// The character of one Windows-1252 byte; the five bytes that Windows-1252 leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) give the C1 control of the same value, so that they survive a
// round trip.
char32_t codePointOfByte(std::uint8_t byte);
bool isUndefinedWindows1252(std::uint8_t byte);
// Appends one character to a UTF-8 text.
void appendUtf8(std::string& out, char32_t cp);

// Windows-1252 bytes to UTF-8. NUL bytes (fields the program never assigned) read as blanks.
std::string decodeWindows1252(const std::uint8_t* bytes, std::size_t size);
// UTF-8 to Windows-1252: cut to `width` characters, padded with blanks; a character with no
// Windows-1252 byte becomes '?'. Invalid UTF-8 bytes are taken as Windows-1252 bytes.
void encodeWindows1252(std::string_view text, std::uint8_t* out, std::size_t width);

// A text as a Windows-1252 field gives it back: every character with no Windows-1252 byte
// becomes "?" (the length in characters is kept).
std::string asStoredText(std::string_view text);

// Upper case for every letter that Windows-1252 has in both cases ("ù" and "Ù", "œ" and "Œ"):
// file names and account codes are compared this way.
std::string foldCase(std::string_view text);
bool equalsIgnoringCase(std::string_view a, std::string_view b);

}  // namespace contavia

// Windows-1252 fields and widths counted in characters, so that accented text lines up.

#include "common/text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace contavia {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(Text, Windows1252Fields) {
  struct Case {
    std::string utf8;
    std::size_t width;
    Bytes bytes;
  };
  const std::vector<Case> cases = {
      {"Perù", 5, {'P', 'e', 'r', 0xF9, ' '}},
      {"Società", 4, {'S', 'o', 'c', 'i'}},
      {"è€", 3, {0xE8, 0x80, ' '}},
      {"ł-ü", 3, {'?', '-', 0xFC}},  // no Windows-1252 byte for "ł"
      {"", 2, {' ', ' '}},
  };
  for (const Case& c : cases) {
    Bytes out(c.width, 0);
    encodeWindows1252(c.utf8, out.data(), c.width);
    EXPECT_EQ(out, c.bytes) << c.utf8;
  }
  const Bytes stored = {'S', 'o', 'c', 'i', 'e', 't', 0xE0, 0x80, 0x00, 0x81};
  EXPECT_EQ(decodeWindows1252(stored.data(), stored.size()), "Società€ \xC2\x81");
  const Bytes ascii = {'A', 0x00, 'b', ' ', 0x00};  // never-assigned bytes read as blanks
  EXPECT_EQ(decodeWindows1252(ascii.data(), ascii.size()), "A b  ");
  // Widths are counted in characters, not bytes.
  EXPECT_EQ(padRight("Perù", 6), "Perù  ");
  EXPECT_EQ(padLeft("Società", 8), " Società");
  EXPECT_EQ(leftChars("àèìòù", 2), "àè");
  EXPECT_EQ(rightChars("àèìòù", 2), "òù");
  EXPECT_EQ(midChars("àèìòù", 1, 3), "èìò");
}

TEST(Text, CaseIsFoldedForEveryWindows1252Letter) {
  for (const auto& [a, b] : std::vector<std::pair<const char*, const char*>>{
           {"perù.moc", "PERÙ.MOC"}, {"àéîõü", "ÀÉÎÕÜ"}, {"œšžÿ", "ŒŠŽŸ"}, {"ß", "ß"}}) {
    EXPECT_TRUE(equalsIgnoringCase(a, b)) << a;
  }
  for (const auto& [a, b] : std::vector<std::pair<const char*, const char*>>{
           {"÷", "×"}, {"perù", "peru"}, {"a", "à"}, {"UNI.MOC", "UNI.MOR"}}) {
    EXPECT_FALSE(equalsIgnoringCase(a, b)) << a;
  }
}

}  // namespace
}  // namespace contavia

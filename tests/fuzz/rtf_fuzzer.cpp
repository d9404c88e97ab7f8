// libFuzzer target: any bytes as a topic of the guide. The reader must not crash or read out of
// bounds, and what it gives must be a whole page of valid UTF-8 (the viewer shows it as it is).

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "help/rtf_reader.h"

namespace {

bool validUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t len = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if ((lead >= 0x80 && lead < 0xC2) || lead > 0xF4 || i + len > text.size()) {
      return false;
    }
    for (std::size_t k = 1; k < len; ++k) {
      if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) {
        return false;
      }
    }
    i += len;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view rtf(reinterpret_cast<const char*>(data), size);
  const contavia::help::RtfPage page = contavia::help::rtfToHtml(rtf);
  if (!validUtf8(page.html) || !page.html.ends_with("</body></html>")) {
    std::abort();
  }
  return 0;
}

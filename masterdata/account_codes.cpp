#include "masterdata/account_codes.h"

#include <array>
#include <cstdint>

#include "common/text.h"

namespace contavia {
namespace {

constexpr std::array<std::string_view, 11> kArchiveFileNames = {
    "CONTI",   "Causali",   "Tipo",    "Gruppi",     "RecConti", "RecCausa",
    "RecTipo", "RecGruppi", "records", "Reccausali", "Bak"};

constexpr std::string_view kRefusedInNames = "/\\*?<>:\"|";
constexpr const char* kTryAgain = ". Cambiare il nr. di conto e riprovare.";

bool isControlByte(std::uint8_t b) {
  return b < 0x20 || b == 0x7F || b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D;
}

// Why one character cannot stand in a file name; empty when it can.
std::string characterProblem(const std::string& ch) {
  std::uint8_t byte = 0;
  encodeWindows1252(ch, &byte, 1);
  const bool stored = decodeWindows1252(&byte, 1) == ch;
  if (isControlByte(byte) && (stored || ch.size() == 1)) {
    return std::string("Il nr. di conto non può contenere caratteri di controllo") + kTryAgain;
  }
  if (!stored) {
    return "Il nr. di conto non può contenere il carattere \"" + ch +
           "\", che l'archivio non sa registrare" + kTryAgain;
  }
  if (kRefusedInNames.find(static_cast<char>(byte)) != std::string_view::npos) {
    return "Il nr. di conto non può contenere il carattere \"" + ch + "\"" + kTryAgain;
  }
  return {};
}

}  // namespace

std::string accountCodeProblem(std::string_view code) {
  const std::string name = trim(code);
  for (std::string_view reserved : kArchiveFileNames) {
    if (equalsIgnoringCase(name, reserved)) {
      return "Il nr. di conto \"" + name +
             "\" non si può usare: è il nome di un file dell'archivio" + kTryAgain;
    }
  }
  if (name == "." || name == "..") {
    return "Il nr. di conto \"" + name + "\" non è un nome di file valido" + kTryAgain;
  }
  const std::size_t length = charCount(name);
  for (std::size_t i = 0; i < length; ++i) {
    if (std::string problem = characterProblem(midChars(name, i, 1)); !problem.empty()) {
      return problem;
    }
  }
  return {};
}

}  // namespace contavia

#pragma once
// An account's code is the name of its own files (code + ".MOC", ".MOR", ...). A new code must
// therefore be a plain file name of the DataDirectory that is none of the archive's own files.

#include <string>
#include <string_view>

namespace contavia {

// Why `code` (trimmed) cannot be a new account's code, as the text of an "ERRORE" box; empty
// when it can. Refused: a code equal in any letter case to the name of one of the archive's own
// files ("CONTI", "Causali", "Tipo", "Gruppi", "RecConti", "RecCausa", "RecTipo", "RecGruppi",
// "records", "Reccausali", "Bak"), "." and "..", and a code holding a path separator, a wildcard,
// a character that file systems refuse in names (< > : " |), a control character, or a
// character that the archive's code page cannot store.
std::string accountCodeProblem(std::string_view code);

}  // namespace contavia

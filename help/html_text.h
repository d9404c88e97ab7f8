#pragma once
// Text written into the guide's HTML pages and read back from their addresses.

#include <string>
#include <string_view>

namespace contavia::help {

// `text` with &, <, > and " written as entities.
void appendHtmlEscaped(std::string& out, std::string_view text);
std::string htmlEscaped(std::string_view text);

// The value of a hexadecimal digit, -1 for any other character.
int hexDigitValue(char c);

}  // namespace contavia::help

// For timing whole programs on a large archive (contavia-cli against a plain program):
//   archive_tool genera CARTELLA [CONTI [MOVIMENTI]]  writes the generated archive (1,000 x 1,000
//                                                     by default) into the folder
//   archive_tool somma CARTELLA                       the floor of bench/plain_floor.h: reads and
//                                                     sums every account, prints one line
//   archive_tool elenca CARTELLA                      every ".MOC" read whole and each movement
//                                                     printed as one line (date, number, amount,
//                                                     sign, account): the least a listing of
//                                                     every movement costs
// Example:
//   build-bench/bin/archive_tool genera /tmp/grande
//   /usr/bin/time build-bench/bin/archive_tool somma /tmp/grande
//   /usr/bin/time contavia-cli --dati /tmp/grande --oggi 30/06/2022 riepilogo conti

#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

#include "bench/generator/archive_generator.h"
#include "bench/plain_floor.h"

namespace {

using namespace contavia::bench;

int usage() {
  std::fputs(
      "uso: archive_tool genera CARTELLA [CONTI [MOVIMENTI]] | somma CARTELLA | elenca CARTELLA\n",
      stderr);
  return 2;
}

// One line per movement on standard output, through stdio's buffer.
int list(const std::string& folder) {
  constexpr std::size_t kMovementLength = 87;
  std::vector<unsigned char> movements;
  std::size_t count = 0;
  for (const std::string& code : plain::accountCodes(folder)) {
    plain::readWhole(folder + code + ".MOC", movements);
    for (std::size_t i = 0; i + kMovementLength <= movements.size(); i += kMovementLength) {
      const unsigned char* r = movements.data() + i;
      double amount = 0.0;
      std::memcpy(&amount, r + 17, sizeof amount);
      std::printf("%.10s %04d %14.2f %c %s\n", reinterpret_cast<const char*>(r + 2),
                  plain::int16At(r), amount, r[63], code.c_str());
      ++count;
    }
  }
  std::fprintf(stderr, "%zu movimenti\n", count);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    return usage();
  }
  const std::string command = argv[1];
  std::string folder = argv[2];
  if (!folder.ends_with('/')) {
    folder += '/';
  }
  try {
    if (command == "genera") {
      GeneratorOptions options;
      options.accounts = argc > 3 ? std::stoi(argv[3]) : 1000;
      options.movementsPerAccount = argc > 4 ? std::stoi(argv[4]) : 1000;
      const GeneratedArchive archive = generateArchive(folder, options);
      std::printf("%zu conti, %zu movimenti in %s\n", archive.accounts.size(), archive.movements,
                  folder.c_str());
      return 0;
    }
    if (command == "somma") {
      const plain::Sums sums = plain::readAndSum(folder);
      std::printf("%zu conti, %zu movimenti, totale %.2f\n", sums.accounts, sums.movements,
                  sums.total);
      return 0;
    }
    if (command == "elenca") {
      return list(folder);
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "archive_tool: %s\n", e.what());
    return 1;
  }
  return usage();
}

// For timing whole programs on a large archive (contavia-cli against a plain program):
//   archive_tool genera CARTELLA [CONTI [MOVIMENTI]]  writes the generated archive (1,000 x 1,000
//                                                     by default) into the folder
//   archive_tool somma CARTELLA                       the floor of bench/plain_floor.h: reads and
//                                                     sums every account, prints one line
//   archive_tool elenca CARTELLA                      every ".MOC" read whole and each movement
//                                                     printed as one line (date, number, amount,
//                                                     sign, account): the least a listing of
//                                                     every movement costs
//   archive_tool ordina CARTELLA                      the same lines, newest first (by date,
//                                                     then by number): the least the movement
//                                                     list of an account costs
// Example:
//   build-bench/bin/archive_tool genera /tmp/grande
//   /usr/bin/time build-bench/bin/archive_tool somma /tmp/grande
//   /usr/bin/time contavia-cli --dati /tmp/grande --oggi 30/06/2022 riepilogo conti

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "bench/generator/archive_generator.h"
#include "bench/plain_floor.h"

namespace {

using namespace contavia::bench;

int usage() {
  std::fputs(
      "uso: archive_tool genera CARTELLA [CONTI [MOVIMENTI]] | somma CARTELLA | elenca CARTELLA | "
      "ordina CARTELLA\n",
      stderr);
  return 2;
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
    if (command == "elenca" || command == "ordina") {
      std::fprintf(stderr, "%zu movimenti\n",
                   plain::printLines(folder, command == "ordina", stdout));
      return 0;
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "archive_tool: %s\n", e.what());
    return 1;
  }
  return usage();
}

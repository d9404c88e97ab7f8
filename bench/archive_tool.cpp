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

#include <algorithm>
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
      "uso: archive_tool genera CARTELLA [CONTI [MOVIMENTI]] | somma CARTELLA | elenca CARTELLA | "
      "ordina CARTELLA\n",
      stderr);
  return 2;
}

constexpr std::size_t kMovementLength = 87;

// "dd/mm/yyyy" at `r` + 2 as yyyymmdd.
int dateKeyAt(const unsigned char* r) {
  const auto digits = [r](int at, int n) {
    int v = 0;
    for (int i = 0; i < n; ++i) {
      v = v * 10 + (r[2 + at + i] - '0');
    }
    return v;
  };
  return digits(6, 4) * 10000 + digits(3, 2) * 100 + digits(0, 2);
}

// One line per movement on standard output, through stdio's buffer; `newestFirst` sorts each
// account's movements by date, then number, from the last.
int list(const std::string& folder, bool newestFirst) {
  std::vector<unsigned char> movements;
  std::vector<const unsigned char*> order;
  std::size_t count = 0;
  for (const std::string& code : plain::accountCodes(folder)) {
    plain::readWhole(folder + code + ".MOC", movements);
    order.clear();
    for (std::size_t i = 0; i + kMovementLength <= movements.size(); i += kMovementLength) {
      order.push_back(movements.data() + i);
    }
    if (newestFirst) {
      std::sort(order.begin(), order.end(), [](const unsigned char* a, const unsigned char* b) {
        const int ka = dateKeyAt(a);
        const int kb = dateKeyAt(b);
        return ka != kb ? ka > kb : plain::int16At(a) > plain::int16At(b);
      });
    }
    for (const unsigned char* r : order) {
      double amount = 0.0;
      std::memcpy(&amount, r + 17, sizeof amount);
      std::printf("%.10s %04d %14.2f %c %.30s %s\n", reinterpret_cast<const char*>(r + 2),
                  plain::int16At(r), amount, r[63], reinterpret_cast<const char*>(r + 33),
                  code.c_str());
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
    if (command == "elenca" || command == "ordina") {
      return list(folder, command == "ordina");
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "archive_tool: %s\n", e.what());
    return 1;
  }
  return usage();
}

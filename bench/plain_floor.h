#pragma once
// The floors of the benchmarks: what it costs simply to read every account's files and sum its
// movements, written as a plain program would, with POSIX calls and no code of Contavia. For
// each account of "CONTI.CON" (its count in "RecConti.CON"): the count of ".MOR", the whole
// ".MOC" (87-byte records: amount an 8-byte little-endian double at offset 17, sign byte at 63,
// "A" adds and anything else subtracts) and the carried-forward amount of ".RIP" (int32 at
// offset 10). The files are named as the generator writes them (the account code, trimmed, plus
// the extension in its canonical spelling); codes are taken as ASCII.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace contavia::bench::plain {

struct Sums {
  std::size_t accounts = 0;
  std::size_t movements = 0;
  double total = 0.0;  // every account's balance, summed
};

// Reads the whole file at `path` into `out` (resized to what was read); false when it cannot
// be opened.
inline bool readWhole(const std::string& path, std::vector<unsigned char>& out) {
  out.clear();
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    return false;
  }
  struct stat st {};
  if (::fstat(fd, &st) == 0 && st.st_size > 0) {
    out.resize(static_cast<std::size_t>(st.st_size));
    std::size_t done = 0;
    while (done < out.size()) {
      const ssize_t n = ::read(fd, out.data() + done, out.size() - done);
      if (n <= 0) {
        break;
      }
      done += static_cast<std::size_t>(n);
    }
    out.resize(done);
  }
  ::close(fd);
  return true;
}

// Reads up to `size` bytes at the start of the file at `path` into `buf`; how many were read.
inline std::size_t readHead(const std::string& path, void* buf, std::size_t size) {
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    return 0;
  }
  const ssize_t n = ::pread(fd, buf, size, 0);
  ::close(fd);
  return n > 0 ? static_cast<std::size_t>(n) : 0;
}

inline std::int16_t int16At(const unsigned char* p) {
  return static_cast<std::int16_t>(p[0] | (p[1] << 8));
}

// The account codes of "CONTI.CON", in table order, trimmed of blanks.
inline std::vector<std::string> accountCodes(const std::string& folder) {
  constexpr std::size_t kAccountLength = 207;
  constexpr std::size_t kCodeOffset = 4;
  constexpr std::size_t kCodeWidth = 10;
  unsigned char countBytes[2] = {0, 0};
  readHead(folder + "RecConti.CON", countBytes, sizeof countBytes);
  const int count = int16At(countBytes);
  std::vector<unsigned char> table;
  readWhole(folder + "CONTI.CON", table);
  std::vector<std::string> codes;
  for (std::size_t i = 0; i < static_cast<std::size_t>(std::max(count, 0)); ++i) {
    if ((i + 1) * kAccountLength > table.size()) {
      break;
    }
    std::string code(reinterpret_cast<const char*>(table.data() + i * kAccountLength + kCodeOffset),
                     kCodeWidth);
    code.erase(code.find_last_not_of(' ') + 1);
    code.erase(0, code.find_first_not_of(' '));
    codes.push_back(code);
  }
  return codes;
}

// The floor itself. `folder` ends with "/".
inline Sums readAndSum(const std::string& folder) {
  constexpr std::size_t kMovementLength = 87;
  Sums sums;
  std::vector<unsigned char> movements;
  for (const std::string& code : accountCodes(folder)) {
    const std::string base = folder + code;
    unsigned char countBytes[2] = {0, 0};
    readHead(base + ".MOR", countBytes, sizeof countBytes);
    const std::size_t count = static_cast<std::size_t>(std::max<int>(int16At(countBytes), 0));
    readWhole(base + ".MOC", movements);
    const std::size_t n = std::min(count, movements.size() / kMovementLength);
    double balance = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
      const unsigned char* r = movements.data() + i * kMovementLength;
      double amount = 0.0;
      std::memcpy(&amount, r + 17, sizeof amount);
      balance += r[63] == 'A' ? amount : -amount;
    }
    unsigned char carry[14] = {};
    readHead(base + ".RIP", carry, sizeof carry);
    std::int32_t carried = 0;
    std::memcpy(&carried, carry + 10, sizeof carried);
    sums.total += balance + carried;
    sums.movements += n;
    ++sums.accounts;
  }
  return sums;
}

// "dd/mm/yyyy" at offset 2 of a movement record as yyyymmdd.
inline int dateKeyAt(const unsigned char* r) {
  const auto digits = [r](int at, int n) {
    int v = 0;
    for (int i = 0; i < n; ++i) {
      v = v * 10 + (r[2 + at + i] - '0');
    }
    return v;
  };
  return digits(6, 4) * 10000 + digits(3, 2) * 100 + digits(0, 2);
}

// The floor of a listing: every account's ".MOC" read whole and each movement printed to `out`
// as one line (date, number, amount, sign, description, account); with `newestFirst` each
// account's movements sorted by date, then number, from the last, as the movement list shows
// them. How many lines were printed.
inline std::size_t printLines(const std::string& folder, bool newestFirst, std::FILE* out) {
  constexpr std::size_t kMovementLength = 87;
  std::vector<unsigned char> movements;
  std::vector<const unsigned char*> order;
  std::size_t count = 0;
  for (const std::string& code : accountCodes(folder)) {
    readWhole(folder + code + ".MOC", movements);
    order.clear();
    for (std::size_t i = 0; i + kMovementLength <= movements.size(); i += kMovementLength) {
      order.push_back(movements.data() + i);
    }
    if (newestFirst) {
      std::sort(order.begin(), order.end(), [](const unsigned char* a, const unsigned char* b) {
        const int ka = dateKeyAt(a);
        const int kb = dateKeyAt(b);
        return ka != kb ? ka > kb : int16At(a) > int16At(b);
      });
    }
    for (const unsigned char* r : order) {
      double amount = 0.0;
      std::memcpy(&amount, r + 17, sizeof amount);
      std::fprintf(out, "%.10s %04d %14.2f %c %.30s %s\n", reinterpret_cast<const char*>(r + 2),
                   int16At(r), amount, r[63], reinterpret_cast<const char*>(r + 33), code.c_str());
      ++count;
    }
  }
  return count;
}

}  // namespace contavia::bench::plain

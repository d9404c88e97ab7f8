#include "archive/record_file.h"

#include <algorithm>

#include "archive/records.h"

namespace contavia {

int readRecordBytes(FileLayer& files, const std::string& path, std::size_t length,
                    std::size_t first, std::size_t count, std::vector<std::uint8_t>& out,
                    std::size_t* available) {
  out.assign(length * count, 0);
  if (available != nullptr) {
    *available = 0;
  }
  if (path.empty()) {
    return diskerr::kBadFileName;
  }
  // Read straight into `out` (a table of 10,000 movements is 870 KB), then zeros past the end.
  const int rc =
      files.read(path, (first - 1) * static_cast<std::uint64_t>(length), length * count, out, true);
  if (rc != diskerr::kOk) {
    out.assign(length * count, 0);
    return rc;
  }
  if (available != nullptr) {
    *available = out.size() / length;
  }
  out.resize(length * count, 0);
  return diskerr::kOk;
}

int readCount(FileLayer& files, const std::string& path, std::int16_t& out) {
  CountRecord record;
  const int rc = readRecord(files, path, 1, record);
  out = record.value;
  return rc;
}

}  // namespace contavia

#pragma once
// Fixed-length record files: record n (from 1) occupies bytes (n-1)*length .. n*length-1.
// Opening a missing file creates it empty; a read past the end gives zeros; files are never
// shortened. Writes go through the write journal.

#include <cstdint>
#include <string>
#include <vector>

#include "archive/file_layer.h"
#include "archive/record_codec.h"

namespace contavia {

// Reads `count` records from record `first`; the result holds exactly count*length bytes, zeros
// past the end of the file. `available` receives how many whole records the file had in range.
int readRecordBytes(FileLayer& files, const std::string& path, std::size_t length,
                    std::size_t first, std::size_t count, std::vector<std::uint8_t>& out,
                    std::size_t* available = nullptr);

template <class Record>
int readRecord(FileLayer& files, const std::string& path, std::size_t n, Record& out) {
  std::vector<std::uint8_t> bytes;
  const int rc = readRecordBytes(files, path, Record::kLength, n, 1, bytes);
  out = decodeRecord<Record>(bytes.data());
  return rc;
}

// Record 1 of a count file.
int readCount(FileLayer& files, const std::string& path, std::int16_t& out);

}  // namespace contavia

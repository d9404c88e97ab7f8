#pragma once
// Tables: a table file of fixed-length records with its count file beside it. Only records
// 1..count are valid; the records are held in memory in file order (index 0 = record 1).

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "archive/data_directory.h"
#include "archive/record_file.h"

namespace contavia {

struct TableFiles {
  const char* table;
  const char* count;
};

inline constexpr TableFiles kAccountTable{filename::kAccounts, filename::kAccountsCount};
inline constexpr TableFiles kCausaleTable{filename::kCausali, filename::kCausaliCount};
inline constexpr TableFiles kCategoryTable{filename::kCategories, filename::kCategoriesCount};
inline constexpr TableFiles kGroupTable{filename::kGroups, filename::kGroupsCount};

// The records 1..count of a table file that are really there, as raw bytes.
struct CountedRecords {
  std::vector<std::uint8_t> bytes;  // `count` records
  std::size_t count = 0;
  std::string problem;  // a damaged count or table, described for the user; empty when sound
};

// How the damage messages name the two files and the records.
struct CountedNames {
  std::string countFile;
  std::string tableFile;
  const char* records;  // "record", "movimenti"
};

// Reads the count and records 1..count of a table (a missing file is created empty). A count
// below 0 or above the capacity, or a table file shorter than the count, is reported in
// `problem`, and only the records that are really there, up to the capacity, are read.
CountedRecords readCountedRecords(FileLayer& files, const std::string& countPath,
                                  const std::string& tablePath, std::size_t length,
                                  std::size_t capacity, const CountedNames& names);

template <class Record>
struct LoadedTable {
  std::vector<Record> records;
  std::string problem;  // a damaged count or file, described for the user; empty when sound
};

template <class Record>
LoadedTable<Record> loadTable(const DataDirectory& dir, const TableFiles& files,
                              std::size_t capacity = Record::kCapacity) {
  const CountedRecords counted =
      readCountedRecords(dir.files(), dir.path(files.count), dir.path(files.table), Record::kLength,
                         capacity, {files.count, files.table, "record"});
  LoadedTable<Record> result;
  result.problem = counted.problem;
  result.records.reserve(counted.count);
  for (std::size_t i = 0; i < counted.count; ++i) {
    result.records.push_back(decodeRecord<Record>(counted.bytes.data() + i * Record::kLength));
  }
  return result;
}

// Message shown when a table is full.
std::string tableFullText(std::size_t capacity, std::string_view what);

}  // namespace contavia

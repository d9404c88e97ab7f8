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

template <class Record>
struct LoadedTable {
  std::vector<Record> records;
  std::string problem;  // a damaged count or file, described for the user; empty when sound
};

// Reads the count and the records 1..count of a table as raw bytes. A count below 0 or above
// the capacity, or a table file shorter than the count, is reported in `problem` and only the
// records that are really there, up to the capacity, are read.
std::vector<std::uint8_t> loadTableBytes(const DataDirectory& dir, const TableFiles& files,
                                         std::size_t length, std::size_t capacity,
                                         std::size_t& loaded, std::string& problem);

template <class Record>
LoadedTable<Record> loadTable(const DataDirectory& dir, const TableFiles& files,
                              std::size_t capacity = Record::kCapacity) {
  LoadedTable<Record> result;
  std::size_t loaded = 0;
  const std::vector<std::uint8_t> bytes =
      loadTableBytes(dir, files, Record::kLength, capacity, loaded, result.problem);
  result.records.reserve(loaded);
  for (std::size_t i = 0; i < loaded; ++i) {
    result.records.push_back(decodeRecord<Record>(bytes.data() + i * Record::kLength));
  }
  return result;
}

// Message shown when a table is full.
std::string tableFullText(std::size_t capacity, std::string_view what);

// Appends a record: writes it at position count+1, then the new count. On a failed write
// nothing is left changed; returns the disk-error number.
template <class Record>
int appendRecord(const DataDirectory& dir, const TableFiles& files, std::size_t newCount,
                 const Record& record) {
  WriteJournal journal(dir.files());
  int rc = writeRecord(journal, dir.path(files.table), newCount, record);
  if (rc == diskerr::kOk) {
    rc = writeCount(journal, dir.path(files.count), static_cast<std::int16_t>(newCount));
  }
  if (rc != diskerr::kOk) {
    journal.rollback();
  }
  return rc;
}

// Rewrites record n in place.
template <class Record>
int rewriteRecord(const DataDirectory& dir, const char* table, std::size_t n,
                  const Record& record) {
  WriteJournal journal(dir.files());
  const int rc = writeRecord(journal, dir.path(table), n, record);
  if (rc != diskerr::kOk) {
    journal.rollback();
  }
  return rc;
}

}  // namespace contavia

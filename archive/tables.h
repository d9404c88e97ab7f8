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

// Damage found in a table: told to the user once, when the table is read. A table whose damage
// would make a write lose data (an impossible count, records that do not carry their own number,
// a file spelled twice) is read as far as possible and is not written until it is repaired.
struct Damage {
  std::string problem;      // for the user; empty when the files are sound
  std::string damagedFile;  // the file that keeps the table from being written; empty: writable
  bool readOnly() const { return !damagedFile.empty(); }
  // Keeps the first damage found.
  void add(Damage other);
};

// The records 1..count of a table file, as raw bytes.
struct CountedRecords {
  std::vector<std::uint8_t> bytes;  // `count` records; what the file lacks reads as zeros
  std::size_t count = 0;
  Damage damage;
};

// How the damage messages name the two files and the records.
struct CountedNames {
  std::string countFile;
  std::string tableFile;
  const char* records;  // "record", "movimenti"
};

// Reads the count and records 1..count of a table (a missing file is created empty); each record
// begins with its own number. A count below 0 or above the capacity is damage that keeps the
// table from being written (the records in the file are read, up to the capacity), and so is a
// record that carries another number. A table file shorter than a possible count keeps its
// count: the records it lacks read as zeros, and the next record added goes after the count.
CountedRecords readCountedRecords(FileLayer& files, const std::string& countPath,
                                  const std::string& tablePath, std::size_t length,
                                  std::size_t capacity, const CountedNames& names);

// A name spelled in more than one way in the folder ("UNI.MOC" and "uni.moc"): damage that
// keeps both from being written.
Damage spellingDamage(const DataDirectory& dir, std::initializer_list<std::string> names);

template <class Record>
struct LoadedTable {
  std::vector<Record> records;
  Damage damage;
};

template <class Record>
LoadedTable<Record> loadTable(const DataDirectory& dir, const TableFiles& files,
                              std::size_t capacity = Record::kCapacity) {
  CountedRecords counted =
      readCountedRecords(dir.files(), dir.path(files.count), dir.path(files.table), Record::kLength,
                         capacity, {files.count, files.table, "record"});
  LoadedTable<Record> result;
  result.damage = spellingDamage(dir, {files.count, files.table});
  result.damage.add(std::move(counted.damage));
  result.records.reserve(counted.count);
  for (std::size_t i = 0; i < counted.count; ++i) {
    result.records.push_back(decodeRecord<Record>(counted.bytes.data() + i * Record::kLength));
  }
  return result;
}

// Message shown when a table is full.
std::string tableFullText(std::size_t capacity, std::string_view what);

}  // namespace contavia

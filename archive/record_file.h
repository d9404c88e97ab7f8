#pragma once
// Fixed-length record files: record n (from 1) occupies bytes (n-1)*length .. n*length-1.
// Opening a missing file creates it empty; a read past the end gives zeros; files are never
// shortened. Writes go through a journal so that an operation that fails half-way can put
// every file back as it was.

#include <cstdint>
#include <string>
#include <vector>

#include "archive/file_layer.h"
#include "archive/record_codec.h"

namespace contavia {

// The writes of one operation, each remembered with what it replaced, so that the operation can
// be taken back as a whole when a later step fails.
class WriteJournal {
 public:
  explicit WriteJournal(FileLayer& files) : files_(&files) {}
  WriteJournal(const WriteJournal&) = delete;
  WriteJournal& operator=(const WriteJournal&) = delete;

  FileLayer& files() const { return *files_; }
  int write(const std::string& path, std::uint64_t offset, const std::vector<std::uint8_t>& data);
  // Puts every file written back as it was, latest write first.
  void rollback();
  bool empty() const { return entries_.empty(); }
  // The name (without folder) of the file whose write failed last; empty when none did.
  std::string failedFileName() const;

 private:
  struct Entry {
    std::string path;
    std::uint64_t offset = 0;
    std::vector<std::uint8_t> previous;  // the bytes the write covered that existed before
    std::uint64_t previousSize = 0;
    bool existed = false;
  };
  int writeRemembering(const std::string& path, std::uint64_t offset,
                       const std::vector<std::uint8_t>& data);

  FileLayer* files_;
  std::vector<Entry> entries_;
  std::string failedPath_;
};

// Reads `count` records from record `first`; the result holds exactly count*length bytes, zeros
// past the end of the file. `available` receives how many whole records the file had in range.
int readRecordBytes(FileLayer& files, const std::string& path, std::size_t length,
                    std::size_t first, std::size_t count, std::vector<std::uint8_t>& out,
                    std::size_t* available = nullptr);

int writeRecordBytes(WriteJournal& journal, const std::string& path, std::size_t length,
                     std::size_t first, const std::vector<std::uint8_t>& bytes);

template <class Record>
int readRecord(FileLayer& files, const std::string& path, std::size_t n, Record& out) {
  std::vector<std::uint8_t> bytes;
  const int rc = readRecordBytes(files, path, Record::kLength, n, 1, bytes);
  out = decodeRecord<Record>(bytes.data());
  return rc;
}

template <class Record>
int writeRecord(WriteJournal& journal, const std::string& path, std::size_t n,
                const Record& record) {
  return writeRecordBytes(journal, path, Record::kLength, n, encodeRecord(record));
}

// Writes records first..first+size-1 in one go.
template <class Record>
int writeRecords(WriteJournal& journal, const std::string& path, std::size_t first,
                 const std::vector<Record>& records) {
  std::vector<std::uint8_t> bytes(records.size() * Record::kLength);
  for (std::size_t i = 0; i < records.size(); ++i) {
    encodeRecord(records[i], bytes.data() + i * Record::kLength);
  }
  return writeRecordBytes(journal, path, Record::kLength, first, bytes);
}

// Record 1 of a count file.
int readCount(FileLayer& files, const std::string& path, std::int16_t& out);
int writeCount(WriteJournal& journal, const std::string& path, std::int16_t value);

}  // namespace contavia

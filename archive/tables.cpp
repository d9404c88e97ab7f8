#include "archive/tables.h"

#include <algorithm>

namespace contavia {

CountedRecords readCountedRecords(FileLayer& files, const std::string& countPath,
                                  const std::string& tablePath, std::size_t length,
                                  std::size_t capacity, const CountedNames& names) {
  CountedRecords result;
  std::int16_t count = 0;
  readCount(files, countPath, count);
  const bool countDamaged = count < 0 || static_cast<std::size_t>(count) > capacity;
  const std::size_t wanted = count < 0 ? 0 : std::min(static_cast<std::size_t>(count), capacity);
  std::size_t available = 0;
  readRecordBytes(files, tablePath, length, 1, wanted, result.bytes, &available);
  result.count = std::min(wanted, available);
  result.bytes.resize(result.count * length);

  const std::string damaged = "Archivio danneggiato: il file ";
  if (countDamaged) {
    result.problem = damaged + names.countFile + " indica " + std::to_string(count) + " " +
                     names.records + ", ma ne sono ammessi al massimo " + std::to_string(capacity) +
                     ". Vengono letti " +
                     (result.count == 0 ? "0 " + std::string(names.records)
                                        : "i primi " + std::to_string(result.count)) +
                     ".";
  } else if (available < wanted) {
    result.problem = damaged + names.tableFile + " contiene " + std::to_string(available) + " " +
                     names.records + " dei " + std::to_string(wanted) + " indicati nel file " +
                     names.countFile + ". Vengono letti solo quelli presenti.";
  }
  return result;
}

std::string tableFullText(std::size_t capacity, std::string_view what) {
  return "Archivio pieno: non si possono registrare più di " + std::to_string(capacity) + " " +
         std::string(what) + ".";
}

}  // namespace contavia

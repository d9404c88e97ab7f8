#include "archive/tables.h"

namespace contavia {

std::vector<std::uint8_t> loadTableBytes(const DataDirectory& dir, const TableFiles& files,
                                         std::size_t length, std::size_t capacity,
                                         std::size_t& loaded, std::string& problem) {
  loaded = 0;
  problem.clear();
  FileLayer& layer = dir.files();
  std::int16_t count = 0;
  readCount(layer, dir.path(files.count), count);
  std::size_t wanted = count < 0 ? 0 : static_cast<std::size_t>(count);
  if (count < 0 || wanted > capacity) {
    wanted = count < 0 ? 0 : capacity;
    problem = std::string("Archivio danneggiato: il file ") + files.count + " indica " +
              std::to_string(count) + " record, ma ne sono ammessi al massimo " +
              std::to_string(capacity) + ". Vengono letti " +
              (wanted == 0 ? std::string("0 record.") : "i primi " + std::to_string(wanted) + ".");
  }
  std::vector<std::uint8_t> bytes;
  std::size_t available = 0;
  const std::string tablePath = dir.path(files.table);
  if (wanted == 0) {
    // Opening creates a missing table file, as every open of a record file does.
    readRecordBytes(layer, tablePath, length, 1, 0, bytes);
    return bytes;
  }
  readRecordBytes(layer, tablePath, length, 1, wanted, bytes, &available);
  if (available < wanted) {
    if (problem.empty()) {
      problem = std::string("Archivio danneggiato: il file ") + files.table + " contiene " +
                std::to_string(available) + " record dei " + std::to_string(wanted) +
                " indicati nel file " + files.count + ". Vengono letti solo quelli presenti.";
    }
    wanted = available;
  }
  loaded = wanted;
  bytes.resize(wanted * length);
  return bytes;
}

std::string tableFullText(std::size_t capacity, std::string_view what) {
  return "Archivio pieno: non si possono registrare più di " + std::to_string(capacity) + " " +
         std::string(what) + ".";
}

}  // namespace contavia

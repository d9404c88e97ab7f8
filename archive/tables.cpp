#include "archive/tables.h"

#include <algorithm>

#include "common/text.h"

namespace contavia {

void Damage::add(Damage other) {
  if (problem.empty()) {
    problem = std::move(other.problem);
  }
  if (damagedFile.empty()) {
    damagedFile = std::move(other.damagedFile);
  }
}

CountedRecords readCountedRecords(FileLayer& files, const std::string& countPath,
                                  const std::string& tablePath, std::size_t length,
                                  std::size_t capacity, const CountedNames& names) {
  CountedRecords result;
  std::int16_t count = 0;
  readCount(files, countPath, count);
  result.count = count < 0 ? 0 : std::min(static_cast<std::size_t>(count), capacity);
  std::size_t available = 0;
  readRecordBytes(files, tablePath, length, 1, result.count, result.bytes, &available);

  const std::string damaged = "Archivio danneggiato: il file ";
  Damage& damage = result.damage;
  if (count < 0 || static_cast<std::size_t>(count) > capacity) {
    // An impossible count says nothing of how many records there are: only those in the file.
    result.count = std::min(result.count, available);
    result.bytes.resize(result.count * length);
    damage = {damaged + names.countFile + " indica " + std::to_string(count) + " " + names.records +
                  ", ma ne sono ammessi al massimo " + std::to_string(capacity) +
                  ". Vengono letti " +
                  (result.count == 0 ? "0 " + std::string(names.records)
                                     : "i primi " + std::to_string(result.count)) +
                  "; non si possono registrare modifiche finché non viene riparato.",
              names.countFile};
  }
  for (std::size_t i = 0; i < std::min(result.count, available) && !damage.readOnly(); ++i) {
    const std::uint8_t* r = result.bytes.data() + i * length;
    const auto number = static_cast<std::int16_t>(r[0] | (r[1] << 8));
    if (number != static_cast<std::int64_t>(i + 1)) {
      damage = {"Archivio danneggiato: nel file " + names.tableFile + " il record " +
                    std::to_string(i + 1) + " porta il numero " + std::to_string(number) +
                    "; non si possono registrare modifiche finché non viene riparato.",
                names.tableFile};
    }
  }
  if (available < result.count && damage.problem.empty()) {
    damage.problem = damaged + names.tableFile + " contiene " + std::to_string(available) + " " +
                     names.records + " dei " + std::to_string(result.count) +
                     " indicati nel file " + names.countFile +
                     ": quelli che mancano si leggono vuoti.";
  }
  return result;
}

namespace {

// The names of the folder that are `name` in another letter case, sorted.
std::vector<std::string> spellingsOf(const std::vector<std::string>& present,
                                     const std::string& name) {
  std::vector<std::string> spellings;
  for (const std::string& p : present) {
    if (equalsIgnoringCase(p, name)) {
      spellings.push_back(p);
    }
  }
  std::sort(spellings.begin(), spellings.end());
  return spellings;
}

Damage spelledTwice(const std::string& name, const std::vector<std::string>& spellings) {
  std::string listed;
  for (const std::string& s : spellings) {
    listed += listed.empty() ? "" : ", ";
    listed += s;
  }
  return {"Archivio danneggiato: il file " + name + " c'è con più grafie (" + listed +
              "); non si possono registrare modifiche finché ne resta più di uno.",
          name};
}

}  // namespace

Damage spellingDamage(const DataDirectory& dir, std::initializer_list<std::string> names) {
  const std::vector<std::string> present = dir.fileNames();
  for (const std::string& name : names) {
    if (const std::vector<std::string> spellings = spellingsOf(present, name);
        spellings.size() > 1) {
      return spelledTwice(name, spellings);
    }
  }
  return {};
}

std::string tableFullText(std::size_t capacity, std::string_view what) {
  return "Archivio pieno: non si possono registrare più di " + std::to_string(capacity) + " " +
         std::string(what) + ".";
}

}  // namespace contavia

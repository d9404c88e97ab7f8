#include "tests/support/archive_bytes.h"

#include <filesystem>

namespace contavia::test {

Bytes accountRecord(const AccountSpec& a) {
  return cat({le16(a.number), zeros(2), text(a.code, 10), zeros(5), text(a.category, 25),
              text(a.name, 45), text(a.address, 45), text(a.postCode, 5), text(a.town, 25),
              text(a.province, 2), text(a.creditLine, 15), zeros(1), text(a.group, 25)});
}

Bytes causaleRecord(int number, std::string_view code, std::string_view description,
                    std::string_view sign, std::string_view flag) {
  return cat({le16(number), text(code, 5), text(description, 25), text(sign, 1), text(flag, 1),
              zeros(12)});
}

Bytes categoryRecord(int number, std::string_view code, std::string_view name,
                     std::string_view group, std::string_view flag) {
  return cat({le16(number), text(code, 5), text(name, 25), text(flag, 1), text(group, 25)});
}

Bytes groupRecord(int number, std::string_view code, std::string_view name, std::string_view mark,
                  std::string_view flag) {
  return cat({le16(number), text(code, 5), text(name, 25), text(mark, 1), text(flag, 1)});
}

Bytes movementRecord(const MovementSpec& m) {
  return cat({le16(m.number), text(m.date, 10), text(m.causale, 5), f64(m.amount),
              text(m.document, 8), text(m.description, 30), text(m.sign, 1), text(m.closed, 1),
              text(m.linkedAccount, 15), text("", 2), text(m.linkedNumber, 5)});
}

Bytes totalsRecord(double today, double total, std::string_view from, std::string_view to) {
  return cat({f64(today), f64(total), text(from, 10), text(to, 10)});
}

Bytes carryForwardRecord(std::string_view date, std::int32_t amount) {
  return cat({text(date, 10), le32(amount)});
}

Bytes closingUndoRecord(std::string_view date, std::int32_t amount, std::string_view code) {
  return cat({text(date, 10), le32(amount), text(code, 15)});
}

void writeTable(const TempFolder& folder, std::string_view table, std::string_view countFile,
                const std::vector<Bytes>& records, int count) {
  Bytes all;
  for (const Bytes& r : records) {
    all.insert(all.end(), r.begin(), r.end());
  }
  folder.write(table, all);
  folder.write(countFile, le16(count));
}

void writeMovements(const TempFolder& folder, std::string_view code,
                    std::vector<MovementSpec> movements) {
  std::vector<Bytes> records;
  for (std::size_t i = 0; i < movements.size(); ++i) {
    movements[i].number = static_cast<int>(i + 1);
    records.push_back(movementRecord(movements[i]));
  }
  writeTable(folder, std::string(code) + ".MOC", std::string(code) + ".MOR", records);
}

std::map<std::string, Bytes> snapshot(const TempFolder& folder) {
  std::map<std::string, Bytes> files;
  for (const std::string& name : folder.names()) {
    if (!std::filesystem::is_directory(folder.file(name))) {  // the safety copies, the reports
      files[name] = folder.read(name);
    }
  }
  return files;
}

}  // namespace contavia::test

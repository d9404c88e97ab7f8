#pragma once
// The records of the archive written out field by field, offset by offset, so that tests can
// compare the files against bytes made without the code under test. Texts are given as
// Windows-1252 bytes ("Societ\xE0"), cut or padded with blanks to their field; fields the program
// never assigns are zero bytes.

#include <map>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace contavia::test {

struct AccountSpec {
  int number = 1;
  std::string code{};
  std::string category{};
  std::string name{};
  std::string address{};
  std::string postCode{};
  std::string town{};
  std::string province{};
  std::string creditLine{};
  std::string group{};
};
Bytes accountRecord(const AccountSpec& a);  // 207 bytes

Bytes causaleRecord(int number, std::string_view code, std::string_view description,
                    std::string_view sign, std::string_view flag = "N");  // 46 bytes
Bytes categoryRecord(int number, std::string_view code, std::string_view name,
                     std::string_view group, std::string_view flag = "N");  // 58 bytes
Bytes groupRecord(int number, std::string_view code, std::string_view name,
                  std::string_view mark = " ", std::string_view flag = " ");  // 34 bytes

struct MovementSpec {
  int number = 1;
  std::string date{};
  std::string causale{};
  double amount = 0.0;
  std::string sign = "D";
  std::string document{};
  std::string description{};
  std::string closed = "N";
  std::string linkedAccount{};
  std::string linkedNumber{};
};
Bytes movementRecord(const MovementSpec& m);  // 87 bytes

Bytes totalsRecord(double today, double total, std::string_view from,
                   std::string_view to);                               // 36 bytes
Bytes carryForwardRecord(std::string_view date, std::int32_t amount);  // 14 bytes
Bytes closingUndoRecord(std::string_view date, std::int32_t amount,
                        std::string_view code);  // 29 bytes

// A table file holding `records` one after the other, and its count file with `count`.
void writeTable(const TempFolder& folder, std::string_view table, std::string_view countFile,
                const std::vector<Bytes>& records, int count);
inline void writeTable(const TempFolder& folder, std::string_view table, std::string_view countFile,
                       const std::vector<Bytes>& records) {
  writeTable(folder, table, countFile, records, static_cast<int>(records.size()));
}

// An account's movements file (code + ".MOC", numbered 1..n in file order) and its count file
// (code + ".MOR").
void writeMovements(const TempFolder& folder, std::string_view code,
                    std::vector<MovementSpec> movements);

// Every file of the folder (not its subfolders) with its bytes, to check that an operation
// changed nothing.
std::map<std::string, Bytes> snapshot(const TempFolder& folder);

}  // namespace contavia::test

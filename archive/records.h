#pragma once
// The records of the archive, byte for byte. Text fields hold UTF-8 text of their full width
// (trailing blanks kept) and are Windows-1252 on disk; fields the program never assigns are kept
// as raw bytes, zero in a record the program creates. A record read from a file also keeps the
// bytes it was read from: written back, a text field that still reads as those bytes keeps them,
// so what no operation assigns (zero bytes in a text field, spare fields) stays as it was.

#include <array>
#include <cstdint>
#include <string>

namespace contavia {

template <std::size_t N>
using RecordBytes = std::array<std::uint8_t, N>;

// "CONTI.CON", 207 bytes.
struct Account {
  static constexpr std::size_t kLength = 207;
  static constexpr std::size_t kCapacity = 1000;
  std::int16_t recordNumber = 0;
  std::array<std::uint8_t, 2> spare0{};
  std::string accountCode{};  // 10
  std::array<std::uint8_t, 5> spare1{};
  std::string categoryName{};  // 25
  std::string accountName{};   // 45
  std::string bankAddress{};   // 45
  std::string bankPostCode{};  // 5
  std::string bankTown{};      // 25
  std::string bankProvince{};  // 2
  std::string creditLine{};    // 15
  std::array<std::uint8_t, 1> spare2{};
  std::string groupName{};  // 25

  RecordBytes<kLength> stored{};  // the bytes the record was read from
  bool fromFile = false;          // false for a record the program creates

  template <class Self, class Codec>
  static void fields(Self& r, const Codec& c) {
    c.i16(0, r.recordNumber);
    c.raw(2, r.spare0);
    c.text(4, 10, r.accountCode);
    c.raw(14, r.spare1);
    c.text(19, 25, r.categoryName);
    c.text(44, 45, r.accountName);
    c.text(89, 45, r.bankAddress);
    c.text(134, 5, r.bankPostCode);
    c.text(139, 25, r.bankTown);
    c.text(164, 2, r.bankProvince);
    c.text(166, 15, r.creditLine);
    c.raw(181, r.spare2);
    c.text(182, 25, r.groupName);
  }
};

// "Causali.CAP", 46 bytes.
struct Causale {
  static constexpr std::size_t kLength = 46;
  static constexpr std::size_t kCapacity = 100;
  std::int16_t recordNumber = 0;
  std::string causaleCode{};         // 5
  std::string causaleDescription{};  // 25
  std::string sign{};                // 1: "D" or "A"
  std::string causaleFlag{};         // 1
  std::array<std::uint8_t, 1> spare1{};
  std::array<std::uint8_t, 1> spare2{};
  std::array<std::uint8_t, 10> spare3{};

  RecordBytes<kLength> stored{};  // the bytes the record was read from
  bool fromFile = false;          // false for a record the program creates

  template <class Self, class Codec>
  static void fields(Self& r, const Codec& c) {
    c.i16(0, r.recordNumber);
    c.text(2, 5, r.causaleCode);
    c.text(7, 25, r.causaleDescription);
    c.text(32, 1, r.sign);
    c.text(33, 1, r.causaleFlag);
    c.raw(34, r.spare1);
    c.raw(35, r.spare2);
    c.raw(36, r.spare3);
  }
};

// "Tipo.con", 58 bytes.
struct Category {
  static constexpr std::size_t kLength = 58;
  static constexpr std::size_t kCapacity = 200;
  std::int16_t recordNumber = 0;
  std::string categoryCode{};  // 5
  std::string categoryName{};  // 25
  std::string categoryFlag{};  // 1
  std::string groupName{};     // 25

  RecordBytes<kLength> stored{};  // the bytes the record was read from
  bool fromFile = false;          // false for a record the program creates

  template <class Self, class Codec>
  static void fields(Self& r, const Codec& c) {
    c.i16(0, r.recordNumber);
    c.text(2, 5, r.categoryCode);
    c.text(7, 25, r.categoryName);
    c.text(32, 1, r.categoryFlag);
    c.text(33, 25, r.groupName);
  }
};

// "Gruppi.con", 34 bytes.
struct Group {
  static constexpr std::size_t kLength = 34;
  static constexpr std::size_t kCapacity = 100;
  std::int16_t recordNumber = 0;
  std::string groupCode{};  // 5
  std::string groupName{};  // 25
  std::string groupMark{};  // 1
  std::string groupFlag{};  // 1

  RecordBytes<kLength> stored{};  // the bytes the record was read from
  bool fromFile = false;          // false for a record the program creates

  template <class Self, class Codec>
  static void fields(Self& r, const Codec& c) {
    c.i16(0, r.recordNumber);
    c.text(2, 5, r.groupCode);
    c.text(7, 25, r.groupName);
    c.text(32, 1, r.groupMark);
    c.text(33, 1, r.groupFlag);
  }
};

// code + ".MOC", 87 bytes.
struct Movement {
  static constexpr std::size_t kLength = 87;
  static constexpr std::size_t kCapacity = 10000;
  std::int16_t movementNumber = 0;
  std::string operationDate{};         // 10, "dd/mm/yyyy"
  std::string causaleCode{};           // 5
  double amount = 0.0;                 // sign given by `sign`
  std::string documentNumber{};        // 8
  std::string description{};           // 30
  std::string sign{};                  // 1: "D" or "A"
  std::string closedFlag{};            // 1: "N", or "S" once closed
  std::string linkedAccountCode{};     // 15
  std::string linkedSpare1{};          // 1
  std::string linkedSpare2{};          // 1
  std::string linkedMovementNumber{};  // 5

  bool operator==(const Movement&) const = default;

  RecordBytes<kLength> stored{};  // the bytes the record was read from
  bool fromFile = false;          // false for a record the program creates

  template <class Self, class Codec>
  static void fields(Self& r, const Codec& c) {
    c.i16(0, r.movementNumber);
    c.text(2, 10, r.operationDate);
    c.text(12, 5, r.causaleCode);
    c.f64(17, r.amount);
    c.text(25, 8, r.documentNumber);
    c.text(33, 30, r.description);
    c.text(63, 1, r.sign);
    c.text(64, 1, r.closedFlag);
    c.text(65, 15, r.linkedAccountCode);
    c.text(80, 1, r.linkedSpare1);
    c.text(81, 1, r.linkedSpare2);
    c.text(82, 5, r.linkedMovementNumber);
  }
};

// code + ".TOC", 36 bytes, record 1.
struct Totals {
  static constexpr std::size_t kLength = 36;
  double balanceToday = 0.0;
  double balanceTotal = 0.0;
  std::string selectionFrom{};  // 10
  std::string selectionTo{};    // 10

  RecordBytes<kLength> stored{};  // the bytes the record was read from
  bool fromFile = false;          // false for a record the program creates

  template <class Self, class Codec>
  static void fields(Self& r, const Codec& c) {
    c.f64(0, r.balanceToday);
    c.f64(8, r.balanceTotal);
    c.text(16, 10, r.selectionFrom);
    c.text(26, 10, r.selectionTo);
  }
};

// code + ".RIP", 14 bytes, record 1.
struct CarryForward {
  static constexpr std::size_t kLength = 14;
  std::string carryDate{};  // 10; blank before the first closing
  std::int32_t carryAmount = 0;

  RecordBytes<kLength> stored{};  // the bytes the record was read from
  bool fromFile = false;          // false for a record the program creates

  template <class Self, class Codec>
  static void fields(Self& r, const Codec& c) {
    c.text(0, 10, r.carryDate);
    c.i32(10, r.carryAmount);
  }
};

// code + ".chi", 29 bytes, record 1.
struct ClosingUndo {
  static constexpr std::size_t kLength = 29;
  std::string previousCarryDate{};  // 10
  std::int32_t previousCarryAmount = 0;
  std::string closedAccountCode{};  // 15

  RecordBytes<kLength> stored{};  // the bytes the record was read from
  bool fromFile = false;          // false for a record the program creates

  template <class Self, class Codec>
  static void fields(Self& r, const Codec& c) {
    c.text(0, 10, r.previousCarryDate);
    c.i32(10, r.previousCarryAmount);
    c.text(14, 15, r.closedAccountCode);
  }
};

// The 16-bit record of a count file and of "records.rer".
struct CountRecord {
  static constexpr std::size_t kLength = 2;
  std::int16_t value = 0;

  RecordBytes<kLength> stored{};  // the bytes the record was read from
  bool fromFile = false;          // false for a record the program creates

  template <class Self, class Codec>
  static void fields(Self& r, const Codec& c) {
    c.i16(0, r.value);
  }
};

}  // namespace contavia

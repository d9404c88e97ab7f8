#pragma once
// The movements of an account held as the bytes of their ".MOC" records, in one buffer: the
// number, the date, the amount and the sign are read in place, and text is decoded only where it
// is needed. A whole `Movement` is decoded on request, for the operations that change one.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "archive/records.h"

namespace contavia {

// One record of the buffer.
class MovementView {
 public:
  explicit MovementView(const std::uint8_t* record) : r_(record) {}

  std::int16_t number() const;
  double amount() const;
  // A text field as its `Movement` member reads (Windows-1252 decoded, NUL bytes as blanks):
  // straight from the buffer when it is plain ASCII, else decoded into `scratch`.
  std::string_view text(std::size_t offset, std::size_t width, std::string& scratch) const;
  std::string_view date(std::string& scratch) const { return text(2, 10, scratch); }
  std::string_view causaleCode(std::string& scratch) const { return text(12, 5, scratch); }
  std::string_view documentNumber(std::string& scratch) const { return text(25, 8, scratch); }
  std::string_view description(std::string& scratch) const { return text(33, 30, scratch); }
  std::string_view sign(std::string& scratch) const { return text(63, 1, scratch); }
  // The sign field reads "A".
  bool isCredit() const;
  std::int32_t dateKey() const;
  Movement decoded() const;

 private:
  const std::uint8_t* r_;
};

class MovementRecords {
 public:
  MovementRecords() = default;
  // `bytes` holds at least `count` whole records; only those are kept.
  MovementRecords(std::vector<std::uint8_t> bytes, std::size_t count);
  // The records that `movements` are written as.
  static MovementRecords of(const std::vector<Movement>& movements);

  std::size_t size() const { return count_; }
  bool empty() const { return count_ == 0; }
  MovementView operator[](std::size_t index) const {  // 0-based
    return MovementView(bytes_.data() + index * Movement::kLength);
  }
  const std::uint8_t* recordBytes(std::size_t index) const {
    return bytes_.data() + index * Movement::kLength;
  }
  std::vector<Movement> decodedAll() const;
  // An amount that is not a finite number reads as zero: writes 0 over each such amount and
  // gives their 0-based indexes.
  std::vector<std::size_t> zeroInvalidAmounts();

  void append(const Movement& m);
  void set(std::size_t index, const Movement& m);
  // Keeps the first `count` records.
  void truncate(std::size_t count);
  // Whether record `index` holds exactly the bytes `m` would be written as.
  bool holds(std::size_t index, const Movement& m) const;

  class Iterator {
   public:
    Iterator(const MovementRecords* records, std::size_t index) : records_(records), i_(index) {}
    MovementView operator*() const { return (*records_)[i_]; }
    Iterator& operator++() {
      ++i_;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return i_ != other.i_; }

   private:
    const MovementRecords* records_;
    std::size_t i_;
  };
  Iterator begin() const { return {this, 0}; }
  Iterator end() const { return {this, count_}; }

 private:
  std::vector<std::uint8_t> bytes_;
  std::size_t count_ = 0;
};

}  // namespace contavia

#pragma once
// Byte-exact reading and writing of fixed-length records. Each record type lists its fields
// once, with offsets and widths, in a `fields` function that both directions share. A record is
// written over the bytes it was read from, so what no operation assigns is kept byte for byte.

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "common/text.h"

namespace contavia {

// Fills a record's fields from its bytes.
class RecordDecoder {
 public:
  explicit RecordDecoder(const std::uint8_t* bytes) : bytes_(bytes) {}
  void i16(std::size_t offset, std::int16_t& field) const {
    field = static_cast<std::int16_t>(bytes_[offset] | (bytes_[offset + 1] << 8));
  }
  void i32(std::size_t offset, std::int32_t& field) const {
    std::uint32_t v = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      v |= static_cast<std::uint32_t>(bytes_[offset + i]) << (8 * i);
    }
    field = static_cast<std::int32_t>(v);
  }
  void f64(std::size_t offset, double& field) const {
    std::uint64_t v = 0;
    for (std::size_t i = 0; i < 8; ++i) {
      v |= static_cast<std::uint64_t>(bytes_[offset + i]) << (8 * i);
    }
    std::memcpy(&field, &v, sizeof v);
  }
  void text(std::size_t offset, std::size_t width, std::string& field) const {
    field = decodeWindows1252(bytes_ + offset, width);
  }
  template <std::size_t N>
  void raw(std::size_t offset, std::array<std::uint8_t, N>& field) const {
    std::memcpy(field.data(), bytes_ + offset, N);
  }

 private:
  const std::uint8_t* bytes_;
};

// Writes a record's fields into its bytes.
class RecordEncoder {
 public:
  // With `keepUnchanged` a text that still reads as the bytes hold it is left as it is.
  RecordEncoder(std::uint8_t* bytes, bool keepUnchanged)
      : bytes_(bytes), keepUnchanged_(keepUnchanged) {}
  void i16(std::size_t offset, std::int16_t field) const {
    const auto v = static_cast<std::uint16_t>(field);
    bytes_[offset] = static_cast<std::uint8_t>(v & 0xFF);
    bytes_[offset + 1] = static_cast<std::uint8_t>(v >> 8);
  }
  void i32(std::size_t offset, std::int32_t field) const {
    const auto v = static_cast<std::uint32_t>(field);
    for (std::size_t i = 0; i < 4; ++i) {
      bytes_[offset + i] = static_cast<std::uint8_t>((v >> (8 * i)) & 0xFF);
    }
  }
  void f64(std::size_t offset, double field) const {
    std::uint64_t v = 0;
    std::memcpy(&v, &field, sizeof v);
    for (std::size_t i = 0; i < 8; ++i) {
      bytes_[offset + i] = static_cast<std::uint8_t>((v >> (8 * i)) & 0xFF);
    }
  }
  void text(std::size_t offset, std::size_t width, const std::string& field) const {
    if (!keepUnchanged_ || decodeWindows1252(bytes_ + offset, width) != field) {
      encodeWindows1252(field, bytes_ + offset, width);
    }
  }
  template <std::size_t N>
  void raw(std::size_t offset, const std::array<std::uint8_t, N>& field) const {
    std::memcpy(bytes_ + offset, field.data(), N);
  }

 private:
  std::uint8_t* bytes_;
  bool keepUnchanged_;
};

template <class Record>
Record decodeRecord(const std::uint8_t* bytes) {
  Record record;
  std::memcpy(record.stored.data(), bytes, Record::kLength);
  record.fromFile = true;
  Record::fields(record, RecordDecoder(bytes));
  return record;
}

// The record's bytes: for a record read from a file, the bytes it was read from with the fields
// whose value changed encoded again; for a new record, every field encoded over zero bytes.
template <class Record>
void encodeRecord(const Record& record, std::uint8_t* bytes) {
  std::memcpy(bytes, record.stored.data(), Record::kLength);
  Record::fields(record, RecordEncoder(bytes, record.fromFile));
}

template <class Record>
std::vector<std::uint8_t> encodeRecord(const Record& record) {
  std::vector<std::uint8_t> bytes(Record::kLength, 0);
  encodeRecord(record, bytes.data());
  return bytes;
}

}  // namespace contavia

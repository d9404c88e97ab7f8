#include "archive/movement_records.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "archive/record_codec.h"
#include "common/dates.h"
#include "common/text.h"

namespace contavia {

std::int16_t MovementView::number() const {
  return static_cast<std::int16_t>(r_[0] | (r_[1] << 8));
}

double MovementView::amount() const {
  double value = 0.0;
  RecordDecoder(r_).f64(17, value);
  return value;
}

std::string_view MovementView::text(std::size_t offset, std::size_t width,
                                    std::string& scratch) const {
  const std::uint8_t* field = r_ + offset;
  const bool plain =
      std::all_of(field, field + width, [](std::uint8_t b) { return b != 0 && b < 0x80; });
  if (plain) {
    return {reinterpret_cast<const char*>(field), width};
  }
  scratch = decodeWindows1252(field, width);
  return scratch;
}

bool MovementView::isCredit() const { return r_[63] == 'A'; }

std::int32_t MovementView::dateKey() const {
  std::string scratch;
  return contavia::dateKey(date(scratch));
}

Movement MovementView::decoded() const { return decodeRecord<Movement>(r_); }

MovementRecords::MovementRecords(std::vector<std::uint8_t> bytes, std::size_t count)
    : bytes_(std::move(bytes)), count_(count) {
  bytes_.resize(count_ * Movement::kLength);
}

MovementRecords MovementRecords::of(const std::vector<Movement>& movements) {
  MovementRecords records;
  for (const Movement& m : movements) {
    records.append(m);
  }
  return records;
}

std::vector<Movement> MovementRecords::decodedAll() const {
  std::vector<Movement> out;
  out.reserve(count_);
  for (std::size_t i = 0; i < count_; ++i) {
    out.push_back((*this)[i].decoded());
  }
  return out;
}

std::vector<std::size_t> MovementRecords::zeroInvalidAmounts() {
  std::vector<std::size_t> invalid;
  for (std::size_t i = 0; i < count_; ++i) {
    if (!std::isfinite((*this)[i].amount())) {
      RecordEncoder(bytes_.data() + i * Movement::kLength, false).f64(17, 0.0);
      invalid.push_back(i);
    }
  }
  return invalid;
}

void MovementRecords::append(const Movement& m) {
  bytes_.resize((count_ + 1) * Movement::kLength);
  encodeRecord(m, bytes_.data() + count_ * Movement::kLength);
  ++count_;
}

void MovementRecords::set(std::size_t index, const Movement& m) {
  encodeRecord(m, bytes_.data() + index * Movement::kLength);
}

void MovementRecords::truncate(std::size_t count) {
  count_ = std::min(count, count_);
  bytes_.resize(count_ * Movement::kLength);
}

bool MovementRecords::holds(std::size_t index, const Movement& m) const {
  std::uint8_t encoded[Movement::kLength];
  encodeRecord(m, encoded);
  return std::memcmp(encoded, recordBytes(index), Movement::kLength) == 0;
}

}  // namespace contavia

// The movements held as their records: what is read in place must read as the decoded record
// does, whatever the bytes, and nothing past the count is held.

#include "archive/movement_records.h"

#include <gtest/gtest.h>

#include <limits>

#include "archive/record_codec.h"
#include "common/dates.h"
#include "tests/support/archive_bytes.h"

namespace contavia {
namespace {

using test::Bytes;

TEST(MovementRecords, InPlaceReadsAsTheDecodedRecord) {
  Bytes accented = test::movementRecord({.number = 2,
                                         .date = "05/11/2026",
                                         .causale = "PR\xC9L",  // "PRÉL"
                                         .amount = 12.5,
                                         .sign = "A",
                                         .document = "N\xB0 12",
                                         .description = "Societ\xE0 \x80 cassa"});
  Bytes odd = test::movementRecord({.number = -3, .date = "1/2/26", .amount = -0.25});
  odd[2 + 8] = 0;       // NUL bytes in the date: blanks, as a field never assigned
  odd[12] = 0x81;       // a byte Windows-1252 leaves undefined, in the causale code
  odd[33 + 29] = 0x9D;  // and another at the end of the description
  Bytes bytes = accented;
  bytes.insert(bytes.end(), odd.begin(), odd.end());
  bytes.insert(bytes.end(), accented.begin(), accented.end());  // past the count
  const MovementRecords records(bytes, 2);
  ASSERT_EQ(records.size(), 2U);
  for (std::size_t i = 0; i < records.size(); ++i) {
    SCOPED_TRACE(i);
    const MovementView view = records[i];
    const Movement m = decodeRecord<Movement>(bytes.data() + i * Movement::kLength);
    std::string scratch;
    EXPECT_EQ(view.number(), m.movementNumber);
    EXPECT_EQ(view.amount(), m.amount);
    EXPECT_EQ(view.date(scratch), m.operationDate);
    EXPECT_EQ(view.causaleCode(scratch), m.causaleCode);
    EXPECT_EQ(view.documentNumber(scratch), m.documentNumber);
    EXPECT_EQ(view.description(scratch), m.description);
    EXPECT_EQ(view.sign(scratch), m.sign);
    EXPECT_EQ(view.isCredit(), m.sign == "A");
    EXPECT_EQ(view.dateKey(), dateKey(m.operationDate));
    EXPECT_EQ(view.decoded(), m);
    EXPECT_TRUE(records.holds(i, m));
  }
  EXPECT_EQ(records.decodedAll().size(), 2U);
}

TEST(MovementRecords, ChangesAreHeldAsTheyAreWrittenAndBadAmountsReadAsZero) {
  Bytes bytes = test::movementRecord({.number = 1, .date = "01/01/2026", .amount = 5});
  const Bytes second = test::movementRecord(
      {.number = 2, .date = "02/01/2026", .amount = std::numeric_limits<double>::quiet_NaN()});
  bytes.insert(bytes.end(), second.begin(), second.end());
  MovementRecords records(bytes, 2);
  EXPECT_EQ(records.zeroInvalidAmounts(), std::vector<std::size_t>{1});
  EXPECT_EQ(records[1].amount(), 0.0);

  Movement changed = records[0].decoded();
  changed.description = "Cambiato";
  EXPECT_FALSE(records.holds(0, changed));
  records.set(0, changed);
  EXPECT_TRUE(records.holds(0, changed));
  records.truncate(1);
  records.append(changed);
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[1].decoded().description, "Cambiato                      ");
  EXPECT_EQ(std::vector<std::uint8_t>(records.recordBytes(1), records.recordBytes(1) + 87),
            encodeRecord(changed));
}

}  // namespace
}  // namespace contavia

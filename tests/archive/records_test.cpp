// Every record type against bytes written out by hand: each field at its offset and width, texts
// in Windows-1252, and the bytes written back unchanged.

#include "archive/records.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "archive/record_codec.h"
#include "common/text.h"
#include "tests/support/archive_bytes.h"

namespace contavia {
namespace {

using test::Bytes;

using Texts = std::vector<std::string>;

template <class Record>
Record decoded(const Bytes& bytes) {
  EXPECT_EQ(bytes.size(), Record::kLength);
  return decodeRecord<Record>(bytes.data());
}

// Every field of a record as text, in the order of its layout: numbers in decimal (doubles to 15
// digits; the exact bytes are checked by writing the record back), texts without their trailing
// blanks, never-assigned bytes in hex.
class FieldTexts {
 public:
  explicit FieldTexts(Texts& out) : out_(&out) {}
  void i16(std::size_t, std::int16_t v) const { out_->push_back(std::to_string(v)); }
  void i32(std::size_t, std::int32_t v) const { out_->push_back(std::to_string(v)); }
  void f64(std::size_t, double v) const {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.15g", v);
    out_->push_back(buf);
  }
  void text(std::size_t, std::size_t width, const std::string& v) const {
    EXPECT_EQ(charCount(v), width) << v;
    out_->push_back(trimRight(v));
  }
  template <std::size_t N>
  void raw(std::size_t, const std::array<std::uint8_t, N>& v) const {
    std::string hex;
    for (std::uint8_t b : v) {
      char buf[3];
      std::snprintf(buf, sizeof buf, "%02X", b);
      hex += buf;
    }
    out_->push_back(hex);
  }

 private:
  Texts* out_;
};

// The fields read from hand-made bytes; the bytes written back must be the same.
template <class Record>
Texts fieldsOf(const Bytes& bytes) {
  const Record record = decoded<Record>(bytes);
  EXPECT_EQ(encodeRecord(record), bytes);
  Texts out;
  Record::fields(record, FieldTexts(out));
  return out;
}

TEST(Records, MasterRecords) {
  Bytes account = test::accountRecord({.number = 7,
                                       .code = " BPM01",
                                       .category = "Banche",
                                       .name = "Societ\xE0 Per\xF9",
                                       .address = "Via Roma 1",
                                       .postCode = "20100",
                                       .town = "Milano",
                                       .province = "MI",
                                       .creditLine = "2500",
                                       .group = "Liquidit\xE0"});
  account[2] = 0xAB;  // spare bytes of an older record survive a rewrite
  account[181] = 0xCD;
  EXPECT_EQ(fieldsOf<Account>(account),
            (Texts{"7", "AB00", " BPM01", "0000000000", "Banche", "Società Perù", "Via Roma 1",
                   "20100", "Milano", "MI", "2500", "CD", "Liquidità"}));
  EXPECT_EQ(
      fieldsOf<Causale>(test::causaleRecord(3, "VERS", "Versamento in c\xE0ssa", "A")),
      (Texts{"3", "VERS", "Versamento in càssa", "A", "N", "00", "00", "00000000000000000000"}));
  EXPECT_EQ(fieldsOf<Category>(test::categoryRecord(12, "CC", "Conti correnti", "Societ\xE0")),
            (Texts{"12", "CC", "Conti correnti", "N", "Società"}));
  EXPECT_EQ(fieldsOf<Group>(test::groupRecord(-100, "G1", "Patrimonio", " ", "N")),
            (Texts{"-100", "G1", "Patrimonio", "", "N"}));
}

TEST(Records, AccountFileRecords) {
  EXPECT_EQ(fieldsOf<Movement>(test::movementRecord({.number = 513,
                                                     .date = "21/11/2026",
                                                     .causale = "PREL",
                                                     .amount = -1234.56,
                                                     .sign = "A",
                                                     .document = "DOC/42",
                                                     .description = "Bonifico Per\xF9",
                                                     .closed = "S",
                                                     .linkedAccount = "CASSA",
                                                     .linkedNumber = "17"})),
            (Texts{"513", "21/11/2026", "PREL", "-1234.56", "DOC/42", "Bonifico Perù", "A", "S",
                   "CASSA", "", "", "17"}));
  EXPECT_EQ(fieldsOf<Totals>(test::totalsRecord(1300.15, -7.5, "01/01/2026", "31/12/2026")),
            (Texts{"1300.15", "-7.5", "01/01/2026", "31/12/2026"}));
  EXPECT_EQ(fieldsOf<CarryForward>(test::carryForwardRecord("31/12/2025", -150000)),
            (Texts{"31/12/2025", "-150000"}));
  EXPECT_EQ(fieldsOf<ClosingUndo>(test::closingUndoRecord("30/06/2025", 70000, "BPM01")),
            (Texts{"30/06/2025", "70000", "BPM01"}));
  EXPECT_EQ(fieldsOf<CountRecord>(Bytes{0xFE, 0xFF}), Texts{"-2"});
}

TEST(Records, NewRecordsHaveZeroSparesAndCutTexts) {
  Causale c;
  c.recordNumber = 1;
  c.causaleCode = "ABCDEFG";  // cut to 5
  c.causaleDescription = "Società di gestione patrimoniale";
  c.sign = "D";
  c.causaleFlag = "N";
  EXPECT_EQ(encodeRecord(c),
            test::causaleRecord(1, "ABCDE", "Societ\xE0 di gestione patri", "D", "N"));
  Account a;
  a.accountCode = "X";
  a.accountName = std::string(50, 'n');
  const Bytes bytes = encodeRecord(a);
  EXPECT_EQ(bytes, test::accountRecord({.number = 0, .code = "X", .name = std::string(45, 'n')}));
}

}  // namespace
}  // namespace contavia

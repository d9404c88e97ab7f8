// The fields of a table for a spreadsheet, one by one: what the end-to-end test of the movement
// list does not reach (the other formula signs, line breaks, negative and rounded amounts).

#include "common/csv.h"

#include <gtest/gtest.h>

namespace contavia {
namespace {

TEST(CsvTable, FieldsAsAnItalianSpreadsheetReadsThem) {
  CsvTable table({"A"});
  table.text("+39 02").text("@nome").text("due\r\nrighe").text("").number(-1234.5);
  table.number(-0.004).number(0.125).whole(-7);
  table.endRow();
  EXPECT_EQ(table.bytes(),
            "\xEF\xBB\xBF"
            "A\r\n'+39 02;'@nome;\"due\r\nrighe\";;-1234,50;0,00;0,13;-7\r\n");
}

}  // namespace
}  // namespace contavia

// The movement list: whole lines of the three builders, their order, the totals block and which
// line picks which movement.

#include "ledger/movement_list.h"

#include <gtest/gtest.h>

namespace contavia {
namespace {

std::string sp(std::size_t n) { return std::string(n, ' '); }

const std::string kDashes(91, '-');

Movement movement(int number, std::string date, std::string causale, double amount,
                  std::string sign, std::string document = "", std::string description = "") {
  return {.movementNumber = static_cast<std::int16_t>(number),
          .operationDate = std::move(date),
          .causaleCode = std::move(causale),
          .amount = amount,
          .documentNumber = std::move(document),
          .description = std::move(description),
          .sign = std::move(sign),
          .closedFlag = "N"};
}

// Causali as the table holds them: codes and descriptions padded to their fields, one code twice
// (the later one names the movements), one description longer than the list's 18 characters.
const std::vector<Causale> kCausali = {
    {.causaleCode = "STI  ", .causaleDescription = "Vecchia descrizione      ", .sign = "A"},
    {.causaleCode = "AFF  ", .causaleDescription = "Affitto e spese condominiali", .sign = "D"},
    {.causaleCode = "CAF  ", .causaleDescription = "Caffè                    ", .sign = "D"},
    {.causaleCode = "STI  ", .causaleDescription = "Stipendio                ", .sign = "A"},
};

// Filed in entry order; listed newest first, same-day movements by number, the 31/12 of a year
// above its 01/01.
const std::vector<Movement> kMovements = {
    movement(1, "01/01/2024", "AFF", 650, "D", "F12", "Affitto gennaio"),
    movement(2, "31/12/2024", "STI", 1850.5, "A", "", "Stipendio Società"),
    movement(3, "15/06/2024", "CAF", 2.4, "D", "SCONTR01", "Caffè al bar Perù"),
    movement(4, "15/06/2024", "XYZ", 10, "A", "", "Rimborso"),
    movement(5, "15/06/2024", "STI", 1234567.89, "A"),
};

CarryForward carry(std::string date, std::int32_t amount) {
  return {.carryDate = std::move(date), .carryAmount = amount};
}

TEST(MovementListTest, WholeLinesOfTheMainAndWholeUnitsBuilders) {
  struct Case {
    const char* name;
    std::vector<Movement> movements;
    CarryForward carry;
    ListBuilder builder;
    std::vector<std::string> lines;
  };
  const std::vector<Case> cases = {
      {"carry forward, debits, credits and accents",
       kMovements,
       carry("31/12/2023", 1500),
       ListBuilder::Main,
       {"31/12/2023     " + sp(5) + "1.500,00" + sp(13) + " Riporto Chiusura precedente",
        "31/12/2024 0002" + sp(19) + "1.850,50" + " Stipendio--Stipendio Società" + sp(13),
        "15/06/2024 0003 " + sp(9) + "2,40" + sp(13) + " Caffè-SCONTR01-Caffè al bar Perù" + sp(13),
        "15/06/2024 0004" + sp(22) + "10,00" + " XYZ--Rimborso" + sp(22),
        "15/06/2024 0005" + sp(14) + " 1.234.567,89" + " Stipendio--" + sp(30),
        "01/01/2024 0001 " + sp(7) + "650,00" + sp(13) + " Affitto e spese co-F12-Affitto gennaio" +
            sp(15),
        "  " + kDashes, " Totali      " + sp(5) + "2.152,40" + " 1.236.428,39", "  " + kDashes,
        "Fuori lista   " + sp(8) + "0,00", " " + kDashes, "    Saldo        1.234.275,99",
        " Nr. Movimenti: 5"}},
      {"empty account: the totals block alone",
       {},
       CarryForward{},
       ListBuilder::Main,
       {"  " + kDashes, " Totali      " + sp(9) + "0,00" + sp(9) + "0,00", "  " + kDashes,
        "Fuori lista   " + sp(8) + "0,00", " " + kDashes, "    Saldo       " + sp(9) + "0,00",
        " Nr. Movimenti: 0"}},
      {"whole units drop the decimals",
       {movement(1, "02/01/2024", "CAF", 1234.5, "D", "", "Bar"),
        movement(2, "03/01/2024", "STI", 2000.49, "A", "", "Paga")},
       carry("31/12/2023", 100),
       ListBuilder::WholeUnits,
       {"31/12/2023     " + sp(10) + "100" + sp(13) + " Riporto Chiusura precedente",
        "03/01/2024 0002" + sp(22) + "2.000" + " Stipendio--Paga" + sp(26),
        "02/01/2024 0001 " + sp(8) + "1.235" + sp(13) + " Caffè--Bar" + sp(27), "  " + kDashes,
        " Totali     " + sp(8) + "1.335" + sp(8) + "2.000", "  " + kDashes,
        "Fuori lista  " + sp(11) + "0", " " + kDashes, "    Saldo      " + sp(10) + "666",
        " Nr. Movimenti: 2"}},
  };
  for (const Case& c : cases) {
    const MovementList list =
        buildMovementList(MovementRecords::of(c.movements), c.carry, kCausali, c.builder);
    EXPECT_EQ(list.lines, c.lines) << c.name;
    EXPECT_EQ(list.hasCarryForwardLine, !c.carry.carryDate.empty()) << c.name;
  }
}

TEST(MovementListTest, TheHeadingLinesUpWithTheColumns) {
  const std::string heading = movementListHeading();
  const MovementList list = buildMovementList(MovementRecords::of(kMovements), CarryForward{},
                                              kCausali, ListBuilder::Main);
  const std::string& debit = list.lines[4];   // 01/01/2024 0001, 650,00 in the first column
  const std::string& credit = list.lines[0];  // 31/12/2024 0002, 1.850,50 in the second
  EXPECT_EQ(heading.find("N.O."), debit.find("0001"));
  EXPECT_EQ(heading.find("Dare") + 4, debit.find("650,00") + 6);
  EXPECT_EQ(heading.find("Avere") + 5, credit.find("1.850,50") + 8);
  EXPECT_EQ(heading.find("Causale"), credit.find("Stipendio"));
}

TEST(MovementListTest, NegativeCarryForwardStandsInTheSecondColumnAndCountsThere) {
  const std::vector<Movement> one = {movement(1, "02/01/2024", "CAF", 100, "D")};
  const MovementList list = buildMovementList(MovementRecords::of(one), carry("31/12/2023", -300),
                                              kCausali, ListBuilder::Main);
  EXPECT_EQ(list.lines[0],
            "31/12/2023     " + sp(13) + sp(6) + "-300,00 Riporto Chiusura precedente");
  EXPECT_EQ(list.lines[3], " Totali      " + sp(7) + "100,00" + sp(7) + "300,00");
  EXPECT_EQ(list.lines[7], "    Saldo       " + sp(7) + "200,00");
}

TEST(MovementListTest, FilteredBuilderPutsWhatItLeavesOutInTheOutOfListAmount) {
  struct Case {
    const char* name;
    ListFilter filter;
    std::vector<std::string> movementLines;  // first 15 characters of each listed line
    std::string totals, outOfList, balance, count;
  };
  // Out of list: credits add, debits subtract; the balance is always over every movement.
  const std::vector<Case> cases = {
      {"date range",
       {"15/06/2024", "30/06/2024", " TUTTE"},
       {"15/06/2024 0003", "15/06/2024 0004", "15/06/2024 0005"},
       "  Totali     " + sp(9) + "2,40 1.234.577,89",
       "   Fuori lista" + sp(4) + "1.200,50",
       "     Saldo       1.235.775,99",
       " Nr. Movimenti: 3"},
      {"causale only, no date bounds",
       {"", "", "Stipendio"},
       {"31/12/2024 0002", "15/06/2024 0005"},
       "  Totali     " + sp(9) + "0,00 1.236.418,39",
       "   Fuori lista" + sp(5) + "-642,40",
       "     Saldo       1.235.775,99",
       " Nr. Movimenti: 2"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const MovementList list = buildMovementList(MovementRecords::of(kMovements), CarryForward{},
                                                kCausali, ListBuilder::Filtered, c.filter);
    ASSERT_EQ(list.lines.size(), c.movementLines.size() + 7);
    for (std::size_t i = 0; i < c.movementLines.size(); ++i) {
      EXPECT_EQ(list.lines[i].substr(0, 15), c.movementLines[i]);
    }
    const std::size_t n = c.movementLines.size();
    EXPECT_EQ(list.lines[n + 1], c.totals);
    EXPECT_EQ(list.lines[n + 3], c.outOfList);
    EXPECT_EQ(list.lines[n + 5], c.balance);
    EXPECT_EQ(list.lines[n + 6], c.count);
  }
}

TEST(MovementListTest, PickedLineGivesTheNumberWrittenInIt) {
  const MovementList withCarry = buildMovementList(
      MovementRecords::of(kMovements), carry("31/12/2023", 1500), kCausali, ListBuilder::Main);
  const MovementList withoutCarry = buildMovementList(MovementRecords::of(kMovements),
                                                      CarryForward{}, kCausali, ListBuilder::Main);
  const MovementList filtered =
      buildMovementList(MovementRecords::of(kMovements), CarryForward{}, kCausali,
                        ListBuilder::Filtered, {"31/12/2024", "31/12/2024", " TUTTE"});
  const std::optional<std::size_t> none;
  // The number each line picks, from the first line on; every later line picks nothing.
  const std::vector<std::pair<const MovementList*, std::vector<std::optional<std::size_t>>>> cases =
      {
          {&withCarry, {none, 2, 3, 4, 5, 1, none, none}},  // carry forward; separator; totals
          {&withoutCarry, {2, 3, 4, 5, 1, none, none, none, none}},
          {&filtered, {2, none, none, none, none}},  // totals within the account's count
      };
  for (const auto& [list, numbers] : cases) {
    for (std::size_t row = 0; row < numbers.size(); ++row) {
      EXPECT_EQ(pickedMovementNumber(*list, row, kMovements.size()), numbers[row]) << row;
    }
  }
  EXPECT_EQ(pickedMovementNumber(withoutCarry, 99, kMovements.size()), none);
}

TEST(MovementListTest, MovementTenThousandIsPickedWithItsFiveDigits) {
  std::vector<Movement> many(10000, movement(0, "01/01/2024", "CAF", 1, "D"));
  for (std::size_t i = 0; i < many.size(); ++i) {
    many[i].movementNumber = static_cast<std::int16_t>(i + 1);
  }
  many.back().operationDate = "02/01/2024";
  const MovementList list =
      buildMovementList(MovementRecords::of(many), CarryForward{}, kCausali, ListBuilder::Main);
  EXPECT_EQ(list.lines[0].substr(0, 16), "02/01/2024 10000");
  EXPECT_EQ(pickedMovementNumber(list, 0, many.size()), 10000U);
  EXPECT_EQ(pickedMovementNumber(list, 1, many.size()), 1U);
  EXPECT_EQ(list.lines.back(), " Nr. Movimenti: 10000");
}

}  // namespace
}  // namespace contavia

#pragma once
// A DataDirectory with one account "CC1" (credit line 1000) and three causali, opened in the
// movement window. Today is 21/11/2026.

#include <memory>
#include <vector>

#include "ledger/movement_entry.h"
#include "tests/support/archive_fixture.h"

namespace contavia::test {

class MovementEntryTest : public ArchiveTest {
 protected:
  void SetUp() override {
    writeTable(folder, "CONTI.CON", "RecConti.CON",
               {accountRecord({.number = 1, .code = "CC1", .name = "Banca", .creditLine = "1000"}),
                accountRecord({.number = 2, .code = "CC10", .name = "Altra banca"})});
    writeTable(folder, "Causali.CAP", "RecCausa.CAP",
               {causaleRecord(1, "STI", "Stipendio", "A"), causaleRecord(2, "AFF", "Affitto", "D"),
                causaleRecord(3, "CAF", "Caff\xE8", "D")});
    folder.write("records.rer", le16(7));
  }

  // Writes CC1's movements, opens the account and the movement window.
  void openWith(const std::vector<MovementSpec>& movements) {
    writeMovements(folder, "CC1", movements);
    reopen();
  }

  // Chooses CC1 again (its files as they are) and opens the movement window.
  void reopen() {
    entry.reset();
    session = std::make_unique<Session>(files, prompter, clock, folder.path());
    session->start();
    session->openAccount(0);
    entry = std::make_unique<MovementEntry>(*session);
    entry->open();
    prompter.clear();
  }

  OpenAccount& account() { return *session->account(); }

  // Record n of CC1.MOC as it is on disk.
  Bytes movementBytes(std::size_t n) const {
    const Bytes all = folder.read("CC1.MOC");
    const auto first = all.begin() + static_cast<long>((n - 1) * Movement::kLength);
    return Bytes(first, first + static_cast<long>(Movement::kLength));
  }

  void type(const std::string& date, const std::string& causale, const std::string& amount,
            const std::string& document = "", const std::string& description = "") {
    entry->setDate(date);
    EntryRow& row = entry->row();
    row.causale = causale;
    row.amount = amount;
    row.documentNumber = document;
    row.description = description;
  }

  std::unique_ptr<Session> session;
  std::unique_ptr<MovementEntry> entry;
};

// Five movements whose effects on the balances differ: a credit, a debit, a debit dated
// tomorrow, and two credits whose whole-unit rounding goes down (10,50) and up (10,51).
// Recomputed: total 41,01, today 71,01.
inline std::vector<MovementSpec> fiveMovements() {
  return {
      {.date = "01/11/2026", .causale = "STI", .amount = 100, .sign = "A", .description = "Paga"},
      {.date = "02/11/2026", .causale = "AFF", .amount = 50, .sign = "D", .document = "F1"},
      {.date = "22/11/2026", .causale = "AFF", .amount = 30, .sign = "D"},
      {.date = "03/11/2026", .causale = "STI", .amount = 10.50, .sign = "A"},
      {.date = "04/11/2026", .causale = "STI", .amount = 10.51, .sign = "A"},
  };
}

}  // namespace contavia::test

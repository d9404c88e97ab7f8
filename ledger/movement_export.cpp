#include "ledger/movement_export.h"

#include "common/csv.h"
#include "common/text.h"
#include "ledger/balance_history.h"
#include "ledger/causale_index.h"

namespace contavia {
std::string movementListCsv(const OpenAccount& account, const MovementList& list,
                            const std::vector<Causale>& causali) {
  CsvTable table({"Data", "Numero", "Causale", "Descrizione causale", "Documento", "Descrizione",
                  "Dare", "Avere", "Saldo"});
  const MovementRecords& movements = account.movements();
  const CarryForward& carry = account.carryForward();
  if (list.hasCarryForwardLine) {
    table.text(trim(carry.carryDate)).empty().empty().empty().empty();
    table.text("Riporto Chiusura precedente").empty().empty().number(carry.carryAmount);
    table.endRow();
  }
  std::vector<double> balances(movements.size());
  for (const BalanceStep& step : balanceHistory(movements, carry.carryAmount)) {
    balances[step.movement] = step.balance;
  }
  const CausaleIndex index(causali);
  std::string scratch;
  for (std::size_t row = 0; row < list.lines.size(); ++row) {
    const auto number = pickedMovementNumber(list, row, movements.size());
    if (!number) {
      continue;
    }
    const MovementView m = movements[*number - 1];
    const std::string code = trim(m.causaleCode(scratch));
    const Causale* causale = index.find(code);
    table.text(trim(m.date(scratch)))
        .whole(m.number())
        .text(code)
        .text(causale != nullptr ? trim(causale->causaleDescription) : std::string())
        .text(trim(m.documentNumber(scratch)))
        .text(trim(m.description(scratch)));
    if (m.isCredit()) {
      table.empty().number(m.amount());
    } else {
      table.number(m.amount()).empty();
    }
    table.number(balances[*number - 1]);
    table.endRow();
  }
  return table.bytes();
}

}  // namespace contavia

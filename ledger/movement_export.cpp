#include "ledger/movement_export.h"

#include <algorithm>
#include <numeric>

#include "common/csv.h"
#include "common/text.h"
#include "ledger/causale_index.h"

namespace contavia {
namespace {

// The account's balance after each movement (0-based, file order).
std::vector<double> runningBalances(const MovementRecords& movements, std::int32_t carry) {
  std::vector<std::size_t> order(movements.size());
  std::iota(order.begin(), order.end(), 0);
  std::vector<std::int32_t> keys(movements.size());
  for (std::size_t i = 0; i < movements.size(); ++i) {
    keys[i] = movements[i].dateKey();
  }
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
  std::vector<double> after(movements.size());
  double balance = carry;
  for (const std::size_t i : order) {
    const MovementView m = movements[i];
    balance += m.isCredit() ? m.amount() : -m.amount();
    after[i] = balance;
  }
  return after;
}

}  // namespace

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
  const std::vector<double> balances = runningBalances(movements, carry.carryAmount);
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

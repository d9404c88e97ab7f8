#include "ledger/movement_entry.h"

#include <utility>

#include "archive/disk_errors.h"
#include "archive/record_file.h"
#include "archive/running_balances.h"
#include "archive/tables.h"
#include "common/dates.h"
#include "common/key_rules.h"
#include "common/number_masks.h"
#include "common/text.h"
#include "ledger/causale_index.h"

namespace contavia {
namespace {

constexpr const char* kUnknownCausaleText = "CODICE CAUSALE NON PRESENTE!";
constexpr const char* kAmountRequiredText = "Campo Importo obbligatorio";
constexpr const char* kDeleteQuestion =
    "Attenzione il movimento selezionato verrà cancellato, ...Vuoi Continuare?";
constexpr const char* kEntryAmountMask = "##,###,###.00";

// `text` when it is a real "dd/mm/yyyy" date, else `fallback`.
std::string dateOr(const std::string& text, const std::string& fallback) {
  const std::string trimmed = trim(text);
  return parseDate(trimmed) ? trimmed : fallback;
}

}  // namespace

std::string signCaption(const std::string& sign) {
  const std::string s = trim(sign);
  if (s == "D") {
    return "Dare";
  }
  if (s == "A") {
    return "Avere";
  }
  return {};
}

std::vector<std::string> causalePickerRows(const std::vector<Causale>& causali) {
  std::vector<std::string> rows;
  rows.reserve(causali.size());
  for (const Causale& c : causali) {
    rows.push_back(padRight(c.causaleCode, 5) + " - " + padRight(c.causaleDescription, 25));
  }
  return rows;
}

MovementEntry::MovementEntry(Session& session) : session_(session) {}

OpenAccount& MovementEntry::account() { return *session_.account(); }

void MovementEntry::open() {
  session_.reloadCausali();
  OpenAccount& a = account();
  const std::string today = session_.clock().todayText();
  filter_ = ListFilter{};
  const DateSpan span = a.dateSpan();
  filter_.from = dateOr(a.selectionFrom(), dateOr(span.earliest, today));
  filter_.to = dateOr(span.latest, dateOr(a.selectionTo(), today));
  a.setSelection(filter_.from, filter_.to);
  view_ = ListBuilder::Main;
  resetRow();
  rebuild();
}

std::vector<std::string> MovementEntry::causaleSelector() const {
  return causaleSelectorItems(session_.tables().causali);
}

void MovementEntry::rebuild() { listBuilt_ = false; }

const MovementList& MovementEntry::list() const {
  // Built when first looked at: a caller that shows no list (the command line) never pays for it.
  if (!listBuilt_) {
    const OpenAccount* a = session_.account();
    list_ = a == nullptr ? MovementList{}
                         : buildMovementList(a->movements(), a->carryForward(),
                                             session_.tables().causali, view_, filter_);
    listBuilt_ = true;
  }
  return list_;
}

void MovementEntry::resetRow() {
  row_ = EntryRow{};
  selected_ = 0;
  setDate(session_.clock().todayText());
}

void MovementEntry::setDate(const std::string& date) {
  row_.date = date;
  if (selected_ != 0) {
    return;  // a movement being changed keeps its own number
  }
  std::int16_t count = 0;
  readCount(session_.files(), account().filePath(filename::kMovementCount), count);
  row_.number = std::to_string(count + 1);
}

bool MovementEntry::stop(const std::string& text) {
  session_.prompter().show(errorBox(text));
  return false;
}

void MovementEntry::fillRowFromCausale(const Causale& causale) {
  row_.causale = trim(causale.causaleCode);
  row_.causaleDescription = trimRight(causale.causaleDescription);
  row_.sign = trim(causale.sign);
}

bool MovementEntry::lookupCausale() {
  const std::string code = trim(row_.causale);
  if (code.empty()) {
    return true;
  }
  const Causale* causale = CausaleIndex(session_.tables().causali).find(code);
  if (causale == nullptr) {
    return stop(kUnknownCausaleText);
  }
  fillRowFromCausale(*causale);
  return true;
}

void MovementEntry::pickCausale(std::size_t row) {
  const std::vector<Causale>& causali = session_.tables().causali;
  if (row < causali.size()) {
    fillRowFromCausale(causali[row]);
  }
}

bool MovementEntry::selectLine(std::size_t row) {
  const auto number = pickedMovementNumber(list(), row, account().count());
  return number && selectMovement(*number);
}

bool MovementEntry::picksMovement(std::size_t row) const {
  return session_.account() != nullptr &&
         pickedMovementNumber(list(), row, session_.account()->count()).has_value();
}

bool MovementEntry::selectMovement(std::size_t number) {
  // A movement is its position in the file, whatever number a damaged record may carry.
  OpenAccount& a = account();
  if (number < 1 || number > a.count()) {
    return false;
  }
  // A movement already selected goes back into the balances before another one is taken out.
  if (selected_ != 0) {
    abandon();
  }
  const Movement m = a.movement(number);
  if (!a.incrementFits(m.operationDate, m.amount, m.sign, /*reverse=*/true)) {
    return stop(balanceOverflowText());
  }
  selected_ = number;
  row_.number = std::to_string(number);
  row_.date = trim(m.operationDate);
  row_.causale = trim(m.causaleCode);
  const Causale* causale = CausaleIndex(session_.tables().causali).find(row_.causale);
  row_.causaleDescription = causale != nullptr ? trimRight(causale->causaleDescription) : "";
  row_.sign = trim(m.sign);
  row_.amount = formatNumber(m.amount, kEntryAmountMask);
  row_.documentNumber = trimRight(m.documentNumber);
  row_.description = trimRight(m.description);
  a.removeFromTotals(m.operationDate, m.amount, m.sign);
  return true;
}

Movement MovementEntry::movementFromRow(Movement base, std::size_t number, double amount,
                                        const std::string& date) const {
  base.movementNumber = static_cast<std::int16_t>(number);
  base.operationDate = date;
  base.causaleCode = padRight(trim(row_.causale), 5);
  base.amount = amount;
  base.documentNumber = padRight(row_.documentNumber, 8);
  base.description = padRight(row_.description, 30);
  base.sign = padRight(row_.sign, 1);
  return base;
}

bool MovementEntry::save() {
  if (trim(row_.amount).empty()) {
    return stop(kAmountRequiredText);
  }
  const auto amount = readAmountField(row_.amount);
  if (!amount) {
    return stop("Importo non valido: \"" + row_.amount + "\".");
  }
  if (trim(row_.causale).empty()) {
    return stop(kUnknownCausaleText);
  }
  if (!lookupCausale()) {
    return false;
  }
  const auto date = parseDate(trim(row_.date));
  if (!date) {
    session_.prompter().show(wrongDateBox());
    return false;
  }
  const std::string dateText = formatDateDmy(*date);
  if (selected_ != 0 && selected_ <= account().count()) {
    return saveChanged(*amount, dateText);
  }
  return saveNew(*amount, dateText);
}

bool MovementEntry::saveNew(double amount, const std::string& date) {
  OpenAccount& a = account();
  const std::size_t number = a.count() + 1;
  if (number > Movement::kCapacity) {
    return stop(tableFullText(Movement::kCapacity, "movimenti in un conto"));
  }
  // A new record, whatever a deletion or a closing left past the count: not closed, no link.
  Movement m = movementFromRow(Movement{}, number, amount, date);
  m.closedFlag = "N";
  if (!balancesFit(number, m)) {
    return stop(balanceOverflowText());
  }
  const WriteOutcome outcome = a.appendMovement(m);
  if (outcome.error == OpenAccount::kCapacityReached) {
    return stop(tableFullText(Movement::kCapacity, "movimenti in un conto"));
  }
  if (!written(session_.prompter(), outcome)) {
    return false;
  }
  readCount(session_.files(), session_.dir().path(filename::kMovementCounter),
            session_.tables().movementCounter);
  finishSave(m);
  return true;
}

bool MovementEntry::saveChanged(double amount, const std::string& date) {
  OpenAccount& a = account();
  Movement m = movementFromRow(a.movement(selected_), selected_, amount, date);
  m.closedFlag = "N";
  if (!balancesFit(selected_, m)) {
    return stop(balanceOverflowText());
  }
  if (!written(session_.prompter(), a.rewriteMovements({m}))) {
    return false;
  }
  finishSave(m);
  return true;
}

bool MovementEntry::balancesFit(std::size_t number, const Movement& saved) {
  // What stays is the recompute's balance; the incremental step in between is skipped when it
  // alone would leave the range. The amount itself must have a whole-unit value, or the
  // movement could never be selected again.
  return roundHalfEven(saved.amount).has_value() && account().recomputeFitsWith(number, saved);
}

void MovementEntry::finishSave(const Movement& saved) {
  OpenAccount& a = account();
  rebuild();
  a.addToTotals(saved.operationDate, saved.amount, saved.sign);
  resetRow();
  a.recompute();
}

void MovementEntry::abandon() {
  OpenAccount& a = account();
  if (selected_ != 0 && selected_ <= a.count()) {
    const Movement m = a.movement(selected_);
    a.addToTotals(m.operationDate, m.amount, m.sign);
  }
  resetRow();
}

bool MovementEntry::deleteSelected() {
  OpenAccount& a = account();
  if (selected_ == 0 || selected_ > a.count()) {
    return false;
  }
  if (!confirm(session_.prompter(), warningQuestion(kDeleteQuestion))) {
    return false;
  }
  std::vector<Movement> kept = a.movements().decodedAll();
  kept.erase(kept.begin() + static_cast<std::ptrdiff_t>(selected_ - 1));
  if (!written(session_.prompter(), a.replaceMovements(std::move(kept)))) {
    return false;
  }
  rebuild();
  resetRow();
  // The empty slot: both balances stay as the selection left them; the panels and ".TOC" are
  // written again.
  a.addToTotals("", 0.0, "");
  return true;
}

void MovementEntry::applyFilter() {
  view_ = ListBuilder::Filtered;
  account().setSelection(filter_.from, filter_.to);
  rebuild();
}

void MovementEntry::refresh() {
  view_ = ListBuilder::Main;
  if (session_.account() == nullptr) {
    rebuild();
    return;
  }
  if (selected_ > account().count()) {
    resetRow();  // the movement being changed is gone (the account was cleared or closed)
  } else if (selected_ == 0) {
    setDate(row_.date);  // the count may have changed elsewhere
  }
  rebuild();
}

}  // namespace contavia

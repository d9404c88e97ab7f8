#pragma once
// The movement window (`Form9`) without its widgets: the entry row, the New / Changing states,
// saving, abandoning and deleting, with the balances and files kept in step. The window binds
// its controls to this class and shows what it says; every message goes through the Prompter.

#include <cstddef>
#include <string>
#include <vector>

#include "archive/session.h"
#include "ledger/movement_list.h"

namespace contavia {

// The entry row, as texts of its controls.
struct EntryRow {
  std::string number{};              // `nroper`
  std::string date{};                // `dataoper`, "dd/mm/yyyy"
  std::string causale{};             // `Causale`
  std::string causaleDescription{};  // `DescrCausale`
  std::string sign{};                // `D_A`: "D", "A" or empty
  std::string amount{};              // `IMPORTO`, as typed ("1234,5")
  std::string documentNumber{};      // `NrDoc`
  std::string description{};         // `DescMovim`
  bool operator==(const EntryRow&) const = default;
};

// "Dare" / "Avere" for the `D_A` label.
std::string signCaption(const std::string& sign);

// The rows of the causale picker `FORM12`: code (5) + " - " + description (25).
std::vector<std::string> causalePickerRows(const std::vector<Causale>& causali);

class MovementEntry {
 public:
  // Works on the session's working account, which must be open.
  explicit MovementEntry(Session& session);

  // Opening the window: empty row, today's date, no selection, the list built, the filter
  // dates set from the account's selection dates (the upper one from the latest movement).
  void open();

  EntryRow& row() { return row_; }
  const EntryRow& row() const { return row_; }
  // The list as the builder in use makes it from the account as it is now.
  const MovementList& list() const;
  std::vector<std::string> causaleSelector() const;
  ListFilter& filter() { return filter_; }
  const ListFilter& filter() const { return filter_; }
  // 0 in the New state; the number of the movement being changed otherwise.
  std::size_t selectedIndex() const { return selected_; }
  bool deleteEnabled() const { return selected_ != 0; }

  // The operation date changed: the count is read again and `nroper` shows count + 1.
  void setDate(const std::string& date);
  // Moving into `IMPORTO`: looks the typed code up. False (after "CODICE CAUSALE NON
  // PRESENTE!") when a non-empty code is unknown.
  bool lookupCausale();
  // A choice in the causale picker (0-based row of `causalePickerRows`).
  void pickCausale(std::size_t row);
  // A click on list line `row` (0-based). False when the line picks nothing.
  bool selectLine(std::size_t row);
  // Whether list line `row` stands for a movement (the others cannot be chosen).
  bool picksMovement(std::size_t row) const;
  // Selects movement `number` as a click on its line would. False when there is none.
  bool selectMovement(std::size_t number);
  // "Conferma". False when a message stopped it (nothing written).
  bool save();
  // "Annulla immissione".
  void abandon();
  // "Cancella", after its confirmation. False when cancelled or not possible.
  bool deleteSelected();
  // "Esegui filtro": the filtered builder with the filter controls.
  void applyFilter();
  // Rebuilds the list with the main builder (after a change made elsewhere).
  void refresh();
  // The builder of the list shown: Main, or Filtered after "Esegui filtro" until the next
  // opening or refresh. Saving, abandoning and deleting rebuild the list with it.
  ListBuilder view() const { return view_; }

 private:
  OpenAccount& account();
  void rebuild();
  // The New state: an empty row dated today with the next number.
  void resetRow();
  void fillRowFromCausale(const Causale& causale);
  bool stop(const std::string& text);
  bool saveNew(double amount, const std::string& date);
  bool saveChanged(double amount, const std::string& date);
  // The movement of the entry row, on top of `base` (the slot it goes into).
  Movement movementFromRow(Movement base, std::size_t number, double amount,
                           const std::string& date) const;
  // True when the balances after saving `saved` as movement `number` stay in the 32-bit range.
  bool balancesFit(std::size_t number, const Movement& saved);
  // Applies the incremental update of a saved movement, then the full recompute.
  void finishSave(const Movement& saved);

  Session& session_;
  EntryRow row_;
  mutable MovementList list_;
  mutable bool listBuilt_ = false;
  ListFilter filter_;
  std::size_t selected_ = 0;
  ListBuilder view_ = ListBuilder::Main;
};

}  // namespace contavia

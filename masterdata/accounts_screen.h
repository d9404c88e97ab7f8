#pragma once
// The accounts window (Form2): `listaconti`, `CodConto`, `NomeConto`, `IndBanca`, `CapBanca`,
// `LocBanca`, `ProvBanca`, `Fido`, the category choice `Combo1`, and "ok", "clr", "del", "esci".
// Deleting an account also deletes its own files.

#include <optional>

#include "masterdata/table_screen.h"

namespace contavia {

class AccountsScreen final : public TableScreen<Account> {
 public:
  static constexpr const char* kCode = "CodConto";
  static constexpr const char* kName = "NomeConto";
  static constexpr const char* kAddress = "IndBanca";
  static constexpr const char* kPostCode = "CapBanca";
  static constexpr const char* kTown = "LocBanca";
  static constexpr const char* kProvince = "ProvBanca";
  static constexpr const char* kCreditLine = "Fido";
  static constexpr const char* kCategory = kChoiceField;

  // Opening: the accounts are read from "CONTI.CON" and become the program's accounts; the
  // categories are read from "Tipo.con" for `Combo1`.
  explicit AccountsScreen(Session& session);

  // One item per category: the trimmed code padded to 5, " - ", the description (25).
  std::vector<std::string> choices() const override;
  // Picks a category by its description.
  bool pickChoice(std::string_view name) override;
  // The code of a chosen account cannot be changed: its files carry it.
  bool editable(std::string_view name) const override;
  // Enter in an empty `CodConto` is refused with "Campo obbligatorio".
  bool enter(std::string_view name) override;

 private:
  std::string row(const Account& r) const override;
  bool rowNames(const Account& r, std::string_view chosen) const override;
  void show(const Account& r) override;
  void fill(Account& r) const override;
  bool accepts(bool changing) override;
  bool mayRemove(const Account&) override { return true; }
  Message removeQuestion() const override;
  bool mayRemoveConfirmed(const Account& r) override;
  void removing(const Account& r, WriteJournal& journal) override;
  void publish() override;

  // The item of the category of that description, if any.
  std::optional<std::string> itemOf(std::string_view categoryName) const;

  std::vector<Category> categories_;
};

}  // namespace contavia

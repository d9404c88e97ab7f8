#pragma once
// The categories window (Form1): `ElencoMovimenti`, the code and description boxes (named
// `CodCausale` and `DescCausale` as on the causali window), the group choice `Combo1`, and "ok",
// "pulisci", "del", "esci".

#include "masterdata/table_screen.h"

namespace contavia {

class CategoriesScreen final : public TableScreen<Category> {
 public:
  static constexpr const char* kCode = "CodCausale";
  static constexpr const char* kDescription = "DescCausale";
  static constexpr const char* kGroup = kChoiceField;

  // Opening: the categories are read from "Tipo.con" and become the program's categories; the
  // groups are read from "Gruppi.con" for `Combo1`.
  explicit CategoriesScreen(Session& session);

  // The group names (trimmed), in table order.
  std::vector<std::string> choices() const override;

 private:
  std::string row(const Category& r) const override;
  bool rowNames(const Category& r, std::string_view chosen) const override;
  void show(const Category& r) override;
  void fill(Category& r) const override;
  bool accepts(bool changing) override;
  bool mayRemove(const Category& r) override;
  Message removeQuestion() const override;
  void publish() override;

  std::vector<Group> groups_;
};

}  // namespace contavia

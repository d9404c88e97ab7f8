#pragma once
// The groups window (Form4): `ElencoMovimenti`, `CodGruppi`, `DescGruppi` and "ok", "pulisci",
// "del", "esci".

#include "masterdata/table_screen.h"

namespace contavia {

class GroupsScreen final : public TableScreen<Group> {
 public:
  static constexpr const char* kCode = "CodGruppi";
  static constexpr const char* kDescription = "DescGruppi";

  // Opening: the groups are read from "Gruppi.con".
  explicit GroupsScreen(Session& session);

 private:
  std::string row(const Group& r) const override;
  bool rowNames(const Group& r, std::string_view chosen) const override;
  void show(const Group& r) override;
  void fill(Group& r) const override;
  bool accepts(bool changing) override;
  bool mayRemove(const Group& r) override;
  Message removeQuestion() const override;
  void publish() override {}  // the groups are read by the screens that need them
};

}  // namespace contavia

#pragma once
// The causali window (Form6): `ElencoCausali`, `CodCausale`, `DescCausale`, the sign options
// `DarAver` ("A" option 0, "D" option 1) and "ok", "pulisci", "del", "esci".

#include "masterdata/table_screen.h"

namespace contavia {

// The sign that option `option` of `DarAver` gives: option 0 "A" (Avere), option 1 "D" (Dare).
inline constexpr const char* kSignOfOption[2] = {"A", "D"};

class CausaliScreen final : public TableScreen<Causale> {
 public:
  static constexpr const char* kCode = "CodCausale";
  static constexpr const char* kDescription = "DescCausale";
  static constexpr const char* kSign =
      "DarAver";  // "A" (option 0) or "D" (option 1); empty: neither

  // Opening: the causali are read from "Causali.CAP" and become the program's causali.
  explicit CausaliScreen(Session& session);

 private:
  std::string row(const Causale& r) const override;
  bool rowNames(const Causale& r, std::string_view chosen) const override;
  void show(const Causale& r) override;
  void fill(Causale& r) const override;
  bool accepts(bool changing) override;
  bool mayRemove(const Causale& r) override;
  Message removeQuestion() const override;
  void publish() override;
};

}  // namespace contavia

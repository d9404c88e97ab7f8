#pragma once
// What the account panel of the main window (Panel3D1) shows of the working account: its data,
// its figures with the mask "###,###,###.00" and the date of its latest movement.

#include <array>
#include <string>

#include "archive/session.h"

namespace contavia {

struct AccountPanelTexts {
  std::string name;        // `NomeContoAttivo`: the code, two blanks, the name
  std::string address;     // `IndirizzoContoAttivo`: the bank's address
  std::string town;        // `LocalitaContoAttivo`: postal code, town and "(province)"
  std::string group;       // `GruppoConto`
  std::string category;    // `TipoConto`
  std::string latestDate;  // `UltimaData`
  // `Saldi(0)`..`Saldi(3)`: balance today, total balance, credit line, available.
  std::array<std::string, 4> figures;
  bool operator==(const AccountPanelTexts&) const = default;
};

// The texts for the working account; all empty when no account is open.
AccountPanelTexts accountPanelTexts(const Session& session);

}  // namespace contavia

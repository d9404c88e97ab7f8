#include "masterdata/causali_screen.h"

#include "masterdata/causale_usage.h"
#include "masterdata/code_rules.h"

namespace contavia {
namespace {

// A row: the code (5), a blank, the description (25), a blank and the sign.
constexpr std::size_t kRowWidth = 33;

constexpr CodeRules kRules{CausaliScreen::kCode, CausaliScreen::kDescription,
                           "Nr di causale già presente",
                           /*beepWhenMissing=*/true, /*emptyCodeWhenMissing=*/true};

}  // namespace

// A delete writes the compacted table to "causali.con"/"Reccausali.con" and reads it back from
// there; "Causali.CAP" keeps the deleted causale, which is listed again at the next opening.
CausaliScreen::CausaliScreen(Session& session)
    : TableScreen(session,
                  {{.name = kCode, .label = "Codice", .width = 5},
                   {.name = kDescription, .label = "Descrizione", .width = 25},
                   {.name = kSign,
                    .label = "Segno",
                    .width = 1,
                    .accepts = "AD",
                    .keptOnClear = true,
                    .kind = FieldDefinition::SignOptions}},
                  Setup{kCausaleTable,
                        {filename::kCausaliAfterDelete, filename::kCausaliAfterDeleteCount},
                        "causali",
                        /*keepsChangedRecord=*/true,
                        kRowWidth,
                        padRight("Cod.", 6) + padRight("Descrizione", 26) + "D/A"}) {
  open();
}

std::string CausaliScreen::row(const Causale& r) const {
  return padRight(r.causaleCode, 5) + " " + padRight(r.causaleDescription, 25) + " " +
         padRight(r.sign, 1);
}

bool CausaliScreen::rowNames(const Causale& r, std::string_view chosen) const {
  return trimRight(r.causaleCode) == trimRight(leftChars(chosen, 5));
}

void CausaliScreen::show(const Causale& r) {
  put(kCode, trimRight(r.causaleCode));
  put(kDescription, trimRight(r.causaleDescription));
  if (r.sign == "A" || r.sign == "D") {
    put(kSign, r.sign);
  }
}

void CausaliScreen::fill(Causale& r) const {
  r.causaleCode = field(kCode);
  r.causaleDescription = field(kDescription);
  if (!field(kSign).empty()) {
    r.sign = field(kSign);
  }
  r.causaleFlag = "N";
}

bool CausaliScreen::accepts(bool changing) {
  return acceptsCodeAndDescription(*this, session().prompter(), kRules, table(),
                                   &Causale::causaleCode, changing);
}

bool CausaliScreen::mayRemove(const Causale& r) {
  static const MovementRecords kNoMovements;
  const OpenAccount* working = session().account();
  const std::int64_t uses =
      countCausaleUses(session().dir(), session().tables().accounts,
                       working != nullptr ? working->movements() : kNoMovements, r.causaleCode);
  return notInUse(session().prompter(), uses, "La causale che vuoi eliminare è presente in ",
                  " movimenti, pertanto, non è possibile la sua eliminazione.");
}

Message CausaliScreen::removeQuestion() const {
  return warningQuestion(std::string("Attenzione la causale selezionata verrà cancellata") +
                         kDeleteQuestionEnd);
}

void CausaliScreen::publish() { session().tables().causali = table(); }

}  // namespace contavia

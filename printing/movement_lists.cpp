#include "printing/movement_lists.h"

#include "common/text.h"

namespace contavia {
namespace {

ReportLayout movementsLayout(std::string heading) {
  ReportLayout layout;
  layout.header.title = std::string(37, ' ') + "Elenco Movimenti ";
  layout.header.titleSpacer = true;
  layout.header.emptyLinesAfterDate = 1;
  layout.header.columnHeading = std::move(heading);
  layout.breakCount = 56;
  return layout;
}

}  // namespace

Report accountMovementsReport(const std::string& accountCaption, const ListChoice& choice,
                              const std::vector<std::string>& shownLines,
                              const std::string& today) {
  Report r{movementsLayout("    Data   N.Mov.   Mov. Dare   Mov. Avere Causale        N.Mov. "
                           "Descrizione Movimento"),
           shownLines};
  r.layout.header.dateBlock = {accountCaption + "  " + std::string(21, ' ') + "Stampato il " +
                                   today + std::string(9, ' ') + "Valuta: " + kCurrency,
                               "    dal " + choice.from + "   al " + choice.to +
                                   std::string(8, ' ') +
                                   "Causali selezionate: " + trim(choice.causale)};
  r.layout.padTarget = 56;
  return r;
}

std::string queryColumnHeading() {
  return "    Data   N.Mov.   Mov. Dare   Mov. Avere Causale      N.Mov.   Descrizione Movimento  "
         "Conto";
}

Report queryMovementsReport(const ListChoice& choice, const std::vector<std::string>& rows,
                            const std::string& today) {
  Report r{movementsLayout(queryColumnHeading()), {}};
  r.layout.header.ruleDashes = 96;
  r.layout.header.dateBlock = {
      "Stampato il: " + today + std::string(17, ' ') + "Valuta: " + kCurrency,
      "    dal " + choice.from + "   al " + choice.to + "    Gruppi: " + trim(choice.group) +
          "   Categoria: " + trim(choice.category) + "   Causali: " + trim(choice.causale)};
  r.layout.padTarget = 55;
  r.layout.breakRuleDashes = 101;
  r.layout.endRuleDashes = 100;
  r.lines.reserve(rows.size());
  for (const std::string& row : rows) {
    r.lines.push_back(midChars(row, kQueryKeyWidth, std::string::npos));
  }
  return r;
}

}  // namespace contavia

#include "printing/closing_archive.h"

#include "common/number_masks.h"
#include "common/text.h"

namespace contavia {
namespace {

// A debit stands 11 blanks after the date, a credit 12; the description starts under
// "Descr. Movimento".
constexpr std::size_t kDebitBlanks = 11;
constexpr std::size_t kCreditBlanks = 12;
constexpr std::size_t kDescriptionStart = 51;

}  // namespace

std::string removedMovementLine(const Movement& m) {
  const std::size_t blanks = m.sign == "A" ? kCreditBlanks : kDebitBlanks;
  const std::string line =
      m.operationDate + std::string(blanks, ' ') + formatNumber(m.amount, "###,###,##0.00");
  return padRight(line, kDescriptionStart) + trimRight(m.description);
}

Report closingArchiveReport(const std::vector<Movement>& removed, const std::string& today,
                            const std::string& closingDate) {
  Report r;
  PageHeader& h = r.layout.header;
  h.title = std::string(34, ' ') + "Elenco Movimenti Eliminati";
  h.dateBlock = {std::string(23, ' ') + "Stampato il " + today + "  al " + closingDate};
  h.ruleDashes = 95;
  h.columnHeading = "    Data       Mov. Dare  Mov. Avere       Saldo   Descr. Movimento";
  // The end footer is the break footer followed by the end mark.
  r.layout.endRuleDashes = 95;
  r.layout.endPageIndent = 42;
  r.layout.endMark = std::string(17, ' ') + "....fine stampa";
  r.lines.reserve(removed.size());
  for (const Movement& m : removed) {
    r.lines.push_back(removedMovementLine(m));
  }
  return r;
}

}  // namespace contavia

// stampa REPORT [OPTIONS] [--stampa FILE]: prints a report, to standard output or to FILE.

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "cli/query_support.h"
#include "cli/report_output.h"
#include "ledger/printed_lists.h"
#include "masterdata/print_archives.h"

namespace contavia::cli {
namespace {

// The listings of "Stampa Archivi" by their name on the command line.
std::optional<ArchiveListing> archiveListing(const std::string& name) {
  if (name == "causali") {
    return ArchiveListing::Causali;
  }
  if (name == "conti") {
    return ArchiveListing::Accounts;
  }
  if (name == "categorie") {
    return ArchiveListing::Categories;
  }
  if (name == "gruppi") {
    return ArchiveListing::Groups;
  }
  if (name == "piano-dei-conti") {
    return ArchiveListing::Chart;
  }
  return std::nullopt;
}

// The report REPORT names, or nullopt when a message stopped it.
std::optional<Report> namedReport(Context& c, const Arguments& args, const std::string& name) {
  if (const auto listing = archiveListing(name)) {
    args.expectAtMost(1);
    if (!c.session.start()) {
      return std::nullopt;
    }
    return PrintArchives(c.session).report(*listing);
  }
  if (name == "movimenti") {
    // The account is the second argument: `listedMovements` reads its arguments from the first.
    const Arguments shifted = c.arguments({"dal", "al", "causale", "stampa"}).shifted();
    shifted.expectAtMost(1);
    const auto entry = listedMovements(c, shifted);
    return entry ? std::optional<Report>(workingAccountReport(c.session, *entry)) : std::nullopt;
  }
  if (name == "interroga") {
    args.expectAtMost(1);
    if (!c.session.start()) {
      return std::nullopt;
    }
    const QueryFilter filter = queryFilter(c, args);
    if (!queryDatesAccepted(filter, c.session.prompter())) {
      return std::nullopt;
    }
    return queryReport(filter,
                       runMovementQuery(c.session.dir(), c.session.tables().accounts,
                                        c.session.tables().causali, filter),
                       c.session.clock().todayText());
  }
  if (name.starts_with("riepilogo-")) {
    args.expectAtMost(1);
    const SummaryKind kind = summaryKind(name.substr(10));
    if (!c.session.start()) {
      return std::nullopt;
    }
    const Summaries summaries(c.session);
    return summaries.report(kind, summaryCategory(summaries, args));
  }
  throw UsageError("stampa sconosciuta: \"" + name + "\" ('contavia-cli stampa --help')");
}

int stampa(Context& c) {
  const Arguments args = c.arguments({"dal", "al", "causale", "gruppo", "categoria", "stampa"});
  const std::optional<Report> report = namedReport(c, args, args.positional(0, "REPORT"));
  if (!report) {
    return kExitStopped;
  }
  return deliverReport(c, *report, args.option("stampa"));
}

}  // namespace

CONTAVIA_COMMAND("stampa", "REPORT [OPZIONI] [--stampa FILE]",
                 "stampa un elenco: causali, conti, categorie, gruppi, piano-dei-conti, movimenti "
                 "CONTO [--dal D] [--al D] [--causale T], interroga --dal D --al D [--gruppo T] "
                 "[--categoria T] [--causale T], riepilogo-conti [--categoria T], "
                 "riepilogo-categorie, riepilogo-gruppi. Senza --stampa le righe vanno sullo "
                 "standard output (un salto pagina è una riga con il solo carattere \\f); con "
                 "--stampa FILE.pdf la stampa come sulla carta, con un altro nome il testo",
                 stampa);

}  // namespace contavia::cli

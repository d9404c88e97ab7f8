#pragma once
// What `interroga`, `riepilogo` and `stampa` share: the filters of the movement query and of
// the summaries, read from their options and checked against the tables.

#include "cli/command.h"
#include "ledger/movement_query.h"
#include "ledger/summaries.h"

namespace contavia::cli {

// The query's filter from --dal, --al (both required), --gruppo, --categoria and --causale;
// a usage error for a missing date or a choice that is not in its list. The session is started.
QueryFilter queryFilter(Context& c, const Arguments& args);

// The category filter of the summaries from --categoria (" Tutte" when absent).
std::string summaryCategory(const Summaries& summaries, const Arguments& args);

// "conti", "categorie" or "gruppi".
SummaryKind summaryKind(const std::string& word);

}  // namespace contavia::cli

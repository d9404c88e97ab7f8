#pragma once
// The printed forms of the ledger's lists: the working account's list as the movement window
// shows it, the movement query's list, and the summaries of the view shown.

#include <string>

#include "archive/session.h"
#include "ledger/movement_entry.h"
#include "ledger/movement_query.h"
#include "printing/report_page.h"

namespace contavia {

// "Elenco Movimenti" of the working account: its caption (code and name), the dates and the
// causale of the list's filter, the lines as shown.
Report workingAccountReport(const Session& session, const MovementEntry& entry);

// "Elenco Movimenti" of the movement query.
Report queryReport(const QueryFilter& filter, const QueryResult& result, const std::string& today);

}  // namespace contavia

#pragma once
// Where a printed report goes: to standard output as text (a line holding only a form feed
// between pages), or with --stampa FILE to FILE, drawn as the printer draws it when FILE ends in
// ".pdf", as text otherwise.

#include <optional>
#include <string>

#include "cli/command.h"
#include "printing/report_page.h"

namespace contavia::cli {

// Refuses as a usage error a FILE whose folder does not exist: checked before an action that
// cannot be repeated (a closing) so that its report has somewhere to go.
void requireReportFolder(const std::optional<std::string>& file, const char* option = "stampa");

// Exit status 0 when the report was written; 1 (after the message) when FILE could not be.
int deliverReport(Context& c, const Report& report, const std::optional<std::string>& file);

// With --csv FILE, the table written to FILE whole (or not at all): exit status 0 when written
// or not asked for, 1 (after the message) when FILE could not be written.
int deliverCsv(Context& c, const std::string& table, const std::optional<std::string>& file);

}  // namespace contavia::cli

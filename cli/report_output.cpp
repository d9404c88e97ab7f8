#include "cli/report_output.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "archive/disk_errors.h"
#include "cli/ledger_support.h"
#include "cli/report_pdf.h"
#include "common/csv.h"
#include "common/text.h"
#include "printing/printer.h"

namespace contavia::cli {

void requireReportFolder(const std::optional<std::string>& file, const char* option) {
  if (!file) {
    return;
  }
  const std::filesystem::path folder = std::filesystem::path(*file).parent_path();
  std::error_code ec;
  if (!folder.empty() && !std::filesystem::is_directory(folder, ec)) {
    throw UsageError("la cartella di --" + std::string(option) + " non esiste: \"" +
                     folder.string() + "\"");
  }
}

int deliverReport(Context& c, const Report& report, const std::optional<std::string>& file) {
  TextPrinter text;
  printReport(text, report);
  if (!file) {
    printLines(c.out, text.lines());
    return kExitDone;
  }
  bool written = false;
  if (foldCase(*file).ends_with(".PDF")) {
    written = writeReportPdf(report, *file);
  } else {
    std::ofstream out(*file, std::ios::binary | std::ios::trunc);
    printLines(out, text.lines());
    written = static_cast<bool>(out.flush());
  }
  if (!written) {
    c.session.prompter().show(fileNotWrittenBox(*file));
    return kExitStopped;
  }
  return kExitDone;
}

int deliverCsv(Context& c, const std::string& table, const std::optional<std::string>& file) {
  if (!file) {
    return kExitDone;
  }
  if (!writeWholeFile(*file, table)) {
    c.session.prompter().show(fileNotWrittenBox(*file));
    return kExitStopped;
  }
  return kExitDone;
}

}  // namespace contavia::cli

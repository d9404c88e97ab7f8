#pragma once
// A report written as a PDF file, through the PDF module beside contavia-cli (or in its
// library folder once installed), loaded the first time it is needed.

#include <string>

#include "printing/report_page.h"

namespace contavia::cli {

// False when the file cannot be written, or the module is missing.
bool writeReportPdf(const Report& report, const std::string& path);

}  // namespace contavia::cli

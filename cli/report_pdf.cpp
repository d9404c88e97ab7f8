#include "cli/report_pdf.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace contavia::cli {
namespace {

using WritePdf = bool (*)(const Report&, const char*);

// The module's function, looked for beside the program, then in its library folder.
WritePdf pdfWriter() {
  static const WritePdf writer = []() -> WritePdf {
    std::error_code ec;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", ec);
    for (const char* place : {CONTAVIA_PDF_MODULE_PLACES}) {
      const std::filesystem::path module = program.parent_path() / place;
      if (void* handle = ::dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        return reinterpret_cast<WritePdf>(::dlsym(handle, "contavia_write_report_pdf"));
      }
    }
    return nullptr;
  }();
  return writer;
}

}  // namespace

bool writeReportPdf(const Report& report, const std::string& path) {
  const WritePdf writer = pdfWriter();
  return writer != nullptr && writer(report, path.c_str());
}

}  // namespace contavia::cli

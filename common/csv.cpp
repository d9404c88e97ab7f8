#include "common/csv.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace contavia {

CsvTable::CsvTable(const std::vector<std::string>& header) : bytes_("\xEF\xBB\xBF") {
  for (const std::string& name : header) {
    text(name);
  }
  endRow();
}

void CsvTable::separate() {
  if (rowStarted_) {
    bytes_ += ';';
  }
  rowStarted_ = true;
}

CsvTable& CsvTable::text(std::string_view value) {
  separate();
  const bool guarded =
      !value.empty() && (value[0] == '=' || value[0] == '+' || value[0] == '-' || value[0] == '@');
  const bool quoted = value.find_first_of(";\"\r\n") != std::string_view::npos;
  if (quoted) {
    bytes_ += '"';
  }
  if (guarded) {
    bytes_ += '\'';
  }
  if (!quoted) {
    bytes_ += value;
    return *this;
  }
  for (const char c : value) {
    bytes_ += c;
    if (c == '"') {
      bytes_ += '"';
    }
  }
  bytes_ += '"';
  return *this;
}

CsvTable& CsvTable::number(double value) {
  separate();
  const double rounded = std::round(value * 100.0) / 100.0;
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.2f", rounded == 0.0 ? 0.0 : rounded);
  std::string text(buffer);
  if (const std::size_t dot = text.find('.'); dot != std::string::npos) {
    text[dot] = ',';
  }
  bytes_ += text;
  return *this;
}

CsvTable& CsvTable::whole(long long value) {
  separate();
  bytes_ += std::to_string(value);
  return *this;
}

CsvTable& CsvTable::empty() {
  separate();
  return *this;
}

void CsvTable::endRow() {
  bytes_ += "\r\n";
  rowStarted_ = false;
}

bool writeWholeFile(const std::string& path, std::string_view bytes) {
  const std::string partial = path + ".parziale";
  std::ofstream out(partial, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();  // a full disk may only show here
  std::error_code ec;
  if (out.fail()) {
    std::filesystem::remove(partial, ec);
    return false;
  }
  std::filesystem::rename(partial, path, ec);
  if (ec) {
    std::filesystem::remove(partial, ec);
    return false;
  }
  return true;
}

}  // namespace contavia

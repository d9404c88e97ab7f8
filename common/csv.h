#pragma once
// Tables for a spreadsheet set to Italian: UTF-8 with a byte-order mark (so that accented text
// opens right), ";" between fields, CRLF at the end of each row, amounts as plain numbers with a
// decimal comma and no thousands separator, dates as their "dd/mm/yyyy" text.

#include <string>
#include <string_view>
#include <vector>

namespace contavia {

class CsvTable {
 public:
  // Starts the table with its header row.
  explicit CsvTable(const std::vector<std::string>& header);

  // A text field: quoted when it holds ";", a quote or a line break; one that begins with "=",
  // "+", "-" or "@" gets a leading "'", so that no spreadsheet runs it as a formula.
  CsvTable& text(std::string_view value);
  // An amount with two decimals: -1234,5 is "-1234,50".
  CsvTable& number(double value);
  // A whole number (a movement's number).
  CsvTable& whole(long long value);
  CsvTable& empty();
  void endRow();

  const std::string& bytes() const { return bytes_; }

 private:
  void separate();

  std::string bytes_;
  bool rowStarted_ = false;
};

// Writes `bytes` to the file at `path` whole or not at all: to a file beside it first, then
// renamed over it. False when it cannot be written (nothing is left behind).
bool writeWholeFile(const std::string& path, std::string_view bytes);

}  // namespace contavia

#pragma once
// "Elenco Movimenti": of the working account (the lines of its list as the movement window shows
// them, filters included) and of the movement query (the rows of its list without the 7-character
// key they are sorted by). Dates are "dd/mm/yyyy".

#include <string>
#include <vector>

#include "printing/report_page.h"

namespace contavia {

// What the printed lists say they were made of.
struct ListChoice {
  std::string from;
  std::string to;
  std::string causale;  // the causale filter, " TUTTE"/" Tutte" for all
  std::string group{};  // the query's filters
  std::string category{};
};

inline constexpr const char* kCurrency = "Euro";
inline constexpr std::size_t kQueryKeyWidth = 7;

// The column heading of the query's printed list (its rows without their key line up under it).
std::string queryColumnHeading();

Report accountMovementsReport(const std::string& accountCaption, const ListChoice& choice,
                              const std::vector<std::string>& shownLines, const std::string& today);
Report queryMovementsReport(const ListChoice& choice, const std::vector<std::string>& rows,
                            const std::string& today);

}  // namespace contavia

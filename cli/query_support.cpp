#include "cli/query_support.h"

#include <algorithm>

#include "common/text.h"

namespace contavia::cli {
namespace {

// The choice of a filter: " Tutte" when the option is absent; otherwise one of `items`.
std::string choice(const Arguments& args, const std::string& option,
                   const std::vector<std::string>& items) {
  const auto given = args.option(option);
  if (!given || trim(*given) == trim(kEverything)) {
    return kEverything;
  }
  if (std::find(items.begin(), items.end(), trim(*given)) == items.end()) {
    throw UsageError("--" + option + " sconosciuto: \"" + *given + "\"");
  }
  return trim(*given);
}

}  // namespace

QueryFilter queryFilter(Context& c, const Arguments& args) {
  QueryFilter filter;
  const auto from = args.dateOption("dal");
  const auto to = args.dateOption("al");
  if (!from || !to) {
    throw UsageError("servono --dal e --al (GG/MM/AAAA)");
  }
  filter.from = *from;
  filter.to = *to;
  const QueryChoices choices = queryChoices(c.session);
  filter.group = choice(args, "gruppo", choices.groups);
  filter.category = choice(args, "categoria", choices.categories);
  filter.causale = choice(args, "causale", choices.causali);
  return filter;
}

std::string summaryCategory(const Summaries& summaries, const Arguments& args) {
  return choice(args, "categoria", summaries.categoryItems());
}

SummaryKind summaryKind(const std::string& word) {
  if (word == "conti") {
    return SummaryKind::Accounts;
  }
  if (word == "categorie") {
    return SummaryKind::Categories;
  }
  if (word == "gruppi") {
    return SummaryKind::Groups;
  }
  throw UsageError("riepilogo sconosciuto: \"" + word + "\" (conti, categorie o gruppi)");
}

}  // namespace contavia::cli

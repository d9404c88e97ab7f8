#include "ledger/causale_index.h"

#include "common/text.h"

namespace contavia {

CausaleIndex::CausaleIndex(const std::vector<Causale>& causali) {
  byCode_.reserve(causali.size());
  for (const Causale& c : causali) {
    byCode_[trim(c.causaleCode)] = &c;
  }
}

const Causale* CausaleIndex::find(std::string_view code) const {
  const auto it = byCode_.find(trim(code));
  return it == byCode_.end() ? nullptr : it->second;
}

}  // namespace contavia

#pragma once
// The causale a movement names by its code. Codes are compared trimmed, and of two causali with
// the same code the later one in the table wins (the table does not forbid equal codes).

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "archive/records.h"

namespace contavia {

class CausaleIndex {
 public:
  // The index keeps pointers into `causali`, which must outlive it unchanged.
  explicit CausaleIndex(const std::vector<Causale>& causali);
  // The causale of `code` (trimmed here), or null when none has it.
  const Causale* find(std::string_view code) const;
  // Every code with its causale.
  const std::unordered_map<std::string, const Causale*>& byCode() const { return byCode_; }

 private:
  std::unordered_map<std::string, const Causale*> byCode_;
};

}  // namespace contavia

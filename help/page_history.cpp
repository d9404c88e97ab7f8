#include "help/page_history.h"

namespace contavia::help {

void PageHistory::visit(const HelpPage& page) {
  if (!pages_.empty()) {
    if (pages_[current_] == page) {
      return;
    }
    pages_.resize(current_ + 1);
  }
  pages_.push_back(page);
  current_ = pages_.size() - 1;
}

const HelpPage& PageHistory::back() {
  if (canGoBack()) {
    --current_;
  }
  return current();
}

const HelpPage& PageHistory::forward() {
  if (canGoForward()) {
    ++current_;
  }
  return current();
}

}  // namespace contavia::help

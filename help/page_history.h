#pragma once
// The pages visited in the guide, for Back and Forward, as a browser keeps them.

#include <cstddef>
#include <vector>

#include "help/help_topics.h"

namespace contavia::help {

class PageHistory {
 public:
  // A new page: the pages after the current one are forgotten. The same page twice in a row
  // counts once.
  void visit(const HelpPage& page);
  bool canGoBack() const { return current_ > 0; }
  bool canGoForward() const { return current_ + 1 < pages_.size(); }
  // The pages Back and Forward would show, without going there.
  const HelpPage& previous() const { return pages_.at(current_ - 1); }
  const HelpPage& next() const { return pages_.at(current_ + 1); }
  const HelpPage& back();
  const HelpPage& forward();
  bool empty() const { return pages_.empty(); }
  const HelpPage& current() const { return pages_.at(current_); }

 private:
  std::vector<HelpPage> pages_;
  std::size_t current_ = 0;
};

}  // namespace contavia::help

#pragma once
// A small, realistic sample archive for an empty DataDirectory: two groups, four categories,
// causali of both signs and four accounts with about a year of movements up to today.

#include <cstddef>

#include "archive/session.h"
#include "archive/write_journal.h"

namespace contavia::cli {

struct SampleSummary {
  std::size_t groups = 0;
  std::size_t categories = 0;
  std::size_t causali = 0;
  std::size_t accounts = 0;
  std::size_t movements = 0;
};

// True when the DataDirectory holds no group, category, causale or account, and no file of the
// sample's accounts. The session must be started.
bool canHoldSample(Session& session);

// Writes the sample through the archive's own functions: the master tables all or nothing, then
// the movements of each account. The outcome names the first write that failed.
WriteOutcome writeSampleArchive(Session& session, SampleSummary& summary);

}  // namespace contavia::cli

#include "masterdata/causale_usage.h"

#include <algorithm>
#include <unordered_map>

#include "archive/record_codec.h"
#include "common/text.h"

namespace contavia {
namespace {

// The folder's files by their name in upper case: listed once, not once per account.
class FolderIndex {
 public:
  explicit FolderIndex(const DataDirectory& dir) : dir_(&dir) {
    for (const std::string& name : dir.fileNames()) {
      byUpper_.emplace(foldCase(name), name);
    }
  }
  // The full path of an existing file, empty when there is none.
  std::string path(const std::string& name) const {
    const auto it = byUpper_.find(foldCase(name));
    return it == byUpper_.end() ? std::string() : dir_->folder() + it->second;
  }

 private:
  const DataDirectory* dir_;
  std::unordered_map<std::string, std::string> byUpper_;
};

// `size` bytes at `offset` of an existing file, zeros past its end; nothing is created.
std::vector<std::uint8_t> readBytes(FileLayer& files, const std::string& path, std::uint64_t offset,
                                    std::size_t size) {
  std::vector<std::uint8_t> bytes;
  if (!path.empty()) {
    files.read(path, offset, size, bytes, false);
  }
  bytes.resize(size, 0);
  return bytes;
}

}  // namespace

std::int64_t countCausaleUses(const DataDirectory& dir, const std::vector<Account>& accounts,
                              const MovementRecords& workingMovements,
                              std::string_view causaleCode) {
  const std::string wanted = trim(causaleCode);
  const bool emptySlotMatches = wanted.empty();
  // matches[j - 1]: in-memory slot j holds a movement with the causale.
  std::vector<std::uint8_t> matches;
  matches.reserve(workingMovements.size());
  std::string scratch;
  for (const MovementView m : workingMovements) {
    matches.push_back(trim(m.causaleCode(scratch)) == wanted ? 1 : 0);
  }
  const FolderIndex folder(dir);
  std::int64_t count = 0;
  for (const Account& account : accounts) {
    const std::string code = trim(account.accountCode);
    if (!isSafeFileName(code)) {
      continue;
    }
    const std::vector<std::uint8_t> countBytes =
        readBytes(dir.files(), folder.path(code + filename::kMovementCount), 0, 2);
    const std::int16_t n = decodeRecord<CountRecord>(countBytes.data()).value;
    if (n < 1) {
      continue;
    }
    const auto slots = static_cast<std::size_t>(n);
    const Movement last = decodeRecord<Movement>(
        readBytes(dir.files(), folder.path(code + filename::kMovements),
                  (slots - 1) * static_cast<std::uint64_t>(Movement::kLength), Movement::kLength)
            .data());
    if (matches.size() < slots) {
      matches.resize(slots, emptySlotMatches ? 1 : 0);
    }
    matches[slots - 1] = trim(last.causaleCode) == wanted ? 1 : 0;
    count += std::count(matches.begin(), matches.begin() + static_cast<std::ptrdiff_t>(slots), 1);
  }
  return count;
}

}  // namespace contavia

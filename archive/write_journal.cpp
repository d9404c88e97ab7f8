#include "archive/write_journal.h"

#include <algorithm>
#include <cstring>

namespace contavia {
namespace {

constexpr char kMagic[8] = {'C', 'N', 'T', 'V', 'J', 'R', 'N', '1'};

// Little-endian pieces of the journal file.
class Writer {
 public:
  void u8(std::uint8_t v) { out_.push_back(v); }
  void u32(std::uint32_t v) { fixed(v, 4); }
  void u64(std::uint64_t v) { fixed(v, 8); }
  void text(const std::string& s) {
    u32(static_cast<std::uint32_t>(s.size()));
    out_.insert(out_.end(), s.begin(), s.end());
  }
  void bytes(const std::vector<std::uint8_t>& b) {
    u64(b.size());
    out_.insert(out_.end(), b.begin(), b.end());
  }
  std::vector<std::uint8_t>& out() { return out_; }

 private:
  void fixed(std::uint64_t v, int n) {
    for (int i = 0; i < n; ++i) {
      out_.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
    }
  }
  std::vector<std::uint8_t> out_;
};

class Reader {
 public:
  Reader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  bool u8(std::uint8_t& v) {
    std::uint64_t w = 0;
    return fixed(w, 1) && (v = static_cast<std::uint8_t>(w), true);
  }
  bool u32(std::uint32_t& v) {
    std::uint64_t w = 0;
    return fixed(w, 4) && (v = static_cast<std::uint32_t>(w), true);
  }
  bool u64(std::uint64_t& v) { return fixed(v, 8); }
  bool text(std::string& s) {
    std::uint32_t n = 0;
    if (!u32(n) || n > size_ - at_) {
      return false;
    }
    s.assign(reinterpret_cast<const char*>(data_ + at_), n);
    at_ += n;
    return true;
  }
  bool bytes(std::vector<std::uint8_t>& b) {
    std::uint64_t n = 0;
    if (!u64(n) || n > size_ - at_) {
      return false;
    }
    b.assign(data_ + at_, data_ + at_ + n);
    at_ += static_cast<std::size_t>(n);
    return true;
  }
  bool atEnd() const { return at_ == size_; }

 private:
  bool fixed(std::uint64_t& v, int n) {
    if (size_ - at_ < static_cast<std::size_t>(n)) {
      return false;
    }
    v = 0;
    for (int i = 0; i < n; ++i) {
      v |= static_cast<std::uint64_t>(data_[at_ + static_cast<std::size_t>(i)]) << (8 * i);
    }
    at_ += static_cast<std::size_t>(n);
    return true;
  }
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t at_ = 0;
};

// FNV-1a: tells an entry written whole from one cut short.
std::uint32_t checksum(const std::uint8_t* data, std::size_t size) {
  std::uint32_t h = 2166136261U;
  for (std::size_t i = 0; i < size; ++i) {
    h = (h ^ data[i]) * 16777619U;
  }
  return h;
}

bool decodeEntry(const std::uint8_t* data, std::size_t size, JournalEntry& entry) {
  Reader in(data, size);
  std::uint8_t kind = 0;
  if (!in.u8(kind) || !in.text(entry.name)) {
    return false;
  }
  // Only files of the folder itself: a damaged journal never reaches outside it.
  if (!isSafeFileName(entry.name)) {
    return false;
  }
  if (kind == JournalEntry::Remove) {
    entry.kind = JournalEntry::Remove;
    return in.text(entry.parkedName) && in.atEnd() && isSafeFileName(entry.parkedName);
  }
  std::uint8_t existed = 0;
  entry.kind = JournalEntry::Write;
  const bool read = kind == JournalEntry::Write && in.u8(existed) && in.u64(entry.previousSize) &&
                    in.u64(entry.offset) && in.bytes(entry.previous) && in.atEnd();
  entry.existed = existed != 0;
  return read;
}

// The name of a file of the folder, or empty when `path` is not one.
std::string nameInFolder(const DataDirectory& dir, const std::string& path) {
  const std::string& folder = dir.folder();
  if (path.size() <= folder.size() || !path.starts_with(folder)) {
    return {};
  }
  std::string name = path.substr(folder.size());
  return isSafeFileName(name) ? name : std::string();
}

// Takes one change back; errors are skipped (each step puts back what it can).
void undo(const DataDirectory& dir, const JournalEntry& e) {
  FileLayer& files = dir.files();
  const std::string path = dir.folder() + e.name;
  if (e.kind == JournalEntry::Remove) {
    if (files.exists(dir.folder() + e.parkedName)) {
      files.rename(dir.folder() + e.parkedName, path);
    }
    return;
  }
  if (!e.existed) {
    files.remove(path);
    return;
  }
  if (!e.previous.empty()) {
    files.write(path, e.offset, e.previous.data(), e.previous.size());
  }
  std::uint64_t size = 0;
  if (files.size(path, size) == diskerr::kOk && size > e.previousSize) {
    files.truncate(path, e.previousSize);
  }
}

void undoAll(const DataDirectory& dir, const std::vector<JournalEntry>& entries) {
  for (auto it = entries.rbegin(); it != entries.rend(); ++it) {
    undo(dir, *it);
  }
}

bool isParkedName(const std::string& name) {
  return name.starts_with(std::string(filename::kJournal) + ".");
}

}  // namespace

std::vector<std::uint8_t> journalHeader() { return {std::begin(kMagic), std::end(kMagic)}; }

std::vector<std::uint8_t> encodeJournalEntry(const JournalEntry& entry) {
  Writer payload;
  payload.u8(entry.kind);
  payload.text(entry.name);
  if (entry.kind == JournalEntry::Remove) {
    payload.text(entry.parkedName);
  } else {
    payload.u8(entry.existed ? 1 : 0);
    payload.u64(entry.previousSize);
    payload.u64(entry.offset);
    payload.bytes(entry.previous);
  }
  const std::vector<std::uint8_t>& p = payload.out();
  Writer framed;
  framed.u32(static_cast<std::uint32_t>(p.size()));
  framed.out().insert(framed.out().end(), p.begin(), p.end());
  framed.u32(checksum(p.data(), p.size()));
  return std::move(framed.out());
}

std::vector<JournalEntry> decodeJournal(const std::vector<std::uint8_t>& bytes) {
  std::vector<JournalEntry> entries;
  if (bytes.size() < sizeof kMagic || std::memcmp(bytes.data(), kMagic, sizeof kMagic) != 0) {
    return entries;
  }
  std::size_t at = sizeof kMagic;
  while (bytes.size() - at >= 8) {
    std::uint32_t length = 0;
    Reader head(bytes.data() + at, 4);
    head.u32(length);
    if (length > bytes.size() - at - 8) {
      break;
    }
    const std::uint8_t* payload = bytes.data() + at + 4;
    std::uint32_t stored = 0;
    Reader tail(payload + length, 4);
    tail.u32(stored);
    JournalEntry entry;
    if (stored != checksum(payload, length) || !decodeEntry(payload, length, entry)) {
      break;
    }
    entries.push_back(std::move(entry));
    at += 8 + length;
  }
  return entries;
}

WriteJournal::~WriteJournal() {
  if (!entries_.empty()) {
    finish();
  }
}

int WriteJournal::fail(int error, const std::string& name, bool removing) {
  outcome_ = {error, name, removing};
  return error;
}

int WriteJournal::note(JournalEntry entry) {
  FileLayer& files = dir_->files();
  const std::string journal = dir_->folder() + filename::kJournal;
  std::vector<std::uint8_t> bytes;
  if (entries_.empty()) {
    // Another operation's journal is never written over: it is still under way, or a stop in
    // the middle of it has not been taken back yet.
    if (files.exists(journal)) {
      return fail(diskerr::kFileAlreadyOpen, filename::kJournal);
    }
    bytes = journalHeader();
    journalSize_ = 0;
  }
  const std::vector<std::uint8_t> framed = encodeJournalEntry(entry);
  bytes.insert(bytes.end(), framed.begin(), framed.end());
  int rc = files.write(journal, journalSize_, bytes.data(), bytes.size());
  if (rc == diskerr::kOk) {
    rc = files.sync(journal);
  }
  if (rc == diskerr::kOk && entries_.empty()) {
    rc = files.sync(dir_->folder());  // the journal's own name is on the disk too
  }
  if (rc != diskerr::kOk) {
    if (entries_.empty()) {
      files.remove(journal);  // ours, and nothing was changed yet: a retry starts clean
    }
    return fail(rc, filename::kJournal);
  }
  journalSize_ += bytes.size();
  entries_.push_back(std::move(entry));
  return diskerr::kOk;
}

int WriteJournal::write(const std::string& path, std::uint64_t offset,
                        const std::vector<std::uint8_t>& data) {
  if (failed()) {
    return outcome_.error;
  }
  if (data.empty()) {
    return diskerr::kOk;  // nothing to write: no file is created either
  }
  const std::string name = nameInFolder(*dir_, path);
  if (name.empty()) {
    return fail(diskerr::kBadFileName, path.substr(path.find_last_of('/') + 1));
  }
  FileLayer& files = dir_->files();
  JournalEntry entry{.kind = JournalEntry::Write, .name = name, .offset = offset};
  entry.existed = files.exists(path);
  if (entry.existed) {
    if (const int rc = files.size(path, entry.previousSize); rc != diskerr::kOk) {
      return fail(rc, name);
    }
    if (const int rc = files.read(path, offset, data.size(), entry.previous, false);
        rc != diskerr::kOk) {
      return fail(rc, name);
    }
  }
  if (const int rc = note(std::move(entry)); rc != diskerr::kOk) {
    return rc;
  }
  if (std::find(written_.begin(), written_.end(), path) == written_.end()) {
    written_.push_back(path);
  }
  if (const int rc = files.write(path, offset, data.data(), data.size()); rc != diskerr::kOk) {
    return fail(rc, name);
  }
  return diskerr::kOk;
}

int WriteJournal::remove(const std::string& path) {
  if (failed()) {
    return outcome_.error;
  }
  const std::string name = nameInFolder(*dir_, path);
  if (name.empty()) {
    return fail(diskerr::kBadFileName, path.substr(path.find_last_of('/') + 1));
  }
  FileLayer& files = dir_->files();
  if (!files.exists(path)) {
    return diskerr::kOk;
  }
  std::string parked;
  for (std::size_t n = entries_.size() + 1; parked.empty() || files.exists(dir_->folder() + parked);
       ++n) {
    parked = std::string(filename::kJournal) + "." + std::to_string(n);
  }
  if (const int rc = note({.kind = JournalEntry::Remove, .name = name, .parkedName = parked});
      rc != diskerr::kOk) {
    return rc;
  }
  if (const int rc = files.rename(path, dir_->folder() + parked); rc != diskerr::kOk) {
    return fail(rc, name, /*removing=*/true);
  }
  return diskerr::kOk;
}

int WriteJournal::copy(const std::string& from, const std::string& to) {
  if (remove(to) != diskerr::kOk) {
    return outcome_.error;
  }
  const std::string name = nameInFolder(*dir_, to);
  if (const int rc = note({.kind = JournalEntry::Write, .name = name}); rc != diskerr::kOk) {
    return rc;
  }
  written_.push_back(to);
  if (const int rc = dir_->files().copy(from, to); rc != diskerr::kOk) {
    return fail(rc, name);
  }
  return diskerr::kOk;
}

WriteOutcome WriteJournal::finish() {
  WriteOutcome outcome = outcome_;
  if (failed()) {
    rollback();
    return outcome;
  }
  FileLayer& files = dir_->files();
  for (const std::string& path : written_) {
    if (const int rc = files.sync(path); rc != diskerr::kOk && outcome.ok()) {
      outcome = {rc, path.substr(path.find_last_of('/') + 1)};
    }
  }
  if (!outcome.ok()) {
    rollback();
    return outcome;
  }
  close();
  return outcome;
}

void WriteJournal::close() {
  if (entries_.empty()) {
    return;
  }
  // Removing the journal ends the operation; the files it deleted go only after that.
  FileLayer& files = dir_->files();
  files.remove(dir_->folder() + filename::kJournal);
  files.sync(dir_->folder());
  for (const JournalEntry& e : entries_) {
    if (e.kind == JournalEntry::Remove) {
      files.remove(dir_->folder() + e.parkedName);
    }
  }
  entries_.clear();
  written_.clear();
}

void WriteJournal::rollback() {
  undoAll(*dir_, entries_);
  // Every file is as it was: nothing is left to delete.
  std::vector<JournalEntry> none;
  std::swap(entries_, none);
  if (!none.empty()) {
    FileLayer& files = dir_->files();
    files.remove(dir_->folder() + filename::kJournal);
    files.sync(dir_->folder());
  }
  written_.clear();
  outcome_ = {};
}

std::string takeBackInterruptedOperation(const DataDirectory& dir) {
  FileLayer& files = dir.files();
  const std::string journal = dir.folder() + filename::kJournal;
  std::vector<JournalEntry> entries;
  if (files.exists(journal)) {
    std::uint64_t size = 0;
    std::vector<std::uint8_t> bytes;
    if (files.size(journal, size) == diskerr::kOk &&
        files.read(journal, 0, static_cast<std::size_t>(size), bytes, false) == diskerr::kOk) {
      entries = decodeJournal(bytes);
    }
    undoAll(dir, entries);
    files.remove(journal);
    files.sync(dir.folder());
  }
  // Files that an ended operation deleted and that were left waiting by a stop just after it.
  for (const std::string& name : dir.fileNames()) {
    if (isParkedName(name)) {
      files.remove(dir.folder() + name);
    }
  }
  if (entries.empty()) {
    return {};
  }
  return "Un'operazione era stata interrotta a metà (il programma si è chiuso mentre scriveva): "
         "è stata annullata e i file dell'archivio sono tornati com'erano prima di essa.";
}

}  // namespace contavia

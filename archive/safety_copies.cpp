#include "archive/safety_copies.h"

#include <algorithm>
#include <cstdio>

namespace contavia {
namespace {

bool allDigits(std::string_view s) {
  return !s.empty() && std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// "AAAAMMGG-HHMMSS-operazione", maybe "-N" after it when two copies fall in one second, maybe
// ".tmp" while it is written.
bool isSafetyCopyName(const std::string& name) {
  if (name.size() < 17 || !allDigits(std::string_view(name).substr(0, 8)) || name[8] != '-' ||
      !allDigits(std::string_view(name).substr(9, 6)) || name[15] != '-') {
    return false;
  }
  return std::all_of(name.begin() + 16, name.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.';
  });
}

std::string copiesFolder(const DataDirectory& dir) {
  return dir.folder() + kSafetyCopiesFolder + "/";
}

// Removes a copy's files, then the copy.
void removeCopy(FileLayer& files, const std::string& folder) {
  std::vector<std::string> names;
  files.list(folder, names);
  const std::string prefix = folder + "/";
  for (const std::string& name : names) {
    files.remove(prefix + name);
  }
  files.removeDirectory(folder);
}

}  // namespace

std::vector<std::string> safetyCopies(const DataDirectory& dir) {
  std::vector<std::string> names;
  dir.files().listFolders(copiesFolder(dir), names);
  std::erase_if(names,
                [](const std::string& n) { return !isSafetyCopyName(n) || n.ends_with(".tmp"); });
  std::sort(names.begin(), names.end());
  return names;
}

WriteOutcome makeSafetyCopy(const DataDirectory& dir, const Clock& clock,
                            const std::string& operation, const std::vector<std::string>& names) {
  FileLayer& files = dir.files();
  const std::string copies = copiesFolder(dir);
  if (!files.isDirectory(copies)) {
    if (const int rc = files.makeDirectory(dir.folder() + kSafetyCopiesFolder); rc != 0) {
      return {rc, kSafetyCopiesFolder};
    }
  }
  const CalendarDate d = clock.today();
  char date[16];
  std::snprintf(date, sizeof date, "%04d%02d%02d", d.year, d.month, d.day);
  std::string name = std::string(date) + "-" + clock.timeText() + "-" + operation;
  for (int n = 2; files.exists(copies + name) || files.exists(copies + name + ".tmp"); ++n) {
    name = std::string(date) + "-" + clock.timeText() + "-" + operation + "-" + std::to_string(n);
  }
  const std::string partial = copies + name + ".tmp";
  if (const int rc = files.makeDirectory(partial); rc != 0) {
    return {rc, name};
  }
  for (const std::string& file : names) {
    const std::string from = dir.path(file);
    if (from.empty() || !files.exists(from)) {
      continue;
    }
    const std::string copy = partial + "/" + from.substr(dir.folder().size());  // as spelled
    if (const int rc = files.copy(from, copy); rc != diskerr::kOk) {
      removeCopy(files, partial);
      return {rc, file};
    }
    files.sync(copy);
  }
  if (const int rc = files.rename(partial, copies + name); rc != diskerr::kOk) {
    removeCopy(files, partial);
    return {rc, name};
  }
  files.sync(copies);
  // The oldest copies go, and what a stop left half written.
  std::vector<std::string> all;
  files.listFolders(copies, all);
  std::vector<std::string> kept = safetyCopies(dir);
  for (const std::string& folder : all) {
    if (isSafetyCopyName(folder) && folder.ends_with(".tmp")) {
      removeCopy(files, copies + folder);
    }
  }
  for (std::size_t i = 0; i + kSafetyCopiesKept < kept.size(); ++i) {
    removeCopy(files, copies + kept[i]);
  }
  return {};
}

}  // namespace contavia

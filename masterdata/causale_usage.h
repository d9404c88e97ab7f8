#pragma once
// The check that refuses to delete a causale still carried by movements.
//
// The count is the one the causali window has always given. For each account in table order,
// with n its movement count (from its ".MOR"), in-memory movement slot n is replaced by the
// account's last movement (record n of its ".MOC"), and slots 1..n are compared with the
// causale; the slots start as the working account's movements in memory, and a replacement stays
// for the accounts scanned after it. Slot j is compared, record n is read: a movement of an
// account counts only when it is its last one or when the slot of the same number holds a
// matching movement (of the working account, or the last movement of an earlier account).
//
// Each account costs two small reads, whatever its number of movements; no file is created or
// written, and the working account (its code and its movements) is left as it was.

#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/data_directory.h"
#include "archive/movement_records.h"
#include "archive/records.h"

namespace contavia {

std::int64_t countCausaleUses(const DataDirectory& dir, const std::vector<Account>& accounts,
                              const MovementRecords& workingMovements,
                              std::string_view causaleCode);

}  // namespace contavia

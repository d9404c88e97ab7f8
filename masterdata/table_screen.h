#pragma once
// The screen pattern over one master table, written once for the four tables. Each table's
// screen fills in the hooks: its rows, how a row names a record, its fields, its checks and
// messages, and where a delete writes the compacted table.
//
// Save: the table's checks; an add past the table's capacity stops with a message; then the
// record is written at the selected position (change) or appended with its count (add).
// Delete: the table's reference check, the question, then the kept records renumbered 1..n and
// written from record 1 with the lowered count (the record past the new count stays in the
// file), and the table read back. Every write of an operation goes or none does.

#include <string>
#include <string_view>
#include <vector>

#include "archive/disk_errors.h"
#include "archive/record_codec.h"
#include "archive/session.h"
#include "archive/tables.h"
#include "archive/write_journal.h"
#include "common/prompter.h"
#include "masterdata/master_screen.h"

namespace contavia {

// Reads a table from its files; damage found is shown.
template <class Record>
LoadedTable<Record> readTable(Session& session, const TableFiles& files) {
  LoadedTable<Record> loaded = loadTable<Record>(session.dir(), files);
  session.showProblem(loaded.damage.problem);
  return loaded;
}

template <class Record>
class TableScreen : public MasterScreen {
 public:
  const std::vector<Record>& table() const { return table_; }

  std::size_t rowWidth() const override { return setup_.rowWidth; }
  std::string heading() const override { return setup_.heading; }

  std::vector<std::string> rows() const override {
    std::vector<std::string> out;
    out.reserve(table_.size());
    for (const Record& r : table_) {
      out.push_back(row(r));
    }
    return out;
  }

  // The selected number becomes the first record, in table order, that the row names.
  void chooseRow(std::size_t index) override {
    if (index >= table_.size()) {
      return;
    }
    const std::string chosen = row(table_[index]);
    for (std::size_t i = 0; i < table_.size(); ++i) {
      if (rowNames(table_[i], chosen)) {
        select(i + 1);
        show(table_[i]);
        return;
      }
    }
    select(0);
  }

  bool save() override {
    const bool changing = selected() > 0 && selected() <= table_.size();
    if (refusedAsDamaged() || !accepts(changing)) {
      return false;
    }
    if (!changing && table_.size() >= Record::kCapacity) {
      session().prompter().show(errorBox(tableFullText(Record::kCapacity, setup_.what)));
      return false;
    }
    const std::size_t number = changing ? selected() : table_.size() + 1;
    Record record = changing ? table_[number - 1] : Record{};
    fill(record);
    record.recordNumber = static_cast<std::int16_t>(number);
    record = decodeRecord<Record>(encodeRecord(record).data());  // as it stands in the file
    WriteJournal journal(session().dir());
    journal.record(session().dir().path(setup_.files.table), number, record);
    if (!changing) {
      journal.count(session().dir().path(setup_.files.count), static_cast<std::int16_t>(number));
    }
    if (!written(session().prompter(), journal.finish())) {
      return false;
    }
    if (changing) {
      table_[number - 1] = std::move(record);
    } else {
      table_.push_back(std::move(record));
    }
    publish();
    if (!changing || !setup_.keepsChangedRecord) {
      clear();
    }
    return true;
  }

  bool remove() override {
    const std::size_t number = selected();
    if (number == 0 || number > table_.size() || refusedAsDamaged()) {
      return false;
    }
    const Record target = table_[number - 1];
    if (!mayRemove(target) || !confirm(session().prompter(), removeQuestion()) ||
        !mayRemoveConfirmed(target)) {
      return false;
    }
    std::vector<Record> kept;
    kept.reserve(table_.size() - 1);
    for (std::size_t i = 0; i < table_.size(); ++i) {
      if (i != number - 1) {
        kept.push_back(table_[i]);
        kept.back().recordNumber = static_cast<std::int16_t>(kept.size());
      }
    }
    WriteJournal journal(session().dir());
    journal.records(session().dir().path(setup_.afterDelete.table), 1, kept);
    journal.count(session().dir().path(setup_.afterDelete.count),
                  static_cast<std::int16_t>(kept.size()));
    removing(target, journal);
    if (!written(session().prompter(), journal.finish())) {
      return false;
    }
    readFrom(setup_.afterDelete);
    clear();
    return true;
  }

 protected:
  struct Setup {
    TableFiles files;         // where the table lives
    TableFiles afterDelete;   // where a delete writes the compacted table and reads it back
    const char* what;         // the records, as the "table full" message names them
    bool keepsChangedRecord;  // after a change the fields and the selection stay
    std::size_t rowWidth;     // characters of a list row
    std::string heading;      // the column heading over the list
  };

  TableScreen(Session& session, std::vector<FieldDefinition> specs, Setup setup)
      : MasterScreen(session, std::move(specs)), setup_(setup) {}

  // Opening the window: the table is read from its files.
  void open() { readFrom(setup_.files); }

  // The list row of a record.
  virtual std::string row(const Record& r) const = 0;
  // Whether a chosen row names the record.
  virtual bool rowNames(const Record& r, std::string_view chosen) const = 0;
  // Fills the fields from a chosen record.
  virtual void show(const Record& r) = 0;
  // Sets a record's fields from the screen (RecordNumber is set by the pattern).
  virtual void fill(Record& r) const = 0;
  // The checks before a save; each refusal shows its message and returns false.
  virtual bool accepts(bool changing) = 0;
  // The reference check before the question; a refusal shows its message.
  virtual bool mayRemove(const Record& r) = 0;
  virtual Message removeQuestion() const = 0;
  // A check after the user confirmed.
  virtual bool mayRemoveConfirmed(const Record&) { return true; }
  // More changes of a delete, in the same operation as the compacted table.
  virtual void removing(const Record&, WriteJournal&) {}
  // Hands the table to the rest of the program.
  virtual void publish() = 0;

 private:
  void readFrom(const TableFiles& files) {
    LoadedTable<Record> loaded = readTable<Record>(session(), files);
    table_ = std::move(loaded.records);
    damagedFile_ = std::move(loaded.damage.damagedFile);
    publish();
  }

  // A damaged table is not written until it is repaired.
  bool refusedAsDamaged() {
    return !damagedFile_.empty() &&
           !written(session().prompter(), {WriteOutcome::kDamaged, damagedFile_});
  }

  Setup setup_;
  std::vector<Record> table_;
  std::string damagedFile_;
};

}  // namespace contavia

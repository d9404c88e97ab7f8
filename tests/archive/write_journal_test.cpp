// The journal on disk: an operation stopped in the middle is taken back when the folder is
// opened, and said so; a journal cut short by the stop takes back only what it describes whole.

#include "archive/write_journal.h"

#include <filesystem>

#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

class WriteJournalTest : public test::ArchiveTest {};

TEST_F(WriteJournalTest, AnInterruptedOperationIsTakenBackAtTheNextStart) {
  folder.write("A.dat", {1, 2, 3});
  folder.write("B.dat", {9});
  // The journal an operation left when it was stopped after changing A, creating N and moving B
  // aside.
  const std::vector<JournalEntry> entries = {
      {.kind = JournalEntry::Write,
       .name = "A.dat",
       .existed = true,
       .previousSize = 3,
       .offset = 1,
       .previous = {2, 3}},
      {.kind = JournalEntry::Write, .name = "N.dat"},
      {.kind = JournalEntry::Remove, .name = "B.dat", .parkedName = "contavia.journal.3"}};
  Bytes journal = journalHeader();
  for (const JournalEntry& e : entries) {
    const Bytes framed = encodeJournalEntry(e);
    journal.insert(journal.end(), framed.begin(), framed.end());
  }
  EXPECT_EQ(decodeJournal(journal), entries);
  folder.write("contavia.journal", journal);
  folder.write("A.dat", {1, 7, 7, 7, 7});
  folder.write("N.dat", {5});
  std::filesystem::rename(folder.file("B.dat"), folder.file("contavia.journal.3"));

  const Session session = startedSession();
  EXPECT_EQ(folder.names(),
            (std::vector<std::string>{"A.dat", "B.dat", "CONTI.CON", "Causali.CAP", "RecCausa.CAP",
                                      "RecConti.CON", "RecTipo.con", "Tipo.con", "records.rer"}));
  EXPECT_EQ(folder.read("A.dat"), (Bytes{1, 2, 3}));
  EXPECT_EQ(folder.read("B.dat"), (Bytes{9}));
  ASSERT_EQ(prompter.messages.size(), 1U);
  EXPECT_EQ(prompter.messages[0],
            plainBox("Contavia",
                     "Un'operazione era stata interrotta a metà (il programma si è chiuso mentre "
                     "scriveva): è stata annullata e i file dell'archivio sono tornati com'erano "
                     "prima di essa."));
}

TEST_F(WriteJournalTest, AJournalCutShortDescribesOnlyItsWholeEntries) {
  const JournalEntry first{.kind = JournalEntry::Write, .name = "A.dat", .previous = {1}};
  const JournalEntry second{.kind = JournalEntry::Remove, .name = "B.dat", .parkedName = "P"};
  Bytes journal = journalHeader();
  const Bytes one = encodeJournalEntry(first);
  journal.insert(journal.end(), one.begin(), one.end());
  const std::size_t afterFirst = journal.size();
  const Bytes two = encodeJournalEntry(second);
  journal.insert(journal.end(), two.begin(), two.end());
  for (std::size_t cut = 0; cut <= journal.size(); ++cut) {
    const std::vector<JournalEntry> read =
        decodeJournal(Bytes(journal.begin(), journal.begin() + static_cast<long>(cut)));
    const std::size_t whole = cut == journal.size() ? 2 : cut >= afterFirst ? 1 : 0;
    EXPECT_EQ(read.size(), whole) << cut;
  }
  Bytes damaged = journal;
  damaged[afterFirst + 6] ^= 0xFF;  // a byte of the second entry changed: its checksum fails
  EXPECT_EQ(decodeJournal(damaged), std::vector<JournalEntry>{first});
}

TEST_F(WriteJournalTest, ACopyIsTakenBackWithTheFileItReplaced) {
  folder.write("Bak.moc", {7, 7, 7, 7});
  folder.write("CC1.MOC", {1, 2});
  const auto before = test::snapshot(folder);
  for (const bool failLater : {true, false}) {
    SCOPED_TRACE(failLater);
    WriteJournal journal(dir);
    ASSERT_EQ(journal.copy(folder.file("CC1.MOC"), folder.file("Bak.moc")), diskerr::kOk);
    ASSERT_EQ(journal.copy(folder.file("CC1.MOC"), folder.file("Bak.MOR")), diskerr::kOk);
    EXPECT_EQ(folder.read("Bak.moc"), (Bytes{1, 2}));  // replaced whole, not written over
    if (failLater) {
      files.failWrite(1, diskerr::kDiskFull);
      journal.write(folder.file("CC1.MOC"), 0, {9});
      EXPECT_FALSE(journal.finish().ok());
      EXPECT_EQ(test::snapshot(folder), before);
    } else {
      EXPECT_TRUE(journal.finish().ok());
      EXPECT_EQ(folder.names(), (std::vector<std::string>{"Bak.MOR", "Bak.moc", "CC1.MOC"}));
    }
  }
}

TEST_F(WriteJournalTest, AJournalThatCouldNotStartLeavesNothingAndTheRetryWorks) {
  folder.write("A.dat", {1});
  files.failJournalWrite(diskerr::kDiskFull);
  WriteJournal first(dir);
  first.write(folder.file("A.dat"), 0, {2});
  EXPECT_EQ(first.finish().error, diskerr::kDiskFull);
  EXPECT_EQ(folder.names(), std::vector<std::string>{"A.dat"});
  WriteJournal retry(dir);
  retry.write(folder.file("A.dat"), 0, {2});
  EXPECT_TRUE(retry.finish().ok());
  EXPECT_EQ(folder.read("A.dat"), Bytes{2});
}

}  // namespace
}  // namespace contavia

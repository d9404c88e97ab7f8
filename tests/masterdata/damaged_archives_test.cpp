// The damaged archives of tests/data/damaged: each is read as far as it can be, its damage told in
// one "ERRORE" box, and every write to what is damaged refused with a message that names the file,
// leaving every file as it was; a table that is only cut short takes the next record after its
// count.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "archive/disk_errors.h"
#include "masterdata/accounts_screen.h"
#include "masterdata/causali_screen.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

struct DamagedArchive {
  std::string name;
  std::string opens;  // "conti", "causali" or an account code
  std::size_t read;
  std::string message;
  std::string refused;  // "-": writes go ahead
};

std::vector<DamagedArchive> damagedArchives() {
  std::ifstream in(std::string(CONTAVIA_TEST_DATA) + "/damaged/cases.tsv");
  std::vector<DamagedArchive> cases;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line.starts_with('#') || line.starts_with("case\t")) {
      continue;
    }
    std::istringstream columns(line);
    DamagedArchive c;
    std::string read;
    std::getline(columns, c.name, '\t');
    std::getline(columns, c.opens, '\t');
    std::getline(columns, read, '\t');
    std::getline(columns, c.message, '\t');
    std::getline(columns, c.refused, '\t');
    c.read = std::stoul(read);
    cases.push_back(c);
  }
  return cases;
}

// What a case opens, and the one write tried on it: a new account, causale or movement.
class Opened {
 public:
  Opened(Session& session, const DamagedArchive& c) : session_(&session), opens_(c.opens) {
    if (opens_ == "conti") {
      accounts_ = std::make_unique<AccountsScreen>(session);
    } else if (opens_ == "causali") {
      causali_ = std::make_unique<CausaliScreen>(session);
    } else {
      EXPECT_TRUE(session.openAccountByCode(opens_));
    }
  }
  std::size_t read() const {
    return accounts_  ? accounts_->table().size()
           : causali_ ? causali_->table().size()
                      : session_->account()->count();
  }
  bool write() {
    if (accounts_) {
      accounts_->setField(AccountsScreen::kCode, "NUOVO");
      accounts_->pickChoice("Banche");
      return accounts_->save();
    }
    if (causali_) {
      causali_->setField(CausaliScreen::kCode, "NUO");
      causali_->setField(CausaliScreen::kDescription, "Nuova");
      return causali_->save();
    }
    Movement m;
    m.operationDate = "21/11/2026";
    m.amount = 1;
    return written(session_->prompter(), session_->account()->appendMovement(m));
  }

 private:
  Session* session_;
  std::string opens_;
  std::unique_ptr<AccountsScreen> accounts_;
  std::unique_ptr<CausaliScreen> causali_;
};

class DamagedArchiveTest : public test::ArchiveTest {};

TEST_F(DamagedArchiveTest, EachIsReadAsFarAsItCanBeAndWrittenOnlyWhenNothingIsLost) {
  const std::vector<DamagedArchive> cases = damagedArchives();
  ASSERT_EQ(cases.size(), 11U);
  for (const DamagedArchive& c : cases) {
    SCOPED_TRACE(c.name);
    const test::TempFolder copy;
    std::filesystem::copy(std::string(CONTAVIA_TEST_DATA) + "/damaged/" + c.name, copy.path());
    prompter.clear();
    Session session(files, prompter, clock, copy.path());
    ASSERT_TRUE(session.start());
    Opened opened(session, c);
    // Told when the table is read (at start-up, and again by its window) or the account opened.
    EXPECT_FALSE(prompter.messages.empty());
    for (const Message& shown : prompter.messages) {
      EXPECT_EQ(shown, errorBox(c.message));
    }
    EXPECT_EQ(opened.read(), c.read);
    const auto before = test::snapshot(copy);
    prompter.clear();
    const bool saved = opened.write();
    if (c.refused == "-") {
      EXPECT_TRUE(saved);
      EXPECT_TRUE(prompter.messages.empty());
      continue;
    }
    EXPECT_FALSE(saved);
    EXPECT_EQ(prompter.messages,
              std::vector<Message>{errorBox("Il file " + c.refused +
                                            " è danneggiato: finché non viene riparato non si "
                                            "possono registrare modifiche.")});
    EXPECT_TRUE(test::snapshot(copy) == before) << "a file changed";
  }
}

TEST_F(DamagedArchiveTest, ACutTableTakesItsNextRecordAfterTheCount) {
  const test::TempFolder copy;
  std::filesystem::copy(std::string(CONTAVIA_TEST_DATA) + "/damaged/movimenti-tagliati",
                        copy.path());
  Session session(files, prompter, clock, copy.path());
  ASSERT_TRUE(session.start());
  ASSERT_TRUE(session.openAccountByCode("CC1"));
  Movement m;
  m.operationDate = "21/11/2026";
  ASSERT_TRUE(session.account()->appendMovement(m).ok());
  EXPECT_EQ(copy.read("CC1.MOR"), test::le16(6));
  EXPECT_EQ(copy.read("CC1.MOC").size(), 6 * Movement::kLength);
}

}  // namespace
}  // namespace contavia

// The causale-in-use count: compared with the scan written out literally (a movement array of
// 10000 slots, for each account and each j read record n into slot n, compare slot j), on
// archives built by hand, with and without a working account; the working account is left as it
// was, no file is created, and a count past 32767 is reported whole.

#include "masterdata/causale_usage.h"

#include <array>
#include <random>

#include "masterdata/causali_screen.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

// The causale code (bytes 12..16, blanks dropped) of record `n` of a movement file read by hand.
std::string causaleOfRecord(const Bytes& file, std::size_t n) {
  const std::size_t at = (n - 1) * 87 + 12;
  if (at + 5 > file.size()) {
    return "";
  }
  std::string code(file.begin() + static_cast<long>(at), file.begin() + static_cast<long>(at) + 5);
  code.erase(code.find_last_not_of(' ') + 1);
  return code;
}

// The scan as the causali window has always run it.
long literalScan(const test::TempFolder& folder, const std::vector<std::string>& accountCodes,
                 const std::vector<std::string>& workingCodes, const std::string& causale) {
  std::vector<std::string> slot(10001);
  for (std::size_t j = 0; j < workingCodes.size(); ++j) {
    slot[j + 1] = workingCodes[j];
  }
  long counter = 0;
  for (const std::string& code : accountCodes) {
    const Bytes mor = folder.read(code + ".MOR");
    const int n = mor.size() >= 2 ? static_cast<std::int16_t>(mor[0] | (mor[1] << 8)) : 0;
    const Bytes moc = folder.read(code + ".MOC");
    for (int j = 1; j <= n; ++j) {
      slot[static_cast<std::size_t>(n)] = causaleOfRecord(moc, static_cast<std::size_t>(n));
      if (slot[static_cast<std::size_t>(j)] == causale) {
        ++counter;
      }
    }
  }
  return counter;
}

class CausaleUsageTest : public test::ArchiveTest {
 protected:
  static std::vector<Account> accounts(const std::vector<std::string>& codes) {
    std::vector<Account> out(codes.size());
    for (std::size_t i = 0; i < codes.size(); ++i) {
      out[i].accountCode = codes[i];
    }
    return out;
  }

  static std::vector<Movement> movements(const std::vector<std::string>& causali) {
    std::vector<Movement> out(causali.size());
    for (std::size_t i = 0; i < causali.size(); ++i) {
      out[i].causaleCode = causali[i];
    }
    return out;
  }

  void writeAccount(const std::string& code, const std::vector<std::string>& causali) {
    std::vector<test::MovementSpec> specs(causali.size());
    for (std::size_t i = 0; i < causali.size(); ++i) {
      specs[i].causale = causali[i];
    }
    test::writeMovements(folder, code, specs);
  }
};

TEST_F(CausaleUsageTest, EachAccountReadsOnlyItsLastMovementAndTheSlotStaysForTheNext) {
  writeAccount("A", {"VER", "PRE", "VER"});  // slot 3 := VER, counts 1
  EXPECT_EQ(countCausaleUses(dir, accounts({"A"}), {}, "VER"), 1);
  EXPECT_EQ(countCausaleUses(dir, accounts({"A"}), {}, "PRE"), 0);
  writeAccount("P", {"PRE", "VER"});         // slot 2 := VER, counts 1
  writeAccount("B", {"BON", "BON", "PRE"});  // slot 3 := PRE; slot 2 still VER, counts 1
  EXPECT_EQ(countCausaleUses(dir, accounts({"P", "B"}), {}, "VER"), 2);
  EXPECT_EQ(countCausaleUses(dir, accounts({"B", "P"}), {}, "VER"), 1);
}

TEST_F(CausaleUsageTest, AgreesWithTheLiteralScanOnVariedArchives) {
  const std::array<std::string, 4> causali = {"VER", "PRE", "BON", "ver"};
  std::mt19937 random(20261121);
  const auto randomCausali = [&](std::uint32_t most) {
    std::vector<std::string> out(random() % most);
    for (std::string& c : out) {
      c = causali[random() % causali.size()];
    }
    return out;
  };
  for (int round = 0; round < 20; ++round) {
    std::vector<std::string> codes;
    const int accountCount = 1 + static_cast<int>(random() % 8);
    for (int a = 0; a < accountCount; ++a) {
      codes.push_back("R" + std::to_string(round) + "A" + std::to_string(a));
      writeAccount(codes.back(), randomCausali(12));
    }
    const std::vector<std::string> working = randomCausali(10);
    for (const std::string& causale : causali) {
      EXPECT_EQ(
          countCausaleUses(dir, accounts(codes), MovementRecords::of(movements(working)), causale),
          literalScan(folder, codes, working, causale))
          << "round " << round << " causale " << causale;
    }
  }
}

TEST_F(CausaleUsageTest, ACountFileWithoutMovementsFileReadsBlankAndNothingIsCreated) {
  folder.write("A.MOR", test::le16(2));
  const auto before = test::snapshot(folder);
  EXPECT_EQ(countCausaleUses(dir, accounts({"A", "NOFILES", "../x"}), {}, "VER"), 0);
  // Blank slots match a blank causale code.
  EXPECT_EQ(countCausaleUses(dir, accounts({"A"}), {}, "   "), 2);
  EXPECT_EQ(test::snapshot(folder), before);
}

TEST_F(CausaleUsageTest, TheRefusalLeavesTheWorkingAccountAsItWasAndCountsPast32767) {
  test::writeTable(folder, "Causali.CAP", "RecCausa.CAP",
                   {test::causaleRecord(1, "VER", "Versamento", "A")});
  std::vector<Bytes> accountRecords;
  for (int a = 1; a <= 4; ++a) {
    const std::string code = "X" + std::to_string(a);
    accountRecords.push_back(test::accountRecord({.number = a, .code = code}));
    folder.write(code + ".MOR", test::le16(10000));  // record 10000 missing: a blank slot
  }
  accountRecords.push_back(test::accountRecord({.number = 5, .code = "W"}));
  test::writeTable(folder, "CONTI.CON", "RecConti.CON", accountRecords);
  writeAccount("W", std::vector<std::string>(10000, "VER"));
  Session session = startedSession();
  session.openAccountByCode("W");
  const std::size_t countBefore = session.account()->count();
  CausaliScreen screen(session);
  prompter.clear();
  screen.chooseRow(0);
  EXPECT_FALSE(screen.remove());
  // Each X account: slots 1..9999 are W's, slot 10000 blank; then W: slot 10000 is VER again.
  ASSERT_EQ(prompter.messages.size(), 1U);
  EXPECT_EQ(prompter.messages[0].text,
            "La causale che vuoi eliminare è presente in " + std::to_string(4 * 9999 + 10000) +
                " movimenti, pertanto, non è possibile la sua eliminazione.");
  EXPECT_EQ(session.currentAccountCode(), "W");
  EXPECT_EQ(session.account()->count(), countBefore);
  EXPECT_EQ(session.account()->movement(countBefore).causaleCode, "VER  ");
}

}  // namespace
}  // namespace contavia

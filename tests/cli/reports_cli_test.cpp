// contavia-cli's reports end to end on the sample archive: `stampa` of each family to standard
// output (pages between form feeds), to a text file and to a PDF whose text keeps the columns;
// the movement list printed exactly as listed; `interroga` and `riepilogo`; their usage errors.

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

namespace contavia {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::string trimmed(const std::string& s) {
  const std::size_t first = s.find_first_not_of(' ');
  return first == std::string::npos ? "" : s.substr(first, s.find_last_not_of(' ') - first + 1);
}

class ReportsCliTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(cli({"esempio"}).exitCode, 0); }

  test::ProgramResult cli(std::vector<std::string> args) {
    args.insert(args.begin(), {"--dati", data.path(), "--oggi", "15/03/2025"});
    return test::runProgram(CONTAVIA_CLI, args);
  }

  test::TempFolder data;
};

TEST_F(ReportsCliTest, EveryReportPrintsItsPagesToStandardOutput) {
  struct Case {
    std::vector<std::string> args;
    std::string title;
    int pages;
  };
  const std::vector<Case> cases = {
      {{"causali"}, "Elenco Causali", 1},
      {{"conti"}, "Elenco Conti", 1},
      {{"categorie"}, "Elenco Categorie", 1},
      {{"gruppi"}, "Elenco gruppi", 1},
      {{"piano-dei-conti"}, "Piano dei conti", 1},
      {{"movimenti", "BANCA"}, "Elenco Movimenti", 2},
      {{"interroga", "--dal", "01/01/2024", "--al", "31/12/2025"}, "Elenco Movimenti", 4},
      {{"riepilogo-conti", "--categoria", "Conti correnti"}, "Riepilogo Conti", 1},
      {{"riepilogo-categorie"}, "Riepilogo per Categorie", 1},
      {{"riepilogo-gruppi"}, "Riepilogo per Gruppi", 1},
  };
  for (const Case& c : cases) {
    std::vector<std::string> args{"stampa"};
    args.insert(args.end(), c.args.begin(), c.args.end());
    const test::ProgramResult r = cli(args);
    SCOPED_TRACE(c.title);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const std::vector<std::string> lines = linesOf(r.out);
    ASSERT_GT(lines.size(), 3U);
    EXPECT_EQ(trimmed(lines[1]), c.title);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "\f"), c.pages - 1);
    EXPECT_NE(lines.back().find("Pagina " + std::to_string(c.pages) +
                                "                 .....fine stampa"),
              std::string::npos)
        << lines.back();
  }
}

TEST_F(ReportsCliTest, TheMovementListIsPrintedAsListedAndAPdfKeepsItsColumns) {
  const std::vector<std::string> args = {"BANCA", "--dal", "01/01/2025", "--al", "14/03/2025"};
  std::vector<std::string> list{"movimenti"};
  list.insert(list.end(), args.begin(), args.end());
  const std::vector<std::string> listed = linesOf(cli(list).out);
  std::vector<std::string> print{"stampa", "movimenti"};
  print.insert(print.end(), args.begin(), args.end());
  const std::vector<std::string> printed = linesOf(cli(print).out);
  const auto body = std::search(printed.begin(), printed.end(), listed.begin(), listed.end());
  EXPECT_NE(body, printed.end()) << "the listed lines are not printed one after the other";
  EXPECT_EQ(printed[4], "    dal 01/01/2025   al 14/03/2025        Causali selezionate: TUTTE");

  print.insert(print.end(), {"--stampa", data.file("movimenti.pdf")});
  ASSERT_EQ(cli(print).exitCode, 0);
  const test::ProgramResult text =
      test::runProgram("/usr/bin/pdftotext", {"-fixed", "5.85", data.file("movimenti.pdf"), "-"});
  ASSERT_EQ(text.exitCode, 0);
  // The text of the page holds every listed line with the blanks between its columns.
  std::vector<std::string> pdf;
  for (const std::string& line : linesOf(text.out)) {
    pdf.push_back(trimmed(line));
  }
  for (const std::string& line : listed) {
    EXPECT_NE(std::find(pdf.begin(), pdf.end(), trimmed(line)), pdf.end()) << line;
  }
  print.back() = data.file("movimenti.txt");
  ASSERT_EQ(cli(print).exitCode, 0);
  const test::Bytes file = data.read("movimenti.txt");
  EXPECT_EQ(std::string(file.begin(), file.end()),
            cli({"stampa", "movimenti", "BANCA", "--dal", "01/01/2025", "--al", "14/03/2025"}).out);
}

TEST_F(ReportsCliTest, QueryAndSummaries) {
  const std::vector<std::string> query =
      linesOf(cli({"interroga", "--dal", "14/03/2025", "--al", "14/03/2025"}).out);
  ASSERT_EQ(query.size(), 7U);
  EXPECT_EQ(query[0].substr(0, 22), "258777 14/03/2025 0070");
  EXPECT_EQ(query.back(), "999999  Nr. Movimenti: 2");
  const std::vector<std::string> groups = linesOf(cli({"riepilogo", "gruppi"}).out);
  EXPECT_EQ(groups.back(), "         Totali      10.586,33");
  const std::vector<std::string> accounts =
      linesOf(cli({"riepilogo", "conti", "--categoria", "Contanti"}).out);
  ASSERT_EQ(accounts.size(), 2U);
  EXPECT_EQ(accounts[0].substr(0, 5), "CASSA");
}

TEST_F(ReportsCliTest, UsageErrors) {
  for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
           {"interroga", "--dal", "01/01/2025"},
           {"interroga", "--dal", "01/01/2025", "--al", "31/02/2025"},
           {"interroga", "--dal", "01/01/2025", "--al", "01/02/2025", "--gruppo", "Nessuno"},
           {"riepilogo", "tutto"},
           {"stampa", "bilancio"},
           {"stampa", "causali", "troppo"}}) {
    const test::ProgramResult r = cli(args);
    EXPECT_EQ(r.exitCode, 2) << args[0] << " " << args.back();
    EXPECT_TRUE(r.err.starts_with("contavia-cli: ")) << r.err;
  }
  const test::ProgramResult unwritable =
      cli({"stampa", "causali", "--stampa", data.file("manca/elenco.pdf")});
  EXPECT_EQ(unwritable.exitCode, 1);
  EXPECT_TRUE(unwritable.err.starts_with("ERRORE: Impossibile scrivere il file "))
      << unwritable.err;
}

}  // namespace
}  // namespace contavia

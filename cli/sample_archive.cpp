#include "cli/sample_archive.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "archive/account_files.h"
#include "archive/open_account.h"
#include "archive/tables.h"
#include "common/dates.h"

namespace contavia::cli {
namespace {

struct SampleCausale {
  const char* code;
  const char* description;
  const char* sign;
};

constexpr SampleCausale kCausali[] = {
    {"STI", "Stipendio", "A"},
    {"AFF", "Affitto", "D"},
    {"UTE", "Utenze", "D"},
    {"SPE", "Spesa alimentare", "D"},
    {"PRE", "Prelievo contanti", "D"},
    {"VER", "Versamento contanti", "A"},
    {"RIC", "Ricarica carta", "A"},
    {"GIR", "Giroconto in uscita", "D"},
    {"COM", "Commissioni bancarie", "D"},
    {"INT", "Interessi attivi", "A"},
    {"ASS", "Assicurazioni", "D"},
    {"ACQ", "Acquisti vari", "D"},
    {"RIM", "Rimborsi ricevuti", "A"},
};

struct SampleGroup {
  const char* code;
  const char* name;
};

constexpr SampleGroup kGroups[] = {{"BAN", "Banche"}, {"LIQ", "Liquidità"}};

struct SampleCategory {
  const char* code;
  const char* name;
  const char* group;
};

constexpr SampleCategory kCategories[] = {
    {"CC", "Conti correnti", "Banche"},
    {"CP", "Conti postali", "Banche"},
    {"CPR", "Carte prepagate", "Banche"},
    {"CON", "Contanti", "Liquidità"},
};

// A movement that comes back: on `day` (the last day of a shorter month), every month, or only
// in `month` when it is not 0, or in the months where month % `every` == `offset`.
struct Recurring {
  int day;
  const char* causale;
  int cents;   // the amount in cents
  int spread;  // up to this many cents more, varying from month to month
  const char* document;
  const char* description;
  int month = 0;
  int every = 1;
  int offset = 0;
};

struct SampleAccount {
  const char* code;
  const char* name;
  const char* address;
  const char* postCode;
  const char* town;
  const char* province;
  const char* creditLine;
  const char* category;
  const char* group;
  std::vector<Recurring> movements;
};

const std::vector<SampleAccount>& sampleAccounts() {
  static const std::vector<SampleAccount> accounts = {
      {"BANCA",
       "Conto corrente Banca del Lario",
       "Via Garibaldi 12",
       "22100",
       "Como",
       "CO",
       "2500",
       "Conti correnti",
       "Banche",
       {{3, "AFF", 65000, 0, "", "Affitto via Roma 8"},
        {12, "UTE", 4500, 5000, "LUCE", "Luce Società Elettrica", 0, 2, 0},
        {12, "UTE", 3000, 9000, "GAS", "Bolletta gas Metano Città", 0, 2, 1},
        {14, "PRE", 30000, 0, "", "Prelievo bancomat"},
        {20, "GIR", 15000, 0, "", "Ricarica carta prepagata"},
        {27, "STI", 185000, 0, "", "Stipendio Alfa Servizi S.r.l."},
        {27, "STI", 185000, 0, "", "Tredicesima", 12},
        {31, "COM", 350, 0, "", "Canone mensile del conto"},
        {18, "ASS", 48000, 0, "POL123", "Assicurazione auto", 3}}},
      {"POSTA",
       "Conto BancoPosta",
       "Piazza della Repubblica 3",
       "20121",
       "Milano",
       "MI",
       "0",
       "Conti postali",
       "Banche",
       {{5, "UTE", 2990, 0, "TEL", "Telefono e internet"},
        {31, "INT", 410, 570, "", "Interessi del trimestre", 0, 3, 0},
        {10, "RIM", 32000, 0, "", "Rimborso tasse universitarie", 5},
        {15, "VER", 50000, 0, "", "Versamento in contanti", 1}}},
      {"CARTA",
       "Carta prepagata",
       "Corso Italia 45",
       "16129",
       "Genova",
       "GE",
       "0",
       "Carte prepagate",
       "Banche",
       {{8, "ACQ", 1299, 0, "", "Abbonamento musica e film"},
        {17, "ACQ", 2000, 4500, "", "Acquisti online"},
        {20, "RIC", 15000, 0, "", "Ricarica dal conto corrente"},
        {25, "ACQ", 5000, 2000, "", "Carburante"}}},
      {"CASSA",
       "Cassa contanti",
       "",
       "",
       "",
       "",
       "0",
       "Contanti",
       "Liquidità",
       {{2, "SPE", 2000, 4000, "", "Spesa al mercato"},
        {9, "SPE", 2000, 4000, "", "Supermercato"},
        {11, "ACQ", 300, 1200, "", "Caffè e giornali"},
        {14, "VER", 30000, 0, "", "Prelievo dal conto corrente"},
        {16, "SPE", 2000, 4000, "", "Spesa al mercato"},
        {21, "ACQ", 800, 2200, "", "Farmacia"},
        {23, "SPE", 2000, 4000, "", "Supermercato"}}},
  };
  return accounts;
}

int daysInMonth(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

const char* signOf(const std::string& causale) {
  for (const SampleCausale& c : kCausali) {
    if (causale == c.code) {
      return c.sign;
    }
  }
  return "D";
}

// The same amount for the same account, movement and month on every run.
double amountOf(const Recurring& r, std::size_t account, std::size_t index, int year, int month) {
  if (r.spread == 0) {
    return r.cents / 100.0;
  }
  std::uint32_t x = static_cast<std::uint32_t>((account * 7919 + index * 104729) ^
                                               static_cast<std::size_t>(year * 12 + month));
  x ^= x << 13;
  x ^= x >> 17;
  x ^= x << 5;
  x *= 2654435761U;
  return (r.cents + static_cast<int>(x % static_cast<std::uint32_t>(r.spread + 1))) / 100.0;
}

bool happens(const Recurring& r, int month) {
  if (r.month != 0) {
    return month == r.month;
  }
  return month % r.every == r.offset;
}

// The movements of the twelve months up to today's, in date order, today's future left out.
std::vector<Movement> movementsOf(const SampleAccount& account, std::size_t accountIndex,
                                  const CalendarDate& today) {
  std::vector<std::pair<std::int32_t, Movement>> dated;
  for (int back = 11; back >= 0; --back) {
    const int monthIndex = today.year * 12 + (today.month - 1) - back;
    const int year = monthIndex / 12;
    const int month = monthIndex % 12 + 1;
    for (std::size_t i = 0; i < account.movements.size(); ++i) {
      const Recurring& r = account.movements[i];
      const CalendarDate date{std::min(r.day, daysInMonth(year, month)), month, year};
      const std::string text = formatDateDmy(date);
      if (!happens(r, month) || dateKey(text) > dateKey(formatDateDmy(today))) {
        continue;
      }
      Movement m;
      m.operationDate = text;
      m.causaleCode = r.causale;
      m.amount = amountOf(r, accountIndex, i, year, month);
      m.documentNumber = r.document;
      m.description = r.description;
      m.sign = signOf(r.causale);
      m.closedFlag = "N";
      dated.emplace_back(dateKey(text), std::move(m));
    }
  }
  std::stable_sort(dated.begin(), dated.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<Movement> out;
  out.reserve(dated.size());
  for (auto& d : dated) {
    out.push_back(std::move(d.second));
  }
  return out;
}

template <class Record>
void writeTable(WriteJournal& journal, const DataDirectory& dir, const TableFiles& files,
                const std::vector<Record>& records) {
  journal.records(dir.path(files.table), 1, records);
  journal.count(dir.path(files.count), static_cast<std::int16_t>(records.size()));
}

WriteOutcome writeMasterTables(const DataDirectory& dir, SampleSummary& summary) {
  std::vector<Group> groups;
  for (const SampleGroup& g : kGroups) {
    groups.push_back(Group{static_cast<std::int16_t>(groups.size() + 1), g.code, g.name, " ", " "});
  }
  std::vector<Category> categories;
  for (const SampleCategory& c : kCategories) {
    categories.push_back(
        Category{static_cast<std::int16_t>(categories.size() + 1), c.code, c.name, "N", c.group});
  }
  std::vector<Causale> causali;
  for (const SampleCausale& c : kCausali) {
    Causale record;
    record.recordNumber = static_cast<std::int16_t>(causali.size() + 1);
    record.causaleCode = c.code;
    record.causaleDescription = c.description;
    record.sign = c.sign;
    record.causaleFlag = "N";
    causali.push_back(record);
  }
  std::vector<Account> accounts;
  for (const SampleAccount& a : sampleAccounts()) {
    Account record;
    record.recordNumber = static_cast<std::int16_t>(accounts.size() + 1);
    record.accountCode = a.code;
    record.categoryName = a.category;
    record.accountName = a.name;
    record.bankAddress = a.address;
    record.bankPostCode = a.postCode;
    record.bankTown = a.town;
    record.bankProvince = a.province;
    record.creditLine = a.creditLine;
    record.groupName = a.group;
    accounts.push_back(record);
  }
  summary.groups = groups.size();
  summary.categories = categories.size();
  summary.causali = causali.size();
  summary.accounts = accounts.size();
  WriteJournal journal(dir);
  writeTable(journal, dir, kGroupTable, groups);
  writeTable(journal, dir, kCategoryTable, categories);
  writeTable(journal, dir, kCausaleTable, causali);
  writeTable(journal, dir, kAccountTable, accounts);
  return journal.finish();
}

}  // namespace

bool canHoldSample(Session& session) {
  const MasterTables& tables = session.tables();
  if (!tables.accounts.empty() || !tables.causali.empty() || !tables.categories.empty() ||
      !loadTable<Group>(session.dir(), kGroupTable).records.empty()) {
    return false;
  }
  return std::none_of(sampleAccounts().begin(), sampleAccounts().end(), [&](const auto& a) {
    return !accountFilesMatching(session.dir(), a.code, CodeMatch::Exact).empty();
  });
}

WriteOutcome writeSampleArchive(Session& session, SampleSummary& summary) {
  const DataDirectory& dir = session.dir();
  WriteOutcome outcome = writeMasterTables(dir, summary);
  const CalendarDate today = session.clock().today();
  for (std::size_t i = 0; i < sampleAccounts().size() && outcome.ok(); ++i) {
    const SampleAccount& a = sampleAccounts()[i];
    OpenAccount account(dir, session.clock(), a.code, a.creditLine);
    account.load();
    const std::vector<Movement> movements = movementsOf(a, i, today);
    for (const Movement& m : movements) {
      outcome = account.appendMovement(m);
      if (!outcome.ok()) {
        return outcome;
      }
    }
    summary.movements += movements.size();
    account.setSelection(movements.empty() ? "" : movements.front().operationDate,
                         account.dateSpan().latest);
    account.recompute();
  }
  return outcome;
}

}  // namespace contavia::cli

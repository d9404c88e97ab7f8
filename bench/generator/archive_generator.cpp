#include "bench/generator/archive_generator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <stdexcept>

#include "archive/data_directory.h"
#include "archive/file_layer.h"
#include "archive/record_codec.h"
#include "common/dates.h"

namespace contavia::bench {
namespace {

struct CausaleKind {
  const char* code;
  const char* description;
  const char* sign;
  double minAmount;
  double maxAmount;
};

// Both signs among the first two, so that any number of causali from 2 up has both.
constexpr std::array<CausaleKind, 16> kCausali = {{
    {"VERS", "Versamento", "A", 50, 3000},
    {"PREL", "Prelievo contanti", "D", 20, 1000},
    {"STIP", "Stipendio", "A", 1200, 3500},
    {"BONU", "Bonifico in uscita", "D", 50, 5000},
    {"BONE", "Bonifico in entrata", "A", 50, 5000},
    {"UTEN", "Utenze luce e gas", "D", 30, 400},
    {"AFFI", "Affitto", "D", 400, 1500},
    {"CART", "Addebito carta di credito", "D", 10, 2500},
    {"INTA", "Interessi attivi", "A", 0.5, 200},
    {"COMM", "Commissioni e spese", "D", 1, 25},
    {"SDD", "Addebito diretto Società", "D", 10, 600},
    {"ASSE", "Assegno emesso", "D", 50, 3000},
    {"GIRE", "Giroconto in entrata", "A", 100, 5000},
    {"GIRU", "Giroconto in uscita", "D", 100, 5000},
    {"F24", "Pagamento F24", "D", 50, 4000},
    {"RIMB", "Rimborso spese", "A", 5, 800},
}};

constexpr std::array<const char*, 4> kGroups = {"Liquidità", "Investimenti", "Debiti",
                                                "Carte di pagamento"};

constexpr std::array<const char*, 12> kCategories = {
    "Conti correnti",   "Depositi a risparmio", "Conti deposito",
    "Carte di credito", "Prestiti personali",   "Mutui",
    "Libretti postali", "Cassa contanti",       "Titoli",
    "Fondi comuni",     "Carte prepagate",      "Conti esteri"};

constexpr std::array<const char*, 10> kBanks = {
    "Banca Popolare di Sondrio", "Cassa di Risparmio di Parma",  "Banca Sella",
    "Credito Emiliano",          "Banca Nazionale del Lavoro",   "Poste Italiane",
    "Banca Monte dei Paschi",    "Banca di Credito Cooperativo", "Banca Mediolanum",
    "Banca Popolare dell'Emilia"};

// Free descriptions of movements; the "n." ones get a number.
constexpr std::array<const char*, 12> kDescriptions = {
    "Rossi Mario",          "Fattura n.",         "Spesa supermercato", "Canone mensile",
    "Rata prestito n.",     "Acquisto online",    "Bianchi S.r.l.",     "Società Elettrica",
    "Condominio via Verdi", "Assicurazione auto", "Ristorante Da Nino", "Farmacia Perù"};

struct Town {
  const char* name;
  const char* province;
  const char* postCode;
};
constexpr std::array<Town, 8> kTowns = {{{"Milano", "MI", "20121"},
                                         {"Roma", "RM", "00184"},
                                         {"Forlì", "FC", "47121"},
                                         {"Cantù", "CO", "22063"},
                                         {"Napoli", "NA", "80133"},
                                         {"Torino", "TO", "10121"},
                                         {"Bologna", "BO", "40121"},
                                         {"Perugia", "PG", "06121"}}};

void require(bool ok, const char* what) {
  if (!ok) {
    throw std::invalid_argument(std::string("generateArchive: ") + what);
  }
}

// "prefix" followed by n on `digits` digits.
std::string numbered(const char* prefix, int n, int digits) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%s%0*d", prefix, digits, n);
  return buf;
}

class Writer {
 public:
  explicit Writer(std::string folder) : folder_(std::move(folder)) {}

  // Replaces the file `name` with the records, written in one go.
  template <class Record>
  void file(const std::string& name, const std::vector<Record>& records) {
    std::vector<std::uint8_t> bytes(records.size() * Record::kLength);
    for (std::size_t i = 0; i < records.size(); ++i) {
      encodeRecord(records[i], bytes.data() + i * Record::kLength);
    }
    const std::string path = folder_ + name;
    files_.remove(path);
    if (files_.write(path, 0, bytes.data(), bytes.size()) != diskerr::kOk) {
      throw std::runtime_error("generateArchive: cannot write " + path);
    }
  }

  template <class Record>
  void table(const char* name, const char* countName, const std::vector<Record>& records) {
    file(name, records);
    count(countName, records.size());
  }

  void count(const std::string& name, std::size_t value) {
    file(name, std::vector<CountRecord>{CountRecord{static_cast<std::int16_t>(value)}});
  }

 private:
  OsFileLayer files_;
  std::string folder_;
};

class Generator {
 public:
  explicit Generator(const GeneratorOptions& options) : options_(options), rng_(options.seed) {}

  int uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng_); }

  // One of the items of a list.
  template <class List>
  const auto& pick(const List& list) {
    return list[static_cast<std::size_t>(uniform(0, static_cast<int>(list.size()) - 1))];
  }

  // Log-uniform between the bounds, in cents: many small amounts, a few large ones.
  double amount(double low, double high) {
    const double x =
        std::exp(std::uniform_real_distribution<double>(std::log(low), std::log(high))(rng_));
    return std::round(x * 100.0) / 100.0;
  }

  std::vector<Group> groups() const {
    std::vector<Group> out;
    for (int i = 1; i <= options_.groups; ++i) {
      Group g;
      g.recordNumber = static_cast<std::int16_t>(i);
      g.groupCode = numbered("G", i, 3);
      g.groupName =
          i <= static_cast<int>(kGroups.size()) ? kGroups[i - 1] : numbered("Gruppo ", i, 3);
      g.groupMark = " ";
      g.groupFlag = "N";
      out.push_back(g);
    }
    return out;
  }

  std::vector<Category> categories(const std::vector<Group>& groups) const {
    std::vector<Category> out;
    for (int i = 1; i <= options_.categories; ++i) {
      Category c;
      c.recordNumber = static_cast<std::int16_t>(i);
      c.categoryCode = numbered("K", i, 3);
      c.categoryName = i <= static_cast<int>(kCategories.size()) ? kCategories[i - 1]
                                                                 : numbered("Categoria ", i, 3);
      c.categoryFlag = "N";
      c.groupName = groups[static_cast<std::size_t>(i - 1) % groups.size()].groupName;
      out.push_back(c);
    }
    return out;
  }

  std::vector<Causale> causali() const {
    std::vector<Causale> out;
    for (int i = 1; i <= options_.causali; ++i) {
      Causale c;
      c.recordNumber = static_cast<std::int16_t>(i);
      if (i <= static_cast<int>(kCausali.size())) {
        const CausaleKind& kind = kCausali[static_cast<std::size_t>(i - 1)];
        c.causaleCode = kind.code;
        c.causaleDescription = kind.description;
        c.sign = kind.sign;
      } else {
        c.causaleCode = numbered("X", i, 3);
        c.causaleDescription = numbered("Causale ", i, 3);
        c.sign = i % 2 == 0 ? "D" : "A";
      }
      c.causaleFlag = "N";
      out.push_back(c);
    }
    return out;
  }

  Account account(int n, const std::vector<Category>& categories) {
    const Town& town = pick(kTowns);
    const Category& category = pick(categories);
    Account a;
    a.recordNumber = static_cast<std::int16_t>(n);
    a.accountCode = generatedAccountCode(n);
    a.categoryName = category.categoryName;
    a.accountName = std::string(pick(kBanks)) + " - " + numbered("C/C ", n, 4);
    a.bankAddress = "Via Roma " + std::to_string(uniform(1, 200));
    a.bankPostCode = town.postCode;
    a.bankTown = town.name;
    a.bankProvince = town.province;
    a.creditLine = std::to_string(500 * uniform(0, 40));
    a.groupName = category.groupName;
    return a;
  }

  // Movements in date order, each with the sign of its causale: credits and debits equally
  // often, whatever the number of causali of each sign.
  std::vector<Movement> movements(const std::vector<Causale>& causali) {
    std::array<std::vector<std::size_t>, 2> bySign;  // 0 credits, 1 debits
    for (std::size_t i = 0; i < causali.size(); ++i) {
      bySign[causali[i].sign == "A" ? 0 : 1].push_back(i);
    }
    struct Dated {
      int key;
      CalendarDate date;
    };
    std::vector<Dated> dates;
    const int lastYear = options_.firstYear + options_.years - 1;
    for (int i = 0; i < options_.movementsPerAccount; ++i) {
      CalendarDate d{0, uniform(1, 12), uniform(options_.firstYear, lastYear)};
      int lastDay = 28;
      while (lastDay < 31 && isValidDate(lastDay + 1, d.month, d.year)) {
        ++lastDay;
      }
      d.day = uniform(1, lastDay);
      dates.push_back({d.year * 10000 + d.month * 100 + d.day, d});
    }
    std::stable_sort(dates.begin(), dates.end(),
                     [](const Dated& a, const Dated& b) { return a.key < b.key; });
    std::vector<Movement> out;
    out.reserve(dates.size());
    for (std::size_t i = 0; i < dates.size(); ++i) {
      const std::size_t which = pick(bySign[static_cast<std::size_t>(uniform(0, 1))]);
      const Causale& c = causali[which];
      const bool known = which < kCausali.size();
      Movement m;
      m.movementNumber = static_cast<std::int16_t>(i + 1);
      m.operationDate = formatDateDmy(dates[i].date);
      m.causaleCode = c.causaleCode;
      m.amount =
          known ? amount(kCausali[which].minAmount, kCausali[which].maxAmount) : amount(1, 2000);
      m.documentNumber = uniform(0, 1) == 0 ? "" : std::to_string(uniform(1, 999999));
      const std::string free = pick(kDescriptions);
      m.description = free.ends_with("n.") ? free + " " + std::to_string(uniform(1, 2000)) : free;
      m.sign = c.sign;
      m.closedFlag = "N";
      out.push_back(std::move(m));
    }
    return out;
  }

  CarryForward carryForward() {
    CarryForward c;
    if (options_.carryForward) {
      c.carryDate = formatDateDmy({31, 12, options_.firstYear - 1});
      c.carryAmount = uniform(-2000, 20000);
    }
    return c;
  }

  Totals totals(const std::vector<Movement>& movements, const CarryForward& carry) const {
    double balance = carry.carryAmount;
    for (const Movement& m : movements) {
      balance += m.sign == "A" ? m.amount : -m.amount;
    }
    const int lastYear = options_.firstYear + options_.years - 1;
    return Totals{balance, balance, formatDateDmy({1, 1, options_.firstYear}),
                  formatDateDmy({31, 12, lastYear})};
  }

 private:
  GeneratorOptions options_;
  std::mt19937 rng_;
};

}  // namespace

std::string generatedAccountCode(int n) { return numbered("C", n, 4); }

GeneratedArchive generateArchive(const std::string& folder, const GeneratorOptions& options) {
  require(options.accounts >= 1 && options.accounts <= static_cast<int>(Account::kCapacity),
          "accounts must be 1..1000");
  require(options.movementsPerAccount >= 0 &&
              options.movementsPerAccount <= static_cast<int>(Movement::kCapacity),
          "movementsPerAccount must be 0..10000");
  require(
      options.firstYear >= 1900 && options.years >= 1 && options.firstYear + options.years <= 9999,
      "years out of range");
  require(options.causali >= 2 && options.causali <= static_cast<int>(Causale::kCapacity),
          "causali must be 2..100");
  require(options.categories >= 1 && options.categories <= static_cast<int>(Category::kCapacity),
          "categories must be 1..200");
  require(options.groups >= 1 && options.groups <= static_cast<int>(Group::kCapacity),
          "groups must be 1..100");

  const std::string dir = DataDirectory::withSeparator(folder);
  std::filesystem::create_directory(dir);
  Writer write(dir);
  Generator generate(options);

  GeneratedArchive archive;
  archive.groups = generate.groups();
  archive.categories = generate.categories(archive.groups);
  archive.causali = generate.causali();
  for (int n = 1; n <= options.accounts; ++n) {
    const Account account = generate.account(n, archive.categories);
    const std::string code = generatedAccountCode(n);
    const std::vector<Movement> movements = generate.movements(archive.causali);
    const CarryForward carry = generate.carryForward();
    write.file(code + filename::kMovements, movements);
    write.count(code + filename::kMovementCount, movements.size());
    write.file(code + filename::kCarryForward, std::vector<CarryForward>{carry});
    write.file(code + filename::kTotals, std::vector<Totals>{generate.totals(movements, carry)});
    archive.accounts.push_back(account);
    archive.movements += movements.size();
  }
  write.table(filename::kGroups, filename::kGroupsCount, archive.groups);
  write.table(filename::kCategories, filename::kCategoriesCount, archive.categories);
  write.table(filename::kCausali, filename::kCausaliCount, archive.causali);
  write.table(filename::kAccounts, filename::kAccountsCount, archive.accounts);
  write.count(filename::kMovementCounter, std::min<std::size_t>(archive.movements, 32767));
  return archive;
}

ScratchFolder::ScratchFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "contavia-bench-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw std::runtime_error("mkdtemp failed");
  }
  path_ = pattern + "/";
}

ScratchFolder::~ScratchFolder() {
  std::error_code ec;
  std::filesystem::remove_all(path_, ec);
}

GeneratedFolder::GeneratedFolder(int accounts, int movementsPerAccount) {
  GeneratorOptions options;
  options.accounts = accounts;
  options.movementsPerAccount = movementsPerAccount;
  generated = generateArchive(folder.path(), options);
}

}  // namespace contavia::bench

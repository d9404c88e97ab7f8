#include "masterdata/categories_screen.h"

#include "masterdata/code_rules.h"

namespace contavia {
namespace {

constexpr CodeRules kRules{CategoriesScreen::kCode, CategoriesScreen::kDescription,
                           "Nr. codice già presente",
                           /*beepWhenMissing=*/false, /*emptyCodeWhenMissing=*/false};

}  // namespace

CategoriesScreen::CategoriesScreen(Session& session)
    : TableScreen(
          session,
          {{.name = kCode, .label = "Codice", .width = 5},
           {.name = kDescription, .label = "Descrizione", .width = 25},
           {.name = kGroup, .label = "Gruppo", .width = 25, .kind = FieldDefinition::Choice}},
          Setup{kCategoryTable, kCategoryTable, "categorie",
                /*keepsChangedRecord=*/false, kCodeDashNameWidth, codeDashNameHeading()}) {
  open();
  groups_ = readTable<Group>(session, kGroupTable).records;
}

std::vector<std::string> CategoriesScreen::choices() const {
  std::vector<std::string> names;
  names.reserve(groups_.size());
  for (const Group& g : groups_) {
    names.push_back(trim(g.groupName));
  }
  return names;
}

std::string CategoriesScreen::row(const Category& r) const {
  return codeDashNameRow(r.categoryCode, r.categoryName);
}

bool CategoriesScreen::rowNames(const Category& r, std::string_view chosen) const {
  return trim(r.categoryCode) == trim(leftChars(chosen, 5));
}

void CategoriesScreen::show(const Category& r) {
  put(kCode, trimRight(r.categoryCode));
  put(kDescription, trimRight(r.categoryName));
  put(kGroup, trimRight(r.groupName));
}

// The group is not required: an empty choice stores a blank group name.
void CategoriesScreen::fill(Category& r) const {
  r.categoryCode = field(kCode);
  r.categoryName = field(kDescription);
  r.categoryFlag = "N";
  r.groupName = trim(field(kGroup));
}

bool CategoriesScreen::accepts(bool changing) {
  return acceptsCodeAndDescription(*this, session().prompter(), kRules, table(),
                                   &Category::categoryCode, changing);
}

// Accounts name their category by its description.
bool CategoriesScreen::mayRemove(const Category& r) {
  return notInUse(session().prompter(),
                  countNaming(session().tables().accounts, &Account::categoryName, r.categoryName),
                  "La categoria che vuoi eliminare è presente in ",
                  " conti, pertanto, non è possibile la sua eliminazione.");
}

Message CategoriesScreen::removeQuestion() const {
  return warningQuestion(std::string("Attenzione la categoria selezionata verrà cancellata") +
                         kDeleteQuestionEnd);
}

void CategoriesScreen::publish() { session().tables().categories = table(); }

}  // namespace contavia

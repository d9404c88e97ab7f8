#include "ui/master_windows.h"

#include "masterdata/accounts_screen.h"
#include "masterdata/categories_screen.h"
#include "masterdata/causali_screen.h"
#include "masterdata/groups_screen.h"

namespace contavia::ui {
namespace {

const WindowLook kCausali{"Form6", "Gestione Causali", "ElencoCausali", "pulisci"};
const WindowLook kGroups{"Form4", "Gestione gruppi", "ElencoMovimenti", "pulisci"};
const WindowLook kCategories{"Form1", "Gestione Categorie", "ElencoMovimenti", "pulisci"};
const WindowLook kAccounts{"Form2", "Gestione Conto", "listaconti", "clr"};

template <class Screen>
std::unique_ptr<MasterWindow> make(QWidget* parent, Session& session, const WindowLook& look,
                                   std::function<void()> changed = {}) {
  return std::make_unique<MasterWindow>(session, std::make_unique<Screen>(session), look,
                                        std::move(changed), parent);
}

}  // namespace

std::unique_ptr<MasterWindow> makeCausaliWindow(QWidget* parent, Session& session) {
  return make<CausaliScreen>(parent, session, kCausali);
}

std::unique_ptr<MasterWindow> makeGroupsWindow(QWidget* parent, Session& session) {
  return make<GroupsScreen>(parent, session, kGroups);
}

std::unique_ptr<MasterWindow> makeCategoriesWindow(QWidget* parent, Session& session) {
  return make<CategoriesScreen>(parent, session, kCategories);
}

std::unique_ptr<MasterWindow> makeAccountsWindow(QWidget* parent, Session& session,
                                                 std::function<void()> accountsChanged) {
  return make<AccountsScreen>(parent, session, kAccounts, std::move(accountsChanged));
}

void showCausaliWindow(QWidget* parent, Session& session) {
  makeCausaliWindow(parent, session)->exec();
}

void showGroupsWindow(QWidget* parent, Session& session) {
  makeGroupsWindow(parent, session)->exec();
}

void showCategoriesWindow(QWidget* parent, Session& session) {
  makeCategoriesWindow(parent, session)->exec();
}

void showAccountsWindow(QWidget* parent, Session& session, std::function<void()> accountsChanged) {
  makeAccountsWindow(parent, session, std::move(accountsChanged))->exec();
}

}  // namespace contavia::ui

#pragma once
// The four master-data windows, opened modally by the main window: causali (Form6), groups
// (Form4), categories (Form1) and accounts (Form2). Each reads its table when it opens and writes
// every change at once; the accounts window calls `accountsChanged` after each add, change or
// delete so that the account selector can be filled again from session.tables().accounts.

#include <functional>
#include <memory>

#include "ui/master_window.h"

class QWidget;

namespace contavia {
class Session;
}

namespace contavia::ui {

void showCausaliWindow(QWidget* parent, contavia::Session& session);
void showGroupsWindow(QWidget* parent, contavia::Session& session);
void showCategoriesWindow(QWidget* parent, contavia::Session& session);
void showAccountsWindow(QWidget* parent, contavia::Session& session,
                        std::function<void()> accountsChanged);

// The same windows, built and not shown (for tests and for a caller that shows them itself).
std::unique_ptr<MasterWindow> makeCausaliWindow(QWidget* parent, Session& session);
std::unique_ptr<MasterWindow> makeGroupsWindow(QWidget* parent, Session& session);
std::unique_ptr<MasterWindow> makeCategoriesWindow(QWidget* parent, Session& session);
std::unique_ptr<MasterWindow> makeAccountsWindow(QWidget* parent, Session& session,
                                                 std::function<void()> accountsChanged);

}  // namespace contavia::ui

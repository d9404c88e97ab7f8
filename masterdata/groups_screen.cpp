#include "masterdata/groups_screen.h"

#include "masterdata/code_rules.h"

namespace contavia {
namespace {

constexpr CodeRules kRules{GroupsScreen::kCode, GroupsScreen::kDescription,
                           "Nr. codice già presente",
                           /*beepWhenMissing=*/true, /*emptyCodeWhenMissing=*/false};

}  // namespace

GroupsScreen::GroupsScreen(Session& session)
    : TableScreen(session,
                  {{.name = kCode, .label = "Codice", .width = 5},
                   {.name = kDescription, .label = "Descrizione", .width = 25}},
                  Setup{kGroupTable, kGroupTable, "gruppi", /*keepsChangedRecord=*/false,
                        kCodeDashNameWidth, codeDashNameHeading()}) {
  open();
}

std::string GroupsScreen::row(const Group& r) const {
  return codeDashNameRow(r.groupCode, r.groupName);
}

bool GroupsScreen::rowNames(const Group& r, std::string_view chosen) const {
  return trimRight(r.groupCode) == trimRight(leftChars(chosen, 5));
}

void GroupsScreen::show(const Group& r) {
  put(kCode, trimRight(r.groupCode));
  put(kDescription, trimRight(r.groupName));
}

// Both marks are written on every save, new or changed; nothing reads them.
void GroupsScreen::fill(Group& r) const {
  r.groupCode = field(kCode);
  r.groupName = field(kDescription);
  r.groupMark = " ";
  r.groupFlag = "N";
}

bool GroupsScreen::accepts(bool changing) {
  return acceptsCodeAndDescription(*this, session().prompter(), kRules, table(), &Group::groupCode,
                                   changing);
}

// Categories name their group by its description.
bool GroupsScreen::mayRemove(const Group& r) {
  return notInUse(session().prompter(),
                  countNaming(session().tables().categories, &Category::groupName, r.groupName),
                  "Il gruppo che vuoi eliminare è presente in ",
                  " categorie, pertanto, non è possibile la sua eliminazione.");
}

Message GroupsScreen::removeQuestion() const {
  return warningQuestion(std::string("Attenzione il gruppo selezionato verrà cancellato") +
                         kDeleteQuestionEnd);
}

}  // namespace contavia

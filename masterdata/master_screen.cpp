#include "masterdata/master_screen.h"

#include <stdexcept>

#include "common/text.h"

namespace contavia {
MasterScreen::MasterScreen(Session& session, std::vector<FieldDefinition> specs)
    : session_(&session), specs_(std::move(specs)), values_(specs_.size()) {}

std::size_t MasterScreen::indexOf(std::string_view name) const {
  for (std::size_t i = 0; i < specs_.size(); ++i) {
    if (name == specs_[i].name) {
      return i;
    }
  }
  throw std::out_of_range("no field " + std::string(name));
}

const std::string& MasterScreen::field(std::string_view name) const {
  return values_[indexOf(name)];
}

bool MasterScreen::setField(std::string_view name, std::string_view text) {
  const std::size_t i = indexOf(name);
  std::string cut = leftChars(text, specs_[i].width);
  if (!editable(name)) {
    return cut == values_[i];
  }
  if (specs_[i].accepts != nullptr &&
      cut.find_first_not_of(specs_[i].accepts) != std::string::npos) {
    return false;
  }
  values_[i] = std::move(cut);
  return true;
}

bool MasterScreen::editable(std::string_view) const { return true; }

bool MasterScreen::enter(std::string_view) { return true; }

bool MasterScreen::pickChoice(std::string_view name) {
  if (trim(name).empty()) {
    put(kChoiceField, {});
    return true;
  }
  for (const std::string& item : choices()) {
    if (trim(item) == trim(name)) {
      put(kChoiceField, item);
      return true;
    }
  }
  return false;
}

void MasterScreen::put(std::string_view name, std::string text) {
  values_[indexOf(name)] = std::move(text);
}

void MasterScreen::clear() {
  for (std::size_t i = 0; i < specs_.size(); ++i) {
    if (!specs_[i].keptOnClear) {
      values_[i].clear();
    }
  }
  selected_ = 0;
}

}  // namespace contavia

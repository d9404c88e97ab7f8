#pragma once
// The screen pattern shared by the causali, groups, categories and accounts windows: a list of
// rows, entry fields named after their controls, a selected record number (0 = none), and the
// commands "ok" (save: add when nothing is selected, change the selected record otherwise),
// "pulisci"/"clr" (clear), "del" (delete) and "esci". The windows and the command line drive a
// screen and show what it holds; every rule and every message is here.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace contavia {

class Session;

// The characters of a digits-only field.
inline constexpr const char* kDigits = "0123456789";
// The drop-down list of the screens that have one.
inline constexpr const char* kChoiceField = "Combo1";

// An entry field: its control name, its caption, how many characters it holds, its key rule and
// the kind of control that shows it.
struct FieldDefinition {
  enum Kind {
    Text,         // a text box
    SignOptions,  // the two options "A" (option 0) and "D" (option 1)
    Choice,       // a drop-down list of the screen's choices()
  };
  const char* name;
  const char* label;
  std::size_t width;
  const char* accepts = nullptr;  // the only characters it takes (kDigits, "AD"); null: any
  bool keptOnClear = false;       // "pulisci" leaves it as it is (the sign options)
  Kind kind = Text;

  bool digitsOnly() const { return accepts != nullptr && std::string_view(accepts) == kDigits; }
};

class MasterScreen {
 public:
  virtual ~MasterScreen() = default;
  MasterScreen(const MasterScreen&) = delete;
  MasterScreen& operator=(const MasterScreen&) = delete;

  const std::vector<FieldDefinition>& fields() const { return specs_; }
  // The text of a field; throws std::out_of_range for a name the screen does not have.
  const std::string& field(std::string_view name) const;
  // Types `text` into a field as its control takes it: cut to the field's width. False, and
  // nothing changed, when the field does not take the text (a letter in a digits-only field, a
  // field that cannot be changed now; a locked field takes only the text it already holds).
  bool setField(std::string_view name, std::string_view text);
  // Whether the field can be typed into now.
  virtual bool editable(std::string_view name) const;
  // Enter pressed in a field: true when the focus moves on to the next field.
  virtual bool enter(std::string_view name);

  // The list rows, in table order, each rowWidth() characters wide, and the column heading that
  // lines up with them.
  virtual std::vector<std::string> rows() const = 0;
  virtual std::size_t rowWidth() const = 0;
  virtual std::string heading() const = 0;
  // The items of the drop-down list `Combo1`, when the screen has one.
  virtual std::vector<std::string> choices() const { return {}; }
  // Picks the item of `Combo1` that `name` names (its text, blanks ignored); an empty name
  // empties the choice. False when no item has that name.
  virtual bool pickChoice(std::string_view name);
  // A click on row `index` (0-based) of the list.
  virtual void chooseRow(std::size_t index) = 0;
  // "ok": adds or changes; false when a check stopped it (its message shown) or a write failed.
  virtual bool save() = 0;
  // "del" on the selected record: false when nothing is selected, a check refused it, the user
  // cancelled or a write failed.
  virtual bool remove() = 0;
  // "pulisci" / "clr": empties the fields and forgets the selection.
  void clear();

  // The selected record number (1-based), 0 when no row is chosen.
  std::size_t selected() const { return selected_; }
  bool canRemove() const { return selected_ > 0; }

 protected:
  MasterScreen(Session& session, std::vector<FieldDefinition> specs);

  Session& session() const { return *session_; }
  void select(std::size_t number) { selected_ = number; }
  // Puts a text into a field as the program does (no key rule, no lock).
  void put(std::string_view name, std::string text);

 private:
  std::size_t indexOf(std::string_view name) const;

  Session* session_;
  std::vector<FieldDefinition> specs_;
  std::vector<std::string> values_;
  std::size_t selected_ = 0;
};

}  // namespace contavia

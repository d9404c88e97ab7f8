#include "tests/support/scripted_prompter.h"

namespace contavia::test {

Answer ScriptedPrompter::show(const Message& message) {
  messages.push_back(message);
  if (!queue.empty()) {
    const Answer a = queue.front();
    queue.pop_front();
    return a;
  }
  return message.defaultButton;
}

void ScriptedPrompter::answer(std::initializer_list<Answer> answers) {
  queue.insert(queue.end(), answers.begin(), answers.end());
}

std::vector<std::string> ScriptedPrompter::texts() const {
  std::vector<std::string> out;
  for (const Message& m : messages) {
    out.push_back(m.text);
  }
  return out;
}

void ScriptedPrompter::clear() {
  messages.clear();
  queue.clear();
  beeps = 0;
}

}  // namespace contavia::test

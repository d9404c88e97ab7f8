#pragma once
// A prompter for tests: records every message and beep, and answers from a queue (the box's
// default button when the queue is empty, so an unexpected question is cancelled).

#include <deque>
#include <vector>

#include "common/prompter.h"

namespace contavia::test {

class ScriptedPrompter final : public Prompter {
 public:
  Answer show(const Message& message) override;
  void beep() override { ++beeps; }

  // Queues the answers of the next questions, in order.
  void answer(std::initializer_list<Answer> answers);
  // Texts of the messages shown, in order.
  std::vector<std::string> texts() const;
  void clear();

  std::vector<Message> messages;
  std::deque<Answer> queue;
  int beeps = 0;
};

}  // namespace contavia::test

#include "common/prompter.h"

#include <utility>

namespace contavia {

Message errorBox(std::string text) {
  return Message{"ERRORE", std::move(text), Buttons::Ok, Icon::Exclamation, Answer::Ok};
}

Message warningQuestion(std::string text) {
  return Message{"AVVERTIMENTO!", std::move(text), Buttons::OkCancel, Icon::Exclamation,
                 Answer::Cancel};
}

Message plainBox(std::string title, std::string text) {
  return Message{std::move(title), std::move(text), Buttons::Ok, Icon::None, Answer::Ok};
}

Message diskErrorBox(std::string text, Buttons buttons) {
  Answer defaultButton = Answer::Ok;
  if (buttons == Buttons::RetryCancel) {
    defaultButton = Answer::Retry;
  } else if (buttons == Buttons::AbortRetryIgnore) {
    defaultButton = Answer::Abort;
  }
  return Message{kDiskErrorTitle, std::move(text), buttons, Icon::Exclamation, defaultButton};
}

bool confirm(Prompter& prompter, const Message& question) {
  return prompter.show(question) == Answer::Ok;
}

}  // namespace contavia

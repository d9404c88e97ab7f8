#pragma once
// The guide's window: the list of topics, the page, and the buttons of a simple browser (Back,
// Forward, Stop, Refresh, Home) with a search through the topics.

#include <QUrl>
#include <QWidget>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "help/page_history.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTextBrowser;

namespace contavia::ui {

class HelpWindow final : public QWidget {
  Q_OBJECT

 public:
  explicit HelpWindow(QWidget* parent = nullptr);

  // Goes to `page` as a followed link does.
  void showPage(const help::HelpPage& page);
  // The page shown (the home page before any).
  help::HelpPage shownPage() const { return shown_; }
  // Addresses that are not pages of the guide go to the user's browser.
  std::function<void(const QUrl&)> openOutside;
  // Reads a topic from the guide's folder as HTML. It runs away from the window, so that the
  // window answers (and Stop can be pressed) while a topic loads.
  std::function<QString(const std::string& topic)> readTopic;

 private:
  enum class Step { Visit, Back, Forward, Refresh };
  void load(const help::HelpPage& page, Step step);
  void loaded(int ticket, const std::string& topic, const QString& html);
  void arrive(const help::HelpPage& page, Step step);
  void stop();
  void display(const help::HelpPage& page);
  void follow(const QUrl& link);
  void search();
  QString topicHtml(const std::string& topic);
  void showState();

  QListWidget* topics_;
  QTextBrowser* page_;
  QPushButton* back_;
  QPushButton* forward_;
  QPushButton* stop_;
  QPushButton* refresh_;
  QPushButton* home_;
  QLineEdit* searched_;
  QPushButton* find_;
  QLabel* status_;

  help::PageHistory history_;
  help::HelpPage shown_;
  std::optional<std::pair<help::HelpPage, Step>> loading_;
  int ticket_ = 0;                             // the load whose result is awaited
  std::map<std::string, QString> topicCache_;  // each topic read once, until Refresh
};

}  // namespace contavia::ui

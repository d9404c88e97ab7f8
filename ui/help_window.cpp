#include "ui/help_window.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocument>
#include <QThreadPool>
#include <QVBoxLayout>

#include "help/help_topics.h"
#include "help/rtf_reader.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {
namespace {

QPushButton* button(const char* name, const QString& caption, const QString& tip,
                    const QKeySequence& key) {
  auto* b = named(new QPushButton(caption), name);
  b->setToolTip(tip +
                (key.isEmpty() ? QString() : " (" + key.toString(QKeySequence::NativeText) + ")"));
  if (!key.isEmpty()) {
    b->setShortcut(key);
  }
  return b;
}

// The topic's file beside the program, as HTML; a page that says so when it cannot be read.
QString readTopicFile(const std::string& topic) {
  QFile file(programFile(QString(help::kGuideFolder) + qs(topic)));
  if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly)) {
    return qs(help::missingTopicHtml(topic));
  }
  const QByteArray bytes = file.readAll();
  return qs(
      help::rtfToHtml(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())))
          .html);
}

int topicRow(const std::string& file) {
  const auto topics = help::helpTopics();
  for (std::size_t i = 0; i < topics.size(); ++i) {
    if (file == topics[i].file) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

}  // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QWidget(parent, Qt::Window),
      openOutside([](const QUrl& url) { QDesktopServices::openUrl(url); }),
      readTopic(readTopicFile),
      topics_(named(new QListWidget, "Argomenti")),
      page_(named(new QTextBrowser, "Pagina")),
      back_(button("Indietro", "Indietro", "Pagina precedente", QKeySequence::Back)),
      forward_(button("Avanti", "Avanti", "Pagina successiva", QKeySequence::Forward)),
      stop_(button("Interrompi", "Interrompi", "Interrompe il caricamento", Qt::Key_Escape)),
      refresh_(button("Aggiorna", "Aggiorna", "Rilegge la pagina", QKeySequence::Refresh)),
      home_(button("Inizio", "Inizio", "Pagina iniziale", Qt::ALT | Qt::Key_Home)),
      searched_(named(new QLineEdit, "TestoCerca")),
      find_(button("Cerca", "Cerca", "Cerca nella guida", QKeySequence::FindNext)),
      status_(named(new QLabel, "Stato")),
      shown_(help::homePage()) {
  named(this, "Guida");
  setWindowTitle("Guida di Contavia");
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(520, 360);
  resize(960, 680);

  for (const help::HelpTopic& topic : help::helpTopics()) {
    topics_->addItem(topic.title);
  }
  page_->setOpenLinks(false);
  searched_->setPlaceholderText("Cerca nella guida");
  searched_->setClearButtonEnabled(true);

  auto* tools = new QHBoxLayout;
  for (QWidget* w :
       {static_cast<QWidget*>(back_), static_cast<QWidget*>(forward_), static_cast<QWidget*>(stop_),
        static_cast<QWidget*>(refresh_), static_cast<QWidget*>(home_)}) {
    tools->addWidget(w);
  }
  tools->addStretch();
  tools->addWidget(searched_, 1);
  tools->addWidget(find_);
  auto* split = new QSplitter;
  split->addWidget(topics_);
  split->addWidget(page_);
  split->setStretchFactor(1, 1);
  split->setSizes({200, 760});
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(tools);
  layout->addWidget(split, 1);
  layout->addWidget(status_);
  setTabOrder(topics_, page_);
  setTabOrder(page_, searched_);
  setTabOrder(searched_, find_);
  auto* findKey = new QShortcut(QKeySequence::Find, this);
  connect(findKey, &QShortcut::activated, this, [this] {
    searched_->setFocus();
    searched_->selectAll();
  });

  connect(topics_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
    showPage({help::helpTopics()[static_cast<std::size_t>(topics_->row(item))].file, ""});
  });
  connect(topics_, &QListWidget::itemClicked, topics_, &QListWidget::itemActivated);
  connect(page_, &QTextBrowser::anchorClicked, this, &HelpWindow::follow);
  connect(back_, &QPushButton::clicked, this, [this] { load(history_.previous(), Step::Back); });
  connect(forward_, &QPushButton::clicked, this, [this] { load(history_.next(), Step::Forward); });
  connect(stop_, &QPushButton::clicked, this, &HelpWindow::stop);
  connect(refresh_, &QPushButton::clicked, this, [this] { load(shown_, Step::Refresh); });
  connect(home_, &QPushButton::clicked, this, [this] { showPage(help::homePage()); });
  connect(searched_, &QLineEdit::returnPressed, this, &HelpWindow::search);
  connect(find_, &QPushButton::clicked, this, &HelpWindow::search);
  showState();
  topics_->setFocus();
}

void HelpWindow::showPage(const help::HelpPage& page) { load(page, Step::Visit); }

// A topic already read shows at once; another one is read away from the window, which says so
// and lets Stop end the wait.
void HelpWindow::load(const help::HelpPage& page, Step step) {
  if (step != Step::Refresh && topicCache_.contains(page.topic)) {
    arrive(page, step);
    return;
  }
  loading_ = std::make_pair(page, step);
  const int ticket = ++ticket_;
  status_->setText("Caricamento di \u00AB" + qs(page.topic) + "\u00BB...");
  showState();
  QThreadPool::globalInstance()->start(
      [read = readTopic, topic = page.topic, ticket, window = QPointer<HelpWindow>(this)] {
        const QString html = read(topic);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [window, ticket, topic, html] {
              if (window != nullptr) {
                window->loaded(ticket, topic, html);
              }
            },
            Qt::QueuedConnection);
      });
}

void HelpWindow::loaded(int ticket, const std::string& topic, const QString& html) {
  if (!loading_ || ticket != ticket_) {
    return;  // stopped, or another page asked for since
  }
  topicCache_[topic] = html;
  const auto [page, step] = *std::exchange(loading_, std::nullopt);
  if (step == Step::Refresh) {
    page_->setHtml(html);
  }
  arrive(page, step);
}

// The page is there: shown, and the history moved as the step says.
void HelpWindow::arrive(const help::HelpPage& page, Step step) {
  display(page);
  switch (step) {
    case Step::Visit:
      history_.visit(page);
      break;
    case Step::Back:
      history_.back();
      break;
    case Step::Forward:
      history_.forward();
      break;
    case Step::Refresh:
      break;
  }
  status_->clear();
  showState();
}

void HelpWindow::stop() {
  loading_.reset();
  status_->clear();
  showState();
}

void HelpWindow::display(const help::HelpPage& page) {
  if (page.topic != shown_.topic || page_->document()->isEmpty()) {
    page_->setHtml(topicHtml(page.topic));
  }
  shown_ = page;
  if (page.bookmark.empty()) {
    page_->moveCursor(QTextCursor::Start);
    page_->ensureCursorVisible();
  } else {
    page_->scrollToAnchor(qs(page.bookmark));
  }
  topics_->setCurrentRow(topicRow(page.topic));
}

QString HelpWindow::topicHtml(const std::string& topic) {
  auto it = topicCache_.find(topic);
  if (it == topicCache_.end()) {
    it = topicCache_.emplace(topic, readTopic(topic)).first;
  }
  return it->second;
}

void HelpWindow::follow(const QUrl& link) {
  const help::HelpLink to = help::followLink(ss(link.toString(QUrl::FullyEncoded)), shown_);
  switch (to.kind) {
    case help::HelpLink::Kind::Page:
      showPage(to.page);
      break;
    case help::HelpLink::Kind::Outside:
      openOutside(link);
      break;
    case help::HelpLink::Kind::Missing:
      page_->setHtml(qs(help::missingTopicHtml(to.address)));
      shown_ = {};
      break;
  }
}

// The next place that holds the searched text: further on in this page, else in the topics that
// follow it (from the first again after the last), this page's start last of all.
void HelpWindow::search() {
  const QString text = searched_->text();
  if (text.isEmpty()) {
    return;
  }
  if (page_->find(text)) {
    status_->clear();
    return;
  }
  const auto topics = help::helpTopics();
  const int from = std::max(topicRow(shown_.topic), 0);
  for (std::size_t k = 1; k <= topics.size(); ++k) {
    const std::string topic = topics[(static_cast<std::size_t>(from) + k) % topics.size()].file;
    QTextDocument document;
    document.setHtml(topicHtml(topic));
    if (!document.find(text).isNull()) {
      loading_.reset();
      arrive({topic, ""}, Step::Visit);
      page_->find(text);
      return;
    }
  }
  status_->setText(qs(help::notFoundText(ss(text))));
  QApplication::beep();
}

void HelpWindow::showState() {
  const bool busy = loading_.has_value();
  stop_->setEnabled(busy);
  back_->setEnabled(!busy && history_.canGoBack());
  forward_->setEnabled(!busy && history_.canGoForward());
  refresh_->setEnabled(!busy);
}

}  // namespace contavia::ui

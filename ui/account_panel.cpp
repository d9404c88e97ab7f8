#include "ui/account_panel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "archive/session.h"
#include "frame/account_panel_texts.h"
#include "frame/account_selector.h"
#include "masterdata/account_item.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {
namespace {

// Colours of the standard 16-colour palette used by the letter index.
const QColor kWhite(0xFF, 0xFF, 0xFF);   // 15
const QColor kBlue(0x00, 0x00, 0x80);    // 1
const QColor kYellow(0xFF, 0xFF, 0x00);  // 14

void paintLabel(QLabel* label, const QColor& back, const QColor& fore) {
  label->setAutoFillBackground(true);
  QPalette p = label->palette();
  p.setColor(QPalette::Window, back);
  p.setColor(QPalette::WindowText, fore);
  label->setPalette(p);
}

QLabel* caption(const QString& controlName, const QString& text) {
  auto* label = named(new ClickableLabel(text), controlName);
  return label;
}

}  // namespace

AccountPanel::AccountPanel(Session& session, QWidget* parent)
    : QFrame(parent), session_(session), combo_(named(new QComboBox, "Combo1")) {
  named(this, "Panel3D1");
  setFrameShape(QFrame::StyledPanel);
  setFixedWidth(300);

  combo_->setFont(fixedPitchFont(9));
  combo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo_->setMinimumContentsLength(20);
  combo_->view()->setMinimumWidth(520);
  connect(combo_, &QComboBox::activated, this,
          [this](int index) { emit accountChosen(combo_->itemText(index)); });

  auto* letters = new QGridLayout;
  letters->setSpacing(2);
  for (int i = 0; i < 24; ++i) {
    const QString text = i < static_cast<int>(kAllAccountsLabel) ? QString(QChar(kIndexLetters[i]))
                                                                 : kAllAccountsCaption;
    auto* label = named(new ClickableLabel(text), QString("Label1(%1)").arg(i));
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumHeight(22);
    label->setCursor(Qt::PointingHandCursor);
    connect(label, &ClickableLabel::clicked, this, [this, i] { chooseLetter(i); });
    letters_[static_cast<std::size_t>(i)] = label;
    if (i < static_cast<int>(kAllAccountsLabel)) {
      letters->addWidget(label, i / 8, i % 8);
    } else {
      letters->addWidget(label, 2, 7);
    }
  }
  highlight(-1);

  today_ = named(new ClickableLabel, "DataOdierna");
  accountName_ = named(new ClickableLabel, "NomeContoAttivo");
  accountName_->setWordWrap(true);
  accountAddress_ = named(new ClickableLabel, "IndirizzoContoAttivo");
  accountAddress_->setWordWrap(true);
  accountTown_ = named(new ClickableLabel, "LocalitaContoAttivo");
  accountTown_->setWordWrap(true);
  group_ = named(new ClickableLabel, "GruppoConto");
  category_ = named(new ClickableLabel, "TipoConto");
  latestDate_ = named(new ClickableLabel, "UltimaData");
  for (std::size_t i = 0; i < figures_.size(); ++i) {
    figures_[i] = named(new ClickableLabel, QString("Saldi(%1)").arg(i));
    figures_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    figures_[i]->setFont(fixedPitchFont(10));
    connect(figures_[i], &ClickableLabel::clicked, this, &AccountPanel::beep);
  }
  connect(static_cast<ClickableLabel*>(latestDate_), &ClickableLabel::clicked, this,
          &AccountPanel::beep);

  auto* grid = new QGridLayout;
  int row = 0;
  grid->addWidget(caption("Label7", "oggi"), row, 0);
  grid->addWidget(today_, row++, 1);
  grid->addWidget(caption("Label5", "conto"), row, 0, Qt::AlignTop);
  auto* who = new QVBoxLayout;
  who->setSpacing(0);
  who->addWidget(accountName_);
  who->addWidget(accountAddress_);
  who->addWidget(accountTown_);
  grid->addLayout(who, row++, 1);
  grid->addWidget(caption("Label3", "Gruppo:"), row, 0);
  grid->addWidget(group_, row++, 1);
  grid->addWidget(caption("Label6", "Categoria:"), row, 0);
  grid->addWidget(category_, row++, 1);
  grid->addWidget(caption("Label2", "Saldo oggi:"), row, 0);
  grid->addWidget(figures_[0], row++, 1);
  auto* balanceAt = new QHBoxLayout;
  balanceAt->addWidget(caption("Label4", "Saldo al:"));
  balanceAt->addWidget(latestDate_);
  grid->addLayout(balanceAt, row, 0);
  grid->addWidget(figures_[1], row++, 1);
  grid->addWidget(caption("Label8", "Fido:"), row, 0);
  grid->addWidget(figures_[2], row++, 1);
  grid->addWidget(caption("Label9", "Disponib.:"), row, 0);
  grid->addWidget(figures_[3], row++, 1);
  grid->setColumnStretch(1, 1);
  // The captions' column is as wide with an account as without: the values stay in place.
  grid->setColumnMinimumWidth(0,
                              balanceAt->spacing() + fontMetrics().horizontalAdvance("Saldo al:") +
                                  latestDate_->fontMetrics().horizontalAdvance("00/00/0000") + 8);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(combo_);
  layout->addLayout(letters);
  layout->addSpacing(8);
  layout->addLayout(grid);
  layout->addStretch(1);

  showToday();
  fillAllAccounts();
  showAccount();
}

void AccountPanel::beep() { session_.prompter().beep(); }

void AccountPanel::mousePressEvent(QMouseEvent* event) {
  event->accept();
  beep();
}

void AccountPanel::setItems(const QStringList& items) {
  combo_->clear();
  combo_->addItems(items);
  combo_->setCurrentIndex(-1);
}

void AccountPanel::fillAllAccounts() {
  QStringList items;
  for (const std::string& item : accountItems(session_.tables().accounts)) {
    items << qs(item);
  }
  setItems(items);
}

void AccountPanel::highlight(int label) {
  for (int i = 0; i < static_cast<int>(letters_.size()); ++i) {
    const bool on = i == label;
    paintLabel(letters_[static_cast<std::size_t>(i)], on ? kBlue : kWhite, on ? kYellow : kBlue);
  }
}

void AccountPanel::chooseLetter(int label) {
  highlight(label);
  QStringList items;
  for (const std::string& item :
       accountItemsForLabel(session_.tables().accounts, static_cast<std::size_t>(label))) {
    items << qs(item);
  }
  setItems(items);
}

void AccountPanel::showToday() { today_->setText(qs(session_.clock().todayText())); }

void AccountPanel::showAccount() {
  const AccountPanelTexts texts = accountPanelTexts(session_);
  accountName_->setText(qs(texts.name));
  accountAddress_->setText(qs(texts.address));
  accountTown_->setText(qs(texts.town));
  group_->setText(qs(texts.group));
  category_->setText(qs(texts.category));
  latestDate_->setText(qs(texts.latestDate));
  for (std::size_t i = 0; i < figures_.size(); ++i) {
    figures_[i]->setText(qs(texts.figures[i]));
  }
}

}  // namespace contavia::ui

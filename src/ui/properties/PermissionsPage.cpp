#include "ui/properties/PermissionsPage.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/DialogMeasures.h"

namespace tarnwell::ui {

using platform::CountedText;

namespace {

constexpr int PermissionsRowSpacing = 8;
constexpr int PageTextWidth = 434;
constexpr int TroubleLines = 5;

struct Class {
  const char* Caption;
  int Shift;  // of its bits
};
constexpr Class Classes[] = {{"Owner", 6}, {"Group", 3}, {"Others", 0}};

struct Right {
  const char* Caption;
  std::uint32_t Bit;
};
constexpr Right Rights[] = {{"Read", 4}, {"Write", 2}, {"Execute", 1}};

struct SpecialBit {
  const char* Caption;
  const char* Help;
  std::uint32_t Bit;
};
constexpr SpecialBit SpecialBits[] = {
    {"Set &user ID", "A program runs with the rights of its owner.", 04000},
    {"Set g&roup ID",
     "A program runs with the rights of its group; what is made in a folder gets the folder's "
     "group.",
     02000},
    {"&Sticky", "In a folder only the owner of an item may rename or delete it.", 01000}};

QLabel* Text(QLabel& label) {
  label.setTextFormat(Qt::PlainText);
  label.setWordWrap(true);
  label.setFixedWidth(PageTextWidth);
  return &label;
}

Qt::CheckState StateOf(const ItemsSummary& summary, std::uint32_t bit) {
  if ((summary.ModeOfAll & bit) != 0) return Qt::Checked;
  return (summary.ModeOfAny & bit) != 0 ? Qt::PartiallyChecked : Qt::Unchecked;
}

}  // namespace

PermissionsPage::PermissionsPage(const platform::NumberForms& forms, std::function<void()> touched)
    : forms_(forms),
      touched_(std::move(touched)),
      table_(new QGridLayout),
      troubles_(new ReadOnlyText(PageTextWidth, TroubleLines, this)) {
  auto* const sheet = new QFrame(this);
  sheet->setFrameShape(QFrame::StyledPanel);
  sheet->setAutoFillBackground(true);
  sheet->setBackgroundRole(QPalette::Base);
  sheet->setLayout(table_);
  AddTable();
  inside_.setText(QStringLiteral("Apply to items &inside"));
  connect(&inside_, &QCheckBox::toggled, this, [this] { touched_(); });
  hint_.setText(
      QStringLiteral("Only the boxes that you click are applied. Files inside become executable "
                     "only where they are so for somebody already."));
  troubles_->setAccessibleName(QStringLiteral("Problems"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(PageSpacing);
  column->addWidget(sheet);
  column->addWidget(&inside_);
  column->addWidget(Text(hint_));
  column->addWidget(Text(reason_));
  column->addWidget(Text(troubleHead_));
  column->addWidget(troubles_);
  column->addStretch();
  for (QWidget* const each : {static_cast<QWidget*>(&inside_), static_cast<QWidget*>(&hint_),
                              static_cast<QWidget*>(&reason_), static_cast<QWidget*>(&troubleHead_),
                              static_cast<QWidget*>(troubles_)}) {
    each->hide();
  }
  Enable(false);
}

void PermissionsPage::AddTable() {
  table_->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  table_->setHorizontalSpacing(PageSpacing);
  table_->setVerticalSpacing(PermissionsRowSpacing);
  table_->setColumnStretch(1, 1);
  for (int column = 2; column < 5; ++column) table_->setColumnMinimumWidth(column, 62);
  int column = 2;
  for (const Right& right : Rights) {
    auto* const head = new QLabel(QLatin1String(right.Caption), this);
    table_->addWidget(head, 0, column++, Qt::AlignCenter);
  }
  QLabel* const names[] = {&owner_, &group_, nullptr};
  int row = 1;
  for (const Class& each : Classes) {
    table_->addWidget(new QLabel(QLatin1String(each.Caption) + ':', this), row, 0);
    if (QLabel* const name = names[row - 1]) {
      name->setTextFormat(Qt::PlainText);
      table_->addWidget(name, row, 1);
    }
    column = 2;
    for (const Right& right : Rights) {
      const QString caption = QString::fromLatin1(each.Caption) + QStringLiteral(": ") +
                              QString::fromLatin1(right.Caption);
      table_->addWidget(AddBox(right.Bit << each.Shift, {}, caption), row, column++,
                        Qt::AlignCenter);
    }
    ++row;
  }
  table_->addWidget(new QLabel(QStringLiteral("Special:"), this), row, 0);
  table_->addWidget(MakeSpecialRow(), row++, 1, 1, 4);
  table_->addWidget(new QLabel(QStringLiteral("Octal:"), this), row, 0);
  octal_.setTextInteractionFlags(Qt::TextSelectableByMouse);
  table_->addWidget(&octal_, row, 1, 1, 4);
}

QWidget* PermissionsPage::MakeSpecialRow() {
  auto* const row = new QWidget(this);
  auto* const layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(PageSpacing);
  for (const SpecialBit& special : SpecialBits) {
    const QString caption = QString::fromLatin1(special.Caption);
    QCheckBox* const box = AddBox(special.Bit, caption, QString(caption).remove('&'));
    box->setToolTip(QString::fromLatin1(special.Help));
    layout->addWidget(box);
  }
  layout->addStretch();
  return row;
}

QCheckBox* PermissionsPage::AddBox(std::uint32_t bit, const QString& caption, const QString& name) {
  auto* const box = new QCheckBox(caption, this);
  box->setAccessibleName(name);
  const std::size_t at = boxes_.size();
  boxes_.push_back({box, bit});
  connect(box, &QCheckBox::clicked, this, [this, at] { Touch(at); });
  return box;
}

// Clicked back to "it differs", a box asks for nothing any more.
void PermissionsPage::Touch(std::size_t at) {
  boxes_[at].IsTouched = boxes_[at].Check->checkState() != Qt::PartiallyChecked;
  ShowOctal();
  touched_();
}

void PermissionsPage::Show(const ItemsSummary& summary) {
  const auto name = [](bool same, const std::string& text) {
    return same ? ToQString(text) : QStringLiteral("various");
  };
  owner_.setText(name(summary.SameOwner, summary.First.Owner));
  group_.setText(name(summary.SameGroup, summary.First.Group));
  for (Box& box : boxes_) {
    box.Before = StateOf(summary, box.Bit);
    box.IsTouched = false;
    box.Check->setTristate(box.Before == Qt::PartiallyChecked);
    box.Check->setCheckState(box.Before);
  }
  mayChange_ = summary.Changeable > 0;
  std::string reason = summary.WhyFixed;
  if (const std::uint64_t fixed = summary.Count - summary.Changeable; mayChange_ && fixed > 0) {
    const std::string items = platform::Counted(forms_, CountedText::Items, summary.Count);
    reason = platform::Counted(forms_, CountedText::LeftUnchanged, fixed, {items, reason});
  }
  reason_.setText(ToQString(reason));
  reason_.setVisible(!reason.empty());
  inside_.setVisible(summary.ChangeableFolders > 0);
  inside_.setChecked(false);
  hint_.setVisible(summary.ChangeableFolders > 0);
  Enable(mayChange_);
  ShowOctal();
}

void PermissionsPage::ShowOctal() {
  std::uint32_t mode = 0;
  bool differs = false;
  for (const Box& box : boxes_) {
    if (box.Check->checkState() == Qt::Checked) mode |= box.Bit;
    differs = differs || box.Check->checkState() == Qt::PartiallyChecked;
  }
  octal_.setText(differs ? QStringLiteral("not the same for all")
                         : QStringLiteral("%1 (%2)")
                               .arg(mode, mode > 0777 ? 4 : 3, 8, QLatin1Char('0'))
                               .arg(ToQString(lister::PermissionText(mode))));
}

std::optional<platform::PermissionChange> PermissionsPage::Change() const {
  platform::PermissionChange change;
  bool differs = false;
  for (const Box& box : boxes_) {
    if (!box.IsTouched) continue;
    const Qt::CheckState state = box.Check->checkState();
    (state == Qt::Checked ? change.Set : change.Clear) |= box.Bit;
    // Those inside may differ from what is shown.
    differs = differs || state != box.Before || IsInside();
  }
  return differs ? std::optional(change) : std::nullopt;
}

void PermissionsPage::Enable(bool on) {
  for (const Box& box : boxes_) box.Check->setEnabled(on);
  inside_.setEnabled(on);
}

void PermissionsPage::ShowBusy(const QString& text) {
  Enable(false);
  if (text.isEmpty()) return;
  reason_.setText(text);
  reason_.show();
}

void PermissionsPage::ShowTroubles(const platform::PermissionOutcome& outcome) {
  QStringList lines;
  for (const platform::PermissionTrouble& trouble : outcome.Troubles) {
    lines << ToShownQString(trouble.Path) + QStringLiteral(": ") + ToQString(trouble.Reason.Reason);
  }
  const std::uint64_t more = outcome.Failed - outcome.Troubles.size();
  if (more > 0) {
    lines << ToQString(platform::Counted(forms_, CountedText::AndMoreItems, more));
  }
  troubleHead_.setText(
      ToQString(platform::Counted(forms_, CountedText::NotChanged, outcome.Failed)));
  troubles_->ShowText(lines.join('\n'));
  troubleHead_.setVisible(outcome.Failed > 0);
  troubles_->setVisible(outcome.Failed > 0);
}

}  // namespace tarnwell::ui

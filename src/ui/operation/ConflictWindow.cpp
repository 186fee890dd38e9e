// The question what to do with an item that is to go where another one stands.

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <algorithm>
#include <cstdlib>

#include "lister/rows/CellText.h"
#include "ui/operation/OperationQuestions.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/ElidedLabel.h"

namespace tarnwell::ui {
namespace {

using platform::ConflictAnswer;
using platform::ConflictChoice;
using platform::ConflictSide;
using platform::FileFunction;
using platform::ItemKind;
using Role = QuestionWindow::Role;

constexpr int SidePictureSize = 64;  // logical pixels
constexpr int Padding = 10;
constexpr int SideRowSpacing = 4;
// Times this near each other are the same: some file systems keep no finer ones.
constexpr std::int64_t SameTime = 2'000'000'000;  // nanoseconds

QString KindOf(const ConflictSide& side) {
  if (side.IsLink) return QStringLiteral("link");
  if (side.Kind == ItemKind::Folder) return QStringLiteral("folder");
  return QStringLiteral("file");
}

struct Meeting {
  QString Meaning;  // of the buttons that are not plain
  QString ForAll;
  const char* Replace = "&Replace";  // null where nothing can be replaced
  bool HasOlder = false;
};

Meeting MeetingOf(const ConflictSide& source, const ConflictSide& target) {
  if (IsFolder(source) && IsFolder(target)) {
    return {QStringLiteral("Merge leaves what is there and adds what comes, with the folders in "
                           "the two. Files that meet are asked about."),
            QStringLiteral("Do the same with a&ll other folders"), "&Merge"};
  }
  const QString forAll = QStringLiteral("Do the same with a&ll other items of unlike kinds");
  if (IsFolder(target)) {
    return {QStringLiteral("A folder is not replaced by a %1.").arg(KindOf(source)), forAll,
            nullptr};
  }
  if (IsFolder(source)) {
    return {QStringLiteral("Replace deletes the %1 there and puts the folder in its place.")
                .arg(KindOf(target)),
            forAll};
  }
  return {QStringLiteral("Replace deletes the %1 there once the new one is whole. Replace If Older "
                         "does that only where the one there is older, and skips it otherwise.")
              .arg(KindOf(target)),
          QStringLiteral("Do the same with a&ll other files"), "&Replace", true};
}

// How one side compares with the other: ", larger".
QString Compared(bool more, bool less, const char* moreWord, const char* lessWord,
                 const char* sameWord) {
  if (!more && !less) return QStringLiteral(", %1").arg(QLatin1String(sameWord));
  // What stands out is the side that is more.
  return more ? QStringLiteral(", <b>%1</b>").arg(QLatin1String(moreWord))
              : QStringLiteral(", %1").arg(QLatin1String(lessWord));
}

QString SizeText(const ConflictSide& side, const ConflictSide& other,
                 const platform::NumberForms& forms) {
  if (side.IsLink || side.Kind != ItemKind::File) {
    const QString kind = KindOf(side);
    return kind.left(1).toUpper() + kind.mid(1);
  }
  QString text = ToQString(lister::SizeText(forms, side.Size));
  if (other.IsLink || other.Kind != ItemKind::File) return text;
  return text +
         Compared(side.Size > other.Size, side.Size < other.Size, "larger", "smaller", "same size");
}

QString DateText(const ConflictSide& side, const ConflictSide& other, const OperationTools& tools) {
  QString text = ToQString(lister::DateText(tools.Forms, tools.Clock, side.Modified));
  if (text.isEmpty() || other.Modified == platform::UnknownTime) return text;
  const bool same = std::abs(side.Modified - other.Modified) < SameTime;
  return text + Compared(!same && side.Modified > other.Modified,
                         !same && side.Modified < other.Modified, "newer", "older", "same date");
}

QPixmap PictureOf(const ConflictSide& side, const QImage& image, const IconSource& icons,
                  qreal ratio) {
  const QSize room(SidePictureSize, SidePictureSize);
  if (image.isNull()) {
    const QIcon icon = IsFolder(side) ? icons.Folder() : icons.File(side.Path);
    return icon.pixmap(room, ratio);
  }
  QPixmap picture = QPixmap::fromImage(image);
  const QSize most = room * ratio;
  if (picture.width() > most.width() || picture.height() > most.height()) {
    picture = picture.scaled(most, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  }
  picture.setDevicePixelRatio(ratio);
  return picture;
}

// One of the two items in a frame.
class SidePanel : public QFrame {
 public:
  SidePanel(const QString& caption, QWidget* parent)
      : QFrame(parent), grid_(new QGridLayout(this)) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    grid_->setContentsMargins(Padding, Padding, Padding, Padding);
    grid_->setHorizontalSpacing(Padding);
    grid_->setVerticalSpacing(SideRowSpacing);
    grid_->setColumnStretch(1, 1);
    auto* const head = new QLabel(caption, this);
    head->setForegroundRole(QPalette::Text);
    grid_->addWidget(head, 0, 1);
  }

  void Show(const ConflictSide& side, const ConflictSide& other, const QImage& image,
            const OperationTools& tools) {
    picture_ = new QLabel(this);
    picture_->setFixedSize(SidePictureSize, SidePictureSize);
    picture_->setAlignment(Qt::AlignCenter);
    picture_->setPixmap(PictureOf(side, image, tools.Icons, devicePixelRatio()));
    auto* const name = new ElidedLabel(this);
    QFont bold = name->font();
    bold.setBold(true);
    name->setFont(bold);
    name->ShowText(ToQString(lister::NameText(tools.Syntax, side.Path)));
    auto* const folder = new ElidedLabel(this);
    folder->ShowText(ToShownQString(tools.Syntax.ParentOf(side.Path)));
    int row = 1;
    for (QLabel* const line : {static_cast<QLabel*>(name), static_cast<QLabel*>(folder),
                               new QLabel(SizeText(side, other, tools.Forms), this),
                               new QLabel(DateText(side, other, tools), this)}) {
      grid_->addWidget(line, row++, 1);
    }
    grid_->addWidget(picture_, 0, 0, row, 1, Qt::AlignCenter);
  }

 private:
  QGridLayout* grid_;
  QLabel* picture_ = nullptr;
};

}  // namespace

std::unique_ptr<QuestionWindow> WindowOf(const ConflictQuestion& question,
                                         const OperationTools& tools, TakeAnswer take) {
  const platform::OperationConflict& conflict = question.Conflict;
  Meeting meeting = MeetingOf(conflict.Source, conflict.Target);
  QString heading = QStringLiteral("There is a %1 of this name already.");
  if (conflict.IsOtherSpelling) {
    heading = QStringLiteral(
        "There is a %1 whose name differs in case alone, which is the same "
        "name to the drive there.");
    meeting.ForAll = QStringLiteral("Do the same with a&ll other names that differ in case alone");
  }
  auto window = std::make_unique<QuestionWindow>(QStringLiteral("Name Already Taken"),
                                                 heading.arg(KindOf(conflict.Target)),
                                                 tools.Icons.Own("question"));
  const auto show = [&](const char* caption, const ConflictSide& side, const ConflictSide& other,
                        const QImage& image) {
    auto* const panel = new SidePanel(QString::fromLatin1(caption), window.get());
    panel->Show(side, other, image, tools);
    window->AddPart(*panel);
  };
  show("Already there:", conflict.Target, conflict.Source, question.TargetPicture);
  show(conflict.Function == FileFunction::Move ? "To be moved there:" : "To be copied there:",
       conflict.Source, conflict.Target, question.SourcePicture);
  window->AddText(meeting.Meaning);
  const QCheckBox& check = window->AddCheck(meeting.ForAll);
  const auto add = [&](const char* caption, Role role, ConflictChoice choice) {
    window->AddButton(QString::fromLatin1(caption), role, [take, choice, &check] {
      take(ConflictAnswer{choice, check.isChecked()});
    });
  };
  if (meeting.Replace != nullptr) add(meeting.Replace, Role::Plain, ConflictChoice::Replace);
  if (meeting.HasOlder) add("Replace If &Older", Role::Plain, ConflictChoice::ReplaceOlder);
  add("&Keep Both", Role::Plain, ConflictChoice::KeepBoth);
  add("&Skip", Role::Default, ConflictChoice::Skip);
  add("Ca&ncel", Role::Cancel, ConflictChoice::Cancel);
  return window;
}

}  // namespace tarnwell::ui

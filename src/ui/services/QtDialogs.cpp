#include "ui/services/QtDialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QSettings>

#include "ui/toolkit/Convert.h"
#include "ui/toolkit/FilePath.h"
#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/ShowOver.h"

namespace tarnwell::ui {
namespace {

// In logical pixels.
constexpr int MessagePictureSize = 32;
constexpr int AskedTextWidth = 420;  // at least

// A dialog over the window in use, which takes it along where it goes: as the program is asked to
// end, say. That counts as cancelled.
template <typename Dialog>
class Asked {
 public:
  Asked() : dialog_(new Dialog(WindowInUse())) {}
  ~Asked() { delete dialog_; }
  Asked(const Asked&) = delete;
  Asked& operator=(const Asked&) = delete;

  Dialog& operator*() const { return *dialog_; }
  Dialog* operator->() const { return dialog_; }
  // Shows it until it is answered.
  bool IsAccepted() { return dialog_->exec() == QDialog::Accepted && dialog_; }

 private:
  QPointer<Dialog> dialog_;
};

// Takes the hourglass away that a command has put up behind which it asks.
class PlainPointer {
 public:
  PlainPointer() {
    if (const QCursor* const pointer = QApplication::overrideCursor()) {
      pointer_ = *pointer;
      QApplication::restoreOverrideCursor();
    }
  }
  ~PlainPointer() {
    if (pointer_) QApplication::setOverrideCursor(*pointer_);
  }
  PlainPointer(const PlainPointer&) = delete;
  PlainPointer& operator=(const PlainPointer&) = delete;

 private:
  std::optional<QCursor> pointer_;
};

// Keeps the dialog in the desktop's colours, with what pops up in it and what it asks in its turn:
// windows do not inherit those of their parents by themselves.
class DesktopLook : public QObject {
 public:
  DesktopLook(QWidget& dialog, const QPalette& desktop) : QObject(&dialog) {
    dialog.setPalette(desktop);
    qApp->installEventFilter(this);
  }

  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() != QEvent::Polish || !receiver->isWidgetType()) return false;
    for (const QObject* each = receiver->parent(); each != nullptr; each = each->parent()) {
      if (each == parent()) static_cast<QWidget*>(receiver)->setAttribute(Qt::WA_WindowPropagation);
    }
    return false;
  }
};

std::optional<std::string> AskFile(const platform::FileQuestion& question,
                                   QFileDialog::AcceptMode mode, const QPalette& palette) {
  const PlainPointer pointer;
  Asked<QFileDialog> dialog;
  new DesktopLook(*dialog, palette);
  dialog->setWindowTitle(ToWindowTitle(question.Title));
  dialog->setAcceptMode(mode);
  dialog->setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                      : QFileDialog::AnyFile);
  dialog->setNameFilter(QStringLiteral("%1 (%2)").arg(ToQString(question.FilterName),
                                                      ToQString(question.FilterPattern)));
  dialog->setDefaultSuffix(ToQString(question.DefaultSuffix));
  if (!question.Folder.empty()) dialog->setDirectory(ToQtPath(question.Folder));
  if (!question.Name.empty()) dialog->selectFile(ToQtPath(question.Name));
  if (question.IsCentred) {
    const QSize size = dialog->size();
    const QPoint middle = dialog->screen()->geometry().center();
    MoveOntoScreen(*dialog, middle - QPoint(size.width() / 2, size.height() / 2), size);
  }
  if (!dialog.IsAccepted() || dialog->selectedFiles().isEmpty()) return std::nullopt;
  return FromQtPath(dialog->selectedFiles().constFirst());
}

void PutCustomColours(const platform::CustomColours& colours) {
  for (std::size_t i = 0; i < colours.size(); ++i) {
    QColorDialog::setCustomColor(static_cast<int>(i), ToQColor(colours.at(i)));
  }
}

void TakeCustomColours(platform::CustomColours& colours) {
  for (std::size_t i = 0; i < colours.size(); ++i) {
    colours.at(i) = ToColour(QColorDialog::customColor(static_cast<int>(i)));
  }
}

// The colours put aside that all programs of the toolkit have in common, in the settings of the
// toolkit (Qt/customColors/0 to 15 in QtProject.conf). A colour dialog writes them as it goes.
class CommonCustomColours {
 public:
  // What the settings have is put into the dialogs, to be called before the last of them goes: so
  // it writes what is there.
  void Restore() {
    const Settings settings;
    hasAny_ = false;
    for (int i = 0; i < QColorDialog::customCount(); ++i) {
      const QVariant value = settings.File.value(QStringLiteral("%1/%2").arg(Group).arg(i));
      hasAny_ = hasAny_ || value.isValid();
      QColorDialog::setCustomColor(i, value.isValid() ? QColor(value.toUInt()) : Qt::white);
    }
  }
  // After the dialogs.
  ~CommonCustomColours() {
    if (!hasAny_) Settings().File.remove(Group);
  }

 private:
  struct Settings {
    QSettings File{QSettings::UserScope, QStringLiteral("QtProject")};
  };
  const QString Group = QStringLiteral("Qt/customColors");
  bool hasAny_ = true;
};

// The program's own buttons have none.
void DropPictures(const QWidget& dialog) {
  for (QAbstractButton* const button : dialog.findChildren<QAbstractButton*>()) {
    button->setIcon(QIcon());
  }
}

// The text is shown as it is, also where a name in it looks like HTML. Gives the button; none where
// the window below goes, as when the program is asked to end, and takes the box along.
int ShowBox(const QIcon& picture, const std::string& title, const std::string& text,
            QMessageBox::StandardButtons buttons, QMessageBox::StandardButton usual) {
  const QPointer<QMessageBox> box = new QMessageBox(QMessageBox::NoIcon, ToQString(title),
                                                    ToShownLines(text), buttons, WindowInUse());
  box->setTextFormat(Qt::PlainText);
  box->setIconPixmap(
      picture.pixmap(QSize(MessagePictureSize, MessagePictureSize), box->devicePixelRatio()));
  DropPictures(*box);
  box->setDefaultButton(usual);
  const int answer = box->exec();
  delete box;
  return answer;
}

}  // namespace

bool QtDialogs::AskYesNo(const std::string& title, const std::string& text, bool usual) {
  return ShowBox(icons_.Own("question"), title, text, QMessageBox::Yes | QMessageBox::No,
                 usual ? QMessageBox::Yes : QMessageBox::No) == QMessageBox::Yes;
}

void QtDialogs::ShowCritical(const std::string& title, const std::string& text) {
  ShowBox(icons_.Own("warning"), title, text, QMessageBox::Ok, QMessageBox::Ok);
}

std::optional<std::string> QtDialogs::AskText(const platform::TextQuestion& question) {
  Asked<QInputDialog> dialog;
  dialog->setWindowTitle(ToWindowTitle(question.Title));
  dialog->setLabelText(ToQString(question.Prompt));
  dialog->setTextValue(ToEditedQString(question.Text));
  (void)dialog->sizeHint();  // makes the parts
  if (auto* const edit = dialog->findChild<QLineEdit*>()) {
    edit->setMinimumWidth(AskedTextWidth);
    edit->selectAll();
  }
  DropPictures(*dialog);
  if (question.Place) {
    const platform::ScreenPlace& place = *question.Place;
    MoveOntoScreen(*dialog, {ToPixels(place.Left), ToPixels(place.Top)}, dialog->sizeHint());
  }
  if (!dialog.IsAccepted()) return std::nullopt;
  return FromEditedQString(dialog->textValue());
}

std::optional<base::Colour> QtDialogs::AskColour(const platform::ColourQuestion& question) {
  CommonCustomColours common;  // outlives the dialog
  Asked<QColorDialog> dialog;
  new DesktopLook(*dialog, desktop_);
  PutCustomColours(question.Custom);
  dialog->setCurrentColor(ToQColor(question.Start));
  if (question.Shown) {
    QObject::connect(&*dialog, &QColorDialog::currentColorChanged, &*dialog,
                     [&question](const QColor& colour) {
                       if (colour.isValid()) question.Shown(ToColour(colour));
                     });
  }
  std::optional<base::Colour> chosen;
  if (dialog.IsAccepted()) chosen = ToColour(dialog->selectedColor());
  TakeCustomColours(question.Custom);
  common.Restore();
  return chosen;
}

std::optional<std::string> QtDialogs::AskOpenFile(const platform::FileQuestion& question) {
  return AskFile(question, QFileDialog::AcceptOpen, desktop_);
}

std::optional<std::string> QtDialogs::AskSaveFile(const platform::FileQuestion& question) {
  return AskFile(question, QFileDialog::AcceptSave, desktop_);
}

std::optional<std::string> QtDialogs::AskFolder(const std::string& title,
                                                const std::string& folder) {
  Asked<QFileDialog> dialog;
  new DesktopLook(*dialog, desktop_);
  dialog->setWindowTitle(ToWindowTitle(title));
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  if (!folder.empty()) dialog->setDirectory(ToQtPath(folder));
  if (!dialog.IsAccepted() || dialog->selectedFiles().isEmpty()) return std::nullopt;
  return FromQtPath(dialog->selectedFiles().constFirst());
}

}  // namespace tarnwell::ui

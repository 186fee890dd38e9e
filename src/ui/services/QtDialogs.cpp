#include "ui/services/QtDialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>

#include "ui/toolkit/Convert.h"
#include "ui/toolkit/FilePath.h"

namespace tarnwell::ui {
namespace {

constexpr int MessagePictureSize = 32;  // logical pixels

std::optional<std::string> AskFile(const platform::FileQuestion& question,
                                   QFileDialog::AcceptMode mode) {
  QFileDialog dialog(QApplication::activeWindow(), ToQString(question.Title));
  dialog.setAcceptMode(mode);
  dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                     : QFileDialog::AnyFile);
  dialog.setNameFilter(QStringLiteral("%1 (%2)").arg(ToQString(question.FilterName),
                                                     ToQString(question.FilterPattern)));
  dialog.setDefaultSuffix(ToQString(question.DefaultSuffix));
  if (!question.Folder.empty()) dialog.setDirectory(ToQtPath(question.Folder));
  if (!question.Name.empty()) dialog.selectFile(ToQtPath(question.Name));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return FromQtPath(dialog.selectedFiles().constFirst());
}

// The text is shown as it is, also where a name in it looks like HTML. Gives the button; none where
// the window below goes, as when the program is asked to end, and takes the box along.
int ShowBox(const QIcon& picture, const std::string& title, const std::string& text,
            QMessageBox::StandardButtons buttons, QMessageBox::StandardButton usual) {
  const QPointer<QMessageBox> box =
      new QMessageBox(QMessageBox::NoIcon, ToQString(title), ToShownLines(text), buttons,
                      QApplication::activeWindow());
  box->setTextFormat(Qt::PlainText);
  box->setIconPixmap(
      picture.pixmap(QSize(MessagePictureSize, MessagePictureSize), box->devicePixelRatio()));
  for (QAbstractButton* const button : box->buttons()) button->setIcon(QIcon());
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
  bool accepted = false;
  const QString text = QInputDialog::getText(
      QApplication::activeWindow(), ToQString(question.Title), ToQString(question.Prompt),
      QLineEdit::Normal, ToEditedQString(question.Text), &accepted);
  if (!accepted) return std::nullopt;
  return FromEditedQString(text);
}

std::optional<base::Colour> QtDialogs::AskColour(const platform::ColourQuestion& question) {
  const QColor colour =
      QColorDialog::getColor(ToQColor(question.Start), QApplication::activeWindow(), QString());
  if (!colour.isValid()) return std::nullopt;
  return base::Rgb(colour.red(), colour.green(), colour.blue());
}

std::optional<std::string> QtDialogs::AskOpenFile(const platform::FileQuestion& question) {
  return AskFile(question, QFileDialog::AcceptOpen);
}

std::optional<std::string> QtDialogs::AskSaveFile(const platform::FileQuestion& question) {
  return AskFile(question, QFileDialog::AcceptSave);
}

}  // namespace tarnwell::ui

#include "ui/forms/AcknowWindow.h"

#include <QVBoxLayout>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

constexpr int AcknowWidth = 480;  // logical pixels, of the texts
constexpr int MostLines = 14;     // of each

}  // namespace

AcknowWindow::AcknowWindow(shell::frmAcknow& form) : form_(form), close_(new QPushButton(this)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogMargin);
  acknowledgement_ = AddText(QStringLiteral("Acknowledgement"));
  libraries_ = AddText(QStringLiteral("Libraries"));
  disclaimer_ = AddText(QStringLiteral("Disclaimer"));
  close_->setMinimumWidth(DialogButtonWidth);
  connect(close_, &QPushButton::clicked, this, [this] { form_.cmdCloseClick(); });
  column->addWidget(close_, 0, Qt::AlignRight);
  column->setSizeConstraint(QLayout::SetFixedSize);
}

ReadOnlyText* AcknowWindow::AddText(const QString& name) {
  auto* const text = new ReadOnlyText(AcknowWidth, MostLines, this);
  text->setAccessibleName(name);
  layout()->addWidget(text);
  return text;
}

void AcknowWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  setPalette(FixedLightPalette(ToQColor(form_.BackColour)));
  acknowledgement_->ShowText(ToShownLines(form_.Label1.Caption));
  libraries_->ShowText(ToShownLines(form_.lblLibraries.Caption));
  disclaimer_->ShowText(ToShownLines(form_.lblDisclaim.Caption));
  close_->setText(ToShownQString(form_.cmdClose.Caption));
  close_->setDefault(form_.cmdClose.Default);
}

void AcknowWindow::Measure() {
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

void AcknowWindow::Show(QWidget* owner) {
  ShowDialog(*this, form_, owner);
  close_->setFocus();
}

void AcknowWindow::reject() {
  if (!IsClosed()) form_.cmdCloseClick();
}

}  // namespace tarnwell::ui

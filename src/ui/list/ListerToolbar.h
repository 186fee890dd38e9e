// The small toolbar above a file list: what the list is filtered by, and buttons.
//
// Shows what the control says of the filter and reports what the user wants; filters nothing.
#pragma once

#include <QFontMetrics>
#include <QLineEdit>
#include <QToolButton>
#include <QWidget>
#include <array>
#include <vector>

#include "lister/ListerControl.h"
#include "ui/list/ListerStyle.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

class ExtensionBox;

// The field for the filter. Escape empties it; Escape, Enter and Down lead back to the list, Up to
// the extensions.
class FilterField : public QLineEdit {
  Q_OBJECT

 public:
  explicit FilterField(QWidget* parent) : QLineEdit(parent) {}

 signals:
  void ListAsked();
  void ExtensionsAsked();
  void FocusChanged();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

class ListerToolbar : public QWidget {
  Q_OBJECT

 public:
  // Control and style outlive the toolbar.
  ListerToolbar(const lister::ListerControl& control, const ListerStyle& style,
                const IconSource& icons, QWidget* parent);

  void ShowFilter();
  void ShowStyle();
  QSize sizeHint() const override;
  QWidget& UpButton() const;
  // Gives the field for the filter the keyboard.
  void EnterFilter();

  // Pixels that a row of controls above a list takes.
  static int RowHeight(const QFontMetrics& font);

 signals:
  void FilterTyped(const QString& text);
  void ExtensionChosen(const QByteArray& extension);  // empty for all
  void CalculateAsked();
  void UpAsked();
  void NewFolderAsked();
  void BookmarkChosen(int slot);  // 0 to 9
  void ListAsked();               // the keyboard is to go to the list
  void FocusTaken();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Name(std::size_t number, const QString& tip);
  void AddButton(std::size_t number, const QString& icon, const QString& tip,
                 void (ListerToolbar::*clicked)(), const IconSource& icons);
  // The menu of the bookmarks, below its button.
  void OpenBookmarks();
  // All extensions of the folder; worked out when the user is about to see them.
  void FillExtensions();
  void PlaceChildren();

  const lister::ListerControl& control_;
  const ListerStyle& style_;
  ExtensionBox* extensions_;
  FilterField* filter_;
  std::array<QToolButton*, 4> buttons_{};
  std::vector<QToolButton*> placed_;  // those of them that this list has
};

}  // namespace tarnwell::ui

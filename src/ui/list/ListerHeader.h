// The headings of a list: shows order, width, visibility and sort marks as the control has them,
// and writes back what the user drags. The whole caption is in the tool-tip where a heading cuts
// it.
#pragma once

#include <QHeaderView>

#include "lister/ListerControl.h"
#include "lister/rows/ColumnRoom.h"
#include "ui/list/ListerStyle.h"

class QTreeView;

namespace tarnwell::ui {

class ListerHeader : public QHeaderView {
  Q_OBJECT

 public:
  // Both outlive the header.
  ListerHeader(lister::ListerControl& control, const ListerStyle& style, QWidget* parent);

  void BecomeHeaderOf(QTreeView& tree);
  // Takes the control's heading table over. To be called once the header has its model, and after
  // every change of the table.
  void ShowHeadings();

  // Pixels that the heading's caption takes, with room for a sort mark if the list `sorts` by it.
  int CaptionWidth(int section, bool sorts) const;
  QSize sizeHint() const override;

 signals:
  void ToggleAsked(int heading);                   // is to be shown or hidden
  void Sized(const lister::ColumnWidths& widths);  // by the user: all columns stand so
  void FilterAsked();                              // the keyboard is to go to the filter
  void ReleaseAsked();                             // the list is to see to the widths itself
  void Released();                                 // the main button of the mouse

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  QSize sectionSizeFromContents(int section) const override;
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void ShowWidths();
  void WriteWidths(int section, int pixels);
  void WriteOrder();
  // Paints the marks of the heading's sort level from the right end of `area`; gives what is left.
  QRect PaintSortMark(QPainter* painter, const QRect& area, int section) const;

  lister::ListerControl& control_;
  const ListerStyle& style_;
  bool showing_ = false;  // changes come from the control
  bool writing_ = false;  // changes go to the control
};

}  // namespace tarnwell::ui

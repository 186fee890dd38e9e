// The list of the trash's window: a tree view that tells keys as wishes, keeps its place while the
// rows become others, and has the tool-tip of what it cuts.
#pragma once

#include <QTreeView>

namespace tarnwell::ui {

class TrashList : public QTreeView {
  Q_OBJECT

 public:
  explicit TrashList(QWidget* parent);

 signals:
  void Typed(const QString& text);      // for the filter
  void MenuAsked(const QPoint& place);  // on the screen
  void PropertiesAsked();
  void DeleteAsked();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  void AskMenu();
};

}  // namespace tarnwell::ui

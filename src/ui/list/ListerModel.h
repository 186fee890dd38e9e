// The rows of a list as Qt's views read them.
//
// Reads the list's rows in place and keeps none. Columns are the headings by their numbers; the
// internal id of an index is the row's RowId, so that an index finds its row again after a sort.
#pragma once

#include <QAbstractItemModel>
#include <QStringList>

#include "lister/list/ListAppearance.h"
#include "lister/rows/ListRows.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

class ListerModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  // All outlive the model.
  ListerModel(const lister::ListRows& rows, const lister::ListAppearance& shown,
              const IconSource& icons, QObject* parent);

  // RootRow for an index that is not valid.
  static lister::RowId RowOf(const QModelIndex& index);
  // The name cell of the row; not valid for RootRow and for a row that does not exist.
  QModelIndex IndexOf(lister::RowId row) const;

  // The calls of ListerView that change rows.
  void BeginReset() { beginResetModel(); }
  void EndReset() { endResetModel(); }
  void BeginInsert(lister::RowId parent, int first, int last);
  void EndInsert() { endInsertRows(); }
  void BeginRemove(lister::RowId parent, int first, int last);
  void EndRemove() { endRemoveRows(); }
  void BeginReorder(lister::RowId parent);
  void EndReorder();
  void CellsChanged(lister::RowId parent, int first, int last);
  void HeadingsChanged();

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  bool hasChildren(const QModelIndex& parent = {}) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  QVariant Icon(lister::RowId row) const;
  QString Description(lister::RowId row) const;

  const lister::ListRows& rows_;
  const lister::ListAppearance& shown_;
  const IconSource& icons_;
  QStringList headingTexts_;                // as the views were last told
  QList<QPersistentModelIndex> reordered_;  // the parent whose children change places
};

}  // namespace tarnwell::ui

// What lies in the trash as Qt's views read it: reads the form's rows in place and keeps none.
#pragma once

#include <QAbstractTableModel>

#include "fileops/frmRecycleBin.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

class TrashModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // Both outlive the model.
  TrashModel(const fileops::frmRecycleBin& form, const IconSource& icons, QObject* parent)
      : QAbstractTableModel(parent), form_(form), icons_(icons) {}

  void Begin() { beginResetModel(); }
  void End() { endResetModel(); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  QIcon Icon(const platform::TrashedItem& item) const;

  const fileops::frmRecycleBin& form_;
  const IconSource& icons_;
};

}  // namespace tarnwell::ui

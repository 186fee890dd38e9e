// The items of a rename of many as Qt's views read them: reads the form's table in place.
#pragma once

#include <QAbstractTableModel>

#include "fileops/frmRenameItems.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

enum class RenameColumn { Before, After, Problem, Folder };
inline constexpr int RenameColumnCount = 4;

class RenameModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  // Both outlive the model.
  RenameModel(const fileops::frmRenameItems& form, const IconSource& icons)
      : form_(form), icons_(icons) {}

  // The names are others; the items stay.
  void Renew();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  QString Text(std::size_t row, RenameColumn column) const;
  QVariant Icon(std::size_t row, RenameColumn column) const;

  const fileops::frmRenameItems& form_;
  const IconSource& icons_;
};

}  // namespace tarnwell::ui

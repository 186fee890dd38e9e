#include "ui/forms/RenameModel.h"

#include <QFont>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

// By RenameColumn.
constexpr const char* RenameCaptions[RenameColumnCount] = {"Name", "New name", "Problem", "Folder"};

}  // namespace

void RenameModel::Renew() {
  if (rowCount() == 0) return;
  emit dataChanged(index(0, 0), index(rowCount() - 1, RenameColumnCount - 1));
}

int RenameModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(form_.Table().Count());
}

int RenameModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : RenameColumnCount;
}

QString RenameModel::Text(std::size_t row, RenameColumn column) const {
  const fileops::RenameTable& table = form_.Table();
  switch (column) {
    case RenameColumn::Before:
      return ToShownQString(table[row].Name);
    case RenameColumn::After:
      return ToShownQString(table[row].NewName);
    case RenameColumn::Problem:
      return ToQString(table.ReasonOf(row));
    case RenameColumn::Folder:
      return ToShownQString(table[row].Folder);
  }
  return {};
}

QVariant RenameModel::Icon(std::size_t row, RenameColumn column) const {
  const fileops::RenameTable& table = form_.Table();
  if (column == RenameColumn::Before) {
    return table.IsFolder(row) ? icons_.Folder() : icons_.File(table[row].Name);
  }
  const bool isFault = table.FaultOf(row) != fileops::RenameFault::None;
  if (column == RenameColumn::Problem && isFault) return icons_.Own("warning");
  return {};
}

QVariant RenameModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const auto column = static_cast<RenameColumn>(index.column());
  const fileops::RenameWish& wish = form_.Table()[row];
  switch (role) {
    case Qt::DisplayRole:
      return Text(row, column);
    case Qt::ToolTipRole:
      return PlainToolTip(Text(row, column));
    case Qt::DecorationRole:
      return Icon(row, column);
    case Qt::FontRole: {
      if (column != RenameColumn::After || wish.NewName == wish.Name) return {};
      QFont changed;
      changed.setBold(true);
      return changed;
    }
    case Qt::AccessibleDescriptionRole:
      return Text(row, RenameColumn::Problem);
    default:
      return {};
  }
}

QVariant RenameModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= RenameColumnCount) return {};
  if (role == Qt::DisplayRole) return QString::fromLatin1(RenameCaptions[section]);
  if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
  return {};
}

}  // namespace tarnwell::ui

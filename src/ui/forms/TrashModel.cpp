#include "ui/forms/TrashModel.h"

#include <QFont>

#include "fileops/TrashTexts.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

using fileops::TrashColumn;

namespace {

// By TrashColumn.
constexpr const char* TrashCaptions[fileops::TrashColumnCount] = {"Name", "Original folder",
                                                                  "Deleted", "Size  ", "Type"};

TrashColumn ColumnOf(int section) {
  return static_cast<TrashColumn>(section);
}

int TrashAlignment(TrashColumn column) {
  const auto side = column == TrashColumn::Size ? Qt::AlignRight : Qt::AlignLeft;
  return static_cast<int>(side | Qt::AlignVCenter);
}

}  // namespace

int TrashModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(form_.Rows().Count());
}

int TrashModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(fileops::TrashColumnCount);
}

QIcon TrashModel::Icon(const platform::TrashedItem& item) const {
  if (item.Kind == platform::ItemKind::Folder) return icons_.Folder();
  return item.State == platform::TrashState::NoFile ? icons_.AnyFile() : icons_.File(item.Name);
}

QVariant TrashModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const TrashColumn column = ColumnOf(index.column());
  const platform::TrashedItem& item = form_.Rows()[row];
  switch (role) {
    case Qt::DisplayRole:
      return ToQString(form_.CellText(row, column));
    case Qt::DecorationRole:
      return column == TrashColumn::Name ? QVariant(Icon(item)) : QVariant();
    case Qt::TextAlignmentRole:
      return TrashAlignment(column);
    case Qt::FontRole: {
      if (platform::CanRestore(item)) return {};
      QFont slanted;
      slanted.setItalic(true);
      return slanted;
    }
    case Qt::AccessibleDescriptionRole:
      return ToQString(fileops::TrashNote(item));
    default:
      return {};
  }
}

QVariant TrashModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return QString::fromLatin1(TrashCaptions[section]);
  if (role == Qt::TextAlignmentRole) return TrashAlignment(ColumnOf(section));
  return {};
}

}  // namespace tarnwell::ui

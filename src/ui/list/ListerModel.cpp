#include "ui/list/ListerModel.h"

#include "lister/rows/CellText.h"
#include "ui/list/ListerMarks.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

using lister::HeadingId;
using lister::RowId;

namespace {

HeadingId HeadingOf(int column) {
  return static_cast<HeadingId>(column);
}

Qt::Alignment AlignmentOf(int column) {
  return Qt::AlignVCenter | (HeadingOf(column) == HeadingId::Size ? Qt::AlignRight : Qt::AlignLeft);
}

}  // namespace

ListerModel::ListerModel(const lister::ListRows& rows, const lister::ListAppearance& shown,
                         const IconSource& icons, QObject* parent)
    : QAbstractItemModel(parent), rows_(rows), shown_(shown), icons_(icons) {}

RowId ListerModel::RowOf(const QModelIndex& index) {
  return index.isValid() ? static_cast<RowId>(index.internalId()) : lister::RootRow;
}

QModelIndex ListerModel::IndexOf(RowId row) const {
  if (row <= lister::RootRow) return {};
  const int position = rows_.PositionOf(row);
  return position < 0 ? QModelIndex() : createIndex(position, 0, static_cast<quintptr>(row));
}

void ListerModel::BeginInsert(RowId parent, int first, int last) {
  beginInsertRows(IndexOf(parent), first, last);
}

void ListerModel::BeginRemove(RowId parent, int first, int last) {
  beginRemoveRows(IndexOf(parent), first, last);
}

void ListerModel::BeginReorder(RowId parent) {
  reordered_ = {QPersistentModelIndex(IndexOf(parent))};
  emit layoutAboutToBeChanged(reordered_, QAbstractItemModel::VerticalSortHint);
}

void ListerModel::EndReorder() {
  const QModelIndexList before = persistentIndexList();
  QModelIndexList after;
  after.reserve(before.size());
  for (const QModelIndex& index : before) {
    const QModelIndex name = IndexOf(RowOf(index));
    after.append(name.isValid() ? createIndex(name.row(), index.column(), index.internalId())
                                : QModelIndex());
  }
  changePersistentIndexList(before, after);
  emit layoutChanged(reordered_, QAbstractItemModel::VerticalSortHint);
  reordered_.clear();
}

void ListerModel::CellsChanged(RowId parent, int first, int last) {
  const QModelIndex above = IndexOf(parent);
  emit dataChanged(index(first, 0, above), index(last, lister::HeadingCount - 1, above));
}

// A view that is told lays all of its rows out anew.
void ListerModel::HeadingsChanged() {
  QStringList texts;
  for (int column = 0; column < lister::HeadingCount; ++column) {
    const lister::Heading& heading = shown_.Table[HeadingOf(column)];
    texts << ToQString(heading.Caption) << ToQString(heading.ToolTip);
  }
  if (texts == headingTexts_) return;
  headingTexts_ = texts;
  emit headerDataChanged(Qt::Horizontal, 0, lister::HeadingCount - 1);
}

QModelIndex ListerModel::index(int row, int column, const QModelIndex& parent) const {
  if (column < 0 || column >= lister::HeadingCount || row < 0 || parent.column() > 0) return {};
  const RowId child = rows_.Child(RowOf(parent), row);
  if (child <= lister::RootRow) return {};
  return createIndex(row, column, static_cast<quintptr>(child));
}

QModelIndex ListerModel::parent(const QModelIndex& index) const {
  return index.isValid() ? IndexOf(rows_.Parent(RowOf(index))) : QModelIndex();
}

int ListerModel::rowCount(const QModelIndex& parent) const {
  return parent.column() > 0 ? 0 : rows_.ChildCount(RowOf(parent));
}

int ListerModel::columnCount(const QModelIndex&) const {
  return lister::HeadingCount;
}

bool ListerModel::hasChildren(const QModelIndex& parent) const {
  if (!parent.isValid()) return rows_.ChildCount(lister::RootRow) > 0;
  return parent.column() == 0 && !lister::IsFileList(shown_.Id) &&
         rows_.StateOf(RowOf(parent)).HasChildren;
}

Qt::ItemFlags ListerModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  return lister::IsFileList(shown_.Id) ? flags | Qt::ItemNeverHasChildren : flags;
}

QVariant ListerModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const RowId row = RowOf(index);
  switch (role) {
    case Qt::DisplayRole:
      return ToQString(rows_.CellText(row, HeadingOf(index.column())));
    case Qt::DecorationRole:
      if (HeadingOf(index.column()) != HeadingId::Name) return {};
      return Icon(row);
    case Qt::TextAlignmentRole:
      return static_cast<int>(AlignmentOf(index.column()));
    case Qt::AccessibleDescriptionRole:
      return Description(row);
    default:
      return {};
  }
}

// What sighted users see of the row by colour, badges and signs.
QString ListerModel::Description(RowId row) const {
  const lister::RowState state = rows_.StateOf(row);
  QStringList words;
  if (state.IsLink)
    words << (state.IsBroken ? QStringLiteral("broken link") : QStringLiteral("link"));
  if (state.IsCut) words << QStringLiteral("cut");
  if (state.Colour != lister::ItemColour::Default) {
    words << ToQString(lister::ItemColours[static_cast<std::size_t>(state.Colour)].Word);
  }
  if (state.Marks.Any()) words << MarksText(state.Marks);
  if (const std::string note = SizeNote(rows_, row); !note.empty()) words << ToQString(note);
  return words.join(QStringLiteral(", "));
}

QVariant ListerModel::Icon(RowId row) const {
  const lister::RowState state = rows_.StateOf(row);
  const lister::ListSettings& settings = shown_.Settings;
  if (state.Kind != platform::ItemKind::Folder) {
    return settings.ShowFileIcons ? icons_.File(rows_.CellText(row, HeadingId::Name))
                                  : icons_.AnyFile();
  }
  if (settings.ShowFolderIcons) {
    if (const QIcon own = icons_.KnownFolder(rows_.PathOf(row)); !own.isNull()) return own;
  }
  return state.IsOpen ? icons_.OpenFolder() : icons_.Folder();
}

QVariant ListerModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= lister::HeadingCount) return {};
  const lister::Heading& heading = shown_.Table[HeadingOf(section)];
  switch (role) {
    case Qt::DisplayRole:
      return ToQString(heading.Caption);
    case Qt::ToolTipRole:
      return ToQString(heading.ToolTip);
    case Qt::TextAlignmentRole:
      return static_cast<int>(AlignmentOf(section));
    default:
      return {};
  }
}

}  // namespace tarnwell::ui

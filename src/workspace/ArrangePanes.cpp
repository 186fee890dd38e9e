#include "workspace/ArrangePanes.h"

#include <algorithm>
#include <cmath>

#include "workspace/PaneShares.h"

namespace tarnwell::workspace {
namespace {

using base::RoundToTwips;
using base::Twips;

constexpr Twips RowsTop = 430;
constexpr Twips LeastArea = 2000;
// What a folder list leaves of its pane at least.
constexpr Twips FolderClampVertical = 500;
constexpr Twips FolderClampHorizontal = 800;
// A list with less is not shown.
constexpr Twips LeastListWidth = 1200;
constexpr Twips LeastListHeight = 1700;
// No pane gets less of the form, whatever its share, so that its title stays within reach.
constexpr Twips LeastPaneWidth = 300;
constexpr Twips LeastPaneHeight = 380;
// Nor does the path in a title, for which the pictures beside it give way.
constexpr Twips LeastTitleWidth = 300;
// The command line, from the bottom of the form.
constexpr Twips CurrentPathFromBottom = 305;
constexpr Twips CommandFromBottom = 340;

constexpr Twips OnePixel = base::TwipsPerPixel;
constexpr Twips PlaceHolderMargin = 7 * OnePixel;
constexpr Twips NoRoomMargin = 50;

Twips OnGrid(double split) {
  return RoundToTwips(std::nearbyint(split / SplitGrid) * SplitGrid);
}

class Arranger {
 public:
  Arranger(const PaneRecords& panes, const FormMeasures& measures) : m_(measures) {
    out_.Panes = panes;
  }

  Arrangement Run() {
    if (!Prepare()) return out_;
    SanitizeRecords(out_.Panes, m_.Layout);
    SizePanes();
    for (int pane = 0; pane < lister::PaneCount; ++pane) CheckRoom(Pane(pane));
    SpanBars();
    PlacePanes();
    PlaceCommandLine();
    for (int pane = 0; pane < lister::PaneCount; ++pane) {
      if (Pane(pane).IsOpen()) PlaceSurroundings(Places(pane));
    }
    out_.IsPlaced = true;
    return out_;
  }

 private:
  bool IsVertical() const { return m_.Layout == Vertical; }
  PaneRecord& Pane(int pane) { return out_.Panes[pane]; }
  PanePlaces& Places(int pane) { return out_.Places[pane]; }

  bool Prepare() {
    WorkArea& area = out_.Area;
    area.TitleTop = RowsTop;
    if (m_.InsideWidth <= 0) return false;
    area.CommandGap = m_.CommandOn ? m_.CommandStripHeight : 0;
    area.AreaWidth = m_.InsideWidth;
    area.RowsHeight = m_.InsideHeight - m_.ToolbarHeight - area.CommandGap;
    area.ColumnHeight = area.RowsHeight - m_.TitleHeight - m_.PaneGap;
    if (area.ColumnHeight < LeastArea || area.AreaWidth < LeastArea) return false;
    area.ListsTop = m_.ToolbarHeight + m_.ToolbarTop + m_.TitleHeight;
    for (std::int16_t pane = 0; pane < lister::PaneCount; ++pane) {
      if (!Pane(pane).IsOpen()) continue;
      if (area.FirstOpenPane < 0) area.FirstOpenPane = pane;
      area.LastOpenPane = pane;
      ++openPanes_;
    }
    return true;
  }

  void SizePanes() {
    const Twips whole = IsVertical() ? out_.Area.AreaWidth : out_.Area.RowsHeight;
    const Twips least = IsVertical() ? LeastPaneWidth : LeastPaneHeight;
    const auto shares = ShownShares(out_.Panes, m_.Layout, static_cast<double>(least) / whole);
    for (int i = 0; i < lister::PaneCount; ++i) {
      if (!Pane(i).IsOpen()) continue;
      const double size = shares[i] * whole;
      if (IsVertical()) {
        const bool atEdge = i == out_.Area.FirstOpenPane || i == out_.Area.LastOpenPane;
        SizeColumn(Pane(i), size, m_.PaneGap + (atEdge ? m_.PaneGap / 2 : 0));
      } else {
        SizeRow(Pane(i), size);
      }
    }
  }

  void SizeColumn(PaneRecord& pane, double width, Twips edge) {
    pane.Width = RoundToTwips(width);
    pane.FolderListWidth = pane.FileListWidth = RoundToTwips(width - edge);
    const double room = out_.Area.ColumnHeight;
    const auto split = [&] {
      pane.Height = OnGrid(pane.Height);
      pane.FolderListHeight = RoundToTwips((pane.Height - m_.PaneGap) - 0.5 * m_.PaneGap);
      pane.FileListHeight = RoundToTwips((room - pane.Height) - 1.5 * m_.PaneGap);
    };
    split();
    if (pane.FolderListHeight <= out_.Area.ColumnHeight - FolderClampVertical) return;
    pane.Height = out_.Area.ColumnHeight - FolderClampVertical;
    split();
  }

  void SizeRow(PaneRecord& pane, double height) {
    const double rims = (2.0 * openPanes_ + 1) * m_.PaneGap / openPanes_;
    pane.HeightH = RoundToTwips(height);
    pane.FolderListHeight = pane.FileListHeight = RoundToTwips(height - m_.TitleHeight - rims);
    const double room = out_.Area.AreaWidth;
    const auto split = [&] {
      pane.WidthH = OnGrid(pane.WidthH);
      pane.FolderListWidth = RoundToTwips((pane.WidthH - m_.PaneGap) - 0.5 * m_.PaneGap);
      pane.FileListWidth = RoundToTwips(((room - pane.WidthH) - m_.PaneGap) - 0.5 * m_.PaneGap);
    };
    split();
    if (pane.FolderListWidth <= out_.Area.AreaWidth - FolderClampHorizontal) return;
    pane.WidthH = out_.Area.AreaWidth - FolderClampHorizontal;
    split();
  }

  // A low folder list of a column is shown all the same: it holds little, and can be made higher.
  void CheckRoom(PaneRecord& pane) const {
    if (!pane.IsOpen()) return;
    pane.FolderHasRoom = pane.FolderListWidth >= LeastListWidth &&
                         (IsVertical() || pane.FolderListHeight >= LeastListHeight);
    pane.FileHasRoom =
        pane.FileListWidth >= LeastListWidth && pane.FileListHeight >= LeastListHeight;
    for (Twips* const size : {&pane.FolderListWidth, &pane.FolderListHeight, &pane.FileListWidth,
                              &pane.FileListHeight}) {
      *size = std::max(*size, 0);
    }
  }

  void SpanBars() {
    const WorkArea& area = out_.Area;
    out_.LineHorz2 = {.Left = 0, .Width = m_.InsideWidth};
    if (IsVertical()) {
      out_.LineVert2 = {.Top = area.ListsTop, .Height = area.ColumnHeight};
    } else {
      out_.LineVert2 = {.Top = area.ListsTop - m_.TitleHeight + m_.PaneGap / 2,
                        .Height = area.RowsHeight};
    }
  }

  void PlacePanes() {
    Twips x = 0;
    Twips y = out_.Area.TitleTop;
    for (int i = 0; i < lister::PaneCount; ++i) {
      if (!Pane(i).IsOpen()) continue;
      const int group = Pane(i).ControlGroup;
      const PaneRecord& sizes = Pane(group);
      PanePlaces& places = Places(group);
      places.Folders.List.Width = sizes.FolderListWidth;
      places.Folders.List.Height = sizes.FolderListHeight;
      places.Files.List.Width = sizes.FileListWidth;
      places.Files.List.Height = sizes.FileListHeight;
      if (IsVertical()) {
        Pane(i).Left = x;
        x = PlaceColumn(places, x + (i == out_.Area.FirstOpenPane ? m_.PaneGap : m_.PaneGap / 2));
      } else {
        Pane(i).Top = y;
        y = PlaceRow(places, y);
      }
      // The two pictures overlap their neighbour by a pixel.
      const Place& title = places.Title;
      places.TitlePicture = {.Left = title.Right() - OnePixel, .Top = title.Top};
      places.ClosePicture = {.Left = places.TitlePicture.Left + m_.TitlePictureWidth - OnePixel,
                             .Top = title.Top};
    }
  }

  // Gives the left edge of the next pane.
  Twips PlaceColumn(PanePlaces& places, Twips left) const {
    Place& folders = places.Folders.List;
    Place& files = places.Files.List;
    folders.Left = files.Left = left;
    folders.Top = out_.Area.ListsTop + 2 * m_.PaneGap;
    files.Top = folders.Bottom() + m_.PaneGap;
    places.Title = {
        .Left = left, .Top = m_.PaneGap + out_.Area.TitleTop, .Width = TitleWidth(folders.Width)};
    return folders.Right() + m_.PaneGap / 2;
  }

  // Gives the top of the next pane.
  Twips PlaceRow(PanePlaces& places, Twips top) const {
    Place& folders = places.Folders.List;
    Place& files = places.Files.List;
    folders.Top = files.Top = top + m_.TitleHeight + 2 * m_.PaneGap;
    folders.Left = m_.PaneGap;
    files.Left = folders.Right() + m_.PaneGap;
    places.Title = {.Left = folders.Left,
                    .Top = top + m_.PaneGap,
                    .Width = TitleWidth(out_.Area.AreaWidth - 2 * m_.PaneGap)};
    return folders.Bottom();
  }

  Twips TitleWidth(Twips row) const {
    const Twips beside = m_.ClosePictureWidth + m_.TitlePictureWidth - 2 * OnePixel;
    return std::max(row - beside, std::min(row, LeastTitleWidth));
  }

  void PlaceCommandLine() {
    if (!m_.CommandOn) return;
    const Twips width = RoundToTwips((m_.InsideWidth - 3.0 * m_.PaneGap) / 2);
    out_.CurrentPath = {
        .Left = m_.PaneGap, .Top = m_.InsideHeight - CurrentPathFromBottom, .Width = width};
    out_.Command = {.Left = out_.CurrentPath.Right() + m_.PaneGap,
                    .Top = m_.InsideHeight - CommandFromBottom,
                    .Width = width};
  }

  void PlaceSurroundings(PanePlaces& places) const {
    const Place& folders = places.Folders.List;
    const Place& files = places.Files.List;
    // Towards the edges of the pane the placeholders keep off.
    const Twips margin = PlaceHolderMargin;
    Place inFolders = folders;
    Place inFiles = files;
    inFolders.Left += margin;
    inFiles.Height -= margin;
    if (IsVertical()) {
      inFolders.Width -= 2 * margin;
      inFiles.Left += margin;
      inFiles.Width -= 2 * margin;
    } else {
      inFolders.Width -= margin;
      inFolders.Height -= margin;
      inFiles.Width -= margin;
    }
    PlaceHolder(places.Folders, inFolders);
    PlaceHolder(places.Files, inFiles);

    Place& back = places.Back;
    back.Left = folders.Left;
    back.Top = places.Title.Top;
    back.Width = IsVertical() ? folders.Width : files.Right() - back.Left;
    back.Height = (IsVertical() ? files : folders).Bottom() - back.Top;
  }

  static void PlaceHolder(ListPlaces& places, const Place& wished) {
    const bool isPlace = wished.Width >= 0 && wished.Height >= 0;
    places.PlaceHolder = isPlace ? wished : Place{};
    const Place& around = places.PlaceHolder;
    places.NoRoom = {.Left = around.Left + NoRoomMargin,
                     .Top = around.Top + NoRoomMargin,
                     .Width = std::max(around.Width - 2 * NoRoomMargin, 0),
                     .Height = std::max(around.Height - 2 * NoRoomMargin, 0)};
  }

  const FormMeasures& m_;
  Arrangement out_;
  int openPanes_ = 0;
};

}  // namespace

Arrangement ArrangePanes2(const PaneRecords& panes, const FormMeasures& measures) {
  return Arranger(panes, measures).Run();
}

}  // namespace tarnwell::workspace

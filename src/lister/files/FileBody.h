// A file list: the items of one folder. Puts its parts together: the reader, the input, the jobs.
#pragma once

#include <string>
#include <vector>

#include "lister/files/FileInput.h"
#include "lister/files/FileListState.h"
#include "lister/files/FileReader.h"
#include "lister/files/FileSizes.h"
#include "lister/files/FileStatus.h"

namespace tarnwell::lister {

class FileBody : public ListBody {
 public:
  explicit FileBody(ListState& state)
      : ListBody(state),
        files_(state),
        reader_(files_, Follower),
        input_(files_, *this),
        sizes_(files_, reader_) {
    files_.BeforeReset = [this] { input_.Stop(); };
    files_.AfterStop = [this] { sizes_.DropWishes(); };
  }

  void ShowStatus(const std::string& text) override;
  ListInput& Input() override { return input_; }
  const ListInput& Input() const override { return input_; }

  void SetFolder(const std::string& folder) override { reader_.SetFolder(folder); }
  void Refresh() override;
  void CatchUp() override;
  void Resort() override { reader_.Resort(); }
  void Terminate() override { reader_.Terminate(); }
  void SettingsChanged() override { reader_.SettingsChanged(); }
  void LoadContents(const std::string& folder) override { reader_.Load(folder); }
  void ShowFound(const std::string& folder) override { reader_.ShowFound(folder); }
  void AddFound(const std::vector<platform::FoundItem>& items) override { reader_.AddFound(items); }
  bool ShowsFound() const override { return reader_.ShowsFound(); }
  std::vector<platform::FoundItem> FoundItems() const override { return reader_.FoundItems(); }
  void FollowMoved(const std::vector<platform::PlacedItem>& placed) override {
    reader_.FollowMoved(placed);
  }
  void LookAtFound() override;
  void DrivesChanged() override;
  void PlaceCursor(const std::vector<platform::PlacedItem>& placed,
                   std::function<bool()> tells) override;

  void SetFilterText(const std::string& text) override;
  void SetExtensionFilter(const std::string& extension) override;
  std::vector<ExtensionChoice> ExtensionChoices() const override;

  std::vector<ColouredItem> SetItemColour(ItemColour colour) override;
  int FileCount() const override;
  void CalculateFolderSizes() override;
  void CalculateItemSize() override;
  std::vector<CompareRecord> CompareRecords() const override;
  void CompareAgainst(std::vector<CompareRecord>& records, std::int32_t mode) override;
  void CompareSelf(const std::vector<CompareRecord>& records) override;

  int ChildCount(RowId parent) const override;
  RowId Child(RowId parent, int position) const override;
  RowId Parent(RowId row) const override { return files_.Rows.Has(row) ? RootRow : NoRow; }
  int PositionOf(RowId row) const override;
  std::string CellText(RowId row, HeadingId heading) const override;
  bool IsSizePartial(RowId row) const override;
  std::string CellBytes(RowId row, HeadingId heading) const override;
  std::string PathOf(RowId row) const override;
  RowId CurrentRow() const override { return files_.Current; }
  EmptyNote NoteOfEmptiness() const override { return NoteOf(files_); }

  void MoveCurrent(RowId row) override;
  void Activate(RowId row) override;

 protected:
  RowState OwnStateOf(RowId row) const override;
  std::int64_t MomentOf(RowId row, HeadingId heading) const override;
  void FolderChanged(const std::string&, const platform::FolderChanges& changes) override {
    sizes_.HeedCancel();
    reader_.FolderChanged(changes);
  }

 private:
  void SetCurrent(RowId row);
  void MeasureSizes();
  void ShowMarks(const CompareCounts& counts);

  bool looksLater_ = false;  // what was found is to be looked at again

  FileListState files_;
  FileReader reader_;
  FileInput input_;
  FileSizes sizes_;
};

}  // namespace tarnwell::lister

// A file list: the items of one folder. Names come first, then attributes, and messages are let
// through between them. A load that comes during another one takes its place: reads never nest.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "lister/FileRows.h"
#include "lister/ListBody.h"
#include "lister/Pacer.h"

namespace tarnwell::lister {

class FileBody : public ListBody {
 public:
  explicit FileBody(ListState& state) : ListBody(state) {}

  void SetFolder(const std::string& folder) override;
  void Refresh() override;
  void CatchUp() override;
  void Resort() override;
  void Terminate() override;

  void LoadContents(const std::string& folder) override;

  int ChildCount(RowId parent) const override;
  RowId Child(RowId parent, int position) const override;
  RowId Parent(RowId row) const override { return rows_.Has(row) ? RootRow : NoRow; }
  int PositionOf(RowId row) const override;
  RowLook Look(RowId row) const override;
  std::string CellText(RowId row, HeadingId heading) const override;
  std::string PathOf(RowId row) const override;
  RowId CurrentRow() const override { return current_; }

  void MoveCurrent(RowId row) override;
  void Activate(RowId row) override;

 protected:
  void FolderChanged() override;

 private:
  // How a read stands after messages were let through.
  enum class Standing { Going, Cancelled, Superseded };
  struct Job;

  // Reads the folder of the newest load once. False when a newer load has taken its place.
  bool Read();
  void ShowNames(FileRows&& fresh);
  base::Status ReadNames(Job& job, FileRows& rows);
  void ReadAttributes(Job& job);
  // True when the row looks different now.
  bool ReadAttributesOf(RowId row, Job& job);
  void Pump(Job& job, int count);
  void Replace(FileRows&& rows);
  void Merge(FileRows&& fresh, const std::vector<RowId>& partners);
  RowId StayingAbove(RowId row, const std::vector<RowId>& partners) const;
  void MindChanges(std::int64_t readFor);
  std::string Summary(const Job& job, const base::Status& status) const;

  FileRows rows_;
  RowId current_ = NoRow;
  int newest_ = 0;            // number of the newest load
  std::string wanted_;        // its folder
  bool reading_ = false;      // a read runs
  bool stale_ = false;        // the folder changed since the newest read began
  bool willCatchUp_ = false;  // the view was asked for it
  bool stopped_ = false;      // by the user: changes wait for the next load
  int orders_ = 0;            // changes when the rows change places
  bool terminated_ = false;
};

}  // namespace tarnwell::lister

// A file list: the items of one folder. Names come first, then attributes, and messages are let
// through between them; the newest read wins over one that it came into.
#pragma once

#include <string>

#include "lister/FileRows.h"
#include "lister/ListBody.h"
#include "lister/Pacer.h"

namespace tarnwell::lister {

class FileBody : public ListBody {
 public:
  explicit FileBody(ListState& state) : ListBody(state) {}

  void SetFolder(const std::string& folder) override;
  void Refresh() override;
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

  // Reads the folder once. True when it must be read again, because it changed meanwhile.
  bool Read(std::string folder);
  base::Status ReadNames(Job& job, FileRows& rows);
  void ReadAttributes(Job& job);
  void ReadAttributesOf(RowId row, Job& job);
  void Pump(Job& job, int count);
  void Replace(FileRows&& rows);
  RowId CursorIn(const FileRows& rows) const;
  std::string Summary(const Job& job, const base::Status& status) const;

  FileRows rows_;
  RowId current_ = NoRow;
  int newest_ = 0;        // number of the newest read
  bool reading_ = false;  // it still runs
  bool stale_ = false;    // the folder changed while it ran
  int orders_ = 0;        // changes when the rows change places
  bool terminated_ = false;
};

}  // namespace tarnwell::lister

// The window of the trash: what lies there, and putting it back or deleting it for good.
//
// Follows the trash while it is open. Keeps what it hears until ShowNews, so that many notices cost
// as much as one.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fileops/EmptyRecycleBin.h"
#include "fileops/TrashRows.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "platform/Collation.h"
#include "platform/ItemWindows.h"

namespace tarnwell::fileops {

// The view of the rows hears before and after they become others.
class TrashRowsView {
 public:
  virtual ~TrashRowsView() = default;
  virtual void BeginRows() = 0;
  virtual void EndRows() = 0;
};

class frmRecycleBin : public forms::Form, private platform::TrashListener {
 public:
  // Shows what a folder holds in the pane that the user works in.
  using OpenFolder = std::function<void(const std::string& path)>;

  frmRecycleBin(workspace::Workspace& workspace, const TrashServices& services,
                const platform::Collation& order, platform::ItemWindows& windows,
                EmptyCommand& empty, OpenFolder openFolder);

  forms::TextBox txtFilter;
  forms::Button cmdRestore;
  forms::Button cmdDelete;
  forms::Button cmdEmpty;
  forms::Button cmdOpenFolder;
  forms::Button cmdProperties;
  forms::Button cmdClose;
  forms::Label lblStatus;
  forms::Label lblNote;  // what is the matter with the selected item, or with a trash

  TrashRowsView* RowsView = nullptr;  // set by the window, cleared by the unload

  // Opens the form over the middle of the owner and shows it, not modally. One that is open already
  // stays where it is, and comes to the front.
  void ShowOver(forms::Form& owner);

  void Load() override;
  void Unload() override;

  const TrashRows& Rows() const { return rows_; }
  std::string CellText(std::size_t row, TrashColumn column) const;
  // Whether the trash has told something that is not shown yet.
  bool HasNews() const { return hasNews_; }
  void ShowNews();

  // --- What the user does.

  // Rows from the first to the last.
  void Select(std::size_t first, std::size_t last, bool on);
  // Sorts by it; the other way round where it does already.
  void HeadingClick(TrashColumn column);
  void FilterTyped(const std::string& text);
  void Refresh();
  void cmdRestoreClick();
  void cmdDeleteClick();
  void cmdEmptyClick();
  void cmdOpenFolderClick();
  void cmdPropertiesClick();
  // By the button, the window's frame or Escape.
  void cmdCloseClick() { services_.Host.Unload(*this); }

 private:
  void OnItems(std::vector<platform::TrashedItem> items) override;
  void OnGone(const std::vector<std::uint64_t>& ids) override;
  void OnTroubles(const std::vector<platform::TrashTrouble>& troubles) override;
  void OnSettled() override;

  template <typename Change>
  void ChangeRows(Change change);
  void TakeNews();
  void ShowState();
  std::string StatusText() const;
  std::string NoteText() const;
  // The one item that is selected; null where there is none, or several.
  const platform::TrashedItem* OnlySelected() const;
  std::vector<const platform::TrashedItem*> Find(const std::vector<std::uint64_t>& ids) const;
  void Start(platform::CommandKind kind, platform::OperationRequest request);

  workspace::Workspace& workspace_;
  TrashServices services_;
  platform::ItemWindows& windows_;
  EmptyCommand& empty_;
  OpenFolder openFolder_;
  TrashRows rows_;
  // What is not shown yet; whatever has gone does not come again.
  bool hasNews_ = false;
  std::vector<platform::TrashedItem> newItems_;
  std::vector<std::uint64_t> gone_;
  bool isSettled_ = false;
  std::vector<platform::TrashTrouble> troubles_;
  std::unique_ptr<platform::TrashView> view_;  // null while the form is not open
};

}  // namespace tarnwell::fileops

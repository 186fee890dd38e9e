// The properties of one item or of several: what they are, how large, and their permissions, which
// can be changed. Reads, counts and changes on threads of its own and stays alive meanwhile.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/operation/OperationTools.h"
#include "ui/properties/GeneralPage.h"
#include "ui/properties/PermissionsPage.h"
#include "ui/properties/PropertiesWork.h"

namespace tarnwell::ui {

struct PropertiesTools {
  OperationTools Look;
  const platform::FileSystem& Files;  // these two are called on other threads
  const platform::ItemInspector& Inspector;
};

class PropertiesWindow : public QDialog {
 public:
  // Full paths, at least one. `closed` runs once the window is closed and nothing that it began
  // runs any more; deleted before that, the window cancels and waits.
  PropertiesWindow(std::vector<std::string> paths, const PropertiesTools& tools,
                   std::function<void(PropertiesWindow&)> closed);

  const std::vector<std::string>& Paths() const { return paths_; }

  // It is to end what it began, and looks no further.
  void Cancel();
  // Whether nothing of it runs any more.
  bool EndWork();

  void accept() override;  // OK
  void reject() override;  // Cancel, Escape, and the frame's close button

 private:
  void Apply();
  void Tick();
  void FollowChange();
  void FollowFacts();
  void EnableButtons();
  void Leave();

  const std::vector<std::string> paths_;
  const PropertiesTools tools_;
  const std::function<void(PropertiesWindow&)> closed_;
  QTabWidget tabs_;
  GeneralPage general_;
  PermissionsPage permissions_;
  QPushButton ok_;
  QPushButton cancel_;
  QPushButton apply_;
  QTimer tick_;
  FactsReport shown_;
  bool hasPermissions_ = false;  // shows them as the facts have them
  bool closes_ = false;          // when the change that runs is done
  bool left_ = false;
  std::unique_ptr<Worker<FactsReport>> count_;  // these three are null while nothing runs
  std::unique_ptr<Worker<FactsReport>> facts_;  // read again after a change
  std::unique_ptr<Worker<platform::PermissionOutcome>> change_;
};

}  // namespace tarnwell::ui

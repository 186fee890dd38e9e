// The commands that switch something of the view on or off, in the menu, the toolbar and the lists.
#pragma once

#include <functional>
#include <string_view>

#include "base/Value.h"
#include "settings/ViewSwitches.h"
#include "workspace/FormLayout.h"
#include "workspace/Workspace.h"

namespace tarnwell::commands {

class Switches : public settings::ViewSwitches {
 public:
  // Tells all lists a named setting.
  using SendProperty = std::function<void(std::string_view, const base::Value&)>;

  Switches(workspace::Workspace& workspace, workspace::FormLayout& layout, SendProperty send)
      : workspace_(workspace), layout_(layout), send_(std::move(send)) {}

  void ShowColor(bool show) override;
  void ShowCommandLine(bool show, bool noLayout) override;
  void SetCompareMode() override;
  // The menu's way of setting a criterion of the comparison: "mnuCompareSize" goes with the button
  // "compare_size", and so on.
  void ToggleCompare(std::string_view entry, std::string_view button);

 private:
  // Exactly one of the two entries is checked, and the button goes with it. False if that is so
  // already.
  bool Turn(std::string_view onEntry, std::string_view offEntry, std::string_view button, bool on);

  workspace::Workspace& workspace_;
  workspace::FormLayout& layout_;
  SendProperty send_;
};

}  // namespace tarnwell::commands

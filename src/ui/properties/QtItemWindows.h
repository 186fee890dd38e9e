// Shows the properties of items, and asks what to open items with and whether to run programs.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/ItemWindows.h"
#include "ui/properties/PropertiesWindow.h"

namespace tarnwell::ui {

class QtItemWindows : public platform::ItemWindows {
 public:
  QtItemWindows(const PropertiesTools& tools,
                std::function<void(const std::string& path)> openFolder);
  // Closes the windows that are open; what runs in them is cancelled and its end awaited.
  ~QtItemWindows() override = default;

  // The same items again bring forward the window that is there.
  void ShowProperties(const std::vector<std::string>& paths) override;
  std::optional<platform::ChosenApplication> ChooseApplication(
      const std::string& path, const std::string& type,
      const std::vector<platform::ApplicationChoice>& applications) override;
  platform::RunChoice AskRun(const platform::RunQuestion& question) override;
  void OpenFolder(const std::string& path) override { openFolder_(path); }

  // Takes the windows away; what runs in them is cancelled.
  void Close();

  // For an end that leaves no time for windows: when it returns nothing runs in them any more.
  // False where another machine keeps something.
  bool CancelAndWait();

 private:
  void Forget(const PropertiesWindow& window);

  const PropertiesTools tools_;
  const std::function<void(const std::string& path)> openFolder_;
  std::vector<std::unique_ptr<PropertiesWindow>> windows_;
};

}  // namespace tarnwell::ui

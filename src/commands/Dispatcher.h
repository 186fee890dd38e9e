// What menu entries and toolbar buttons do: one table from name to command.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tarnwell::commands {

class Dispatcher {
 public:
  using Command = std::function<void()>;

  // Binds the menu entry or the toolbar button of that name.
  void Bind(std::string name, Command command) { commands_[std::move(name)] = std::move(command); }

  // Whether something stands behind the name: what is not bound is not shown.
  bool IsBound(std::string_view name) const { return commands_.contains(name); }

  // Carries out the command; an unknown name does nothing.
  void Run(std::string_view name) const {
    const auto found = commands_.find(name);
    if (found != commands_.end()) found->second();
  }

 private:
  std::map<std::string, Command, std::less<>> commands_;
};

}  // namespace tarnwell::commands

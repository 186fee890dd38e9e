// Asks which application is to open an item: one of a list, which typing narrows down, or a
// command.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <optional>
#include <string>
#include <vector>

#include "platform/ItemWindows.h"
#include "ui/operation/OperationTools.h"

namespace tarnwell::ui {

class ApplicationChooser : public QDialog {
 public:
  ApplicationChooser(const std::string& path, const std::string& type,
                     const std::vector<platform::ApplicationChoice>& applications,
                     const OperationTools& tools);

  // What the user has chosen so far; nothing as long as that is none.
  std::optional<platform::ChosenApplication> Chosen() const;

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void AddSection(const QString& heading, bool registered,
                  const std::vector<platform::ApplicationChoice>& applications);
  void Narrow(const QString& text);
  void SelectFirst();
  void Follow();

  QLineEdit search_;
  QListWidget list_;
  QLineEdit command_;
  QCheckBox always_;
  QPushButton ok_;
  QPushButton cancel_;
};

}  // namespace tarnwell::ui

// The drive list of a folder list. Shows the drives that there are; changes nothing by itself.
#pragma once

#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "ui/list/ListerChoice.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

class ListerDrives : public ListerChoice {
  Q_OBJECT

 public:
  // Screen readers call the list by this name.
  ListerDrives(const QString& name, QWidget* parent);

  // `shown` is the name of the drive on show, empty for none. One that is not among the choices,
  // since its volume has gone, gets an entry of its own.
  void Show(const std::vector<platform::Drive>& choices, const std::string& shown,
            const IconSource& icons);

 signals:
  void Chosen(const QByteArray& drive);  // the user picked the drive of that name

 private:
  void Add(const platform::Drive& drive, const IconSource& icons);
};

}  // namespace tarnwell::ui

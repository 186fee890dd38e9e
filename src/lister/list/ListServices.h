// What a list asks of the platform and of the program.
#pragma once

#include "lister/rows/CutItems.h"
#include "platform/Clock.h"
#include "platform/Collation.h"
#include "platform/FileSystem.h"
#include "platform/FolderStamps.h"
#include "platform/FolderWatch.h"
#include "platform/Launcher.h"
#include "platform/MessagePump.h"
#include "platform/NumberForms.h"

namespace tarnwell::lister {

struct ListServices {
  platform::FileSystem& Files;
  platform::Drives& Drives;
  platform::FolderWatch& Watches;
  platform::MessagePump& Pump;
  platform::Clock& Clock;
  platform::Collation& Order;
  platform::Launcher& Launcher;
  const platform::NumberForms& Forms;
  platform::FolderStamps& Stamps;
  const CutItems& Cut;
  const int& OpenBrackets;  // routines that run and keep the lists from following the disk
};

}  // namespace tarnwell::lister

// Where a list is, for accessible names.
#pragma once

#include <QString>

#include "lister/list/ListId.h"

namespace tarnwell::ui {

// "pane 3", as in "Files of pane 3".
inline QString PlaceOfList(lister::ListId list) {
  if (!lister::HasPane(list)) return QStringLiteral("the search");
  return QStringLiteral("pane %1").arg(lister::PaneOf(list) + 1);
}

}  // namespace tarnwell::ui

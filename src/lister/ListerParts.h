// What a ListerControl is made of.
#pragma once

#include <memory>
#include <string>

#include "lister/ListerControl.h"
#include "lister/ListerUser.h"
#include "lister/files/FileBody.h"
#include "lister/list/ListBody.h"
#include "lister/list/ListColumns.h"
#include "lister/tree/FolderBody.h"

namespace tarnwell::lister {

struct ListerControl::Parts {
  Parts(ListId list, ListFields& fields, const ListServices& services, ListerEvents& events)
      : State(list, fields, services, events),
        Body(MakeBody(State)),
        Columns(State, *Body),
        User(State, *Body) {}

  static std::unique_ptr<ListBody> MakeBody(ListState& state) {
    if (IsFileList(state.Id)) return std::make_unique<FileBody>(state);
    return std::make_unique<FolderBody>(state);
  }

  ListState State;
  std::unique_ptr<ListBody> Body;
  ListColumns Columns;
  ListerUser User;
  std::string ActiveItemName;
};

}  // namespace tarnwell::lister

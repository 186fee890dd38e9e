// What the windows of file operations look things up in.
#pragma once

#include "base/PathSyntax.h"
#include "platform/Clock.h"
#include "platform/NumberForms.h"
#include "ui/toolkit/IconSource.h"

namespace tarnwell::ui {

struct OperationTools {
  const base::PathSyntax& Syntax;
  const platform::Clock& Clock;
  const platform::NumberForms& Forms;
  const IconSource& Icons;
};

}  // namespace tarnwell::ui

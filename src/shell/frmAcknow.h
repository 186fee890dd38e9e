// The form of the acknowledgements.
#pragma once

#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "platform/Library.h"

namespace tarnwell::shell {

class frmAcknow : public forms::Form {
 public:
  frmAcknow(forms::FormHost& host, const std::vector<platform::Library>& libraries);

  forms::Label Label1;
  forms::Label lblLibraries;  // one a line
  forms::Label lblDisclaim;
  forms::Button cmdClose;

  void Load() override;
  // By the button, the frame's or Escape.
  void cmdCloseClick() { host_.Unload(*this); }

 private:
  forms::FormHost& host_;
};

// A line for each: what it is called, and its license.
std::string ListLibraries(const std::vector<platform::Library>& libraries);

}  // namespace tarnwell::shell

#include "shell/frmAcknow.h"

#include "shell/AboutTexts.h"

namespace tarnwell::shell {

frmAcknow::frmAcknow(forms::FormHost& host, const std::vector<platform::Library>& libraries)
    : Form("frmAcknow"), host_(host) {
  Caption = "Acknowledgements & Disclaimer";
  Label1.Caption = Acknowledgement;
  lblLibraries.Caption = "Tarnwell is built on these libraries:\r\n\r\n" + ListLibraries(libraries);
  cmdClose.Caption = "Close";
  cmdClose.Default = true;
}

void frmAcknow::Load() {
  BackColour = base::Rgb(255, 255, 255);
  lblDisclaim.Caption = Disclaimer;
}

std::string ListLibraries(const std::vector<platform::Library>& libraries) {
  std::string lines;
  for (const platform::Library& each : libraries) {
    if (!lines.empty()) lines += "\r\n";
    lines += each.Name + ": " + each.License;
  }
  return lines;
}

}  // namespace tarnwell::shell

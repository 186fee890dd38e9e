// The state of the main window's controls.
//
// Holds what is shown; knows neither what a command does nor how a window looks.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/ImageList.h"
#include "forms/Menu.h"
#include "forms/MenuImageHelper.h"
#include "forms/Toolbar.h"
#include "workspace/PerPane.h"

namespace tarnwell::workspace {

// What of the main window has the keyboard.
enum class KeyboardFocus {
  Other,
  CommandLine,
  List,
  Form,  // no control: keys go to the active list, without making it the current one
};

// The tables that the main form is made from.
struct FormTables {
  std::span<const forms::MenuRow> Menu;
  std::span<const forms::ToolbarRow> Toolbar;
  std::span<const std::string_view> Images;
};

class MainForm : public forms::Form {
 public:
  explicit MainForm(const FormTables& tables)
      : Form("Master"),
        Menus(tables.Menu),
        Toolbar1(tables.Toolbar),
        ImageList1(tables.Images),
        MenuImages(Menus) {
    Caption = "Tarnwell";
  }

  void Unload() override {
    if (UnloadHandler) UnloadHandler();
  }

  std::function<void()> UnloadHandler;  // runs when the form is closed, whatever closed it

  forms::Menu Menus;
  forms::Toolbar Toolbar1;
  forms::ImageList ImageList1;
  forms::MenuImageHelper MenuImages;
  base::Colour MenuBackColour = base::White;
  // With BackColour, what all windows without colours of their own get theirs from.
  base::Colour ListBackColour = base::White;
  base::Colour ListForeColour = base::Black;
  base::Colour AccentColour = base::Black;
  bool HasSkin = false;  // the colours here hold; else no skin has been loaded

  PerPane<forms::TextBox> TitleBar;      // shows the current path
  PerPane<forms::Picture> cmdTitle;      // picture at the right end of the title row
  PerPane<forms::Picture> cmdClosePane;  // right of cmdTitle
  PerList<forms::Label> lblNoRoom;       // stands where a list has no room
  PerList<forms::Shape> shpPlaceHolder;
  PerPane<forms::Shape> shpBack;  // outline round the pane

  // Bars that show during a drag of a splitter.
  forms::Shape LineVert;
  forms::Shape LineHorz;
  forms::Shape LineVert2;
  forms::Shape LineHorz2;

  forms::TextBox txtCurrentPath;
  forms::ComboBox cboCommand;

  // The pointer over the form's own surface; lists and other controls have their own.
  forms::MousePointer MousePointer = forms::MousePointer::Default;
  // What has the keyboard, kept by the window. Writing Form takes it off the others.
  KeyboardFocus ActiveControl = KeyboardFocus::Other;

  bool PlaceRead = false;  // Left and Top are what the settings told, and on a screen

  // State at the last arrangement that was not of a minimised window.
  forms::WindowState LastWindowState = forms::WindowState::Normal;
  bool InTray = false;  // the window is hidden, and the icon in the notification area stands for it

  // Inside size in twips, written by the window whenever it changes.
  base::Twips ScaleWidth = 0;
  base::Twips ScaleHeight = 0;

  bool ResizeEnabled = true;       // the resize handler does nothing while false
  bool FirstResizePending = true;  // the first resize gives the active list the focus
};

}  // namespace tarnwell::workspace

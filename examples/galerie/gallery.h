// The gallery's window.
#pragma once

#include <memory>

#include "button.h"
#include "grid.h"
#include "label.h"
#include "library.h"

namespace galerie {

class Gallery {
 public:
  explicit Gallery(Library& library);

  void show();
  /// Puts the mouse on a quantity and closes the window after a while: for a picture of the window.
  void visit(UINT seconds);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  LRESULT handle(UINT message, WPARAM first, LPARAM second);
  void create_controls();
  void command(int identifier);
  void paint();
  void next_text();
  void next_decimals();
  void show_cell();
  void show_choice(IndMenuPop choice);
  void say(std::wstring message, bool warning = false);
  /// Runs a step; a failure shows in the status line.
  template <class Step>
  void attempt(Step&& step);

  Library& library_;
  Fonts fonts_;
  HWND window_ = nullptr;
  std::unique_ptr<Label> label_;
  std::unique_ptr<Button> text_button_, square_button_, cut_button_, decimals_button_, interventions_, sites_;
  std::unique_ptr<Grid> grid_;
  std::size_t text_ = 0;
  BYTE decimals_ = 0;
  std::wstring choice_ = L"aucun";
  std::wstring status_ = L"Prêt.";
  bool warning_ = false;
};

}  // namespace galerie

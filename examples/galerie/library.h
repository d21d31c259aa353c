// The library's objects, behind calls that take and give C++ values and throw Failure.
#pragma once

#include <windows.h>
#include <ole2.h>

#include <VelmoSAV_DLL14.h>

#include <string>
#include <string_view>

#include "control.h"

namespace galerie {

/// A failed call, as a French sentence.
struct Failure {
  HRESULT code;
  std::wstring message;
};

/// The cell under the mouse; row or column 0 or less: none.
struct HoveredCell {
  short row = 0;
  short column = 0;
  std::wstring value;
};

class Library {
 public:
  Library();
  ~Library();
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// Fits a label at its present width.
  void fit(Control& label, std::wstring_view text, COLORREF colour, bool bold);
  void cut_corners(Control& button);
  HoveredCell cell_under_mouse(Control& grid);
  void set_up_quantities(Control& column, BYTE decimals, std::wstring_view bounds);
  IndMenuPop interventions_menu(Control& button);
  IndMenuPop sites_menu(Control& button);

 private:
  _Outil* tools_ = nullptr;
  _ContratDoc* contracts_ = nullptr;
};

}  // namespace galerie

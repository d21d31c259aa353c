#include "library.h"

#include <cstdio>
#include <new>

namespace galerie {
namespace {

constexpr auto kCannotCreateObject = static_cast<HRESULT>(0x800A01ADUL);

/// A text argument.
class Text {
 public:
  explicit Text(std::wstring_view text)
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (!text_) throw std::bad_alloc();
  }
  ~Text() { SysFreeString(text_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  [[nodiscard]] BSTR get() const { return text_; }

 private:
  BSTR text_;
};

VARIANT missing() {
  VARIANT result;
  VariantInit(&result);
  result.vt = VT_ERROR;
  result.scode = DISP_E_PARAMNOTFOUND;
  return result;
}

VARIANT flag(bool value) {
  VARIANT result;
  VariantInit(&result);
  result.vt = VT_BOOL;
  result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return result;
}

std::wstring error_description() {
  IErrorInfo* information = nullptr;
  if (GetErrorInfo(0, &information) != S_OK) return {};
  BSTR text = nullptr;
  information->GetDescription(&text);
  information->Release();
  std::wstring description = text ? text : L"";
  SysFreeString(text);
  return description;
}

void check(HRESULT code, const wchar_t* operation) {
  if (SUCCEEDED(code)) return;
  std::wstring message = std::wstring(operation) + L" : ";
  const std::wstring description = error_description();
  if (description.empty()) {
    wchar_t number[32];
    std::swprintf(number, std::size(number), L"erreur 0x%08lX", static_cast<unsigned long>(code));
    message += number;
  } else {
    message += description;
  }
  throw Failure{code, message};
}

template <class Interface>
void create(const wchar_t* prog_id, Interface*& object) {
  CLSID clsid{};
  HRESULT code = CLSIDFromProgID(prog_id, &clsid);
  if (SUCCEEDED(code)) {
    code = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                            reinterpret_cast<void**>(&object));
  }
  if (FAILED(code)) {
    throw Failure{code,
                  std::wstring(L"La classe ") + prog_id +
                      L" ne peut pas être créée sur ce poste.\n\nregsvr32 VelmoSAV_DLL14.dll l'enregistre."};
  }
}

void check_menu(HRESULT code) {
  if (code == kCannotCreateObject) {
    throw Failure{
        code,
        L"Menu indisponible : le composant « Lumbra30.ApiPopupMenu » n'est pas enregistré sur ce poste."};
  }
  check(code, L"Menu du contrat");
}

}  // namespace

Library::Library() {
  create(L"VelmoSAV_DLL14.Outil", tools_);
  try {
    create(L"VelmoSAV_DLL14.ContratDoc", contracts_);
  } catch (...) {
    tools_->Release();
    throw;
  }
}

Library::~Library() {
  contracts_->Release();
  tools_->Release();
}

void Library::fit(Control& label, std::wstring_view text, COLORREF colour, bool bold) {
  check(tools_->SetLabelHauteur(&label, Text(text).get(), missing(), value(static_cast<long>(colour)),
                                flag(bold)),
        L"SetLabelHauteur");
}

void Library::cut_corners(Control& button) {
  IDispatch* object = &button;
  check(tools_->SetRegionStdBout(&object), L"SetRegionStdBout");
}

HoveredCell Library::cell_under_mouse(Control& grid) {
  IDispatch* object = &grid;
  HoveredCell cell;
  VARIANT found;
  VariantInit(&found);
  check(tools_->GetValScrollSurvol(&object, &cell.row, &cell.column, &found), L"GetValScrollSurvol");
  cell.value = text_of(found);
  VariantClear(&found);
  return cell;
}

void Library::set_up_quantities(Control& column, BYTE decimals, std::wstring_view bounds) {
  IDispatch* object = &column;
  check(tools_->GestionColQte(&object, nullptr, decimals, Text(bounds).get(), nullptr, VARIANT_FALSE),
        L"GestionColQte");
}

IndMenuPop Library::interventions_menu(Control& button) {
  IDispatch* object = &button;
  IndMenuPop choice = IndMenuPop_None;
  check_menu(contracts_->OpenPopupMenu_CttInterv(&object, VARIANT_TRUE, VARIANT_TRUE, VARIANT_TRUE, &choice));
  return choice;
}

IndMenuPop Library::sites_menu(Control& button) {
  IDispatch* object = &button;
  IndMenuPop choice = IndMenuPop_None;
  check_menu(contracts_->OpenPopupMenu_CttSite(&object, VARIANT_TRUE, VARIANT_TRUE, VARIANT_TRUE,
                                               VARIANT_TRUE, &choice));
  return choice;
}

}  // namespace galerie

#include "checks.h"

#include <iterator>

#include "automation/com_ptr.h"
#include "contracts/popup_menu.h"
#include "invoicing/invoice_document.h"
#include "registry.h"

namespace diagnostic {
namespace {

using velmosav::ComPtr;

constexpr wchar_t kMenu[] = L"Composant de menu";

/// The first registered version is the one that the library takes, whether or not it works.
void check_dom(Report& report) {
  constexpr wchar_t kCheck[] = L"DOM XML";
  constexpr wchar_t kAdvice[] = L"Installer ou réparer les services XML du système (MSXML 6.0).";
  for (const wchar_t* version : velmosav::kDomVersions) {
    CLSID clsid;
    if (FAILED(CLSIDFromProgID(version, &clsid))) continue;
    ComPtr<IDispatch> document;
    const HRESULT code =
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, document.receive_void());
    if (FAILED(code)) {
      report.failure(kCheck, std::wstring(version) + L" inscrit, mais " + message_of(code), kAdvice);
    } else {
      report.well(kCheck, version);
    }
    return;
  }
  report.failure(kCheck, L"aucune version 4.0, 6.0 ou 3.0 inscrite : pas de facture XML", kAdvice);
}

/// The members that the library calls.
bool answers_menu_calls(IDispatch* menu) {
  for (const wchar_t* member : {L"AddItem", L"ExecuteFromWindow"}) {
    std::wstring name(member);
    wchar_t* names = name.data();
    DISPID id = 0;
    if (FAILED(menu->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id))) return false;
  }
  return true;
}

void check_menu(Report& report) {
  const std::wstring own = registration_command(beside_program(L"ApiPopupMenu.dll"));
  CLSID clsid;
  if (FAILED(CLSIDFromProgID(velmosav::kPopupMenu, &clsid))) {
    report.failure(kMenu,
                   std::wstring(velmosav::kPopupMenu) + L" n'est pas inscrit : pas de menus contextuels",
                   L"Inscrire celui de l'application, ou à défaut celui fourni : " + own);
    return;
  }
  const std::wstring server =
      without_quotes(read_text(HKEY_CLASSES_ROOT, server_key(clsid)).value_or(L"hors processus"));
  ComPtr<IDispatch> menu;
  const HRESULT code = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                        IID_IDispatch, menu.receive_void());
  if (FAILED(code)) {
    report.failure(kMenu, L"ne peut être créé depuis " + server + L" : " + message_of(code),
                   L"L'inscrire de nouveau : " + own);
  } else if (!answers_menu_calls(menu.get())) {
    report.failure(kMenu, server + L" ne connaît pas AddItem et ExecuteFromWindow",
                   L"Un autre composant a pris ce nom. Inscrire celui de l'application de nouveau.");
  } else {
    report.well(kMenu, server);
  }
}

std::wstring setting(LCTYPE type) {
  wchar_t text[80] = L"";
  if (!GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, static_cast<int>(std::size(text)))) return L"";
  return text;
}

void show(Report& report, const wchar_t* check, const std::wstring& value) {
  if (value.empty()) {
    report.failure(check, L"illisible", L"Vérifier les paramètres régionaux de l'utilisateur.");
  } else {
    report.information(check, value);
  }
}

std::wstring date_order() {
  const std::wstring order = setting(LOCALE_IDATE);
  if (order == L"0") return L"mois, jour, année";
  if (order == L"1") return L"jour, mois, année";
  if (order == L"2") return L"année, mois, jour";
  return L"";
}

/// A sign between marks: a blank would not be seen.
std::wstring sign(LCTYPE type) {
  const std::wstring text = setting(type);
  return text.empty() ? text : L"« " + text + L" »";
}

}  // namespace

void check_environment(Report& report) {
  report.title(L"Environnement");
  check_dom(report);
  check_menu(report);
  show(report, L"Ordre des dates", date_order());
  show(report, L"Date courte", setting(LOCALE_SSHORTDATE));
  show(report, L"Signe décimal", sign(LOCALE_SDECIMAL));
  show(report, L"Séparateur de listes", sign(LOCALE_SLIST));
}

}  // namespace diagnostic

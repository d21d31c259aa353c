#include "life/usage.h"

namespace life {
namespace {

using host::Bstr;
using host::ComPtr;
using host::Variant;

Variant number(double value) {
  Variant result;
  result.get().vt = VT_R8;
  result.get().dblVal = value;
  return result;
}

const wchar_t* text_of(const Variant& value) {
  return value.get().vt == VT_BSTR ? value.get().bstrVal : L"(no text)";
}

/// A text that a class publishes or computes, and what it is.
bool answers_right(IDispatch* object, std::wstring_view class_name) {
  Variant answer;
  if (class_name == L"Article") {
    return SUCCEEDED(host::get_property(object, L"PC_TARIF_HT", answer.receive())) &&
           text_of(answer) == std::wstring(L"H");
  }
  if (class_name == L"InvoiceXMLLib") {
    return SUCCEEDED(host::get_property(object, L"pc_XInv_INV", answer.receive())) &&
           text_of(answer) == std::wstring(L"INVOICE");
  }
  if (class_name == L"ContratDoc") {
    std::vector<Variant> arguments;
    arguments.push_back(host::text_value(L"01/01/2026"));
    arguments.push_back(number(12));
    arguments.push_back(host::text_value(L"M"));
    return SUCCEEDED(host::call(object, L"SetDateByDuree", std::move(arguments), answer.receive())) &&
           text_of(answer) == std::wstring(L"31/12/26");
  }
  if (class_name == L"Outil") {
    std::vector<Variant> arguments;
    arguments.push_back(number(20));
    arguments.push_back(number(120));
    return SUCCEEDED(host::call(object, L"DLL_GetAmountHTByTTC", std::move(arguments), answer.receive())) &&
           answer.get().vt == VT_R8 && answer.get().dblVal == 100;
  }
  return true;
}

}  // namespace

std::vector<ComPtr<IDispatch>> create_all(int& failures) {
  std::vector<ComPtr<IDispatch>> objects;
  for (const host::CatalogueEntry& entry : host::catalogue()) {
    ComPtr<IDispatch> object;
    if (FAILED(CoCreateInstance(entry.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                object.receive_void()))) {
      ++failures;
    }
    objects.push_back(std::move(object));
  }
  return objects;
}

bool use(IDispatch* object, const host::CatalogueEntry& entry) {
  if (!object) return false;
  UINT count = 0;
  if (FAILED(object->GetTypeInfoCount(&count)) || count != 1) return false;
  ComPtr<ITypeInfo> information;
  Bstr name;
  if (FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive())) ||
      FAILED(information->GetDocumentation(MEMBERID_NIL, name.receive(), nullptr, nullptr, nullptr)) ||
      name.view() != std::wstring(L"_") + entry.name) {
    return false;
  }
  return answers_right(object, entry.name);
}

bool use_early_bound(IDispatch* object, const host::CatalogueEntry& entry) {
  ComPtr<IUnknown> own;
  if (!object || FAILED(object->QueryInterface(entry.iid, own.receive_void()))) return false;
  if (entry.name != std::wstring_view(L"Outil")) return true;
  ComPtr<_Outil> tools;
  double amount = 0;
  return SUCCEEDED(own->QueryInterface(__uuidof(_Outil), tools.receive_void())) &&
         SUCCEEDED(tools->DLL_GetAmountHTByTTC(20, 120, 2, &amount)) && amount == 100;
}

KeptProxies keep_proxies(const std::vector<ComPtr<IDispatch>>& objects, int& failures) {
  KeptProxies kept;
  for (std::size_t i = 0; i < objects.size(); ++i) {
    ComPtr<IUnknown> own;
    ComPtr<ITypeInfo> information;
    if (!objects[i] || FAILED(objects[i]->QueryInterface(host::catalogue()[i].iid, own.receive_void())) ||
        FAILED(objects[i]->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive()))) {
      ++failures;
    }
    kept.interfaces.push_back(std::move(own));
    kept.information.push_back(std::move(information));
  }
  return kept;
}

}  // namespace life

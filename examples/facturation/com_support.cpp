#include "com_support.h"

#include <cstdio>

namespace facturation {
namespace {

// The automation run-time's errors travel as 0x800Annnn: users know them by nnnn.
std::string number(HRESULT result) {
  char text[40];
  const auto code = static_cast<unsigned>(result);
  if (HRESULT_FACILITY(result) == FACILITY_CONTROL) {
    std::snprintf(text, sizeof text, "erreur %u (0x%08X)", code & 0xFFFFU, code);
  } else {
    std::snprintf(text, sizeof text, "erreur 0x%08X", code);
  }
  return text;
}

std::string error_information(IUnknown* object, REFIID iid) {
  ComPtr<ISupportErrorInfo> support;
  if (!object ||
      FAILED(object->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(support.receive()))))
    return {};
  if (support->InterfaceSupportsErrorInfo(iid) != S_OK) return {};
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, information.receive()) != S_OK) return {};
  Text description;
  information->GetDescription(description.receive());
  return to_utf8(description.view());
}

std::string system_message(HRESULT result) {
  wchar_t text[512];
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                     static_cast<DWORD>(result), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  std::wstring_view message(text, length);
  while (!message.empty() && message.back() <= L' ') message.remove_suffix(1);
  return to_utf8(message);
}

}  // namespace

void fail(HRESULT result, IUnknown* object, REFIID iid, std::string_view operation) {
  std::string description = error_information(object, iid);
  if (description.empty()) description = system_message(result);
  std::string message = std::string(operation) + " : " + number(result);
  if (!description.empty()) message += " : " + description;
  throw ComFailure(std::move(message));
}

Apartment::Apartment() {
  const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  if (FAILED(result)) fail(result, nullptr, IID_NULL, "initialisation de COM");
}

ComPtr<IUnknown> create(const wchar_t* prog_id, REFIID iid) {
  const std::string operation = "création de " + to_utf8(prog_id);
  CLSID clsid{};
  HRESULT result = CLSIDFromProgID(prog_id, &clsid);
  if (FAILED(result))
    throw ComFailure(operation + " : " + number(result) +
                     " : classe inconnue sur ce poste (regsvr32 VelmoSAV_DLL14.dll l'enregistre)");
  ComPtr<IUnknown> object;
  result =
      CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, reinterpret_cast<void**>(object.receive()));
  if (FAILED(result)) fail(result, nullptr, IID_NULL, operation);
  return object;
}

}  // namespace facturation

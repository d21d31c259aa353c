#include "memory/catalogue.h"

#include <cstdio>

namespace host {

HRESULT call_by_name(IDispatch& object, const wchar_t* name, std::vector<Variant> arguments) {
  Variant result;
  EXCEPINFO exception{};
  const HRESULT code = call(&object, name, std::move(arguments), result.receive(), &exception);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return code == DISP_E_EXCEPTION ? exception.scode : code;
}

std::string CatalogueCall::title() const {
  char code[16] = "";
  if (FAILED(outcome)) std::snprintf(code, sizeof code, "_%08lX", static_cast<unsigned long>(outcome));
  const std::string name = method == "(variables)" ? "variables" : method;
  return utf8(class_name) + "_" + name + (late ? "_late" : "") + code;
}

Calls all_calls() {
  Calls calls;
  add_contract_calls(calls);
  add_site_calls(calls);
  add_date_calls(calls);
  add_document_calls(calls);
  add_amount_calls(calls);
  add_tool_calls(calls);
  add_control_calls(calls);
  add_invoicing_calls(calls);
  add_environment_calls(calls);
  add_variable_calls(calls);
  return calls;
}

}  // namespace host

// The public variables of every class that has some, read and written by name.
#include "frame/library.h"
#include "frame/members.h"
#include "memory/catalogue.h"

namespace host {
namespace {

struct Variables {
  const wchar_t* class_name;
  std::vector<std::wstring> names;
};

/// Read once: the catalogue is made anew for every test.
const std::vector<Variables>& all_variables() {
  static const auto list = [] {
    std::vector<Variables> result;
    for (const auto& [name, clsid, iid, empty] : catalogue()) {
      Variables variables{name, {}};
      for (const Member& member : members_of(iid)) {
        if (member.kind == INVOKE_PROPERTYGET) variables.names.push_back(member.name);
      }
      if (!variables.names.empty()) result.push_back(std::move(variables));
    }
    return result;
  }();
  return list;
}

}  // namespace

void add_variable_calls(Calls& calls) {
  for (const auto& [name, variables] : all_variables()) {
    CallsOf<IDispatch>(calls, name)
        .succeeds("(variables)",
                  [&variables = variables](Scene&, IDispatch& object) {
                    for (const std::wstring& variable : variables) {
                      Variant value;
                      HRESULT code = get_property(&object, variable.c_str(), value.receive());
                      if (SUCCEEDED(code)) code = put_property(&object, variable.c_str(), std::move(value));
                      if (FAILED(code)) return code;
                    }
                    return S_OK;
                  })
        .fails("(variables)", DISP_E_TYPEMISMATCH, [&first = variables.front()](Scene&, IDispatch& object) {
          return put_property(&object, first.c_str(), null_value());
        });
  }
}

}  // namespace host

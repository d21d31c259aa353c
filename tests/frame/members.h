// The members of the published interfaces as the type library tells them.
#pragma once

#include "support/host.h"

namespace host {

struct Parameter {
  std::wstring name;
  std::string type;  // "I2", "BSTR*", "record Type_Contrat*", "array of VARIANT*", "enumeration"...
  bool optional = false;
};

struct Member {
  std::wstring name;
  DISPID id = DISPID_UNKNOWN;
  INVOKEKIND kind = INVOKE_FUNC;
  std::vector<Parameter> parameters;  // without the result
  std::string result;                 // type behind the address; empty when there is none
};

/// The members of an interface's own, in order; a property's get and let are two.
std::vector<Member> members_of(const IID& interface_id);

}  // namespace host

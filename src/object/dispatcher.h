// IDispatch for all classes, driven by the type library. Every type of the contract crosses, records
// included; a variable that a script passes as a VARIANT by reference is converted and written back.
#pragma once

#include "object/class_traits.h"

namespace velmosav {

class DispatchTable;

/// The late-bound side of one object. Knows its class's table from its first use on.
class Dispatcher {
 public:
  HRESULT type_info(const ClassIdentity& identity, UINT index, ITypeInfo** info) noexcept;
  HRESULT ids_of_names(const ClassIdentity& identity, LPOLESTR* names, UINT count, DISPID* ids) noexcept;
  HRESULT invoke(const ClassIdentity& identity, IDispatch* object, DISPID id, WORD flags,
                 DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) noexcept;

 private:
  const DispatchTable& table(const ClassIdentity& identity);

  const DispatchTable* table_ = nullptr;  // kept by the module while any object lives
};

}  // namespace velmosav

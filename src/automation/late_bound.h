// Objects of the host, called by name. A class written in a script answers only the extended dispatch
// interface: it is the second try.
//
//   HostObject table(clsTVA);
//   Variant rate = HostObject(to_object(table.get(L"EnrTva", Variant(3L)).get())).get(L"TauxTva");
#pragma once

#include "automation/platform.h"

#include <array>

#include "automation/com_ptr.h"
#include "automation/variant.h"

namespace velmosav {

/// A new object by its ProgID; fault 429 when it cannot be created.
ComPtr<IDispatch> create_object(const wchar_t* prog_id);

/// A member of a host's object, looked up once. Holds the object: the host's code may let go of it during a
/// call.
class HostMember {
 public:
  /// Fault 91 for no object, 438 for an unknown name.
  HostMember(IDispatch* object, const wchar_t* name);

  /// Reads the property (or calls the function of that name) with the arguments in order.
  /// A failure carries the object's own error information.
  template <class... Arguments>
  [[nodiscard]] Variant get(Arguments&&... arguments) const {
    std::array<Variant, sizeof...(Arguments)> values{std::forward<Arguments>(arguments)...};
    return invoke(DISPATCH_METHOD | DISPATCH_PROPERTYGET, values.data(), values.size());
  }

  /// Sets the property.
  void put(Variant value) const;

 private:
  [[nodiscard]] Variant invoke(WORD flags, Variant* arguments, std::size_t count) const;
  Variant invoke(WORD flags, DISPPARAMS& parameters) const;

  ComPtr<IDispatch> object_;
  ComPtr<IDispatch> extended_;  // an IDispatchEx when the name was found there
  DISPID id_ = DISPID_UNKNOWN;
};

/// An object of the host, held likewise.
class HostObject {
 public:
  explicit HostObject(IDispatch* object) noexcept : object_(ComPtr<IDispatch>::copy(object)) {}

  template <class... Arguments>
  [[nodiscard]] Variant get(const wchar_t* name, Arguments&&... arguments) const {
    return HostMember(object_.get(), name).get(std::forward<Arguments>(arguments)...);
  }
  /// Sets a property.
  void put(const wchar_t* name, Variant value) const {
    HostMember(object_.get(), name).put(std::move(value));
  }

 private:
  ComPtr<IDispatch> object_;
};

}  // namespace velmosav

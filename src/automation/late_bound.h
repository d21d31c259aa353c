// Objects of the host, called by name. A class written in a script answers only the extended dispatch
// interface: it is the second try.
//
//   HostObject table(clsTVA);
//   Variant rate = HostObject(to_object(table.get(L"EnrTva", Variant(3L)).get())).get(L"TauxTva");
#pragma once

#include "automation/platform.h"

#include <array>
#include <optional>

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
    Variant result;
    raise_if_failed(read(values.data(), values.size(), result));
    return result;
  }

  /// The same; nothing when the object fails, which costs no exception. Lack of memory is not skipped.
  template <class... Arguments>
  [[nodiscard]] std::optional<Variant> find(Arguments&&... arguments) const {
    std::array<Variant, sizeof...(Arguments)> values{std::forward<Arguments>(arguments)...};
    Variant result;
    Outcome outcome = read(values.data(), values.size(), result);
    if (SUCCEEDED(outcome.code)) return result;
    if (outcome.code == E_OUTOFMEMORY) raise_if_failed(std::move(outcome));
    return std::nullopt;
  }

  /// Sets the property.
  void put(Variant value) const;

 private:
  /// A call's result code, with what an object told that raised an exception.
  struct Outcome {
    HRESULT code;
    ComPtr<IErrorInfo> information;
    bool is_exception;
  };

  static void raise_if_failed(Outcome outcome);
  Outcome read(Variant* arguments, std::size_t count, Variant& result) const;
  Outcome invoke(WORD flags, DISPPARAMS& parameters, VARIANT* result) const;

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

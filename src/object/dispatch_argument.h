// One argument of a late-bound call: from the caller's VARIANT to what the vtable slot takes, and back.
#pragma once

#include <cstdint>

#include "object/dispatch_table.h"

namespace velmosav {

class DispatchArgument {
 public:
  /// Prepares `argument` (null when the caller gave none) for `parameter`.
  /// Throws DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW or DISP_E_PARAMNOTOPTIONAL.
  void prepare(const DispatchParameter& parameter, VARIANT* argument, LCID locale);

  /// Appends the words of the prepared argument to the stack image.
  std::uint32_t* push(const DispatchParameter& parameter, std::uint32_t* words) const noexcept;

  /// Gives a variable of another type, passed by reference, the value the method left; fault 13 or 6 when its
  /// type cannot hold it.
  void write_back();

 private:
  void prepare_missing(const DispatchParameter& parameter, bool given);
  void prepare_variant(const DispatchParameter& parameter, VARIANT& argument);
  void prepare_record(const DispatchParameter& parameter, VARIANT& argument);
  void prepare_array(const DispatchParameter& parameter, VARIANT& argument);
  void prepare_typed(const DispatchParameter& parameter, VARIANT& argument, LCID locale);
  /// A copy that the method may change while the caller's own value stays.
  VARIANT& copy_of(VARIANT& argument);
  [[nodiscard]] bool changed() const noexcept;

  bool by_value_ = false;        // the caller passed the value itself, not a variable
  Variant converted_;            // the temporary, when the caller's variable could not be passed itself
  VARIANT before_{};             // its bits before the call
  VARIANT* variable_ = nullptr;  // the caller's variable to write back to
  const void* value_ = nullptr;  // the address passed by reference, or of the value passed by value
};

}  // namespace velmosav

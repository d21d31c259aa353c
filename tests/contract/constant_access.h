// A public variable of an instance, reached by name and through its two slots.
#pragma once

#include "contract/published.h"
#include "support/type_library.h"

namespace contract {

/// A value as it travels: what a property gives or takes.
host::Variant to_variant(const Value& value);

/// A value of the same type that differs from the one given and, where the type can hold as many, from those
/// of other members.
host::Variant other_than(const Value& value, std::size_t member);

/// Type and value alike, no conversion.
::testing::AssertionResult same(const VARIANT& expected, const VARIANT& found);

/// An instance with the places of its variables, as the type library gives them.
class Instance {
 public:
  explicit Instance(const Class& entry);

  [[nodiscard]] bool is_ready() const { return object_ && early_; }
  host::Variant read_late(std::size_t member) const;
  host::Variant read_early(std::size_t member) const;
  HRESULT write_late(std::size_t member, const VARIANT& value);
  HRESULT write_early(std::size_t member, const VARIANT& value);

 private:
  DISPID id_of(std::size_t member) const;

  const Class* class_;
  ComPtr<IDispatch> object_;
  ComPtr<IDispatch> early_;  // the class's own interface
  std::vector<SHORT> gets_;  // offsets in its table
  std::vector<SHORT> puts_;
};

}  // namespace contract

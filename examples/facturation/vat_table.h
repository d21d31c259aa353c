// The host's VAT table, as the library reads it: EnrTva(code), GetTauxTva(code), FormatTVA...
#pragma once

#include <array>
#include <string>

#include "com_support.h"
#include "host_object.h"
#include "input.h"

namespace facturation {

class VatTable final : public HostObject {
 public:
  static ComPtr<VatTable> make(const TvaInput& input);

  /// Rate of a code that the input was checked to hold.
  [[nodiscard]] double rate(int code) const { return rates_.at(static_cast<std::size_t>(code)); }
  [[nodiscard]] const std::wstring& format() const { return format_; }
  /// The object's address, as the invoice methods take it.
  [[nodiscard]] long pointer() { return reinterpret_cast<long>(static_cast<IDispatch*>(this)); }

 private:
  explicit VatTable(const TvaInput& input);
  HRESULT answer(DISPID member, std::span<VARIANTARG> arguments, VARIANT& result) override;

  std::wstring format_;
  std::wstring format_non_multi_;
  std::array<ComPtr<IDispatch>, 100> entries_;
  std::array<double, 100> rates_{};
};

}  // namespace facturation

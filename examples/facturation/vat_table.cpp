#include "vat_table.h"

namespace facturation {
namespace {

class VatEntry final : public HostObject {
 public:
  explicit VatEntry(const TvaCode& code)
      : HostObject(kMembers),
        rate_(code.taux),
        compte_(to_utf16(code.compte)),
        compte_enc_(to_utf16(code.compte_enc)) {}

 private:
  static constexpr const wchar_t* kMembers[] = {L"TauxTva", L"Compte", L"CompteEnc"};

  HRESULT answer(DISPID member, std::span<VARIANTARG> arguments, VARIANT& result) override {
    if (!arguments.empty()) return DISP_E_BADPARAMCOUNT;
    if (member == 2) return answer_text(compte_.c_str(), result);
    if (member == 3) return answer_text(compte_enc_.c_str(), result);
    result.vt = VT_R8;
    result.dblVal = rate_;
    return S_OK;
  }

  double rate_;
  std::wstring compte_;
  std::wstring compte_enc_;
};

constexpr const wchar_t* kTableMembers[] = {L"EnrTva", L"GetTauxTva", L"FormatTVA", L"FormatTVANonMulti"};
constexpr DISPID kEnrTva = 1, kGetTauxTva = 2, kFormatTva = 3;

}  // namespace

ComPtr<VatTable> VatTable::make(const TvaInput& input) { return ComPtr<VatTable>(new VatTable(input)); }

VatTable::VatTable(const TvaInput& input)
    : HostObject(kTableMembers),
      format_(to_utf16(input.format)),
      format_non_multi_(to_utf16(input.format_non_multi)) {
  for (const TvaCode& code : input.codes) {
    const auto place = static_cast<std::size_t>(code.code);
    entries_.at(place) = ComPtr<IDispatch>(new VatEntry(code));
    rates_.at(place) = code.taux;
  }
}

HRESULT VatTable::answer(DISPID member, std::span<VARIANTARG> arguments, VARIANT& result) {
  if (member == kFormatTva) return answer_text(format_.c_str(), result);
  if (member != kEnrTva && member != kGetTauxTva) return answer_text(format_non_multi_.c_str(), result);

  if (arguments.size() != 1) return DISP_E_BADPARAMCOUNT;
  VARIANT code;
  VariantInit(&code);
  const HRESULT converted = VariantChangeType(&code, &arguments[0], 0, VT_I4);
  if (FAILED(converted)) return converted;
  const auto place = static_cast<std::size_t>(code.lVal);
  if (place >= entries_.size() || !entries_[place]) return DISP_E_BADINDEX;
  if (member == kGetTauxTva) {
    result.vt = VT_R8;
    result.dblVal = rates_[place];
  } else {
    result.vt = VT_DISPATCH;
    result.pdispVal = entries_[place].get();
    result.pdispVal->AddRef();
  }
  return S_OK;
}

}  // namespace facturation

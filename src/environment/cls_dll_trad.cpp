// Translation of the library's texts, through a link object of the host.
#include <new>

#include "automation/late_bound.h"
#include "object/class_object.h"

namespace velmosav {
namespace {

constexpr wchar_t kLinkClass[] = L".ClsSAVLinkOCX";

/// Text of an identifier in the user's language.
Bstr translated(const HostMember& table, long identifier) {
  constexpr long kMostShort = 32767;
  const bool is_short = identifier <= kMostShort;
  const Variant text =
      is_short ? table.get(Variant(static_cast<short>(identifier))) : table.get(Variant(identifier));
  return to_text(text.get());
}

class ClsDLLTrad final : public ClassObject<::_ClsDLLTrad> {
 public:
#include "object/constant_properties.h"
#include "constants/ClsDLLTrad.def"

  HRESULT STDMETHODCALLTYPE DLL_InitialisationTrad(BSTR* NomExe) noexcept override {
    return perform([&] {
      link_ = create_object(concat({view(required(NomExe)), kLinkClass}).get());
      load(Round::First);
      load(Round::Second);
    });
  }

  HRESULT STDMETHODCALLTYPE InitConstTrad() noexcept override {
    return perform([&] { load(Round::First); });
  }

 private:
  enum class Round { First, Second };

  /// Fetches one round of members, one by one: those before a failure keep their new texts. Fault 91 without
  /// a link.
  void load(Round wanted) {
    const HostMember table(link_.get(), L"GetTraduction_EXE");
    Round round = Round::First;
#define TRANSLATED_TEXT(member, identifier) \
  if (round == wanted) constants_.m_##member.assign(translated(table, identifier));
#define LITERAL_TEXT(member, text) \
  if (round == wanted) constants_.m_##member.reset(L##text);
#define SECOND_ROUND round = Round::Second;
#include "environment/translations.def"
  }

  ClsDLLTradConstants constants_;
  ComPtr<IDispatch> link_;
};

}  // namespace

IDispatch* create_ClsDLLTrad() { return new (std::nothrow) ClsDLLTrad; }

}  // namespace velmosav

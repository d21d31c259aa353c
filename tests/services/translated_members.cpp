#include "services/translated_members.h"

namespace host {
namespace {

constexpr wchar_t kLiteral[] = L"&Indéterminé";

#define MEMBER(name, identifier) \
  TranslatedMember { #name, identifier, &_ClsDLLTrad::get_##name, &_ClsDLLTrad::put_##name }

}  // namespace

const std::array<TranslatedMember, kMembers>& translated_members() {
  static const std::array<TranslatedMember, kMembers> members = {
      MEMBER(P_YesNo, 17),
      MEMBER(G_FmtYesNoPref, 2810),
      MEMBER(G_YesPref, 2811),
      MEMBER(G_NoPref, 2812),
      MEMBER(G_NouveauContextED, 100052),
      MEMBER(G_Situat_Plan, 1093),
      MEMBER(G_Situat_Dde, 1097),
      MEMBER(G_Situat_Prev, 1094),
      MEMBER(G_Situat_Prep, 1095),
      MEMBER(G_Situat_Real, 1096),
      MEMBER(G_EtatIntFact_NonFact, 1215),
      MEMBER(G_EtatIntFact_Fact, 1214),
      MEMBER(G_EtatIntFact_NePasFact, 102478),
      MEMBER(G_FmtEtatIntFact, 1213),
      MEMBER(G_SituArt_Ctt, 104397),
      MEMBER(G_SituArt_Gar, 104398),
      MEMBER(G_SituArt_Fac, 104396),
      MEMBER(G_FmtSituatElem, 2211),
      MEMBER(G_FmtEtatCtt, 917),
      MEMBER(G_EtatCttAct, 912),
      MEMBER(G_EtatCttSus, 913),
      MEMBER(G_EtatCttRes, 914),
      MEMBER(G_EtatCttClo, 915),
      MEMBER(G_EtatCttIna, 916),
      MEMBER(G_FmtMotifResil, 0),
      MEMBER(G_CondCttSite, 919),
      MEMBER(G_CondCttAtel, 920),
      MEMBER(G_FmtCondCtt, 918),
      MEMBER(G_FmtCouvInt, 93),
      MEMBER(G_FmtModeRec, 90),
      MEMBER(G_ModeRecAucun, 1010),
      MEMBER(G_ModeRecTacite, 100483),
      MEMBER(G_TermeDeb, 120053),
      MEMBER(G_TermeFin, 120054),
      MEMBER(G_FmtTermeDebFin, 120052),
      MEMBER(G_FmtTermeCtt, 120056),
      MEMBER(G_TermeAEchoir, 120058),
      MEMBER(G_TermeEchu, 120057),
      MEMBER(G_TypeArt, 451),
      MEMBER(G_TypeMO, 452),
      MEMBER(G_Pref_ValModeRecalcPlg_Duree, 103189),
      MEMBER(G_Pref_ValModeRecalcPlg_Plani, 103190),
      MEMBER(G_Pref_PreRensSiteCtt_TousSites, 112218),
      MEMBER(G_Pref_PreRensSiteCtt_Interv, 112219),
  };
  return members;
}
#undef MEMBER

std::vector<std::wstring> expected_texts(const std::wstring& prefix) {
  std::vector<std::wstring> texts;
  for (const TranslatedMember& member : translated_members()) {
    texts.push_back(member.identifier == 0 ? kLiteral : prefix + std::to_wstring(member.identifier));
  }
  return texts;
}

std::vector<std::wstring> texts_of(_ClsDLLTrad* translation) {
  std::vector<std::wstring> texts;
  for (const TranslatedMember& member : translated_members()) {
    Text text;
    EXPECT_EQ(S_OK, (translation->*member.get)(&text)) << member.name;
    texts.push_back(text.str());
  }
  return texts;
}

void assign_texts(_ClsDLLTrad* translation, const std::wstring& prefix) {
  for (std::size_t i = 0; i < kMembers; ++i) {
    const TranslatedMember& member = translated_members()[i];
    EXPECT_EQ(S_OK, (translation->*member.put)(Text(prefix + std::to_wstring(i)))) << member.name;
  }
}

}  // namespace host

// Amounts, VAT shares and tools.
#include "contract/published_classes.h"

namespace contract {
namespace {

const Constant kArticleConstants[]{
    {L"PC_TARIF_HT", Text{L"H"}},    {L"PC_TARIF_TTC", Text{L"T"}},    {L"PC_TARIF_DEVISE", Text{L"D"}},
    {L"PC_ID_DERPA", Integer{1}},    {L"PC_ID_MTFRAIS", Integer{2}},   {L"PC_ID_COEFFICIENT", Integer{3}},
    {L"PC_ID_PXBASEHT", Integer{4}}, {L"PC_ID_PXBASETTC", Integer{5}}, {L"PC_ID_MARGE", Integer{6}},
    {L"PC_ID_MARGEPC", Integer{7}},
};

const Constant kTvaRepartConstants[]{
    {L"PC_CodeTVAMultiple", Byte{99}},
};

const Method kTvaRepartMethods[]{
    {L"WriteRepartTVA", {{L"RepartTva", "Type_RepartTVA*"}, {L"CodeTva", "I2*", optional}}, "BSTR"},
    {L"GetStrRepartByCodeTVA", {{L"iTVA", "BSTR"}}, "BSTR"},
    {L"ReadRepartTVA",
     {{L"clsTVA", "DISPATCH*"},
      {L"iCodeTva", "I2*"},
      {L"sRepartTva", "BSTR", defaults_to_empty},
      {L"Mtt", "R8", defaults_to(0)},
      {L"sTypeTarif", "VARIANT", optional},
      {L"NbDecTot", "I2", defaults_to(2)}},
     "Type_RepartTVA"},
    {L"GetAmountByRepartTVA",
     {{L"clsTVA", "DISPATCH*"},
      {L"tTabRep", "Type_RepartTVA*"},
      {L"dAmtPivot", "R8"},
      {L"sTypeTarif", "VARIANT", optional},
      {L"NbDecTot", "I2", defaults_to(2)}},
     "R8"},
};

const Method kOutilMethods[]{
    {L"DLL_GetAmountHTByTTC",
     {{L"VATRate", "R8"}, {L"AmountTTC", "R8"}, {L"NumDigitDec", "UI1", defaults_to(2)}},
     "R8"},
    {L"DLL_GetAmountDiscounted",
     {{L"Amount", "R8"}, {L"DiscountRate", "R8"}, {L"NumDigitDec", "UI1", defaults_to(2)}},
     "R8"},
    {L"DLL_GetAmountTTCByHT",
     {{L"VATRate", "R8"}, {L"AmountHT", "R8"}, {L"NumDigitDec", "UI1", defaults_to(2)}},
     "R8"},
    {L"DLL_GetAmountTVA",
     {{L"VATRate", "R8"},
      {L"Amount", "R8"},
      {L"sTypeTarif", "BSTR"},
      {L"NumDigitDec", "UI1", defaults_to(2)}},
     "R8"},
    {L"DoubleToDuree",
     {{L"Nombre", "R8*"}, {L"UnitNombre", "BSTR*"}, {L"TabFormat", "array of VARIANT*"}},
     "BSTR"},
    {L"DureeToDouble",
     {{L"Duree", "BSTR*"}, {L"UnitNombre", "BSTR*"}, {L"FlagGdeDuree", "BOOL*", defaults_to(false)}},
     "R8"},
    {L"SetStringForSQL", {{L"Val", "BSTR"}}, "BSTR"},
    {L"ListeCodes_ConcateneCode", {{L"sListeCodes", "BSTR*"}, {L"sCode", "BSTR"}}},
    {L"ListeCodes_GetNextCode_Token", {{L"sListeCodes", "BSTR*"}}, "BSTR"},
    {L"ListeCodes_NbCodes", {{L"sListeCodes", "BSTR"}}, "I2"},
    {L"ListeCodes_ExtractionCode", {{L"sListeCodes", "BSTR*"}, {L"sCode", "BSTR"}}},
    {L"CheckFmtSaisNum", {{L"fmt", "BSTR"}, {L"Valeur", "R8"}}, "BOOL"},
    {L"CheckFmtNum", {{L"Ctl", "DISPATCH*"}, {L"Valeur", "VARIANT*", optional}}, "BOOL"},
    {L"IsRacinesValides",
     {{L"Racine", "BSTR*"},
      {L"sClasseRac", "BSTR*", defaults_to_empty},
      {L"Exclure", "BSTR*", defaults_to_empty}},
     "BOOL"},
    {L"IsCompteValide",
     {{L"Cpt", "BSTR*"}, {L"Racine", "BSTR"}, {L"bModifCpt", "BOOL", defaults_to(false)}},
     "BOOL"},
    {L"RemplaceChamp", {{L"ChampOrig", "BSTR"}, {L"CaraRechch", "BSTR"}, {L"CaraRempl", "BSTR"}}, "BSTR"},
    {L"ObjFromPtr", {{L"pObj", "I4"}}, "DISPATCH"},
    {L"SetLabelHauteur",
     {{L"Ctl", "DISPATCH"},
      {L"sCaption", "BSTR"},
      {L"lW", "VARIANT", optional},
      {L"lFColor", "VARIANT", optional},
      {L"bFBold", "VARIANT", optional}}},
    {L"SetRegionStdBout", {{L"Bt", "DISPATCH*"}}},
    {L"GetValScrollSurvol",
     {{L"SC", "DISPATCH*"}, {L"IndLig", "I2*", defaults_to(0)}, {L"indcol", "I2*", defaults_to(0)}},
     "VARIANT"},
    {L"GestionColQte",
     {{L"Col", "DISPATCH*"},
      {L"TypeL", "BSTR"},
      {L"NbDec", "UI1"},
      {L"Posit", "BSTR"},
      {L"FmtAffMO", "BSTR"},
      {L"bFmtAffEmpty", "BOOL", optional}}},
};

}  // namespace

Class article() { return {L"Article", kArticleConstants, {}}; }
Class tva_repart() { return {L"TvaRepart", kTvaRepartConstants, kTvaRepartMethods}; }
Class outil() { return {L"Outil", {}, kOutilMethods}; }

}  // namespace contract

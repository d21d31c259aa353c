// Coverage, interventions and work orders, their planning and their documents.
#include "contract/published_classes.h"

namespace contract {
namespace {

const Method kCouvertureMethods[]{
    {L"InitLigneCouverture", {{L"Lig", "Type_LigneCouverture*"}}},
    {L"InsererLigCouverture", {{L"Couverture", "Type_Couverture*"}, {L"ind", "VARIANT", optional}}},
    {L"ArtDejaPresent",
     {{L"Art", "BSTR"}, {L"Couverture", "Type_Couverture*"}, {L"Lig", "VARIANT", optional}},
     "BOOL"},
    {L"NbrArticle", {{L"Couv", "Type_Couverture*"}}, "I2"},
    {L"RazCouv", {{L"Couv", "Type_Couverture*"}}},
};

const Constant kInterventionConstants[]{
    {L"G_TypLigRess_Tec", Text{L"T"}},
    {L"G_TypLigRess_Equipe", Text{L"E"}},
};

const Method kInterventionMethods[]{
    {L"RazInterv", {{L"Doc", "Type_Intervention*"}}},
    {L"NbrAppareil", {{L"Interv", "Type_Intervention*"}}, "I2"},
    {L"NbrRessources", {{L"Interv", "Type_Intervention*"}}, "I2"},
};

const Method kBonMethods[]{
    {L"NbrArtBon", {{L"Bon", "Type_Bon*"}}, "I2"},
    {L"GetDureeTotPlages", {{L"Unite", "BSTR"}, {L"Ress", "Type_LigneRessource*"}}, "R8"},
    {L"RazTabApp", {{L"TabApp", "array of DISPATCH*"}}},
    {L"RazDocInt", {{L"Doc", "Type_Bon*"}, {L"bAll", "BOOL", defaults_to(true)}}},
};

const Constant kPlanningConstants[]{
    {L"PC_ModeDocument", Integer{1}},
    {L"PC_ModeRessource", Integer{2}},
    {L"PC_FirstModePl", Integer{1}},
    {L"PC_LastModePl", Integer{2}},
    {L"PC_FormatPLANN", Text{L"dd/mm/yyyy"}},
    {L"PC_FormatTACHE", Text{L"dd/mm/yyyy hh:nn"}},
    {L"PC_ModeDispo", Integer{0}},
    {L"PC_ModeInoccup", Integer{1}},
    {L"PC_ModeIndispo", Integer{2}},
    {L"C_Niveau", Text{L"Niveau"}},
    {L"C_Orphelin", Text{L"Orpheline"}},
    {L"PC_ImprPl_Std", Integer{0}},
    {L"PC_ImprPl_Graph", Integer{1}},
    {L"PC_ImprPl_1erePage", Integer{1}},
    {L"PC_ImprPl_ChaquePage", Integer{2}},
    {L"PC_ImprPl_AucunePage", Integer{3}},
    {L"C_MESS_EMPTY", Text{L"<Empty>"}},
    {L"C_MESS_FINTARD", Text{L"<FinTard>"}},
    {L"C_MESS_FINTOT", Text{L"<FinTot>"}},
    {L"C_MESS_DEBUTTARD", Text{L"<DebutTard>"}},
    {L"C_MESS_DEBUTTOT", Text{L"<DebutTot>"}},
    {L"C_MESS_INFOS", Text{L"<Infos>"}},
    {L"C_MESS_NODEPL", Text{L"<fige>"}},
    {L"C_MESS_DEBUTPERE", Text{L"<DebutPere>"}},
    {L"C_MESS_FINPERE", Text{L"<FinPere>"}},
    {L"C_MESS_USER", Text{L"<User>"}},
    {L"C_MESS_LIAIS", Text{L"<Liais>"}},
    {L"L_TypeIndispo", Integer{-1}},
    {L"L_TypeTech", Integer{1}},
    {L"L_TypeTrTech", Integer{2}},
    {L"L_TypeMat", Integer{3}},
    {L"L_TypeTrMat", Integer{4}},
    {L"L_TypeDde", Integer{5}},
    {L"L_TypeTrDde", Integer{6}},
    {L"L_TypeBon", Integer{7}},
    {L"L_TypeTrBon", Integer{8}},
    {L"L_TypeNote", Integer{9}},
    {L"L_TypePause", Integer{10}},
    {L"L_TypeCad", Integer{11}},
    {L"L_TypeTchDde", Integer{12}},
    {L"L_TypeTchBon", Integer{13}},
    {L"L_TypeFirstAff", Integer{1}},
    {L"L_TypeLastAff", Integer{13}},
    {L"PC_LOGPIXELSX", Integer{88}},
    {L"PC_LOGPIXELSY", Integer{90}},
    {L"PC_HORTRES", Integer{8}},
    {L"PC_VERTRES", Integer{10}},
    {L"PC_SurfaceMin", Integer{8}},
};

const Constant kIntervDocConstants[]{
    {L"PC_LibCouvManu", Text{L"Couverture forcée manuellement"}},
    {L"PC_TypeLig_Ress", Text{L"C"}},
    {L"PC_TypeLig_App", Text{L"P"}},
};

}  // namespace

Class couverture() { return {L"Couverture", {}, kCouvertureMethods}; }
Class intervention() { return {L"Intervention", kInterventionConstants, kInterventionMethods}; }
Class bon() { return {L"Bon", {}, kBonMethods}; }
Class planning() { return {L"Planning", kPlanningConstants, {}}; }
Class interv_doc() { return {L"IntervDoc", kIntervDocConstants, {}}; }

}  // namespace contract

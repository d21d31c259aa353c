// What surrounds a contract: its financing, its recurrence rules, its renewal, its rights.
#include "contract/published_classes.h"

namespace contract {
namespace {

const Constant kFinancContratConstants[]{
    {L"PC_Version_Financier_V8", Long{80000}},
    {L"PC_ModePaiement", Text{L"&Chèque;Carte &Bancaire;&Espèces"}},
    {L"P_MODEP_CESUBANC", Text{L"U"}},
    {L"P_MODEP_CESUPREF", Text{L"F"}},
    {L"EXCEPT_IMPAYE", Text{L"I"}},
    {L"EXCEPT_TRANSFERT", Text{L"T"}},
    {L"EXCEPT_REMISE", Text{L"R"}},
    {L"EXCEPT_ACOMPTE", Text{L"A"}},
    {L"EXCEPT_REMBOURSE", Text{L"B"}},
    {L"EXCEPT_TOUT", Text{L"*"}},
};

const Constant kPeriodiciteConstants[]{
    {L"PC_Period_Version1", Byte{1}},
    {L"G_FmtTypePeriodicite", Text{L"&Quotidienne;&Hebdomadaire;&Mensuelle;&Annuelle;#F"}},
    {L"c_sPeriod_Quotid", Text{L"Q"}},
    {L"c_sPeriod_Hebdo", Text{L"H"}},
    {L"c_sPeriod_Mens", Text{L"M"}},
    {L"c_sPeriod_Annuel", Text{L"A"}},
    {L"c_sWeekDayfmt", Text{L"&Lundi;&Mardi;M&ercredi;&Jeudi;&Vendredi;&Samedi;&Dimanche;#F"}},
};

const Method kPeriodiciteMethods[]{
    {L"GetListeFormat",
     {{L"Chaine", "BSTR*"}, {L"fmt", "BSTR"}, {L"Rempl", "BOOL*", defaults_to(true)}},
     "BSTR"},
    {L"CheckDate", {{L"DateT", "BSTR"}}, "BSTR"},
    {L"LastDayOfMonth", {{L"Mois", "I2*"}, {L"Annee", "VARIANT*", optional}}, "BSTR"},
    {L"GetKeyDay", {{L"vbConst", "I2*"}}, "BSTR"},
    {L"GetKeyMonth", {{L"vbConst", "I2*"}}, "BSTR"},
    {L"GetNumMonth", {{L"KeyMonth", "BSTR*"}}, "BSTR"},
    {L"GetFormatUniteDuree", {{L"Unite", "BSTR*"}}, "BSTR"},
    {L"GetPrevNextMonth",
     {{L"DateOrig", "BSTR*"}, {L"Per", "Type_Periodicite*"}, {L"Previous", "BOOL*"}},
     "BSTR"},
    {L"GetLibPeriodicite", {{L"Per", "Type_Periodicite*"}}, "BSTR"},
    {L"GetDateOfDay",
     {{L"Per", "Type_Periodicite*"}, {L"Mois", "VARIANT*", optional}, {L"Annee", "VARIANT*", optional}},
     "BSTR"},
    {L"RenseignerChampBinaire", {{L"RcsChamp", "DISPATCH*"}, {L"FicTemp", "BSTR*"}}, "BOOL"},
};

const Constant kReconductionConstants[]{
    {L"PC_IndMaxTMajRec", Byte{26}},
    {L"PC_MajorationCtt", Text{L"MC"}},
    {L"PC_ReconductionCtt", Text{L"RC"}},
};

const Method kReconductionMethods[]{
    {L"bDiffLigneTab", {{L"Tableau", "VARIANT"}, {L"Lig", "I2"}}, "BOOL"},
};

const Method kDroitsMethods[]{
    {L"GetDroitByTypeDoc", {{L"TypeDoc", "BSTR"}, {L"FlagAjt", "BOOL", defaults_to(true)}}, "I2"},
};

}  // namespace

Class financ_contrat() { return {L"FinancContrat", kFinancContratConstants, {}}; }
Class periodicite() { return {L"Periodicite", kPeriodiciteConstants, kPeriodiciteMethods}; }
Class reconduction() { return {L"Reconduction", kReconductionConstants, kReconductionMethods}; }
Class droits() { return {L"Droits", {}, kDroitsMethods}; }

}  // namespace contract

// Purchase and sales documents, grouping and the XML invoice.
#include "contract/published_classes.h"

namespace contract {
namespace {

const Constant kAchatVenteConstants[]{
    {L"PC_InfoApp_Version1", Integer{1}},
    {L"PC_IndMaxTPF", Integer{9}},
    {L"PC_IndMaxTPFLig", Integer{1}},
    {L"PC_Lig_NivMax", Integer{1}},
    {L"PC_MVT_RELEVEFAC", Text{L"RE"}},
    {L"PC_ModeDeCalculCa_HT_Seul", Text{L"H"}},
    {L"PC_ModeDeCalculCa_HT_Remisé", Text{L"R"}},
    {L"PC_ModeDeCalculCa_HT_RemiséEscompté", Text{L"E"}},
    {L"PC_ModeDeCalculCa_HT_TTC", Text{L"T"}},
    {L"PC_ModeEdtGroup", Integer{1}},
    {L"PC_ModeEdtDoc", Integer{2}},
    {L"PC_ModeEdtApiliste", Integer{3}},
    {L"PC_ModeEdtTransf", Integer{4}},
    {L"PC_ModeEdtApilisteParam", Integer{5}},
    {L"PC_ModeNoTransf", Integer{0}},
    {L"PC_ModeTransf", Integer{2}},
    {L"PC_ModeTransfGrp", Integer{8}},
    {L"PC_FmtTypDocVente", Text{L"{TYPVENTE}"}},
    {L"PC_FmtTypDocAchat", Text{L"{TYPACHAT}"}},
    {L"PC_TypLig_SsTot", Text{L"1"}},
    {L"PC_TypLig_Rem", Text{L"2"}},
    {L"PC_TypLig_NRef", Text{L"F"}},
    {L"PC_TypLig_Texte", Text{L"T"}},
    {L"PC_FmtTypDocMvt", Text{L"{TYPEIDENTIFIANT}"}},
};

const Method kGenerationMethods[]{
    {L"IsRuptRgrpCadFact", {{L"Tableau", "VARIANT*"}, {L"IndOrig", "I2"}, {L"IndComp", "I2"}}, "BOOL"},
    {L"RegroupementFacture", {{L"Tableau", "VARIANT*"}}},
};

const Constant kInvoiceXMLLibConstants[]{
    {L"PC_TypLig_Tranche", Text{L"TRANCHE"}},
    {L"pc_XInv_INV", Text{L"INVOICE"}},
    {L"pc_XInv_ORIGINE", Text{L"ORIGINE"}},
    {L"pc_XInv_CODE", Text{L"CODE"}},
    {L"pc_XInv_DATEFACT", Text{L"DATEFACT"}},
    {L"pc_XInv_CODETIERS", Text{L"CODETIERS"}},
    {L"pc_XInv_CODEREPR", Text{L"CODEREPR"}},
    {L"pc_XInv_CODEMODREGL", Text{L"CODEMODREGL"}},
    {L"pc_XInv_ADRCHANTIER", Text{L"ADRCHANTIER"}},
    {L"pc_XInv_ADRFACTURATION", Text{L"ADRFACTURATION"}},
    {L"pc_XInv_INTERLOC", Text{L"INTERLOC"}},
    {L"pc_XInv_ADR", Text{L"ADR"}},
    {L"pc_XInv_ADR2", Text{L"ADR2"}},
    {L"pc_XInv_CP", Text{L"CP"}},
    {L"pc_XInv_CITY", Text{L"CITY"}},
    {L"pc_XInv_PHONE", Text{L"PHONE"}},
    {L"pc_XInv_FAX", Text{L"FAX"}},
    {L"pc_XInv_MOBILE", Text{L"MOBILE"}},
    {L"pc_XInv_MAIL", Text{L"MAIL"}},
    {L"pc_XInv_ROW", Text{L"ROW"}},
    {L"pc_XInv_RANK", Text{L"RANK"}},
    {L"pc_XInv_LEVEL", Text{L"LEVEL"}},
    {L"pc_XInv_CODEELEM", Text{L"CODEELEM"}},
    {L"pc_XInv_TYPE", Text{L"TYPE"}},
    {L"pc_XInv_PRICE", Text{L"UNITPRICE"}},
    {L"pc_XInv_PVFIXE", Text{L"PVFIXE"}},
    {L"pc_XInv_QTY", Text{L"QTY"}},
    {L"pc_XInv_DISCOUNTRATE", Text{L"DISCOUNTRATE"}},
    {L"pc_XInv_COST", Text{L"UNITCOST"}},
    {L"pc_XInv_DESIGNATION", Text{L"DESIGNATION"}},
    {L"pc_XInv_VALORISAMT", Text{L"VALORISAMT"}},
    {L"pc_XInv_CODEUNIT", Text{L"CODEUNITE"}},
    {L"pc_XInv_EQUIVSTK", Text{L"EQUIVSTK"}},
    {L"pc_XInv_CPT", Text{L"COMPTE"}},
    {L"pc_XInv_CODETVA", Text{L"CODETVA"}},
    {L"pc_XInv_RATETVA", Text{L"RATE"}},
};

const Method kInvoiceXMLLibMethods[]{
    {L"SetHeadInvoiceXML_ByCtt",
     {{L"Ctt", "Type_Contrat*"},
      {L"sLib", "BSTR"},
      {L"sXml", "BSTR", optional},
      {L"sCodeFact", "BSTR", defaults_to_empty},
      {L"sDate", "BSTR", defaults_to_empty},
      {L"sVend", "VARIANT", optional}},
     "BSTR"},
    {L"SetHeadInvoiceXML_ByInt",
     {{L"Interv", "Type_Bon*"},
      {L"sLib", "BSTR"},
      {L"AdrFact", "Type_AdresseTiers*"},
      {L"sXml", "BSTR", optional},
      {L"sCodeFact", "BSTR", defaults_to_empty},
      {L"sDate", "BSTR", defaults_to_empty}},
     "BSTR"},
    {L"InitConstXML", {}},
    {L"AddIntervToInvoiceXML",
     {{L"Interv", "Type_Bon*"},
      {L"sXml", "BSTR", defaults_to_empty},
      {L"lPtrTva", "I4", defaults_to(-1)},
      {L"sValFacToCmpr", "BSTR", defaults_to_empty},
      {L"iNumLig", "I2*", defaults_to(0)}},
     "BSTR"},
    {L"AddCttToInvoiceXML",
     {{L"Ctt", "Type_Contrat*"},
      {L"iCad", "I2"},
      {L"sXml", "BSTR", defaults_to_empty},
      {L"lPtrTva", "I4", defaults_to(-1)},
      {L"iNumLig", "I2*", defaults_to(0)}},
     "BSTR"},
};

}  // namespace

Class achat_vente() { return {L"AchatVente", kAchatVenteConstants, {}}; }
Class generation() { return {L"Generation", {}, kGenerationMethods}; }
Class invoice_xml_lib() { return {L"InvoiceXMLLib", kInvoiceXMLLibConstants, kInvoiceXMLLibMethods}; }

}  // namespace contract

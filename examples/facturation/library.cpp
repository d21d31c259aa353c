#include "library.h"

#include <initializer_list>
#include <new>

namespace facturation {
namespace {

VARIANT missing() {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_ERROR;
  value.scode = DISP_E_PARAMNOTFOUND;
  return value;
}

// Borrows the text.
VARIANT text_argument(const Text& text) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_BSTR;
  value.bstrVal = text.get();
  return value;
}

constexpr short kDecimals = 2;

/// The unit codes of a duration's fields, as an array of VARIANTs.
class UnitFields {
 public:
  UnitFields(std::initializer_list<const wchar_t*> units)
      : array_(SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(units.size()))) {
    if (!array_) throw std::bad_alloc();
    auto* cell = static_cast<VARIANT*>(array_->pvData);
    for (const wchar_t* unit : units) {
      cell->vt = VT_BSTR;
      cell->bstrVal = SysAllocString(unit);
      ++cell;
    }
  }
  ~UnitFields() { SafeArrayDestroy(array_); }
  UnitFields(const UnitFields&) = delete;
  UnitFields& operator=(const UnitFields&) = delete;
  [[nodiscard]] SAFEARRAY* get() const { return array_; }

 private:
  SAFEARRAY* array_;
};

Codes read_codes(const ComPtr<_ContratDoc>& contrat, const ComPtr<_InvoiceXMLLib>& invoice,
                 const ComPtr<_Periodicite>& rules) {
  Codes codes;
  const auto article = create<_Article>(L"VelmoSAV_DLL14.Article");
  check(article->get_PC_TARIF_HT(codes.tarif_ht.receive()), article, "PC_TARIF_HT");
  check(article->get_PC_TARIF_TTC(codes.tarif_ttc.receive()), article, "PC_TARIF_TTC");
  const auto general = create<_General>(L"VelmoSAV_DLL14.General");
  check(general->get_c_sTypDoc_Ctt(codes.contrat.receive()), general, "c_sTypDoc_Ctt");
  check(general->get_c_sTypDoc_Interv(codes.intervention.receive()), general, "c_sTypDoc_Interv");
  check(general->get_c_sUnitDur_Jour(codes.jour.receive()), general, "c_sUnitDur_Jour");
  check(general->get_c_sUnitDur_Sem(codes.semaine.receive()), general, "c_sUnitDur_Sem");
  check(general->get_c_sUnitDur_Mois(codes.mois.receive()), general, "c_sUnitDur_Mois");
  check(general->get_c_sUnitDur_Annee(codes.annee.receive()), general, "c_sUnitDur_Annee");
  const auto sales = create<_AchatVente>(L"VelmoSAV_DLL14.AchatVente");
  check(sales->get_PC_TypLig_Texte(codes.ligne_texte.receive()), sales, "PC_TypLig_Texte");
  check(contrat->get_PC_NbMaxLigFact(&codes.max_instalments), contrat, "PC_NbMaxLigFact");
  check(rules->get_c_sPeriod_Mens(codes.mensuel.receive()), rules, "c_sPeriod_Mens");
  check(rules->get_c_sPeriod_Annuel(codes.annuel.receive()), rules, "c_sPeriod_Annuel");
  check(invoice->get_pc_XInv_ROW(codes.row_element.receive()), invoice, "pc_XInv_ROW");
  return codes;
}

}  // namespace

const Text& Codes::tarif(Tarif tarif_kind) const { return tarif_kind == Tarif::Ht ? tarif_ht : tarif_ttc; }

const Text& Codes::unit(Unite unit_kind) const {
  switch (unit_kind) {
    case Unite::Jours:
      return jour;
    case Unite::Semaines:
      return semaine;
    case Unite::Mois:
      return mois;
    default:
      return annee;
  }
}

Library::Library()
    : contrat_(create<_ContratDoc>(L"VelmoSAV_DLL14.ContratDoc")),
      tva_(create<_TvaRepart>(L"VelmoSAV_DLL14.TvaRepart")),
      outil_(create<_Outil>(L"VelmoSAV_DLL14.Outil")),
      periodicite_(create<_Periodicite>(L"VelmoSAV_DLL14.Periodicite")),
      bon_(create<_Bon>(L"VelmoSAV_DLL14.Bon")),
      generation_(create<_Generation>(L"VelmoSAV_DLL14.Generation")),
      invoice_(create<_InvoiceXMLLib>(L"VelmoSAV_DLL14.InvoiceXMLLib")),
      codes_(read_codes(contrat_, invoice_, periodicite_)) {}

Text Library::end_of_period(BSTR start, long length, const Text& unit) {
  Text end;
  check(contrat_->SetDateByDuree(start, length, unit.get(), end.receive()), contrat_, "SetDateByDuree");
  return end;
}

Text Library::start_after(BSTR end) {
  Text start;
  check(contrat_->CadFactPeriod_GetStartFromPreviousEnd(end, start.receive()), contrat_,
        "CadFactPeriod_GetStartFromPreviousEnd");
  return start;
}

short Library::add_instalment(Type_Contrat& contrat, BSTR due, BSTR start, BSTR end) {
  // Adding at the end needs a schedule: the first row is asked for by its index.
  short place = contrat.TabCadFact ? short{-1} : short{0};
  short row = -1;
  check(contrat_->AjouterCadFactCtt(&contrat, due, start, end, &place, &row), contrat_, "AjouterCadFactCtt");
  return row;
}

short Library::instalment_count(Type_Contrat& contrat) {
  short count = 0;
  check(contrat_->NbrCadFact(&contrat, &count), contrat_, "NbrCadFact");
  return count;
}

void Library::total_schedule(Type_Contrat& contrat, double& ht, double& ttc) {
  VARIANT total_ht, total_ttc;
  VariantInit(&total_ht);
  VariantInit(&total_ttc);
  double pivot = 0;
  check(contrat_->GetMttCtt(&contrat, &total_ht, &total_ttc, &pivot), contrat_, "GetMttCtt");
  if (total_ht.vt != VT_R8 || total_ttc.vt != VT_R8) throw ComFailure("GetMttCtt : totaux absents");
  ht = total_ht.dblVal;
  ttc = total_ttc.dblVal;
}

void Library::set_pivot_from_schedule(Type_Contrat& contrat) {
  check(contrat_->CalculSommeMtt(&contrat, kDecimals), contrat_, "CalculSommeMtt");
}

void Library::set_gross_amounts(Type_Contrat& contrat) {
  check(contrat_->CalculMttBrut(&contrat, kDecimals), contrat_, "CalculMttBrut");
}

Text Library::rule_label(Type_Periodicite& rule) {
  Text label;
  check(periodicite_->GetLibPeriodicite(&rule, label.receive()), periodicite_, "GetLibPeriodicite");
  return label;
}

Text Library::next_month(BSTR date, Type_Periodicite& rule) {
  VARIANT_BOOL previous = VARIANT_FALSE;
  Text next;
  check(periodicite_->GetPrevNextMonth(&date, &rule, &previous, next.receive()), periodicite_,
        "GetPrevNextMonth");
  return next;
}

Text Library::month_key(short month) {
  Text key;
  check(periodicite_->GetKeyMonth(&month, key.receive()), periodicite_, "GetKeyMonth");
  return key;
}

Text Library::end_before(BSTR next_start) {
  Text end;
  check(contrat_->CadFactPeriod_GetEndFromNextStart(next_start, end.receive()), contrat_,
        "CadFactPeriod_GetEndFromNextStart");
  return end;
}

bool Library::fits(const wchar_t* format, double value) {
  VARIANT_BOOL right = VARIANT_FALSE;
  check(outil_->CheckFmtSaisNum(Text(format).get(), value, &right), outil_, "CheckFmtSaisNum");
  return right != VARIANT_FALSE;
}

bool Library::has_root(const Text& account, const Text& roots) {
  BSTR number = account.get();
  VARIANT_BOOL right = VARIANT_FALSE;
  check(outil_->IsCompteValide(&number, roots.get(), VARIANT_FALSE, &right), outil_, "IsCompteValide");
  return right != VARIANT_FALSE;
}

Text Library::time_spent(Type_LigneRessource& technician) {
  double hours = 0;
  check(bon_->GetDureeTotPlages(Text(L"h").get(), &technician, &hours), bon_, "GetDureeTotPlages");
  const UnitFields fields({L"h", L"n"});
  SAFEARRAY* units = fields.get();
  const Text hour(L"h");
  BSTR unit = hour.get();
  Text text;
  check(outil_->DoubleToDuree(&hours, &unit, &units, text.receive()), outil_, "DoubleToDuree");
  return text;
}

void Library::read_distribution(IDispatch* table, short& code, const Text& distribution,
                                Type_RepartTVA& result) {
  check(tva_->ReadRepartTVA(&table, &code, distribution.get(), 0, missing(), kDecimals, &result), tva_,
        "ReadRepartTVA");
}

double Library::spread(IDispatch* table, Type_RepartTVA& distribution, double amount, const Text& tarif) {
  double other = 0;
  check(tva_->GetAmountByRepartTVA(&table, &distribution, amount, text_argument(tarif), kDecimals, &other),
        tva_, "GetAmountByRepartTVA");
  return other;
}

// At a rate of 0 the conversion only rounds: one rounding rule for the host and the library.
double Library::rounded(double amount) { return ttc_of_ht(0, amount); }

double Library::ttc_of_ht(double rate, double ht) {
  double ttc = 0;
  check(outil_->DLL_GetAmountTTCByHT(rate, ht, kDecimals, &ttc), outil_, "DLL_GetAmountTTCByHT");
  return ttc;
}

double Library::ht_of_ttc(double rate, double ttc) {
  double ht = 0;
  check(outil_->DLL_GetAmountHTByTTC(rate, ttc, kDecimals, &ht), outil_, "DLL_GetAmountHTByTTC");
  return ht;
}

double Library::vat_of(double rate, double amount, const Text& tarif) {
  double vat = 0;
  check(outil_->DLL_GetAmountTVA(rate, amount, tarif.get(), kDecimals, &vat), outil_, "DLL_GetAmountTVA");
  return vat;
}

void Library::group(VARIANT& grid) {
  check(generation_->RegroupementFacture(&grid), generation_, "RegroupementFacture");
}

bool Library::same_invoice(VARIANT& grid, short row, short other) {
  VARIANT_BOOL same = VARIANT_FALSE;
  check(generation_->IsRuptRgrpCadFact(&grid, row, other, &same), generation_, "IsRuptRgrpCadFact");
  return same != VARIANT_FALSE;
}

Text Library::head(Type_Contrat& contrat, const Text& label, const Text& code, const Text& date) {
  Text xml;
  check(invoice_->SetHeadInvoiceXML_ByCtt(&contrat, label.get(), nullptr, code.get(), date.get(), missing(),
                                          xml.receive()),
        invoice_, "SetHeadInvoiceXML_ByCtt");
  return xml;
}

Text Library::head(Type_Bon& bon, Type_AdresseTiers& billing, const Text& label, const Text& code,
                   const Text& date) {
  Text xml;
  check(invoice_->SetHeadInvoiceXML_ByInt(&bon, label.get(), &billing, nullptr, code.get(), date.get(),
                                          xml.receive()),
        invoice_, "SetHeadInvoiceXML_ByInt");
  return xml;
}

Text Library::add(Type_Contrat& contrat, short instalment, const Text& xml, long table, short& line) {
  Text extended;
  check(invoice_->AddCttToInvoiceXML(&contrat, instalment, xml.get(), table, &line, extended.receive()),
        invoice_, "AddCttToInvoiceXML");
  return extended;
}

Text Library::add(Type_Bon& bon, const Text& xml, long table, const Text& invoiced, short& line) {
  Text extended;
  check(invoice_->AddIntervToInvoiceXML(&bon, xml.get(), table, invoiced.get(), &line, extended.receive()),
        invoice_, "AddIntervToInvoiceXML");
  return extended;
}

}  // namespace facturation

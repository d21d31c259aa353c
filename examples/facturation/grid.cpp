#include "grid.h"

namespace facturation {
namespace {

constexpr ULONG kColumns = IndTabGener_Max + 1;

std::wstring site_name(const ContratInput& contrat) {
  if (contrat.sites.size() > 1) return std::to_wstring(contrat.sites.size()) + L" sites";
  return to_utf16(contrat.sites.empty() ? contrat.adresse.nom_site : contrat.sites[0].adresse.nom_site);
}

std::wstring_view view(BSTR text) { return {text ? text : L"", SysStringLen(text)}; }

}  // namespace

Grid::Grid(const std::vector<DueLine>& lines, const Codes& codes) {
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(lines.size()), 0}, {kColumns, 0}};
  VariantInit(&value_);
  value_.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  if (!value_.parray) throw std::bad_alloc();
  value_.vt = VT_ARRAY | VT_VARIANT;
  for (std::size_t row = 0; row < lines.size(); ++row) {
    fill(row, lines[row], codes);
    if (!lines_.emplace(key(row), row).second) throw std::runtime_error("document présent deux fois");
  }
}

std::size_t Grid::rows() const {
  const SAFEARRAY* array = value_.vt == (VT_ARRAY | VT_VARIANT) ? value_.parray : nullptr;
  if (!array || array->cDims != 2 || array->rgsabound[0].cElements != kColumns)
    throw ComFailure("RegroupementFacture : grille rendue sous une forme inattendue");
  return array->rgsabound[1].cElements;
}

std::size_t Grid::line_of(std::size_t row) const {
  const auto found = lines_.find(key(row));
  if (found == lines_.end()) throw ComFailure("RegroupementFacture : ligne inconnue dans la grille");
  return found->second;
}

VARIANT& Grid::cell(std::size_t row, std::size_t column) const {
  return static_cast<VARIANT*>(value_.parray->pvData)[row + column * rows()];
}

void Grid::set(std::size_t row, IndTabGener column, std::wstring_view text) {
  VARIANT& place = cell(row, static_cast<std::size_t>(column));
  place.bstrVal = Text(text).release();
  place.vt = VT_BSTR;
}

void Grid::set(std::size_t row, IndTabGener column, bool flag) {
  VARIANT& place = cell(row, static_cast<std::size_t>(column));
  place.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
  place.vt = VT_BOOL;
}

void Grid::fill(std::size_t row, const DueLine& line, const Codes& codes) {
  set(row, IndTabGener_ColSelect, line.ticked);
  set(row, IndTabGener_ColTraitOk, false);
  set(row, IndTabGener_ColRappTrait, std::wstring_view());
  if (line.contract) {
    const ContratInput& input = line.contract->input;
    const Type_CadencierFact& instalment = elements<Type_CadencierFact>(
        line.contract->record.TabCadFact)[static_cast<std::size_t>(line.instalment)];
    set(row, IndTabGener_ColNom, to_utf16(input.nom_client));
    set(row, IndTabGener_ColDate, view(instalment.DateFact));
    set(row, IndTabGener_ColLib, view(instalment.Libelle));
    set(row, IndTabGener_ColCodeCtt, to_utf16(input.code));
    set(row, IndTabGener_ColNomSite, site_name(input));
    set(row, IndTabGener_ColCodeDoc, std::to_wstring(instalment.NumAuto));
    set(row, IndTabGener_ColTypeDoc, codes.contrat.view());
    set(row, IndTabGener_ColTypeTarif, view(instalment.TypeTypTarif));
    set(row, IndTabGener_ColCodeVend, view(instalment.Vendeur));
    set(row, IndTabGener_ColCodeCli, to_utf16(input.client));
    set(row, IndTabGener_ColFormatTVA, view(instalment.RepartTva.FormatTVA));
  } else {
    const InterventionInput& input = line.order->input;
    set(row, IndTabGener_ColNom, to_utf16(input.nom_client));
    set(row, IndTabGener_ColDate, to_utf16(input.date));
    set(row, IndTabGener_ColLib, to_utf16(input.libelle));
    set(row, IndTabGener_ColCodeCtt, to_utf16(input.contrat));
    set(row, IndTabGener_ColNomSite, to_utf16(input.site.nom_site));
    set(row, IndTabGener_ColCodeDoc, to_utf16(input.code));
    set(row, IndTabGener_ColTypeDoc, codes.intervention.view());
    set(row, IndTabGener_ColTypeTarif, codes.tarif(input.tarif).view());
    set(row, IndTabGener_ColCodeVend, to_utf16(input.vendeur));
    set(row, IndTabGener_ColCodeCli, to_utf16(input.client));
    set(row, IndTabGener_ColFormatTVA, line.order->format_tva);
  }
}

std::wstring Grid::key(std::size_t row) const {
  const VARIANT& type = cell(row, IndTabGener_ColTypeDoc);
  const VARIANT& code = cell(row, IndTabGener_ColCodeDoc);
  if (type.vt != VT_BSTR || code.vt != VT_BSTR)
    throw ComFailure("RegroupementFacture : document illisible dans la grille");
  return std::wstring(view(type.bstrVal)) + L" " + std::wstring(view(code.bstrVal));
}

}  // namespace facturation

// The library's objects, behind calls that take and give C++ values and throw ComFailure.
#pragma once

#include <VelmoSAV_DLL14.h>

#include <string>

#include "com_support.h"
#include "input.h"
#include "records.h"

namespace facturation {

/// Codes that the library publishes.
struct Codes {
  Text tarif_ht, tarif_ttc;
  Text contrat, intervention;
  Text jour, semaine, mois, annee;
  Text ligne_texte;
  Text row_element;
  Text mensuel, annuel;
  short max_instalments = 0;

  [[nodiscard]] const Text& tarif(Tarif tarif_kind) const;
  [[nodiscard]] const Text& unit(Unite unit_kind) const;
};

class Library {
 public:
  Library();

  [[nodiscard]] const Codes& codes() const { return codes_; }

  // Billing schedule.
  Text end_of_period(BSTR start, long length, const Text& unit);
  Text start_after(BSTR end);
  short add_instalment(Type_Contrat& contrat, BSTR due, BSTR start, BSTR end);
  short instalment_count(Type_Contrat& contrat);
  void total_schedule(Type_Contrat& contrat, double& ht, double& ttc);
  void set_pivot_from_schedule(Type_Contrat& contrat);
  void set_gross_amounts(Type_Contrat& contrat);

  // Recurrence rules.
  Text rule_label(Type_Periodicite& rule);
  Text next_month(BSTR date, Type_Periodicite& rule);
  Text month_key(short month);
  Text end_before(BSTR next_start);

  // Checks of input, and time spent.
  bool fits(const wchar_t* format, double value);
  bool has_root(const Text& account, const Text& roots);
  /// Time of a technician's slots, "HH:MM".
  Text time_spent(Type_LigneRessource& technician);

  // VAT and amounts.
  void read_distribution(IDispatch* table, short& code, const Text& distribution, Type_RepartTVA& result);
  /// Fills the shares and returns the amount in the other base.
  double spread(IDispatch* table, Type_RepartTVA& distribution, double amount, const Text& tarif);
  double rounded(double amount);
  double ttc_of_ht(double rate, double ht);
  double ht_of_ttc(double rate, double ttc);
  double vat_of(double rate, double amount, const Text& tarif);

  // Invoices. Each builder returns the XML text that it extended.
  void group(VARIANT& grid);
  bool same_invoice(VARIANT& grid, short row, short other);
  Text head(Type_Contrat& contrat, const Text& label, const Text& code, const Text& date);
  Text head(Type_Bon& bon, Type_AdresseTiers& billing, const Text& label, const Text& code, const Text& date);
  Text add(Type_Contrat& contrat, short instalment, const Text& xml, long table, short& line);
  Text add(Type_Bon& bon, const Text& xml, long table, const Text& invoiced, short& line);

 private:
  ComPtr<_ContratDoc> contrat_;
  ComPtr<_TvaRepart> tva_;
  ComPtr<_Outil> outil_;
  ComPtr<_Periodicite> periodicite_;
  ComPtr<_Bon> bon_;
  ComPtr<_Generation> generation_;
  ComPtr<_InvoiceXMLLib> invoice_;
  Codes codes_;
};

}  // namespace facturation

#include "sites/contract_fixture.h"

namespace host {

void set_visits(Type_Contrat& contract, const std::vector<Visit>& visits) {
  dimension<Type_Intervention>(contract.TabInterv, static_cast<unsigned long>(visits.size()));
  for (std::size_t i = 0; i < visits.size(); ++i) {
    Type_Intervention& row = visit(contract, static_cast<unsigned long>(i));
    set(row.CodeSite, visits[i].site);
    set(row.Libelle, visits[i].label);
    row.TypeCadre = velmosav::to_variant_bool(visits[i].framework);
    row.NbConsInt = visits[i].consumed;
    row.DurConsInt = visits[i].time_consumed;
  }
}

void set_sites(Type_Contrat& contract, const std::vector<std::wstring>& sites) {
  dimension<Type_Intervention>(contract.TabInterv, static_cast<unsigned long>(sites.size()));
  for (std::size_t i = 0; i < sites.size(); ++i) {
    set(visit(contract, static_cast<unsigned long>(i)).CodeSite, sites[i]);
  }
}

void set_schedule(Type_Contrat& contract, const std::vector<Appointment>& rows) {
  dimension<Type_CadencierInterv>(contract.TabCadInterv, static_cast<unsigned long>(rows.size()));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    auto& row = element<Type_CadencierInterv>(contract.TabCadInterv, static_cast<unsigned long>(i));
    set(row.CodeSite, rows[i].site);
    set(row.Libelle, rows[i].label);
    row.NumInterv = rows[i].visit;
    set(row.CodeBon, rows[i].work_order);
  }
}

namespace {

/// A Boolean result is -1 or 0, no other number.
Answer<bool> truth_of(HRESULT code, VARIANT_BOOL result) {
  if (code == S_OK) {
    EXPECT_TRUE(result == VARIANT_TRUE || result == VARIANT_FALSE) << result;
  }
  return {code, result == VARIANT_TRUE};
}

}  // namespace

template <class Call>
HRESULT ContratDocInterventions::unchanging(Call call) {
  const auto before = snapshot(*contract_);
  const HRESULT code = call();
  EXPECT_EQ(std::vector<std::string>{}, differences(*before, *contract_));
  return code;
}

template <class Call>
Answer<bool> ContratDocInterventions::boolean(Call call) {
  VARIANT_BOOL result = 7;
  const HRESULT code = unchanging([&] { return call(&result); });
  return truth_of(code, result);
}

Answer<short> ContratDocInterventions::count() {
  short result = 77;
  const HRESULT code = unchanging([&] { return contracts_->NbrInterv(contract_, &result); });
  return {code, result};
}

Answer<short> ContratDocInterventions::scheduled_count() {
  short result = 77;
  const HRESULT code = unchanging([&] { return contracts_->NbrCadInterv(contract_, &result); });
  return {code, result};
}

Answer<short> ContratDocInterventions::site_number(short index) {
  short result = 77;
  short argument = index;
  const HRESULT code = unchanging([&] { return contracts_->GetNumSite_Dll(contract_, &argument, &result); });
  EXPECT_EQ(index, argument);
  return {code, result};
}

Answer<short> ContratDocInterventions::first_of_group(short group) {
  short result = 77;
  short argument = group;
  const HRESULT code = unchanging([&] { return contracts_->GetIndByNumSite(contract_, &argument, &result); });
  EXPECT_EQ(group, argument);
  return {code, result};
}

Answer<bool> ContratDocInterventions::labels_differ(VARIANT* later) {
  return boolean(
      [&](VARIANT_BOOL* result) { return contracts_->CheckLibInterCtt(contract_, later, result); });
}

Answer<std::wstring> ContratDocInterventions::site_list() {
  Text result;
  const HRESULT code = unchanging([&] { return contracts_->ListeSitesCttSQL(contract_, &result); });
  return {code, result.str()};
}

Answer<bool> ContratDocInterventions::is_modifiable(Variant number) {
  return boolean([&](VARIANT_BOOL* result) {
    return contracts_->IsInfosIntervModifiable(contract_, number.get(), result);
  });
}

Answer<bool> ContratDocInterventions::notice_fits(bool letter) {
  return boolean([&](VARIANT_BOOL* result) {
    return contracts_->CheckPreavisDocCtt(contract_, velmosav::to_variant_bool(letter), result);
  });
}

Answer<short> ContratDocInterventions::first_of_site(short index, VARIANT_BOOL& following,
                                                     VARIANT_BOOL& previous) {
  short result = 77;
  short argument = index;
  const VARIANT_BOOL following_before = following;
  const HRESULT code = unchanging(
      [&] { return contracts_->FirstIntervSite(contract_, &argument, &following, &previous, &result); });
  EXPECT_EQ(index, argument);
  EXPECT_EQ(following_before, following);
  return {code, result};
}

Answer<short> ContratDocInterventions::own_site(short index) {
  VARIANT_BOOL following = VARIANT_FALSE;
  VARIANT_BOOL previous = VARIANT_FALSE;
  const auto answer = first_of_site(index, following, previous);
  EXPECT_EQ(VARIANT_FALSE, previous);
  return answer;
}

Answer<short> ContratDocInterventions::following_site(short index) {
  VARIANT_BOOL following = VARIANT_TRUE;
  VARIANT_BOOL previous = VARIANT_FALSE;
  const auto answer = first_of_site(index, following, previous);
  EXPECT_EQ(VARIANT_FALSE, previous);
  return answer;
}

Answer<short> ContratDocInterventions::previous_site(short index) {
  VARIANT_BOOL following = VARIANT_FALSE;
  VARIANT_BOOL previous = VARIANT_TRUE;
  const auto answer = first_of_site(index, following, previous);
  EXPECT_EQ(VARIANT_TRUE, previous);
  return answer;
}

Answer<bool> ContratDocInterventions::correct_dates(short index) {
  VARIANT_BOOL result = 7;
  const HRESULT code = contracts_->CheckDateInterCtt(index, contract_, &result);
  return truth_of(code, result);
}

}  // namespace host

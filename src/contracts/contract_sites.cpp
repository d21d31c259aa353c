#include "contracts/contract_sites.h"

#include <string>
#include <utility>

#include "automation/variant.h"
#include "records/array_view.h"

namespace velmosav {
namespace {

using Interventions = ArrayView<Type_Intervention>;

std::wstring_view site_of(const Interventions& interventions, long index) {
  return trim(view(interventions[index].CodeSite));
}

/// The start of the group that an intervention stands in; codes are compared as they are written here.
long group_start(const Interventions& interventions, long index) {
  const std::wstring_view code = view(interventions[index].CodeSite);
  while (index != 0 && view(interventions[index - 1].CodeSite) == code) --index;
  return index;
}

/// The first intervention behind a group; the last of all when no other group follows.
long skip_group(const Interventions& interventions, long index) {
  const long first = index;
  while (index != interventions.end() - 1 && site_of(interventions, index) == site_of(interventions, first))
    ++index;
  return index;
}

}  // namespace

short site_group_of(const Type_Contrat& contract, short intervention) {
  const Interventions interventions(contract.TabInterv);
  long group = 1;
  std::wstring_view previous = site_of(interventions, 0);
  for (long i = 0; i < interventions.end(); ++i) {
    const std::wstring_view site = site_of(interventions, i);
    if (site != previous) ++group;
    if (site == site_of(interventions, intervention)) break;
    previous = site;
  }
  return narrow_to_short(group);
}

short first_of_site_group(const Type_Contrat& contract, short group) {
  const Interventions interventions(contract.TabInterv);
  long index = 0;
  long first = 0;
  for (short k = 1; k <= group && k > 0; ++k) {
    first = index;
    const std::wstring_view code = site_of(interventions, index);
    while (index < interventions.end() && site_of(interventions, index) == code) ++index;
    if (k == group) break;
  }
  return narrow_to_short(first);
}

short first_of_site(const Type_Contrat& contract, short intervention, bool following,
                    VARIANT_BOOL& previous) {
  if (intervention < 0) return 0;
  if (following && previous) previous = VARIANT_FALSE;
  if (previous && intervention == 0) return 0;
  const Interventions interventions(contract.TabInterv);
  long index = intervention;
  if (following) {
    index = skip_group(interventions, index);
  } else if (previous) {
    const std::wstring_view site = site_of(interventions, intervention);
    do {
      --index;
    } while (index >= 0 && site_of(interventions, index) == site);
    if (index < 0) return -1;
  }
  return narrow_to_short(group_start(interventions, index));
}

Bstr site_list(const Type_Contrat& contract) {
  if (!upper_bound(contract.TabInterv)) raise(Fault::SubscriptOutOfRange);
  const Interventions interventions(contract.TabInterv);
  std::wstring list;
  std::wstring_view previous;
  for (long i = 0; i < interventions.end(); ++i) {
    const std::wstring_view code = view(interventions[i].CodeSite);
    // The interventions of a site stand together: what the one before has is in the list.
    if (code == std::exchange(previous, code)) continue;
    if (list.empty()) {
      list = code;
    } else if (list.find(code) == std::wstring::npos) {
      list.append(L" , ").append(code);
    }
  }
  return Bstr(trim(list));
}

}  // namespace velmosav

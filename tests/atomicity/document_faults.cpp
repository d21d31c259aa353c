// Faults of coverage, interventions and work orders.
#include "atomicity/fault_case.h"

namespace atomicity {
namespace {

/// The three states of a host's array that a method refuses before it changes anything.
struct Spoilt {
  const char* fault;
  long code;
  void (*spoil)(SAFEARRAY*& array);
  void (*mend)(SAFEARRAY*& array);
};

const Spoilt kLocked{"locked", 10, [](SAFEARRAY*& array) { SafeArrayLock(array); },
                     [](SAFEARRAY*& array) { SafeArrayUnlock(array); }};
const Spoilt kFixed{
    "of fixed size", 10, [](SAFEARRAY*& array) { array->fFeatures |= FADF_FIXEDSIZE; },
    [](SAFEARRAY*& array) { array->fFeatures = static_cast<USHORT>(array->fFeatures & ~FADF_FIXEDSIZE); }};
const Spoilt kOtherLowerBound{"with another lower bound", 9,
                              [](SAFEARRAY*& array) { array->rgsabound[array->cDims - 1].lLbound = 1; },
                              [](SAFEARRAY*& array) { array->rgsabound[array->cDims - 1].lLbound = 0; }};
const Spoilt kOtherSize{"of elements of another size", 13, [](SAFEARRAY*& array) { array->cbElements += 1; },
                        [](SAFEARRAY*& array) { array->cbElements -= 1; }};

using Array = SAFEARRAY*& (*)(World&);

void add(std::vector<FaultCase>& cases, const wchar_t* class_name, const wchar_t* method, const char* what,
         HRESULT (*call)(World&), Array array, std::initializer_list<Spoilt> states) {
  static std::deque<std::string> texts;
  for (const Spoilt& state : states) {
    texts.push_back(std::string(what) + " " + state.fault);
    cases.push_back({class_name, method, texts.back().c_str(), state.code, call,
                     [=](World& world) { state.spoil(array(world)); },
                     [=](World& world) { state.mend(array(world)); }});
  }
}

HRESULT insert(World& world) { return coverages()->InsererLigCouverture(world.coverage, left_out()); }
HRESULT insert_at(World& world) {
  return coverages()->InsererLigCouverture(world.coverage, world.value.get());
}
HRESULT is_present(World& world) {
  return coverages()->ArtDejaPresent(Text(L"B2"), world.coverage, world.value.get(), world.truth_result());
}
HRESULT reset_coverage(World& world) { return coverages()->RazCouv(world.coverage); }
HRESULT reset_intervention(World& world) { return interventions()->RazInterv(world.intervention); }
HRESULT reset_order(World& world) { return orders()->RazDocInt(world.order, VARIANT_TRUE); }
HRESULT total_time(World& world) {
  return orders()->GetDureeTotPlages(Text(L"h"), world.technician, world.real_result());
}

SAFEARRAY*& lines(World& world) { return world.coverage->Liste; }

}  // namespace

std::vector<FaultCase> document_faults() {
  std::vector<FaultCase> cases = {
      {L"Couverture", L"InsererLigCouverture", "a negative index", 9, insert_at,
       [](World& world) { world.value = Variant(-1L); }},
      {L"Couverture", L"InsererLigCouverture", "Null as index", 94, insert_at,
       [](World& world) { world.value = host::null_value(); }},
      {L"Couverture", L"InsererLigCouverture", "a text without number as index", 13, insert_at,
       [](World& world) { world.value = host::text_value(L"fin"); }},
      {L"Couverture", L"InsererLigCouverture", "a list that was never dimensioned", 9, insert,
       [](World& world) { velmosav::erase<Type_LigneCouverture>(world.coverage->Liste); }},
      {L"Couverture", L"ArtDejaPresent", "a text without number as line", 13, is_present,
       [](World& world) { world.value = host::text_value(L"fin"); }},
      {L"Bon", L"GetDureeTotPlages", "a slot whose end is no date", 13, total_time,
       [](World& world) {
         host::set(host::element<Type_BarTime>(world.technician->TabPlage, 1).DateFin, L"demain");
       }},
      {L"Bon", L"RazTabApp", "an array of elements of another size", 13,
       [](World& world) { return orders()->RazTabApp(&world.array); },
       [](World& world) { world.array = SafeArrayCreateVector(VT_VARIANT, 0, 2); }},
  };
  add(cases, L"Couverture", L"InsererLigCouverture", "a list", insert, lines,
      {kLocked, kFixed, kOtherLowerBound, kOtherSize});
  add(cases, L"Couverture", L"ArtDejaPresent", "a list", is_present, lines, {kOtherLowerBound, kOtherSize});
  add(cases, L"Couverture", L"RazCouv", "a list", reset_coverage, lines, {kLocked, kFixed, kOtherSize});
  add(cases, L"Intervention", L"RazInterv", "equipment", reset_intervention,
      [](World& world) -> SAFEARRAY*& { return world.intervention->TabAppareil; },
      {kLocked, kFixed, kOtherLowerBound, kOtherSize});
  add(cases, L"Intervention", L"RazInterv", "a coverage list", reset_intervention,
      [](World& world) -> SAFEARRAY*& { return world.intervention->Couverture.Liste; },
      {kLocked, kFixed, kOtherSize});
  add(cases, L"Intervention", L"RazInterv", "resources", reset_intervention,
      [](World& world) -> SAFEARRAY*& { return world.intervention->TabRes; }, {kLocked, kFixed, kOtherSize});
  add(cases, L"Bon", L"RazDocInt", "technicians", reset_order,
      [](World& world) -> SAFEARRAY*& { return world.order->TabTech; },
      {kLocked, kFixed, kOtherLowerBound, kOtherSize});
  add(cases, L"Bon", L"RazDocInt", "the last technician's slots", reset_order,
      [](World& world) -> SAFEARRAY*& {
        return host::element<Type_LigneRessource>(world.order->TabTech, 1).TabPlage;
      },
      {kLocked, kFixed, kOtherSize});
  add(cases, L"Bon", L"RazDocInt", "equipment", reset_order,
      [](World& world) -> SAFEARRAY*& { return world.order->TabAppareil; },
      {kLocked, kFixed, kOtherLowerBound, kOtherSize});
  add(cases, L"Bon", L"RazDocInt", "articles", reset_order,
      [](World& world) -> SAFEARRAY*& { return world.order->TabArticle; }, {kLocked, kFixed, kOtherSize});
  add(
      cases, L"Bon", L"RazTabApp", "equipment",
      [](World& world) { return orders()->RazTabApp(&world.order->TabAppareil); },
      [](World& world) -> SAFEARRAY*& { return world.order->TabAppareil; },
      {kLocked, kFixed, kOtherLowerBound});
  add(cases, L"Bon", L"GetDureeTotPlages", "slots", total_time,
      [](World& world) -> SAFEARRAY*& { return world.technician->TabPlage; }, {kOtherLowerBound, kOtherSize});
  return cases;
}

}  // namespace atomicity

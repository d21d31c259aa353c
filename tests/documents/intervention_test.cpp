// Intervention: counts of equipment items and resources, reset of the lists, public variables.
#include "documents/object_array.h"
#include "support/arguments.h"

namespace {

using host::element;
using host::Objects;
using host::Record;
using host::Text;
using host::Variant;

const std::vector<std::string> kNone;

class Intervention : public ::testing::Test {
 protected:
  short equipment() {
    short result = 77;
    EXPECT_EQ(S_OK, interventions_->NbrAppareil(intervention_, &result));
    return result;
  }
  short resources() {
    short result = 77;
    EXPECT_EQ(S_OK, interventions_->NbrRessources(intervention_, &result));
    return result;
  }

  /// Resources as rows x columns of text, the columns being the resources.
  void dimension_resources(SAFEARRAYBOUND rows, SAFEARRAYBOUND columns) {
    if (intervention_->TabRes) SafeArrayDestroy(intervention_->TabRes);
    SAFEARRAYBOUND bounds[] = {rows, columns};
    intervention_->TabRes = SafeArrayCreate(VT_BSTR, 2, bounds);
  }
  void set_resource(long row, long column, const wchar_t* text) {
    long place[] = {row, column};
    ASSERT_EQ(S_OK, SafeArrayPutElement(intervention_->TabRes, place, Text(text)));
  }

  host::ComPtr<_Intervention> interventions_ = host::create<_Intervention>(L"Intervention");
  Record<Type_Intervention> intervention_;
};

TEST_F(Intervention, NbrAppareilOfAnArrayNeverDimensionedIsMinusOne) { EXPECT_EQ(-1, equipment()); }

TEST_F(Intervention, NbrAppareilCountsTheSecondDimension) {
  Objects objects(0);
  const struct {
    SAFEARRAYBOUND first, second;
    short expected;
  } cases[] = {{{2, 0}, {5, 0}, 5},     {{5, 0}, {2, 0}, 2},   {{1, 0}, {1, 0}, 1},
               {{2, 3}, {2, 1}, 3},     {{1, 0}, {2, -4}, -2}, {{1, 0}, {32767, 0}, 32767},
               {{1, 0}, {32768, 0}, -1}};
  for (const auto& [first, second, expected] : cases) {
    intervention_->TabAppareil = objects.array_of({first, second});
    EXPECT_EQ(expected, equipment());
    SafeArrayDestroy(std::exchange(intervention_->TabAppareil, nullptr));
  }
}

TEST_F(Intervention, NbrAppareilOfOneDimensionIsMinusOne) {
  intervention_->TabAppareil = Objects(0).array_of({{3, 0}});
  EXPECT_EQ(-1, equipment());
}

TEST_F(Intervention, NbrAppareilCountsASingleItemWithoutObject) {
  intervention_->TabAppareil = Objects(0).array_of({{1, 0}, {1, 0}});
  EXPECT_EQ(1, equipment());
}

TEST_F(Intervention, NbrRessourcesOfAnArrayNeverDimensionedIsMinusOne) { EXPECT_EQ(-1, resources()); }

TEST_F(Intervention, NbrRessourcesOfASingleResourceWhoseFirstCellIsEmptyIsZero) {
  dimension_resources({2, 0}, {1, 0});
  EXPECT_EQ(0, resources());
  set_resource(0, 0, L"");
  EXPECT_EQ(0, resources());
}

TEST_F(Intervention, NbrRessourcesLooksAtTheFirstCellOnly) {
  dimension_resources({2, 0}, {1, 0});
  set_resource(1, 0, L"12");
  EXPECT_EQ(0, resources());
}

TEST_F(Intervention, NbrRessourcesOfASingleResourceIsOne) {
  dimension_resources({2, 0}, {1, 0});
  set_resource(0, 0, L"T");
  EXPECT_EQ(1, resources());
}

TEST_F(Intervention, NbrRessourcesOfASingleResourceOfABlankIsOne) {
  dimension_resources({2, 0}, {1, 0});
  set_resource(0, 0, L" ");
  EXPECT_EQ(1, resources());
}

TEST_F(Intervention, NbrRessourcesCountsSeveralEmptyResources) {
  dimension_resources({2, 0}, {2, 0});
  EXPECT_EQ(2, resources());
}

TEST_F(Intervention, NbrRessourcesCountsTheSecondDimension) {
  dimension_resources({5, 0}, {3, 0});
  EXPECT_EQ(3, resources());
  dimension_resources({2, 0}, {0, 0});
  EXPECT_EQ(0, resources());
}

TEST_F(Intervention, NbrRessourcesReadsTheCellZeroZeroWhereverTheBoundsBegin) {
  dimension_resources({3, -1}, {3, -2});
  set_resource(-1, -2, L"E");
  EXPECT_EQ(0, resources());
  set_resource(0, 0, L"T");
  EXPECT_EQ(1, resources());
}

TEST_F(Intervention, NbrRessourcesOfASingleResourceWithoutACellZeroZeroIsMinusOne) {
  dimension_resources({2, 1}, {1, 0});
  set_resource(1, 0, L"T");
  EXPECT_EQ(-1, resources());
}

TEST_F(Intervention, NbrRessourcesOfOneDimensionIsMinusOne) {
  SAFEARRAYBOUND bound{1, 0};
  intervention_->TabRes = SafeArrayCreate(VT_BSTR, 1, &bound);
  EXPECT_EQ(-1, resources());
}

TEST_F(Intervention, CountsLeaveNoErrorInformation) {
  host::take_error();
  equipment();
  resources();
  EXPECT_EQ(L"", host::take_error().description);
}

class RazInterv : public Intervention {
 protected:
  RazInterv() {
    for (Type_Intervention* record : {&*intervention_, &*expected_}) {
      host::set(record->Code, L"V1");
      host::set(record->Couverture.Couverture, L"Tout");
      host::set(record->Couverture.Condition, L"Hors casse");
      host::set(record->Periodicite.Libelle, L"Mensuelle");
      host::set(record->CodeEquipe, L"EQ");
      record->Couverture.Exclure = VARIANT_TRUE;
      record->Preavis.Duree = 8;
      record->Duree = 2.5;
      record->NbMaxInt = 4;
    }
    intervention_->TabAppareil = objects_.array_of({{1, 0}, {3, 0}});
    host::dimension<Type_LigneCouverture>(intervention_->Couverture.Liste, 2);
    host::set(element<Type_LigneCouverture>(intervention_->Couverture.Liste, 1).Code, L"A1");
    dimension_resources({2, 0}, {2, 0});
    set_resource(0, 1, L"T");
  }

  Objects objects_{3};
  Record<Type_Intervention> expected_;
};

TEST_F(RazInterv, ErasesTheThreeListsAndKeepsTheRest) {
  ASSERT_EQ(S_OK, interventions_->RazInterv(intervention_));
  EXPECT_EQ(kNone, host::differences(*expected_, *intervention_));
}

TEST_F(RazInterv, ReleasesEachEquipmentItemOnce) {
  ASSERT_EQ(S_OK, interventions_->RazInterv(intervention_));
  EXPECT_EQ((std::vector<long>{1, 1, 1}), objects_.references());
}

TEST_F(RazInterv, TakesAnInterventionWithoutLists) {
  Record<Type_Intervention> empty;
  ASSERT_EQ(S_OK, interventions_->RazInterv(empty));
  EXPECT_EQ(kNone, host::differences(Type_Intervention{}, *empty));
}

TEST_F(RazInterv, LeavesCountsOfMinusOne) {
  ASSERT_EQ(S_OK, interventions_->RazInterv(intervention_));
  EXPECT_EQ(-1, equipment());
  EXPECT_EQ(-1, resources());
}

/// An array of the intervention that a host has spoilt: the reset fails and the whole record stays.
struct RefusedArray {
  const char* name;
  SAFEARRAY*& (*array)(Type_Intervention& record);
};

void PrintTo(const RefusedArray& refused, std::ostream* stream) { *stream << refused.name; }

class RazIntervRefused : public RazInterv, public ::testing::WithParamInterface<RefusedArray> {
 protected:
  SAFEARRAY*& array() { return GetParam().array(*intervention_); }

  void expect_refused(int fault) {
    const auto before = host::snapshot(*intervention_);
    EXPECT_TRUE(host::is_fault(interventions_->RazInterv(intervention_), fault, L"Intervention"));
    EXPECT_EQ(kNone, host::differences(*before, *intervention_));
  }
};

TEST_P(RazIntervRefused, LockedIsFault10AndLosesNothing) {
  SafeArrayLock(array());
  expect_refused(10);
  SafeArrayUnlock(array());
  EXPECT_EQ((std::vector<long>{2, 2, 2}), objects_.references());
}

TEST_P(RazIntervRefused, OfFixedSizeIsFault10AndLosesNothing) {
  array()->fFeatures |= FADF_FIXEDSIZE;
  expect_refused(10);
  array()->fFeatures = static_cast<USHORT>(array()->fFeatures & ~FADF_FIXEDSIZE);
}

TEST_P(RazIntervRefused, OfElementsOfAnotherSizeIsFault13AndLosesNothing) {
  SAFEARRAY* foreign = host::make_array(array()->cbElements + 4, 2);
  SAFEARRAY* own = std::exchange(array(), foreign);
  const std::string before(reinterpret_cast<const char*>(&*intervention_), sizeof(Type_Intervention));
  EXPECT_TRUE(host::is_fault(interventions_->RazInterv(intervention_), 13, L"Intervention"));
  EXPECT_EQ(before, std::string(reinterpret_cast<const char*>(&*intervention_), sizeof(Type_Intervention)));
  SafeArrayDestroy(std::exchange(array(), own));
  EXPECT_EQ((std::vector<long>{2, 2, 2}), objects_.references());
}

const RefusedArray kArrays[] = {
    {"Equipment", [](Type_Intervention& record) -> SAFEARRAY*& { return record.TabAppareil; }},
    {"Coverage", [](Type_Intervention& record) -> SAFEARRAY*& { return record.Couverture.Liste; }},
    {"Resources", [](Type_Intervention& record) -> SAFEARRAY*& { return record.TabRes; }},
};

INSTANTIATE_TEST_SUITE_P(Arrays, RazIntervRefused, ::testing::ValuesIn(kArrays),
                         [](const auto& test) { return test.param.name; });

TEST_F(RazInterv, OfEquipmentWhoseRowsStartAboveZeroFailsAndLosesNothing) {
  intervention_->TabAppareil->rgsabound[1].lLbound = 1;
  const auto before = host::snapshot(*intervention_);
  EXPECT_TRUE(host::is_fault(interventions_->RazInterv(intervention_), 9, L"Intervention"));
  EXPECT_EQ(kNone, host::differences(*before, *intervention_));
}

TEST_F(RazInterv, ErasesResourcesAndCoverageFromAnyLowerBound) {
  intervention_->TabRes->rgsabound[0].lLbound = 3;
  intervention_->Couverture.Liste->rgsabound[0].lLbound = 1;
  ASSERT_EQ(S_OK, interventions_->RazInterv(intervention_));
  EXPECT_EQ(kNone, host::differences(*expected_, *intervention_));
}

TEST_F(RazInterv, ErasesArraysOfOneDimension) {
  host::free_objects(intervention_->TabAppareil, 3);
  Objects objects(2);
  intervention_->TabAppareil = objects.array_of({{2, 0}});
  ASSERT_EQ(S_OK, interventions_->RazInterv(intervention_));
  EXPECT_EQ((std::vector<long>{1, 1}), objects.references());
}

TEST_F(Intervention, NbrRessourcesOfTheLowestBoundIsMinusOne) {
  dimension_resources({1, LONG_MIN}, {1, 0});
  EXPECT_EQ(-1, resources());
}

TEST_F(Intervention, PublishesTheResourceTypes) {
  Text technician, team;
  ASSERT_EQ(S_OK, interventions_->get_G_TypLigRess_Tec(&technician));
  ASSERT_EQ(S_OK, interventions_->get_G_TypLigRess_Equipe(&team));
  EXPECT_EQ(L"T", technician.str());
  EXPECT_EQ(L"E", team.str());
}

TEST_F(Intervention, KeepsAnAssignedResourceTypeToItself) {
  const auto other = host::create<_Intervention>(L"Intervention");
  ASSERT_EQ(S_OK, interventions_->put_G_TypLigRess_Tec(Text(L"X")));
  Text own, others;
  ASSERT_EQ(S_OK, interventions_->get_G_TypLigRess_Tec(&own));
  ASSERT_EQ(S_OK, other->get_G_TypLigRess_Tec(&others));
  EXPECT_EQ(L"X", own.str());
  EXPECT_EQ(L"T", others.str());
}

TEST_F(RazInterv, AnswersALateBoundCall) {
  const auto info = host::record_info<Type_Intervention>();
  ASSERT_EQ(S_OK, host::call(interventions_.get(), L"RazInterv",
                             host::arguments(host::record_argument(*intervention_, info.get())), nullptr));
  EXPECT_EQ(kNone, host::differences(*expected_, *intervention_));
}

TEST_F(RazInterv, CountsAnswerALateBoundCallBeforeTheReset) {
  const auto info = host::record_info<Type_Intervention>();
  const auto count = [&](const wchar_t* name) {
    Variant result;
    EXPECT_EQ(S_OK, host::call(interventions_.get(), name,
                               host::arguments(host::record_argument(*intervention_, info.get())),
                               result.receive()));
    EXPECT_EQ(VT_I2, result.get().vt);
    return result.get().iVal;
  };
  EXPECT_EQ(3, count(L"NbrAppareil"));
  EXPECT_EQ(2, count(L"NbrRessources"));
}

TEST_F(Intervention, RefusesNullPointers) {
  short count = 0;
  EXPECT_EQ(E_POINTER, interventions_->RazInterv(nullptr));
  EXPECT_EQ(E_POINTER, interventions_->NbrAppareil(nullptr, &count));
  EXPECT_EQ(E_POINTER, interventions_->NbrAppareil(intervention_, nullptr));
  EXPECT_EQ(E_POINTER, interventions_->NbrRessources(nullptr, &count));
  EXPECT_EQ(E_POINTER, interventions_->NbrRessources(intervention_, nullptr));
}

}  // namespace

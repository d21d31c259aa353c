// Contracts at the published limits of 4000 interventions and 2000 billing rows: the time of each method
// grows with the rows, not with their square; that of the list of sites with the rows times the sites.
#include <algorithm>
#include <cstdio>
#include <limits>

#include "sites/contract_fixture.h"
#include "sites/literal_interventions.h"

namespace host {
namespace {

constexpr short kMostVisits = 4000;
constexpr short kFewVisits = 400;
constexpr short kManySites = 400;
/// Ten times the rows may take this many times as long; a walk of every row against every other takes 100.
constexpr double kMostGrowth = 40;

/// One contract of a size: few sites or one each, labels that all differ, framework rows with nothing
/// consumed.
class Sized {
 public:
  Sized(_ContratDoc* contracts, short visits, short sites) : contracts_(contracts), last_(visits) {
    --last_;
    set(contract_->DateDeb, L"01/01/2025");
    set(contract_->DateFin, L"31/12/2025");
    contract_->Duree = 12;
    set(contract_->UnitDuree, L"M");
    contract_->PreavisD.Duree = 3;
    set(contract_->PreavisD.Unite, L"M");
    fill(visits, sites);
  }

  void fill(short visits, short sites) {
    dimension<Type_Intervention>(contract_->TabInterv, static_cast<unsigned long>(visits));
    dimension<Type_CadencierInterv>(contract_->TabCadInterv, static_cast<unsigned long>(visits));
    dimension<Type_CadencierFact>(contract_->TabCadFact, static_cast<unsigned long>(visits) / 2);
    for (short i = 0; i < visits; ++i) {
      const auto place = static_cast<unsigned long>(i);
      const std::wstring site = L"SITE" + std::to_wstring(10000 + i / (visits / sites));
      const std::wstring label = L"Visite " + std::to_wstring(i);
      auto& row = visit(*contract_, place);
      set(row.CodeSite, site);
      set(row.Libelle, label);
      row.TypeCadre = velmosav::to_variant_bool(i % 2 == 0);
      auto& scheduled = element<Type_CadencierInterv>(contract_->TabCadInterv, place);
      set(scheduled.CodeSite, site);
      set(scheduled.Libelle, label);
      scheduled.NumInterv = i;
      if (i % 2 == 0) set(scheduled.CodeBon, L"INT-" + std::to_wstring(i));
    }
  }

  Type_Contrat* operator->() { return &*contract_; }
  operator Type_Contrat*() { return contract_; }
  [[nodiscard]] _ContratDoc* methods() const { return contracts_; }
  [[nodiscard]] short last() const { return last_; }

 private:
  _ContratDoc* contracts_;
  short last_;
  Record<Type_Contrat> contract_;
};

double seconds() {
  LARGE_INTEGER now, frequency;
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// The shortest of several measurements of one call, each over enough calls to be told from the clock's step.
template <class Call>
double time_of(Call call) {
  double best = std::numeric_limits<double>::max();
  for (int round = 0; round < 7; ++round) {
    const double start = seconds();
    int calls = 0;
    double taken = 0;
    do {
      call();
      ++calls;
      taken = seconds() - start;
    } while (taken < 0.003);
    best = std::min(best, taken / calls);
  }
  return best;
}

class ContratDocAtTheLimit : public ::testing::Test {
 protected:
  /// Times `call` on a contract at the limit and on a tenth of it.
  template <class Call>
  void expect_growth_with_the_rows(Call call, short sites_in_ten = 1) {
    Sized few(contracts_.get(), kFewVisits, static_cast<short>(kFewVisits / 10 * sites_in_ten));
    Sized most(contracts_.get(), kMostVisits, static_cast<short>(kMostVisits / 10 * sites_in_ten));
    ASSERT_EQ(S_OK, call(few));
    ASSERT_EQ(S_OK, call(most));
    const double short_time = time_of([&] { call(few); });
    const double long_time = time_of([&] { call(most); });
    std::printf("%g us with %d rows, %g us with %d\n", short_time * 1e6, kFewVisits, long_time * 1e6,
                kMostVisits);
    EXPECT_LT(long_time, kMostGrowth * short_time + 1e-5);
  }

  ComPtr<_ContratDoc> contracts_ = create<_ContratDoc>(L"ContratDoc");
};

TEST_F(ContratDocAtTheLimit, NbrInterv) {
  expect_growth_with_the_rows([](Sized& contract) {
    short count = 0;
    const HRESULT code = contract.methods()->NbrInterv(contract, &count);
    EXPECT_EQ(contract.last() + 1, count);
    return code;
  });
}

TEST_F(ContratDocAtTheLimit, NbrCadInterv) {
  expect_growth_with_the_rows([](Sized& contract) {
    short count = 0;
    const HRESULT code = contract.methods()->NbrCadInterv(contract, &count);
    EXPECT_EQ(contract.last() + 1, count);
    return code;
  });
}

TEST_F(ContratDocAtTheLimit, GetNumSite_OfTheLastRowWithASiteEach) {
  expect_growth_with_the_rows(
      [](Sized& contract) {
        short index = contract.last();
        short number = 0;
        const HRESULT code = contract.methods()->GetNumSite_Dll(contract, &index, &number);
        EXPECT_EQ(contract.last() + 1, number);
        return code;
      },
      10);
}

TEST_F(ContratDocAtTheLimit, GetIndByNumSite_OfTheLastGroupWithASiteEach) {
  expect_growth_with_the_rows(
      [](Sized& contract) {
        short group = static_cast<short>(contract.last() + 1);
        short index = 0;
        const HRESULT code = contract.methods()->GetIndByNumSite(contract, &group, &index);
        EXPECT_EQ(contract.last(), index);
        return code;
      },
      10);
}

TEST_F(ContratDocAtTheLimit, FirstIntervSite_ThroughOneSite) {
  Sized few(contracts_.get(), kFewVisits, 1);
  Sized most(contracts_.get(), kMostVisits, 1);
  for (const bool back : {false, true}) {
    const auto call = [back](Sized& contract) {
      short index = back ? contract.last() : short{0};
      short first = 77;
      VARIANT_BOOL following = velmosav::to_variant_bool(!back);
      VARIANT_BOOL previous = velmosav::to_variant_bool(back);
      EXPECT_EQ(S_OK, contract.methods()->FirstIntervSite(contract, &index, &following, &previous, &first));
      EXPECT_EQ(back ? -1 : 0, first);
    };
    const double short_time = time_of([&] { call(few); });
    const double long_time = time_of([&] { call(most); });
    EXPECT_LT(long_time, kMostGrowth * short_time + 1e-5) << (back ? "back" : "forward");
  }
}

TEST_F(ContratDocAtTheLimit, CheckDateInterCtt_OfTheLastRow) {
  expect_growth_with_the_rows([](Sized& contract) {
    VARIANT_BOOL corrected = VARIANT_FALSE;
    return contract.methods()->CheckDateInterCtt(contract.last(), contract, &corrected);
  });
}

TEST_F(ContratDocAtTheLimit, CheckLibInterCtt_WithoutAClash) {
  expect_growth_with_the_rows([](Sized& contract) {
    VARIANT_BOOL differ = VARIANT_FALSE;
    const HRESULT code = contract.methods()->CheckLibInterCtt(contract, nullptr, &differ);
    EXPECT_EQ(VARIANT_TRUE, differ);
    return code;
  });
}

TEST_F(ContratDocAtTheLimit, ListeSitesCttSQL_OfTenSites) {
  Sized few(contracts_.get(), kFewVisits, 10);
  Sized most(contracts_.get(), kMostVisits, 10);
  const auto call = [](Sized& contract) {
    Text list;
    EXPECT_EQ(S_OK, contract.methods()->ListeSitesCttSQL(contract, &list));
    EXPECT_EQ(10 * 9 + 9 * 3, list.str().size());
  };
  const double short_time = time_of([&] { call(few); });
  const double long_time = time_of([&] { call(most); });
  EXPECT_LT(long_time, kMostGrowth * short_time + 1e-5);
}

/// Each code is searched in the text of those before it, so the time grows with the rows times the sites. The
/// same search, row by row, is the measure.
TEST_F(ContratDocAtTheLimit, ListeSitesCttSQL_OfManySites_KeepsUpWithTheLiteralRule) {
  constexpr double kMostOfLiteral = 4;
  for (const short sites : {kManySites, kMostVisits}) {
    Sized contract(contracts_.get(), kMostVisits, sites);
    Text list;
    std::wstring expected;
    const double time = time_of([&] { contracts_->ListeSitesCttSQL(contract, &list); });
    const double literal_time =
        time_of([&] { literal::site_list(*static_cast<Type_Contrat*>(contract), expected); });
    EXPECT_EQ(sites * 9U + (sites - 1U) * 3U, expected.size());
    EXPECT_EQ(expected, list.str());
    std::printf("%d sites: %g us, literally %g us\n", sites, time * 1e6, literal_time * 1e6);
    EXPECT_LT(time, kMostOfLiteral * literal_time) << sites;
  }
}

TEST_F(ContratDocAtTheLimit, IsInfosIntervModifiable_OfAll) {
  expect_growth_with_the_rows([](Sized& contract) {
    VARIANT_BOOL modifiable = VARIANT_FALSE;
    const HRESULT code = contract.methods()->IsInfosIntervModifiable(contract, missing().get(), &modifiable);
    EXPECT_EQ(VARIANT_TRUE, modifiable);
    return code;
  });
}

TEST_F(ContratDocAtTheLimit, IsInfosIntervModifiable_OfTheLastRow) {
  expect_growth_with_the_rows([](Sized& contract) {
    VARIANT_BOOL modifiable = VARIANT_FALSE;
    return contract.methods()->IsInfosIntervModifiable(contract, Variant(contract.last()).get(), &modifiable);
  });
}

TEST_F(ContratDocAtTheLimit, CheckPreavisDocCtt) {
  expect_growth_with_the_rows([](Sized& contract) {
    VARIANT_BOOL fits = VARIANT_FALSE;
    return contract.methods()->CheckPreavisDocCtt(contract, VARIANT_FALSE, &fits);
  });
}

TEST_F(ContratDocAtTheLimit, RazDocCtt_FreesAllRows) {
  const auto shortest = [this](short visits) {
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < 5; ++round) {
      Sized contract(contracts_.get(), visits, 10);
      const double start = seconds();
      EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract));
      best = std::min(best, seconds() - start);
      EXPECT_EQ(nullptr, contract->TabInterv);
    }
    return best;
  };
  const double short_time = shortest(kFewVisits);
  EXPECT_LT(shortest(kMostVisits), kMostGrowth * short_time + 1e-4);
}

}  // namespace
}  // namespace host

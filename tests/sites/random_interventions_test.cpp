// Random contracts, asked by the library and by the literal rules: the outcomes must agree, faults included,
// and the contract must stay as it was. The seed is printed; VELMOSAV_TEST_SEED repeats a run.
#include <map>

#include "sites/literal_interventions.h"
#include "sites/random_contracts.h"
#include "support/host.h"

namespace host {
namespace {

constexpr int kContracts = 4000;

/// The outcome of a call as the literal rules name it; another failure is negative.
int outcome_of(HRESULT code) {
  constexpr unsigned long kFaults = 0x800A0000UL;
  if (code == S_OK) return 0;
  const unsigned long number = static_cast<unsigned long>(code) - kFaults;
  return number < 0x10000 ? static_cast<int>(number) : -1;
}

/// An outcome with its result, if any, as one text.
std::string described(int outcome, const std::string& result) {
  return outcome == 0 ? result : "fault " + std::to_string(outcome);
}

/// What the two sides answered to one question.
struct Pair {
  std::string expected;
  std::string answered;
};

class RandomInterventions : public ::testing::Test {
 protected:
  /// Asks `question` of every random contract; counts the kinds of answer.
  template <class Question>
  void compare(Question question) {
    const unsigned seed = chosen_seed();
    RandomContracts contracts(seed);
    for (int i = 0; i < kContracts; ++i) {
      auto contract = contracts.next();
      const auto before = snapshot(*contract);
      for (int again = 0; again < 4; ++again) {
        const Pair pair = question(contracts, *contract);
        ASSERT_EQ(pair.expected, pair.answered) << "seed " << seed << ", contract " << i;
        ++answers_[pair.expected];
      }
      ASSERT_EQ(std::vector<std::string>{}, differences(*before, *contract))
          << "seed " << seed << ", contract " << i;
    }
  }

  /// An index around the interventions.
  static short index(RandomContracts& contracts) { return static_cast<short>(contracts.between(-2, 8)); }

  /// Each of these answers came often, or the comparison said nothing about it.
  void expect_met(std::initializer_list<const char*> kinds) {
    for (const char* kind : kinds) EXPECT_GT(answers_[kind], kContracts / 100) << kind;
  }

  ComPtr<_ContratDoc> contracts_ = create<_ContratDoc>(L"ContratDoc");
  std::map<std::string, int> answers_;
};

TEST_F(RandomInterventions, NbrCadInterv_AgreesWithTheLiteralRule) {
  compare([&](RandomContracts&, Type_Contrat& contract) {
    short expected = 0;
    short answered = 0;
    const int outcome = literal::scheduled_count(contract, expected);
    const HRESULT code = contracts_->NbrCadInterv(&contract, &answered);
    return Pair{described(outcome, std::to_string(expected)),
                described(outcome_of(code), std::to_string(answered))};
  });
  expect_met({"-1", "0", "1", "2", "5"});
}

TEST_F(RandomInterventions, GetNumSite_AgreesWithTheLiteralRule) {
  compare([&](RandomContracts& contracts, Type_Contrat& contract) {
    short argument = index(contracts);
    short expected = 0;
    short answered = 0;
    const int outcome = literal::site_number(contract, argument, expected);
    const HRESULT code = contracts_->GetNumSite_Dll(&contract, &argument, &answered);
    return Pair{described(outcome, std::to_string(expected)),
                described(outcome_of(code), std::to_string(answered))};
  });
  expect_met({"1", "2", "3", "fault 9"});
}

TEST_F(RandomInterventions, GetIndByNumSite_AgreesWithTheLiteralRule) {
  compare([&](RandomContracts& contracts, Type_Contrat& contract) {
    short argument = static_cast<short>(contracts.between(-1, 5));
    short expected = 0;
    short answered = 0;
    const int outcome = literal::first_of_group(contract, argument, expected);
    const HRESULT code = contracts_->GetIndByNumSite(&contract, &argument, &answered);
    return Pair{described(outcome, std::to_string(expected)),
                described(outcome_of(code), std::to_string(answered))};
  });
  expect_met({"0", "1", "2", "3", "fault 9"});
}

TEST_F(RandomInterventions, FirstIntervSite_AgreesWithTheLiteralRule) {
  compare([&](RandomContracts& contracts, Type_Contrat& contract) {
    short argument = index(contracts);
    const bool following = contracts.one_in(3);
    bool expected_flag = contracts.one_in(2);
    VARIANT_BOOL following_flag = velmosav::to_variant_bool(following);
    VARIANT_BOOL previous_flag = velmosav::to_variant_bool(expected_flag);
    short expected = 0;
    short answered = 0;
    const int outcome = literal::first_of_site(contract, argument, following, expected_flag, expected);
    const HRESULT code =
        contracts_->FirstIntervSite(&contract, &argument, &following_flag, &previous_flag, &answered);
    return Pair{described(outcome, std::to_string(expected)) + (expected_flag ? " back" : ""),
                described(outcome_of(code), std::to_string(answered)) + (previous_flag ? " back" : "")};
  });
  expect_met({"0", "1", "2", "3", "fault 9", "-1 back", "0 back", "1 back", "2 back", "fault 9 back"});
}

TEST_F(RandomInterventions, CheckLibInterCtt_AgreesWithTheLiteralRule) {
  compare([&](RandomContracts&, Type_Contrat& contract) {
    bool differ = false;
    short later = -1;
    VARIANT_BOOL answered = VARIANT_FALSE;
    Variant variable(short{-1});
    const int outcome = literal::labels_differ(contract, differ, later);
    const HRESULT code = contracts_->CheckLibInterCtt(&contract, &variable.get(), &answered);
    return Pair{
        described(outcome, differ ? "differ" : "same " + std::to_string(later)),
        described(outcome_of(code), answered ? "differ" : "same " + std::to_string(variable.get().iVal))};
  });
  expect_met({"differ", "same 1", "same 2", "same 3", "same 4"});
}

TEST_F(RandomInterventions, ListeSitesCttSQL_AgreesWithTheLiteralRule) {
  compare([&](RandomContracts&, Type_Contrat& contract) {
    std::wstring expected;
    Text answered;
    const int outcome = literal::site_list(contract, expected);
    const HRESULT code = contracts_->ListeSitesCttSQL(&contract, &answered);
    return Pair{described(outcome, utf8(expected)), described(outcome_of(code), utf8(answered.str()))};
  });
  expect_met({"fault 9", "", "A", "C"});
  EXPECT_GT(answers_.size(), 500U);
}

TEST_F(RandomInterventions, IsEchCttTransferee_AgreesWithTheLiteralRule) {
  compare([&](RandomContracts& contracts, Type_Contrat& contract) {
    const bool billing = contracts.one_in(3);
    const bool interventions = !contracts.one_in(3);
    const short number = static_cast<short>(contracts.between(-1, 8));
    bool expected = false;
    VARIANT_BOOL answered = VARIANT_FALSE;
    Variant billing_flag(billing);
    Variant intervention_flag(interventions);
    Variant wanted(number);
    const int outcome = literal::is_committed(contract, billing, interventions, number, expected);
    const HRESULT code = contracts_->IsEchCttTransferee(&contract, &billing_flag.get(),
                                                        &intervention_flag.get(), &wanted.get(), &answered);
    return Pair{described(outcome, expected ? "yes" : "no"),
                described(outcome_of(code), answered ? "yes" : "no")};
  });
  expect_met({"yes", "no"});
}

TEST_F(RandomInterventions, IsInfosIntervModifiable_AgreesWithTheLiteralRule) {
  compare([&](RandomContracts& contracts, Type_Contrat& contract) {
    const short number = index(contracts);
    bool expected = false;
    VARIANT_BOOL answered = VARIANT_FALSE;
    const Variant argument = number == -1 && contracts.one_in(2) ? missing() : Variant(number);
    const int outcome = literal::is_modifiable(contract, number, expected);
    const HRESULT code = contracts_->IsInfosIntervModifiable(&contract, argument.get(), &answered);
    const std::string kind = number == -1 ? "all " : "one ";
    return Pair{kind + described(outcome, expected ? "yes" : "no"),
                kind + described(outcome_of(code), answered ? "yes" : "no")};
  });
  expect_met({"all yes", "all no", "one yes", "one no", "one fault 9"});
}

TEST_F(RandomInterventions, CheckPreavisDocCtt_AgreesWithTheLiteralRule) {
  compare([&](RandomContracts& contracts, Type_Contrat& contract) {
    const bool letter = contracts.one_in(2);
    bool expected = false;
    VARIANT_BOOL answered = VARIANT_FALSE;
    const int outcome = literal::notice_fits(contract, letter, expected);
    const HRESULT code =
        contracts_->CheckPreavisDocCtt(&contract, velmosav::to_variant_bool(letter), &answered);
    return Pair{described(outcome, expected ? "yes" : "no"),
                described(outcome_of(code), answered ? "yes" : "no")};
  });
  expect_met({"yes", "no", "fault 13"});
}

}  // namespace
}  // namespace host

// The rows of a billing line's VAT shares in the XML invoice, and the rate that the host's VAT object
// answers.
#include "invoicing/invoice_fixture.h"

namespace {

using Texts = std::vector<std::wstring>;

class VatShareRows : public host::InvoiceTest {
 protected:
  /// The rows after the three text rows.
  std::vector<host::XmlNode> shares(long vat = -1) {
    short line = 0;
    auto rows = host::row_nodes(contract_rows(contract_, line, 0, L"", vat));
    EXPECT_LE(3u, rows.size());
    rows.erase(rows.begin(), rows.begin() + 3);
    return rows;
  }
  Texts codes(long vat = -1) {
    Texts result;
    for (const auto& row : shares(vat)) result.push_back(row.child(L"CODETVA").text);
    return result;
  }

  host::Record<Type_Contrat> contract_ = host::sample_contract();
};

TEST_F(VatShareRows, HoldTheirChildrenInOrder) {
  host::set_share(*contract_, 0, 1, 40, 1234.5);
  const auto rows = shares();
  ASSERT_EQ(1u, rows.size());
  EXPECT_EQ(
      "ROW RANK=\"3\" LEVEL=\"1\" TYPE=\"F\"\n"
      "  ORIGINE TYPE=\"CONTRAT\" = 41\n"
      "  UNITPRICE = 1234,5\n"
      "  QTY = 1\n"
      "  DESIGNATION = Quote-part montant soumis à TVA n°1\n"
      "  COMPTE = 706100\n"
      "  CODETVA RATE=\"\" = 1\n",
      host::outline(rows[0]));
}

TEST_F(VatShareRows, AreWrittenForEntriesZeroAndTwoWhenTheseAloneHoldAmounts) {
  host::set_share(*contract_, 0, 0, 30, 30);
  host::set_share(*contract_, 0, 2, 70, 70);
  EXPECT_EQ((Texts{L"0", L"2"}), codes());
}

TEST_F(VatShareRows, AreNumberedInTheOrderOfTheCodes) {
  host::set_share(*contract_, 0, 5, 30, 30);
  host::set_share(*contract_, 0, 2, 70, 70);
  const auto rows = shares();
  ASSERT_EQ(2u, rows.size());
  EXPECT_EQ(L"3", rows[0].attribute(L"RANK"));
  EXPECT_EQ(L"2", rows[0].child(L"CODETVA").text);
  EXPECT_EQ(L"4", rows[1].attribute(L"RANK"));
  EXPECT_EQ(L"5", rows[1].child(L"CODETVA").text);
}

TEST_F(VatShareRows, ReachTheHighestCode) {
  host::set_share(*contract_, 0, 99, 100, 10);
  EXPECT_EQ(Texts{L"99"}, codes());
}

TEST_F(VatShareRows, DependOnAPercentageAboveZero) {
  host::set_share(*contract_, 0, 1, 0, 50);
  host::set_share(*contract_, 0, 2, -10, 50);
  host::set_share(*contract_, 0, 3, 0.001, 0);
  EXPECT_EQ(Texts{L"3"}, codes());
  EXPECT_EQ(L"0", shares()[0].child(L"UNITPRICE").text);
}

TEST_F(VatShareRows, TakeTheBaseOfTheBillingLineNotTheContracts) {
  contract_->RepartTva.Lignes[1].Pourcent = 100;
  contract_->RepartTva.Lignes[1].MontantBase = 999;
  host::set_share(*contract_, 0, 2, 100, -12.34);
  const auto rows = shares();
  ASSERT_EQ(1u, rows.size());
  EXPECT_EQ(L"-12,34", rows[0].child(L"UNITPRICE").text);
}

TEST_F(VatShareRows, TakeTheAccountOfTheContractNotOfTheShare) {
  host::set_share(*contract_, 0, 1, 100, 10);
  host::set(host::element<Type_CadencierFact>(contract_->TabCadFact, 0).RepartTva.Lignes[1].Compte,
            L"445710");
  EXPECT_EQ(L"706100", shares()[0].child(L"COMPTE").text);
}

TEST_F(VatShareRows, HaveAnEmptyRateAndANumberedDesignationWithoutVatObject) {
  host::set_share(*contract_, 0, 1, 50, 10);
  host::set_share(*contract_, 0, 12, 50, 10);
  const auto rows = shares(-1);
  ASSERT_EQ(2u, rows.size());
  for (const auto& row : rows) EXPECT_EQ(L"", row.child(L"CODETVA").attribute(L"RATE"));
  EXPECT_EQ(L"Quote-part montant soumis à TVA n°1", rows[0].child(L"DESIGNATION").text);
  EXPECT_EQ(L"Quote-part montant soumis à TVA n°12", rows[1].child(L"DESIGNATION").text);
}

TEST_F(VatShareRows, NeverUseTheRateStoredInTheRecord) {
  host::set_share(*contract_, 0, 1, 100, 10);
  host::element<Type_CadencierFact>(contract_->TabCadFact, 0).RepartTva.Lignes[1].TauxTva = 20;
  EXPECT_EQ(L"", shares()[0].child(L"CODETVA").attribute(L"RATE"));
}

struct RateCase {
  double rate;
  const wchar_t* attribute;
  const wchar_t* designation;
};

TEST_F(VatShareRows, ShowTheRateAsTextAndWithTwoDecimals) {
  constexpr RateCase kCases[] = {
      {20, L"20", L"20,00%"},
      {5.5, L"5,5", L"5,50%"},
      {2.1, L"2,1", L"2,10%"},
      {19.6, L"19,6", L"19,60%"},
      {100, L"100", L"100,00%"},
      {0, L"0", L"0,00%"},
      {8.125, L"8,125", L"8,13%"},
      {-0.5, L"-0,5", L"-0,50%"},
      {1.25e15, L"1,25E+15", L"1250000000000000,00%"},
  };
  host::set_share(*contract_, 0, 1, 100, 10);
  for (const RateCase& expected : kCases) {
    const auto vat = host::vat_object({{1, expected.rate}});
    const auto rows = shares(host::address_of(vat.get()));
    ASSERT_EQ(1u, rows.size());
    EXPECT_EQ(expected.attribute, rows[0].child(L"CODETVA").attribute(L"RATE"));
    EXPECT_EQ(L"Quote-part montant soumis à TVA " + std::wstring(expected.designation),
              rows[0].child(L"DESIGNATION").text);
  }
}

TEST_F(VatShareRows, HaveNoRateWhenTheVatObjectAnswersMinusOneOrLess) {
  host::set_share(*contract_, 0, 4, 100, 10);
  for (const double rate : {-1.0, -20.0}) {
    const auto vat = host::vat_object({{4, rate}});
    const auto rows = shares(host::address_of(vat.get()));
    EXPECT_EQ(L"", rows.at(0).child(L"CODETVA").attribute(L"RATE")) << rate;
    EXPECT_EQ(L"Quote-part montant soumis à TVA n°4", rows.at(0).child(L"DESIGNATION").text) << rate;
  }
}

TEST_F(VatShareRows, AskTheVatObjectForEachCodeOfAShare) {
  host::set_share(*contract_, 0, 1, 50, 10);
  host::set_share(*contract_, 0, 3, 50, 10);
  const auto vat = host::vat_object({{1, 20}, {3, 10}});
  const auto rows = shares(host::address_of(vat.get()));
  ASSERT_EQ(2u, rows.size());
  EXPECT_EQ(L"20", rows[0].child(L"CODETVA").attribute(L"RATE"));
  EXPECT_EQ(L"10", rows[1].child(L"CODETVA").attribute(L"RATE"));
  EXPECT_EQ((Texts{L"call GetTauxTva(1)", L"call GetTauxTva(1)"}), vat->log);
}

TEST_F(VatShareRows, LeaveTheReferencesOfTheVatObjectAsTheyWere) {
  host::set_share(*contract_, 0, 1, 100, 10);
  const auto vat = host::vat_object({{1, 20}});
  shares(host::address_of(vat.get()));
  EXPECT_EQ(1, vat->references());
}

/// A VAT object that cannot answer: nothing is raised, nothing is left on the thread, no rate is shown.
class FailingVatObject : public VatShareRows {
 protected:
  void expect_no_rate(long vat) {
    host::set_share(*contract_, 0, 6, 100, 10);
    host::take_error();
    const auto rows = shares(vat);
    ASSERT_EQ(1u, rows.size()) << vat;
    EXPECT_EQ(L"", rows[0].child(L"CODETVA").attribute(L"RATE")) << vat;
    EXPECT_EQ(L"Quote-part montant soumis à TVA n°6", rows[0].child(L"DESIGNATION").text) << vat;
    EXPECT_EQ(L"", host::take_error().description) << vat;
  }
};

TEST_F(FailingVatObject, WithoutGetTauxTvaGivesNoRate) {
  const auto vat = host::FakeObject::make();
  expect_no_rate(host::address_of(vat.get()));
  EXPECT_EQ(1, vat->references());
}

TEST_F(FailingVatObject, ThatRaisesGivesNoRate) {
  const auto vat = host::FakeObject::make();
  vat->on_get(L"GetTauxTva", [](const auto&) -> host::Variant {
    throw host::FakeObject::Error{E_FAIL, L"Hôte", L"code inconnu"};
  });
  expect_no_rate(host::address_of(vat.get()));
  EXPECT_EQ(1, vat->references());
}

TEST_F(FailingVatObject, ThatAnswersNullOrNoNumberGivesNoRate) {
  for (const bool null : {true, false}) {
    const auto vat = host::FakeObject::make();
    vat->on_get(L"GetTauxTva",
                [null](const auto&) { return null ? host::null_value() : host::text_value(L"taux"); });
    expect_no_rate(host::address_of(vat.get()));
  }
}

TEST_F(FailingVatObject, ThatIsNothingGivesNoRate) { expect_no_rate(0); }

TEST_F(FailingVatObject, AtAnAddressBelowMinusOneGivesNoRate) { expect_no_rate(-2); }

TEST_F(FailingVatObject, AtAnAddressOfTheFirstPageGivesNoRate) {
  expect_no_rate(1);
  expect_no_rate(0x10);
}

TEST_F(FailingVatObject, AtAnUnmappedAddressGivesNoRate) {
  void* reserved = VirtualAlloc(nullptr, 0x10000, MEM_RESERVE, PAGE_NOACCESS);
  ASSERT_NE(nullptr, reserved);
  expect_no_rate(static_cast<long>(reinterpret_cast<std::intptr_t>(reserved)));
  VirtualFree(reserved, 0, MEM_RELEASE);
}

TEST_F(FailingVatObject, AtReadableMemoryThatIsNoObjectGivesNoRate) {
  // Zeroes, and pointers to readable memory that is no code.
  alignas(8) static const void* zeroes[16] = {};
  alignas(8) static const void* pointers[16];
  for (const void*& pointer : pointers) pointer = pointers;
  expect_no_rate(static_cast<long>(reinterpret_cast<std::intptr_t>(zeroes)));
  expect_no_rate(static_cast<long>(reinterpret_cast<std::intptr_t>(pointers)));
}

}  // namespace

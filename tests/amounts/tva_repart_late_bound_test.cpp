// TvaRepart's methods, called by name with records and variables by reference.
#include "amounts/vat_table.h"
#include "support/arguments.h"

namespace {

using namespace host;

struct LateBound {
  ComPtr<IDispatch> object = create_dispatch(L"TvaRepart");
  ComPtr<IRecordInfo> info = record_info<Type_RepartTVA>();
  VatTable table = VatTable::standard();
};

/// A record that a late-bound call returned, taken out of its VARIANT.
Record<Type_RepartTVA> take_record(Variant& result) {
  Record<Type_RepartTVA> record;
  EXPECT_EQ(VT_RECORD, result.get().vt);
  if (result.get().vt == VT_RECORD) std::swap(*record, *static_cast<Type_RepartTVA*>(result.get().pvRecord));
  return record;
}

TEST(TvaRepart, WriteRepartTVA_LateBoundGivesTextAndCode) {
  LateBound host;
  Record<Type_RepartTVA> record;
  set_line(*record, 1, 40);
  set_line(*record, 3, 60);
  short code = 0;
  Variant result;
  ASSERT_EQ(S_OK,
            call(host.object.get(), L"WriteRepartTVA",
                 arguments(record_argument(*record, host.info.get()), by_reference(code)), result.receive()));
  EXPECT_EQ(L"1@40@3@60@", velmosav::view(result.get().bstrVal));
  EXPECT_EQ(99, code);
}

TEST(TvaRepart, WriteRepartTVA_LateBoundScriptVariableReceivesTheCode) {
  LateBound host;
  Record<Type_RepartTVA> record;
  set_line(*record, 7, 100);
  Variant code(0L);
  Variant result;
  ASSERT_EQ(S_OK, call(host.object.get(), L"WriteRepartTVA",
                       arguments(record_argument(*record, host.info.get()), by_reference(code.get())),
                       result.receive()));
  EXPECT_EQ(7, velmosav::to_long(code.get()));
}

TEST(TvaRepart, WriteRepartTVA_LateBoundCodeMayBeLeftOut) {
  LateBound host;
  Record<Type_RepartTVA> record;
  set_line(*record, 7, 100);
  Variant result;
  ASSERT_EQ(S_OK, call(host.object.get(), L"WriteRepartTVA",
                       arguments(record_argument(*record, host.info.get())), result.receive()));
  EXPECT_EQ(L"7@100@", velmosav::view(result.get().bstrVal));
}

TEST(TvaRepart, GetStrRepartByCodeTVA_LateBoundTakesANumber) {
  Variant result;
  ASSERT_EQ(S_OK, call(create_dispatch(L"TvaRepart").get(), L"GetStrRepartByCodeTVA", arguments(Variant(7L)),
                       result.receive()));
  EXPECT_EQ(L"7@100.00@", velmosav::view(result.get().bstrVal));
}

TEST(TvaRepart, ReadRepartTVA_LateBoundWithEveryArgument) {
  LateBound host;
  short code = 1;
  Variant result;
  ASSERT_EQ(S_OK, call(host.object.get(), L"ReadRepartTVA",
                       arguments(object_value(&host.table.table()), by_reference(code),
                                 text_value(L"1@40@5@60@"), Variant(100.0), text_value(L"T"), Variant(1L)),
                       result.receive()));
  EXPECT_EQ(99, code);
  auto expected = standard_rates();
  set_line(*expected, 1, 40, 40, 40 - 33.3);
  set_line(*expected, 5, 60, 60, 60 - 50.2);
  expect_same(*expected, *take_record(result));
}

TEST(TvaRepart, ReadRepartTVA_LateBoundLeftOutArgumentsHaveTheirDefaults) {
  LateBound host;
  short code = 4;
  Variant result;
  ASSERT_EQ(S_OK, call(host.object.get(), L"ReadRepartTVA",
                       arguments(object_value(&host.table.table()), by_reference(code)), result.receive()));
  EXPECT_EQ(4, code);
  auto expected = standard_rates();
  set_line(*expected, 4, 100);
  expect_same(*expected, *take_record(result));
}

TEST(TvaRepart, ReadRepartTVA_LateBoundSkippedArgumentsHaveTheirDefaults) {
  LateBound host;
  short code = 1;
  Variant result;
  ASSERT_EQ(S_OK, call(host.object.get(), L"ReadRepartTVA",
                       arguments(object_value(&host.table.table()), by_reference(code), missing(),
                                 Variant(12.345), missing(), missing()),
                       result.receive()));
  auto expected = standard_rates();
  const double base = 12.35 + (12.345 - 12.35);
  set_line(*expected, 1, 100, base, 14.81 - base);
  expect_same(*expected, *take_record(result));
}

TEST(TvaRepart, ReadRepartTVA_LateBoundFaultCarriesTheNumberAndTheSource) {
  LateBound host;
  short code = 1;
  Variant result;
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION,
            call(host.object.get(), L"ReadRepartTVA",
                 arguments(object_value(&host.table.table()), by_reference(code), text_value(L"100@100@")),
                 result.receive(), &exception));
  const Bstr source = Bstr::attach(exception.bstrSource);
  const Bstr description = Bstr::attach(exception.bstrDescription);
  EXPECT_EQ(static_cast<SCODE>(0x800A0009), exception.scode);
  EXPECT_EQ(L"VelmoSAV_DLL14.TvaRepart", source.view());
  EXPECT_EQ(L"Indice hors limites", description.view());
}

TEST(TvaRepart, GetAmountByRepartTVA_LateBoundUpdatesTheRecordInPlace) {
  LateBound host;
  auto record = standard_rates();
  set_line(*record, 1, 50);
  set_line(*record, 3, 50);
  Variant result;
  ASSERT_EQ(S_OK, call(host.object.get(), L"GetAmountByRepartTVA",
                       arguments(object_value(&host.table.table()), record_argument(*record, host.info.get()),
                                 Variant(100.0)),
                       result.receive()));
  EXPECT_EQ(112.75, result.get().dblVal);
  auto expected = standard_rates();
  set_line(*expected, 1, 50, 50, 10);
  set_line(*expected, 3, 50, 50, 2.75);
  expect_same(*expected, *record);
}

TEST(TvaRepart, GetAmountByRepartTVA_LateBoundKindAndDecimals) {
  LateBound host;
  auto record = standard_rates();
  set_line(*record, 5, 100);
  Variant result;
  ASSERT_EQ(S_OK, call(host.object.get(), L"GetAmountByRepartTVA",
                       arguments(object_value(&host.table.table()), record_argument(*record, host.info.get()),
                                 Variant(100.0), text_value(L"T"), Variant(0L)),
                       result.receive()));
  EXPECT_EQ(84, result.get().dblVal);
  EXPECT_EQ(16, record->Lignes[5].MontantTVA);
}

}  // namespace

// Outil.GestionColQte: the set-up of a quantity column, once.
#include "controls/scripted_control.h"
#include "support/arguments.h"

namespace {

using host::is_fault;
using host::is_refusal;
using host::Log;
using host::Text;
using host::Variant;

class GestionColQte : public ::testing::Test {
 protected:
  GestionColQte() {
    add_property(column_, L"Format", host::text_value(L"T;20"));
    add_property(column_, L"Param", host::text_value(L"ancien"));
    add_property(column_, L"TypeSaisie", Variant(short{0}));
    add_property(column_, L"FormatAff", host::text_value(L"0"));
  }

  HRESULT set_up(BYTE decimals, std::wstring_view bounds, bool plain = false) {
    IDispatch* column = column_.get();
    return tools_->GestionColQte(&column, Text(L"M"), decimals, Text(bounds), Text(L"#,0.0"),
                                 plain ? VARIANT_TRUE : VARIANT_FALSE);
  }

  /// What a set-up does to a column that has another format.
  static Log uses(const std::wstring& format, const std::wstring& display) {
    return {L"get Format", L"put Param BSTR \"\"", L"put TypeSaisie I2 1",
            L"put Format BSTR \"" + format + L"\"", L"put FormatAff BSTR \"" + display + L"\""};
  }

  const host::ComPtr<_Outil> tools_ = host::create<_Outil>(L"Outil");
  const host::ComPtr<host::FakeObject> column_ = host::FakeObject::make();
};

TEST_F(GestionColQte, TwoDecimals_SetsParamTypeFormatAndDisplayInThatOrder) {
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  EXPECT_EQ(uses(L"N;7.2;>0;B", L"#,0.00;;#"), column_->log);
}

TEST_F(GestionColQte, NoDecimals_DisplaysWholeNumbers) {
  ASSERT_EQ(S_OK, set_up(0, L">0;"));
  EXPECT_EQ(uses(L"N;7.0;>0;B", L"#,0;;#"), column_->log);
}

TEST_F(GestionColQte, WritesAsManyZerosAsDecimals) {
  ASSERT_EQ(S_OK, set_up(1, L""));
  EXPECT_EQ(uses(L"N;7.1;B", L"#,0.0;;#"), column_->log);
  column_->log.clear();
  ASSERT_EQ(S_OK, set_up(12, L"<100;"));
  EXPECT_EQ(uses(L"N;7.12;<100;B", L"#,0.000000000000;;#"), column_->log);
  column_->log.clear();
  ASSERT_EQ(S_OK, set_up(255, L""));
  EXPECT_EQ(uses(L"N;7.255;B", L"#,0." + std::wstring(255, L'0') + L";;#"), column_->log);
}

TEST_F(GestionColQte, EmptyDisplayWhenAsked) {
  ASSERT_EQ(S_OK, set_up(2, L">0;", true));
  EXPECT_EQ(uses(L"N;7.2;>0;B", L""), column_->log);
  column_->log.clear();
  ASSERT_EQ(S_OK, set_up(0, L">0;", true));
  EXPECT_EQ(uses(L"N;7.0;>0;B", L""), column_->log);
}

TEST_F(GestionColQte, CalledTwiceWithTheSameArguments_ChangesTheColumnOnlyTheFirstTime) {
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  column_->log.clear();
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  EXPECT_EQ(Log{L"get Format"}, column_->log);
}

TEST_F(GestionColQte, TheFormatAloneDecides_ADifferentDisplayChangesNothing) {
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  column_->log.clear();
  ASSERT_EQ(S_OK, set_up(2, L">0;", true));
  EXPECT_EQ(Log{L"get Format"}, column_->log);
}

TEST_F(GestionColQte, OtherDecimalsOrBounds_ChangeTheColumnAgain) {
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  column_->log.clear();
  ASSERT_EQ(S_OK, set_up(3, L">0;"));
  EXPECT_EQ(uses(L"N;7.3;>0;B", L"#,0.000;;#"), column_->log);
  column_->log.clear();
  ASSERT_EQ(S_OK, set_up(3, L""));
  EXPECT_EQ(uses(L"N;7.3;B", L"#,0.000;;#"), column_->log);
}

TEST_F(GestionColQte, AFormatInAnotherLetterCaseIsAnother) {
  add_property(column_, L"Format", host::text_value(L"n;7.2;>0;b"));
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  EXPECT_EQ(uses(L"N;7.2;>0;B", L"#,0.00;;#"), column_->log);
}

TEST_F(GestionColQte, AColumnWithoutFormatIsSetUp) {
  add_property(column_, L"Format", Variant());
  ASSERT_EQ(S_OK, set_up(0, L""));
  EXPECT_EQ(uses(L"N;7.0;B", L"#,0;;#"), column_->log);
}

TEST_F(GestionColQte, TypeAndLabourDisplayAreNotUsed) {
  IDispatch* column = column_.get();
  ASSERT_EQ(S_OK, tools_->GestionColQte(&column, nullptr, 2, Text(L">0;"), nullptr, VARIANT_FALSE));
  EXPECT_EQ(uses(L"N;7.2;>0;B", L"#,0.00;;#"), column_->log);
}

TEST_F(GestionColQte, TheTypeIsTheLibrarysOwn_WhateverAHostAssignsToItsConstants) {
  const auto constants = host::create<_ModuleScroll>(L"ModuleScroll");
  ASSERT_EQ(S_OK, constants->put_T_NUM(6));
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  EXPECT_EQ(L"put TypeSaisie I2 1", column_->log.at(2));
}

TEST_F(GestionColQte, TheFormatIsOneThatTheLibraryChecksNumbersAgainst) {
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  Variant format;
  ASSERT_EQ(S_OK, host::get_property(column_.get(), L"Format", format.receive()));
  VARIANT_BOOL right = VARIANT_FALSE;
  ASSERT_EQ(S_OK, tools_->CheckFmtSaisNum(format.get().bstrVal, 12.25, &right));
  EXPECT_EQ(VARIANT_TRUE, right);
  ASSERT_EQ(S_OK, tools_->CheckFmtSaisNum(format.get().bstrVal, -1, &right));
  EXPECT_EQ(VARIANT_FALSE, right);
}

/// A property whose put fails, and the count of uses up to it.
using FailingPut = std::pair<const wchar_t*, std::size_t>;

class GestionColQteFailure : public GestionColQte, public ::testing::WithParamInterface<FailingPut> {};

TEST_P(GestionColQteFailure, AFailingPropertyStopsThereWithItsError) {
  const auto& [name, count] = GetParam();
  refuse_put(column_, name);
  EXPECT_TRUE(is_refusal(set_up(2, L">0;")));
  ASSERT_EQ(count, column_->log.size());
  EXPECT_EQ(std::wstring(L"put ") + name, column_->log.back());
}

INSTANTIATE_TEST_SUITE_P(Properties, GestionColQteFailure,
                         ::testing::Values(FailingPut{L"Param", 2}, FailingPut{L"TypeSaisie", 3},
                                           FailingPut{L"Format", 4}, FailingPut{L"FormatAff", 5}),
                         [](const auto& property) { return host::utf8(property.param.first); });

TEST_F(GestionColQte, AFormatThatCannotBeReadChangesNothing) {
  refuse_get(column_, L"Format");
  EXPECT_TRUE(is_refusal(set_up(2, L">0;")));
  EXPECT_EQ(Log{L"get Format"}, column_->log);
}

TEST_F(GestionColQte, AColumnWhoseFormatIsNullIsSetUp) {
  add_property(column_, L"Format", host::null_value());
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  EXPECT_EQ(uses(L"N;7.2;>0;B", L"#,0.00;;#"), column_->log);
}

TEST_F(GestionColQte, NoColumnFails) {
  IDispatch* none = nullptr;
  EXPECT_TRUE(is_fault(tools_->GestionColQte(&none, Text(L""), 2, Text(L""), Text(L""), VARIANT_FALSE), 91,
                       L"Outil"));
  EXPECT_EQ(E_POINTER, tools_->GestionColQte(nullptr, Text(L""), 2, Text(L""), Text(L""), VARIANT_FALSE));
}

TEST_F(GestionColQte, AnObjectThatIsNoColumnFails) {
  const auto other = host::FakeObject::make();
  IDispatch* column = other.get();
  EXPECT_TRUE(is_fault(tools_->GestionColQte(&column, Text(L""), 2, Text(L""), Text(L""), VARIANT_FALSE), 438,
                       L"Outil"));
}

TEST_F(GestionColQte, KeepsNoReference) {
  ASSERT_EQ(S_OK, set_up(2, L">0;"));
  EXPECT_EQ(1, column_->references());
}

TEST_F(GestionColQte, AnswersALateBoundCall) {
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"GestionColQte",
                             host::arguments(host::object_value(column_.get()), host::text_value(L"M"),
                                             Variant(short{2}), host::text_value(L">0;"),
                                             host::text_value(L""), Variant(true)),
                             nullptr));
  EXPECT_EQ(uses(L"N;7.2;>0;B", L""), column_->log);
}

TEST_F(GestionColQte, AnswersALateBoundCallWithoutTheOptionalArgument) {
  Variant column = host::object_value(column_.get());
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"GestionColQte",
                             host::arguments(host::by_reference(column.get()), host::text_value(L"M"),
                                             Variant(0L), host::text_value(L">0;"), host::text_value(L"")),
                             nullptr));
  EXPECT_EQ(uses(L"N;7.0;>0;B", L"#,0;;#"), column_->log);
}

}  // namespace

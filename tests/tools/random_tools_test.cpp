// Random code lists and durations: the library through COM against the literal transcriptions.
#include <cmath>

#include "support/chance.h"
#include "tools/literal_durations.h"
#include "tools/tools_fixture.h"

namespace {

using host::Chance;
using host::Text;
using host::Variant;

class RandomTools : public host::ToolsTest {
 protected:
  void compare_code_lists();
  void compare_extraction_from_a_long_list();
  void compare_number_to_text();
  void compare_text_to_number();

  std::wstring random_code() { return chance_.text({L"A", L"B", L"a", L"\"", L" ", L",", L"é"}, 4); }
  std::wstring random_list() {
    if (chance_.one_in(4)) return chance_.text({L"\"", L"\"", L",", L" ", L"A", L";", L"\"A\"", L", "}, 8);
    std::wstring list;
    for (int i = chance_.number(0, 6); i > 0; --i) literal::append_code(list, random_code());
    if (chance_.one_in(6)) list += chance_.of<std::wstring>({L", ", L",", L" ", L"x"});
    return list;
  }

  Chance chance_;
};

void RandomTools::compare_code_lists() {
  const std::wstring list = random_list();
  const std::wstring code = random_code();
  SCOPED_TRACE("list " + host::utf8(list) + " code " + host::utf8(code));

  Text quoted;
  ASSERT_EQ(S_OK, tools_->SetStringForSQL(Text(code), &quoted));
  ASSERT_EQ(literal::string_for_sql(code), quoted.str());

  std::wstring expected = list;
  Text actual(list);
  literal::append_code(expected, code);
  ASSERT_EQ(S_OK, tools_->ListeCodes_ConcateneCode(actual.in_out(), Text(code)));
  ASSERT_EQ(expected, actual.str());

  expected = list;
  actual = Text(list);
  Text taken;
  const std::wstring expected_code = literal::next_code(expected);
  ASSERT_EQ(S_OK, tools_->ListeCodes_GetNextCode_Token(actual.in_out(), &taken));
  ASSERT_EQ(expected_code, taken.str());
  ASSERT_EQ(expected, actual.str());

  expected = list;
  actual = Text(list);
  literal::extract_code(expected, code);
  ASSERT_EQ(S_OK, tools_->ListeCodes_ExtractionCode(actual.in_out(), Text(code)));
  ASSERT_EQ(expected, actual.str());

  short expected_count = 0;
  short count = 77;
  const HRESULT outcome = literal::outcome_of([&] { expected_count = literal::count_codes(list); });
  ASSERT_EQ(outcome, tools_->ListeCodes_NbCodes(Text(list), &count));
  ASSERT_EQ(expected_count, count);
}

TEST_F(RandomTools, CodeListsAgreeWithTheLiteralSteps) {
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) compare_code_lists();
  EXPECT_FALSE(HasFatalFailure()) << "seed " << chance_.seed();
}

TEST_F(RandomTools, ExtractionsFromLongListsAgreeWithTheLiteralSteps) {
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) compare_extraction_from_a_long_list();
  EXPECT_FALSE(HasFatalFailure()) << "seed " << chance_.seed();
}

const std::vector<std::wstring> kUnits = {L"s", L"n", L"h", L"j", L"w", L"m",  L"y",
                                          L"S", L"H", L"J", L"x", L"",  L" h", L"hh"};

void RandomTools::compare_extraction_from_a_long_list() {
  std::wstring list;
  for (int i = chance_.number(0, 60); i > 0; --i) {
    list += L"\"" + chance_.text({L"A", L"B", L"A1", L"1"}, 6) + L"\"";
    list += chance_.of<std::wstring>({L", ", L", ", L", ", L",", L"", L" "});
  }
  const std::wstring code = chance_.text({L"A", L"B", L"A1", L"1"}, 6);
  SCOPED_TRACE("list " + host::utf8(list) + " code " + host::utf8(code));
  std::wstring expected = list;
  literal::extract_code(expected, code);
  Text changed(list);
  ASSERT_EQ(S_OK, tools_->ListeCodes_ExtractionCode(changed.in_out(), Text(code)));
  ASSERT_EQ(expected, changed.str());
}

void RandomTools::compare_number_to_text() {
  const double sign = chance_.one_in(8) ? -1 : 1;
  const double number = sign * (chance_.one_in(3)   ? chance_.number(0, 400) / 2.0
                                : chance_.one_in(2) ? chance_.number(0, 2147483647) / 8.0
                                                    : std::exp(chance_.real(-3, 30)));
  const std::wstring unit = chance_.of(kUnits);
  std::vector<literal::Cell> cells;
  std::vector<Variant> variants;
  std::string shown;
  for (int i = chance_.number(0, chance_.one_in(10) ? 8 : 6); i > 0; --i) {
    if (chance_.one_in(10)) {
      cells.emplace_back(std::nullopt);
      variants.push_back(host::null_value());
    } else {
      cells.emplace_back(chance_.of(kUnits));
      variants.push_back(host::text_value(*cells.back()));
    }
    shown += " " + (cells.back() ? host::utf8(*cells.back()) : "Null");
  }
  SAFEARRAY* fields = host::variant_array(std::move(variants));
  double argument = number;
  Text unit_text(unit), result;
  EXPECT_EQ(S_OK, tools_->DoubleToDuree(&argument, unit_text.in_out(), &fields, &result));
  SafeArrayDestroy(fields);
  ASSERT_EQ(literal::double_to_duree(number, unit, cells), result.str())
      << number << " " << host::utf8(unit) << " as" << shown;
}

TEST_F(RandomTools, TextsOfDurationsAgreeWithTheLiteralSteps) {
  for (int i = 0; i < 30000 && !HasFatalFailure(); ++i) compare_number_to_text();
  EXPECT_FALSE(HasFatalFailure()) << "seed " << chance_.seed();
}

void RandomTools::compare_text_to_number() {
  std::wstring text;
  for (int i = chance_.number(0, 7); i > 0; --i) {
    switch (chance_.number(0, 5)) {
      case 0:
        text += std::to_wstring(chance_.number(-2147483647, 2147483647));
        break;
      case 1:
        text += std::to_wstring(chance_.number(0, 700000));
        break;
      case 2:
        text += chance_.text({L"0", L"1", L"5", L".", L"-", L" ", L"h", L","}, 5);
        break;
      case 3:
        text += chance_.of<std::wstring>({L"2147483648", L"2147483647.5", L"99999999999", L"35791394"});
        break;
      default:
        text += std::to_wstring(chance_.number(0, 99));
    }
    if (i > 1 || chance_.one_in(4)) text += L":";
  }
  const std::wstring unit = chance_.of(kUnits);
  const bool long_form = chance_.one_in(3);
  double expected = 0;
  const HRESULT outcome =
      literal::outcome_of([&] { expected = literal::duree_to_double(text, unit, long_form); });
  Text argument(text), unit_text(unit);
  VARIANT_BOOL flag = velmosav::to_variant_bool(long_form);
  double result = 77;
  ASSERT_EQ(outcome, tools_->DureeToDouble(argument.in_out(), unit_text.in_out(), &flag, &result))
      << host::utf8(text);
  ASSERT_EQ(expected, result) << host::utf8(text) << " in " << host::utf8(unit) << " long " << long_form;
}

TEST_F(RandomTools, NumbersOfDurationsAgreeWithTheLiteralSteps) {
  for (int i = 0; i < 30000 && !HasFatalFailure(); ++i) compare_text_to_number();
  EXPECT_FALSE(HasFatalFailure()) << "seed " << chance_.seed();
}

}  // namespace

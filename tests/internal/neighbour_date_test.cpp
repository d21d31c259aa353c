// The short roads of neighbouring and written dates against the long ones, which read and write step by step.
// The seed is printed; VELMOSAV_TEST_SEED repeats a run.
#include <gtest/gtest.h>

#include <string>

#include "automation/date_text.h"
#include "automation/fault.h"
#include "support/chance.h"
#include "support/host.h"

namespace {

using host::utf8;

const std::vector<std::wstring> kPatterns{L"dd/mm/yy", L"dd/mm/yyyy", L"d mmm yyyy"};

template <class Function>
std::string outcome(Function&& function) {
  try {
    return utf8(function().view());
  } catch (const velmosav::Failure& failure) {
    return "fault " + std::to_string(failure.code & 0xFFFF);
  }
}

void expect_same_neighbours(const std::wstring& text) {
  for (const std::wstring& pattern : kPatterns) {
    for (const int step : {-1, 1}) {
      const std::string expected = outcome([&] {
        return velmosav::format_date(velmosav::add_to_date(velmosav::to_date(text), L"d", step), pattern);
      });
      const std::string actual = outcome([&] { return velmosav::neighbour_date_text(text, step, pattern); });
      ASSERT_EQ(expected, actual) << utf8(text) << " " << step << " " << utf8(pattern);
    }
  }
}

TEST(NeighbourDate, IsThatOfTheLongRoadForEveryDayOfTwoCenturies) {
  for (DATE date = 2; date < 73050; ++date) {
    expect_same_neighbours(std::wstring(velmosav::format_date(date, L"dd/mm/yyyy").view()));
  }
}

TEST(NeighbourDate, IsThatOfTheLongRoadForTextsThatMayBeNoDate) {
  host::Chance chance;
  const std::vector<std::wstring> separators{L"/", L"/", L"/", L"/", L"-", L".", L" "};
  for (int i = 0; i < 20000; ++i) {
    const std::wstring separator = chance.of(separators);
    std::wstring text =
        std::to_wstring(chance.number(0, 35)) + separator + std::to_wstring(chance.number(0, 14)) + separator;
    const int digits = chance.number(0, 3);
    text += std::to_wstring(digits == 0   ? chance.number(0, 99)
                            : digits == 1 ? chance.number(90, 1010)
                                          : chance.number(1890, 2110));
    if (chance.one_in(10)) text += L" 12:30";
    expect_same_neighbours(text);
  }
}

TEST(WrittenDate, IsWhatTheTextIsReadBackAs) {
  host::Chance chance;
  for (int i = 0; i < 20000; ++i) {
    const double part = chance.one_in(3) ? chance.real(0, 0.99) : 0;
    const DATE date = chance.number(-500000, 1000000) + part;
    for (const wchar_t* pattern : {L"dd/mm/yy", L"dd/mm/yyyy"}) {
      const velmosav::Bstr text = velmosav::format_date(date, pattern);
      const auto read = velmosav::parse_date(text.view());
      if (!read) continue;
      const velmosav::WrittenDate written = velmosav::write_date(date, pattern);
      ASSERT_EQ(utf8(text.view()), utf8(written.text.view())) << date;
      ASSERT_EQ(*read, written.date) << utf8(text.view());
    }
  }
}

}  // namespace

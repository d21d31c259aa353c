// The fast roads of date_text against the platform's own: every day of two centuries, odd texts.
// DateText holds for every user, FrenchDateText where the day comes first. The seed is printed;
// VELMOSAV_TEST_SEED repeats a run.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "automation/date_text.h"
#include "support/host.h"
#include "support/chance.h"

namespace {

using host::utf8;

constexpr DATE kFirstDay = 2;     // 01/01/1900
constexpr DATE kLastDay = 73050;  // 31/12/2099

/// The platform's reading: "no date", or the date.
std::string platform_reading(std::wstring text) {
  DATE date = 0;
  if (FAILED(VarDateFromStr(text.data(), LOCALE_USER_DEFAULT, 0, &date))) return "no date";
  return std::to_string(date);
}

std::string reading(const std::wstring& text) {
  const auto date = velmosav::parse_date(text);
  return date ? std::to_string(*date) : "no date";
}

std::wstring platform_format(VARTYPE type, DATE date, BSTR text, std::wstring pattern) {
  VARIANT value;
  value.vt = type;
  if (type == VT_DATE) value.date = date;
  if (type == VT_BSTR) value.bstrVal = text;
  velmosav::Bstr result;
  EXPECT_EQ(S_OK, VarFormat(&value, pattern.data(), 0, 0, 0, result.receive())) << date;
  return std::wstring(result.view());
}

std::wstring platform_format(DATE date, const std::wstring& pattern) {
  return platform_format(VT_DATE, date, nullptr, pattern);
}

SYSTEMTIME parts_of(DATE date) {
  SYSTEMTIME parts{};
  EXPECT_TRUE(VariantTimeToSystemTime(date, &parts)) << date;
  return parts;
}

std::wstring padded(int number) {
  return {static_cast<wchar_t>(L'0' + number / 10 % 10), static_cast<wchar_t>(L'0' + number % 10)};
}

/// How a day is written in each form that hosts use.
std::vector<std::wstring> forms(DATE date) {
  const SYSTEMTIME day = parts_of(date);
  const std::wstring long_year = std::to_wstring(day.wYear);
  const std::wstring full = padded(day.wDay) + L"/" + padded(day.wMonth) + L"/";
  const std::wstring bare = std::to_wstring(day.wDay) + L"/" + std::to_wstring(day.wMonth) + L"/";
  return {full + long_year,
          full + padded(day.wYear),
          bare + long_year,
          bare + padded(day.wYear),
          full + long_year + L" 08:15",
          padded(day.wDay) + L"/" + std::to_wstring(day.wMonth) + L"/" + padded(day.wYear) + L" 23:59:59"};
}

TEST(DateText, ParseDate_EveryDayOfTwoCenturiesInEveryFormAsThePlatformReadsIt) {
  for (DATE date = kFirstDay; date <= kLastDay; ++date) {
    for (const std::wstring& text : forms(date)) {
      ASSERT_EQ(platform_reading(text), reading(text)) << utf8(text);
    }
  }
}

TEST(FrenchDateText, ParseDate_FourDigitYearIsTheDayItself) {
  for (DATE date = kFirstDay; date <= kLastDay; ++date) {
    const auto read = velmosav::parse_date(forms(date).front());
    ASSERT_TRUE(read.has_value());
    ASSERT_EQ(date, *read);
  }
}

TEST(DateText, FormatDate_EveryDayOfTwoCenturiesAsThePlatformWritesIt) {
  const std::wstring patterns[] = {L"dd/mm/yy", L"dd/mm/yyyy", L"dd/mm/yyyy hh:nn"};
  for (DATE date = kFirstDay; date <= kLastDay; ++date) {
    for (const std::wstring& pattern : patterns) {
      ASSERT_EQ(utf8(platform_format(date, pattern)), utf8(velmosav::format_date(date, pattern).view()))
          << date;
    }
  }
}

TEST(DateText, FormatDate_TimeOfDayDoesNotChangeTheDay) {
  for (const DATE date : {45000.0, 45000.25, 45000.5, 45000.99999, 2.75, -1.5, -0.25, -400.75}) {
    for (const std::wstring pattern : {L"dd/mm/yy", L"dd/mm/yyyy", L"dd/mm/yyyy hh:nn"}) {
      EXPECT_EQ(utf8(platform_format(date, pattern)), utf8(velmosav::format_date(date, pattern).view()))
          << date;
    }
  }
}

TEST(DateText, FormatDate_FirstAndLastYearsOfTheCalendar) {
  // 01/01/0100, 31/12/0999, 01/01/1000, 31/12/9999
  for (const DATE date : {-657434.0, -328717.0, -328716.0, 2958465.0}) {
    for (const std::wstring pattern : {L"dd/mm/yy", L"dd/mm/yyyy"}) {
      EXPECT_EQ(utf8(platform_format(date, pattern)), utf8(velmosav::format_date(date, pattern).view()))
          << date;
    }
  }
}

const std::vector<std::wstring>& odd_texts() {
  static const std::vector<std::wstring> texts = {L"",
                                                  L" ",
                                                  L"/",
                                                  L"//",
                                                  L"31/02/2025",
                                                  L"29/02/2023",
                                                  L"29/02/2100",
                                                  L"29/02/2000",
                                                  L"29/02/1900",
                                                  L"31/04/2025",
                                                  L"13/13/2025",
                                                  L"00/01/2025",
                                                  L"01/00/2025",
                                                  L"1/3",
                                                  L"12/25",
                                                  L"25/12",
                                                  L"3/2025",
                                                  L"2025",
                                                  L"25",
                                                  L"01/13/2024",
                                                  L"12/31/2024",
                                                  L"2024/12/31",
                                                  L"2024-12-31",
                                                  L"31-12-2024",
                                                  L"31.12.2024",
                                                  L"31 12 2024",
                                                  L"31/12-2024",
                                                  L"1 janvier 2025",
                                                  L"3 mars 25",
                                                  L"15 août 2025",
                                                  L"1 janv 2025",
                                                  L"January 5, 2025",
                                                  L"5 March 2025",
                                                  L"lundi 5 mai 2025",
                                                  L"05/05/2025 ",
                                                  L" 05/05/2025",
                                                  L"05 /05/2025",
                                                  L"05/05/2025 08:15",
                                                  L"05/05/2025 08:15:30",
                                                  L"05/05/2025 25:00",
                                                  L"08:15",
                                                  L"08:15 05/05/2025",
                                                  L"5/5/5",
                                                  L"5/5/05",
                                                  L"5/5/005",
                                                  L"5/5/0005",
                                                  L"5/5/0099",
                                                  L"5/5/0100",
                                                  L"5/5/999",
                                                  L"5/5/1000",
                                                  L"5/5/9999",
                                                  L"5/5/10000",
                                                  L"5/5/20255",
                                                  L"005/05/2025",
                                                  L"05/005/2025",
                                                  L"1/1/00",
                                                  L"1/1/29",
                                                  L"1/1/30",
                                                  L"1/1/49",
                                                  L"1/1/50",
                                                  L"1/1/99",
                                                  L"-5/5/2025",
                                                  L"5/-5/2025",
                                                  L"5/5/-25",
                                                  L"+5/5/2025",
                                                  L"5/5/2025x",
                                                  L"x5/5/2025",
                                                  L"5,5/5/2025",
                                                  L"45000",
                                                  L"45000,5",
                                                  L"1e3",
                                                  L"0",
                                                  L"-1",
                                                  L"abc",
                                                  L"٠٥/05/2025",
                                                  L"05/05/２０２５",
                                                  L"05/05/2025 8h15",
                                                  L"5/5/2025\t",
                                                  L"5\u00A0/5/2025"};
  return texts;
}

TEST(DateText, ParseDate_AmbiguousTextFollowsTheUsersOrder) {
  const std::wstring text = L"01/02/2026";
  const auto date = velmosav::parse_date(text);
  ASSERT_TRUE(date.has_value());
  EXPECT_EQ(platform_reading(text), std::to_string(*date));
  const SYSTEMTIME day = parts_of(*date);
  RecordProperty("reading",
                 utf8(std::to_wstring(day.wYear) + L"-" + padded(day.wMonth) + L"-" + padded(day.wDay)));
}

TEST(DateText, ParseDate_DaysBehindTheirMonthsEndAsThePlatformReadsThem) {
  for (int year = 1896; year <= 2104; ++year) {
    for (int month = 1; month <= 13; ++month) {
      for (int day = 28; day <= 33; ++day) {
        const std::wstring text = std::to_wstring(day) + L"/" + padded(month) + L"/" + std::to_wstring(year);
        ASSERT_EQ(platform_reading(text), reading(text)) << utf8(text);
      }
    }
  }
}

TEST(DateText, ParseDate_OddTextsAsThePlatformReadsThem) {
  for (const std::wstring& text : odd_texts()) EXPECT_EQ(platform_reading(text), reading(text)) << utf8(text);
}

TEST(DateText, ParseDate_MutatedTextsAsThePlatformReadsThem) {
  const unsigned seed = host::chosen_seed();
  std::mt19937 engine(seed);
  const auto below = [&](std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(engine);
  };
  constexpr std::wstring_view kCharacters = L"0123456789//  .-:,xMé\t";
  constexpr int kTexts = 60000;
  int dates = 0;
  for (int i = 0; i < kTexts; ++i) {
    const auto written = forms(kFirstDay + static_cast<double>(below(73049)));
    std::wstring text =
        below(8) == 0 ? odd_texts()[below(odd_texts().size())] : written[below(written.size())];
    for (std::size_t count = below(3) + 1; count > 0; --count) {
      const std::size_t place = below(text.size() + 1);
      const wchar_t character = kCharacters[below(kCharacters.size())];
      switch (below(3)) {
        case 0:
          text.insert(place, 1, character);
          break;
        case 1:
          if (place < text.size()) text.erase(place, 1);
          break;
        default:
          if (place < text.size()) text[place] = character;
          break;
      }
    }
    // French knows no marks of morning and afternoon: what the platform makes of them is not settled.
    if (text.find_first_of(L"aApP") != std::wstring::npos) continue;
    const std::string expected = platform_reading(text);
    if (expected != "no date") ++dates;
    ASSERT_EQ(expected, reading(text)) << "seed " << seed << ": \"" << utf8(text) << '"';
  }
  // Both kinds of text were met.
  EXPECT_GT(dates, kTexts / 20);
  EXPECT_LT(dates, kTexts - kTexts / 20);
}

TEST(DateText, FormatDateText_DatesAsThePlatformWritesThem) {
  for (DATE date = kFirstDay; date <= kLastDay; date += 7) {
    for (const std::wstring& text : forms(date)) {
      const velmosav::Bstr owned{text};
      for (const std::wstring pattern : {L"dd/mm/yy", L"dd/mm/yyyy"}) {
        ASSERT_EQ(utf8(platform_format(VT_BSTR, 0, owned.get(), pattern)),
                  utf8(velmosav::format_date_text(text, pattern).view()))
            << utf8(text);
      }
    }
  }
}

TEST(DateText, FormatDateText_TextThatIsNoDateComesBackAsItIs) {
  for (const wchar_t* text : {L"", L" ", L"31/02/2025", L"29/02/2100", L"abc", L"13/13/2025"}) {
    EXPECT_EQ(text, std::wstring(velmosav::format_date_text(text, L"dd/mm/yy").view()));
  }
}

}  // namespace

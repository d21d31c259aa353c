// Failures of Outil's amount operations: fault 11 for a division by zero, fault 6 for what is not finite.
#include <limits>

#include "support/arguments.h"

namespace {

using namespace host;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr int kOverflow = 6;
constexpr int kDivisionByZero = 11;

using Operation = HRESULT (STDMETHODCALLTYPE _Outil::*)(double, double, BYTE, double*);
const Operation kOperations[] = {&_Outil::DLL_GetAmountHTByTTC, &_Outil::DLL_GetAmountTTCByHT,
                                 &_Outil::DLL_GetAmountDiscounted};

void expect_fault(int number, Operation operation, double first, double second) {
  const auto outil = create<_Outil>(L"Outil");
  double result = 7;
  EXPECT_TRUE(is_fault((outil.get()->*operation)(first, second, 2, &result), number, L"Outil"))
      << first << ", " << second;
}

void expect_vat_fault(int number, double rate, double amount, const wchar_t* kind) {
  const auto outil = create<_Outil>(L"Outil");
  double result = 7;
  EXPECT_TRUE(is_fault(outil->DLL_GetAmountTVA(rate, amount, Text(kind), 2, &result), number, L"Outil"))
      << rate << " % of " << amount << ", kind " << utf8(kind);
}

TEST(Outil, DLL_GetAmountHTByTTC_RateOfMinus100IsADivisionByZero) {
  expect_fault(kDivisionByZero, &_Outil::DLL_GetAmountHTByTTC, -100, 120);
}

TEST(Outil, DLL_GetAmountHTByTTC_NothingAtARateOfMinus100IsAnInvalidOperation) {
  expect_fault(kOverflow, &_Outil::DLL_GetAmountHTByTTC, -100, 0);
}

TEST(Outil, DLL_GetAmountDiscounted_RateOf100IsADivisionByZero) {
  expect_fault(kDivisionByZero, &_Outil::DLL_GetAmountDiscounted, 100, 100);
}

TEST(Outil, DLL_GetAmountDiscounted_NothingAtARateOf100IsAnInvalidOperation) {
  expect_fault(kOverflow, &_Outil::DLL_GetAmountDiscounted, 0, 100);
}

TEST(Outil, DLL_GetAmountTTCByHT_RateOfMinus100IsNoFault) {
  double result = -1;
  EXPECT_EQ(S_OK, create<_Outil>(L"Outil")->DLL_GetAmountTTCByHT(-100, 120, 2, &result));
  EXPECT_EQ(0, result);
}

TEST(Outil, DLL_GetAmount_InfiniteOrNotANumberArgumentIsFault6) {
  for (const Operation operation : kOperations) {
    for (const double wrong : {kInfinity, -kInfinity, kNotANumber}) {
      expect_fault(kOverflow, operation, wrong, 20);
      expect_fault(kOverflow, operation, 20, wrong);
    }
  }
}

TEST(Outil, DLL_GetAmount_OverflowIsFault6) {
  expect_fault(kOverflow, &_Outil::DLL_GetAmountTTCByHT, 100, kLargest);
  expect_fault(kOverflow, &_Outil::DLL_GetAmountHTByTTC, -50, kLargest);
  expect_fault(kOverflow, &_Outil::DLL_GetAmountDiscounted, kLargest, 50);
}

TEST(Outil, DLL_GetAmountTVA_FaultsOfTheConversionsReachTheCaller) {
  expect_vat_fault(kDivisionByZero, -100, 120, L"T");
  expect_vat_fault(kOverflow, -100, 0, L"T");
  expect_vat_fault(kOverflow, 20, kInfinity, L"H");
  expect_vat_fault(kOverflow, kNotANumber, 100, L"T");
  expect_vat_fault(kOverflow, 100, kLargest, L"H");
}

TEST(Outil, DLL_GetAmountTVA_UnknownKindLooksAtNoNumber) {
  double result = -1;
  EXPECT_EQ(S_OK, create<_Outil>(L"Outil")->DLL_GetAmountTVA(-100, kNotANumber, Text(L"D"), 2, &result));
  EXPECT_EQ(0, result);
}

TEST(Outil, DLL_GetAmount_NullResultIsEPointer) {
  const auto outil = create<_Outil>(L"Outil");
  for (const Operation operation : kOperations)
    EXPECT_EQ(E_POINTER, (outil.get()->*operation)(20, 10, 2, nullptr));
  EXPECT_EQ(E_POINTER, outil->DLL_GetAmountTVA(20, 10, Text(L"H"), 2, nullptr));
}

TEST(Outil, DLL_GetAmount_LateBoundFaultCarriesTheNumberAndTheSource) {
  EXCEPINFO exception{};
  Variant result;
  EXPECT_EQ(DISP_E_EXCEPTION, call(create_dispatch(L"Outil").get(), L"DLL_GetAmountDiscounted",
                                   arguments(Variant(100.0), Variant(100.0)), result.receive(), &exception));
  const Bstr source = Bstr::attach(exception.bstrSource);
  const Bstr description = Bstr::attach(exception.bstrDescription);
  EXPECT_EQ(static_cast<SCODE>(0x800A000B), exception.scode);
  EXPECT_EQ(L"VelmoSAV_DLL14.Outil", source.view());
  EXPECT_EQ(L"Division par zéro", description.view());
}

TEST(Outil, DLL_GetAmount_LateBoundNumDigitDecOutsideAByteIsRefused) {
  for (const long decimals : {-1L, 256L}) {
    Variant result;
    EXPECT_EQ(DISP_E_OVERFLOW,
              call(create_dispatch(L"Outil").get(), L"DLL_GetAmountTTCByHT",
                   arguments(Variant(0.0), Variant(1.0), Variant(decimals)), result.receive()))
        << decimals;
  }
}

}  // namespace

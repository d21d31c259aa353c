// Arrays in late-bound calls: the ways a grid arrives at a VARIANT, and arrays of a typed parameter.
#include "frame/invocation.h"

namespace {

using host::by_reference;
using host::ComPtr;
using host::Invocation;
using host::Outcome;
using host::text_value;
using host::Variant;

constexpr long kColumns = 14;
constexpr long kSelected = 3, kCustomer = 10;

/// A grid of invoice lines as a script makes it: rows, then columns, of VARIANT.
class Grid {
 public:
  explicit Grid(std::initializer_list<const wchar_t*> customers) {
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(customers.size()), 0}, {kColumns, 0}};
    variable_.get().vt = VT_ARRAY | VT_VARIANT;
    variable_.get().parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    long row = 0;
    for (const wchar_t* customer : customers) {
      put(row, kSelected, host::bool_value(true));
      put(row, kCustomer, text_value(customer));
      ++row;
    }
  }

  VARIANT& variable() { return variable_.get(); }
  SAFEARRAY*& array() { return variable_.get().parray; }

  /// The customers of the rows, in order.
  std::wstring customers() {
    std::wstring result;
    long rows = -1;
    SafeArrayGetUBound(array(), 1, &rows);
    for (long row = 0; row <= rows; ++row) {
      long place[] = {row, kCustomer};
      Variant cell;
      SafeArrayGetElement(array(), place, cell.receive());
      result += host::get(cell.get().bstrVal);
    }
    return result;
  }

 private:
  void put(long row, long column, Variant value) {
    long place[] = {row, column};
    SafeArrayPutElement(array(), place, &value.get());
  }

  Variant variable_;
};

struct Passing {
  const char* name;
  VARIANT (*argument)(Grid& grid);
};

const Passing kPassings[] = {
    {"ArrayByValue", [](Grid& grid) { return grid.variable(); }},
    {"ArrayByReference", [](Grid& grid) { return by_reference(VT_ARRAY | VT_VARIANT, &grid.array()).get(); }},
    {"Variable", [](Grid& grid) { return by_reference(grid.variable()).get(); }},
    {"VariableOfAnArrayByReference",
     [](Grid& grid) {
       static VARIANT inner;
       inner = by_reference(VT_ARRAY | VT_VARIANT, &grid.array()).get();
       return by_reference(inner).get();
     }},
    {"VariableOfAVariable",
     [](Grid& grid) {
       static VARIANT inner;
       inner = by_reference(grid.variable()).get();
       return by_reference(inner).get();
     }},
};

void PrintTo(const Passing& passing, std::ostream* stream) { *stream << passing.name; }

std::string passing_name(const ::testing::TestParamInfo<Passing>& info) { return info.param.name; }

class GridArguments : public ::testing::TestWithParam<Passing> {
 protected:
  ComPtr<IDispatch> generation_ = host::create_dispatch(L"Generation");
};

TEST_P(GridArguments, ToAVariantByReference_IsRead) {
  Grid grid{L"A", L"B", L"A"};
  const VARIANT argument = GetParam().argument(grid);
  const auto same_invoice = [&](long first, long second) {
    const Variant from(first), to(second);
    Outcome outcome =
        Invocation(generation_.get(), L"IsRuptRgrpCadFact").pass(argument).pass(from).pass(to).run();
    EXPECT_EQ(S_OK, outcome.code) << host::utf8(outcome.description);
    EXPECT_EQ(VT_BOOL, outcome.result.get().vt);
    return outcome.result.get().boolVal != VARIANT_FALSE;
  };
  EXPECT_TRUE(same_invoice(0, 2));
  EXPECT_FALSE(same_invoice(0, 1));
}

TEST_P(GridArguments, ToAVariantByValue_IsRead) {
  const auto renewals = host::create_dispatch(L"Reconduction");
  Grid grid{L"A"};
  const VARIANT argument = GetParam().argument(grid);
  const Variant row(0L);
  const Outcome outcome = Invocation(renewals.get(), L"bDiffLigneTab").pass(argument).pass(row).run();
  // The grid has 14 columns, the last amount compared stands in column 21.
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
  EXPECT_EQ(static_cast<HRESULT>(0x800A0009), outcome.scode);
}

INSTANTIATE_TEST_SUITE_P(, GridArguments, ::testing::ValuesIn(kPassings), passing_name);

class ArrayArguments : public ::testing::Test {
 protected:
  ComPtr<IDispatch> generation_ = host::create_dispatch(L"Generation");
  ComPtr<IDispatch> outil_ = host::create_dispatch(L"Outil");
  ComPtr<IDispatch> bon_ = host::create_dispatch(L"Bon");
};

TEST_F(ArrayArguments, GridInAVariable_IsRegroupedInPlace) {
  Grid grid{L"A", L"B", L"A"};
  ASSERT_EQ(
      S_OK,
      Invocation(generation_.get(), L"RegroupementFacture").pass(by_reference(grid.variable())).run().code);
  EXPECT_EQ(L"AAB", grid.customers());
}

TEST_F(ArrayArguments, GridByReference_IsRegroupedInPlace) {
  Grid grid{L"A", L"B", L"A"};
  const Variant argument = by_reference(VT_ARRAY | VT_VARIANT, &grid.array());
  ASSERT_EQ(S_OK, Invocation(generation_.get(), L"RegroupementFacture").pass(argument).run().code);
  EXPECT_EQ(L"AAB", grid.customers());
}

TEST_F(ArrayArguments, NoArrayForAGrid_IsATypeFault) {
  const Outcome outcome =
      Invocation(generation_.get(), L"IsRuptRgrpCadFact").pass(1.0).pass(0.0).pass(1.0).run();
  EXPECT_EQ(DISP_E_EXCEPTION, outcome.code);
  EXPECT_EQ(static_cast<HRESULT>(0x800A000D), outcome.scode);
}

/// Two fields, hours and minutes, for DoubleToDuree.
Variant duration_fields(VARTYPE element) {
  Variant fields;
  SAFEARRAYBOUND bound{2, 0};
  fields.get().vt = static_cast<VARTYPE>(VT_ARRAY | element);
  fields.get().parray = SafeArrayCreate(element, 1, &bound);
  const wchar_t* units[] = {L"h", L"n"};
  for (long i = 0; i < 2; ++i) {
    Variant unit = text_value(units[i]);
    SafeArrayPutElement(fields.get().parray, &i,
                        element == VT_VARIANT ? static_cast<void*>(&unit.get()) : unit.get().bstrVal);
  }
  return fields;
}

Outcome duration_text(IDispatch* outil, const Variant& fields) {
  const Variant hours = text_value(L"h");
  return Invocation(outil, L"DoubleToDuree").pass(1.5).pass(hours).pass(fields).run();
}

TEST_F(ArrayArguments, TypedArray_ByReference_IsRead) {
  Variant fields = duration_fields(VT_VARIANT);
  EXPECT_EQ(L"01:30",
            duration_text(outil_.get(), by_reference(VT_ARRAY | VT_VARIANT, &fields.get().parray)).text());
}

TEST_F(ArrayArguments, TypedArray_InAVariable_IsRead) {
  Variant fields = duration_fields(VT_VARIANT);
  EXPECT_EQ(L"01:30", duration_text(outil_.get(), by_reference(fields)).text());
}

TEST_F(ArrayArguments, TypedArray_ByValue_IsRead) {
  EXPECT_EQ(L"01:30", duration_text(outil_.get(), duration_fields(VT_VARIANT)).text());
}

TEST_F(ArrayArguments, TypedArray_OfAnotherElementType_IsRefusedWithItsPlace) {
  const Outcome outcome = duration_text(outil_.get(), duration_fields(VT_BSTR));
  EXPECT_EQ(DISP_E_TYPEMISMATCH, outcome.code);
  EXPECT_EQ(0u, outcome.bad_argument);
}

TEST_F(ArrayArguments, TypedArray_GivenANumber_IsRefused) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH, duration_text(outil_.get(), Variant(1.0)).code);
}

TEST_F(ArrayArguments, ArrayOfObjects_ByReference_IsEmptied) {
  SAFEARRAYBOUND bound{1, 0};
  SAFEARRAY* devices = SafeArrayCreate(VT_DISPATCH, 1, &bound);
  long first = 0;
  SafeArrayPutElement(devices, &first, outil_.get());
  const Variant argument = by_reference(VT_ARRAY | VT_DISPATCH, &devices);
  EXPECT_EQ(S_OK, Invocation(bon_.get(), L"RazTabApp").pass(argument).run().code);
  EXPECT_EQ(nullptr, devices);
  SafeArrayDestroy(devices);
}

TEST_F(ArrayArguments, ArrayOfObjects_GivenAnArrayOfVariants_IsRefused) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            Invocation(bon_.get(), L"RazTabApp").pass(duration_fields(VT_VARIANT)).run().code);
}

TEST_F(ArrayArguments, ArrayForANumber_IsRefused) {
  EXPECT_EQ(DISP_E_TYPEMISMATCH,
            Invocation(outil_.get(), L"ObjFromPtr").pass(duration_fields(VT_VARIANT)).run().code);
}

}  // namespace

// Every method of the type library, called through its slot with one address missing: E_POINTER, and nothing
// that the other addresses lead to has changed. A method that takes no address is called with an argument too
// many.
#include <cstring>

#include "atomicity/report.h"
#include "misuse/interface_table.h"
#include "support/host.h"

namespace atomicity {
namespace {

using misuse::Member;
using misuse::Parameter;

/// Room for the largest record, all zero: that is a valid record, text, number, object or array variable.
constexpr std::size_t kRoom = 65536;

class AddressArguments {
 public:
  AddressArguments(const Member& method, std::size_t missing)
      : missing_(missing), places_(method.parameters.size() + 1, std::vector<char>(kRoom)) {
    for (const Parameter& parameter : method.parameters) add(parameter);
    if (method.result) {
      Parameter result = *method.result;
      result.by_reference = true;
      add(result);
      // A result is emptied by every call.
      result_ = values_.size() - 1;
    }
  }

  HRESULT call(IDispatch* object, unsigned slot) {
    std::vector<VARIANTARG*> pointers;
    std::vector<VARTYPE> types;
    for (VARIANT& value : values_) {
      pointers.push_back(&value);
      types.push_back(value.vt == VT_BYREF ? static_cast<VARTYPE>(VT_I4) : value.vt);
      if (value.vt == VT_ERROR) types.back() = VT_VARIANT;
    }
    VARIANT answer{};
    EXPECT_EQ(S_OK, DispCallFunc(object, slot * sizeof(void*), CC_STDCALL, VT_I4,
                                 static_cast<UINT>(types.size()), types.data(), pointers.data(), &answer));
    return answer.lVal;
  }

  [[nodiscard]] bool unchanged() const {
    static const std::vector<char> kZero(kRoom);
    for (std::size_t i = 0; i < places_.size(); ++i) {
      if (i != result_ && places_[i] != kZero) return false;
    }
    return true;
  }

 private:
  void add(const Parameter& parameter) {
    const std::size_t index = values_.size();
    VARIANT value{};
    if (parameter.by_reference) {
      value.vt = VT_BYREF;
      value.byref = index == missing_ ? nullptr : places_[index].data();
    } else if (parameter.type == VT_VARIANT) {
      value.vt = VT_ERROR;
      value.scode = DISP_E_PARAMNOTFOUND;
    } else {
      value.vt = parameter.type;
    }
    values_.push_back(value);
  }

  std::size_t missing_;
  std::size_t result_ = static_cast<std::size_t>(-1);
  std::vector<VARIANT> values_;
  std::vector<std::vector<char>> places_;
};

/// What the report calls it.
std::string described(const Member& method, std::size_t index) {
  if (index == method.parameters.size()) return "no address for the result";
  return "no address for " + host::utf8(method.parameters[index].name);
}

TEST(MissingAddress, OfEveryMethod_IsEPointerAndNothingChanges) {
  std::size_t calls = 0;
  for (const misuse::Class& tested : misuse::classes()) {
    const auto object = host::create_dispatch(tested.name);
    for (const Member& method : tested.members) {
      if (method.kind != INVOKE_FUNC) continue;
      const std::string name = host::utf8(tested.name + L"." + method.name);
      const std::size_t count = method.parameters.size() + (method.result ? 1 : 0);
      for (std::size_t i = 0; i < count; ++i) {
        const bool is_result = i == method.parameters.size();
        if (!is_result && (!method.parameters[i].by_reference || method.parameters[i].optional)) continue;
        AddressArguments arguments(method, i);
        EXPECT_EQ(E_POINTER, arguments.call(object.get(), method.slot))
            << name << ", " << described(method, i);
        EXPECT_TRUE(arguments.unchanged()) << name << ", " << described(method, i);
        report(tested.name, method.name, described(method, i), "E_POINTER", false);
        ++calls;
      }
    }
  }
  EXPECT_GT(calls, 100u);
}

TEST(MissingAddress, AMethodWithoutAddresses_RefusesAnArgumentTooManyAndChangesNothing) {
  const auto invoice = host::create<_InvoiceXMLLib>(L"InvoiceXMLLib");
  ASSERT_EQ(S_OK, invoice->put_pc_XInv_ROW(host::Text(L"LIGNE")));
  std::vector<host::Variant> arguments;
  arguments.emplace_back(1L);
  EXPECT_EQ(DISP_E_BADPARAMCOUNT,
            host::call(invoice.get(), L"InitConstXML", std::move(arguments), nullptr, nullptr));
  host::Text name;
  ASSERT_EQ(S_OK, invoice->get_pc_XInv_ROW(&name));
  EXPECT_EQ(L"LIGNE", name.str());
  report(L"InvoiceXMLLib", L"InitConstXML", "an argument too many", "DISP_E_BADPARAMCOUNT", false);
}

}  // namespace
}  // namespace atomicity

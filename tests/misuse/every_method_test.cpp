// Every method of the type library is called once, late-bound, with plausible arguments, and does its work:
// none is left to be written.
#include <algorithm>
#include <deque>

#include "contract/published.h"
#include "menus/scripted_popup.h"
#include "misuse/interface_table.h"
#include "records/record.h"
#include "support/fake_object.h"

namespace misuse {
namespace {

using host::FakeObject;

constexpr ULONG kRows = 3, kColumns = 30;

/// An object with the members that the library uses of controls, tables, fields and links.
ComPtr<FakeObject> plausible_object() {
  auto object = FakeObject::make();
  for (const wchar_t* name : {L"hWnd", L"Width", L"Height", L"ScaleMode", L"TypeChamp", L"GetColSurvol",
                              L"GetLigneSurvol", L"TauxTva", L"GetTauxTva", L"ForeColor", L"Valeur"}) {
    object->property(name, Variant(1L));
  }
  for (const wchar_t* name : {L"Caption", L"Compte", L"CompteEnc", L"FormatTVA", L"FormatTVANonMulti",
                              L"Format", L"FormatAff", L"TypeSaisie", L"Param", L"DonneeL"}) {
    object->property(name, host::text_value(L"1"));
  }
  for (const wchar_t* name : {L"AutoSize", L"WordWrap", L"Bold"}) {
    object->property(name, host::bool_value(false));
  }
  for (const wchar_t* name : {L"Container", L"Font", L"CtlPicture", L"EnrTva", L"AppendChunk"}) {
    object->on_get(name, [self = object.get()](const auto&) { return host::object_value(self); });
  }
  return object;
}

/// A plausible argument for each parameter of a method, held in the host's own variables.
class PlausibleArguments {
 public:
  explicit PlausibleArguments(const std::vector<Parameter>& parameters) {
    for (const Parameter& parameter : parameters) add(parameter);
  }
  ~PlausibleArguments() {
    for (const Variable& variable : variables_) release(variable);
  }
  PlausibleArguments(const PlausibleArguments&) = delete;
  PlausibleArguments& operator=(const PlausibleArguments&) = delete;

  /// Last first, as IDispatch takes them.
  std::vector<VARIANT> passed() {
    std::vector<VARIANT> list;
    for (Variable& variable : variables_)
      list.push_back(variable.by_reference ? reference(variable) : variable.value);
    std::reverse(list.begin(), list.end());
    return list;
  }

 private:
  struct Variable {
    VARIANT value{};
    VARTYPE type = VT_EMPTY;
    bool by_reference = false;
    const velmosav::RecordLayout* record = nullptr;
  };

  void add(const Parameter& parameter) {
    Variable& variable = variables_.emplace_back();
    variable.type = parameter.type;
    variable.by_reference = parameter.by_reference;
    variable.record = parameter.record;
    VARIANT& value = variable.value;
    value.vt = parameter.type;
    switch (parameter.type) {
      case VT_BSTR:
        value.bstrVal = SysAllocString(L"1");
        break;
      case VT_DISPATCH:
        value.pdispVal = plausible_object().detach();
        break;
      case VT_R8:
        value.dblVal = 1;
        break;
      case VT_VARIANT:
        value = plausible_variant(parameter.name);
        break;
      case VT_RECORD:
        value.pvRecord = parameter.record_info->RecordCreate();
        value.pRecInfo = ComPtr<IRecordInfo>(parameter.record_info).detach();
        break;
      case VT_ARRAY | VT_VARIANT:
      case VT_ARRAY | VT_DISPATCH:
        value.parray = SafeArrayCreateVector(static_cast<VARTYPE>(parameter.type & ~VT_ARRAY), 0, kRows);
        break;
      case VT_UI1:
      case VT_I2:
      case VT_I4:
      case VT_BOOL:
        value.lVal = parameter.name == L"pObj" || parameter.name == L"lPtrTva" ? 0 : 1;
        break;
      default:
        ADD_FAILURE() << "no plausible argument of type " << parameter.type;
    }
  }

  static VARIANT plausible_variant(const std::wstring& name) {
    Variant value(1L);
    if (name == L"Tableau") {
      SAFEARRAYBOUND bounds[] = {{kRows, 0}, {kColumns, 0}};
      value.get().vt = VT_ARRAY | VT_VARIANT;
      value.get().parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    }
    return value.detach();
  }

  static VARIANT reference(Variable& variable) {
    VARIANT argument{};
    argument.vt = static_cast<VARTYPE>(VT_BYREF | variable.value.vt);
    argument.byref = &variable.value.lVal;
    if (variable.record) {
      argument = variable.value;
      argument.vt = VT_BYREF | VT_RECORD;
    } else if (variable.type == VT_VARIANT) {
      argument.vt = VT_BYREF | VT_VARIANT;
      argument.pvarVal = &variable.value;
    }
    return argument;
  }

  static void release(Variable variable) {
    if (variable.record) {
      velmosav::clear_record(*variable.record, variable.value.pvRecord);
      variable.value.pRecInfo->RecordDestroy(variable.value.pvRecord);
      variable.value.pRecInfo->Release();
    } else {
      VariantClear(&variable.value);
    }
  }

  std::deque<Variable> variables_;
};

/// A record that a method answers: nothing of it may be freed by the platform.
void release_result(const Member& method, Variant& result) {
  if (result.get().vt != VT_RECORD) return;
  const VARIANT record = result.detach();
  velmosav::clear_record(*method.result->record, record.pvRecord);
  record.pRecInfo->RecordDestroy(record.pvRecord);
  record.pRecInfo->Release();
}

/// The method itself was reached and has an answer: a result, or a fault of its own.
::testing::AssertionResult does_its_work(HRESULT code, const EXCEPINFO& exception) {
  const HRESULT answer = code == DISP_E_EXCEPTION ? exception.scode : code;
  if (answer == E_NOTIMPL) return ::testing::AssertionFailure() << "is not implemented";
  if (FAILED(code) && code != DISP_E_EXCEPTION) {
    return ::testing::AssertionFailure()
           << "was not reached: " << std::hex << static_cast<unsigned long>(code);
  }
  return ::testing::AssertionSuccess();
}

::testing::AssertionResult call(IDispatch* object, const Member& method) {
  PlausibleArguments arguments(method.parameters);
  std::vector<VARIANT> passed = arguments.passed();
  DISPPARAMS parameters{passed.data(), nullptr, static_cast<UINT>(passed.size()), 0};
  Variant result;
  EXCEPINFO exception{};
  const HRESULT code = object->Invoke(method.id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                      result.receive(), &exception, nullptr);
  release_result(method, result);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return does_its_work(code, exception);
}

TEST(EveryMethod, OfEveryClass_IsImplemented) {
  const host::ScriptedPopup menu;  // in the place of one that waits for the user
  std::size_t called = 0;
  for (const Class& tested : classes()) {
    const auto object = host::create_dispatch(tested.name);
    ASSERT_TRUE(object) << host::utf8(tested.name);
    for (const Member& member : tested.members) {
      if (member.kind != INVOKE_FUNC) continue;
      EXPECT_TRUE(call(object.get(), member)) << host::utf8(tested.name + L'.' + member.name);
      ++called;
    }
  }
  std::size_t published = 0;
  for (const contract::Class& entry : contract::classes()) published += entry.methods.size();
  EXPECT_EQ(31u, classes().size());
  EXPECT_EQ(published, called);
  EXPECT_GT(called, 80u);
}

TEST(EveryMethod, AnUnwrittenOne_WouldBeNoticed) {
  EXCEPINFO exception{};
  EXPECT_FALSE(does_its_work(E_NOTIMPL, exception));
  exception.scode = E_NOTIMPL;
  EXPECT_FALSE(does_its_work(DISP_E_EXCEPTION, exception));
  EXPECT_FALSE(does_its_work(DISP_E_MEMBERNOTFOUND, exception));
}

}  // namespace
}  // namespace misuse

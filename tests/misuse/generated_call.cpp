#include "misuse/generated_call.h"

#include <algorithm>
#include <cstring>

#include "misuse/ledger.h"
#include "misuse/watch.h"
#include "support/error_information.h"

namespace misuse {
namespace {

constexpr std::size_t kMostDepth = 3;
constexpr unsigned char kUnset = 0xCC;
constexpr double kSlow = 1000;  // milliseconds
constexpr wchar_t kFormerFailure[] = L"un appel d'avant";

/// Error information that an earlier call of the host has left on the thread.
IErrorInfo* former_failure() {
  static IErrorInfo* const left = host::error_information(nullptr, kFormerFailure).detach();
  return left;
}

std::string hexadecimal(HRESULT code) {
  char text[16];
  std::snprintf(text, sizeof text, "%08lx", static_cast<unsigned long>(code));
  return text;
}

/// Failures of Invoke itself, which tell a host by their number alone what was wrong with the call.
bool is_automation_code(HRESULT code) {
  switch (code) {
    case DISP_E_TYPEMISMATCH:
    case DISP_E_OVERFLOW:
    case DISP_E_PARAMNOTFOUND:
    case DISP_E_PARAMNOTOPTIONAL:
    case DISP_E_BADPARAMCOUNT:
    case DISP_E_MEMBERNOTFOUND:
    case DISP_E_BADVARTYPE:
      return true;
    default:
      return false;
  }
}

VARIANT variant_of(VARTYPE type, void* reference) {
  VARIANT value;
  VariantInit(&value);
  value.vt = type;
  value.byref = reference;
  return value;
}

/// Of a value that is no VARIANT; its type says how much of it there is.
bool is_empty(const VARIANT& value) {
  switch (value.vt) {
    case VT_UI1:
      return value.bVal == 0;
    case VT_I2:
    case VT_BOOL:
      return value.iVal == 0;
    case VT_R8:
    case VT_CY:
      return value.llVal == 0;
    default:
      return value.lVal == 0;
  }
}

void release_and_forget(IDispatch*& object) {
  if (IDispatch* dropped = std::exchange(object, nullptr)) dropped->Release();
}

}  // namespace

GeneratedCall::GeneratedCall(const Surroundings& surroundings, Findings& findings, std::uint64_t seed,
                             std::uint64_t number)
    : surroundings_(surroundings),
      findings_(findings),
      number_(number),
      dice_(seed, number),
      target_(surroundings.target(dice_)),
      generator_(dice_, surroundings, *this) {}

void GeneratedCall::add_finding(const std::string& what) {
  const std::wstring member = member_ ? member_->name : L"";
  findings_.add(target_.class_index, classes()[target_.class_index].name + L'.' + member, what, number_);
}

void GeneratedCall::run() {
  ledger::take_wrong_frees();
  SetErrorInfo(0, former_failure());
  object_ = surroundings_.create(target_.class_index);
  if (dice_.one_in(8)) {
    // Earlier calls change the instance.
    for (std::size_t i = dice_.below(3); i > 0; --i)
      call(surroundings_.neighbour(dice_, target_.class_index));
  }
  call(*target_.member);
  member_ = target_.member;
  object_ = nullptr;
  generator_.scrap_variables();
  SetErrorInfo(0, nullptr);
  if (generator_.objects().outstanding() != 0) add_finding("an object of the host is still held");
  if (ledger::take_wrong_frees() != 0) add_finding("memory is freed that does not live");
}

void GeneratedCall::call(const Member& member) {
  const Member* outer = std::exchange(member_, &member);
  const bool outermost = running_.empty();
  Variables variables;
  prepare(member, variables);
  running_.push_back(&variables);
  ++calls_;
  Figures& figures = findings_.of(target_.class_index);
  ++figures.calls;
  const bool early = dice_.coin();
  const bool unchanged_by_faults = is_unchanged_by_faults(classes()[target_.class_index].name, member.name);
  if (unchanged_by_faults) remember(variables);
  const std::uint64_t disturbances = disturbances_;
  LARGE_INTEGER frequency, start, end;
  if (outermost) {
    watch::enter(classes()[target_.class_index].name.c_str(), member.name.c_str(), number_);
    QueryPerformanceCounter(&start);
  }
  const HRESULT code = early ? call_early(member, variables) : call_late(member, variables);
  if (outermost) {
    QueryPerformanceCounter(&end);
    QueryPerformanceFrequency(&frequency);
    if (watch::leave()) add_finding("takes more than a second");
    const double time =
        1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart);
    if (time > figures.slowest) {
      figures.slowest = time;
      figures.slowest_member = member.name;
      figures.slowest_number = number_;
    }
    was_slow_ = was_slow_ || time > kSlow;
  }
  findings_.count(target_.class_index, member, SUCCEEDED(code));
  running_.pop_back();
  check_variables(variables);
  if (unchanged_by_faults && FAILED(code) && disturbances == disturbances_) check_unchanged(variables);
  scrap_variables(variables);
  member_ = outer;
}

// --- arguments
// -------------------------------------------------------------------------------------------------

void GeneratedCall::prepare(const Member& member, Variables& variables) {
  for (const Parameter& parameter : member.parameters) {
    Variable& variable = variables.emplace_back();
    variable.parameter = &parameter;
    if (!running_.empty()) share(variable);
    if (variable.shared) continue;
    if (parameter.record) {
      variable.record = CoTaskMemAlloc(parameter.record->size);
      std::memset(variable.record, 0, parameter.record->size);
      generator_.fill(*parameter.record, variable.record);
    } else {
      variable.value = generator_.value(parameter.type, parameter.name);
    }
  }
}

/// A call from inside an object gets the variables of the calls in progress, as a host's own code does.
void GeneratedCall::share(Variable& variable) {
  if (!variable.parameter->by_reference || dice_.one_in(3)) return;
  for (Variables* list : running_) {
    for (Variable& other : *list) {
      if (!other.shared && other.parameter->by_reference &&
          other.parameter->type == variable.parameter->type &&
          other.parameter->record == variable.parameter->record) {
        variable.shared = &other;
        variable.record = other.record;
      }
    }
  }
}

void GeneratedCall::scrap_variables(Variables& variables) {
  for (Variable& variable : variables) {
    if (variable.shared) continue;
    if (variable.record) {
      scrap_record(*variable.parameter->record, variable.record);
      CoTaskMemFree(variable.record);
    } else {
      scrap(variable.value);
    }
  }
}

void GeneratedCall::check_variables(const Variables& variables) {
  for (const Variable& variable : variables) {
    if (variable.shared) continue;
    const std::string damage =
        variable.record ? damage_of(*variable.parameter->record, variable.record, generator_.locked())
                        : damage_of(variable.value, generator_.locked());
    if (!damage.empty()) add_finding(damage);
  }
}

void GeneratedCall::remember(Variables& variables) {
  for (Variable& variable : variables) {
    if (variable.shared) continue;
    variable.before =
        variable.record ? Contents(*variable.parameter->record, variable.record) : Contents(variable.value);
  }
}

/// After a fault of a method that leaves everything as it was. Where a variable of another type cannot hold
/// what the method gave it the call fails behind the method, and the other variables keep theirs.
void GeneratedCall::check_unchanged(const Variables& variables) {
  if (std::any_of(variables.begin(), variables.end(), [](const Variable& one) { return one.converted; }))
    return;
  for (const Variable& variable : variables) {
    if (variable.shared) continue;
    const std::string change = variable.before->change_to(
        variable.record ? Contents(*variable.parameter->record, variable.record) : Contents(variable.value));
    if (!change.empty()) {
      add_finding("a fault changes " + host::utf8(variable.parameter->name) + ", " + change);
    }
  }
}

// --- early-bound
// -----------------------------------------------------------------------------------------------

VARIANT GeneratedCall::early_argument(Variable& variable) {
  VARIANT& value = variable.shared ? variable.shared->value : variable.value;
  if (!variable.parameter->by_reference) return value;
  void* address = &value.lVal;
  if (variable.parameter->type == VT_VARIANT) address = &value;
  if (variable.record) address = variable.record;
  if (dice_.one_in(40)) address = nullptr;
  return variant_of(VT_I4, address);
}

void GeneratedCall::prepare_result(const Member& member, VARIANT& result, std::vector<char>& record) {
  std::memset(&result, kUnset, sizeof result);
  if (member.result && member.result->record) {
    record.assign(member.result->record->size, static_cast<char>(kUnset));
  }
}

HRESULT GeneratedCall::call_early(const Member& member, Variables& variables) {
  std::vector<VARIANT> values;
  std::vector<VARTYPE> types;
  for (Variable& variable : variables) {
    values.push_back(early_argument(variable));
    types.push_back(variable.parameter->by_reference ? static_cast<VARTYPE>(VT_I4)
                                                     : variable.parameter->type);
  }
  VARIANT result;
  std::vector<char> record;
  prepare_result(member, result, record);
  bool awaited = member.result.has_value();
  if (awaited) {
    void* address = member.result->type == VT_VARIANT ? static_cast<void*>(&result) : &result.lVal;
    if (!record.empty()) address = record.data();
    if (dice_.one_in(60)) {
      address = nullptr;
      awaited = false;
    }
    values.push_back(variant_of(VT_I4, address));
    types.push_back(VT_I4);
  }
  std::vector<VARIANT*> places;
  for (VARIANT& value : values) places.push_back(&value);
  VARIANT answer;
  VariantInit(&answer);
  const HRESULT called =
      DispCallFunc(object_.get(), static_cast<ULONG_PTR>(member.slot) * sizeof(void*), CC_STDCALL, VT_I4,
                   static_cast<UINT>(values.size()), types.data(), places.data(), &answer);
  if (FAILED(called)) {
    add_finding("the platform cannot call it: " + hexadecimal(called));
    return called;
  }
  const HRESULT code = answer.lVal;
  if (FAILED(code)) check_error_information(code);
  if (awaited) check_result(member, code, result, record);
  return code;
}

void GeneratedCall::check_result(const Member& member, HRESULT code, VARIANT& result,
                                 std::vector<char>& record) {
  const auto unset = [](const void* place, std::size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(place);
    return std::all_of(bytes, bytes + size, [](unsigned char byte) { return byte == kUnset; });
  };
  if (!record.empty()) {
    if (unset(record.data(), record.size())) return add_finding("a record result is not set");
    if (FAILED(code) && std::any_of(record.begin(), record.end(), [](char byte) { return byte != 0; })) {
      add_finding("a failed call leaves a result");
    }
    const std::string damage = damage_of(*member.result->record, record.data(), generator_.locked());
    if (!damage.empty()) add_finding("the result: " + damage);
    scrap_record(*member.result->record, record.data());
    return;
  }
  const VARTYPE type = member.result->type;
  if (type == VT_VARIANT) {
    if (unset(&result, sizeof result)) return add_finding("a result is not set");
  } else {
    const bool is_short = type == VT_UI1 || type == VT_I2 || type == VT_BOOL;
    if (!is_short && unset(&result.lVal, type == VT_R8 || type == VT_CY ? 8 : 4))
      return add_finding("a result is not set");
    result.vt = type;
  }
  if (FAILED(code) && (type == VT_VARIANT ? result.vt != VT_EMPTY : !is_empty(result))) {
    add_finding("a failed call leaves a result");
  }
  const std::string damage = damage_of(result, generator_.locked());
  if (!damage.empty()) add_finding("the result: " + damage);
  scrap(result);
}

void GeneratedCall::check_error_information(HRESULT code) {
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, information.receive()) != S_OK) {
    return add_finding("a failure without error information: " + hexadecimal(code));
  }
  Bstr description;
  information->GetDescription(description.receive());
  if (description.view().empty()) add_finding("a failure without a text: " + hexadecimal(code));
  if (description.view() == kFormerFailure) {
    add_finding("a failure with the text of an earlier one: " + hexadecimal(code));
  }
}

// --- late-bound
// ------------------------------------------------------------------------------------------------

VARIANT GeneratedCall::late_argument(Variable& variable) {
  const Parameter& parameter = *variable.parameter;
  VARIANT& value = variable.shared ? variable.shared->value : variable.value;
  if (dice_.one_in(parameter.optional ? 10 : 50)) {
    VARIANT missing = variant_of(VT_ERROR, nullptr);
    missing.scode = DISP_E_PARAMNOTFOUND;
    return missing;
  }
  if (dice_.one_in(9)) {
    variable.converted = parameter.by_reference;
    VARIANT& odd = generator_.variable(generator_.variant(parameter.name));
    return dice_.coin() ? odd : variant_of(VT_BYREF | VT_VARIANT, &odd);
  }
  if (variable.record) {
    VARIANT record = variant_of(dice_.one_in(4) ? VT_RECORD : VT_BYREF | VT_RECORD, nullptr);
    record.pvRecord = dice_.one_in(60) ? nullptr : variable.record;
    record.pRecInfo = parameter.record_info.get();
    return record;
  }
  if (parameter.type == VT_VARIANT) {
    if (!parameter.by_reference && dice_.coin()) return value;
    return variant_of(VT_BYREF | VT_VARIANT, &value);
  }
  switch (dice_.below(parameter.type & VT_ARRAY ? 2 : 4)) {
    case 0:
      // What the call gets by value stays as it is until the end, whatever becomes of the host's variable.
      if (value.vt == VT_DISPATCH) {
        VARIANT& held = generator_.variable(value);
        if (held.pdispVal) held.pdispVal->AddRef();
        return held;
      }
      if (value.vt == VT_BSTR && value.bstrVal) {
        return generator_.variable(
            variant_of(VT_BSTR, SysAllocStringLen(value.bstrVal, SysStringLen(value.bstrVal))));
      }
      if (!(value.vt & VT_ARRAY)) return value;
      [[fallthrough]];
    case 1:
      return variant_of(static_cast<VARTYPE>(VT_BYREF | parameter.type), &value.lVal);
    default: {
      variable.converted = parameter.by_reference;
      VARIANT& variable_of_host = generator_.variable(generator_.value(parameter.type, parameter.name));
      return variant_of(VT_BYREF | VT_VARIANT, &variable_of_host);
    }
  }
}

HRESULT GeneratedCall::call_late(const Member& member, Variables& variables) {
  std::vector<VARIANT> arguments;
  for (Variable& variable : variables) arguments.push_back(late_argument(variable));
  if (dice_.one_in(20) && !arguments.empty()) arguments.pop_back();
  if (dice_.one_in(80)) arguments.push_back(variant_of(VT_EMPTY, nullptr));

  // Some of the last ones by name.
  std::vector<DISPID> names;
  if (member.kind == INVOKE_PROPERTYPUT) {
    names.push_back(DISPID_PROPERTYPUT);
  } else if (dice_.one_in(10)) {
    for (std::size_t i = dice_.below(arguments.size() + 1); i > 0; --i) {
      names.push_back(dice_.one_in(20) ? static_cast<DISPID>(dice_.below(20)) - 3
                                       : static_cast<DISPID>(arguments.size() - 1 - names.size()));
    }
  }
  if (names.size() > arguments.size() && !dice_.one_in(4)) names.resize(arguments.size());
  std::reverse(arguments.begin(), arguments.end());
  if (names.size() > arguments.size()) arguments.reserve(names.size());
  DISPPARAMS parameters{arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                        static_cast<UINT>(names.size())};

  WORD flags = static_cast<WORD>(member.kind);
  if (member.kind == INVOKE_FUNC && dice_.coin()) flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  if (dice_.one_in(100)) flags = static_cast<WORD>(dice_.below(16));
  DISPID id = member.id;
  if (dice_.one_in(20)) {
    std::wstring name = member.name;
    if (dice_.coin()) CharUpperW(name.data());
    wchar_t* text = name.data();
    if (FAILED(object_->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id)) || id != member.id) {
      add_finding("its name is not known");
    }
  }
  if (dice_.one_in(200)) id = static_cast<DISPID>(dice_.bits());

  Variant result;
  EXCEPINFO exception{};
  UINT bad_argument = 0;
  const bool wants_exception = !dice_.one_in(10);
  const HRESULT code = object_->Invoke(
      id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, dice_.one_in(10) ? nullptr : &result.get(),
      wants_exception ? &exception : nullptr, dice_.coin() ? &bad_argument : nullptr);
  if (FAILED(code)) check_exception(code, exception, wants_exception);
  if (FAILED(code) && result.get().vt != VT_EMPTY) add_finding("a failed call leaves a result");
  const std::string damage = damage_of(result.get(), generator_.locked());
  if (!damage.empty()) add_finding("the result: " + damage);
  scrap(result.get());
  return code;
}

void GeneratedCall::check_exception(HRESULT code, EXCEPINFO& exception, bool wanted) {
  if (code == DISP_E_EXCEPTION && wanted) {
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    if (SUCCEEDED(exception.scode)) add_finding("an exception without a code");
    const std::wstring_view text = velmosav::view(exception.bstrDescription);
    if (text.empty()) add_finding("an exception without a text: " + hexadecimal(exception.scode));
    if (text == kFormerFailure) {
      add_finding("an exception with the text of an earlier one: " + hexadecimal(exception.scode));
    }
  } else if (!is_automation_code(code)) {
    if (wanted) {
      add_finding("Invoke fails without an exception: " + hexadecimal(code));
    } else {
      check_error_information(code);
    }
  }
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
}

// --- what objects of the host do during a call
// -----------------------------------------------------------------

void GeneratedCall::disturb() {
  if (running_.empty() || running_.size() >= kMostDepth) return;
  ++disturbances_;
  if (dice_.coin()) return call(surroundings_.neighbour(dice_, target_.class_index));
  for (Variables* list : running_) drop_objects(*list);
}

void GeneratedCall::drop_objects(Variables& variables) {
  for (Variable& variable : variables) {
    const Parameter& parameter = *variable.parameter;
    if (variable.shared || !parameter.by_reference) continue;
    if (variable.record) {
      drop_objects(*parameter.record, variable.record);
    } else if (parameter.type == VT_DISPATCH) {
      release_and_forget(variable.value.pdispVal);
    } else if (variable.value.vt == VT_DISPATCH) {
      const VARIANT dropped = std::exchange(variable.value, variant_of(VT_EMPTY, nullptr));
      if (dropped.pdispVal) dropped.pdispVal->Release();
    }
  }
}

void GeneratedCall::drop_objects(const velmosav::RecordLayout& layout, void* record) {
  for (const velmosav::FieldLayout& field : layout.fields) {
    if (field.kind == velmosav::FieldKind::Object) {
      release_and_forget(*reinterpret_cast<IDispatch**>(static_cast<char*>(record) + field.offset));
    }
  }
}

}  // namespace misuse

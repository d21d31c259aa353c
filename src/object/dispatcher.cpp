#include "object/dispatcher.h"

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

#include "automation/module.h"
#include "object/boundary.h"
#include "object/dispatch_argument.h"
#include "object/dispatch_call.h"
#include "object/dispatch_table.h"
#include "records/record.h"

namespace velmosav {
namespace {

constexpr std::size_t kMostParameters = 12;
constexpr LCID kLocale = LOCALE_USER_DEFAULT;

struct CachedTable {
  const IID* interface_id;
  std::unique_ptr<DispatchTable> table;
};

std::vector<CachedTable>& cache() {
  static std::vector<CachedTable> tables;
  return tables;
}

void release_cache() noexcept { std::vector<CachedTable>().swap(cache()); }

const DispatchTable* cached_table(const IID& interface_id) {
  const module::CacheLock guard;
  for (const CachedTable& entry : cache()) {
    if (*entry.interface_id == interface_id) return entry.table.get();
  }
  return nullptr;
}

/// Turns the error information that the method has just set into what the caller of Invoke reads.
HRESULT exception_of(HRESULT code, EXCEPINFO* exception) noexcept {
  if (!exception) return code;
  *exception = {};
  exception->scode = code;
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, information.receive()) == S_OK) {
    information->GetSource(&exception->bstrSource);
    information->GetDescription(&exception->bstrDescription);
    information->GetHelpFile(&exception->bstrHelpFile);
    information->GetHelpContext(&exception->dwHelpContext);
  }
  return DISP_E_EXCEPTION;
}

/// Which slot of a member the flags of Invoke ask for.
const DispatchSlot* slot_for(const DispatchMember& member, WORD flags) noexcept {
  if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) return member.let.get();
  if ((flags & DISPATCH_METHOD) && member.method) return member.method.get();
  if ((flags & DISPATCH_PROPERTYGET) && member.get) return member.get.get();
  return nullptr;
}

/// The arguments of one call, in declared order: a property's get has none to make and to destroy.
class ArgumentRoom {
 public:
  explicit ArgumentRoom(std::size_t count)
      : count_(count), first_(reinterpret_cast<DispatchArgument*>(room_)) {
    std::uninitialized_default_construct_n(first_, count_);
  }
  ~ArgumentRoom() { std::destroy_n(first_, count_); }
  ArgumentRoom(const ArgumentRoom&) = delete;
  ArgumentRoom& operator=(const ArgumentRoom&) = delete;

  DispatchArgument& operator[](std::size_t index) noexcept { return first_[index]; }

 private:
  alignas(DispatchArgument) std::byte room_[kMostParameters * sizeof(DispatchArgument)];
  std::size_t count_;
  DispatchArgument* first_;
};

/// The call in progress: its arguments in declared order, then the stack image.
class Call {
 public:
  Call(const wchar_t* class_name, const DispatchSlot& slot, DISPPARAMS& parameters)
      : class_name_(class_name), slot_(slot), parameters_(parameters), arguments_(slot.parameters.size()) {}

  /// The failure of preparing an argument carries its place in `bad_argument`.
  HRESULT prepare(UINT* bad_argument) {
    if (const HRESULT code = place_arguments(bad_argument); FAILED(code)) return code;
    for (std::size_t i = 0; i < slot_.parameters.size(); ++i) {
      HRESULT code = S_OK;
      prepare_one(i, code);
      if (FAILED(code)) {
        if (bad_argument) *bad_argument = given_[i] ? static_cast<UINT>(given_[i] - parameters_.rgvarg) : 0;
        return code;
      }
    }
    return S_OK;
  }

  HRESULT run(IDispatch* object, VARIANT* result) {
    std::uint32_t words[kMostWords];
    std::uint32_t* end = words;
    for (std::size_t i = 0; i < slot_.parameters.size(); ++i)
      end = arguments_[i].push(slot_.parameters[i], end);
    Variant value;
    if (slot_.result.type != VT_EMPTY) *end++ = result_address(value.get());
    HRESULT code = call_slot(object, slot_.vtable_index, words, static_cast<unsigned>(end - words));
    for (std::size_t i = 0; i < slot_.parameters.size(); ++i) write_back(arguments_[i], code);
    if (SUCCEEDED(code) && result) {
      *result = value.detach();
    } else if (value.get().vt == VT_RECORD) {
      discard_record(value);
    }
    return code;
  }

 private:
  /// Positional arguments come last first; named ones carry the place of their parameter.
  HRESULT place_arguments(UINT* bad_argument) {
    const UINT named = parameters_.cNamedArgs;
    const UINT count = parameters_.cArgs;
    if (count > slot_.parameters.size() || named > count) return DISP_E_BADPARAMCOUNT;
    for (UINT i = named; i < count; ++i) given_[count - 1 - i] = &parameters_.rgvarg[i];
    for (UINT i = 0; i < named; ++i) {
      const DISPID id = parameters_.rgdispidNamedArgs[i];
      const std::size_t place =
          id == DISPID_PROPERTYPUT ? slot_.parameters.size() - 1 : static_cast<std::size_t>(id);
      if (place >= slot_.parameters.size() || given_[place]) {
        if (bad_argument) *bad_argument = i;
        return DISP_E_PARAMNOTFOUND;
      }
      given_[place] = &parameters_.rgvarg[i];
    }
    return S_OK;
  }

  void prepare_one(std::size_t index, HRESULT& code) {
    code = converted([&] { arguments_[index].prepare(slot_.parameters[index], given_[index], kLocale); });
  }

  /// A failed conversion is the caller's mistake in one argument, told apart from the method's own failures.
  template <class Body>
  static HRESULT converted(Body&& body) noexcept {
    const HRESULT code = boundary(L"", body);
    if (FAILED(code)) SetErrorInfo(0, nullptr);
    return code;
  }

  std::uint32_t result_address(VARIANT& value) {
    const DispatchParameter& result = slot_.result;
    void* address = &value.lVal;
    if (result.type == VT_VARIANT) {
      address = &value;
    } else if (result.type == VT_RECORD) {
      address = result.record_info->RecordCreate();
      if (!address) raise(E_OUTOFMEMORY);
      value.pvRecord = address;
      value.pRecInfo = ComPtr<IRecordInfo>(result.record_info).detach();
    }
    if (result.type != VT_VARIANT) value.vt = result.type;
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(address));
  }

  /// A record that nobody takes: cleared by the library's own table, then given back to the platform.
  void discard_record(Variant& value) const noexcept {
    const VARIANT record = value.detach();
    clear_record(slot_.result.record, record.pvRecord);
    record.pRecInfo->RecordDestroy(record.pvRecord);
    record.pRecInfo->Release();
  }

  /// A variable that cannot hold what the method left makes the call fail; the others are written all the
  /// same.
  void write_back(DispatchArgument& argument, HRESULT& code) const noexcept {
    const HRESULT stored = boundary(class_name_, [&] { argument.write_back(); });
    if (SUCCEEDED(code)) code = stored;
  }

  const wchar_t* class_name_;
  const DispatchSlot& slot_;
  DISPPARAMS& parameters_;
  std::array<VARIANT*, kMostParameters> given_{};
  ArgumentRoom arguments_;
};

}  // namespace

const DispatchTable& Dispatcher::table(const ClassIdentity& identity) {
  if (!table_) table_ = cached_table(identity.iid);
  if (!table_) {
    auto built = std::make_unique<DispatchTable>(identity.iid);
    const module::CacheLock guard;
    cache().push_back({&identity.iid, std::move(built)});
    module::on_idle(release_cache);
    table_ = cache().back().table.get();
  }
  return *table_;
}

HRESULT Dispatcher::type_info(const ClassIdentity& identity, UINT index, ITypeInfo** info) noexcept {
  if (!info) return E_POINTER;
  if (index != 0) return DISP_E_BADINDEX;
  return boundary(identity.name,
                  [&] { *info = ComPtr<ITypeInfo>::copy(table(identity).type_info()).detach(); });
}

HRESULT Dispatcher::ids_of_names(const ClassIdentity& identity, LPOLESTR* names, UINT count,
                                 DISPID* ids) noexcept {
  if (!names || !ids || count == 0) return E_POINTER;
  HRESULT answer = S_OK;
  const HRESULT code = boundary(identity.name, [&] {
    const DispatchTable& members = table(identity);
    ids[0] = members.find(names[0]);
    const DispatchMember* member = members.member(ids[0]);
    if (!member) answer = DISP_E_UNKNOWNNAME;
    for (UINT i = 1; i < count; ++i) {
      ids[i] = DISPID_UNKNOWN;
      if (member && member->method) {
        const auto& parameters = member->method->parameters;
        for (std::size_t p = 0; p < parameters.size(); ++p) {
          if (same_name(parameters[p].name, names[i])) ids[i] = static_cast<DISPID>(p);
        }
      }
      if (ids[i] == DISPID_UNKNOWN) answer = DISP_E_UNKNOWNNAME;
    }
  });
  return FAILED(code) ? code : answer;
}

HRESULT Dispatcher::invoke(const ClassIdentity& identity, IDispatch* object, DISPID id, WORD flags,
                           DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                           UINT* bad_argument) noexcept {
  if (!parameters) return E_POINTER;
  HRESULT answer = S_OK;
  const HRESULT code = boundary(identity.name, [&] {
    const DispatchMember* member = table(identity).member(id);
    const DispatchSlot* slot = member ? slot_for(*member, flags) : nullptr;
    if (!slot) {
      answer = DISP_E_MEMBERNOTFOUND;
      return;
    }
    if (slot->parameters.size() > kMostParameters) raise(E_UNEXPECTED);
    Call call(identity.name, *slot, *parameters);
    answer = call.prepare(bad_argument);
    if (FAILED(answer)) return;
    const HRESULT outcome = call.run(object, result);
    if (FAILED(outcome)) answer = exception_of(outcome, exception);
  });
  return FAILED(code) ? code : answer;
}

}  // namespace velmosav

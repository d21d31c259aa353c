#include "object/dispatch_table.h"

#include "automation/fault.h"
#include "automation/module.h"
#include "records/record_info.h"

namespace velmosav {
namespace {

constexpr unsigned kFirstOwnSlot = 7;  // after IUnknown and IDispatch
constexpr DISPID kMostMembers = 1000;

wchar_t folded(wchar_t letter) noexcept {
  if (letter < 0x80) return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter + 32) : letter;
  CharLowerBuffW(&letter, 1);
  return letter;
}

unsigned hash_of(std::wstring_view name) noexcept {
  unsigned hash = 2166136261U;
  for (const wchar_t letter : name) hash = (hash ^ folded(letter)) * 16777619U;
  return hash;
}

/// A description handed out by the type information, given back when it is no longer read.
struct FunctionDescription {
  FunctionDescription(ITypeInfo& type, UINT index) : owner(type) {
    check(type.GetFuncDesc(index, &function));
  }
  ~FunctionDescription() { owner.ReleaseFuncDesc(function); }
  FunctionDescription(const FunctionDescription&) = delete;
  FunctionDescription& operator=(const FunctionDescription&) = delete;

  ITypeInfo& owner;
  FUNCDESC* function = nullptr;
};

struct TypeAttributes {
  explicit TypeAttributes(ITypeInfo& type) : owner(type) { check(type.GetTypeAttr(&value)); }
  ~TypeAttributes() { owner.ReleaseTypeAttr(value); }
  TypeAttributes(const TypeAttributes&) = delete;
  TypeAttributes& operator=(const TypeAttributes&) = delete;

  ITypeInfo& owner;
  TYPEATTR* value = nullptr;
};

/// A record or an enumeration; anything else cannot cross a late-bound call.
void describe_named_type(ITypeInfo& info, HREFTYPE reference, DispatchParameter& parameter) {
  ComPtr<ITypeInfo> type;
  check(info.GetRefTypeInfo(reference, type.receive()));
  const TypeAttributes attributes(*type.get());
  if (attributes.value->typekind == TKIND_ENUM) {
    parameter.type = VT_I4;
  } else if (attributes.value->typekind == TKIND_RECORD) {
    parameter.type = VT_RECORD;
    parameter.record = attributes.value->guid;
    parameter.record_info = record_info(parameter.record);
  } else {
    raise(E_UNEXPECTED);
  }
}

void describe_type(ITypeInfo& info, const TYPEDESC& type, DispatchParameter& parameter) {
  switch (type.vt) {
    case VT_PTR:
      if (parameter.by_reference) raise(E_UNEXPECTED);
      parameter.by_reference = true;
      describe_type(info, *type.lptdesc, parameter);
      return;
    case VT_USERDEFINED:
      describe_named_type(info, type.hreftype, parameter);
      return;
    case VT_SAFEARRAY:
      parameter.type = static_cast<VARTYPE>(VT_ARRAY | type.lptdesc->vt);
      return;
    case VT_I2:
    case VT_I4:
    case VT_UI1:
    case VT_BOOL:
    case VT_R8:
    case VT_CY:
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_VARIANT:
      parameter.type = type.vt;
      return;
    default:
      raise(E_UNEXPECTED);
  }
}

DispatchParameter describe_parameter(ITypeInfo& info, const ELEMDESC& element, BSTR name) {
  DispatchParameter parameter;
  parameter.name = view(name);
  describe_type(info, element.tdesc, parameter);
  const PARAMDESC& flags = element.paramdesc;
  parameter.optional = (flags.wParamFlags & PARAMFLAG_FOPT) != 0;
  if (flags.wParamFlags & PARAMFLAG_FHASDEFAULT) {
    check(VariantCopy(parameter.default_value.receive(), &flags.pparamdescex->varDefaultValue));
  }
  return parameter;
}

/// The names of a function and its parameters, owned.
struct Names {
  static constexpr UINT kMost = 32;

  Names(ITypeInfo& info, MEMBERID member) { check(info.GetNames(member, texts, kMost, &count)); }
  ~Names() {
    for (UINT i = 0; i < count; ++i) SysFreeString(texts[i]);
  }
  Names(const Names&) = delete;
  Names& operator=(const Names&) = delete;
  [[nodiscard]] BSTR at(UINT index) const { return index < count ? texts[index] : nullptr; }

  BSTR texts[kMost] = {};
  UINT count = 0;
};

}  // namespace

unsigned DispatchParameter::words() const noexcept {
  if (by_reference) return 1;
  if (type == VT_R8 || type == VT_CY) return 2;
  return type == VT_VARIANT ? sizeof(VARIANT) / 4 : 1;
}

bool same_name(std::wstring_view left, std::wstring_view right) noexcept {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (left[i] != right[i] && folded(left[i]) != folded(right[i])) return false;
  }
  return true;
}

DispatchTable::DispatchTable(const IID& interface_id) {
  const ComPtr<ITypeLib> library = module::type_library();
  check(library->GetTypeInfoOfGuid(interface_id, type_info_.receive()));
  ComPtr<ITypeInfo> slots = type_info_;
  {
    const TypeAttributes attributes(*type_info_.get());
    if (attributes.value->typekind == TKIND_DISPATCH) {
      // The vtable side of a dual interface.
      HREFTYPE reference = 0;
      check(type_info_->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
      check(type_info_->GetRefTypeInfo(reference, slots.receive()));
    }
  }
  const TypeAttributes attributes(*slots.get());
  for (UINT i = 0; i < attributes.value->cFuncs; ++i) add_function(*slots.get(), i);
  index_names();
}

void DispatchTable::add_function(ITypeInfo& info, UINT index) {
  const FunctionDescription description(info, index);
  const FUNCDESC& function = *description.function;
  if (function.oVft < static_cast<SHORT>(kFirstOwnSlot * sizeof(void*))) return;
  if (function.memid < 1 || function.memid > kMostMembers) raise(E_UNEXPECTED);

  const Names names(info, function.memid);
  auto slot = std::make_unique<DispatchSlot>();
  slot->vtable_index = static_cast<unsigned>(function.oVft) / sizeof(void*);
  for (SHORT i = 0; i < function.cParams; ++i) {
    const ELEMDESC& element = function.lprgelemdescParam[i];
    DispatchParameter parameter = describe_parameter(info, element, names.at(static_cast<UINT>(i) + 1));
    if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
      slot->result = std::move(parameter);
    } else {
      slot->parameters.push_back(std::move(parameter));
    }
  }

  if (members_.size() < static_cast<std::size_t>(function.memid)) {
    members_.resize(static_cast<std::size_t>(function.memid));
  }
  DispatchMember& member = members_[static_cast<std::size_t>(function.memid) - 1];
  member.name = view(names.at(0));
  auto& place = function.invkind == INVOKE_PROPERTYGET ? member.get
                : function.invkind == INVOKE_FUNC      ? member.method
                                                       : member.let;
  place = std::move(slot);
}

void DispatchTable::index_names() {
  std::size_t size = 8;
  while (size < 2 * members_.size()) size *= 2;
  buckets_.assign(size, DISPID_UNKNOWN);
  for (std::size_t i = 0; i < members_.size(); ++i) {
    std::size_t place = hash_of(members_[i].name) & (size - 1);
    while (buckets_[place] != DISPID_UNKNOWN) place = (place + 1) & (size - 1);
    buckets_[place] = static_cast<DISPID>(i + 1);
  }
}

DISPID DispatchTable::find(std::wstring_view name) const noexcept {
  const std::size_t mask = buckets_.size() - 1;
  for (std::size_t place = hash_of(name) & mask; buckets_[place] != DISPID_UNKNOWN;
       place = (place + 1) & mask) {
    if (same_name(members_[static_cast<std::size_t>(buckets_[place]) - 1].name, name)) return buckets_[place];
  }
  return DISPID_UNKNOWN;
}

const DispatchMember* DispatchTable::member(DISPID id) const noexcept {
  if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return nullptr;
  return &members_[static_cast<std::size_t>(id) - 1];
}

}  // namespace velmosav

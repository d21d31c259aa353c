#include "misuse/generator.h"

#include <cstring>

#include "misuse/odd_numbers.h"

namespace misuse {
namespace {

constexpr VARTYPE kTextType = VT_BSTR;
constexpr VARTYPE kPlainTypes[]{VT_I2, VT_I4, VT_UI1, VT_BOOL, VT_R8, VT_CY, VT_BSTR, VT_DISPATCH};
constexpr int kDeepest = 2;

VARIANT empty() {
  VARIANT value;
  VariantInit(&value);
  return value;
}

VARIANT error(HRESULT code) {
  VARIANT value = empty();
  value.vt = VT_ERROR;
  value.scode = code;
  return value;
}

bool contains(std::wstring_view text, std::wstring_view part) {
  return text.find(part) != std::wstring_view::npos;
}

}  // namespace

Generator::~Generator() { scrap_variables(); }

void Generator::scrap_variables() {
  for (VARIANT& variable : variables_) scrap(variable);
  variables_.clear();
}

VARIANT Generator::value(VARTYPE type, std::wstring_view name) {
  VARIANT value = empty();
  value.vt = type;
  switch (type) {
    case VT_UI1:
      value.bVal = odd_whole<BYTE>(dice_);
      break;
    case VT_I2:
      // An index may make an array of its size.
      value.iVal = name == L"ind" && !dice_.one_in(100) ? static_cast<short>(dice_.between(-2, 40))
                                                        : odd_whole<short>(dice_);
      break;
    case VT_I4:
      if (name == L"pObj" || name == L"lPtrTva") {
        value.lVal = dice_.coin() ? surroundings_.wrong_address(dice_)
                                  : static_cast<long>(reinterpret_cast<std::uintptr_t>(
                                        variable(this->value(VT_DISPATCH, name)).pdispVal));
      } else {
        value.lVal = odd_whole<long>(dice_);
      }
      break;
    case VT_BOOL:
      value.boolVal = odd_boolean(dice_);
      break;
    case VT_R8:
      value.dblVal = odd_double(dice_);
      break;
    case VT_CY:
      value.cyVal = odd_currency(dice_);
      break;
    case VT_BSTR:
      value.bstrVal = text(name);
      break;
    case VT_DISPATCH:
      value.pdispVal = object();
      break;
    case VT_VARIANT:
      return variant(name);
    case VT_ARRAY | VT_VARIANT:
      value.parray = array(Holding::Variant, nullptr, name, 0);
      break;
    case VT_ARRAY | VT_DISPATCH:
      value.parray = array(Holding::Object, nullptr, name, 0);
      break;
    default:
      ADD_FAILURE() << "no value of type " << type << " can be generated";
      value.vt = VT_EMPTY;
  }
  return value;
}

VARIANT Generator::likely(std::wstring_view name) {
  if (name == L"Tableau") return grid();
  constexpr VARTYPE kNumbers[]{VT_I2, VT_I2, VT_I4, VT_R8};
  if (dice_.one_in(4)) return error(DISP_E_PARAMNOTFOUND);
  return value(dice_.one_in(3) ? kTextType : dice_.of(kNumbers), name);
}

VARIANT Generator::variant(std::wstring_view name, int depth) {
  VARIANT value = empty();
  switch (dice_.below(32)) {
    case 0:
      return value;
    case 1:
      value.vt = VT_NULL;
      return value;
    case 2:
      return error(dice_.coin() ? DISP_E_PARAMNOTFOUND : E_FAIL);
    case 3:
      value.decVal = odd_decimal(dice_);
      value.vt = VT_DECIMAL;
      return value;
    case 4:
      value.date = odd_double(dice_);
      value.vt = VT_DATE;
      return value;
    case 5:
      value.llVal = odd_whole<long long>(dice_);
      value.vt = dice_.coin() ? VT_I8 : VT_UI8;
      return value;
    case 6:
      value.fltVal = static_cast<float>(odd_whole<short>(dice_));
      value.vt = VT_R4;
      return value;
    case 7:
      value.vt = dice_.coin() ? VT_UNKNOWN : VT_DISPATCH;
      value.pdispVal = object();
      return value;
    case 8:
    case 9:
      return reference(name, depth);
    case 10:
      return depth < kDeepest ? array_value(name, depth) : value;
    case 11:
      return depth == 0 ? record_value() : value;
    case 12:
      return this->value(dice_.of(kPlainTypes), name);
    case 13:
      value.lVal = odd_whole<long>(dice_);
      value.vt = dice_.coin() ? VT_INT : VT_UI4;
      return value;
    default:
      return depth == 0 ? likely(name) : this->value(dice_.of(kPlainTypes), name);
  }
}

/// An array in a VARIANT tells its type, or the platform could neither copy nor free it. One that is given
/// away is not locked.
VARIANT Generator::array_value(std::wstring_view name, int depth) {
  constexpr VARTYPE kTypes[]{VT_VARIANT, VT_VARIANT, VT_VARIANT, VT_BSTR, VT_I2, VT_R8, VT_DISPATCH, VT_UI1};
  const VARTYPE type = dice_.of(kTypes);
  VARIANT value = empty();
  value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
  if (dice_.one_in(8)) return value;
  value.parray = allocated(type, nullptr, dice_.below(5));
  if (value.parray) fill_elements(value.parray, holding_of(type), nullptr, name, depth + 1);
  if (depth == 0) restrict_use(value.parray);
  return value;
}

VARIANT Generator::reference(std::wstring_view name, int depth) {
  VARIANT value = empty();
  if (dice_.one_in(10)) {
    // A reference to nothing.
    constexpr VARTYPE kTypes[]{VT_I2, VT_R8, VT_BSTR, VT_VARIANT, VT_DISPATCH, VT_ARRAY | VT_VARIANT};
    value.vt = static_cast<VARTYPE>(VT_BYREF | dice_.of(kTypes));
    return value;
  }
  const bool plain = dice_.coin();
  VARIANT& target = variable(plain              ? this->value(dice_.of(kPlainTypes), name)
                             : depth < kDeepest ? variant(name, depth + 1)
                                                : empty());
  if (plain || (target.vt & VT_ARRAY && !(target.vt & VT_BYREF))) {
    value.vt = static_cast<VARTYPE>(VT_BYREF | target.vt);
    value.byref = &target.lVal;
  } else {
    value.vt = VT_BYREF | VT_VARIANT;
    value.pvarVal = &target;
  }
  return value;
}

VARIANT Generator::record_value() {
  VARIANT value = empty();
  const Surroundings::RecordType& record = dice_.of(surroundings_.records);
  value.vt = VT_RECORD;
  value.pvRecord = CoTaskMemAlloc(record.layout->size);
  std::memset(value.pvRecord, 0, record.layout->size);
  value.pRecInfo = ComPtr<IRecordInfo>(record.info).detach();
  fill(*record.layout, value.pvRecord, 1);
  return value;
}

/// Rows of invoices or of amounts, as a screen holds them.
VARIANT Generator::grid() {
  SAFEARRAYBOUND sizes[]{{static_cast<ULONG>(dice_.below(dice_.one_in(30) ? 40 : 7)), 0},
                         {static_cast<ULONG>(dice_.one_in(6) ? dice_.below(30) : 28), 0}};
  if (dice_.one_in(20)) sizes[dice_.below(2)].lLbound = dice_.between(-2, 2);
  VARIANT value = empty();
  value.vt = VT_ARRAY | VT_VARIANT;
  value.parray = SafeArrayCreate(VT_VARIANT, 2, sizes);
  auto* cells = static_cast<VARIANT*>(value.parray->pvData);
  // Few different values, so that rows are equal now and then; a whole column is odd at times.
  const std::size_t odd = dice_.coin() ? 0 : 8 + dice_.below(100);
  for (ULONG i = 0; i < sizes[0].cElements * sizes[1].cElements; ++i) {
    if (odd && dice_.one_in(odd)) {
      cells[i] = variant(L"", 1);
    } else if (dice_.coin()) {
      cells[i].vt = VT_I2;
      cells[i].iVal = static_cast<short>(dice_.between(-1, 1));
    } else if (dice_.coin()) {
      cells[i].vt = VT_BSTR;
      cells[i].bstrVal = SysAllocString(dice_.coin() ? L"C" : L"I");
    } else if (dice_.coin()) {
      cells[i].vt = VT_BOOL;
      cells[i].boolVal = VARIANT_TRUE;
    }
  }
  restrict_use(value.parray);
  return value;
}

VARIANT Generator::member_value(std::wstring_view name) {
  VARIANT answer = empty();
  if (name == L"hWnd") {
    answer.vt = VT_I4;
    answer.lVal =
        dice_.coin() ? static_cast<long>(reinterpret_cast<std::uintptr_t>(surroundings_.window)) : 0;
  } else if (name == L"EnrTva" || name == L"Container" || name == L"Font" || name == L"CtlPicture") {
    answer.vt = VT_DISPATCH;
    answer.pdispVal = object();
  } else if (name == L"GetTraduction_EXE") {
    return value(kTextType, name);
  } else if (name == L"ExecuteFromWindow") {
    answer.vt = VT_BSTR;
    answer.bstrVal = SysAllocString(dice_.coin() ? L"2" : L"");
  } else if (contains(name, L"Taux") || contains(name, L"Survol") || name == L"Width" || name == L"Height" ||
             name == L"ScaleMode" || name == L"TypeChamp") {
    answer.vt = VT_R8;
    answer.dblVal = static_cast<double>(dice_.below(21));
  } else {
    return value(dice_.coin() ? kTextType : dice_.of(kPlainTypes), name);
  }
  return answer;
}

}  // namespace misuse

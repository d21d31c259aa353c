#include "support/records.h"

#include <cstring>
#include <sstream>

namespace host {
namespace {

using velmosav::FieldKind;
using velmosav::FieldLayout;
using velmosav::RecordLayout;

template <class T>
T& at(void* record, unsigned offset) {
  return *reinterpret_cast<T*>(static_cast<char*>(record) + offset);
}
template <class T>
const T& at(const void* record, unsigned offset) {
  return *reinterpret_cast<const T*>(static_cast<const char*>(record) + offset);
}

unsigned long length(const SAFEARRAY* array) {
  unsigned long count = 1;
  for (USHORT i = 0; i < array->cDims; ++i) count *= array->rgsabound[i].cElements;
  return count;
}

SAFEARRAY* copy_array(const SAFEARRAY* source, const RecordLayout* layout) {
  if (!source) return nullptr;
  SAFEARRAY* copy = nullptr;
  if (!layout) {
    SafeArrayCopy(const_cast<SAFEARRAY*>(source), &copy);
    return copy;
  }
  copy = make_array(source->cbElements, length(source), source->rgsabound[0].lLbound);
  for (unsigned long i = 0; i < length(source); ++i) {
    deep_copy(*layout, static_cast<char*>(source->pvData) + i * layout->size,
              static_cast<char*>(copy->pvData) + i * layout->size);
  }
  return copy;
}

class Comparison {
 public:
  void compare(const RecordLayout& layout, const void* left, const void* right, const std::string& path) {
    for (const FieldLayout& field : layout.fields) {
      const std::string here = path + (path.empty() ? "" : ".") + utf8(field.name);
      compare_field(field, left, right, here);
    }
  }
  std::vector<std::string> found;

 private:
  template <class T>
  void plain(const FieldLayout& field, const void* left, const void* right, const std::string& path) {
    const T& a = at<T>(left, field.offset);
    const T& b = at<T>(right, field.offset);
    if (std::memcmp(&a, &b, sizeof(T)) == 0) return;
    std::ostringstream text;
    text.precision(17);
    text << path << ": " << +a << " / " << +b;
    found.push_back(text.str());
  }

  void compare_field(const FieldLayout& field, const void* left, const void* right, const std::string& path) {
    switch (field.kind) {
      case FieldKind::Byte:
        return plain<BYTE>(field, left, right, path);
      case FieldKind::Integer:
      case FieldKind::Boolean:
        return plain<short>(field, left, right, path);
      case FieldKind::Long:
        return plain<long>(field, left, right, path);
      case FieldKind::Double:
        return plain<double>(field, left, right, path);
      case FieldKind::Currency:
        return plain<long long>(field, left, right, path);
      case FieldKind::Text: {
        const std::wstring a = get(at<BSTR>(left, field.offset));
        const std::wstring b = get(at<BSTR>(right, field.offset));
        if (a != b) found.push_back(path + ": " + utf8(a) + " / " + utf8(b));
        return;
      }
      case FieldKind::Object:
        if (at<IDispatch*>(left, field.offset) != at<IDispatch*>(right, field.offset)) found.push_back(path);
        return;
      case FieldKind::Record:
        for (unsigned i = 0; i < field.count; ++i) {
          const unsigned offset = field.offset + i * field.record->size;
          compare(*field.record, &at<char>(left, offset), &at<char>(right, offset),
                  field.count == 1 ? path : path + "(" + std::to_string(i) + ")");
        }
        return;
      default:
        return arrays(field, at<SAFEARRAY*>(left, field.offset), at<SAFEARRAY*>(right, field.offset), path);
    }
  }

  void arrays(const FieldLayout& field, SAFEARRAY* left, SAFEARRAY* right, const std::string& path) {
    if (!left || !right) {
      if (left != right) found.push_back(path + ": dimensioned / never dimensioned");
      return;
    }
    if (left->cDims != right->cDims || length(left) != length(right) ||
        left->rgsabound[0].lLbound != right->rgsabound[0].lLbound) {
      found.push_back(path + ": " + std::to_string(length(left)) + " / " + std::to_string(length(right)) +
                      " elements");
      return;
    }
    for (unsigned long i = 0; i < length(left); ++i) {
      const std::string here = path + "(" + std::to_string(i) + ")";
      if (field.kind == FieldKind::RecordArray) {
        compare(*field.record, static_cast<char*>(left->pvData) + i * field.record->size,
                static_cast<char*>(right->pvData) + i * field.record->size, here);
      } else if (field.kind == FieldKind::TextArray) {
        if (get(element<BSTR>(left, i)) != get(element<BSTR>(right, i))) found.push_back(here);
      } else if (field.kind == FieldKind::ObjectArray) {
        if (element<IDispatch*>(left, i) != element<IDispatch*>(right, i)) found.push_back(here);
      } else if (VarCmp(&element<VARIANT>(left, i), &element<VARIANT>(right, i), LOCALE_USER_DEFAULT, 0) !=
                 VARCMP_EQ) {
        found.push_back(here);
      }
    }
  }
};

}  // namespace

SAFEARRAY* make_array(unsigned element_size, unsigned long count, long lower) {
  SAFEARRAY* array = nullptr;
  EXPECT_EQ(S_OK, SafeArrayAllocDescriptor(1, &array));
  array->cbElements = element_size;
  array->rgsabound[0] = {count, lower};
  EXPECT_EQ(S_OK, SafeArrayAllocData(array));
  return array;
}

void deep_copy(const RecordLayout& layout, const void* source, void* target) {
  std::memcpy(target, source, layout.size);
  for (const FieldLayout& field : layout.fields) {
    switch (field.kind) {
      case FieldKind::Text: {
        const BSTR text = at<BSTR>(source, field.offset);
        at<BSTR>(target, field.offset) = text ? SysAllocStringLen(text, SysStringLen(text)) : nullptr;
        break;
      }
      case FieldKind::Object:
        if (IDispatch* object = at<IDispatch*>(target, field.offset)) object->AddRef();
        break;
      case FieldKind::Record:
        for (unsigned i = 0; i < field.count; ++i) {
          const unsigned offset = field.offset + i * field.record->size;
          deep_copy(*field.record, &at<char>(source, offset), &at<char>(target, offset));
        }
        break;
      case FieldKind::RecordArray:
        at<SAFEARRAY*>(target, field.offset) = copy_array(at<SAFEARRAY*>(source, field.offset), field.record);
        break;
      case FieldKind::TextArray:
      case FieldKind::ObjectArray:
      case FieldKind::VariantArray:
        at<SAFEARRAY*>(target, field.offset) = copy_array(at<SAFEARRAY*>(source, field.offset), nullptr);
        break;
      default:
        break;
    }
  }
}

std::vector<std::string> differences(const RecordLayout& layout, const void* left, const void* right) {
  Comparison comparison;
  comparison.compare(layout, left, right, "");
  return comparison.found;
}

}  // namespace host

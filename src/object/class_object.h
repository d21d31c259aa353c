// The base of every class of the library: reference count, dispatch by name, error support.
//
// A class derives from ClassObject<_Name>, adds its properties by including its list, and implements its
// methods as one statement each: name the result, forward to the logic.
#pragma once

#include <atomic>

#include "automation/module.h"
#include "constants/constant_sets.h"
#include "object/boundary.h"
#include "object/class_traits.h"
#include "object/dispatcher.h"

namespace velmosav {

template <class Interface>
class ClassObject : public Interface, public ISupportErrorInfo {
 public:
  ClassObject() = default;
  ClassObject(const ClassObject&) = delete;
  ClassObject& operator=(const ClassObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == identity().iid) {
      *object = static_cast<Interface*>(this);
    } else if (iid == IID_ISupportErrorInfo) {
      *object = static_cast<ISupportErrorInfo*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() noexcept override { return references_.fetch_add(1) + 1; }

  ULONG STDMETHODCALLTYPE Release() noexcept override {
    const ULONG left = references_.fetch_sub(1) - 1;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override {
    if (info) *info = nullptr;
    return dispatcher_.type_info(identity(), index, info);
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept override {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return dispatcher_.ids_of_names(identity(), names, count, ids);
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT* bad_argument) noexcept override {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return dispatcher_.invoke(identity(), static_cast<Interface*>(this), id, flags, parameters, result,
                              exception, bad_argument);
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
    return iid == identity().iid || iid == IID_IDispatch ? S_OK : S_FALSE;
  }

 protected:
  virtual ~ClassObject() = default;

  static const ClassIdentity& identity() noexcept { return ClassTraits<Interface>::identity(); }

  /// A method without result.
  template <class Body>
  HRESULT perform(Body&& body) const noexcept {
    return boundary(identity().name, body);
  }

  /// A method with a result.
  template <class Result, class Body>
  HRESULT answer(Result* result, Body&& body) const noexcept {
    return velmosav::answer(identity().name, result, body);
  }

  HRESULT read_constant(const TextConstant& constant, BSTR* place) const noexcept {
    if (place) {
      const std::wstring_view text = constant.view();
      *place = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
      if (*place) return S_OK;
    }
    return perform([&] { raise(place ? E_OUTOFMEMORY : E_POINTER); });
  }

  HRESULT write_constant(TextConstant& constant, BSTR text) const noexcept {
    return perform([&] { constant.assign(Bstr(view(text))); });
  }

  template <class T>
  HRESULT read_constant(const T& constant, T* place) const noexcept {
    if (!place) return perform([] { raise(E_POINTER); });
    *place = constant;
    return S_OK;
  }

  template <class T>
  HRESULT write_constant(T& constant, T value) const noexcept {
    constant = value;
    return S_OK;
  }

 private:
  std::atomic<ULONG> references_{1};
  Dispatcher dispatcher_;
  module::Reference module_reference_;
};

}  // namespace velmosav

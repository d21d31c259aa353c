// The library as the first use of all finds it: loaded a moment ago, with nothing set up.
#pragma once

#include <string>

#include "frame/library.h"
#include "support/temporary_file.h"

namespace host {

/// A copy of the DLL, so that loading it starts from nothing although the registered one is in use.
class LibraryCopy {
 public:
  LibraryCopy() { EXPECT_TRUE(CopyFileW(library_path().c_str(), path(), FALSE)); }
  ~LibraryCopy() { EXPECT_TRUE(DeleteFileW(path_.c_str())); }
  LibraryCopy(const LibraryCopy&) = delete;
  LibraryCopy& operator=(const LibraryCopy&) = delete;
  [[nodiscard]] const wchar_t* path() const { return path_.c_str(); }

 private:
  std::wstring path_ = make_temporary_file();
};

/// The copy, loaded until the end of the scope.
class FreshLibrary {
 public:
  explicit FreshLibrary(const LibraryCopy& copy) : copy_(copy), module_(LoadLibraryW(copy.path())) {
    EXPECT_NE(nullptr, module_);
  }
  ~FreshLibrary() {
    FreeLibrary(module_);
    EXPECT_EQ(nullptr, GetModuleHandleW(copy_.path())) << "still loaded";
  }
  FreshLibrary(const FreshLibrary&) = delete;
  FreshLibrary& operator=(const FreshLibrary&) = delete;

  [[nodiscard]] HMODULE module() const { return module_; }
  HRESULT create(REFCLSID clsid, REFIID iid, void** object) const {
    ComPtr<IClassFactory> factory;
    const auto get_class_object = reinterpret_cast<decltype(&DllGetClassObject)>(
        reinterpret_cast<void*>(GetProcAddress(module_, "DllGetClassObject")));
    const HRESULT code = get_class_object(clsid, IID_IClassFactory, factory.receive_void());
    return FAILED(code) ? code : factory->CreateInstance(nullptr, iid, object);
  }
  template <class Class, class Interface>
  HRESULT create(ComPtr<Interface>& object) const {
    return create(__uuidof(Class), __uuidof(Interface), object.receive_void());
  }
  [[nodiscard]] HRESULT can_unload() const {
    return reinterpret_cast<decltype(&DllCanUnloadNow)>(
        reinterpret_cast<void*>(GetProcAddress(module_, "DllCanUnloadNow")))();
  }

 private:
  const LibraryCopy& copy_;
  HMODULE module_;
};

}  // namespace host

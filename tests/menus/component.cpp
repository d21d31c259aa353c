#include "menus/component.h"

namespace host {
namespace {

bool is_registered() {
  CLSID clsid;
  return SUCCEEDED(CLSIDFromProgID(kPopupMenuProgId, &clsid));
}

class RegisteredComponent : public ::testing::Environment {
 public:
  void SetUp() override {
    ASSERT_EQ(S_OK, Component().register_server()) << "another component has the ProgID on this machine";
  }
  void TearDown() override {
    if (was_registered_) return;
    EXPECT_EQ(S_OK, Component().unregister_server());
  }

 private:
  const bool was_registered_ = is_registered();
};

const ::testing::Environment* const registered = ::testing::AddGlobalTestEnvironment(new RegisteredComponent);

std::wstring folder_of(const std::wstring& path) { return path.substr(0, path.find_last_of(L"\\/")); }

FARPROC exported(HMODULE module, const char* name) {
  const FARPROC address = GetProcAddress(module, name);
  EXPECT_NE(nullptr, address) << name;
  return address;
}

}  // namespace

std::wstring component_path() {
  wchar_t program[MAX_PATH], path[MAX_PATH];
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  GetFullPathNameW((folder_of(program) + L"\\..\\bin\\ApiPopupMenu.dll").c_str(), MAX_PATH, path, nullptr);
  return path;
}

Component::Component() : module_(LoadLibraryW(component_path().c_str())) {
  EXPECT_NE(nullptr, module_) << utf8(component_path());
}

Component::~Component() { FreeLibrary(module_); }

HRESULT Component::class_object(REFCLSID clsid, REFIID iid, void** object) const {
  const FARPROC address = exported(module_, "DllGetClassObject");
  return reinterpret_cast<decltype(&DllGetClassObject)>(reinterpret_cast<void*>(address))(clsid, iid, object);
}

HRESULT Component::call(const char* name) const {
  const FARPROC address = exported(module_, name);
  return reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(reinterpret_cast<void*>(address))();
}

ComPtr<IDispatch> create_popup_menu() {
  CLSID clsid{};
  ComPtr<IDispatch> object;
  HRESULT code = CLSIDFromProgID(kPopupMenuProgId, &clsid);
  if (SUCCEEDED(code)) {
    code = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.receive_void());
  }
  EXPECT_EQ(S_OK, code);
  return object;
}

}  // namespace host

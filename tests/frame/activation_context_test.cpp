// Use without registration: an application manifest that depends on the DLL's own assembly.
#include "frame/library.h"
#include "frame/registry.h"
#include "support/temporary_file.h"

namespace {

using host::ComPtr;
using host::Library;
using host::Variant;

constexpr char kManifest[] =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="Essai.Frame" version="1.0.0.0" processorArchitecture="x86"/>
  <dependency>
    <dependentAssembly>
      <assemblyIdentity type="win32" name="VelmoSAV_DLL14" version="14.0.0.0" processorArchitecture="x86"/>
    </dependentAssembly>
  </dependency>
</assembly>
)";

/// An application's folder: its manifest, and the DLL beside it.
class ApplicationFolder {
 public:
  ApplicationFolder() {
    DeleteFileW(path_.c_str());
    EXPECT_TRUE(CreateDirectoryW(path_.c_str(), nullptr));
    EXPECT_TRUE(CopyFileW(host::library_path().c_str(), library().c_str(), TRUE));
    HANDLE file = CreateFileW(manifest().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, kManifest, sizeof kManifest - 1, &written, nullptr));
    CloseHandle(file);
  }
  ~ApplicationFolder() {
    EXPECT_TRUE(DeleteFileW(library().c_str()));
    EXPECT_TRUE(DeleteFileW(manifest().c_str()));
    EXPECT_TRUE(RemoveDirectoryW(path_.c_str()));
  }
  ApplicationFolder(const ApplicationFolder&) = delete;
  ApplicationFolder& operator=(const ApplicationFolder&) = delete;

  [[nodiscard]] const std::wstring& path() const { return path_; }
  [[nodiscard]] std::wstring library() const { return path_ + L"\\VelmoSAV_DLL14.dll"; }
  [[nodiscard]] std::wstring manifest() const { return path_ + L"\\essai.manifest"; }

 private:
  std::wstring path_ = host::make_temporary_file();
};

/// The library is not registered while a test runs, and registered afterwards.
class ActivationContext : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(S_OK, Library().unregister_server());
    CoFreeUnusedLibrariesEx(0, 0);  // the DLL that is registered, should an earlier test have left it loaded
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    const std::wstring manifest = folder_.manifest();
    description.lpSource = manifest.c_str();
    description.lpAssemblyDirectory = folder_.path().c_str();
    context_ = CreateActCtxW(&description);
    ASSERT_NE(INVALID_HANDLE_VALUE, context_) << GetLastError();
    active_ = ActivateActCtx(context_, &cookie_);
    ASSERT_TRUE(active_);
  }

  void TearDown() override {
    CoFreeUnusedLibrariesEx(0, 0);
    if (active_) DeactivateActCtx(0, cookie_);
    if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
    EXPECT_EQ(S_OK, Library().register_server());
  }

  ApplicationFolder folder_;

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

TEST_F(ActivationContext, Registry_HoldsNoClass) {
  EXPECT_FALSE(host::class_key_exists(L"VelmoSAV_DLL14.ContratDoc"));
  EXPECT_FALSE(host::class_key_exists(L"CLSID\\" + host::guid_text(__uuidof(::ContratDoc))));
}

TEST_F(ActivationContext, CLSIDFromProgID_EveryClass_IsCreatedByItsName) {
  for (const host::CatalogueEntry& entry : host::catalogue()) {
    // The platform answers with a class identifier of its own that stands for the class of the manifest.
    const auto object = host::create_dispatch(entry.name);
    ComPtr<IDispatch> own;
    ASSERT_TRUE(object) << host::utf8(entry.name);
    EXPECT_EQ(S_OK, object->QueryInterface(entry.iid, own.receive_void())) << host::utf8(entry.name);
  }
}

TEST_F(ActivationContext, CoCreateInstance_EveryClass_IsCreated) {
  for (const host::CatalogueEntry& entry : host::catalogue()) {
    ComPtr<IDispatch> object;
    EXPECT_EQ(S_OK,
              CoCreateInstance(entry.clsid, nullptr, CLSCTX_INPROC_SERVER, entry.iid, object.receive_void()))
        << host::utf8(entry.name);
  }
}

TEST_F(ActivationContext, CoCreateInstance_LoadsTheDllBesideTheManifest) {
  const auto article = host::create_dispatch(L"Article");
  wchar_t loaded[MAX_PATH] = L"";
  GetModuleFileNameW(GetModuleHandleW(L"VelmoSAV_DLL14.dll"), loaded, MAX_PATH);
  EXPECT_EQ(0, lstrcmpiW(folder_.library().c_str(), loaded)) << host::utf8(loaded);
}

TEST_F(ActivationContext, Invoke_ByName_Works) {
  const auto article = host::create_dispatch(L"Article");
  Variant value;
  ASSERT_EQ(S_OK, host::get_property(article.get(), L"PC_TARIF_TTC", value.receive()));
  EXPECT_EQ(L"T", host::get(value.get().bstrVal));
}

TEST_F(ActivationContext, LoadRegTypeLib_TypeLibrary_IsFound) {
  ComPtr<ITypeLib> found;
  EXPECT_EQ(S_OK, LoadRegTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, LOCALE_NEUTRAL, found.receive()));
}

TEST_F(ActivationContext, GetRecordInfoFromGuids_RecordOfTheLibrary_IsFound) {
  ComPtr<IRecordInfo> record;
  const GUID contract = {0xDDBD02C8, 0xF90E, 0x401B, {0x90, 0xB0, 0x33, 0x66, 0x0F, 0x1A, 0x83, 0x85}};
  EXPECT_EQ(S_OK,
            GetRecordInfoFromGuids(LIBID_VelmoSAV_DLL14, 1, 0, LOCALE_NEUTRAL, contract, record.receive()));
}

}  // namespace

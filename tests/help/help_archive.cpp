#include "help/help_archive.h"

#include <cstring>

namespace host {

/// The platform's interface to such files; the toolchain's headers do not have it. (In an unnamed namespace
/// the compiler would take it for a class that nobody implements.)
struct HelpStorage : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE StgCreateDocfile(const WCHAR*, DWORD, DWORD, IStorage**) = 0;
  virtual HRESULT STDMETHODCALLTYPE StgCreateDocfileOnILockBytes(ILockBytes*, DWORD, DWORD, IStorage**) = 0;
  virtual HRESULT STDMETHODCALLTYPE StgIsStorageFile(const WCHAR*) = 0;
  virtual HRESULT STDMETHODCALLTYPE StgIsStorageILockBytes(ILockBytes*) = 0;
  virtual HRESULT STDMETHODCALLTYPE StgOpenStorage(const WCHAR* path, IStorage* priority, DWORD mode,
                                                   SNB exclude, DWORD reserved, IStorage** storage) = 0;
};

namespace {

constexpr CLSID kHelpStorage = {0x5D02926A, 0x212E, 0x11D0, {0x9D, 0xF9, 0x00, 0xA0, 0xC9, 0x22, 0xE6, 0xEC}};
constexpr IID kHelpStorageInterface = {
    0x88CC31DE, 0x27AB, 0x11D0, {0x9D, 0xF9, 0x00, 0xA0, 0xC9, 0x22, 0xE6, 0xEC}};

DWORD word_at(const std::string& data, std::size_t offset) {
  DWORD value = 0;
  std::memcpy(&value, data.data() + offset, sizeof value);
  return value;
}

}  // namespace

HelpArchive::HelpArchive(const wchar_t* path) {
  ComPtr<HelpStorage> reader;
  EXPECT_EQ(S_OK, CoCreateInstance(kHelpStorage, nullptr, CLSCTX_INPROC_SERVER, kHelpStorageInterface,
                                   reader.receive_void()));
  if (!reader) return;
  EXPECT_EQ(S_OK, reader->StgOpenStorage(path, nullptr, STGM_READ | STGM_SHARE_DENY_WRITE, nullptr, 0,
                                         storage_.receive()));
}

ComPtr<IStream> HelpArchive::open(const std::string& name) const {
  ComPtr<IStream> stream;
  const std::wstring wide(name.begin(), name.end());
  if (storage_) storage_->OpenStream(wide.c_str(), nullptr, STGM_READ, 0, stream.receive());
  return stream;
}

bool HelpArchive::has(const std::string& name) const { return static_cast<bool>(open(name)); }

std::string HelpArchive::read(const std::string& name) const {
  const auto stream = open(name);
  EXPECT_TRUE(stream) << name;
  std::string content;
  char part[4096];
  ULONG count = 0;
  while (stream && SUCCEEDED(stream->Read(part, sizeof part, &count)) && count > 0)
    content.append(part, count);
  return content;
}

std::map<DWORD, std::string> HelpArchive::contexts() const {
  const std::string table = read("#IVB");
  const std::string texts = read("#STRINGS");
  std::map<DWORD, std::string> found;
  for (std::size_t i = 4; i + 8 <= table.size(); i += 8) {
    found.emplace(word_at(table, i), texts.c_str() + word_at(table, i + 4));
  }
  EXPECT_EQ(table.size(), word_at(table, 0) + 4u);
  return found;
}

}  // namespace host

#include "dates/binary_field.h"

#include <string>

#include "automation/fault.h"
#include "automation/late_bound.h"

namespace velmosav {
namespace {

constexpr DWORD kChunk = 50000;

Fault fault_of_file_error(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_INVALID_NAME:
      return Fault::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_DRIVE:
      return Fault::PathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return Fault::PermissionDenied;
    default:
      return Fault::DeviceError;
  }
}

class BinaryFile {
 public:
  explicit BinaryFile(const std::wstring& name)
      : handle_(CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr)) {
    if (handle_ == INVALID_HANDLE_VALUE) raise(fault_of_file_error(GetLastError()));
  }
  ~BinaryFile() { CloseHandle(handle_); }
  BinaryFile(const BinaryFile&) = delete;
  BinaryFile& operator=(const BinaryFile&) = delete;

  [[nodiscard]] long long size() const {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(handle_, &size)) raise(fault_of_file_error(GetLastError()));
    return size.QuadPart;
  }

  /// A byte array of `length` bytes read from here on.
  [[nodiscard]] Variant read(DWORD length) const {
    SAFEARRAY* bytes = SafeArrayCreateVector(VT_UI1, 0, length);
    if (!bytes) raise(E_OUTOFMEMORY);
    Variant chunk;
    chunk.get().vt = VT_ARRAY | VT_UI1;
    chunk.get().parray = bytes;
    DWORD count = 0;
    if (!ReadFile(handle_, bytes->pvData, length, &count, nullptr))
      raise(fault_of_file_error(GetLastError()));
    if (count != length) raise(Fault::DeviceError);
    return chunk;
  }

 private:
  HANDLE handle_;
};

}  // namespace

bool load_file_into_field(IDispatch* field, std::wstring_view file) {
  if (!field || is_blank(file)) return false;
  const BinaryFile source{std::wstring(file)};
  const long long size = source.size();
  if (size == 0) return false;
  const HostMember append(field, L"AppendChunk");
  for (long long left = size; left > 0; left -= kChunk) {
    (void)append.get(source.read(left < kChunk ? static_cast<DWORD>(left) : kChunk));
  }
  return true;
}

}  // namespace velmosav

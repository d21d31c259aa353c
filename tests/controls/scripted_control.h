// Labels, buttons, grids and columns played by scripted objects: what was put stands in the log with its
// type.
#pragma once

#include "support/fake_object.h"

namespace host {

using Log = std::vector<std::wstring>;

/// Uses of a log; fewer where it is shorter.
Log part(const Log& log, std::size_t first, std::size_t count);

/// Type and value as the log shows them: I2 1, I4 1500, R8 2.5, BOOL true, BSTR "texte".
std::wstring shown(const VARIANT& value);

/// A property that reads what was last put; the log tells each value: "put Width I4 1500".
void add_property(const ComPtr<FakeObject>& object, const std::wstring& name, Variant initial = {});

/// Makes each read and put of a member fail with kRefusal.
void refuse_get(const ComPtr<FakeObject>& object, const std::wstring& name);
void refuse_put(const ComPtr<FakeObject>& object, const std::wstring& name);

inline constexpr HRESULT kRefusal = static_cast<HRESULT>(0x80040321UL);
/// `code` is a refusal of refuse_get or refuse_put, with the object's own text.
::testing::AssertionResult is_refusal(HRESULT code);

}  // namespace host

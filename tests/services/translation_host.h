// A host's translation link: a class that can be created by its ProgID while the object lives, and answers
// each identifier as text.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/fake_object.h"

namespace host {

/// What the library asked a link for.
struct Request {
  long identifier;
  VARTYPE type;
};

/// Registers `name`.ClsSAVLinkOCX for this process; the registry is as before when the object goes.
class TranslationHost {
 public:
  explicit TranslationHost(std::wstring name = L"TestHote");
  ~TranslationHost();
  TranslationHost(const TranslationHost&) = delete;
  TranslationHost& operator=(const TranslationHost&) = delete;

  /// Stands before each identifier in the answers.
  std::wstring prefix;
  /// The call, from 1, at which a link fails with kFailure; 0 for never. Counted by `requests`.
  std::size_t fails_at = 0;
  /// The answer instead of the text, where set.
  std::function<Variant(long)> answer;
  /// Links do not know GetTraduction_EXE.
  bool is_mute = false;
  /// The class makes no link.
  bool makes_none = false;

  static constexpr HRESULT kFailure = static_cast<HRESULT>(0x80041234);

  std::vector<Request> requests;
  /// The links made so far. Held here by one reference each: one that the library has released counts 1.
  std::vector<ComPtr<FakeObject>> links;

 private:
  class Factory;
  ComPtr<FakeObject> make_link();
  Variant translate(const FakeObject::Arguments& arguments);

  std::wstring key_;
  ComPtr<IClassFactory> factory_;
  DWORD registration_ = 0;
};

}  // namespace host

// An instance of ClsDLLTrad and the host whose link it creates.
#pragma once

#include "services/translated_members.h"
#include "services/translation_host.h"
#include "support/arguments.h"

namespace host {

using Texts = std::vector<std::wstring>;

class ClsDLLTrad : public ::testing::Test {
 protected:
  HRESULT initialise(const wchar_t* program = L"TestHote") {
    Text name(program);
    const HRESULT code = translation_->DLL_InitialisationTrad(name.in_out());
    EXPECT_EQ(program, name.str());
    return code;
  }
  [[nodiscard]] Texts texts() const { return texts_of(translation_.get()); }
  [[nodiscard]] std::vector<long> identifiers() const {
    std::vector<long> list;
    for (const Request& request : host_.requests) list.push_back(request.identifier);
    return list;
  }
  /// The call that a link's own failure passes through.
  ::testing::AssertionResult fails_like_the_link(HRESULT code, long identifier) const {
    const ErrorReport report = take_error();
    if (code != TranslationHost::kFailure || report.source != L"TestHote" ||
        report.description != L"Texte " + std::to_wstring(identifier) + L" absent") {
      return ::testing::AssertionFailure() << std::hex << static_cast<unsigned long>(code) << ' '
                                           << utf8(report.source) << ": " << utf8(report.description);
    }
    return ::testing::AssertionSuccess();
  }

  TranslationHost host_;
  ComPtr<_ClsDLLTrad> translation_ = create<_ClsDLLTrad>(L"ClsDLLTrad");
};

}  // namespace host

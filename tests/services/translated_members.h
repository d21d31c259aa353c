// The members of ClsDLLTrad with the identifiers of their texts, in the order in which they are fetched.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "support/host.h"

namespace host {

struct TranslatedMember {
  const char* name;
  long identifier;  // 0: a literal that is not fetched
  HRESULT (STDMETHODCALLTYPE _ClsDLLTrad::*get)(BSTR*);
  HRESULT (STDMETHODCALLTYPE _ClsDLLTrad::*put)(BSTR);
};

constexpr std::size_t kMembers = 44;
/// Members that only the initialisation loads stand last.
constexpr std::size_t kReloadedMembers = 40;
constexpr std::size_t kFetches = 43;
constexpr std::size_t kReloadedFetches = 39;

const std::array<TranslatedMember, kMembers>& translated_members();

/// The members' texts once all are fetched from a host that answers with this prefix.
std::vector<std::wstring> expected_texts(const std::wstring& prefix = L"");

/// The members' texts as they are.
std::vector<std::wstring> texts_of(_ClsDLLTrad* translation);

/// Gives every member a text of its own.
void assign_texts(_ClsDLLTrad* translation, const std::wstring& prefix);

}  // namespace host

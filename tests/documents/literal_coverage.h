// Coverage lists, transcribed step by step: an insertion works on a copy of the whole record, texts included.
// The yardstick of the random comparisons: it must never ship, it copies the record at each insertion.
#pragma once

#include "support/literal_fault.h"

#include <optional>
#include <string>

#include "support/records.h"

namespace literal {

/// -1 for a list that was never dimensioned.
int count_articles(const Type_Couverture& coverage);

/// `index`: nothing when it is not given.
void insert_line(host::Record<Type_Couverture>& coverage, std::optional<int> index);

bool contains_article(const Type_Couverture& coverage, const std::wstring& article, std::optional<int> line);

}  // namespace literal

// The figures as a table on the console, as a document and as JSON.
#pragma once

#include <string>

#include "measure.h"

namespace bench {

/// In Markdown: floors and growth, with what holds.
std::string document(const Bench& bench);
std::string json(const Bench& bench);

/// Whether every floor and every growth holds; each that does not is named on the error output.
bool check(const Bench& bench);

}  // namespace bench

// Invoices the maintenance contracts and the interventions of a folder of JSON files.
#include "program.h"

int wmain(int count, wchar_t** values) {
  return facturation::run(std::vector<std::wstring>(values + 1, values + count));
}

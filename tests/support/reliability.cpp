#include "support/reliability.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace host {
namespace {

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') result += '\\';
    result += letter;
  }
  return result + '"';
}

std::string list_of(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts) result += (result.empty() ? "" : ", ") + quoted(text);
  return "[" + result + "]";
}

}  // namespace

bool whole_program_passed() {
  const auto& run = *::testing::UnitTest::GetInstance();
  return run.test_to_run_count() == run.total_test_count() && run.Passed();
}

void write_piece(const std::string& name, const ReliabilityPiece& piece) {
  const char* const folder = std::getenv("SAV_RELIABILITY");
  if (!folder) return;
  std::ofstream file(std::string(folder) + "/" + name + ".json", std::ios::binary);
  file << "{\n\"title\": " << quoted(piece.title) << ",\n\"text\": " << quoted(piece.text)
       << ",\n\"columns\": " << list_of(piece.columns) << ",\n\"rows\": [";
  const char* separator = "\n";
  for (const auto& row : piece.rows) {
    file << separator << list_of(row);
    separator = ",\n";
  }
  file << "\n]\n}\n";
  EXPECT_TRUE(file.good()) << name;
}

}  // namespace host

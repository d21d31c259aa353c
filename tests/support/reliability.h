// A piece of docs/reliability.md: the table that a test program leaves behind.
#pragma once

#include <string>
#include <vector>

namespace host {

/// In UTF-8.
struct ReliabilityPiece {
  std::string title;
  std::string text;  // above the table
  std::vector<std::string> columns;
  std::vector<std::vector<std::string>> rows;
};

/// Whether every test of the program was asked for, and none has failed so far: figures of less are none.
bool whole_program_passed();

/// Writes "<name>.json" to the folder that the environment variable SAV_RELIABILITY names, nothing where it
/// names none; a file that cannot be written fails the test.
void write_piece(const std::string& name, const ReliabilityPiece& piece);

}  // namespace host

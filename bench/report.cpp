#include "report.h"

#include <cstdarg>
#include <cstdio>

namespace bench {
namespace {

__attribute__((format(gnu_printf, 1, 2))) std::string format(const char* pattern, ...) {
  char text[400];
  va_list arguments;
  va_start(arguments, pattern);
  __mingw_vsnprintf(text, sizeof text, pattern, arguments);
  va_end(arguments);
  return text;
}

std::string number(double value) {
  if (value >= 100 || value <= -100) return format("%.0f", value);
  return value >= 10 || value <= -10 ? format("%.1f", value) : format("%.2f", value);
}

std::string time_text(double nanoseconds) {
  if (nanoseconds < 1e3) return number(nanoseconds) + " ns";
  if (nanoseconds < 1e6) return number(nanoseconds / 1e3) + " us";
  if (nanoseconds < 1e9) return number(nanoseconds / 1e6) + " ms";
  return number(nanoseconds / 1e9) + " s";
}

std::string bound_text(const Floor& floor) {
  if (floor.bound == Bound::AtLeast) return "at least " + format("%g", floor.limit) + "x";
  if (floor.bound == Bound::AtMost) return "at most " + format("%g", floor.limit) + "x";
  return "at most " + format("%g", floor.limit) + " ns more";
}

std::string value_text(const Floor& floor, double value) {
  return number(value) + (floor.bound == Bound::AtMostMore ? " ns" : "x");
}

const char* verdict(bool holds) { return holds ? "yes" : "**no**"; }

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string comparisons_table(const Bench& bench) {
  std::string text =
      "| work | against | floor | measured | spread | library | peer | holds |\n"
      "| --- | --- | --- | --- | --- | --- | --- | --- |\n";
  for (const Comparison& row : bench.comparisons()) {
    const Floor& floor = *row.floor;
    text += "| " + std::string(floor.work) + " | " + std::string(floor.against) + " | " + bound_text(floor) +
            " | " + value_text(floor, row.median) + " | " + value_text(floor, row.lowest) + " to " +
            value_text(floor, row.highest) + " | " + time_text(row.library) + " | " + time_text(row.peer) +
            " | " + verdict(row.holds()) + " |\n";
  }
  return text;
}

std::string growth_table(const Bench& bench) {
  std::string text =
      "| work | N | at N | at 4N | at 16N | over N log N | holds |\n"
      "| --- | --- | --- | --- | --- | --- | --- |\n";
  for (const Growth& row : bench.growths()) {
    text += "| " + row.work + " | " + std::to_string(row.size) + " | " + time_text(row.times[0]) + " | " +
            time_text(row.times[1]) + " | " + time_text(row.times[2]) + " | " + number(row.excess()) +
            "x | " + verdict(row.holds()) + " |\n";
  }
  return text;
}

}  // namespace

std::string document(const Bench& bench) {
  return "# Performance\n\n"
         "Printed by `./sav bench`; `./sav bench --check` fails where a floor does not hold. Each row "
         "measures the\n"
         "library through COM and its peer in the same process, one after the other, in " +
         std::to_string(bench.rounds()) +
         " rounds: \"measured\" is the\n"
         "median of the rounds' ratios and \"spread\" their extremes. The times of one machine mean little: "
         "the\n"
         "ratios count.\n\n"
         "- *at least*: the peer's time over the library's; *at most*: the library's over the peer's.\n"
         "- *literal algorithm*: the rule transcribed step by step, compiled with the same flags; the tests "
         "compare\n"
         "  the library's answers with it on random input.\n"
         "- *platform date route*: `VarDateFromStr`, then `VarFormat` of the date.\n"
         "- *bare DOM*: a document of a class factory that is kept loads the text, selects the root and "
         "serialises\n"
         "  it, with nothing added.\n"
         "- *the same texts made with nothing but the DOM*: every call's document, load, selection, new "
         "elements and\n"
         "  serialisation, made directly, on the texts of two invoices in turn; its texts are compared with "
         "the\n"
         "  library's. The demonstration host is the whole program: data files read and checked, schedules "
         "built, lines\n"
         "  grouped, invoice files written, summary printed.\n\n"
         "## Floors\n\n" +
         comparisons_table(bench) +
         "\n## Growth\n\n"
         "The library's time at N, 4N and 16N. \"Over N log N\" is the growth from N to 16N divided by that "
         "of\n"
         "N log N; up to " +
         format("%g", kGrowthTolerance) +
         "x holds, since larger tables leave the processor's caches (N squared would be 12x).\n\n" +
         growth_table(bench) +
         "\n## What it means for a host\n\n"
         "- Call late-bound where that is convenient: the cost is that of a table look-up, not of the "
         "platform's\n"
         "  description of types. A host that calls often keeps the dispatch identifiers.\n"
         "- Creating an object costs little, keeping it costs nothing: one instance per class serves a whole "
         "run.\n"
         "- Pass whole schedules and grids: each rule walks them once. No rule copies a contract.\n"
         "- An invoice travels as text: each call that adds to it loads and serialises what is there. A "
         "call's cost\n"
         "  grows with the invoice, that of an invoice of n calls with n times its length, as it does for "
         "the bare\n"
         "  DOM. Keep invoices as short as the grouping makes them, and add an instalment with one call.\n";
}

std::string json(const Bench& bench) {
  std::string text = "{\n  \"rounds\": " + std::to_string(bench.rounds()) + ",\n  \"floors\": [";
  const char* separator = "\n";
  for (const Comparison& row : bench.comparisons()) {
    text += separator;
    text +=
        "    {\"id\": " + quoted(row.floor->id) +
        format(
            ", \"limit\": %g, \"median\": %.4g, \"lowest\": %.4g, \"highest\": %.4g, \"library_ns\": %.4g, "
            "\"peer_ns\": %.4g, \"holds\": %s}",
            row.floor->limit, row.median, row.lowest, row.highest, row.library, row.peer,
            row.holds() ? "true" : "false");
    separator = ",\n";
  }
  text += "\n  ],\n  \"growth\": [";
  separator = "\n";
  for (const Growth& row : bench.growths()) {
    text += separator;
    text += "    {\"work\": " + quoted(row.work) +
            format(", \"size\": %ld, \"ns\": [%.4g, %.4g, %.4g], \"over_n_log_n\": %.3g, \"holds\": %s}",
                   row.size, row.times[0], row.times[1], row.times[2], row.excess(),
                   row.holds() ? "true" : "false");
    separator = ",\n";
  }
  return text + "\n  ]\n}\n";
}

bool check(const Bench& bench) {
  bool all = true;
  for (const Comparison& row : bench.comparisons()) {
    if (row.holds()) continue;
    all = false;
    std::fprintf(stderr, "bench: %s: %s, %s\n", std::string(row.floor->id).c_str(),
                 value_text(*row.floor, row.median).c_str(), bound_text(*row.floor).c_str());
  }
  for (const Growth& row : bench.growths()) {
    if (row.holds()) continue;
    all = false;
    std::fprintf(stderr, "bench: growth of %s: %sx over N log N\n", row.work.c_str(),
                 number(row.excess()).c_str());
  }
  return all;
}

}  // namespace bench

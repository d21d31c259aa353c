#include "memory/watch.h"

namespace host {

void Watch::add(Text& text) {
  const std::string name = argument_name();
  comparisons_.push_back([before = text.str(), &text, name](std::vector<std::string>& changes) {
    if (before != text.str()) changes.push_back(name + ": " + utf8(before) + " / " + utf8(text.str()));
  });
}

void Watch::add(Variant& value) {
  const std::string name = argument_name();
  comparisons_.push_back([before = describe(value.get()), &value, name](std::vector<std::string>& changes) {
    const std::string after = describe(value.get());
    if (before != after) changes.push_back(name + ": " + before + " / " + after);
  });
}

void Watch::add(Grid& grid) {
  const std::string name = argument_name();
  comparisons_.push_back([before = grid.content(), &grid, name](std::vector<std::string>& changes) {
    const auto after = grid.content();
    if (before.size() != after.size()) {
      changes.push_back(name + ": other bounds");
      return;
    }
    for (std::size_t i = 0; i < before.size(); ++i) {
      if (before[i] != after[i])
        changes.push_back(name + ", line " + std::to_string(i) + ": " + before[i] + " / " + after[i]);
    }
  });
}

}  // namespace host

#pragma once

// The table of all figures, as JSON and as Markdown.

#include <optional>
#include <string>
#include <vector>

namespace quindle::bench {

struct TableRow {
  std::string group;  // Heading under which the row stands.
  std::string name;   // What was measured.
  double value = 0;
  std::string unit;           // For example "ms"; empty for a ratio.
  std::optional<double> aim;  // At most this much was aimed for.
};

// True when there is no aim, or the value is within it.
bool IsWithinAim(const TableRow& row);

// An array of objects with the members "group", "name", "value", "unit", and, where there is an
// aim, "aim" and "met".
std::string TableAsJson(const std::vector<TableRow>& rows);

// A heading and a table for each group, in the order in which they come first.
std::string TableAsMarkdown(const std::vector<TableRow>& rows);

}  // namespace quindle::bench

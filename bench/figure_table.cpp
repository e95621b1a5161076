#include "figure_table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace quindle::bench {
namespace {

// Three significant digits, and no fewer than the whole number has.
std::string NumberText(double value) {
  const double size = std::abs(value);
  const int decimals = size >= 100 ? 0 : size >= 10 ? 1 : 2;
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

std::string AimText(const TableRow& row) {
  if (!row.aim) {
    return "| |";
  }
  return "| " + NumberText(*row.aim) + " | " + (IsWithinAim(row) ? "met" : "**missed**");
}

std::string RowText(const TableRow& row) {
  return "| " + row.name + " | " + NumberText(row.value) +
         (row.unit.empty() ? "" : " " + row.unit) + " " + AimText(row) + " |\n";
}

std::vector<std::string> GroupsOf(const std::vector<TableRow>& rows) {
  std::vector<std::string> groups;
  for (const TableRow& row : rows) {
    if (std::find(groups.begin(), groups.end(), row.group) == groups.end()) {
      groups.push_back(row.group);
    }
  }
  return groups;
}

}  // namespace

bool IsWithinAim(const TableRow& row) {
  return !row.aim || row.value <= *row.aim;
}

std::string TableAsJson(const std::vector<TableRow>& rows) {
  nlohmann::ordered_json table = nlohmann::ordered_json::array();
  for (const TableRow& row : rows) {
    nlohmann::ordered_json object{
        {"group", row.group}, {"name", row.name}, {"value", row.value}, {"unit", row.unit}};
    if (row.aim) {
      object["aim"] = *row.aim;
      object["met"] = IsWithinAim(row);
    }
    table.push_back(object);
  }
  return table.dump(2) + '\n';
}

std::string TableAsMarkdown(const std::vector<TableRow>& rows) {
  std::string text;
  for (const std::string& group : GroupsOf(rows)) {
    text += (text.empty() ? "## " : "\n## ") + group +
            "\n\n| | Measured | Aim | |\n|---|---|---|---|\n";
    for (const TableRow& row : rows) {
      text += row.group == group ? RowText(row) : "";
    }
  }
  return text;
}

}  // namespace quindle::bench

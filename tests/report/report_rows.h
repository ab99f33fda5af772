#pragma once

#include <array>

namespace report_tests {

/// A row of the report before the first run.
struct Row {
  const char* Title;
  const char* Font;
  bool Bold;
  bool Underline;
  const char* Value;
};

inline constexpr std::array<Row, 23> Rows = {{
    {"Used filter string:", "Verdana", true, false, "- - - -"},
    {"Destination adress:", "Verdana", true, false, "- - - -"},
    {"Source adress:", "Verdana", true, false, "- - - -"},
    {"Ethertype:", "Verdana", false, false, "- - - -"},
    {"AppID:", "Verdana", true, false, "- - - -"},
    {"ASDU:", "Verdana", false, false, "- - - -"},
    {"ASDU 1:", "Verdana", false, false, "- - - -"},
    {"ID:", "Verdana", true, false, "- - - -"},
    {"Sample Count:", "Verdana", false, false, "- - - -"},
    {"Sample Sync:", "Verdana", true, false, "- - - -"},
    {" ", "Verdana", false, false, ""},
    {" ", "Verdana", false, false, ""},
    {"Complete packet:", "Verdana", false, true, "- - - -"},
    {" ", "Courier New", false, false, ""},
    {" ", "Courier New", false, false, ""},
    {" ", "Courier New", false, false, ""},
    {" ", "Courier New", false, false, ""},
    {" ", "Courier New", false, false, ""},
    {" ", "Courier New", false, false, ""},
    {" ", "Courier New", false, false, ""},
    {" ", "Courier New", false, false, ""},
    {" ", "Courier New", false, false, ""},
    {" ", "Courier New", false, false, ""},
}};

}  // namespace report_tests

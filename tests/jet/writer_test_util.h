#pragma once

// Helpers of the Jet writer tests: reading written files back with this
// library and with mdbtools, and comparing files byte for byte.

#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "kvdao/jet/jet.h"

namespace kvdao::jet::writer_check {

inline FieldInfo Field(const std::string& name, int type, long size = 0, bool required = false, bool zero_length = false) {
  FieldInfo field;
  field.name = name;
  field.type = type;
  field.size = size;
  field.attributes = dbVariableField;
  field.required = required;
  field.allow_zero_length = zero_length;
  return field;
}

inline IndexInfo PrimaryKey(const std::string& field) {
  IndexInfo index;
  index.name = "PrimaryKey";
  index.fields.push_back({field, false});
  index.primary = index.unique = index.required = true;
  return index;
}



// Standard output of a command, or nullopt when it cannot run.
inline std::optional<std::string> RunTool(const std::string& command) {
  FILE* pipe = ::popen((command + " 2>/dev/null").c_str(), "r");
  if (pipe == nullptr) return std::nullopt;
  std::string out;
  char buffer[4096];
  std::size_t got;
  while ((got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) out.append(buffer, got);
  if (::pclose(pipe) != 0) return std::nullopt;
  return out;
}

inline bool HaveMdbTools() { return RunTool("command -v mdb-export").has_value(); }

inline std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

inline std::vector<std::vector<Variant>> ReadRows(const std::string& path, const std::string& table) {
  Database db;
  db.Open(path);
  Recordset rs = db.OpenTable(table);
  std::vector<std::vector<Variant>> rows;
  while (!rs.IsEOF()) {
    std::vector<Variant> row;
    for (int i = 0; i < rs.GetFieldCount(); ++i) row.push_back(rs.GetFieldValue(i));
    rows.push_back(std::move(row));
    rs.MoveNext();
  }
  return rows;
}

inline std::vector<std::uint8_t> FileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace kvdao::jet::writer_check

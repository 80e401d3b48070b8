// kvdao jet schema FILE [TABLE]: the fields and indexes of one table or of
// every user table.

#include <iomanip>
#include <ostream>

#include "jet_command.h"

namespace kvdao::cli {
namespace {

void PrintTable(std::ostream& out, const jet::TableDef& def) {
  out << "TABLE " << Cp1252ToUtf8(def.name) << " (" << def.record_count << " records)\n";
  out << "  " << std::left << std::setw(28) << "FIELD" << std::setw(14) << "TYPE" << std::setw(7) << "SIZE"
      << std::setw(10) << "REQUIRED" << "ALLOW_ZERO_LENGTH\n";
  for (const jet::FieldInfo& field : def.fields) {
    std::string type = std::to_string(field.type) + " " + jet::DaoTypeName(field.type);
    out << "  " << std::setw(28) << Cp1252ToUtf8(field.name) << std::setw(14) << type << std::setw(7)
        << field.size << std::setw(10) << (field.required ? "yes" : "no")
        << (field.allow_zero_length ? "yes" : "no") << "\n";
  }
  for (const jet::IndexInfo& index : def.indexes) {
    out << "  INDEX " << Cp1252ToUtf8(index.name) << " (";
    for (std::size_t i = 0; i < index.fields.size(); ++i) {
      out << (i > 0 ? ", " : "") << Cp1252ToUtf8(index.fields[i].name) << (index.fields[i].descending ? " DESC" : "");
    }
    out << ")";
    if (index.primary) out << " primary";
    if (index.unique) out << " unique";
    if (index.foreign) out << " foreign";
    if (index.required) out << " required";
    if (index.ignore_nulls) out << " ignore-nulls";
    out << "\n";
  }
}

}  // namespace

int RunJetSchema(CommandContext& context) {
  if (int status = RejectExtraArguments(context, "jet schema", 2); status != kExitOk) return status;
  if (context.args.empty()) {
    context.err << "kvdao jet schema: missing database file\n";
    return kExitUsage;
  }
  jet::Database database;
  if (!OpenJetDatabase(context, context.args[0], database)) return kExitFailure;
  if (context.args.size() == 2) {
    PrintTable(context.out, database.GetTableDef(context.args[1]));
    return kExitOk;
  }
  bool first = true;
  for (const std::string& name : database.GetTableNames()) {
    if (!first) context.out << "\n";
    PrintTable(context.out, database.GetTableDef(name));
    first = false;
  }
  return kExitOk;
}

}  // namespace kvdao::cli

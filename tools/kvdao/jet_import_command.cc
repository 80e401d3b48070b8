// kvdao jet import FILE TABLE DATA.csv [--types COLUMN:TYPE,...]
// [--primary-key COLUMN]: adds a table filled from a CSV file (header line,
// UTF-8) to a Jet 4 database, creating the database when it does not exist.
// Column types are inferred unless given; --primary-key adds the unique
// index "PrimaryKey" on one column. A table that exists is refused and the
// file is left as it was; so is a file whose import fails half-way.
// Progress goes to standard error for long imports.

#include <sys/stat.h>
#include <unistd.h>

#include <ostream>

#include "column_type_inference.h"
#include "csv_table.h"
#include "jet_command.h"
#include "kvdao/jet/jet.h"
#include "kvdao/platform/atomic_file.h"
#include "kvdao/platform/code_page.h"

namespace kvdao::cli {
namespace {

constexpr std::size_t kProgressRows = 100000;

std::string Cp1252(std::string_view utf8) {
  std::string out;
  platform::Cp1252FromUtf8(utf8, out);
  return out;
}

}  // namespace

int RunJetImport(CommandContext& context) {
  std::string types_text, key_column;
  bool missing = false;
  TakeOption(context.args, "--types", types_text, missing);
  TakeOption(context.args, "--primary-key", key_column, missing);
  if (missing) {
    context.err << "kvdao jet import: --types and --primary-key need a value\n";
    return kExitUsage;
  }
  if (int status = RejectExtraArguments(context, "jet import", 3); status != kExitOk) return status;
  if (context.args.size() < 3) {
    context.err << "kvdao jet import: needs a database file, a table name and a CSV file\n";
    return kExitUsage;
  }
  const std::string& path = context.args[0];
  const std::string table_name = Cp1252(context.args[1]);
  struct stat existing {};
  const bool add_to_existing = ::stat(path.c_str(), &existing) == 0;
  std::string text;
  if (!platform::ReadFileContents(context.args[2], text)) {
    context.err << "kvdao jet import: cannot read " << context.args[2] << "\n";
    return kExitFailure;
  }
  try {
    CsvTable csv = CsvTable::Parse(text);
    std::map<std::string, int> given = ParseTypeList(types_text);
    std::vector<int> types;
    jet::TableDef def;
    def.name = table_name;
    for (std::size_t c = 0; c < csv.columns().size(); ++c) {
      auto found = given.find(csv.columns()[c]);
      ImportColumnType type = found != given.end() ? GivenColumnType(csv, c, found->second) : InferColumnType(csv, c);
      if (found != given.end()) given.erase(found);
      jet::FieldInfo field;
      field.name = Cp1252(csv.columns()[c]);
      field.type = type.dao_type;
      field.size = type.dao_type == dbText ? std::max(1, std::min(255, type.max_length)) : 0;
      field.attributes = jet::dbVariableField;
      field.ordinal_position = static_cast<int>(c);
      field.allow_zero_length = type.dao_type == dbText || type.dao_type == dbMemo;
      field.required = csv.columns()[c] == key_column;
      def.CreateField(field);
      types.push_back(type.dao_type);
    }
    if (!given.empty()) {
      context.err << "kvdao jet import: --types names column '" << given.begin()->first
                  << "', which the CSV file does not have\n";
      return kExitUsage;
    }
    if (!key_column.empty()) {
      jet::IndexInfo key;
      key.name = "PrimaryKey";
      key.fields.push_back({Cp1252(key_column), false});
      key.primary = key.unique = key.required = true;
      def.CreateIndex(key);
    }
    jet::Database db;
    if (add_to_existing) {
      db.Open(path, false, false);
    } else {
      db = jet::Database::Create(path);
    }
    db.Append(def);
    jet::Recordset rs = db.OpenTable(table_name);
    const bool progress = ::isatty(STDERR_FILENO) != 0 && csv.row_count() >= kProgressRows;
    for (std::size_t r = 0; r < csv.row_count(); ++r) {
      rs.AddNew();
      for (std::size_t c = 0; c < types.size(); ++c) {
        rs.SetFieldValue(static_cast<int>(c), ConvertField(csv.Field(r, c), types[c]));
      }
      rs.Update();
      if (progress && (r + 1) % kProgressRows == 0) {
        context.err << "\rkvdao jet import: " << (r + 1) << " of " << csv.row_count() << " rows" << std::flush;
      }
    }
    if (progress) context.err << "\n";
    rs.Close();
    db.Close();
    context.out << csv.row_count() << " rows imported into " << context.args[1] << "\n";
    return kExitOk;
  } catch (const CsvError& error) {
    context.err << "kvdao jet import: " << context.args[2] << ": " << error.what() << "\n";
  } catch (const ColumnTypeError& error) {
    context.err << "kvdao jet import: " << error.what() << "\n";
  }
  return kExitFailure;
}

}  // namespace kvdao::cli

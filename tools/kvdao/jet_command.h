#pragma once

// kvdao jet: reads and writes Access (Jet) databases. The sub-commands live in files of
// their own; this header is what they share.

#include "cli.h"
#include "kvdao/jet/database.h"

namespace kvdao::cli {

int RunJetCommand(CommandContext& context);
int RunJetTables(CommandContext& context);
int RunJetSchema(CommandContext& context);
int RunJetExport(CommandContext& context);
int RunJetImport(CommandContext& context);

// Removes "NAME VALUE" or "NAME=VALUE" from args into value; missing is set
// when NAME comes last without a value.
bool TakeOption(std::vector<std::string>& args, const std::string& name, std::string& value, bool& missing);

// Opens a database for reading; reports a failure on context.err and
// returns false.
bool OpenJetDatabase(CommandContext& context, const std::string& path, jet::Database& database);

// Code page 1252 text as UTF-8.
std::string Cp1252ToUtf8(std::string_view text);

}  // namespace kvdao::cli

// kvdao jet: dispatches to the jet sub-commands (tables, schema, export, import).

#include <ostream>

#include "jet_command.h"
#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/code_page.h"

namespace kvdao::cli {
namespace {

struct JetSubcommand {
  std::string_view name;
  int (*run)(CommandContext& context);
};

constexpr JetSubcommand kSubcommands[] = {
    {"tables", RunJetTables},
    {"schema", RunJetSchema},
    {"export", RunJetExport},
    {"import", RunJetImport},
};

}  // namespace

std::string Cp1252ToUtf8(std::string_view text) {
  std::string out;
  platform::Utf8From1252(text, out);
  return out;
}

bool OpenJetDatabase(CommandContext& context, const std::string& path, jet::Database& database) {
  try {
    database.Open(path, false, true, "");
    return true;
  } catch (const jet::DaoException& error) {
    context.err << "kvdao jet: cannot open " << path << ": " << error.Description() << "\n";
    return false;
  }
}

bool TakeOption(std::vector<std::string>& args, const std::string& name, std::string& value, bool& missing) {
  for (auto it = args.begin(); it != args.end(); ++it) {
    if (*it == name) {
      if (it + 1 == args.end()) {
        missing = true;
        args.erase(it);
        return false;
      }
      value = *(it + 1);
      args.erase(it, it + 2);
      return true;
    }
    if (it->rfind(name + "=", 0) == 0) {
      value = it->substr(name.size() + 1);
      args.erase(it);
      return true;
    }
  }
  return false;
}

int RunJetCommand(CommandContext& context) {
  if (context.args.empty()) {
    context.err << "kvdao jet: missing sub-command (see 'kvdao jet --help')\n";
    return kExitUsage;
  }
  std::string name = context.args.front();
  for (const JetSubcommand& sub : kSubcommands) {
    if (sub.name != name) continue;
    context.args.erase(context.args.begin());
    try {
      return sub.run(context);
    } catch (const jet::DaoException& error) {
      context.err << "kvdao jet " << name << ": " << error.Description() << "\n";
      return kExitFailure;
    }
  }
  context.err << "kvdao jet: unknown sub-command '" << name << "' (see 'kvdao jet --help')\n";
  return kExitUsage;
}

}  // namespace kvdao::cli

// kvdao jet: dispatches to the jet sub-commands (tables, schema, export).

#include <ostream>

#include "jet_command.h"
#include "kvdao/jet/dao_exception.h"

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
};

constexpr char16_t kCp1252High[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

}  // namespace

std::string Cp1252ToUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char ch : text) {
    auto c = static_cast<unsigned char>(ch);
    char32_t cp = c < 0x80 || c >= 0xA0 ? c : (kCp1252High[c - 0x80] != 0 ? kCp1252High[c - 0x80] : 0xFFFD);
    if (cp < 0x80) {
      out += static_cast<char>(cp);
    } else if (cp < 0x800) {
      out += static_cast<char>(0xC0 | (cp >> 6));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      out += static_cast<char>(0xE0 | (cp >> 12));
      out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
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

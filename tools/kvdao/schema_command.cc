// kvdao schema: prints the sample-list column schema.

#include <iomanip>
#include <ostream>

#include "cli.h"
#include "kvdao/samplelist/schema.h"

namespace kvdao::cli {
namespace {

const char* TypeName(int type) { return type == dbDouble ? "double" : "text"; }

}  // namespace

int RunSchemaCommand(CommandContext& context) {
  bool json = TakeFlag(context.args, "--json");
  if (int status = RejectExtraArguments(context, "schema", 0); status != kExitOk) return status;

  std::ostream& out = context.out;
  if (json) {
    out << "[\n";
    for (int i = 0; i < kSampleColumnCount; ++i) {
      const SampleColumnDef& column = kSampleColumns[i];
      out << "  {\"index\": " << i << ", \"name\": " << JsonString(column.name)
          << ", \"type\": " << column.type << ", \"typeName\": \"" << TypeName(column.type)
          << "\", \"optional\": " << (column.optional != 0 ? "true" : "false") << "}"
          << (i + 1 < kSampleColumnCount ? ",\n" : "\n");
    }
    out << "]\n";
    return kExitOk;
  }
  out << std::left << std::setw(6) << "INDEX" << std::setw(24) << "NAME" << std::setw(12)
      << "TYPE" << "OPTIONAL\n";
  for (int i = 0; i < kSampleColumnCount; ++i) {
    const SampleColumnDef& column = kSampleColumns[i];
    std::string type = std::to_string(column.type) + " " + TypeName(column.type);
    out << std::setw(6) << i << std::setw(24) << column.name << std::setw(12) << type
        << (column.optional != 0 ? "yes" : "no") << "\n";
  }
  return kExitOk;
}

}  // namespace kvdao::cli

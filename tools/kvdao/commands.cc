#include "cli.h"

namespace kvdao::cli {

int RunSchemaCommand(CommandContext& context);

namespace {

constexpr Command kCommands[] = {
    {"schema", "print the 160 sample-list columns",
     "usage: kvdao schema [--json]\n"
     "\n"
     "Prints the sample-list column schema: index, key name, type and whether\n"
     "a database column may be left empty.\n"
     "\n"
     "  --json   one JSON array of {index, name, type, typeName, optional}\n",
     RunSchemaCommand},
};

}  // namespace

std::span<const Command> Commands() { return kCommands; }

}  // namespace kvdao::cli

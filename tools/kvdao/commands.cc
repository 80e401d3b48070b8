#include "cli.h"

namespace kvdao::cli {

int RunSchemaCommand(CommandContext& context);
int RunMethodCommand(CommandContext& context);

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
    {"method", "convert quantify method records between raw and XML form",
     "usage: kvdao method to-xml RAWFILE [XMLFILE]\n"
     "       kvdao method from-xml XMLFILE RAWFILE\n"
     "\n"
     "A raw file is a sequence of 3504-byte method records (docs/method-record.md).\n"
     "\n"
     "  to-xml     writes every record of RAWFILE as a METHODRECORD element under\n"
     "             one METHOD element, to XMLFILE or standard output\n"
     "  from-xml   reads every METHODRECORD element of XMLFILE (the document\n"
     "             element itself or its children) into RAWFILE; fields an\n"
     "             element leaves out get their defaults\n",
     RunMethodCommand},
};

}  // namespace

std::span<const Command> Commands() { return kCommands; }

}  // namespace kvdao::cli

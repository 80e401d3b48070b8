#include "cli.h"

namespace kvdao::cli {

int RunSchemaCommand(CommandContext& context);
int RunMethodCommand(CommandContext& context);
int RunJetCommand(CommandContext& context);
int RunSampleCommand(CommandContext& context);
int RunBatchCommand(CommandContext& context);
int RunMethodFileCommand(CommandContext& context);

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
    {"sample", "show a sample record text file, a legacy .SDB list or the current-sample file",
     "usage: kvdao sample show FILE [--sample N]\n"
     "       kvdao sample show --current\n"
     "\n"
     "Prints the filled fields of a sample, one column name and value a line.\n"
     "A file with a [Batch] section (a current-sample file) shows the batch too.\n"
     "A legacy sample list (a FILE ending in .SDB) shows every sample in it.\n"
     "\n"
     "  --sample N   which sample of a file of several (default 1; all of an .SDB)\n"
     "  --current    the current-sample file, KVCurSmp.txt in KVDAO_HOME\n",
     RunSampleCommand},
    {"batch", "show generic batch files, submit them to a status database, list it",
     "usage: kvdao batch show FILE [--rewrite OUTFILE]\n"
     "       kvdao batch submit FILE LOGIN-PATH [--qc]\n"
     "       kvdao batch status DATABASE [--batch BATCHID]\n"
     "\n"
     "Generic batch files (.xbt) hold a [Batch] section, [Plate:p] sections and\n"
     "[Sample:p:s] / [Compound:p:s] sections (docs/generic-batch.md).\n"
     "\n"
     "  show     the batch, its plates and samples, and how many samples fill\n"
     "           each field; --rewrite writes the batch again in canonical form\n"
     "  submit   records one row a sample in ZQStatus.db beside the login area\n"
     "           (the part of LOGIN-PATH before \"ZQLogin\"); --qc marks the rows\n"
     "           as quality control\n"
     "  status   lists the rows of a status database, optionally of one batch\n",
     RunBatchCommand},
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
    {"method-file", "list, dump as XML or build quantify method files",
     "usage: kvdao method-file list FILE\n"
     "       kvdao method-file dump FILE [XMLFILE]\n"
     "       kvdao method-file build XMLFILE FILE\n"
     "\n"
     "A method file is a record-database file of method records\n"
     "(docs/record-store.md).\n"
     "\n"
     "  list    one line per record: number, name, quantification trace, RT\n"
     "  dump    every record as a METHODRECORD element under one METHOD element,\n"
     "          to XMLFILE or standard output\n"
     "  build   makes FILE hold the METHODRECORD elements of XMLFILE, in order\n"
     "          (fields an element leaves out get their defaults); an existing\n"
     "          method file is replaced in one step, any other file is refused\n",
     RunMethodFileCommand},
    {"jet", "read and write Access (Jet) databases: tables, schema, export, import",
     "usage: kvdao jet tables FILE [--system]\n"
     "       kvdao jet schema FILE [TABLE]\n"
     "       kvdao jet export FILE TABLE [--format csv|jsonl] [--progress|--no-progress]\n"
     "       kvdao jet import FILE TABLE DATA.csv [--types COLUMN:TYPE,...] [--primary-key COLUMN]\n"
     "\n"
     "Reads Jet 3 (Access 97) and Jet 4 (Access 2000-2003) files; writes Jet 4.\n"
     "\n"
     "  tables   user tables, one per line; --system adds the system tables\n"
     "  schema   fields (name, DAO type number and name, size, required, allow\n"
     "           zero length) and indexes of one table or of every user table\n"
     "  export   every record: CSV with a header line and RFC 4180 quoting (NULL\n"
     "           is an empty field, an empty text is \"\"), or JSON lines (one\n"
     "           object per record). Texts are UTF-8, dates YYYY-MM-DDTHH:MM:SS,\n"
     "           currency and decimal exact, binary and OLE base64, booleans\n"
     "           true/false, doubles in the shortest form that reads back exactly.\n"
     "           --progress (the default when standard error is a terminal)\n"
     "           reports progress on standard error.\n"
     "  import   creates FILE (which must not exist) with one table from a CSV\n"
     "           file with a header line (UTF-8; an unquoted empty field is a\n"
     "           null, \"\" an empty text). Types are inferred (Long, Double,\n"
     "           Date/Time, Text) unless given by DAO name: Text, Memo, Double,\n"
     "           Single, Long, Integer, Byte, Boolean, Currency, Date.\n"
     "           --primary-key adds the unique index \"PrimaryKey\" on a column.\n",
     RunJetCommand},
};

}  // namespace

std::span<const Command> Commands() { return kCommands; }

}  // namespace kvdao::cli

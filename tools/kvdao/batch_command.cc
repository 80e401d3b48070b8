// kvdao batch: dispatches to the batch sub-commands (show, submit, status).

#include <ostream>

#include "batch_command.h"

namespace kvdao::cli {
namespace {

struct BatchSubcommand {
  std::string_view name;
  int (*run)(CommandContext& context);
};

constexpr BatchSubcommand kSubcommands[] = {
    {"show", RunBatchShow},
    {"submit", RunBatchSubmit},
    {"status", RunBatchStatus},
};

}  // namespace

bool ReadBatchFile(CommandContext& context, const std::string& path, GenericBatch& batch) {
  if (batch.Read(path, kBatchSeparator) == 0) {
    context.err << "kvdao batch: cannot read " << path
                << " (a negative or impossible count, or a sample without a Well)\n";
    return false;
  }
  return true;
}

std::optional<std::string> TakeOption(std::vector<std::string>& args, std::string_view name) {
  for (std::size_t i = 0; i + 1 < args.size(); ++i) {
    if (args[i] != name) continue;
    std::string value = args[i + 1];
    auto at = args.begin() + static_cast<std::ptrdiff_t>(i);
    args.erase(at, at + 2);
    return value;
  }
  return std::nullopt;
}

int RunBatchCommand(CommandContext& context) {
  if (context.args.empty()) {
    context.err << "kvdao batch: missing sub-command (see 'kvdao batch --help')\n";
    return kExitUsage;
  }
  std::string name = context.args.front();
  for (const BatchSubcommand& sub : kSubcommands) {
    if (sub.name != name) continue;
    context.args.erase(context.args.begin());
    return sub.run(context);
  }
  context.err << "kvdao batch: unknown sub-command '" << name << "'\n";
  return kExitUsage;
}

}  // namespace kvdao::cli

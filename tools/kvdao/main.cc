// kvdao: command-line access to sample lists, batches, methods and the
// databases that hold them.

#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "cli.h"
#include "kvdao/version.h"

namespace {

void PrintHelp(std::ostream& out) {
  out << "usage: kvdao <command> [arguments]\n"
         "       kvdao --help | --version\n"
         "\n"
         "Commands:\n";
  for (const kvdao::cli::Command& command : kvdao::cli::Commands()) {
    out << "  " << command.name << std::string(command.name.size() < 10 ? 10 - command.name.size() : 1, ' ')
        << command.summary << "\n";
  }
  out << "\n'kvdao <command> --help' describes a command.\n";
}

}  // namespace

int main(int argc, char** argv) {
  using namespace kvdao::cli;
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) {
    PrintHelp(std::cerr);
    return kExitUsage;
  }
  const std::string name = args.front();
  if (name == "--help" || name == "-h" || name == "help") {
    PrintHelp(std::cout);
    return kExitOk;
  }
  if (name == "--version") {
    std::cout << "kvdao " << KVDAO_VERSION_STRING << "\n";
    return kExitOk;
  }
  for (const Command& command : Commands()) {
    if (command.name != name) continue;
    CommandContext context{std::vector<std::string>(args.begin() + 1, args.end()), std::cout,
                           std::cerr};
    if (WantsHelp(context.args)) {
      std::cout << command.usage;
      return kExitOk;
    }
    try {
      return command.run(context);
    } catch (const std::exception& error) {
      std::cerr << "kvdao " << name << ": " << error.what() << "\n";
      return kExitFailure;
    }
  }
  std::cerr << "kvdao: unknown command '" << name << "' (see 'kvdao --help')\n";
  return kExitUsage;
}

#pragma once

// The kvdao command-line program's command interface. A sub-command is a
// function that receives its arguments (everything after its name) and the
// output streams, and returns the process exit status. To add one, write its
// run function in a file of its own and list it in commands.cc.

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvdao::cli {

// Exit statuses shared by every sub-command.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;

struct CommandContext {
  std::vector<std::string> args;
  std::ostream& out;
  std::ostream& err;
};

struct Command {
  std::string_view name;
  std::string_view summary;  // one line for the program's --help
  std::string_view usage;    // full help text of the sub-command
  int (*run)(CommandContext& context);
};

std::span<const Command> Commands();

// True when args holds "--help" or "-h".
bool WantsHelp(const std::vector<std::string>& args);

// Removes a flag such as "--json" from args; true when it was there.
bool TakeFlag(std::vector<std::string>& args, std::string_view flag);

// Reports an unexpected argument (an unknown option, or one positional
// argument too many) and returns kExitUsage, or kExitOk when none is left.
int RejectExtraArguments(CommandContext& context, std::string_view command,
                         std::size_t expectedPositional);

// A string as a JSON string literal: quoted, with control characters,
// quotes and backslashes escaped. Bytes are taken as code page 1252 and
// written as UTF-8 (an undefined byte as the C1 control of its number).
std::string JsonString(std::string_view text);

// Appends text that is already UTF-8 as a JSON string literal.
void AppendJsonUtf8(std::string& out, std::string_view utf8);

}  // namespace kvdao::cli

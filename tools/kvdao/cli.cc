#include "cli.h"

#include <algorithm>
#include <ostream>

#include "kvdao/platform/code_page.h"

namespace kvdao::cli {
bool WantsHelp(const std::vector<std::string>& args) {
  return std::any_of(args.begin(), args.end(),
                     [](const std::string& a) { return a == "--help" || a == "-h"; });
}

bool TakeFlag(std::vector<std::string>& args, std::string_view flag) {
  auto found = std::find(args.begin(), args.end(), flag);
  if (found == args.end()) return false;
  args.erase(found);
  return true;
}

int RejectExtraArguments(CommandContext& context, std::string_view command,
                         std::size_t expectedPositional) {
  for (const std::string& arg : context.args) {
    if (arg.size() > 1 && arg[0] == '-') {
      context.err << "kvdao " << command << ": unknown option '" << arg
                  << "' (see 'kvdao " << command << " --help')\n";
      return kExitUsage;
    }
  }
  if (context.args.size() > expectedPositional) {
    context.err << "kvdao " << command << ": unexpected argument '"
                << context.args[expectedPositional] << "' (see 'kvdao " << command
                << " --help')\n";
    return kExitUsage;
  }
  return kExitOk;
}

void AppendJsonUtf8(std::string& out, std::string_view utf8) {
  static const char* const kHex = "0123456789abcdef";
  out += '"';
  for (char ch : utf8) {
    auto c = static_cast<unsigned char>(ch);
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20) {
          out += "\\u00";
          out += kHex[c >> 4];
          out += kHex[c & 15];
        } else {
          out += ch;
        }
    }
  }
  out += '"';
}

std::string JsonString(std::string_view text) {
  std::string utf8;
  platform::Utf8From1252(text, utf8);
  std::string out;
  AppendJsonUtf8(out, utf8);
  return out;
}

}  // namespace kvdao::cli

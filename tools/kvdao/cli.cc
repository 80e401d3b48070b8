#include "cli.h"

#include <algorithm>
#include <ostream>

namespace kvdao::cli {
namespace {

// Unicode code points of bytes 0x80..0x9F in code page 1252 (0 where the
// code page leaves the byte undefined; those bytes map to U+FFFD).
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t cp) {
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

}  // namespace

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

std::string JsonString(std::string_view text) {
  std::string out = "\"";
  for (char ch : text) {
    auto c = static_cast<unsigned char>(ch);
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20) {
          static const char* const kHex = "0123456789abcdef";
          out += "\\u00";
          out += kHex[c >> 4];
          out += kHex[c & 15];
        } else if (c < 0x80) {
          out += static_cast<char>(c);
        } else if (c < 0xA0) {
          char16_t cp = kCp1252High[c - 0x80];
          AppendUtf8(out, cp != 0 ? cp : 0xFFFD);
        } else {
          AppendUtf8(out, c);
        }
    }
  }
  out += '"';
  return out;
}

}  // namespace kvdao::cli

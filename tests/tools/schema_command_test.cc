#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "cli.h"

namespace kvdao::cli {
namespace {

struct CommandRun {
  int status;
  std::string out;
  std::string err;
};

CommandRun RunCommand(std::string_view name, std::vector<std::string> args) {
  std::ostringstream out, err;
  for (const Command& command : Commands()) {
    if (command.name == name) {
      CommandContext context{std::move(args), out, err};
      int status = command.run(context);
      return {status, out.str(), err.str()};
    }
  }
  ADD_FAILURE() << "no command " << name;
  return {-1, "", ""};
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TEST(SchemaCommandTest, TablePrintsEveryColumn) {
  CommandRun run = RunCommand("schema", {});
  ASSERT_EQ(run.status, kExitOk);
  std::vector<std::string> lines = Lines(run.out);
  ASSERT_EQ(lines.size(), 161u);
  EXPECT_EQ(lines[1].substr(0, 14), "0     VERSION ");
  EXPECT_NE(lines[58].find("MASS_A"), std::string::npos);
  EXPECT_NE(lines[58].find("10 text"), std::string::npos);
  EXPECT_NE(lines[160].find("Index"), std::string::npos);
  EXPECT_EQ(lines[160].substr(lines[160].size() - 2), "no");
}

TEST(SchemaCommandTest, JsonHasOneObjectPerColumn) {
  CommandRun run = RunCommand("schema", {"--json"});
  ASSERT_EQ(run.status, kExitOk);
  std::vector<std::string> lines = Lines(run.out);
  ASSERT_EQ(lines.size(), 162u);
  EXPECT_EQ(lines.front(), "[");
  EXPECT_EQ(lines.back(), "]");
  EXPECT_EQ(lines[160],
            "  {\"index\": 159, \"name\": \"Index\", \"type\": 7, \"typeName\": \"double\", "
            "\"optional\": false}");
  EXPECT_EQ(lines[1].back(), ',');
  EXPECT_NE(lines[160].back(), ',');
}

TEST(SchemaCommandTest, UnknownArgumentsAreUsageErrors) {
  CommandRun option = RunCommand("schema", {"--xml"});
  EXPECT_EQ(option.status, kExitUsage);
  EXPECT_NE(option.err.find("--xml"), std::string::npos);
  EXPECT_EQ(RunCommand("schema", {"extra"}).status, kExitUsage);
}

TEST(CliTest, JsonStringsAreUtf8WithEscapes) {
  EXPECT_EQ(JsonString("a\"b\\c\n\x01"), "\"a\\\"b\\\\c\\n\\u0001\"");
  EXPECT_EQ(JsonString("\xb5g/mL \x80 \x81"), "\"\xc2\xb5g/mL \xe2\x82\xac \xc2\x81\"");
}

}  // namespace
}  // namespace kvdao::cli

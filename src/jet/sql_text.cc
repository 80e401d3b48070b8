#include "sql_text.h"

#include <vector>

#include "kvdao/platform/text.h"

namespace kvdao::jet::internal {
namespace {

struct Token {
  std::string text;
  bool bracketed = false;
};

bool Tokenize(std::string_view sql, std::vector<Token>& tokens) {
  std::size_t i = 0;
  while (i < sql.size()) {
    char c = sql[i];
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
      ++i;
    } else if (c == '[') {
      std::size_t end = sql.find(']', i + 1);
      if (end == std::string_view::npos || end == i + 1) return false;
      tokens.push_back({std::string(sql.substr(i + 1, end - i - 1)), true});
      i = end + 1;
    } else if (c == '*' || c == ';') {
      tokens.push_back({std::string(1, c), false});
      ++i;
    } else {
      std::size_t start = i;
      while (i < sql.size() && sql[i] != ' ' && sql[i] != '\t' && sql[i] != '\r' && sql[i] != '\n' &&
             sql[i] != '[' && sql[i] != ';' && sql[i] != '*') {
        ++i;
      }
      tokens.push_back({std::string(sql.substr(start, i - start)), false});
    }
  }
  return true;
}

bool IsKeyword(const Token& token, const char* keyword) {
  return !token.bracketed && platform::CompareNoCase1252(token.text, keyword) == 0;
}

}  // namespace

std::optional<SelectStatement> ParseSelect(std::string_view sql) {
  std::vector<Token> tokens;
  if (!Tokenize(sql, tokens)) return std::nullopt;
  if (!tokens.empty() && tokens.back().text == ";" && !tokens.back().bracketed) tokens.pop_back();
  if (tokens.size() < 4 || !IsKeyword(tokens[0], "SELECT") || tokens[1].text != "*" || tokens[1].bracketed ||
      !IsKeyword(tokens[2], "FROM")) {
    return std::nullopt;
  }
  SelectStatement statement;
  statement.table = tokens[3].text;
  if (tokens.size() == 4) return statement;
  if (tokens.size() < 7 || tokens.size() > 8 || !IsKeyword(tokens[4], "ORDER") || !IsKeyword(tokens[5], "BY")) {
    return std::nullopt;
  }
  statement.order_by = tokens[6].text;
  if (tokens.size() == 8) {
    if (IsKeyword(tokens[7], "DESC")) {
      statement.descending = true;
    } else if (!IsKeyword(tokens[7], "ASC")) {
      return std::nullopt;
    }
  }
  return statement;
}

}  // namespace kvdao::jet::internal

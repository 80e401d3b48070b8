#pragma once

// The SQL this engine understands: "SELECT * FROM <table>", optionally
// followed by "ORDER BY <field> [ASC|DESC]". Names may be bracketed
// ([Sample List]); keywords are case-insensitive; a trailing ';' is allowed.

#include <optional>
#include <string>
#include <string_view>

namespace kvdao::jet::internal {

struct SelectStatement {
  std::string table;
  std::string order_by;  // empty when none
  bool descending = false;
};

// The statement, or nullopt when the text is not of that form.
std::optional<SelectStatement> ParseSelect(std::string_view sql);

}  // namespace kvdao::jet::internal

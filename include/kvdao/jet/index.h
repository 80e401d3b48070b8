#pragma once

// kvdao::jet::IndexInfo: the description of one index of a table, as DAO's
// index object presents it.

#include <string>
#include <vector>

namespace kvdao::jet {

struct IndexField {
  std::string name;
  bool descending = false;
};

struct IndexInfo {
  std::string name;
  std::vector<IndexField> fields;
  bool primary = false;
  bool unique = false;
  bool ignore_nulls = false;
  bool required = false;
  bool foreign = false;
  bool clustered = false;  // accepted as DAO takes it; Jet 4 ignores it
};

}  // namespace kvdao::jet

#pragma once

// Renders the user tables of a Jet database in the text dump format of the
// shared Jet fixtures (one "#TABLE" block per table, values written as the
// Java reader that produced the expected files writes them), so that a test
// can compare what this engine reads with the expected dumps.

#include <string>

#include "kvdao/jet/database.h"

namespace kvdao::jet::test {

// Java's Double.toString / Float.toString of a value.
std::string JavaDouble(double value);
std::string JavaFloat(float value);

// The dump of every user table, in case-insensitive name order.
std::string DumpDatabase(const Database& database);

}  // namespace kvdao::jet::test

#pragma once

// Exceptions shared by every area of the library.

#include <exception>

namespace kvdao {

// Thrown where an operation is asked for something it does not support,
// such as a cell index outside a row.
class NotSupportedException : public std::exception {
 public:
  const char* what() const noexcept override { return "operation not supported"; }
};

}  // namespace kvdao

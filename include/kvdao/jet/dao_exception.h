#pragma once

// kvdao::jet::DaoException: every failure of the Jet engine (a file that is
// not a Jet database, a damaged page, a missing table or field) arrives as
// this exception, carrying the engine's description of what went wrong.

#include <exception>
#include <string>

namespace kvdao::jet {

class DaoException : public std::exception {
 public:
  DaoException() = default;
  explicit DaoException(std::string description) : description_(std::move(description)) {}

  // The engine's description; may be empty.
  const std::string& Description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::string description_;
};

}  // namespace kvdao::jet

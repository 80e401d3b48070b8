#pragma once

// kvdao::jet::Workspace: the engine session that databases are opened in.
// The process shares one (Workspace::Shared()); opening databases through it
// or directly through Database::Open is the same.

#include <string>

#include "kvdao/jet/database.h"

namespace kvdao::jet {

class Workspace {
 public:
  Workspace(std::string name, std::string user, std::string password);

  // The process-wide workspace, created on first use ("#Default Workspace#",
  // user "admin").
  static Workspace& Shared();

  const std::string& Name() const noexcept { return name_; }
  const std::string& UserName() const noexcept { return user_; }

  // Opens a database: path, exclusive flag, read-only flag, connect string
  // (empty for a Jet file).
  Database OpenDatabase(const std::string& path, bool exclusive = false, bool read_only = true,
                        const std::string& connect = std::string()) const;
  // Creates a new Jet 4 database (see Database::Create).
  Database CreateDatabase(const std::string& path, const std::string& locale, int options = 0) const;

 private:
  std::string name_;
  std::string user_;
  std::string password_;
};

}  // namespace kvdao::jet

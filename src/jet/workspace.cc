#include "kvdao/jet/workspace.h"

namespace kvdao::jet {

Workspace::Workspace(std::string name, std::string user, std::string password)
    : name_(std::move(name)), user_(std::move(user)), password_(std::move(password)) {}

Workspace& Workspace::Shared() {
  static Workspace shared("#Default Workspace#", "admin", "");
  return shared;
}

Database Workspace::OpenDatabase(const std::string& path, bool exclusive, bool read_only,
                                 const std::string& connect) const {
  Database database;
  database.Open(path, exclusive, read_only, connect);
  return database;
}

Database Workspace::CreateDatabase(const std::string& path, const std::string& locale, int options) const {
  return Database::Create(path, locale, options);
}

}  // namespace kvdao::jet

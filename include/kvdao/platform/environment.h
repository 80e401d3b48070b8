#pragma once

// The folders that the Windows library took from the system, chosen here by
// the environment. Each is read from the environment on every call (so that
// a process may change it) and created, with its parents, on first use.
//
//  - home: KVDAO_HOME, else $XDG_DATA_HOME/kvdao, else ~/.local/share/kvdao.
//    It stands for the Windows folder: the application profile, the engine
//    registry and the rolling log live there.
//  - temporary: TMPDIR, else /tmp.
//  - project: KVDAO_PROJECT, else <home>/project. The current project's
//    folder, under which sample lists are saved by default.
//
// Returned folders carry no trailing separator. When a folder cannot be
// created the path is still returned; the operation that uses it reports the
// failure.

#include <string>
#include <string_view>

namespace kvdao::platform {

std::string GetHomeDirectory();
std::string GetTempDirectory();
std::string GetProjectDirectory();

// Creates a folder and its parents; true when it exists afterwards.
bool MakeDirectories(std::string_view path);

}  // namespace kvdao::platform

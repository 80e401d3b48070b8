#pragma once

// Initialisation files ("private profiles"): text files of "[section]"
// lines followed by "key=value" lines, as the Windows profile functions read
// and write them. Generic batch files, Schema.INI, the application profile
// and the sample record's text form all go through here.
//
// Reading:
//  - sections and keys match without regard to case (code page 1252), and
//    the first matching section and the first matching key in it win;
//  - blanks around keys and values are dropped, and a value enclosed in a
//    pair of double or single quotes loses them;
//  - a missing file, section or key gives the caller's default;
//  - both "\n" and "\r\n" line ends are read.
// A file is parsed once and served from memory; every look-up checks (one
// stat call) whether the file changed on disk since, and parses it again
// only then. Look-ups and writes are safe from several threads. A reader
// that looks up many keys of one file in one go holds a ProfileSnapshot,
// which spares it that check for each key.
//
// Writing replaces or adds one key (creating the section, or the file, as
// needed) and leaves every other line exactly as it was. The file is never
// edited in place: a new file is written beside it and renamed over it. New
// lines end with "\n".

#include <cstddef>
#include <string>
#include <vector>

namespace kvdao::platform {

// The value of `key` in `section`, or `defaultValue` (which may be null, for
// empty) when there is none. With a `bufferSize`, at most bufferSize - 1
// characters are returned, as a Windows buffer of that size would hold.
std::string GetPrivateProfileString(const char* section, const char* key,
                                    const char* defaultValue, const std::string& path);
std::string GetPrivateProfileString(const char* section, const char* key,
                                    const char* defaultValue, std::size_t bufferSize,
                                    const std::string& path);

// The value as an integer: `defaultValue` when the key is missing; else the
// leading decimal number of the value (an optional sign and digits; "0x"
// introduces hexadecimal), 0 when it starts with no number. Out-of-range
// values wrap to 32 bits as the Windows function's do.
int GetPrivateProfileInt(const char* section, const char* key, int defaultValue,
                         const std::string& path);

// Every key of a section in file order (first occurrences only); empty when
// the section is missing.
std::vector<std::string> GetPrivateProfileKeys(const char* section, const std::string& path);

// Every section name in file order (first occurrences only); empty when the
// file is missing.
std::vector<std::string> GetPrivateProfileSectionNames(const std::string& path);
// Their number, without copying them.
std::size_t GetPrivateProfileSectionCount(const std::string& path);

// Sets `key` in `section` to `value`. A null value removes the key; a null
// key removes the whole section. Returns false when the file could not be
// written (the old file is then untouched).
bool WritePrivateProfileString(const char* section, const char* key, const char* value,
                               const std::string& path);

// While a snapshot lives, look-ups of `path` on the constructing thread are
// served from the file as it was parsed when the snapshot was taken, without
// asking the disk again for each key; writes to `path` from this thread are
// seen at once. Snapshots nest and must be destroyed in reverse order of
// construction (hold them as locals).
class ProfileSnapshot {
 public:
  explicit ProfileSnapshot(const std::string& path);
  ~ProfileSnapshot();
  ProfileSnapshot(const ProfileSnapshot&) = delete;
  ProfileSnapshot& operator=(const ProfileSnapshot&) = delete;

  struct Pin;  // the held file; defined inside the library

 private:
  Pin* pin_;
};

}  // namespace kvdao::platform

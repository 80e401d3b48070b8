#pragma once

// An initialisation file parsed into memory: its lines as they stand, and an
// index of the first occurrence of every section and key (folded to lower
// case) for look-ups. Internal to the profile component.

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kvdao::platform {

class IniDocument {
 public:
  IniDocument() = default;
  explicit IniDocument(std::string_view text);

  // The trimmed (and unquoted) value of a key, if the section and key exist.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;
  std::vector<std::string> Keys(std::string_view section) const;
  std::vector<std::string> SectionNames() const;

  // Editing, as the profile writer needs it. A null key removes the section,
  // a null value the key.
  void Set(std::string_view section, const char* key, const char* value);
  std::string Text() const;

 private:
  struct Line {
    std::string text;    // without its line end
    std::string ending;  // "\n", "\r\n" or "" for a last line without one
  };
  struct Section {
    std::size_t headerLine;
    std::size_t endLine;  // one past the section's last line
    std::unordered_map<std::string, std::size_t> keys;  // folded key -> line
    std::vector<std::string> keyOrder;
  };

  void Index();
  static std::string Fold(std::string_view text);

  std::vector<Line> lines_;
  std::unordered_map<std::string, Section> sections_;
  std::vector<std::size_t> sectionOrder_;  // header lines of first occurrences
};

}  // namespace kvdao::platform

#include "ini_document.h"

#include "kvdao/platform/text.h"

namespace kvdao::platform {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view Unquote(std::string_view value) {
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
      value.back() == value.front()) {
    return value.substr(1, value.size() - 2);
  }
  return value;
}

// The name of a "[name]" line, if the line is one.
std::optional<std::string_view> SectionName(std::string_view line) {
  line = Trim(line);
  if (line.empty() || line.front() != '[') return std::nullopt;
  std::size_t close = line.find(']');
  if (close == std::string_view::npos) return std::nullopt;
  return Trim(line.substr(1, close - 1));
}

// Key and raw value of a "key=value" line, if the line is one.
bool SplitKeyLine(std::string_view line, std::string_view& key, std::string_view& value) {
  std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return false;
  key = Trim(line.substr(0, equals));
  if (key.empty() || key.front() == ';') return false;
  value = Trim(line.substr(equals + 1));
  return true;
}

}  // namespace

IniDocument::IniDocument(std::string_view text) {
  while (!text.empty()) {
    std::size_t newline = text.find('\n');
    Line line;
    if (newline == std::string_view::npos) {
      line.text = std::string(text);
      text = {};
    } else {
      line.text = std::string(text.substr(0, newline));
      line.ending = "\n";
      text.remove_prefix(newline + 1);
    }
    if (!line.ending.empty() && !line.text.empty() && line.text.back() == '\r') {
      line.text.pop_back();
      line.ending = "\r\n";
    }
    lines_.push_back(std::move(line));
  }
  Index();
}

std::string IniDocument::Fold(std::string_view text) { return ToLower1252(text); }

void IniDocument::Index() {
  sections_.clear();
  sectionOrder_.clear();
  Section* current = nullptr;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (auto name = SectionName(lines_[i].text)) {
      if (current != nullptr) current->endLine = i;
      auto [it, inserted] = sections_.try_emplace(Fold(*name), Section{i, lines_.size(), {}, {}});
      // A repeated section is not looked into: the first one wins.
      current = inserted ? &it->second : nullptr;
      if (inserted) sectionOrder_.push_back(i);
      continue;
    }
    std::string_view key, value;
    if (current != nullptr && SplitKeyLine(lines_[i].text, key, value)) {
      if (current->keys.try_emplace(Fold(key), i).second) current->keyOrder.emplace_back(key);
    }
  }
  if (current != nullptr) current->endLine = lines_.size();
}

std::optional<std::string_view> IniDocument::Find(std::string_view section,
                                                  std::string_view key) const {
  auto s = sections_.find(Fold(Trim(section)));
  if (s == sections_.end()) return std::nullopt;
  auto k = s->second.keys.find(Fold(Trim(key)));
  if (k == s->second.keys.end()) return std::nullopt;
  std::string_view name, value;
  SplitKeyLine(lines_[k->second].text, name, value);
  return Unquote(value);
}

std::vector<std::string> IniDocument::Keys(std::string_view section) const {
  auto s = sections_.find(Fold(Trim(section)));
  return s == sections_.end() ? std::vector<std::string>() : s->second.keyOrder;
}

std::vector<std::string> IniDocument::SectionNames() const {
  std::vector<std::string> names;
  names.reserve(sectionOrder_.size());
  for (std::size_t line : sectionOrder_) names.emplace_back(*SectionName(lines_[line].text));
  return names;
}

void IniDocument::Set(std::string_view section, const char* key, const char* value) {
  section = Trim(section);
  auto s = sections_.find(Fold(section));
  if (key == nullptr) {
    if (s != sections_.end()) {
      lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(s->second.headerLine),
                   lines_.begin() + static_cast<std::ptrdiff_t>(s->second.endLine));
      Index();
    }
    return;
  }
  std::string_view keyName = Trim(key);
  if (s == sections_.end()) {
    if (value == nullptr) return;
    if (!lines_.empty() && lines_.back().ending.empty()) lines_.back().ending = "\n";
    lines_.push_back({"[" + std::string(section) + "]", "\n"});
    lines_.push_back({std::string(keyName) + "=" + value, "\n"});
    Index();
    return;
  }
  auto k = s->second.keys.find(Fold(keyName));
  if (k != s->second.keys.end()) {
    if (value == nullptr) {
      lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(k->second));
    } else {
      lines_[k->second].text = std::string(keyName) + "=" + value;
    }
  } else if (value != nullptr) {
    // After the section's last key line, so that blank lines and comments
    // that close the section stay where they are.
    std::size_t at = s->second.headerLine + 1;
    for (std::size_t i = s->second.headerLine + 1; i < s->second.endLine; ++i) {
      std::string_view name, existing;
      if (SplitKeyLine(lines_[i].text, name, existing)) at = i + 1;
    }
    if (at > 0 && lines_[at - 1].ending.empty()) lines_[at - 1].ending = "\n";
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at),
                  Line{std::string(keyName) + "=" + value, "\n"});
  }
  Index();
}

std::string IniDocument::Text() const {
  std::string text;
  for (const Line& line : lines_) {
    text += line.text;
    text += line.ending;
  }
  return text;
}

}  // namespace kvdao::platform

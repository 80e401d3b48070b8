#include "kvdao/platform/word_match.h"

#include "kvdao/platform/text.h"

namespace kvdao::platform {
namespace {

constexpr std::string_view kSeparators = ",; \t\r\n";

// Calls `visit` with every non-empty word of `list` until it returns true.
template <typename Visit>
bool AnyWord(std::string_view list, Visit visit) {
  std::size_t pos = 0;
  while (pos < list.size()) {
    std::size_t start = list.find_first_not_of(kSeparators, pos);
    if (start == std::string_view::npos) break;
    std::size_t end = list.find_first_of(kSeparators, start);
    if (end == std::string_view::npos) end = list.size();
    if (visit(list.substr(start, end - start))) return true;
    pos = end;
  }
  return false;
}

}  // namespace

bool CWordMatch::CompareLists(std::string_view first, std::string_view second) {
  return AnyWord(first, [second](std::string_view word) {
    return AnyWord(second, [word](std::string_view other) {
      return CompareNoCase1252(word, other) == 0;
    });
  });
}

}  // namespace kvdao::platform

#pragma once

// CWordMatch: comparison of two word lists, used where a record names the
// groups it belongs to and a caller asks about a list of groups.
//
// A list is a text of words separated by commas, semicolons, blanks, tabs or
// line breaks; empty words do not count. Two lists match when at least one
// word of the first equals a word of the second, ignoring case (code page
// 1252 letters). Surrounding separators and the order of the words do not
// matter; a list without any word matches nothing, itself included.

#include <string_view>

namespace kvdao::platform {

class CWordMatch {
 public:
  static bool CompareLists(std::string_view first, std::string_view second);
};

}  // namespace kvdao::platform

// Text index keys from arbitrary text: the input is read as UTF-16 code
// units (little-endian), as Jet stores text. A character the collation does
// not know must end in DaoException; otherwise the descending key must be
// the ascending one inverted (with its extra 00), and keys must stay within
// what one text can produce.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "general_sort_order.h"
#include "kvdao/jet/dao_exception.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kvdao::jet::internal;
  std::u32string text;
  for (std::size_t i = 0; i + 1 < size; i += 2) text.push_back(data[i] | (char32_t{data[i + 1]} << 8));
  std::vector<std::uint8_t> ascending, descending;
  try {
    AppendGeneralTextKey(text, true, ascending);
  } catch (const kvdao::jet::DaoException&) {
    return 0;
  }
  AppendGeneralTextKey(text, false, descending);
  // Two weight bytes, a secondary byte and a four-byte position a character
  // at most, and the separators.
  if (ascending.size() > 7 * kMaxIndexedTextChars + 8 || ascending.back() != 0x00) std::abort();
  if (descending.size() != ascending.size() + 1 || descending.back() != 0x00) std::abort();
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    if (descending[i] != static_cast<std::uint8_t>(~ascending[i])) std::abort();
  }
  return 0;
}

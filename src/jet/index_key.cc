#include "index_key.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "format.h"
#include "general_sort_order.h"
#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/code_page.h"

namespace kvdao::jet::internal {
namespace {

constexpr std::uint8_t kAscendingValue = 0x7F;
constexpr std::uint8_t kAscendingNull = 0x00;
constexpr std::uint8_t kDescendingValue = 0x80;
constexpr std::uint8_t kDescendingNull = 0xFF;
constexpr std::uint8_t kAscendingTrue = 0x00;
constexpr std::uint8_t kAscendingFalse = 0xFF;

const char* TypeName(std::uint8_t type) {
  switch (type) {
    case format::kMemo: return "Memo";
    case format::kBinary: return "Binary";
    case format::kOle: return "OLE Object";
    case format::kGuid: return "Replication ID";
    case format::kNumeric: return "Decimal";
    default: return "these";
  }
}

[[noreturn]] void ThrowMismatch(const Variant& value) {
  throw DaoException("Data type conversion error: an index key needs a number, date or Boolean, not a value of type " +
                     std::to_string(value.vt()) + ".");
}

[[noreturn]] void ThrowNotText(const Variant& value) {
  throw DaoException("Data type conversion error: an index key on a Text field needs text, not a value of type " +
                     std::to_string(value.vt()) + ".");
}

[[noreturn]] void ThrowRange() {
  throw DaoException("Numeric field overflow: an index key value is out of the range of its field.");
}

bool IsIntegerTag(VARTYPE vt) {
  switch (vt) {
    case VT_I1: case VT_UI1: case VT_I2: case VT_UI2: case VT_I4: case VT_UI4:
    case VT_INT: case VT_UINT: case VT_BOOL:
      return true;
    default:
      return false;
  }
}

std::int64_t IntegerOf(const Variant& value) {
  switch (value.vt()) {
    case VT_I1: return static_cast<signed char>(value.cVal());
    case VT_UI1: return value.bVal();
    case VT_I2: case VT_BOOL: return value.iVal();
    case VT_UI2: return value.uiVal();
    case VT_I4: case VT_INT: return value.lVal();
    case VT_UI4: case VT_UINT: return value.ulVal();
    default: ThrowMismatch(value);
  }
}

// The value as a double, for floating-point columns and for rounding.
double DoubleOf(const Variant& value) {
  if (IsIntegerTag(value.vt())) return static_cast<double>(IntegerOf(value));
  switch (value.vt()) {
    case VT_R4: return value.fltVal();
    case VT_R8: return value.dblVal();
    case VT_DATE: return value.date();
    case VT_CY: return static_cast<double>(value.cyVal()) / 10000.0;
    default: ThrowMismatch(value);
  }
}

// A whole number in [low, high]; fractions round half to even, as OLE's
// conversions do.
std::int64_t WholeNumberOf(const Variant& value, std::int64_t low, std::int64_t high) {
  std::int64_t result = 0;
  if (IsIntegerTag(value.vt())) {
    result = IntegerOf(value);
  } else {
    double rounded = value.vt() == VT_CY ? std::nearbyint(static_cast<double>(value.cyVal()) / 10000.0)
                                         : std::nearbyint(DoubleOf(value));
    if (!(rounded >= static_cast<double>(low) && rounded <= static_cast<double>(high))) ThrowRange();
    result = static_cast<std::int64_t>(rounded);
  }
  if (result < low || result > high) ThrowRange();
  return result;
}

std::int64_t CurrencyOf(const Variant& value) {
  if (value.vt() == VT_CY) return value.cyVal();
  if (IsIntegerTag(value.vt())) return IntegerOf(value) * 10000;  // |value| < 2^32: no overflow
  double scaled = std::nearbyint(DoubleOf(value) * 10000.0);
  // 2^63 itself is not representable as int64; anything at or past it overflows.
  if (!(scaled >= -9223372036854775808.0 && scaled < 9223372036854775808.0)) ThrowRange();
  return static_cast<std::int64_t>(scaled);
}

bool BooleanOf(const Variant& value) {
  if (value.IsEmptyOrNull()) return false;
  if (IsIntegerTag(value.vt())) return IntegerOf(value) != 0;
  return DoubleOf(value) != 0.0;
}

// Appends the low `size` bytes of bits, most significant first.
void AppendBigEndian(std::uint64_t bits, int size, std::vector<std::uint8_t>& key) {
  for (int shift = (size - 1) * 8; shift >= 0; shift -= 8) key.push_back(static_cast<std::uint8_t>(bits >> shift));
}

void AppendSignedInteger(std::int64_t number, int size, std::vector<std::uint8_t>& key) {
  std::uint64_t bits = static_cast<std::uint64_t>(number);
  bits ^= std::uint64_t{1} << (size * 8 - 1);  // flipping the sign bit makes two's complement sort as unsigned
  AppendBigEndian(bits, size, key);
}

void AppendFloatBits(std::uint64_t bits, int size, std::vector<std::uint8_t>& key) {
  std::uint64_t sign = std::uint64_t{1} << (size * 8 - 1);
  std::uint64_t mask = size == 8 ? ~std::uint64_t{0} : (std::uint64_t{1} << (size * 8)) - 1;
  // Non-negative numbers sort above every negative one; negative numbers
  // sort in reverse order of their magnitude bits.
  bits = (bits & sign) != 0 ? (~bits & mask) : (bits | sign);
  AppendBigEndian(bits, size, key);
}

void AppendDouble(double number, std::vector<std::uint8_t>& key) {
  std::uint64_t bits;
  std::memcpy(&bits, &number, sizeof bits);
  AppendFloatBits(bits, 8, key);
}

void AppendSingle(double number, std::vector<std::uint8_t>& key) {
  if (std::isfinite(number) && std::fabs(number) > std::numeric_limits<float>::max()) ThrowRange();
  float single = static_cast<float>(number);
  std::uint32_t bits;
  std::memcpy(&bits, &single, sizeof bits);
  AppendFloatBits(bits, 4, key);
}

bool Indexable(std::uint8_t type) {
  switch (type) {
    case format::kBoolean: case format::kByte: case format::kInteger: case format::kLong:
    case format::kMoney: case format::kFloat: case format::kDouble: case format::kDateTime:
    case format::kText:
      return true;
    default:
      return false;
  }
}

// The library's 8-bit text (code page 1252) as Unicode characters.
void AppendTextColumn(const Variant& value, bool ascending, std::vector<std::uint8_t>& key) {
  if (!value.IsText()) ThrowNotText(value);
  std::string_view text = value.text();
  if (text.size() > kMaxIndexedTextChars) text = text.substr(0, kMaxIndexedTextChars);
  char32_t characters[kMaxIndexedTextChars];
  for (std::size_t i = 0; i < text.size(); ++i) characters[i] = platform::CodePointFrom1252(static_cast<unsigned char>(text[i]));
  AppendGeneralTextKey(std::u32string_view(characters, text.size()), ascending, key);
}

void AppendColumn(const IndexKeyColumn& column, const Variant& value, std::vector<std::uint8_t>& key) {
  if (!Indexable(column.column_type)) {
    throw DaoException(std::string("Indexes on ") + TypeName(column.column_type) + " fields are not supported yet.");
  }
  const std::size_t start = key.size();
  if (column.column_type == format::kBoolean) {
    key.push_back(column.ascending ? kAscendingValue : kDescendingValue);
    std::uint8_t stored = BooleanOf(value) ? kAscendingTrue : kAscendingFalse;
    key.push_back(column.ascending ? stored : static_cast<std::uint8_t>(~stored));
    return;
  }
  if (value.IsEmptyOrNull()) {
    key.push_back(column.ascending ? kAscendingNull : kDescendingNull);
    return;
  }
  key.push_back(column.ascending ? kAscendingValue : kDescendingValue);
  if (column.column_type == format::kText) {
    AppendTextColumn(value, column.ascending, key);  // inverts a descending key itself
    return;
  }
  switch (column.column_type) {
    case format::kByte:
      key.push_back(static_cast<std::uint8_t>(WholeNumberOf(value, 0, 255)));
      break;
    case format::kInteger:
      AppendSignedInteger(WholeNumberOf(value, -32768, 32767), 2, key);
      break;
    case format::kLong:
      AppendSignedInteger(WholeNumberOf(value, std::numeric_limits<std::int32_t>::min(),
                                        std::numeric_limits<std::int32_t>::max()),
                          4, key);
      break;
    case format::kMoney:
      AppendSignedInteger(CurrencyOf(value), 8, key);
      break;
    case format::kFloat:
      AppendSingle(DoubleOf(value), key);
      break;
    case format::kDouble:
    case format::kDateTime:
      AppendDouble(DoubleOf(value), key);
      break;
    default:
      break;  // Boolean is handled above; other types were refused
  }
  if (!column.ascending) {
    for (std::size_t i = start + 1; i < key.size(); ++i) key[i] = static_cast<std::uint8_t>(~key[i]);
  }
}

}  // namespace

void EncodeIndexKey(std::span<const IndexKeyColumn> columns, std::span<const Variant> values,
                    std::vector<std::uint8_t>& key) {
  key.clear();
  if (columns.size() != values.size()) {
    throw DaoException("An index key needs one value per index field: " + std::to_string(columns.size()) +
                       " fields, " + std::to_string(values.size()) + " values.");
  }
  for (std::size_t i = 0; i < columns.size(); ++i) AppendColumn(columns[i], values[i], key);
}

}  // namespace kvdao::jet::internal

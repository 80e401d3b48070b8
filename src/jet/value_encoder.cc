#include "value_encoder.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "byte_writer.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {
namespace {

[[noreturn]] void ThrowConversion(const ColumnLayout& column, const Variant& value) {
  throw DaoException("Data type conversion error: field '" + column.name + "' cannot hold a value of variant type " +
                     std::to_string(value.vt()) + ".");
}

[[noreturn]] void ThrowOverflow(const ColumnLayout& column) {
  throw DaoException("Overflow: the value is out of range for field '" + column.name + "'.");
}

// The numeric value of a variant as a double; false for types that are not
// numbers (text is parsed the way a VARIANT coercion would).
bool AsDouble(const Variant& value, double& out) {
  switch (value.vt()) {
    case VT_I2: out = value.iVal(); return true;
    case VT_I4: case VT_INT: out = value.lVal(); return true;
    case VT_R4: out = value.fltVal(); return true;
    case VT_R8: out = value.dblVal(); return true;
    case VT_DATE: out = value.date(); return true;
    case VT_CY: out = static_cast<double>(value.cyVal()) / 10000.0; return true;
    case VT_BOOL: out = value.boolVal() != 0 ? -1.0 : 0.0; return true;
    case VT_I1: out = static_cast<signed char>(value.cVal()); return true;
    case VT_UI1: out = value.bVal(); return true;
    case VT_UI2: out = value.uiVal(); return true;
    case VT_UI4: case VT_UINT: out = value.ulVal(); return true;
    case VT_BSTR: {
      std::string text(value.text());
      const char* begin = text.c_str();
      while (*begin == ' ') ++begin;
      if (*begin == '\0') return false;
      char* end = nullptr;
      errno = 0;
      out = std::strtod(begin, &end);
      while (end != nullptr && *end == ' ') ++end;
      return errno == 0 && end != nullptr && *end == '\0';
    }
    default: return false;
  }
}

template <typename Int>
void StageInteger(const ColumnLayout& column, std::size_t index, double number, RowBuilder& row) {
  double rounded = std::nearbyint(number);
  if (!(rounded >= static_cast<double>(std::numeric_limits<Int>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<Int>::max()))) {
    ThrowOverflow(column);
  }
  std::uint8_t bytes[8];
  auto v = static_cast<Int>(rounded);
  if constexpr (sizeof(Int) == 1) bytes[0] = static_cast<std::uint8_t>(v);
  if constexpr (sizeof(Int) == 2) StoreU16(bytes, static_cast<std::uint16_t>(v));
  if constexpr (sizeof(Int) == 4) StoreU32(bytes, static_cast<std::uint32_t>(v));
  row.SetFixed(index, bytes);
}

void StageText(const ColumnLayout& column, std::size_t index, const Variant& value, RowBuilder& row) {
  std::string_view text;
  char number[32];
  if (value.vt() == VT_BSTR) {
    text = value.text();
  } else {
    double d;
    if (!AsDouble(value, d) || value.vt() == VT_DATE) ThrowConversion(column, value);
    int n = std::snprintf(number, sizeof number, "%.15g", d);
    text = std::string_view(number, static_cast<std::size_t>(n));
  }
  if (column.type == format::kText && text.size() * 2 > column.length) {
    throw DaoException("The field is too small to accept the amount of data you attempted to add: field '" +
                       column.name + "' holds " + std::to_string(column.length / 2) + " characters, the value has " +
                       std::to_string(text.size()) + ".");
  }
  EncodeText(text, column.compressible(), row.Variable(index));
}

}  // namespace

void StageValue(const ColumnLayout& column, std::size_t index, const Variant& value, RowBuilder& row) {
  if (value.IsEmptyOrNull()) {
    row.SetNull(index);
    return;
  }
  if (column.type == format::kText || column.type == format::kMemo) {
    StageText(column, index, value, row);
    return;
  }
  if (column.type == format::kBinary || column.type == format::kOle) {
    const ByteArray* bytes = value.bytes();
    if (bytes == nullptr) ThrowConversion(column, value);
    if (column.type == format::kBinary && bytes->size() > column.length) {
      throw DaoException("The field is too small to accept the amount of data you attempted to add: field '" +
                         column.name + "'.");
    }
    row.Variable(index).assign(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    return;
  }
  double number;
  if (!AsDouble(value, number)) ThrowConversion(column, value);
  std::uint8_t bytes[8];
  switch (column.type) {
    case format::kBoolean: row.SetBoolean(index, number != 0.0); return;
    case format::kByte: StageInteger<std::uint8_t>(column, index, number, row); return;
    case format::kInteger: StageInteger<std::int16_t>(column, index, number, row); return;
    case format::kLong: StageInteger<std::int32_t>(column, index, number, row); return;
    case format::kMoney: {
      std::int64_t scaled;
      if (value.vt() == VT_CY) {
        scaled = value.cyVal();
      } else {
        double s = std::nearbyint(number * 10000.0);
        if (!(std::fabs(s) < 9.2e18)) ThrowOverflow(column);
        scaled = static_cast<std::int64_t>(s);
      }
      StoreU64(bytes, static_cast<std::uint64_t>(scaled));
      break;
    }
    case format::kFloat: {
      if (std::isfinite(number) && std::fabs(number) > std::numeric_limits<float>::max()) ThrowOverflow(column);
      StoreF32(bytes, value.vt() == VT_R4 ? value.fltVal() : static_cast<float>(number));
      break;
    }
    case format::kDouble: case format::kDateTime: StoreF64(bytes, number); break;
    default: ThrowConversion(column, value);
  }
  row.SetFixed(index, bytes);
}

}  // namespace kvdao::jet::internal

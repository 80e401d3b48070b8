#include "value_decoder.h"

#include "long_value.h"
#include "text_codec.h"

namespace kvdao::jet::internal {
namespace {

DecimalValue ReadDecimal(const std::uint8_t* p, int scale) {
  // A sign byte, then the 128-bit magnitude as four 32-bit little-endian
  // words, most significant word first.
  DecimalValue value;
  value.negative = (p[0] & 0x80) != 0;
  value.high = (static_cast<std::uint64_t>(LoadU32(p + 1)) << 32) | LoadU32(p + 5);
  value.low = (static_cast<std::uint64_t>(LoadU32(p + 9)) << 32) | LoadU32(p + 13);
  value.scale = scale;
  return value;
}

void AppendText(const PageSource& pages, Bytes stored, TextEncoding encoding, std::string& out) {
  if (pages.layout().version == format::Version::kJet3) {
    AppendJet3Text(stored, encoding, out);
  } else {
    AppendJet4Text(stored, encoding, out);
  }
}

}  // namespace

int DaoType(std::uint8_t column_type) noexcept {
  switch (column_type) {
    case format::kBoolean: case format::kByte: case format::kInteger: case format::kLong:
    case format::kMoney: case format::kFloat: case format::kDouble: case format::kDateTime:
    case format::kBinary: case format::kText: case format::kOle: case format::kMemo:
      return column_type;
    case format::kGuid: return dbGUID;
    case format::kNumeric: return dbDecimal;
    default: return dbBinary;  // types this engine does not interpret read as their stored bytes
  }
}

void DecodeValue(const PageSource& pages, const ColumnDef& column, const Cell& cell, Bytes row,
                 TextEncoding encoding, FieldValue& out, FieldBuffers& buffers) {
  out.type = DaoType(column.type);
  out.null = cell.null;
  out.integer = 0;
  out.real = 0.0;
  out.text = {};
  out.bytes = {};
  if (column.type == format::kBoolean) {
    out.integer = cell.boolean ? 1 : 0;
    return;
  }
  if (cell.null) return;
  Bytes data = row.subspan(cell.offset, cell.length);
  const std::uint8_t* p = data.data();
  switch (column.type) {
    case format::kByte: out.integer = p[0]; break;
    case format::kInteger: out.integer = static_cast<std::int16_t>(LoadU16(p)); break;
    case format::kLong: out.integer = static_cast<std::int32_t>(LoadU32(p)); break;
    case format::kMoney: out.integer = static_cast<std::int64_t>(LoadU64(p)); break;
    case format::kFloat: out.single = LoadF32(p); break;
    case format::kDouble: case format::kDateTime: out.real = LoadF64(p); break;
    case format::kGuid: out.bytes = data; break;
    case format::kNumeric: out.decimal = ReadDecimal(p, column.scale); break;
    case format::kBinary: out.bytes = data; break;
    case format::kText:
      buffers.text.clear();
      AppendText(pages, data, encoding, buffers.text);
      out.text = buffers.text;
      break;
    case format::kOle:
      out.bytes = ReadLongValue(pages, data, buffers.bytes);
      break;
    case format::kMemo: {
      Bytes stored = ReadLongValue(pages, data, buffers.bytes);
      buffers.text.clear();
      AppendText(pages, stored, encoding, buffers.text);
      out.text = buffers.text;
      break;
    }
    default: out.bytes = data; break;
  }
}

Variant ToVariant(const FieldValue& value) {
  if (value.null) {
    return Variant::FromRaw(VT_NULL, 0);
  }
  switch (value.type) {
    case dbBoolean: return Variant(static_cast<short>(value.integer != 0 ? VARIANT_TRUE : VARIANT_FALSE), VT_BOOL);
    case dbByte: return Variant(static_cast<unsigned char>(value.integer));
    case dbInteger: return Variant(static_cast<short>(value.integer));
    case dbLong: return Variant(static_cast<int>(value.integer));
    case dbCurrency: return Variant(Currency{value.integer});
    case dbSingle: return Variant(value.single);
    case dbDouble: return Variant(value.real);
    case dbDate: return Variant(OleDate{value.real});
    case dbText: case dbMemo: return Variant(value.text);
    case dbGUID: return Variant(GuidToString(value.bytes));
    case dbDecimal: return Variant(DecimalToString(value.decimal));
    default: return Variant(ByteArray(value.bytes.begin(), value.bytes.end()));
  }
}

}  // namespace kvdao::jet::internal

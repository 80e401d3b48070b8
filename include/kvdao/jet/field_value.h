#pragma once

// kvdao::jet::FieldValue: one field of the current record, decoded in place
// without copying. It is the fast path under Recordset::GetFieldValue: texts
// and bytes point into the file or into buffers owned by the recordset and
// stay valid until the recordset moves or the same field is read again.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kvdao::jet {

// A Decimal (Numeric) value: sign, 96-bit magnitude and scale.
struct DecimalValue {
  bool negative = false;
  std::uint64_t high = 0;  // upper 64 bits of the unscaled magnitude
  std::uint64_t low = 0;   // lower 64 bits
  int scale = 0;           // digits after the decimal point
};

struct FieldValue {
  int type = 0;       // DAO type number of the field
  bool null = true;
  std::int64_t integer = 0;  // Boolean (0/1), Byte, Integer, Long; Currency scaled by 10,000
  double real = 0.0;         // Double, Date (OLE days)
  float single = 0.0f;       // Single
  std::string_view text;     // Text and Memo, in the recordset's text encoding
  std::span<const std::uint8_t> bytes;  // Binary, OLE; GUID as its 16 stored bytes
  DecimalValue decimal;      // Decimal
};

// How a recordset hands out Text and Memo values in FieldValue::text.
enum class TextEncoding {
  kCp1252,  // the library's 8-bit text; characters outside it become '?'
  kUtf8,    // the stored text without loss
};

// Exact decimal digits of a Decimal ("-12.5", "0"): trailing zeros after the
// point are dropped, so is a point with nothing after it.
std::string DecimalToString(const DecimalValue& value);
// Exact decimal digits of a Currency value (scaled by 10,000), trailing zeros
// dropped as above.
std::string CurrencyToString(std::int64_t scaled);
// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}" from the 16 stored GUID bytes.
std::string GuidToString(std::span<const std::uint8_t> bytes);

// A date and time split into calendar fields, millisecond precision, as
// OLE dates are read: days since 1899-12-30, the fraction's magnitude being
// the time of day.
struct DateTimeParts {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0, millisecond = 0;
};
DateTimeParts SplitOleDate(double ole_date) noexcept;
// "YYYY-MM-DDTHH:MM:SS" with ".mmm" only when the milliseconds are not zero.
std::string FormatOleDate(double ole_date);

}  // namespace kvdao::jet

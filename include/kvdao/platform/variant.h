#pragma once

// kvdao::Variant: a tagged value in the layout of an OLE automation VARIANT.
//
// The tag values and payload rules are those of OLE, so that a value read
// from a sample list can be handed to the database layer (which reads and
// writes field values as variants) and back without translation. Only the
// tags listed in VarType are supported.
//
// Promises:
//  - sizeof(Variant) is 16: a 16-bit tag, three reserved 16-bit words and an
//    8-byte payload, as in VARIANT;
//  - a variant owns its payload: text and byte arrays are deep-copied on copy
//    and released on assignment and destruction;
//  - text is held as 8-bit bytes (code page 1252), never converted;
//  - an empty text costs no allocation.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvdao {

using VARTYPE = std::uint16_t;

enum : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_ERROR = 10,
  VT_BOOL = 11,
  // Pseudo-tag asking for text to be kept as an 8-bit string. The stored tag
  // is VT_BSTR either way: every string in this library is 8-bit.
  VT_BSTRT = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_INT = 22,
  VT_UINT = 23,
  VT_ARRAY = 0x2000,
};

// Booleans as OLE stores them.
inline constexpr std::int16_t VARIANT_TRUE = -1;
inline constexpr std::int16_t VARIANT_FALSE = 0;

// Bytes of a binary value (an OLE safe array of VT_UI1).
using ByteArray = std::vector<std::uint8_t>;

// An OLE date: days since 1899-12-30, the fraction being the time of day.
struct OleDate {
  double value = 0.0;
};

// An OLE currency: a fixed-point number scaled by 10,000.
struct Currency {
  std::int64_t value = 0;
};

class Variant {
 public:
  Variant() noexcept { payload_.u64 = 0; }
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept;
  // A copy of *other; a null pointer gives an empty variant.
  explicit Variant(const Variant* other);
  ~Variant() { Clear(); }

  // Text: stored as VT_BSTR (tag VT_BSTR or VT_BSTRT). A null pointer gives
  // an empty text.
  Variant(const char* text, VARTYPE tag = VT_BSTR);
  Variant(const std::string& text, VARTYPE tag = VT_BSTR);
  Variant(std::string_view text, VARTYPE tag = VT_BSTR);
  Variant(unsigned char value) noexcept;               // VT_UI1
  Variant(short value, VARTYPE tag = VT_I2) noexcept;  // VT_I2 or VT_BOOL
  // VT_I4, or VT_ERROR / VT_BOOL when the tag says so. The payload is 32 bits.
  Variant(int value, VARTYPE tag = VT_I4) noexcept;
  Variant(long value, VARTYPE tag = VT_I4) noexcept;
  Variant(Currency value) noexcept;  // VT_CY
  Variant(float value) noexcept;     // VT_R4
  Variant(double value) noexcept;    // VT_R8
  Variant(OleDate value) noexcept;   // VT_DATE
  Variant(const ByteArray& bytes);   // VT_UI1 | VT_ARRAY

  Variant& operator=(const Variant& other);
  Variant& operator=(Variant&& other) noexcept;
  // Text assignments always store an 8-bit string; a null pointer gives an
  // empty text.
  Variant& operator=(const char* text);
  Variant& operator=(const std::string& text);
  Variant& operator=(std::string_view text);
  Variant& operator=(unsigned char value);
  Variant& operator=(short value);
  Variant& operator=(int value);
  Variant& operator=(long value);
  Variant& operator=(Currency value);
  Variant& operator=(float value);
  Variant& operator=(double value);
  Variant& operator=(OleDate value);
  Variant& operator=(const ByteArray& bytes);

  // Same tag and same value. Text and bytes compare by content; numbers as
  // the C++ operators do (so a NaN never equals anything).
  bool operator==(const Variant& other) const noexcept;

  // Releases the payload and makes the variant VT_EMPTY.
  void Clear() noexcept;

  VARTYPE vt() const noexcept { return vt_; }
  bool IsText() const noexcept { return vt_ == VT_BSTR; }
  bool IsEmptyOrNull() const noexcept { return vt_ == VT_EMPTY || vt_ == VT_NULL; }

  // Payload readers. Each reads the payload as the named type without looking
  // at the tag, as a VARIANT's union members do; the payload of a tag narrower
  // than 8 bytes is zero-extended, and empty, null, text and array values have
  // an all-zero numeric payload.
  std::int16_t iVal() const noexcept { return payload_.i16; }
  std::int32_t lVal() const noexcept { return payload_.i32; }
  float fltVal() const noexcept { return payload_.f32; }
  double dblVal() const noexcept { return payload_.f64; }
  std::int64_t cyVal() const noexcept { return payload_.i64; }
  double date() const noexcept { return payload_.f64; }
  std::int16_t boolVal() const noexcept { return payload_.i16; }
  char cVal() const noexcept { return static_cast<char>(payload_.u8); }
  std::uint8_t bVal() const noexcept { return payload_.u8; }
  std::uint16_t uiVal() const noexcept { return payload_.u16; }
  std::uint32_t ulVal() const noexcept { return payload_.u32; }
  std::int32_t intVal() const noexcept { return payload_.i32; }
  std::uint32_t uintVal() const noexcept { return payload_.u32; }
  // The 8 payload bytes read as a double.
  double RawPayloadAsDouble() const noexcept;

  // The text of a VT_BSTR value; empty for any other tag.
  std::string_view text() const noexcept;
  // The bytes of a VT_UI1 | VT_ARRAY value; null for any other tag.
  const ByteArray* bytes() const noexcept;

  // Sets tag and raw payload of a number tag (VT_I2 ... VT_UINT except text
  // and arrays); used by readers that decode stored values.
  static Variant FromRaw(VARTYPE tag, std::uint64_t payload) noexcept;

 private:
  void SetText(std::string_view text);
  void CopyFrom(const Variant& other);

  // Text is a single heap block: a 32-bit length, the bytes and a NUL.
  struct TextBlock;

  VARTYPE vt_ = VT_EMPTY;
  [[maybe_unused]] std::uint16_t reserved_[3] = {0, 0, 0};
  union Payload {
    std::int16_t i16;
    std::uint16_t u16;
    std::int32_t i32;
    std::uint32_t u32;
    std::int64_t i64;
    std::uint64_t u64;
    std::uint8_t u8;
    float f32;
    double f64;
    TextBlock* text;
    ByteArray* array;
  } payload_;
};

static_assert(sizeof(Variant) == 16, "Variant keeps the VARIANT layout");

}  // namespace kvdao

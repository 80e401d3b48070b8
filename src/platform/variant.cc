#include "kvdao/platform/variant.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace kvdao {

struct Variant::TextBlock {
  std::uint32_t size;
  char data[1];  // size bytes and a terminating NUL

  static TextBlock* Make(std::string_view text) {
    if (text.size() > UINT32_MAX - sizeof(TextBlock)) throw std::bad_alloc();
    void* raw = std::malloc(sizeof(TextBlock) + text.size());
    if (raw == nullptr) throw std::bad_alloc();
    auto* block = static_cast<TextBlock*>(raw);
    block->size = static_cast<std::uint32_t>(text.size());
    if (!text.empty()) std::memcpy(block->data, text.data(), text.size());
    block->data[text.size()] = '\0';
    return block;
  }
};

Variant::Variant(const Variant& other) { CopyFrom(other); }

Variant::Variant(Variant&& other) noexcept : vt_(other.vt_), payload_(other.payload_) {
  other.vt_ = VT_EMPTY;
  other.payload_.u64 = 0;
}

Variant::Variant(const Variant* other) {
  if (other != nullptr) {
    CopyFrom(*other);
  } else {
    payload_.u64 = 0;
  }
}

Variant::Variant(const char* text, VARTYPE) {
  payload_.u64 = 0;
  SetText(text != nullptr ? std::string_view(text) : std::string_view());
}

Variant::Variant(const std::string& text, VARTYPE) {
  payload_.u64 = 0;
  SetText(text);
}

Variant::Variant(std::string_view text, VARTYPE) {
  payload_.u64 = 0;
  SetText(text);
}

Variant::Variant(unsigned char value) noexcept : vt_(VT_UI1) {
  payload_.u64 = 0;
  payload_.u8 = value;
}

Variant::Variant(short value, VARTYPE tag) noexcept {
  payload_.u64 = 0;
  if (tag == VT_BOOL) {
    vt_ = VT_BOOL;
    payload_.i16 = value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
  } else {
    vt_ = VT_I2;
    payload_.i16 = value;
  }
}

Variant::Variant(int value, VARTYPE tag) noexcept {
  payload_.u64 = 0;
  if (tag == VT_BOOL) {
    vt_ = VT_BOOL;
    payload_.i16 = value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
  } else {
    vt_ = tag == VT_ERROR ? VT_ERROR : VT_I4;
    payload_.i32 = value;
  }
}

Variant::Variant(long value, VARTYPE tag) noexcept
    : Variant(static_cast<int>(static_cast<std::int32_t>(value)), tag) {
  if (tag == VT_BOOL) payload_.i16 = value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(Currency value) noexcept : vt_(VT_CY) { payload_.i64 = value.value; }

Variant::Variant(float value) noexcept : vt_(VT_R4) {
  payload_.u64 = 0;
  payload_.f32 = value;
}

Variant::Variant(double value) noexcept : vt_(VT_R8) { payload_.f64 = value; }

Variant::Variant(OleDate value) noexcept : vt_(VT_DATE) { payload_.f64 = value.value; }

Variant::Variant(const ByteArray& bytes) : vt_(VT_UI1 | VT_ARRAY) {
  payload_.array = new ByteArray(bytes);
}

Variant& Variant::operator=(const Variant& other) {
  if (this != &other) {
    Variant copy(other);
    *this = std::move(copy);
  }
  return *this;
}

Variant& Variant::operator=(Variant&& other) noexcept {
  if (this != &other) {
    Clear();
    vt_ = other.vt_;
    payload_ = other.payload_;
    other.vt_ = VT_EMPTY;
    other.payload_.u64 = 0;
  }
  return *this;
}

Variant& Variant::operator=(const char* text) {
  return *this = Variant(text);
}
Variant& Variant::operator=(const std::string& text) { return *this = Variant(text); }
Variant& Variant::operator=(std::string_view text) { return *this = Variant(text); }
Variant& Variant::operator=(unsigned char value) { return *this = Variant(value); }
Variant& Variant::operator=(short value) { return *this = Variant(value); }
Variant& Variant::operator=(int value) { return *this = Variant(value); }
Variant& Variant::operator=(long value) { return *this = Variant(value); }
Variant& Variant::operator=(Currency value) { return *this = Variant(value); }
Variant& Variant::operator=(float value) { return *this = Variant(value); }
Variant& Variant::operator=(double value) { return *this = Variant(value); }
Variant& Variant::operator=(OleDate value) { return *this = Variant(value); }
Variant& Variant::operator=(const ByteArray& bytes) { return *this = Variant(bytes); }

bool Variant::operator==(const Variant& other) const noexcept {
  if (vt_ != other.vt_) return false;
  switch (vt_) {
    case VT_EMPTY:
    case VT_NULL:
      return true;
    case VT_BSTR:
      return text() == other.text();
    case VT_UI1 | VT_ARRAY:
      return *payload_.array == *other.payload_.array;
    case VT_R4:
      return payload_.f32 == other.payload_.f32;
    case VT_R8:
    case VT_DATE:
      return payload_.f64 == other.payload_.f64;
    default:
      // Integer tags: narrower payloads are zero-extended, so all 8 bytes
      // compare.
      return payload_.u64 == other.payload_.u64;
  }
}

void Variant::Clear() noexcept {
  if (vt_ == VT_BSTR) {
    std::free(payload_.text);
  } else if (vt_ == (VT_UI1 | VT_ARRAY)) {
    delete payload_.array;
  }
  vt_ = VT_EMPTY;
  payload_.u64 = 0;
}

double Variant::RawPayloadAsDouble() const noexcept {
  if (vt_ == VT_BSTR || vt_ == (VT_UI1 | VT_ARRAY)) return 0.0;
  return payload_.f64;
}

std::string_view Variant::text() const noexcept {
  if (vt_ != VT_BSTR || payload_.text == nullptr) return {};
  return {payload_.text->data, payload_.text->size};
}

const ByteArray* Variant::bytes() const noexcept {
  return vt_ == (VT_UI1 | VT_ARRAY) ? payload_.array : nullptr;
}

Variant Variant::FromRaw(VARTYPE tag, std::uint64_t payload) noexcept {
  Variant v;
  if (tag == VT_BSTR || (tag & VT_ARRAY) != 0) return v;
  v.vt_ = tag;
  v.payload_.u64 = payload;
  return v;
}

void Variant::SetText(std::string_view text) {
  // An empty text is a VT_BSTR with no block: new rows are mostly empty texts.
  TextBlock* block = text.empty() ? nullptr : TextBlock::Make(text);
  Clear();
  vt_ = VT_BSTR;
  payload_.text = block;
}

void Variant::CopyFrom(const Variant& other) {
  payload_.u64 = 0;
  vt_ = VT_EMPTY;
  if (other.vt_ == VT_BSTR) {
    SetText(other.text());
  } else if (other.vt_ == (VT_UI1 | VT_ARRAY)) {
    payload_.array = new ByteArray(*other.payload_.array);
    vt_ = other.vt_;
  } else {
    vt_ = other.vt_;
    payload_ = other.payload_;
  }
}

}  // namespace kvdao

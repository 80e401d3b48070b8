#pragma once

// CKVVariant: the value of one sample-list cell, and GetString, the one text
// conversion that sample lists use.

#include <string>

#include "kvdao/platform/variant.h"

namespace kvdao {

// A Variant under the sample data model's name. It adds no data: number
// cells hold VT_R8, text cells VT_BSTR with 8-bit text.
class CKVVariant : public Variant {
 public:
  using Variant::Variant;
  using Variant::operator=;

  CKVVariant() noexcept = default;
  CKVVariant(const Variant& other) : Variant(other) {}
  CKVVariant(Variant&& other) noexcept : Variant(std::move(other)) {}
  CKVVariant(const CKVVariant&) = default;
  CKVVariant(CKVVariant&&) noexcept = default;
  CKVVariant& operator=(const CKVVariant&) = default;
  CKVVariant& operator=(CKVVariant&&) noexcept = default;
};

static_assert(sizeof(CKVVariant) == sizeof(Variant));

// The cell as text, in a buffer shared by every call on the same thread
// (copy the result before the next call):
//  - empty and null: empty text;
//  - VT_R4, VT_R8: "%f" (1.5 gives "1.500000");
//  - text: the text itself;
//  - VT_BOOL: "TRUE" or "FALSE";
//  - VT_I1: the character itself;
//  - integer tags: "%d" (VT_UI1 and VT_UI2 zero-extended);
//  - any other tag (currency, date, arrays): the buffer is left as it is, so
//    the result is whatever the previous call on this thread produced.
const std::string& GetString(const CKVVariant& value);

}  // namespace kvdao

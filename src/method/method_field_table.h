#pragma once

// The field-by-number table of method records: for every MethodDataFields
// number, how its text is written and read, and where its value lies in the
// record. Shared by the text and XML forms.

#include <cstddef>
#include <cstdint>

#include "kvdao/method/method_data_fields.h"

namespace kvdao::method_fields {

enum class FieldKind : std::uint8_t {
  kUnassigned,      // no field: empty text, cannot be set
  kText,            // text, string setter with `aux` characters kept
  kTextUnbounded,   // text, unbounded character-pointer setter
  kMassList,        // MassIntData as "mass,intensity" lines
  kNumber,          // "%.10lf"; integer or real conversion back
  kIndexedNumber,   // as kNumber, element chosen by the caller (aux elements)
  kReadOnlyNumber,  // as kNumber, cannot be set
  kYesNo,           // "YES"/"NO"; only exactly "NO" reads as 0
  kReadOnlyYesNo,   // as kYesNo, cannot be set
  kPeakMode,        // "YES" for 5; exactly "YES" reads as 5, else -1
  kWatOption,       // PkWatOperations bit `aux`, masks 1 and 2 inverted
  kThreshOption,    // PkThreshMethod bit `aux`
  kTraceInUse,      // QuantificationTraces mask `aux`, yes/no
  kFlagBit,         // TargetFlags bit `aux`, yes/no
  kRRef,            // first IStd entry + 1
};

enum class Scalar : std::uint8_t { kNone, kInt, kFloat, kDouble };

struct FieldInfo {
  FieldKind kind;
  Scalar scalar;
  std::uint16_t offset;
  std::int16_t aux;
};

extern const FieldInfo kFieldTable[MDF_Count];

}  // namespace kvdao::method_fields

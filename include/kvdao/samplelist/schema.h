#pragma once

// The sample column schema: the fixed, ordered table of the 160 columns that
// every sample list has. A column's index in this table is its number
// everywhere in the library; its key name is also its column name in Access
// sample lists.

#include <string_view>

#include "kvdao/platform/dao_types.h"

namespace kvdao {

struct SampleColumnDef {
  const char* name;  // key name, ASCII
  int type;          // dbDouble (7) or dbText (10)
  int optional;      // 1 when a database column may be left empty
};

inline constexpr int kSampleColumnCount = 160;

// The table, indexes 0..159.
extern const SampleColumnDef kSampleColumns[kSampleColumnCount];

// Index of the column named exactly `name` (case-sensitive), or -1.
int FindSampleColumn(std::string_view name) noexcept;

// First columns of the groups whose members are addressed by number.
inline constexpr int kColumnVersion = 0;
inline constexpr int kColumnConcFirst = 27;        // CONC_A .. CONC_T
inline constexpr int kConcColumnCount = 20;
inline constexpr int kColumnWavelengthFirst = 47;  // WAVELENGTH_A .. WAVELENGTH_J
inline constexpr int kWavelengthColumnCount = 10;
inline constexpr int kColumnMassFirst = 57;        // MASS_A .. MASS_DD
inline constexpr int kMassColumnCount = 30;
inline constexpr int kColumnFractionFirst = 88;    // FRACTION_1 .. FRACTION_10
inline constexpr int kFractionColumnCount = 10;
inline constexpr int kColumnUserFactorFirst = 102;  // USER_FACTOR_1 .. 3
inline constexpr int kUserFactorColumnCount = 3;
inline constexpr int kColumnSpareFirst = 105;      // SPARE_1 .. SPARE_5
inline constexpr int kSpareColumnCount = 5;
inline constexpr int kColumnCompoundFirst = 118;   // COMPOUND_A .. COMPOUND_DD
inline constexpr int kCompoundColumnCount = 30;
inline constexpr int kColumnIndex = 159;           // the only index column

}  // namespace kvdao

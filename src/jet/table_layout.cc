#include "table_layout.h"

#include <algorithm>
#include <numeric>

#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/dao_types.h"
#include "kvdao/platform/text.h"

namespace kvdao::jet::internal {
namespace {

constexpr std::size_t kMaxNameLength = 64;
constexpr std::size_t kMaxColumns = 255;
constexpr long kMaxTextSize = 255;
constexpr std::size_t kMaxIndexes = 32;

// The Jet column type of a DAO type the writer supports, or 0.
std::uint8_t JetType(int dao_type) noexcept {
  switch (dao_type) {
    case dbBoolean: return format::kBoolean;
    case dbByte: return format::kByte;
    case dbInteger: return format::kInteger;
    case dbLong: return format::kLong;
    case dbCurrency: return format::kMoney;
    case dbSingle: return format::kFloat;
    case dbDouble: return format::kDouble;
    case dbDate: return format::kDateTime;
    case dbText: return format::kText;
    case dbMemo: return format::kMemo;
    default: return 0;
  }
}

}  // namespace

std::uint16_t FixedTypeSize(std::uint8_t type) noexcept { return format::FixedValueSize(type); }

std::uint16_t TableLayout::VariableCount() const noexcept {
  return static_cast<std::uint16_t>(
      std::count_if(columns.begin(), columns.end(), [](const ColumnLayout& c) { return !c.fixed(); }));
}

std::uint16_t TableLayout::FixedSize() const noexcept {
  std::uint16_t size = 0;
  for (const ColumnLayout& column : columns) {
    if (column.fixed()) size = std::max<std::uint16_t>(size, column.fixed_offset + FixedTypeSize(column.type));
  }
  return size;
}

void TableLayout::Place() {
  std::vector<ColumnLayout*> by_number;
  for (ColumnLayout& column : columns) by_number.push_back(&column);
  std::sort(by_number.begin(), by_number.end(),
            [](const ColumnLayout* a, const ColumnLayout* b) { return a->number < b->number; });
  std::uint16_t var_seen = 0;
  std::uint16_t fixed_end = 0;
  for (ColumnLayout* column : by_number) {
    if (column->fixed()) {
      column->var_index = var_seen;
      column->fixed_offset = column->type == format::kBoolean ? 0 : fixed_end;
      fixed_end = static_cast<std::uint16_t>(fixed_end + FixedTypeSize(column->type));
    } else {
      column->var_index = var_seen++;
      column->fixed_offset = 0;
    }
  }
}

void CheckObjectName(const std::string& name, const char* what) {
  if (name.empty()) throw DaoException(std::string("Invalid ") + what + " name: the name is empty.");
  if (name.size() > kMaxNameLength) {
    throw DaoException(std::string("Invalid ") + what + " name '" + name + "': it is longer than 64 characters.");
  }
  if (name.front() == ' ') {
    throw DaoException(std::string("Invalid ") + what + " name '" + name + "': it starts with a space.");
  }
  for (unsigned char c : name) {
    if (c < 0x20 || c == '.' || c == '!' || c == '`' || c == '[' || c == ']') {
      throw DaoException(std::string("Invalid ") + what + " name '" + name +
                         "': it contains a character Jet does not allow in names (. ! ` [ ] or a control character).");
    }
  }
}

TableLayout LayoutFromTableDef(const TableDef& def) {
  CheckObjectName(def.name, "table");
  if (def.fields.empty()) throw DaoException("Table '" + def.name + "' has no fields.");
  if (def.fields.size() > kMaxColumns) {
    throw DaoException("Too many fields defined: table '" + def.name + "' has " +
                       std::to_string(def.fields.size()) + " fields; Jet allows 255.");
  }
  TableLayout spec;
  spec.name = def.name;

  std::vector<std::size_t> order(def.fields.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return def.fields[a].ordinal_position < def.fields[b].ordinal_position;
  });
  for (std::size_t i = 0; i < order.size(); ++i) {
    const FieldInfo& field = def.fields[order[i]];
    CheckObjectName(field.name, "field");
    for (const ColumnLayout& other : spec.columns) {
      if (platform::CompareNoCase1252(other.name, field.name) == 0) {
        throw DaoException("Field '" + field.name + "' is defined twice in table '" + def.name + "'.");
      }
    }
    ColumnLayout column;
    column.name = field.name;
    column.type = JetType(field.type);
    if (column.type == 0) {
      throw DaoException("Field '" + field.name + "' has type " + std::to_string(field.type) +
                         ", which this engine cannot create (Text, Memo, Double, Single, Long, Integer, Byte, "
                         "Boolean, Currency and Date can be).");
    }
    column.number = static_cast<std::uint16_t>(i);
    column.position = static_cast<std::uint16_t>(i);
    column.required = field.required;
    column.allow_zero_length = field.allow_zero_length;
    if (column.type == format::kText) {
      long size = field.size == 0 ? kMaxTextSize : field.size;
      if (size < 0 || size > kMaxTextSize) {
        throw DaoException("Field '" + field.name + "' is " + std::to_string(field.size) +
                           " characters long; a Text field holds at most 255.");
      }
      column.length = static_cast<std::uint16_t>(2 * size);
      column.flags = format::kColumnUpdatable;
      column.ext_flags = format::kColumnCompressedUnicode;
    } else if (column.type == format::kMemo) {
      column.flags = format::kColumnUpdatable;
      column.ext_flags = format::kColumnCompressedUnicode;
    } else {
      column.length = column.type == format::kBoolean ? 1 : FixedTypeSize(column.type);
      column.flags = format::kColumnFixedLength | format::kColumnUpdatable;
    }
    spec.columns.push_back(std::move(column));
  }
  spec.Place();

  if (def.indexes.size() > kMaxIndexes) {
    throw DaoException("Too many indexes on table '" + def.name + "': Jet allows 32.");
  }
  bool have_primary = false;
  for (const IndexInfo& index : def.indexes) {
    CheckObjectName(index.name, "index");
    for (const LogicalIndexLayout& other : spec.indexes) {
      if (platform::CompareNoCase1252(other.name, index.name) == 0) {
        throw DaoException("Index '" + index.name + "' already exists on table '" + def.name + "'.");
      }
    }
    if (index.foreign) {
      throw DaoException("Index '" + index.name + "': foreign-key indexes belong to relationships, which this engine does not create.");
    }
    if (index.fields.empty() || index.fields.size() > static_cast<std::size_t>(format::kIndexMaxColumns)) {
      throw DaoException("Index '" + index.name + "' must name between 1 and 10 fields.");
    }
    if (index.primary) {
      if (have_primary) throw DaoException("Table '" + def.name + "' already has a primary key.");
      have_primary = true;
    }
    RealIndexLayout real;
    for (const IndexField& key : index.fields) {
      auto found = std::find_if(spec.columns.begin(), spec.columns.end(), [&](const ColumnLayout& c) {
        return platform::CompareNoCase1252(c.name, key.name) == 0;
      });
      if (found == spec.columns.end()) {
        throw DaoException("Index '" + index.name + "' names field '" + key.name + "', which table '" + def.name +
                           "' does not have.");
      }
      if (found->long_value()) {
        throw DaoException("Index '" + index.name + "': Memo field '" + key.name + "' cannot be indexed.");
      }
      real.keys.push_back({found->number, !key.descending});
    }
    if (index.unique || index.primary) real.flags |= format::kIndexUnique;
    if (index.ignore_nulls) real.flags |= format::kIndexIgnoreNulls;
    if (index.required || index.primary) real.flags |= format::kIndexRequired;
    LogicalIndexLayout logical;
    logical.name = index.name;
    logical.number = static_cast<std::uint32_t>(spec.indexes.size());
    logical.real = static_cast<std::uint32_t>(spec.real_indexes.size());
    logical.type = index.primary ? format::kIndexTypePrimary : 0;
    spec.real_indexes.push_back(std::move(real));
    spec.indexes.push_back(std::move(logical));
  }
  return spec;
}

}  // namespace kvdao::jet::internal

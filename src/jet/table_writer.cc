#include "table_writer.h"

#include <algorithm>
#include <cstring>

#include "byte_writer.h"
#include "bytes.h"
#include "format.h"
#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"
#include "long_value_writer.h"
#include "usage_map_writer.h"
#include "value_encoder.h"

namespace kvdao::jet::internal {
namespace {

std::uint32_t NewMapRow(DataPageWriter& map_rows) {
  std::uint32_t pointer = 0;
  std::span<std::uint8_t> row = map_rows.Add(format::kUsageMapRowSize, pointer);
  std::fill(row.begin(), row.end(), 0);
  return pointer;
}

std::vector<std::uint32_t> Sorted(std::vector<std::uint32_t> pages) {
  std::sort(pages.begin(), pages.end());
  pages.erase(std::unique(pages.begin(), pages.end()), pages.end());
  return pages;
}

}  // namespace

TableWriter::TableWriter(PageFile& file, DataPageWriter& map_rows, TableLayout spec, std::uint32_t tdef_page)
    : file_(file),
      spec_(std::move(spec)),
      tdef_page_(tdef_page),
      rows_(file, tdef_page, tdef_page),
      row_(spec_) {
  // Map rows in the order Jet lays them out: the table's pages, its pages
  // with free space, each long-value column's two maps, each index's map.
  pointers_.owned_map = NewMapRow(map_rows);
  pointers_.free_map = NewMapRow(map_rows);
  CreateLongValueWriters();
  // Long-value maps are listed in entry order but taken in column-number
  // order, as Jet does.
  std::vector<std::size_t> by_number;
  for (std::size_t i = 0; i < spec_.columns.size(); ++i) {
    if (long_value_slot_[i] >= 0) by_number.push_back(i);
  }
  std::sort(by_number.begin(), by_number.end(),
            [&](std::size_t a, std::size_t b) { return spec_.columns[a].number < spec_.columns[b].number; });
  pointers_.long_values.resize(long_values_.size());
  for (std::size_t column : by_number) {
    TablePointers::LongValues& maps = pointers_.long_values[static_cast<std::size_t>(long_value_slot_[column])];
    maps.owned_map = NewMapRow(map_rows);
    maps.free_map = NewMapRow(map_rows);
  }
  for (std::size_t i = 0; i < spec_.real_indexes.size(); ++i) {
    pointers_.indexes.push_back({NewMapRow(map_rows), 0});
    indexes_.push_back(std::make_unique<IndexCollector>(spec_, i));
  }
  rows_.OnPageFull(&TableWriter::RetirePage, &file_);
  encoded_.resize(file.PageSize());
  WriteTableDefinition(file_, tdef_page_, EncodeTableDefinition(spec_, pointers_));
}

TableWriter::TableWriter(PageFile& file, std::unique_ptr<ExistingTable> existing)
    : file_(file),
      spec_(std::move(existing->spec)),
      tdef_page_(existing->definition.page),
      pointers_(std::move(existing->pointers)),
      rows_(file, tdef_page_, tdef_page_),
      row_(spec_),
      existing_(std::move(existing)),
      last_autonumber_(existing_->definition.last_autonumber) {
  CreateLongValueWriters();
  for (std::size_t i = 0; i < spec_.columns.size(); ++i) {
    if (spec_.columns[i].type == format::kLong && (spec_.columns[i].flags & format::kColumnAutoLong) != 0) {
      autonumbers_.push_back(i);
    }
  }
  for (std::size_t i = 0; i < spec_.real_indexes.size(); ++i) {
    indexes_.push_back(std::make_unique<IndexCollector>(spec_, i));
    indexes_.back()->Seed(std::move(existing_->indexes[i].entries));
  }
  rows_.OnPageFull(&TableWriter::RowPageFull, this);
  if (existing_->last_data_page != 0) rows_.ResumeIfPacked(existing_->last_data_page);
  encoded_.resize(file.PageSize());
}

TableWriter::~TableWriter() = default;

void TableWriter::CreateLongValueWriters() {
  long_value_slot_.assign(spec_.columns.size(), -1);
  for (std::size_t i = 0; i < spec_.columns.size(); ++i) {
    if (!spec_.columns[i].long_value()) continue;
    long_value_slot_[i] = static_cast<int>(long_values_.size());
    long_values_.push_back(std::make_unique<DataPageWriter>(file_, format::kLongValueOwner, tdef_page_));
    long_values_.back()->OnPageFull(&TableWriter::RetirePage, &file_);
  }
}

void TableWriter::RetirePage(void* file, std::uint32_t page) { static_cast<PageFile*>(file)->Retire(page); }

void TableWriter::RowPageFull(void* self, std::uint32_t page) {
  auto* writer = static_cast<TableWriter*>(self);
  writer->full_pages_.push_back(page);
  writer->file_.Retire(page);
}

int TableWriter::FindColumn(std::string_view name) const noexcept {
  for (std::size_t i = 0; i < spec_.columns.size(); ++i) {
    if (platform::CompareNoCase1252(spec_.columns[i].name, name) == 0) return static_cast<int>(i);
  }
  return -1;
}

void TableWriter::AddNew() {
  if (finished_) throw DaoException("Table '" + spec_.name + "' is closed for writing.");
  row_.Clear();
  editing_ = true;
}

void TableWriter::SetValue(std::size_t column, const Variant& value) {
  if (!editing_) throw DaoException("Update or CancelUpdate without AddNew or Edit.");
  StageValue(spec_.columns[column], column, value, row_);
}

void TableWriter::CheckFieldRules() const {
  for (std::size_t i = 0; i < spec_.columns.size(); ++i) {
    const ColumnLayout& column = spec_.columns[i];
    if (column.type == format::kBoolean) continue;
    if (row_.IsNull(i)) {
      if (column.required) {
        throw DaoException("The field '" + spec_.name + "." + column.name +
                           "' cannot contain a Null value because the Required property for this field is set to "
                           "True. Enter a value in this field.");
      }
    } else if ((column.type == format::kText || column.type == format::kMemo) && row_.Bytes(i).empty() &&
               !column.allow_zero_length && !spec_.system) {
      throw DaoException("Field '" + spec_.name + "." + column.name + "' cannot be a zero-length string.");
    }
  }
}

std::vector<std::size_t> TableWriter::AssignAutoNumbers() {
  std::vector<std::size_t> assigned;
  for (std::size_t i : autonumbers_) {
    if (!row_.IsNull(i)) continue;
    std::uint8_t bytes[4];
    StoreU32(bytes, last_autonumber_ + 1);
    row_.SetFixed(i, bytes);
    assigned.push_back(i);
  }
  return assigned;
}

void TableWriter::Update() {
  if (!editing_) throw DaoException("Update or CancelUpdate without AddNew or Edit.");
  // An AutoNumber left null takes the next number; it is handed out only
  // when the row is stored.
  std::vector<std::size_t> assigned;
  if (!autonumbers_.empty()) assigned = AssignAutoNumbers();
  try {
    CheckFieldRules();
    for (auto& index : indexes_) index->Check(row_);
  } catch (const DaoException&) {
    for (std::size_t i : assigned) row_.SetNull(i);
    throw;
  }
  // Long values go to their pages first; the row then holds references.
  for (std::size_t i = 0; i < spec_.columns.size(); ++i) {
    if (long_value_slot_[i] < 0 || row_.IsNull(i)) continue;
    std::span<const std::uint8_t> staged = row_.Bytes(i);
    std::string bytes(reinterpret_cast<const char*>(staged.data()), staged.size());
    WriteLongValue(*long_values_[static_cast<std::size_t>(long_value_slot_[i])], bytes);
    row_.Variable(i) = std::move(bytes);
  }
  std::size_t size = row_.EncodedSize();
  if (size > DataPageWriter::MaxRowSize(file_.PageSize())) {
    throw DaoException("Record is too large: a row of table '" + spec_.name + "' needs " + std::to_string(size) +
                       " bytes; Jet stores at most " + std::to_string(DataPageWriter::MaxRowSize(file_.PageSize())) +
                       ".");
  }
  std::uint32_t pointer = 0;
  std::span<std::uint8_t> place = rows_.Add(size, pointer);
  row_.Encode(place.data());
  for (auto& index : indexes_) index->Add(pointer);
  for (std::size_t i : autonumbers_) {
    if (row_.IsNull(i)) continue;
    auto value = static_cast<std::int32_t>(LoadU32(row_.Bytes(i).data()));
    if (value > static_cast<std::int32_t>(last_autonumber_)) last_autonumber_ = static_cast<std::uint32_t>(value);
  }
  ++pointers_.row_count;
  editing_ = false;
}

void TableWriter::Finish() {
  if (finished_) return;
  finished_ = true;
  editing_ = false;
  if (existing_) {
    FinishExisting();
    return;
  }
  WriteUsageMap(file_, pointers_.owned_map, Sorted(rows_.pages()));
  // The page still being filled is the one with room for more rows.
  std::vector<std::uint32_t> with_room;
  if (rows_.current_page() != 0) with_room.push_back(rows_.current_page());
  WriteUsageMap(file_, pointers_.free_map, with_room);
  for (std::size_t i = 0; i < long_values_.size(); ++i) {
    WriteUsageMap(file_, pointers_.long_values[i].owned_map, Sorted(long_values_[i]->pages()));
    std::vector<std::uint32_t> lv_room;
    if (long_values_[i]->current_page() != 0) lv_room.push_back(long_values_[i]->current_page());
    WriteUsageMap(file_, pointers_.long_values[i].free_map, lv_room);
  }
  for (std::size_t i = 0; i < indexes_.size(); ++i) {
    std::vector<std::uint32_t> index_pages;
    pointers_.indexes[i].root_page = indexes_[i]->Build(file_, tdef_page_, index_pages);
    pointers_.indexes[i].distinct_keys = indexes_[i]->distinct_keys();
    WriteUsageMap(file_, pointers_.indexes[i].usage_map, Sorted(std::move(index_pages)));
  }
  WriteTableDefinition(file_, tdef_page_, EncodeTableDefinition(spec_, pointers_));
}

namespace {

std::vector<std::uint32_t> Union(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
  std::vector<std::uint32_t> all(a);
  all.insert(all.end(), b.begin(), b.end());
  return Sorted(std::move(all));
}

std::vector<std::uint32_t> Without(std::vector<std::uint32_t> pages, std::vector<std::uint32_t> gone) {
  std::sort(gone.begin(), gone.end());
  pages.erase(std::remove_if(pages.begin(), pages.end(),
                             [&](std::uint32_t page) { return std::binary_search(gone.begin(), gone.end(), page); }),
              pages.end());
  return pages;
}

}  // namespace

void TableWriter::FinishExisting() {
  ExistingTable& old = *existing_;
  if (pointers_.row_count == old.definition.row_count) return;  // nothing added: the table stays as it was
  const format::Layout& layout = format::kJet4;
  WriteUsageMap(file_, pointers_.owned_map, Union(old.owned_pages, rows_.pages()));
  std::vector<std::uint32_t> with_room = old.free_space_pages;
  if (rows_.current_page() != 0) with_room.push_back(rows_.current_page());
  WriteUsageMap(file_, pointers_.free_map, Without(Sorted(std::move(with_room)), full_pages_));
  for (std::size_t i = 0; i < long_values_.size(); ++i) {
    const TablePointers::LongValues& maps = pointers_.long_values[i];
    if (maps.owned_map != 0) WriteUsageMap(file_, maps.owned_map, Union(old.long_values[i].owned, long_values_[i]->pages()));
    std::vector<std::uint32_t> lv_room;
    if (long_values_[i]->current_page() != 0) lv_room.push_back(long_values_[i]->current_page());
    if (maps.free_map != 0) WriteUsageMap(file_, maps.free_map, Union(old.long_values[i].free_space, lv_room));
  }
  std::vector<TdefPatch> patches;
  patches.push_back({static_cast<std::size_t>(layout.tdef_row_count_offset), pointers_.row_count});
  patches.push_back({static_cast<std::size_t>(format::kTdefAutoNumberOffset), last_autonumber_});
  for (std::size_t i = 0; i < indexes_.size(); ++i) {
    ExistingTable::Index& index = old.indexes[i];
    for (std::uint32_t page : index.tree_pages) file_.FreePage(tdef_page_, page);
    std::vector<std::uint32_t> index_pages;
    TablePointers::Index& where = pointers_.indexes[i];
    where.root_page = indexes_[i]->Build(file_, tdef_page_, index_pages);
    where.distinct_keys = indexes_[i]->distinct_keys();
    if (where.usage_map != 0) {
      WriteUsageMap(file_, where.usage_map, Union(Without(index.map_pages, index.tree_pages), index_pages));
    }
    patches.push_back({static_cast<std::size_t>(layout.tdef_header_size) + i * layout.tdef_real_index_count_size + 4,
                       where.distinct_keys});
    patches.push_back({old.definition.real_indexes[i].entry_offset + format::kRealIndexFirstPageOffset, where.root_page});
  }
  PatchTableDefinition(file_, tdef_page_, patches);
}

}  // namespace kvdao::jet::internal

#pragma once

// Byte layout of Jet database files (Jet 3: Access 97, Jet 4: Access
// 2000-2003): page sizes, page types and the offsets of every structure the
// engine reads or writes. Shared by the reader and the Jet 4 writer, so that
// format knowledge lives in one place. Offsets are in bytes from the start of the
// page or structure named; all integers are little-endian.

#include <cstddef>
#include <cstdint>

namespace kvdao::jet::format {

enum class Version { kJet3, kJet4 };

// Page types: the first byte of every page.
inline constexpr std::uint8_t kPageDatabaseHeader = 0x00;
inline constexpr std::uint8_t kPageData = 0x01;
inline constexpr std::uint8_t kPageTableDefinition = 0x02;
inline constexpr std::uint8_t kPageIndexNode = 0x03;
inline constexpr std::uint8_t kPageIndexLeaf = 0x04;
inline constexpr std::uint8_t kPageUsageMap = 0x05;

// Database header page (page 0).
inline constexpr int kHeaderVersionOffset = 0x14;   // 0 = Jet 3, 1 = Jet 4
inline constexpr int kHeaderMaskedOffset = 0x18;    // start of the RC4-masked region
inline constexpr int kHeaderMaskedSizeJet3 = 126;
inline constexpr int kHeaderMaskedSizeJet4 = 128;
inline constexpr std::uint32_t kHeaderMaskKey = 0x6b39dac7;  // RC4 key, little-endian bytes
inline constexpr int kHeaderSortOrderJet3 = 0x3A;   // 2 bytes
inline constexpr int kHeaderCodePage = 0x3C;        // 2 bytes
inline constexpr int kHeaderSortOrderJet4 = 0x6E;   // 4 bytes
inline constexpr int kHeaderCreationDateJet4 = 0x72;  // OLE date (double)
// The format name written at offset 4 of page 0.
inline constexpr char kHeaderFormatId[] = "Standard Jet DB";
inline constexpr int kHeaderFormatIdOffset = 4;

// The system catalog MSysObjects always has its table definition on page 2.
inline constexpr std::uint32_t kCatalogTableDefinitionPage = 2;

// Row offsets on data pages carry two flags in their high bits.
inline constexpr std::uint16_t kRowDeletedFlag = 0x8000;
inline constexpr std::uint16_t kRowLookupFlag = 0x4000;  // row holds a pointer to its moved data
inline constexpr std::uint16_t kRowOffsetMask = 0x1FFF;

// Long value (memo / OLE) reference: 12 bytes in the row's variable area.
inline constexpr int kLongValueHeaderSize = 12;
inline constexpr std::uint32_t kLongValueInline = 0x80000000u;
inline constexpr std::uint32_t kLongValueSinglePage = 0x40000000u;
inline constexpr std::uint32_t kLongValueLengthMask = 0x3FFFFFFFu;

// Column types as stored in table definitions.
enum ColumnType : std::uint8_t {
  kBoolean = 0x01,
  kByte = 0x02,
  kInteger = 0x03,
  kLong = 0x04,
  kMoney = 0x05,
  kFloat = 0x06,
  kDouble = 0x07,
  kDateTime = 0x08,
  kBinary = 0x09,
  kText = 0x0A,
  kOle = 0x0B,
  kMemo = 0x0C,
  kGuid = 0x0F,
  kNumeric = 0x10,
};

// Bytes a fixed-length value of a column type takes in a row's fixed area;
// 0 for variable-length types and for Boolean (kept in the null mask).
constexpr std::uint16_t FixedValueSize(std::uint8_t type) noexcept {
  switch (type) {
    case kByte: return 1;
    case kInteger: return 2;
    case kLong: case kFloat: return 4;
    case kMoney: case kDouble: case kDateTime: return 8;
    case kGuid: return 16;
    case kNumeric: return 17;
    default: return 0;
  }
}

// Column flags (table-definition column entry).
inline constexpr std::uint8_t kColumnFixedLength = 0x01;
inline constexpr std::uint8_t kColumnUpdatable = 0x02;
inline constexpr std::uint8_t kColumnAutoLong = 0x04;
inline constexpr std::uint8_t kColumnAutoGuid = 0x40;
inline constexpr std::uint8_t kColumnHyperlink = 0x80;
// Extra column flags (Jet 4 only).
inline constexpr std::uint8_t kColumnCompressedUnicode = 0x01;

// Physical index flags.
inline constexpr std::uint8_t kIndexUnique = 0x01;
inline constexpr std::uint8_t kIndexIgnoreNulls = 0x02;
inline constexpr std::uint8_t kIndexRequired = 0x08;
// Jet 4 keeps four more bytes between an index's first page and its flags.
inline constexpr int kJet4IndexFlagsSkip = 4;
// Logical index types.
inline constexpr std::uint8_t kIndexTypePrimary = 0x01;
inline constexpr std::uint8_t kIndexTypeForeign = 0x02;
inline constexpr int kIndexMaxColumns = 10;

// Table types in the table definition.
inline constexpr std::uint8_t kTableUser = 0x4E;
inline constexpr std::uint8_t kTableSystem = 0x53;

// MSysObjects: object types and the flags of system objects.
inline constexpr int kObjectTypeTable = 1;
inline constexpr std::uint32_t kObjectSystemFlags = 0x80000002u;

// Usage maps.
inline constexpr std::uint8_t kUsageMapInline = 0x00;
inline constexpr std::uint8_t kUsageMapReference = 0x01;
inline constexpr int kUsageMapPageDataOffset = 4;  // bitmap start on a type 0x05 page

// Everything that differs between Jet 3 and Jet 4.
struct Layout {
  Version version;
  std::uint32_t page_size;

  // Data pages.
  int data_owner_offset;      // table-definition page that owns the page
  int data_row_count_offset;  // 2 bytes
  int data_row_table_offset;  // first 2-byte row offset

  // Table definitions.
  int tdef_next_page_offset;
  int tdef_row_count_offset;
  int tdef_table_type_offset;
  int tdef_max_columns_offset;
  int tdef_var_columns_offset;
  int tdef_columns_offset;
  int tdef_logical_indexes_offset;
  int tdef_real_indexes_offset;
  int tdef_owned_pages_offset;
  int tdef_free_pages_offset;
  int tdef_header_size;            // where the per-index row counts begin
  int tdef_continuation_header;    // bytes skipped on each following page
  int tdef_real_index_count_size;  // per physical index, before the columns
  int column_entry_size;
  int column_type_offset;
  int column_number_offset;
  int column_var_index_offset;
  int column_precision_offset;
  int column_scale_offset;
  int column_flags_offset;
  int column_ext_flags_offset;  // -1 when absent
  int column_fixed_offset_offset;
  int column_length_offset;
  int name_length_size;  // 1 (Jet 3) or 2 (Jet 4) bytes before each name
  int real_index_entry_size;
  int real_index_skip;  // bytes before the column list
  int logical_index_entry_size;
  int logical_index_skip;  // bytes before the index number

  // Rows.
  int row_column_count_size;  // 1 or 2
  int row_var_offset_size;    // 1 or 2
};

inline constexpr Layout kJet3{
    Version::kJet3, 2048,
    4, 8, 10,
    4, 12, 20, 21, 23, 25, 27, 31, 35, 39, 43, 8, 8,
    18, 0, 1, 3, 11, 12, 13, -1, 14, 16,
    1, 39, 0, 20, 0,
    1, 1};

inline constexpr Layout kJet4{
    Version::kJet4, 4096,
    4, 12, 14,
    4, 16, 40, 41, 43, 45, 47, 51, 55, 59, 63, 8, 12,
    25, 0, 5, 7, 11, 12, 15, 16, 21, 23,
    2, 52, 4, 28, 4,
    2, 2};

// ---------------------------------------------------------------------------
// What the Jet 4 writer puts where the reader does not look. Values marked
// "as Jet writes" are constants whose meaning is not known; they are copied
// from files the Jet engine made so that strict readers see familiar bytes.

// Header page.
inline constexpr int kHeaderPasswordJet4 = 0x42;       // 40 bytes, masked with the creation day
inline constexpr int kHeaderPasswordSizeJet4 = 40;
inline constexpr int kHeaderEncodingKeyJet4 = 0x3E;    // 4 bytes, non-zero when pages are encrypted
inline constexpr int kHeaderUnknown6AJet4 = 0x6A;       // 2 bytes, as Jet writes
inline constexpr std::uint16_t kHeaderUnknown6AValue = 0x261C;
inline constexpr int kHeaderEngineTailOffset = 0x98;   // after the masked region: 0x654, "4.0"
inline constexpr int kHeaderFillerOffset = 0xE00;      // 01, then 01 00 repeated to the page end
inline constexpr std::uint16_t kCodePage1252 = 1252;
inline constexpr std::uint32_t kSortOrderGeneral = 0x0409;

// The engine's format stamp written at offset 12 of table definitions and in
// every column and logical index entry (as Jet writes).
inline constexpr std::uint32_t kJet4FormatStamp = 0x0659;
// The 4 bytes before the column list of a physical index (as Jet writes).
inline constexpr std::uint32_t kJet4IndexStamp = 0x0783;

// Jet 4 table definition header, beyond the offsets in Layout.
inline constexpr int kTdefFreeSpaceOffset = 2;   // page size - 8 - bytes used (0 on a full first page)
inline constexpr int kTdefLengthOffset = 8;      // bytes of the whole definition, first page header included
inline constexpr int kTdefStampOffset = 12;
inline constexpr int kTdefAutoNumberOffset = 20;
inline constexpr int kTdefAutoNumberFlagOffset = 24;  // 0x01
inline constexpr int kTdefPageHeaderSize = 8;
// Column entry: the text sort order (General) is written into every column
// but Numeric, where the same bytes hold precision and scale.
inline constexpr int kColumnStampOffset = 1;
inline constexpr int kColumnIndexOffset = 9;       // position in the table (0-based)
inline constexpr int kColumnSortOrderOffset = 11;  // 2 bytes
// Physical index entry: flags sit after the first-page pointer and four
// further bytes (the reader's offsets skip straight to the column list).
inline constexpr int kRealIndexColumnsOffset = 4;
inline constexpr int kRealIndexUsageMapOffset = 34;
inline constexpr int kRealIndexFirstPageOffset = 38;
inline constexpr int kRealIndexFlagsOffset = 46;
inline constexpr std::uint8_t kIndexFlagsAlways = 0x80;  // set on every index Jet 4 writes
inline constexpr std::uint8_t kIndexAscending = 0x01;
// Logical index entry (after the 4-byte stamp).
inline constexpr int kLogicalIndexNumberOffset = 4;
inline constexpr int kLogicalIndexRealOffset = 8;
inline constexpr int kLogicalIndexRelatedOffset = 13;  // 4 bytes, -1 for no relationship
inline constexpr int kLogicalIndexCascadeOffset = 21;  // 2 bytes: 04 04 when not a foreign key
inline constexpr int kLogicalIndexTypeOffset = 23;
// After the index names: per long-value column, its number and the row
// pointers of its long-value page maps; 0xFFFF ends the list.
inline constexpr std::uint16_t kTdefListEnd = 0xFFFF;

// Data pages: the owner field of long-value pages.
inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C;  // "LVAL"
inline constexpr int kJet4DataHeaderSize = 14;

// Usage maps: an inline map row is a type byte, the start page and a
// 64-byte bitmap (512 pages); larger ranges use usage bitmap pages.
inline constexpr int kUsageMapInlineBitmapSize = 64;
inline constexpr int kUsageMapRowSize = 1 + 4 + kUsageMapInlineBitmapSize;
// The file's own map of free pages: page 1, row 0 (bit set = page free).
inline constexpr std::uint32_t kGlobalUsageMapPage = 1;

// System catalog values.
inline constexpr std::uint32_t kCatalogTablesId = 0x0F000001;         // the "Tables" container
inline constexpr std::uint32_t kCatalogDatabasesId = 0x0F000002;
inline constexpr std::uint32_t kCatalogRelationshipsId = 0x0F000003;
inline constexpr std::uint32_t kCatalogRootId = 0x0F000000;
inline constexpr std::uint32_t kCatalogMSysDbId = 0x10000000;
inline constexpr int kObjectTypeContainer = 3;
inline constexpr int kObjectTypeDatabase = 2;
inline constexpr std::uint32_t kObjectFlagsEngine = 0x80000000u;

// Text compression: at most this many characters are stored compressed.
inline constexpr std::size_t kMaxCompressedTextChars = 1024;
inline constexpr std::uint8_t kCompressedTextMarker[2] = {0xFF, 0xFE};

}  // namespace kvdao::jet::format

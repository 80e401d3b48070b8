#pragma once

// Index pages of a Jet 4 file: the nodes of an index's B-tree. Leaf pages
// (type 0x04) hold one entry per indexed row: the key, then the row's data
// page (3 bytes) and row number (1 byte), both big-endian unlike the rest of
// the file. Intermediate pages (type 0x03) hold one entry per child page but
// the last: the child's last entry, then the child's page number (4 bytes,
// big-endian); the last child is named by the header's tail field instead.
//
// Header (little-endian): type, 0x01, free bytes (2), owning table
// definition page (4), zero (4), previous and next page on the same level
// (4 + 4), tail child (4, intermediate pages), shared prefix length (2), a
// byte that Jet sets to 1 on intermediate pages, then a 453-byte bitmap from
// offset 27 and the entries from offset 480. Bit n of the bitmap (least
// significant bit first) marks the end of an entry n bytes after offset 480.
// When the shared prefix length p is not zero, every entry after the first
// omits the first p bytes, which are those of the first entry.

#include <cstdint>
#include <span>
#include <vector>

#include "bytes.h"

namespace kvdao::jet::internal::index_page {

inline constexpr std::uint32_t kPageSize = 4096;
inline constexpr int kFreeSpaceOffset = 2;
inline constexpr int kOwnerOffset = 4;
inline constexpr int kPreviousOffset = 12;
inline constexpr int kNextOffset = 16;
inline constexpr int kTailOffset = 20;
inline constexpr int kPrefixLengthOffset = 24;
inline constexpr int kNodeMarkOffset = 26;
inline constexpr int kBitmapOffset = 27;
inline constexpr int kBitmapSize = 453;
inline constexpr int kEntriesOffset = 480;
// Entry bytes one page can hold (the page ends before the bitmap's reach).
inline constexpr std::uint32_t kEntrySpace = kPageSize - kEntriesOffset;
// Bytes after the key: data page and row, plus the child page on
// intermediate pages.
inline constexpr std::uint32_t kLeafPointerSize = 4;
inline constexpr std::uint32_t kNodePointerSize = 8;

// One entry as stored, prefix restored.
struct PageEntry {
  Bytes key;
  std::uint32_t data_page = 0;
  std::uint8_t data_row = 0;
  std::uint32_t child_page = 0;  // intermediate pages only
};

// A decoded index page. Entry keys point into `storage`, so a page can be
// moved but not copied.
struct Page {
  Page() = default;
  Page(Page&&) = default;
  Page& operator=(Page&&) = default;
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  bool leaf = true;
  std::uint32_t owner = 0;
  std::uint32_t previous = 0;
  std::uint32_t next = 0;
  std::uint32_t tail = 0;
  std::uint16_t prefix_length = 0;
  std::vector<std::uint8_t> storage;
  std::vector<PageEntry> entries;
};

// Decodes one index page; DaoException when its type is not an index page
// or its header, bitmap or entries do not fit the page.
Page Decode(Bytes page, std::uint32_t page_number);

// Header fields of a page being written.
struct Header {
  bool leaf = true;
  std::uint32_t owner = 0;
  std::uint32_t previous = 0;
  std::uint32_t next = 0;
  std::uint32_t tail = 0;
};

// Writes a whole page (which must be kPageSize bytes): the header, the
// bitmap and the entries, each given as its complete stored bytes (key and
// pointers), sharing the first prefix_length bytes of the first entry. The
// caller has checked that the entries fit.
void Encode(std::span<std::uint8_t> page, const Header& header, std::span<const Bytes> entries,
            std::uint32_t prefix_length);

// Appends an entry's pointer bytes (big-endian data page, row and, for
// intermediate pages, child page).
void AppendPointers(std::uint32_t data_page, std::uint8_t data_row, std::vector<std::uint8_t>& out);
void AppendChild(std::uint32_t child_page, std::vector<std::uint8_t>& out);

}  // namespace kvdao::jet::internal::index_page

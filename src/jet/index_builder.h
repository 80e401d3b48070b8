#pragma once

// Bulk building of a Jet 4 index: given all entries of an index in order,
// writes a complete B-tree and returns its root page.
//
// Leaf pages are filled in order as far as they go. A page whose entries fit
// uncompressed is written uncompressed; one whose entries fit only with the
// shared prefix compression is written compressed (the prefix being what its
// first and last entries have in common, at most the key and the data page,
// never the row byte), which is what Jet itself does. When one leaf is not
// enough, levels of intermediate pages are added until one page, the root,
// holds the whole level below. Leaf pages are chained previous/next from the
// first to the last; intermediate pages only to siblings under the same
// parent. Every page is taken from the PageWriter for the table, and every
// page number handed out is reported so the caller can record the index's
// pages in its usage map.

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "page_writer.h"

namespace kvdao::jet::internal {

// One entry: the encoded key (see index_key.h) and the row it indexes.
struct IndexEntry {
  std::vector<std::uint8_t> key;
  std::uint32_t data_page = 0;
  std::uint8_t data_row = 0;
};

// Jet's order of index entries: key bytes (unsigned, a shorter key first when
// it is a prefix of the other), then data page, then row.
bool IndexEntryLess(const IndexEntry& a, const IndexEntry& b) noexcept;

// For a unique index: the position of the first entry of sorted whose key
// equals that of the entry before it, ignoring entries whose every column is
// null (a unique index admits any number of those). column_count is the
// number of index columns. The caller turns a hit into a DaoException.
std::optional<std::size_t> FindDuplicateKey(std::span<const IndexEntry> sorted, std::size_t column_count) noexcept;

// The number of distinct keys in sorted (all-null keys count as one): the
// "unique entry count" a table definition records for each index.
std::uint32_t CountDistinctKeys(std::span<const IndexEntry> sorted) noexcept;

// Writes the tree for sorted (ordered by IndexEntryLess) into pages taken
// with pages.AllocatePage(tdef_page) and returns the root page; no entries
// give one empty leaf as root. The numbers of all pages written are appended
// to written_pages when it is given. DaoException when an entry is too long
// to fit a page.
std::uint32_t BuildIndexTree(PageWriter& pages, std::uint32_t tdef_page, std::span<const IndexEntry> sorted,
                             std::vector<std::uint32_t>* written_pages = nullptr);

// An entry whose key bytes are kept elsewhere (in one buffer for a whole
// index, say).
struct IndexEntryView {
  std::span<const std::uint8_t> key;
  std::uint32_t data_page = 0;
  std::uint8_t data_row = 0;
};

// The same for count entries in index order, the i-th given by entry(i).
std::uint32_t BuildIndexTree(PageWriter& pages, std::uint32_t tdef_page, std::size_t count,
                             const std::function<IndexEntryView(std::size_t)>& entry,
                             std::vector<std::uint32_t>* written_pages = nullptr);

}  // namespace kvdao::jet::internal

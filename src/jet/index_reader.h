#pragma once

// Reading a whole Jet 4 index tree back: every entry in index order. Used to
// append to an index that is already in a file and to check what was
// written. The pages come from outside (a file), so every page is checked:
// its type, its bounds, the tree's depth, pages reached twice and the order
// of the entries; a damaged tree raises DaoException and nothing is read
// outside a page.

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "index_builder.h"

namespace kvdao::jet::internal {

// Fetches a page by number (DaoException when there is no such page).
using IndexPageFetcher = std::function<std::span<const std::uint8_t>(std::uint32_t)>;

// The entries of the tree whose root is page root, in index order. The
// numbers of the tree's pages are appended to tree_pages when it is given
// (a writer that rebuilds the tree frees them).
std::vector<IndexEntry> ReadIndexEntries(const IndexPageFetcher& page, std::uint32_t root,
                                         std::vector<std::uint32_t>* tree_pages = nullptr);

}  // namespace kvdao::jet::internal

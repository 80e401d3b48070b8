#include "index_page.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "format.h"
#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal::index_page {
namespace {

[[noreturn]] void ThrowDamagedPage(std::uint32_t page_number, const char* what) {
  throw DaoException("The database file is damaged: index page " + std::to_string(page_number) + " " + what + ".");
}

void StoreU16(std::uint8_t* p, std::uint32_t value) {
  p[0] = static_cast<std::uint8_t>(value);
  p[1] = static_cast<std::uint8_t>(value >> 8);
}
void StoreU32(std::uint8_t* p, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

}  // namespace

Page Decode(Bytes bytes, std::uint32_t page_number) {
  if (bytes.size() < kPageSize) ThrowDamagedPage(page_number, "is too short");
  std::uint8_t type = bytes[0];
  if (type != format::kPageIndexLeaf && type != format::kPageIndexNode) {
    ThrowDamagedPage(page_number, "is not an index page");
  }
  Page page;
  page.leaf = type == format::kPageIndexLeaf;
  page.owner = LoadU32(bytes.data() + kOwnerOffset);
  page.previous = LoadU32(bytes.data() + kPreviousOffset);
  page.next = LoadU32(bytes.data() + kNextOffset);
  page.tail = LoadU32(bytes.data() + kTailOffset);
  page.prefix_length = LoadU16(bytes.data() + kPrefixLengthOffset);
  const std::uint32_t pointer_size = page.leaf ? kLeafPointerSize : kNodePointerSize;

  // Entry boundaries from the bitmap; every entry is restored to its full
  // bytes in storage so that keys can be handed out as spans.
  std::vector<std::uint32_t> ends;
  for (int i = 0; i < kBitmapSize; ++i) {
    std::uint8_t bits = bytes[kBitmapOffset + i];
    for (int bit = 0; bits != 0 && bit < 8; ++bit) {
      if ((bits >> bit) & 1) ends.push_back(static_cast<std::uint32_t>(i * 8 + bit));
    }
  }
  if (!ends.empty() && ends.back() > kEntrySpace) ThrowDamagedPage(page_number, "has entries past its end");
  std::vector<std::pair<std::uint32_t, std::uint32_t>> spans;  // offset and length in storage
  const std::uint8_t* entries = bytes.data() + kEntriesOffset;
  std::uint32_t start = 0;
  for (std::uint32_t end : ends) {
    std::uint32_t stored = end - start;
    std::size_t offset = page.storage.size();
    if (spans.empty()) {
      if (stored < page.prefix_length) ThrowDamagedPage(page_number, "has a shared prefix longer than its first entry");
    } else {
      page.storage.insert(page.storage.end(), entries, entries + page.prefix_length);
    }
    page.storage.insert(page.storage.end(), entries + start, entries + end);
    std::uint32_t length = static_cast<std::uint32_t>(page.storage.size() - offset);
    if (length <= pointer_size) ThrowDamagedPage(page_number, "has an entry too short for its pointers");
    spans.emplace_back(static_cast<std::uint32_t>(offset), length);
    start = end;
  }
  for (auto [offset, length] : spans) {
    const std::uint8_t* entry = page.storage.data() + offset;
    std::uint32_t key_length = length - pointer_size;
    PageEntry decoded;
    decoded.key = Bytes(entry, key_length);
    const std::uint8_t* pointer = entry + key_length;
    decoded.data_page = (std::uint32_t{pointer[0]} << 16) | (std::uint32_t{pointer[1]} << 8) | pointer[2];
    decoded.data_row = pointer[3];
    if (!page.leaf) {
      decoded.child_page = (std::uint32_t{pointer[4]} << 24) | (std::uint32_t{pointer[5]} << 16) |
                           (std::uint32_t{pointer[6]} << 8) | pointer[7];
    }
    page.entries.push_back(decoded);
  }
  return page;
}

void Encode(std::span<std::uint8_t> page, const Header& header, std::span<const Bytes> entries,
            std::uint32_t prefix_length) {
  std::fill(page.begin(), page.end(), std::uint8_t{0});
  std::uint8_t* p = page.data();
  p[0] = header.leaf ? format::kPageIndexLeaf : format::kPageIndexNode;
  p[1] = 0x01;
  StoreU32(p + kOwnerOffset, header.owner);
  StoreU32(p + kPreviousOffset, header.previous);
  StoreU32(p + kNextOffset, header.next);
  StoreU32(p + kTailOffset, header.tail);
  StoreU16(p + kPrefixLengthOffset, prefix_length);
  p[kNodeMarkOffset] = header.leaf ? 0x00 : 0x01;

  std::uint32_t used = 0;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    Bytes stored = i == 0 ? entries[i] : entries[i].subspan(prefix_length);
    std::memcpy(p + kEntriesOffset + used, stored.data(), stored.size());
    used += static_cast<std::uint32_t>(stored.size());
    p[kBitmapOffset + used / 8] |= static_cast<std::uint8_t>(1u << (used % 8));
  }
  StoreU16(p + kFreeSpaceOffset, kEntrySpace - used);
}

void AppendPointers(std::uint32_t data_page, std::uint8_t data_row, std::vector<std::uint8_t>& out) {
  out.push_back(static_cast<std::uint8_t>(data_page >> 16));
  out.push_back(static_cast<std::uint8_t>(data_page >> 8));
  out.push_back(static_cast<std::uint8_t>(data_page));
  out.push_back(data_row);
}

void AppendChild(std::uint32_t child_page, std::vector<std::uint8_t>& out) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(child_page >> shift));
}

}  // namespace kvdao::jet::internal::index_page

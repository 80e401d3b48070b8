#include "header.h"

#include <array>
#include <cstring>
#include <vector>

#include "kvdao/jet/dao_exception.h"

namespace kvdao::jet::internal {

void Rc4Apply(std::span<const std::uint8_t> key, std::span<std::uint8_t> data) noexcept {
  std::array<std::uint8_t, 256> state;
  for (int i = 0; i < 256; ++i) state[i] = static_cast<std::uint8_t>(i);
  std::uint8_t j = 0;
  for (int i = 0; i < 256; ++i) {
    j = static_cast<std::uint8_t>(j + state[i] + key[i % key.size()]);
    std::swap(state[i], state[j]);
  }
  std::uint8_t a = 0, b = 0;
  for (std::uint8_t& byte : data) {
    a = static_cast<std::uint8_t>(a + 1);
    b = static_cast<std::uint8_t>(b + state[a]);
    std::swap(state[a], state[b]);
    byte ^= state[static_cast<std::uint8_t>(state[a] + state[b])];
  }
}

Header ReadHeader(Bytes file) {
  constexpr std::size_t kIdLength = sizeof(format::kHeaderFormatId) - 1;
  if (file.size() < 2048 || file[0] != format::kPageDatabaseHeader ||
      std::memcmp(file.data() + format::kHeaderFormatIdOffset, format::kHeaderFormatId, kIdLength) != 0) {
    throw DaoException("Unrecognized database format: the file is not a Jet database.");
  }
  Header header;
  std::uint8_t version = file[format::kHeaderVersionOffset];
  if (version == 0) {
    header.layout = &format::kJet3;
  } else if (version == 1) {
    header.layout = &format::kJet4;
  } else {
    throw DaoException("Unrecognized database format: Jet version code " + std::to_string(version) +
                       " is not Jet 3 or Jet 4.");
  }
  const format::Layout& layout = *header.layout;
  if (file.size() < layout.page_size * 3u) {
    throw DaoException("The database file is damaged: it is shorter than its system pages.");
  }

  // Unmask a copy of the masked region; offsets below are from page start.
  int masked_size = layout.version == format::Version::kJet3 ? format::kHeaderMaskedSizeJet3
                                                             : format::kHeaderMaskedSizeJet4;
  std::vector<std::uint8_t> page(file.begin(), file.begin() + format::kHeaderMaskedOffset + masked_size);
  std::uint8_t key[4];
  for (int i = 0; i < 4; ++i) key[i] = static_cast<std::uint8_t>(format::kHeaderMaskKey >> (8 * i));
  Rc4Apply(key, std::span(page).subspan(format::kHeaderMaskedOffset));

  DatabaseInfo& info = header.info;
  info.page_size = static_cast<int>(layout.page_size);
  info.code_page = LoadU16(&page[format::kHeaderCodePage]);
  if (layout.version == format::Version::kJet3) {
    info.jet_version = 3;
    info.sort_order = LoadU16(&page[format::kHeaderSortOrderJet3]);
  } else {
    info.jet_version = 4;
    info.sort_order = static_cast<long>(LoadU32(&page[format::kHeaderSortOrderJet4]));
    info.creation_date = LoadF64(&page[format::kHeaderCreationDateJet4]);
    header.encrypted = LoadU32(&page[format::kHeaderEncodingKeyJet4]) != 0;
    // An empty password reads as the whole days of the creation date, word
    // by word.
    const double days = info.creation_date;
    std::uint32_t day_mask =
        days > -2.0e9 && days < 2.0e9 ? static_cast<std::uint32_t>(static_cast<std::int32_t>(days)) : 0;
    for (int i = 0; i < format::kHeaderPasswordSizeJet4; i += 4) {
      if (LoadU32(&page[format::kHeaderPasswordJet4 + i]) != day_mask) header.has_password = true;
    }
  }
  return header;
}

}  // namespace kvdao::jet::internal

#include "header_writer.h"

#include <cmath>
#include <cstring>

#include "byte_writer.h"
#include "format.h"
#include "header.h"

namespace kvdao::jet::internal {

void WriteHeaderPage(std::span<std::uint8_t> page, const HeaderValues& values) {
  std::uint8_t* p = page.data();
  p[0] = format::kPageDatabaseHeader;
  p[1] = 0x01;
  std::memcpy(p + format::kHeaderFormatIdOffset, format::kHeaderFormatId, sizeof(format::kHeaderFormatId));
  StoreU32(p + format::kHeaderVersionOffset, 1);  // Jet 4

  // The masked region, in clear. The words at 0x18 are written by every Jet
  // 4 engine that made a file we have seen (as Jet writes).
  std::uint8_t* masked = p + format::kHeaderMaskedOffset;
  static constexpr std::uint8_t kEngineWords[] = {0x00, 0x01, 0x00, 0x00, 0x01, 0x01, 0x00, 0x00,
                                                  0x02, 0x00, 0x00, 0x00, 0x03, 0x00, 0x00, 0x00,
                                                  0x04, 0x00, 0x00, 0x00, 0x05, 0x00, 0x00, 0x00};
  std::memcpy(masked, kEngineWords, sizeof kEngineWords);
  StoreU16(p + format::kHeaderCodePage, values.code_page);
  // No password: the password bytes are zero, masked word by word with the
  // whole days of the creation date.
  std::uint32_t day_mask = static_cast<std::uint32_t>(static_cast<std::int32_t>(std::trunc(values.creation_date)));
  for (int i = 0; i < format::kHeaderPasswordSizeJet4; i += 4) {
    StoreU32(p + format::kHeaderPasswordJet4 + i, day_mask);
  }
  StoreU16(p + format::kHeaderUnknown6AJet4, format::kHeaderUnknown6AValue);
  StoreU32(p + format::kHeaderSortOrderJet4, values.sort_order);
  StoreF64(p + format::kHeaderCreationDateJet4, values.creation_date);

  std::uint8_t key[4];
  StoreU32(key, format::kHeaderMaskKey);
  Rc4Apply(key, page.subspan(format::kHeaderMaskedOffset, format::kHeaderMaskedSizeJet4));

  // After the masked region: an engine value and the engine version text,
  // and a filler pattern at the end of the page (as Jet writes).
  StoreU32(p + format::kHeaderEngineTailOffset, 0x0654);
  std::memcpy(p + format::kHeaderEngineTailOffset + 4, "4.0", 4);
  p[format::kHeaderFillerOffset] = 0x01;
  for (std::size_t i = format::kHeaderFillerOffset + 1; i < page.size(); i += 2) p[i] = 0x01;
}

}  // namespace kvdao::jet::internal

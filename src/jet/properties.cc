#include "properties.h"

#include <cstring>
#include <vector>

#include "kvdao/jet/dao_exception.h"
#include "kvdao/platform/text.h"
#include "table_definition.h"

namespace kvdao::jet::internal {
namespace {

constexpr std::uint16_t kChunkNames = 0x80;
constexpr std::uint8_t kPropertyBoolean = 0x01;

std::string ReadName(const ByteReader& reader, std::size_t& pos, const format::Layout& layout) {
  std::size_t length = reader.U16(pos);
  pos += 2;
  std::string name = DecodeName(reader.Slice(pos, length), layout);
  pos += length;
  return name;
}

void ReadValues(const ByteReader& chunk, const std::vector<std::string>& names,
                const format::Layout& layout, PropertyTable& table) {
  std::size_t pos = 6;
  if (pos >= chunk.size()) return;
  std::size_t header_length = chunk.U32(pos);
  std::size_t name_pos = pos + 4;
  std::string object = platform::ToLower1252(ReadName(chunk, name_pos, layout));
  if (header_length < 4) return;
  pos += header_length;
  ColumnProperties properties;
  bool any = false;
  while (pos + 8 <= chunk.size()) {
    std::size_t length = chunk.U16(pos);
    if (length < 8) break;
    std::uint8_t type = chunk.U8(pos + 3);
    std::size_t name_index = chunk.U16(pos + 4);
    std::size_t data_length = chunk.U16(pos + 6);
    if (name_index < names.size() && type == kPropertyBoolean && data_length >= 1) {
      bool value = chunk.U8(pos + 8) != 0;
      const std::string& name = names[name_index];
      if (platform::CompareNoCase1252(name, "Required") == 0) {
        properties.required = value;
        any = true;
      } else if (platform::CompareNoCase1252(name, "AllowZeroLength") == 0) {
        properties.allow_zero_length = value;
        any = true;
      }
    }
    pos += length;
  }
  if (any) table[object] = properties;
}

}  // namespace

PropertyTable ReadColumnProperties(Bytes blob, const format::Layout& layout) {
  PropertyTable table;
  if (blob.size() < 4 || (std::memcmp(blob.data(), "MR2", 4) != 0 && std::memcmp(blob.data(), "KKD", 4) != 0)) {
    return table;
  }
  try {
    ByteReader reader(blob, "a property list");
    std::vector<std::string> names;
    std::size_t pos = 4;
    while (pos + 6 <= blob.size()) {
      std::size_t length = reader.U32(pos);
      std::uint16_t type = reader.U16(pos + 4);
      if (length < 6) break;
      ByteReader chunk(reader.Slice(pos, length), "a property list");
      if (type == kChunkNames) {
        names.clear();
        std::size_t at = 6;
        while (at + 2 <= length) names.push_back(ReadName(chunk, at, layout));
      } else if (type <= 0x02) {
        ReadValues(chunk, names, layout, table);
      }
      pos += length;
    }
  } catch (const DaoException&) {
    // Keep what was read before the damage.
  }
  return table;
}

}  // namespace kvdao::jet::internal

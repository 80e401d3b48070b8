#include "property_writer.h"

#include "byte_writer.h"

namespace kvdao::jet::internal {
namespace {

constexpr std::uint16_t kChunkNames = 0x80;
constexpr std::uint16_t kChunkTable = 0x00;
constexpr std::uint16_t kChunkColumn = 0x01;
constexpr std::uint8_t kDdlProperty = 0x01;
constexpr std::uint8_t kBooleanProperty = 0x01;
enum NameIndex : std::uint16_t { kRequired = 0, kAllowZeroLength = 1 };

// Starts a chunk; returns where its length goes.
std::size_t BeginChunk(ByteBuffer& out, std::uint16_t type) {
  std::size_t at = out.size();
  out.U32(0);
  out.U16(type);
  return at;
}

void EndChunk(ByteBuffer& out, std::size_t at) {
  StoreU32(out.bytes().data() + at, static_cast<std::uint32_t>(out.size() - at));
}

void ObjectHeader(ByteBuffer& out, std::string_view name) {
  out.U32(static_cast<std::uint32_t>(6 + 2 * name.size()));
  out.Name(name);
}

void BooleanValue(ByteBuffer& out, NameIndex name) {
  out.U16(9);
  out.U8(kDdlProperty);
  out.U8(kBooleanProperty);
  out.U16(name);
  out.U16(1);
  out.U8(0x01);  // True, as Jet stores it in property lists
}

}  // namespace

std::vector<std::uint8_t> EncodeColumnProperties(const TableLayout& spec) {
  bool any = false;
  for (const ColumnLayout& column : spec.columns) any = any || column.required || column.allow_zero_length;
  if (!any) return {};
  ByteBuffer out;
  out.U32(0x0032524D);  // "MR2\0"
  std::size_t names = BeginChunk(out, kChunkNames);
  out.Name("Required");
  out.Name("AllowZeroLength");
  EndChunk(out, names);
  std::size_t table = BeginChunk(out, kChunkTable);
  ObjectHeader(out, "");
  EndChunk(out, table);
  for (const ColumnLayout& column : spec.columns) {
    if (!column.required && !column.allow_zero_length) continue;
    std::size_t chunk = BeginChunk(out, kChunkColumn);
    ObjectHeader(out, column.name);
    if (column.required) BooleanValue(out, kRequired);
    if (column.allow_zero_length) BooleanValue(out, kAllowZeroLength);
    EndChunk(out, chunk);
  }
  return std::move(out.bytes());
}

}  // namespace kvdao::jet::internal

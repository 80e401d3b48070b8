#include "kvdao/samplelist/sample_list.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

#include "kvdao/platform/exceptions.h"
#include "kvdao/platform/path.h"

namespace kvdao {

const std::string CSampleList::m_strTableName = "ANALYSIS";
const std::string CSampleList::m_strDefaultFilename = "default.spl";
const std::string CSampleList::m_strDefaultSampleListDirectory = "\\SampleDB\\";

CSampleList::CSampleList() = default;

CSampleList::~CSampleList() {
  // Only the base's own state is left by now; a storage closes its files in
  // its own destructor.
  if (m_bOpen != 0) CSampleList::Close(0);
}

int CSampleList::Open(const std::string& name) {
  if (m_bOpen != 0) return 0;
  m_bOpen = 1;
  m_strFileName = name;
  int fd = ::open(platform::ToNativePath(name).c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return 0;
  ::close(fd);
  return 1;
}

int CSampleList::Close(int) {
  if (m_bOpen == 0) return 0;
  m_bOpen = 0;
  return 1;
}

void CSampleList::Move(long n) {
  for (; n > 0; --n) NextRow();
  for (; n < 0; ++n) PreviousRow();
}

int CSampleList::AddRecords(int count) {
  AppendBlankRows(count);
  return count;
}

int CSampleList::InsertRecords(int at, int count) {
  InsertBlankRows(at, count);
  return count;
}

int CSampleList::DeleteRecords(int count, int first) {
  DeleteRows(first, count);
  return count;
}

int CSampleList::GetFieldIndex(const std::string& name) noexcept { return FindSampleColumn(name); }

int CSampleList::GetType(int column) noexcept {
  if (column < 0 || column >= kSampleColumnCount) return 0;
  return kSampleColumns[column].type;
}

int CSampleList::SetMemberVar(int column, const std::string& value) {
  if (column < 0 || column >= kSampleColumnCount) return 0;
  if (kSampleColumns[column].type == dbDouble) {
    return SetItem(column, CKVVariant(std::atof(value.c_str())));
  }
  return SetItem(column, CKVVariant(value, VT_BSTRT));
}

int CSampleList::SetMemberVar(int column, double value) {
  if (column < 0 || column >= kSampleColumnCount) return 0;
  if (kSampleColumns[column].type != dbDouble) return 0;
  return SetItem(column, CKVVariant(value));
}

int CSampleList::SetMemberVar(const std::string& name, const std::string& value) {
  int column = GetFieldIndex(name);
  return column < 0 ? 0 : SetMemberVar(column, value);
}

int CSampleList::SetMemberVar(const std::string& name, double value) {
  int column = GetFieldIndex(name);
  return column < 0 ? 0 : SetMemberVar(column, value);
}

std::string CSampleList::GetMemberVar(int column) {
  if (column < 0 || column >= kSampleColumnCount) throw NotSupportedException();
  return GetString(GetItem(column));
}

std::string CSampleList::GetMemberVar(const std::string& name) {
  return GetMemberVar(GetFieldIndex(name));
}

int CSampleList::GetMemberVar(int column, double* out) {
  if (out == nullptr) return 0;
  if (column < 0 || column >= kSampleColumnCount) throw NotSupportedException();
  *out = GetItem(column).RawPayloadAsDouble();
  return 1;
}

int CSampleList::GetMemberVar(const std::string& name, double* out) {
  int column = GetFieldIndex(name);
  return column < 0 ? 0 : GetMemberVar(column, out);
}

int CSampleList::GetExternalProgram(CExternalProgram& out, int slot) const {
  if (slot < 0 || slot > 2 || !m_pExternalPrograms[slot]) return 0;
  out = *m_pExternalPrograms[slot];
  return 1;
}

int CSampleList::SetExternalProgram(const CExternalProgram& program, int slot) {
  if (slot < 0 || slot > 2) return 0;
  m_pExternalPrograms[slot] = std::make_unique<CExternalProgram>(program);
  return 1;
}

}  // namespace kvdao

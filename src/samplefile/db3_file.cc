#include "kvdao/samplefile/db3_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

#include "kvdao/platform/path.h"
#include "kvdao/platform/record_database.h"

namespace kvdao {
namespace {

using namespace platform;

// A batch for one call of many records, unless the caller holds one.
class CallBatch {
 public:
  CallBatch(int kind, bool callerHasOne, int records)
      : kind_(kind), own_(!callerHasOne && records > 1 && DB3BeginBatch(kind) == 0) {}
  ~CallBatch() {
    if (own_) DB3EndBatch(kind_, 0);
  }
  bool Commit() {
    if (!own_) return true;
    own_ = false;
    return DB3EndBatch(kind_, 1) == 0;
  }

 private:
  int kind_;
  bool own_;
};

}  // namespace

CDB3File::CDB3File(int kind) : m_nType(kind) {}

CDB3File::~CDB3File() { Close(); }

int CDB3File::Open(const char* path, unsigned flags) {
  if (m_bOpen) return 0;
  m_strPath = path != nullptr ? path : "";
  int mode = (flags & modeCreate) != 0 ? kDB3Create : kDB3OpenExisting;
  if (DB3Open(m_nType, m_strPath.c_str(), mode) != 0) return 0;
  m_bOpen = 1;
  m_nCurrentRecord = 1;
  return 1;
}

void CDB3File::Close() {
  if (!m_bOpen) return;
  DB3Close(m_nType);
  m_bOpen = 0;
  m_bInBatch = false;
}

bool CDB3File::RecordsFit(const CDB3Record* records, int count) const {
  const int size = DB3RecordSize(m_nType);
  for (int i = 0; i < count; ++i) {
    const CDB3Record& record = records[i];
    if (record.GetType() != m_nType || record.GetBuffer() == nullptr || record.GetSize() < size) return false;
  }
  return true;
}

int CDB3File::Read(CDB3Record* records, int count) {
  if (records == nullptr || !m_bOpen || !RecordsFit(records, count)) return -1;
  const int length = GetLength();
  if (length < 0) return -1;
  const int left = length + 1 - m_nCurrentRecord;
  if (left < 0) return -1;
  const int wanted = std::min(count, left);
  if (wanted <= 0) return 0;
  CallBatch batch(m_nType, m_bInBatch, wanted);
  for (int i = 0; i < wanted; ++i) {
    if (DB3HandleRecord(m_nType, m_nCurrentRecord, records[i].GetBuffer(), kDB3Read, 0) != 0) return -1;
    ++m_nCurrentRecord;
  }
  batch.Commit();
  return wanted;
}

int CDB3File::Write(const CDB3Record* records, int count) {
  if (records == nullptr || !m_bOpen) return -1;
  if (count < 1) return 0;
  if (!RecordsFit(records, count)) return -1;
  const int length = GetLength();
  if (length < 0) return -1;
  CallBatch batch(m_nType, m_bInBatch, count);
  bool appending = false;
  for (int i = 0; i < count; ++i) {
    const int number = m_nCurrentRecord + i;
    appending = appending || number > length;
    // The store copies the buffer; it never writes through it.
    void* buffer = const_cast<void*>(records[i].GetBuffer());
    if (DB3HandleRecord(m_nType, number, buffer, appending ? kDB3Append : kDB3Replace, 1) != 0) return -1;
  }
  if (!batch.Commit()) return -1;
  m_nCurrentRecord += count;
  return count;
}

unsigned CDB3File::Read(void*, unsigned) { return 0; }

void CDB3File::Write(const void*, unsigned) {}

int CDB3File::Seek(int, int) { return -1; }

int CDB3File::GetLength() const { return m_bOpen ? DB3GetRecordsInDB(m_nType) : -1; }

int CDB3File::GetPosition() const { return m_bOpen ? m_nCurrentRecord : -1; }

int CDB3File::SetCurrentRecord(int number) {
  m_nCurrentRecord = number;
  return 1;
}

std::time_t CDB3File::GetModifiedTime() const {
  struct stat status {};
  if (m_strPath.empty() || ::stat(ToNativePath(m_strPath).c_str(), &status) != 0) return 0;
  return status.st_mtime;
}

bool CDB3File::SetModifiedTime(std::time_t time) {
  if (m_bOpen || m_strPath.empty()) return false;
  const timespec times[2] = {{0, UTIME_OMIT}, {time, 0}};
  return ::utimensat(AT_FDCWD, ToNativePath(m_strPath).c_str(), times, 0) == 0;
}

int CDB3File::WriteFile(const CDB3Record* records, int count) {
  if (records == nullptr || !m_bOpen || count < 0 || !RecordsFit(records, count)) return -1;
  const bool own = !m_bInBatch;
  if (own && DB3BeginBatch(m_nType) != 0) return -1;
  bool ok = DB3SetRecordsInDB(m_nType, 0) == 0;
  for (int i = 0; ok && i < count; ++i)
    ok = DB3HandleRecord(m_nType, 0, const_cast<void*>(records[i].GetBuffer()), kDB3Append, 1) == 0;
  if (own) ok = DB3EndBatch(m_nType, ok ? 1 : 0) == 0 && ok;
  if (!ok) return -1;
  m_nCurrentRecord = count + 1;
  return count;
}

bool CDB3File::BeginBatch() {
  if (!m_bOpen || m_bInBatch || DB3BeginBatch(m_nType) != 0) return false;
  m_bInBatch = true;
  return true;
}

bool CDB3File::EndBatch(bool commit) {
  if (!m_bInBatch) return false;
  m_bInBatch = false;
  return DB3EndBatch(m_nType, commit ? 1 : 0) == 0;
}

}  // namespace kvdao

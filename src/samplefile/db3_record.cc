#include "kvdao/samplefile/db3_record.h"

#include <cstring>
#include <new>

#include "kvdao/method/method_record.h"

namespace kvdao {

CDB3Record::CDB3Record(int kind, int size) : m_nType(kind), m_nSize(size < 0 ? 0 : size) { Initialise(); }

CDB3Record::CDB3Record(const CDB3Record& other) : m_nType(other.m_nType), m_nSize(other.m_nSize) {
  Initialise();
  if (other.m_pBuffer != nullptr) Assign(other.m_pBuffer);
}

CDB3Record& CDB3Record::operator=(const CDB3Record& other) {
  if (this == &other) return *this;
  if (m_nSize != other.m_nSize) {
    delete[] m_pBuffer;
    m_pBuffer = nullptr;
    m_nSize = other.m_nSize;
  }
  m_nType = other.m_nType;
  Initialise();
  if (other.m_pBuffer != nullptr) Assign(other.m_pBuffer);
  return *this;
}

CDB3Record::~CDB3Record() { delete[] m_pBuffer; }

int CDB3Record::Initialise() {
  if (m_pBuffer == nullptr) m_pBuffer = new (std::nothrow) std::uint8_t[static_cast<std::size_t>(m_nSize) + 1];
  if (m_pBuffer == nullptr) return 0;
  std::memset(m_pBuffer, 0, static_cast<std::size_t>(m_nSize));
  return 1;
}

void CDB3Record::Assign(const void* bytes) {
  if (m_pBuffer == nullptr && Initialise() == 0) return;
  std::memcpy(m_pBuffer, bytes, static_cast<std::size_t>(m_nSize));
}

CDB3MethodRecord& CDB3MethodRecord::operator=(const CMethodRecord& record) {
  if (record.GetData() != nullptr) Assign(record.GetData());
  return *this;
}

}  // namespace kvdao

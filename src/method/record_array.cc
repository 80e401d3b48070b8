#include "kvdao/method/record_array.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace kvdao {

CRecordArray::~CRecordArray() { CRecordArray::DestructElements(); }

void CRecordArray::Reserve(int needed) {
  if (needed <= m_nMaxSize) return;
  int step = m_nGrowBy;
  if (step == 0) step = std::clamp(m_nSize / 8, 4, 1024);
  int capacity = m_nMaxSize + step;
  if (capacity < needed) capacity = needed;
  auto* data = new CRecord*[static_cast<std::size_t>(capacity)];
  if (m_nSize > 0) std::memcpy(data, m_pData, sizeof(CRecord*) * static_cast<std::size_t>(m_nSize));
  std::fill(data + m_nSize, data + capacity, nullptr);
  delete[] m_pData;
  m_pData = data;
  m_nMaxSize = capacity;
}

void CRecordArray::SetSize(int size) {
  if (size < 0) size = 0;
  if (size > m_nSize) {
    Reserve(size);
    std::fill(m_pData + m_nSize, m_pData + size, nullptr);
  }
  m_nSize = size;
}

int CRecordArray::Add(CRecord* record) {
  Reserve(m_nSize + 1);
  m_pData[m_nSize] = record;
  return m_nSize++;
}

void CRecordArray::InsertAt(int index, CRecord* record) {
  if (index < 0) return;
  if (index >= m_nSize) {
    SetSize(index + 1);
  } else {
    Reserve(m_nSize + 1);
    std::memmove(m_pData + index + 1, m_pData + index,
                 sizeof(CRecord*) * static_cast<std::size_t>(m_nSize - index));
    ++m_nSize;
  }
  m_pData[index] = record;
}

void CRecordArray::RemoveAt(int index) noexcept {
  if (index < 0 || index >= m_nSize) return;
  std::memmove(m_pData + index, m_pData + index + 1,
               sizeof(CRecord*) * static_cast<std::size_t>(m_nSize - index - 1));
  m_pData[--m_nSize] = nullptr;
}

void CRecordArray::DestructElements() {
  for (int i = 0; i < m_nSize; ++i) delete m_pData[i];
  FreeStorage();
}

void CRecordArray::FreeStorage() noexcept {
  delete[] m_pData;
  m_pData = nullptr;
  m_nSize = 0;
  m_nMaxSize = 0;
}

}  // namespace kvdao

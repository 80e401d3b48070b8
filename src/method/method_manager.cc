#include "kvdao/method/method_manager.h"

#include <vector>

namespace kvdao {
namespace {

// Appends a deep copy of every record of `from` to `to`.
void AppendCopies(const CRecordArray& from, CRecordArray& to) {
  for (int i = 0; i < from.GetSize(); ++i) {
    const auto* record = dynamic_cast<const CMethodRecord*>(from.GetAt(i));
    to.Add(record != nullptr ? new CMethodRecord(*record) : nullptr);
  }
}

}  // namespace

CMethodManager::CMethodManager() : m_pFile(std::make_unique<CDB3MethodFile>()) {
  m_pArray = std::make_unique<CMethodArray>();
}

CMethodManager::~CMethodManager() = default;

CMethodArray& CMethodManager::WorkingList() {
  if (!m_pArray) m_pArray = std::make_unique<CMethodArray>();
  return static_cast<CMethodArray&>(*m_pArray);
}

bool CMethodManager::OpenFile(const char* path, unsigned mode) {
  return m_pFile && m_pFile->Open(path, mode) != 0;
}

bool CMethodManager::CloseFile() {
  if (!m_pFile) return false;
  m_pFile->Close();
  return true;
}

bool CMethodManager::CreateArray() {
  if (!m_pFile) return false;
  const int count = m_pFile->GetLength();
  if (count < 1) return false;
  CMethodArray& list = WorkingList();
  list.DestructElements();
  // One lock for the whole read; the batch changes nothing.
  const bool batch = m_pFile->BeginBatch();
  for (int i = 0; i < count; ++i) {
    auto* record = new CMethodRecord;
    Read(record, i);
    list.InsertAt(i, record);
  }
  if (batch) m_pFile->EndBatch(false);
  return true;
}

bool CMethodManager::Read(CRecord* record, const int& number) {
  auto* method = dynamic_cast<CMethodRecord*>(record);
  if (method == nullptr) return false;
  CDB3MethodRecord buffer;
  if (!Read(&buffer, number)) return false;
  *method = static_cast<const tagINTERNAL_METHOD&>(buffer);
  return true;
}

bool CMethodManager::Read(CDB3Record* record, const int& number) {
  if (!m_pFile || record == nullptr) return false;
  m_pFile->SetCurrentRecord(number + 1);
  return m_pFile->Read(record, 1) == 1;
}

bool CMethodManager::New() {
  m_pArray = std::make_unique<CMethodArray>();
  return true;
}

bool CMethodManager::Save(const int& index) {
  if (!m_pArray || !m_pFile || index < 0 || index >= m_pArray->GetSize()) return false;
  const auto* method = dynamic_cast<const CMethodRecord*>(m_pArray->GetAt(index));
  if (method == nullptr) return false;
  CDB3MethodRecord buffer;
  buffer = *method;
  m_pFile->SetCurrentRecord(index + 1);
  return m_pFile->Write(&buffer, 1) == 1;
}

bool CMethodManager::SaveAll() {
  if (!m_pFile || !m_pArray) return false;
  const bool batch = m_pFile->BeginBatch();
  bool ok = true;
  for (int i = 0; ok && i < m_pArray->GetSize(); ++i) ok = Save(i);
  // What was saved before a failure stays saved.
  if (batch) ok = m_pFile->EndBatch(true) && ok;
  return ok;
}

bool CMethodManager::WriteFile() {
  if (!m_pArray || m_pArray->GetSize() == 0) return false;
  std::vector<CMethodRecord> copies;
  copies.reserve(static_cast<std::size_t>(m_pArray->GetSize()));
  for (int i = 0; i < m_pArray->GetSize(); ++i) {
    const auto* method = dynamic_cast<const CMethodRecord*>(m_pArray->GetAt(i));
    copies.push_back(method != nullptr ? CMethodRecord(*method) : CMethodRecord());
  }
  return WriteFile(copies.data(), static_cast<int>(copies.size()));
}

bool CMethodManager::WriteFile(const CMethodRecord* records, const int& count) {
  if (records == nullptr || count < 0) return false;
  std::vector<CDB3MethodRecord> buffers(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) buffers[static_cast<std::size_t>(i)] = records[i];
  return WriteFile(buffers.data(), count);
}

bool CMethodManager::WriteFile(const CDB3Record* records, const int& count) {
  return m_pFile && m_pFile->WriteFile(records, count) == count;
}

bool CMethodManager::CopyPermanentToTemp() {
  CMethodArray& list = WorkingList();
  list.DestructElements();
  if (!m_pPermanent) return false;
  AppendCopies(*m_pPermanent, list);
  return true;
}

bool CMethodManager::CopyTempToPermanent() {
  m_pPermanent = std::make_unique<CMethodArray>();
  if (!m_pArray) return false;
  AppendCopies(*m_pArray, *m_pPermanent);
  return true;
}

CMethodRecord* CMethodManager::GetPermanentAt(const int& index) const {
  if (!m_pPermanent || index < 0 || index >= m_pPermanent->GetSize()) return nullptr;
  return dynamic_cast<CMethodRecord*>(m_pPermanent->GetAt(index));
}

int CMethodManager::GetPermanentSize() const { return m_pPermanent ? m_pPermanent->GetSize() : 0; }

}  // namespace kvdao

#include "kvdao/samplelist/sample_list_mem.h"

#include <stdexcept>

#include "kvdao/platform/environment.h"
#include "kvdao/platform/exceptions.h"
#include "kvdao/platform/path.h"

namespace kvdao {

CSampleListMem::CSampleListMem() = default;

CSampleListMem::~CSampleListMem() {
  if (m_bOpen != 0) CSampleListMem::Close(0);
}

CSampleListMem& CSampleListMem::operator=(const CSampleListMem& other) {
  if (this == &other) return *this;
  New();
  if (!other.m_rows.empty()) {
    *m_rows[0] = *other.m_rows[0];
    m_rows.reserve(other.m_rows.size());
    for (std::size_t i = 1; i < other.m_rows.size(); ++i) {
      m_rows.push_back(std::make_unique<CSampleListRow>(*other.m_rows[i]));
    }
  }
  SyncCount();
  m_bModified = 1;
  return *this;
}

CSampleListRow* CSampleListMem::CurrentRow() noexcept {
  if (m_nCurrentRow < 0 || m_nCurrentRow >= m_nRowCount) return nullptr;
  return m_rows[m_nCurrentRow].get();
}

const CSampleListRow* CSampleListMem::CurrentRow() const noexcept {
  if (m_nCurrentRow < 0 || m_nCurrentRow >= m_nRowCount) return nullptr;
  return m_rows[m_nCurrentRow].get();
}

CKVVariant CSampleListMem::GetItem(int column) {
  return static_cast<const CSampleListMem*>(this)->GetItem(column);
}

CKVVariant CSampleListMem::GetItem(int column) const {
  if (column < 0 || column >= kSampleColumnCount) throw NotSupportedException();
  const CSampleListRow* row = CurrentRow();
  return row != nullptr ? (*row)[column] : CKVVariant();
}

int CSampleListMem::SetItem(int column, const CKVVariant& value) {
  if (column < 0 || column >= kSampleColumnCount) throw NotSupportedException();
  CSampleListRow* row = CurrentRow();
  if (row == nullptr) return 0;
  CKVVariant& cell = (*row)[column];
  if (!(cell == value)) {
    cell = value;
    m_bModified = 1;
  }
  return 1;
}

int CSampleListMem::SetRow(int row) {
  if (row < 0 || row >= m_nRowCount) return 0;
  m_nCurrentRow = row;
  return 1;
}

int CSampleListMem::NextRow() {
  if (m_nCurrentRow >= m_nRowCount - 1) return 0;
  ++m_nCurrentRow;
  return 1;
}

int CSampleListMem::PreviousRow() {
  if (m_nCurrentRow <= 0) return 0;
  --m_nCurrentRow;
  return 1;
}

int CSampleListMem::AppendRow(const CSampleListRow& row) {
  m_rows.push_back(std::make_unique<CSampleListRow>(row));
  SyncCount();
  m_bModified = 1;
  return 1;
}

int CSampleListMem::InsertRow(int at, const CSampleListRow& row) {
  if (at < 0 || at > m_nRowCount) return 0;
  m_rows.insert(m_rows.begin() + at, std::make_unique<CSampleListRow>(row));
  SyncCount();
  m_bModified = 1;
  return 1;
}

int CSampleListMem::DeleteRow(int row) {
  if (row < 0 || row >= m_nRowCount) return 0;
  m_rows.erase(m_rows.begin() + row);
  SyncCount();
  m_bModified = 1;
  return 1;
}

int CSampleListMem::AppendBlankRows(int count) {
  return InsertBlankRows(m_nRowCount, count);
}

int CSampleListMem::InsertBlankRows(int at, int count) {
  if (at < 0 || at > m_nRowCount) return 0;
  if (count <= 0) return 1;
  std::vector<std::unique_ptr<CSampleListRow>> blank;
  blank.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) blank.push_back(std::make_unique<CSampleListRow>());
  m_rows.insert(m_rows.begin() + at, std::make_move_iterator(blank.begin()),
                std::make_move_iterator(blank.end()));
  SyncCount();
  m_bModified = 1;
  return 1;
}

int CSampleListMem::DeleteRows(int first, int count) {
  if (first < 0 || first >= m_nRowCount) return 0;
  if (count <= 0) return 1;
  int last = count > m_nRowCount - first ? m_nRowCount : first + count;
  m_rows.erase(m_rows.begin() + first, m_rows.begin() + last);
  SyncCount();
  m_bModified = 1;
  return 1;
}

int CSampleListMem::DeleteLastRow() {
  if (m_nRowCount < 1) return 0;
  return DeleteRow(m_nRowCount - 1);
}

int CSampleListMem::Open(const std::string& name) {
  int result = CSampleList::Open(name);
  if (result != 0) m_bUntitled = 0;
  return result;
}

int CSampleListMem::Close(int flags) { return CSampleList::Close(flags); }

CSampleListRow* CSampleListMem::GetSample(int n) {
  if (n < 1 || n > m_nRowCount) return nullptr;
  return m_rows[n - 1].get();
}

int CSampleListMem::AddSample(const CSampleListRow& row) {
  AppendRow(row);
  return m_nRowCount;
}

int CSampleListMem::RemoveSample(int n) { return DeleteRow(n); }

int CSampleListMem::DeleteAllSamples() {
  m_rows.clear();
  SyncCount();
  m_bModified = 1;
  return 1;
}

int CSampleListMem::New() {
  Close(0);
  DeleteAllSamples();
  AppendBlankRows(1);
  m_nCurrentRow = 0;
  m_bUntitled = 1;
  m_bModified = 0;
  return 1;
}

CSampleListRow& CSampleListMem::operator[](int row) {
  if (row < 0 || row >= m_nRowCount) throw std::out_of_range("sample list row out of range");
  return *m_rows[row];
}

const CSampleListRow& CSampleListMem::operator[](int row) const {
  if (row < 0 || row >= m_nRowCount) throw std::out_of_range("sample list row out of range");
  return *m_rows[row];
}

int CSampleListMem::PreSave(const char* path) {
  if (m_bUntitled == 0) {
    bool sameName = path == nullptr || m_strFileName == path;
    if (sameName && m_bModified == 0) return 0;
  }
  if (m_bUntitled != 0 && path != nullptr) {
    m_strSaveName = path;
  } else if (m_bUntitled != 0) {
    // The current project's sample-list folder.
    std::string folder = platform::JoinPath(platform::GetProjectDirectory(),
                                            m_strDefaultSampleListDirectory);
    m_strSaveName = platform::ToNativePath(platform::JoinPath(folder, m_strDefaultFilename));
  } else {
    m_strSaveName = path != nullptr ? std::string(path) : m_strFileName;
  }
  return 1;
}

}  // namespace kvdao

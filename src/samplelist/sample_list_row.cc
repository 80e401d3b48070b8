#include "kvdao/samplelist/sample_list_row.h"

#include "kvdao/platform/exceptions.h"

namespace kvdao {

CSampleListRow::CSampleListRow() {
  for (int i = 0; i < kSampleColumnCount; ++i) {
    switch (kSampleColumns[i].type) {
      case dbDouble:
        cells_[i] = 0.0;
        break;
      case dbText:
        cells_[i] = "";
        break;
      default:
        break;
    }
  }
}

CKVVariant& CSampleListRow::operator[](int column) {
  if (column < 0 || column >= kSampleColumnCount) throw NotSupportedException();
  return cells_[column];
}

const CKVVariant& CSampleListRow::operator[](int column) const {
  if (column < 0 || column >= kSampleColumnCount) throw NotSupportedException();
  return cells_[column];
}

bool CSampleListRow::operator==(const CSampleListRow& other) const noexcept {
  for (int i = 0; i < kSampleColumnCount; ++i) {
    if (!(cells_[i] == other.cells_[i])) return false;
  }
  return true;
}

}  // namespace kvdao

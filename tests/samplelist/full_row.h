#pragma once

// A sample-list row with a distinct value in every column, for round trips:
// short texts ("v<column>", within every field's width) and doubles that
// "%lf" writes exactly (1 + column / 4), with a whole-number Index.

#include <string>

#include "kvdao/samplelist/sample_list_row.h"

namespace kvdao::test {

inline CSampleListRow FullRow(double index = 42.0) {
  CSampleListRow row;
  for (int column = 0; column < kSampleColumnCount; ++column) {
    if (kSampleColumns[column].type == dbText) {
      row[column] = "v" + std::to_string(column);
    } else {
      row[column] = 1.0 + column * 0.25;
    }
  }
  row[kColumnIndex] = index;
  return row;
}

}  // namespace kvdao::test

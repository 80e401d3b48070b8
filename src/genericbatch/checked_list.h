#pragma once

// Index-checked element operations on a Dim1Data, as the generic batch
// classes offer them: 1 when the index lies in 0 … count − 1, else 0 and
// nothing touched. Internal to the generic batch area.

#include "kvdao/genericbatch/dim1_data.h"

namespace kvdao::checked {

inline bool InRange(int index, int count) { return index >= 0 && index < count; }

template <typename T, typename ARG>
int Remove(Dim1Data<T, ARG>& list, int index) {
  if (!InRange(index, list.GetSize())) return 0;
  list.RemoveAt(index);
  return 1;
}

template <typename T, typename ARG>
int Set(Dim1Data<T, ARG>& list, int index, const T& value) {
  if (!InRange(index, list.GetSize())) return 0;
  list[index] = value;
  return 1;
}

template <typename T, typename ARG>
int Get(const Dim1Data<T, ARG>& list, int index, T& value) {
  if (!InRange(index, list.GetSize())) return 0;
  value = list[index];
  return 1;
}

}  // namespace kvdao::checked

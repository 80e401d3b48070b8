#pragma once

// Field type numbers of the Jet database engine's DAO interface. The sample
// column schema stores its column types as these numbers.

namespace kvdao {

enum DataTypeEnum : int {
  dbBoolean = 1,
  dbByte = 2,
  dbInteger = 3,
  dbLong = 4,
  dbCurrency = 5,
  dbSingle = 6,
  dbDouble = 7,
  dbDate = 8,
  dbBinary = 9,
  dbText = 10,
  dbLongBinary = 11,
  dbMemo = 12,
  dbGUID = 15,
  dbDecimal = 20,
};

}  // namespace kvdao

#include "kvdao/samplelist/kv_variant.h"

#include "kvdao/platform/text.h"

namespace kvdao {

const std::string& GetString(const CKVVariant& value) {
  // One buffer per thread: a caller sees the documented "previous text" for
  // tags without a conversion, and threads never share a buffer.
  static thread_local std::string buffer;
  switch (value.vt()) {
    case VT_EMPTY:
    case VT_NULL:
      buffer.clear();
      break;
    case VT_R4:
      buffer = platform::Format("%f", static_cast<double>(value.fltVal()));
      break;
    case VT_R8:
      buffer = platform::Format("%f", value.dblVal());
      break;
    case VT_BSTR:
      buffer.assign(value.text());
      break;
    case VT_BOOL:
      buffer = value.boolVal() != 0 ? "TRUE" : "FALSE";
      break;
    case VT_I1:
      buffer.clear();
      if (value.cVal() != '\0') buffer.push_back(value.cVal());
      break;
    case VT_I2:
      buffer = platform::Format("%d", static_cast<int>(value.iVal()));
      break;
    case VT_UI1:
      buffer = platform::Format("%d", static_cast<int>(value.bVal()));
      break;
    case VT_UI2:
      buffer = platform::Format("%d", static_cast<int>(value.uiVal()));
      break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
      buffer = platform::Format("%d", static_cast<int>(value.lVal()));
      break;
    default:
      break;
  }
  return buffer;
}

}  // namespace kvdao

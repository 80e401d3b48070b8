#include "kvdao/method/mass_string_comparitor.h"

#include <cctype>
#include <cmath>

#include "kvdao/platform/text.h"
#include "number_text.h"

namespace kvdao {
namespace {

constexpr int kMaxChannel = 32;

bool StartsWithNoCase(const std::string& text, const char* prefix) {
  return text.size() >= 2 && platform::CompareNoCase1252(text.substr(0, 2), prefix) == 0;
}

bool IsChannel(double value) { return value == std::floor(value) && value >= 1 && value <= kMaxChannel; }

bool HasSecondValue(int kind) {
  return kind == CMassStringComparitor::kTransition || kind == CMassStringComparitor::kRange ||
         kind == CMassStringComparitor::kSum || kind == CMassStringComparitor::kUnderscore;
}

}  // namespace

CMassStringComparitor::CMassStringComparitor(const std::string& text, double tolerance)
    : m_strText(text), m_dTolerance(tolerance) {}

CMassStringComparitor::CMassStringComparitor(const CMassStringComparitor& other)
    : m_nKind(other.m_nKind),
      m_strText(other.m_strText),
      m_dFirst(other.m_dFirst),
      m_dSecond(other.m_dSecond),
      m_dTolerance(other.m_dTolerance),
      m_nCount(1) {}

void CMassStringComparitor::RationaliseString() {
  std::erase_if(m_strText, [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; });
}

void CMassStringComparitor::RemoveString(const std::string& s) {
  m_strText = platform::ToLower1252(m_strText);
  if (s.empty()) return;
  for (std::size_t at = m_strText.find(s); at != std::string::npos; at = m_strText.find(s)) {
    m_strText.erase(at, s.size());
  }
}

void CMassStringComparitor::DoConvertion() {
  RationaliseString();
  if (StartsWithNoCase(m_strText, "tr")) RemoveTr();

  const std::size_t separator = m_strText.find_first_of("_c+->");

  if (platform::CompareNoCase1252(m_strText, "TIC") == 0) {
    m_nKind = kTic;
    return;
  }
  if (platform::CompareNoCase1252(m_strText, "BPI") == 0) {
    m_nKind = kBpi;
    return;
  }

  if (StartsWithNoCase(m_strText, "an")) {
    RemoveAn();
    if (m_strText.size() != 1 || m_strText[0] < '1' || m_strText[0] > '8') {
      m_nKind = kInvalid;
    } else {
      m_nKind = kAnalogue;
      m_dFirst = m_strText[0] - '0';
    }
    return;
  }

  if (StartsWithNoCase(m_strText, "ch")) {
    RemoveCh();
    DoConvertion();
    if (m_nKind == kMass) {
      m_nKind = IsChannel(m_dFirst) ? kChannel : kInvalid;
    } else if (m_nKind == kTransition) {
      m_nKind = IsChannel(m_dFirst) && IsChannel(m_dSecond) ? kChannel : kInvalid;
    } else if (m_nKind != kSum) {
      m_nKind = kInvalid;
    }
    return;
  }

  if (separator == std::string::npos) {
    m_dFirst = method_text::ParseDouble(m_strText);
    m_nKind = m_dFirst > 0 ? kMass : kInvalid;
    return;
  }

  std::string_view text(m_strText);
  m_dFirst = method_text::ParseDouble(text.substr(0, separator));
  m_dSecond = method_text::ParseDouble(text.substr(separator + 1));
  m_nKind = kInvalid;
  if (m_dFirst > 0 && m_dSecond > 0) {
    switch (m_strText[separator]) {
      case '+': m_nKind = kSum; break;
      case '-': m_nKind = kRange; break;
      case '>': m_nKind = kTransition; break;
      case '_': m_nKind = kUnderscore; break;
      default: break;  // the letter c
    }
  }
}

bool CMassStringComparitor::operator==(CMassStringComparitor& other) {
  if (m_nKind == kUnclassified) DoConvertion();
  if (other.m_nKind == kUnclassified) other.DoConvertion();

  if (m_nKind != other.m_nKind) return false;
  if (m_nKind == kTic || m_nKind == kBpi) return true;
  if (m_nKind < kMass || m_nKind > kAnalogue) return false;

  const bool both = HasSecondValue(m_nKind);
  if (m_dTolerance != 0) {
    double d1 = std::fabs(m_dFirst - other.m_dFirst);
    double d2 = both ? std::fabs(m_dSecond - other.m_dSecond) : 0.0;
    return d1 <= m_dTolerance && d2 <= m_dTolerance;
  }
  return m_dFirst == other.m_dFirst && (!both || m_dSecond == other.m_dSecond);
}

}  // namespace kvdao

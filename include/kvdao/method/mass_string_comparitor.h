#pragma once

// CMassStringComparitor: compares trace texts of method records (QuanTrace,
// SecondaryTrace, TargetTrace) within a mass tolerance.
//
// A trace text is a single mass ("278.1"), two masses joined by ">", "-",
// "+" or "_" ("278.1>154.0"), a channel after "ch" ("ch1", "ch1>2"), an
// analogue channel digit after "an" ("an3"), or the whole-run traces "TIC"
// and "BPI"; "tr" in front is ignored. The text is classified once (the
// first comparison does it, or DoConvertion) and its numbers kept.
//
// Equality uses the tolerance of the left operand only, so a == b and
// b == a may differ. Kinds 1 (mass), 4 (channel) and 9 (analogue) compare
// the first number only: "ch1>2" equals "ch1>3". An invalid text equals
// nothing, not even itself. Any text that contains a lower-case "c" and is
// neither "TIC" nor a channel is invalid (the letter is one of the
// separators).
//
// The use counter lets several owners share one object: AddCount() when
// another takes it, RemoveCount() when one lets go.

#include <string>

namespace kvdao {

class CMassStringComparitor {
 public:
  enum Kind : int {
    kUnclassified = 0,
    kMass = 1,          // a number > 0
    kTransition = 2,    // a>b
    kRange = 3,         // a-b
    kChannel = 4,       // ch n or ch a>b, channels 1 … 32
    kSum = 5,           // a+b (also after "ch")
    kTic = 6,
    kBpi = 7,
    kUnderscore = 8,    // a_b
    kAnalogue = 9,      // an1 … an8
    kInvalid = 10,
  };

  CMassStringComparitor(const std::string& text, double tolerance);
  // Copies kind, text, values and tolerance; the new object's count is 1.
  CMassStringComparitor(const CMassStringComparitor& other);
  // Copies everything, the count included.
  CMassStringComparitor& operator=(const CMassStringComparitor& other) = default;

  // Classifies either side that is still unclassified, then compares.
  bool operator==(CMassStringComparitor& other);

  // Classification: sets the kind and values and rewrites the text (blanks
  // and prefixes removed, lower-cased where a prefix was removed).
  void DoConvertion();
  // Removes every whitespace character.
  void RationaliseString();
  // Lower-cases the text, then removes `s` until no occurrence is left.
  void RemoveString(const std::string& s);
  void RemoveCh() { RemoveString("ch"); }
  void RemoveAn() { RemoveString("an"); }
  void RemoveTr() { RemoveString("tr"); }

  CMassStringComparitor& AddCount() noexcept {
    ++m_nCount;
    return *this;
  }
  // Decrements the count; true when it was 1 (no user is left).
  bool RemoveCount() noexcept { return m_nCount-- == 1; }

  int GetKind() const noexcept { return m_nKind; }
  const std::string& GetText() const noexcept { return m_strText; }
  double GetFirst() const noexcept { return m_dFirst; }
  double GetSecond() const noexcept { return m_dSecond; }
  double GetTolerance() const noexcept { return m_dTolerance; }
  int GetCount() const noexcept { return m_nCount; }

 private:
  int m_nKind = kUnclassified;
  std::string m_strText;
  double m_dFirst = 0.0;
  double m_dSecond = 0.0;
  double m_dTolerance = 0.0;
  int m_nCount = 1;
};

}  // namespace kvdao

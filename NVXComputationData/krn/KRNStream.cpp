// Printing a double in the document's current number format.
#include "krn/KRNStream.h"

namespace nvx {

KrnStream& KrnStream::Double(double v) {
  // A precision of 0 or less prints 6 digits unless fixed notation is in force,
  // as the files' original runtime does; with fixed notation it prints none.
  int precision = m_precision;
  if (precision <= 0 && !m_fixed) precision = 6;
  if (precision < 0) precision = 0;

  // Both flags at once (the computing-manager writer leaves them so) would mean
  // hexadecimal output here; files never hold that, so fixed wins.
  std::ios_base::fmtflags notation = std::ios_base::fmtflags{};
  if (m_fixed) {
    notation = std::ios_base::fixed;
  } else if (m_scientific) {
    notation = std::ios_base::scientific;
  }
  m_os.setf(notation, std::ios_base::floatfield);
  m_os.precision(precision);
  m_os << v;
  return *this;
}

}  // namespace nvx

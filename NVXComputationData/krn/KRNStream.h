// KrnStream: the one output stream of a KRN document and its number format.
// Section writers switch notation and precision and never switch back, so a
// setting carries over into every later section until another writer changes
// it; that carry-over decides how every double of the document is printed.
#ifndef NVX_KRN_KRNSTREAM_H_
#define NVX_KRN_KRNSTREAM_H_

#include <cstdint>
#include <ostream>
#include <string_view>

namespace nvx {

class KrnStream {
 public:
  explicit KrnStream(std::ostream& os) : m_os(os) { m_os.precision(6); }

  // Notation back to general (fixed and scientific both cleared).
  void General() { m_fixed = m_scientific = false; }
  void Fixed() { m_fixed = true, m_scientific = false; }
  void Scientific() { m_scientific = true, m_fixed = false; }
  // Sets the fixed flag and leaves the scientific flag as it is.
  void FixedKeepScientific() { m_fixed = true; }
  void Precision(int digits) { m_precision = digits; }

  bool IsFixed() const { return m_fixed; }
  bool IsScientific() const { return m_scientific; }
  int GetPrecision() const { return m_precision; }

  KrnStream& Text(std::string_view s) {
    m_os.write(s.data(), static_cast<std::streamsize>(s.size()));
    return *this;
  }
  KrnStream& Int(std::int64_t v) {
    m_os << v;
    return *this;
  }
  KrnStream& Double(double v);
  // End of line; flushes, as every line of the format does.
  KrnStream& EndLine() {
    m_os << std::endl;
    return *this;
  }
  // A whole line: text and end of line.
  KrnStream& Line(std::string_view s) { return Text(s).EndLine(); }

  std::ostream& Raw() { return m_os; }

 private:
  std::ostream& m_os;
  bool m_fixed = false;
  bool m_scientific = false;
  int m_precision = 6;
};

}  // namespace nvx

#endif  // NVX_KRN_KRNSTREAM_H_

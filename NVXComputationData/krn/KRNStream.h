// KrnStream: the one output stream of a KRN document and its number format.
// Section writers switch notation and precision and never switch back, so a
// setting carries over into every later section until another writer changes
// it; that carry-over decides how every double of the document is printed.
//
// Text goes either into a string (the document writers build the whole file
// in memory and hand it to the file system in one write) or straight into an
// ostream. Lines end with the system's text line end ("\r\n" on Windows, "\n"
// elsewhere) and never flush: a KRN file is written to a fresh file that
// replaces the old one only once complete and flushed, so a reader never sees
// a partial file and a flush per line would change nothing but the time taken.
#ifndef NVX_KRN_KRNSTREAM_H_
#define NVX_KRN_KRNSTREAM_H_

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace nvx {

class KrnStream {
 public:
  // Lines end with the system's text line end.
  explicit KrnStream(std::ostream& os);
  explicit KrnStream(std::string& text);
  // Lines end with `lineEnd` (a literal or other text that outlives the
  // stream), e.g. to keep the line ends of a file being edited.
  KrnStream(std::ostream& os, std::string_view lineEnd) : m_os(&os), m_lineEnd(lineEnd) {}
  KrnStream(std::string& text, std::string_view lineEnd) : m_text(&text), m_lineEnd(lineEnd) {}

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
    if (m_text != nullptr) {
      m_text->append(s.data(), s.size());
    } else {
      m_os->write(s.data(), static_cast<std::streamsize>(s.size()));
    }
    return *this;
  }
  KrnStream& Int(std::int64_t v);
  KrnStream& Double(double v);
  KrnStream& EndLine() { return Text(m_lineEnd); }
  // A whole line: text and end of line.
  KrnStream& Line(std::string_view s) { return Text(s).EndLine(); }

 private:
  std::ostream* m_os = nullptr;
  std::string* m_text = nullptr;
  std::string_view m_lineEnd;
  bool m_fixed = false;
  bool m_scientific = false;
  int m_precision = 6;
};

// `v` as the document's stream prints it with these settings: general
// notation (printf's %g) unless one flag is set, fixed (%f) or scientific
// (%e); a precision of 0 or less means 6 unless fixed notation is in force,
// where it means none. Exponents have at least two digits ("1e-05").
std::string_view FormatKrnDouble(double v, bool fixed, bool scientific, int precision,
                                 char (&buffer)[400]);

}  // namespace nvx

#endif  // NVX_KRN_KRNSTREAM_H_

// Printing numbers in the document's current number format.
#include "krn/KRNStream.h"

#include <charconv>

#include "NVXPlatform.h"

namespace nvx {

KrnStream::KrnStream(std::ostream& os) : m_os(&os), m_lineEnd(platform::TextLineEnd()) {}

KrnStream::KrnStream(std::string& text) : m_text(&text), m_lineEnd(platform::TextLineEnd()) {}

std::string_view FormatKrnDouble(double v, bool fixed, bool scientific, int precision,
                                 char (&buffer)[400]) {
  // A precision of 0 or less prints 6 digits unless fixed notation is in force,
  // as the files' original runtime does; with fixed notation it prints none.
  if (precision <= 0 && !fixed) precision = 6;
  if (precision < 0) precision = 0;
  // Both flags at once (the computing-manager writer leaves them so) would mean
  // hexadecimal output to a stream; files never hold that, so fixed wins.
  std::chars_format format = std::chars_format::general;
  if (fixed) {
    format = std::chars_format::fixed;
  } else if (scientific) {
    format = std::chars_format::scientific;
  }
  // to_chars with a precision prints exactly what printf prints with the
  // matching conversion in the C locale, which is what the stream prints. The
  // buffer holds the longest fixed output (309 integer digits) at the largest
  // precision that can carry digits of a double; a larger precision only adds
  // zeros, and falls back to the slower path below.
  if (precision <= 60) {
    const std::to_chars_result r =
        std::to_chars(buffer, buffer + sizeof buffer, v, format, precision);
    if (r.ec == std::errc()) return {buffer, static_cast<std::size_t>(r.ptr - buffer)};
  }
  static thread_local std::string wide;
  wide.assign(static_cast<std::size_t>(precision) + 400, '\0');
  const std::to_chars_result r =
      std::to_chars(wide.data(), wide.data() + wide.size(), v, format, precision);
  return {wide.data(), static_cast<std::size_t>(r.ptr - wide.data())};
}

KrnStream& KrnStream::Int(std::int64_t v) {
  char buffer[24];
  const std::to_chars_result r = std::to_chars(buffer, buffer + sizeof buffer, v);
  return Text({buffer, static_cast<std::size_t>(r.ptr - buffer)});
}

KrnStream& KrnStream::Double(double v) {
  char buffer[400];
  return Text(FormatKrnDouble(v, m_fixed, m_scientific, m_precision, buffer));
}

}  // namespace nvx

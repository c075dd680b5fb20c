// Texts of the computation report: the label rules that turn a setting into
// the words a results viewer shows, and the bounded formatter every row text
// goes through.
#ifndef NVX_RSV_REPORTTEXT_H_
#define NVX_RSV_REPORTTEXT_H_

#include <cstddef>
#include <string>

namespace nvx {

// Size of a row's text field, NUL terminator included.
inline constexpr std::size_t kReportTextSize = 128;

// "Yes" when `value` is 1, otherwise "No".
const char* YesNo(int value);
// "Enhanced" when `value` is 1, otherwise "Standard".
const char* EnhancedStandard(int value);
// The label of `value` 0, 1 or 2; any other value keeps `previous`, the text
// of the row before, since no fallback text is set for it.
std::string ThreeWay(int value, const char* first, const char* second, const char* third,
                     const std::string& previous);
// Numbers in their "%d" and "%lg" forms.
std::string Decimal(int value);
std::string Decimal(double value);

// A text taken from a record (a host, machine or label name) used as the
// format of the bounded formatter, as the report always has: "%%" becomes
// one "%". Every other directive would read an argument that is not there;
// it is copied as it stands instead, so a name like "%s%n" is shown as
// written and can never read or write memory. A result that does not fit the
// 128-byte field (127 characters and the terminator) is a formatting failure
// and gives the empty text.
std::string FormatRecordText(const std::string& text);

}  // namespace nvx

#endif  // NVX_RSV_REPORTTEXT_H_

// Values that reach past the first token of a KRN line, and lists of number
// tuples as people read and type them. Shared by the viscoelastic, optics, IC
// packaging and multi-component sections.
#ifndef NVX_SECTIONS_VALUETEXT_H_
#define NVX_SECTIONS_VALUETEXT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/CustomKey.h"

namespace nvx {

// The rest of the matched line, from the value token to the line's end. A
// custom key's readKrn gets the value token and the lines after the matched
// one; the matched line is the one just before `next`. Falls back to the
// token itself if it does not lie in that line.
std::string_view RestOfLine(std::string_view value, const std::string* next);

// The value up to the next "=" of the line, blanks kept: folders with blanks
// survive a write and a read.
std::string TextUpToEquals(std::string_view value, const std::string* next);

// The value rebuilt from tokens: the value token, then every further token of
// the line split at blanks only, joined with one blank each. Runs of blanks
// shrink to one; leading and trailing blanks are lost.
std::string TextJoinedFromTokens(std::string_view value, const std::string* next);

// Text keys (std::string fields) read with the two rules above. KRN: the key,
// its separator and the text; RSV: one string item of the key's name through
// the table's scratch string; shown and set as the plain text.
extern const CustomOps kTextUpToEqualsOps;
extern const CustomOps kTextJoinedOps;

// Most points or directions a list may be given as text or from an RSV block.
inline constexpr std::size_t kMaxTuples = 1000000;

// "N: (a,b), (c,d)": a count, then the tuples of `flat` (arity numbers each) in
// their shortest exact form. Just "N" when the list is empty.
std::string FormatTuples(std::int64_t count, const std::vector<double>& flat, std::size_t arity);

// Parses the form above. The count must equal the number of tuples given
// (at most kMaxTuples), and every tuple must hold `arity` numbers. On success
// `flat` holds the numbers in order; on failure `error` says why.
bool ParseTuples(const std::string& text, std::size_t arity, std::vector<double>* flat,
                 std::string* error);

}  // namespace nvx

#endif  // NVX_SECTIONS_VALUETEXT_H_

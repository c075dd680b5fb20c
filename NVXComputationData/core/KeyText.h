// Keys as text: every section with records, and a key's value formatted for
// people or parsed from a command line. The command-line tool reaches any key
// as "SECTION.Key" through these and the sections' key lists.
#ifndef NVX_CORE_KEYTEXT_H_
#define NVX_CORE_KEYTEXT_H_

#include <string>
#include <vector>

#include "core/SectionDef.h"

namespace nvx {

// The sections that have records, in the order of the tag table.
std::vector<const SectionDef*> AllSections();

// True for the keys a person can read and set: those the KRN reader takes,
// other than free text lines.
bool IsUserKey(const Key& key);

// The key's value: ints and bools in decimal, doubles in their shortest exact
// form, texts as stored (wide texts in UTF-8), a count key as
// "N: t1, t2, ..." with its times.
std::string FormatValue(const Key& key);

// Stores `text` into the key's field. Ints and counts must be whole decimal
// numbers within 32 bits, doubles complete numbers, bools 0, 1, true or false;
// a count sets the number of times as the count setters do. On failure the
// field is unchanged and `error` says why.
bool ParseValue(const Key& key, const std::string& text, std::string* error);

// The value in the form the KRN file holds it: FormatValue with the key's
// bias added to an int (a 0-based choice the file writes 1-based reads as in
// the file). Output times read "N: t1, t2, ...", as FormatValue prints them.
std::string FormatFileValue(const Key& key);

// Stores `text`, given in the file's form, into the key's field; stricter than
// ParseValue: ints within 32 bits after the bias is taken off, flags 0 or 1
// (also true/false), doubles complete finite decimal numbers (no hex, NaN or
// infinity; "out of range" named as such), output times "N" or
// "N: t1, t2, ..." with exactly N times. On failure the field is unchanged and
// `error` says why.
bool ParseFileValue(const Key& key, const std::string& text, std::string* error);

// A short name of the key's type: int, flag, double, text, times or list.
const char* KindName(const Key& key);

// True for keys whose file value is a flag (0 or 1).
bool IsFlagKey(const Key& key);

// Names from `candidates` closest to `name` (edit distance), best first.
std::vector<std::string> NearestNames(const std::string& name,
                                      const std::vector<std::string>& candidates,
                                      std::size_t count);
// The same as a note for a message: " (nearest: a, b)", or empty.
std::string NearestNamesNote(const std::string& name, const std::vector<std::string>& candidates,
                             std::size_t count);

}  // namespace nvx

#endif  // NVX_CORE_KEYTEXT_H_

// Long text values of KRN lines and tuple lists as text.
#include "sections/ValueText.h"

#include <cctype>
#include <charconv>
#include <cstdlib>

#include "NVX3DRSVExTool.h"
#include "core/KeyTable.h"
#include "krn/KRNLine.h"
#include "krn/KRNStream.h"

namespace nvx {
namespace {

std::string Shortest(double v) {
  char buf[64];
  auto res = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, res.ptr);
}

// Common operations of the two text kinds; only readKrn differs.
void WriteTextKrn(const Key& key, KrnStream& out) {
  out.Text(key.name).Text(key.separator).Text(key.As<std::string>()).EndLine();
}
void SetTextItem(const Key& key, NVX3DRSVExTool::CRSVTable& table) {
  table.SetItem(key.name, key.As<std::string>());
}
void GetTextItem(const Key& key, NVX3DRSVExTool::CRSVTable& table, RsvScratch& scratch) {
  table.GetItem(key.name, &scratch.s);
  key.As<std::string>() = scratch.s;
}
std::string FormatText(const Key& key) { return key.As<std::string>(); }
bool ParseText(const Key& key, const std::string& text, std::string*) {
  key.As<std::string>() = text;
  return true;
}

std::size_t ReadUpToEquals(const Key& key, std::string_view, std::string_view value,
                           const std::string* next, const std::string*) {
  key.As<std::string>() = TextUpToEquals(value, next);
  return 0;
}
std::size_t ReadJoined(const Key& key, std::string_view, std::string_view value,
                       const std::string* next, const std::string*) {
  key.As<std::string>() = TextJoinedFromTokens(value, next);
  return 0;
}

CustomOps TextOps(decltype(CustomOps::readKrn) read) {
  CustomOps ops;
  ops.writeKrn = WriteTextKrn;
  ops.readKrn = read;
  ops.setItems = SetTextItem;
  ops.getItems = GetTextItem;
  ops.format = FormatText;
  ops.parse = ParseText;
  return ops;
}

void SkipBlanks(std::string_view& s) {
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front()))) s.remove_prefix(1);
}

bool Eat(std::string_view& s, char c) {
  SkipBlanks(s);
  if (s.empty() || s.front() != c) return false;
  s.remove_prefix(1);
  return true;
}

bool Number(std::string_view& s, double* out) {
  SkipBlanks(s);
  const std::string text(s.substr(0, s.find_first_of(",)")));
  if (text.empty()) return false;
  char* end = nullptr;
  *out = std::strtod(text.c_str(), &end);
  std::string_view rest(end);
  SkipBlanks(rest);
  if (end == text.c_str() || !rest.empty()) return false;
  s.remove_prefix(text.size());
  return true;
}

}  // namespace

std::string_view RestOfLine(std::string_view value, const std::string* next) {
  if (value.empty()) return {};
  const std::string& line = next[-1];
  const char* begin = line.data();
  if (value.data() < begin || value.data() + value.size() > begin + line.size()) return value;
  return std::string_view(line).substr(static_cast<std::size_t>(value.data() - begin));
}

std::string TextUpToEquals(std::string_view value, const std::string* next) {
  const std::string_view rest = RestOfLine(value, next);
  return std::string(rest.substr(0, rest.find('=')));
}

std::string TextJoinedFromTokens(std::string_view value, const std::string* next) {
  std::string_view rest = RestOfLine(value, next);
  std::string text(value);
  rest.remove_prefix(std::min(value.size(), rest.size()));
  for (std::string_view t = NextToken(rest, " "); !t.empty(); t = NextToken(rest, " ")) {
    text.append(" ").append(t);
  }
  return text;
}

const CustomOps kTextUpToEqualsOps = TextOps(ReadUpToEquals);
const CustomOps kTextJoinedOps = TextOps(ReadJoined);

std::string FormatTuples(std::int64_t count, const std::vector<double>& flat, std::size_t arity) {
  std::string text = std::to_string(count);
  for (std::size_t i = 0; i + arity <= flat.size(); i += arity) {
    text += i == 0 ? ": (" : ", (";
    for (std::size_t j = 0; j < arity; ++j) text += (j == 0 ? "" : ",") + Shortest(flat[i + j]);
    text += ")";
  }
  return text;
}

bool ParseTuples(const std::string& text, std::size_t arity, std::vector<double>* flat,
                 std::string* error) {
  std::string_view s(text);
  SkipBlanks(s);
  const std::size_t digits = s.find_first_not_of("0123456789");
  std::size_t count = 0;
  const std::string_view head = s.substr(0, digits);
  auto res = std::from_chars(head.data(), head.data() + head.size(), count);
  if (head.empty() || res.ec != std::errc() || count > kMaxTuples) {
    *error = "expected a count from 0 to " + std::to_string(kMaxTuples) +
             ", then ': (' and the tuples, as in '2: (1,2), (3,4)'";
    return false;
  }
  s.remove_prefix(head.size());
  std::vector<double> values;
  for (std::size_t n = 0; n < count; ++n) {
    if (!Eat(s, n == 0 ? ':' : ',') || !Eat(s, '(')) {
      *error = "tuple " + std::to_string(n + 1) + " of " + std::to_string(count) +
               " is missing; write them as '(a,b)' separated by ','";
      return false;
    }
    for (std::size_t j = 0; j < arity; ++j) {
      double v = 0.0;
      if ((j > 0 && !Eat(s, ',')) || !Number(s, &v)) {
        *error =
            "tuple " + std::to_string(n + 1) + " must hold " + std::to_string(arity) + " numbers";
        return false;
      }
      values.push_back(v);
    }
    if (!Eat(s, ')')) {
      *error = "tuple " + std::to_string(n + 1) + " must hold " + std::to_string(arity) +
               " numbers and end with ')'";
      return false;
    }
  }
  SkipBlanks(s);
  if (!s.empty()) {
    *error = "more tuples than the count " + std::to_string(count) + " says";
    return false;
  }
  *flat = std::move(values);
  return true;
}

}  // namespace nvx

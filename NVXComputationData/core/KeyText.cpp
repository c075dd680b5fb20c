// Formatting and parsing key values as text, and near-miss name suggestions.
#include "core/KeyText.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>

#include "NVXPlatform.h"

namespace nvx {
namespace {

std::string ShortestDouble(double v) {
  char buf[64];
  auto res = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, res.ptr);
}

bool ParseWhole(const std::string& text, std::int32_t* out) {
  std::int32_t v = 0;
  const char* end = text.data() + text.size();
  auto res = std::from_chars(text.data(), end, v);
  if (res.ec != std::errc() || res.ptr != end) return false;
  *out = v;
  return true;
}

bool ParseReal(const std::string& text, double* out) {
  if (text.empty()) return false;
  char* end = nullptr;
  errno = 0;
  const double v = std::strtod(text.c_str(), &end);
  if (end != text.c_str() + text.size() || errno == ERANGE) return false;
  *out = v;
  return true;
}

// A decimal number as people type it: no leading blank, no hex, finite.
bool ParseFiniteReal(const std::string& text, const char* keyName, double* out,
                     std::string* error) {
  const bool hex = text.find_first_of("xX") != std::string::npos;
  const bool blank = !text.empty() && std::isspace(static_cast<unsigned char>(text[0]));
  char* end = nullptr;
  errno = 0;
  const double v = text.empty() || hex || blank ? 0.0 : std::strtod(text.c_str(), &end);
  if (text.empty() || hex || blank || end != text.c_str() + text.size()) {
    *error = "'" + text + "' is not a number for " + keyName;
    return false;
  }
  if (errno == ERANGE && std::fabs(v) > 1.0) {
    *error = "'" + text + "' is out of the range of a double for " + keyName;
    return false;
  }
  if (!std::isfinite(v)) {
    *error = "'" + text + "' is not a finite number for " + keyName;
    return false;
  }
  *out = v;
  return true;
}

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// "N" or "N: t1, t2, ..." into `block`.
bool ParseTimes(const Key& key, const std::string& text, std::string* error) {
  const std::size_t colon = text.find(':');
  const std::string countText = Trimmed(text.substr(0, colon));
  std::int32_t count = 0;
  if (!ParseWhole(countText, &count)) {
    *error = "'" + countText + "' is not a whole number (32-bit) for " + key.name;
    return false;
  }
  if (count < 0 || count > kMaxOutputTimes) {
    *error = "a count of times must lie between 0 and " + std::to_string(kMaxOutputTimes);
    return false;
  }
  OutputTimes& block = key.As<OutputTimes>();
  if (colon == std::string::npos) {
    block.SetCount(count);
    return true;
  }
  std::vector<double> times;
  std::string rest = text.substr(colon + 1);
  if (!Trimmed(rest).empty()) {
    for (std::size_t start = 0;;) {
      const std::size_t comma = rest.find(',', start);
      double t = 0.0;
      if (!ParseFiniteReal(Trimmed(rest.substr(start, comma - start)), key.name, &t, error)) {
        return false;
      }
      times.push_back(t);
      if (comma == std::string::npos) break;
      start = comma + 1;
    }
  }
  if (times.size() != static_cast<std::size_t>(count)) {
    *error = std::string(key.name) + " is given " + std::to_string(times.size()) +
             " times for a count of " + std::to_string(count);
    return false;
  }
  block.Count = count;
  block.Times = std::move(times);
  return true;
}

std::size_t EditDistance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t up = row[j];
      const bool same = std::tolower(static_cast<unsigned char>(a[i - 1])) ==
                        std::tolower(static_cast<unsigned char>(b[j - 1]));
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (same ? 0 : 1)});
      diagonal = up;
    }
  }
  return row[b.size()];
}

}  // namespace

std::vector<const SectionDef*> AllSections() {
  std::vector<const SectionDef*> sections;
  for (std::size_t i = 0; i < kKrnTagCount; ++i) {
    if (const SectionDef* def = FindSection(static_cast<KrnTag>(i))) sections.push_back(def);
  }
  return sections;
}

bool IsUserKey(const Key& key) {
  if (key.kind == KeyKind::kCustom) return (key.use & kKrnRead) != 0 && key.custom->format;
  return (key.use & kKrnRead) != 0 && key.kind != KeyKind::kLines &&
         key.kind != KeyKind::kFixedInt && key.kind != KeyKind::kTimeArray;
}

std::string FormatValue(const Key& key) {
  switch (key.kind) {
    case KeyKind::kInt:
      return std::to_string(key.As<std::int32_t>());
    case KeyKind::kDouble:
      return ShortestDouble(key.As<double>());
    case KeyKind::kBool:
      return key.As<bool>() ? "1" : "0";
    case KeyKind::kText:
      return key.As<std::string>();
    case KeyKind::kWideText:
      return platform::WideToNarrow(key.As<std::wstring>());
    case KeyKind::kFixedInt:
      return std::to_string(key.fixedValue);
    case KeyKind::kTimes: {
      const OutputTimes& block = key.As<OutputTimes>();
      std::string text = std::to_string(block.Count);
      const std::size_t shown =
          std::min(block.Times.size(), static_cast<std::size_t>(std::max(block.Count, 0)));
      for (std::size_t i = 0; i < shown; ++i) {
        text += (i == 0 ? ": " : ", ") + ShortestDouble(block.Times[i]);
      }
      return text;
    }
    case KeyKind::kCustom:
      if (key.custom->format != nullptr) return key.custom->format(key);
      break;
    case KeyKind::kLines:
    case KeyKind::kTimeArray:
      break;
  }
  return {};
}

bool ParseValue(const Key& key, const std::string& text, std::string* error) {
  std::int32_t whole = 0;
  double real = 0.0;
  switch (key.kind) {
    case KeyKind::kInt:
    case KeyKind::kTimes:
      if (!ParseWhole(text, &whole)) {
        *error = "'" + text + "' is not a whole number (32-bit) for " + key.name;
        return false;
      }
      if (key.kind == KeyKind::kTimes) {
        if (whole < 0 || whole > kMaxOutputTimes) {
          *error = "a count of times must lie between 0 and " + std::to_string(kMaxOutputTimes);
          return false;
        }
        key.As<OutputTimes>().SetCount(whole);
      } else {
        key.As<std::int32_t>() = whole;
      }
      return true;
    case KeyKind::kDouble:
      if (!ParseReal(text, &real)) {
        *error = "'" + text + "' is not a number for " + key.name;
        return false;
      }
      key.As<double>() = real;
      return true;
    case KeyKind::kBool:
      if (text == "1" || text == "true") {
        key.As<bool>() = true;
      } else if (text == "0" || text == "false") {
        key.As<bool>() = false;
      } else {
        *error = "'" + text + "' is not 0, 1, true or false for " + key.name;
        return false;
      }
      return true;
    case KeyKind::kText:
      key.As<std::string>() = text;
      return true;
    case KeyKind::kWideText:
      key.As<std::wstring>() = platform::NarrowToWide(text);
      return true;
    case KeyKind::kCustom:
      if (key.custom->parse != nullptr) return key.custom->parse(key, text, error);
      break;
    case KeyKind::kFixedInt:
    case KeyKind::kLines:
    case KeyKind::kTimeArray:
      break;
  }
  *error = std::string(key.name) + " cannot be set";
  return false;
}

std::string FormatFileValue(const Key& key) {
  if (key.kind == KeyKind::kInt && key.bias != 0) {
    return std::to_string(static_cast<std::int64_t>(key.As<std::int32_t>()) + key.bias);
  }
  return FormatValue(key);
}

bool IsFlagKey(const Key& key) {
  return key.kind == KeyKind::kBool || (key.kind == KeyKind::kInt && key.truth != Truth::kNone);
}

const char* KindName(const Key& key) {
  if (IsFlagKey(key)) return "flag";
  switch (key.kind) {
    case KeyKind::kInt:
    case KeyKind::kFixedInt:
      return "int";
    case KeyKind::kDouble:
      return "double";
    case KeyKind::kText:
    case KeyKind::kWideText:
      return "text";
    case KeyKind::kTimes:
    case KeyKind::kTimeArray:
      return "times";
    default:
      return "list";
  }
}

bool ParseFileValue(const Key& key, const std::string& text, std::string* error) {
  if (IsFlagKey(key)) {
    const bool on = text == "1" || text == "true";
    if (!on && text != "0" && text != "false") {
      *error = "'" + text + "' is not 0, 1, true or false for " + key.name;
      return false;
    }
    if (key.kind == KeyKind::kBool) {
      key.As<bool>() = on;
    } else {
      key.As<std::int32_t>() = on ? 1 : 0;
    }
    return true;
  }
  switch (key.kind) {
    case KeyKind::kInt: {
      std::int32_t whole = 0;
      const bool ok = ParseWhole(text, &whole);
      const std::int64_t stored = static_cast<std::int64_t>(whole) - key.bias;
      if (!ok || stored < INT32_MIN || stored > INT32_MAX) {
        *error = "'" + text + "' is not a whole number (32-bit) for " + key.name;
        return false;
      }
      key.As<std::int32_t>() = static_cast<std::int32_t>(stored);
      return true;
    }
    case KeyKind::kDouble: {
      double real = 0.0;
      if (!ParseFiniteReal(text, key.name, &real, error)) return false;
      key.As<double>() = real;
      return true;
    }
    case KeyKind::kTimes:
      return ParseTimes(key, text, error);
    default:
      return ParseValue(key, text, error);
  }
}

std::vector<std::string> NearestNames(const std::string& name,
                                      const std::vector<std::string>& candidates,
                                      std::size_t count) {
  std::vector<std::pair<std::size_t, std::string>> scored;
  for (const std::string& c : candidates) scored.emplace_back(EditDistance(name, c), c);
  std::stable_sort(scored.begin(), scored.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> best;
  for (std::size_t i = 0; i < scored.size() && i < count; ++i) best.push_back(scored[i].second);
  return best;
}

std::string NearestNamesNote(const std::string& name, const std::vector<std::string>& candidates,
                             std::size_t count) {
  std::string text;
  for (const std::string& candidate : NearestNames(name, candidates, count)) {
    text += (text.empty() ? " (nearest: " : ", ") + candidate;
  }
  return text.empty() ? text : text + ")";
}

}  // namespace nvx

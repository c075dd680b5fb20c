// Formatting and parsing key values as text, and near-miss name suggestions.
#include "core/KeyText.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cstdlib>

#include "NVXPlatform.h"

namespace nvx {
namespace {

// More output times than any solver takes; keeps a typo from allocating gigabytes.
constexpr std::int32_t kMaxTimes = 1000000;

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
        if (whole < 0 || whole > kMaxTimes) {
          *error = "a count of times must lie between 0 and " + std::to_string(kMaxTimes);
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

}  // namespace nvx

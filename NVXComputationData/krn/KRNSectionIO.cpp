// Generic reading and writing of one KRN section from its key list.
#include "krn/KRNSectionIO.h"

#include <algorithm>
#include <string>

#include "NVXPlatform.h"
#include "core/Subscript.h"
#include "krn/KRNLine.h"

namespace nvx {
namespace {

bool ReadTruth(Truth truth, std::int32_t v) { return truth == Truth::kNonZero ? v != 0 : v > 0; }

// The item lines of a count key; returns how many lines were consumed. The
// count is kept as the file gives it and the list is filled up to it with 0.0
// (SetFromFile); only the lines the section holds are consumed.
std::size_t ReadTimes(OutputTimes& block, std::int32_t count, const std::string* next,
                      const std::string* end) {
  const std::size_t wanted = count > 0 ? static_cast<std::size_t>(count) : 0;
  const std::size_t taken = std::min(wanted, static_cast<std::size_t>(end - next));
  const std::size_t kept = std::min(taken, static_cast<std::size_t>(kMaxOutputTimes));
  std::vector<double> times;
  times.reserve(kept);
  for (std::size_t i = 0; i < kept; ++i) {
    // The item number is not looked at.
    times.push_back(ParseDouble(SplitKeyValue(next[i]).value));
  }
  block.SetFromFile(count, std::move(times));
  return taken;
}

void WriteValue(const Key& key, KrnStream& out) {
  switch (key.kind) {
    case KeyKind::kInt:
      out.Int(static_cast<std::int64_t>(key.As<std::int32_t>()) + key.bias);
      break;
    case KeyKind::kDouble:
      out.Double(key.As<double>());
      break;
    case KeyKind::kBool:
      out.Int(key.As<bool>() ? 1 : 0);
      break;
    case KeyKind::kText:
      out.Text(key.As<std::string>());
      break;
    case KeyKind::kWideText:
      out.Text(platform::WideToNarrow(key.As<std::wstring>()));
      break;
    case KeyKind::kFixedInt:
      out.Int(key.fixedValue);
      break;
    case KeyKind::kTimes:
      out.Int(key.As<OutputTimes>().Count);
      break;
    case KeyKind::kLines:
    case KeyKind::kTimeArray:
    case KeyKind::kCustom:
      break;
  }
}

}  // namespace

void StoreKrnValue(const Key& key, std::string_view value) {
  switch (key.kind) {
    case KeyKind::kInt: {
      std::int32_t v = ParseInt(value);
      if (key.truth != Truth::kNone) {
        v = ReadTruth(key.truth, v) ? 1 : 0;
      } else {
        v = static_cast<std::int32_t>(static_cast<std::int64_t>(v) - key.bias);
      }
      key.As<std::int32_t>() = v;
      break;
    }
    case KeyKind::kDouble:
      key.As<double>() = ParseDouble(value);
      break;
    case KeyKind::kBool:
      key.As<bool>() = ReadTruth(key.truth, ParseInt(value));
      break;
    case KeyKind::kText:
      key.As<std::string>() = std::string(value);
      break;
    case KeyKind::kWideText:
      key.As<std::wstring>() = platform::NarrowToWide(std::string(value));
      break;
    case KeyKind::kFixedInt:
    case KeyKind::kLines:
    case KeyKind::kTimes:
    case KeyKind::kTimeArray:
    case KeyKind::kCustom:
      break;
  }
}

void ReadKrnSection(const SectionDef& def, LineSpan body, CNVX3DComputationImpl& impl) {
  const KeyList keys = def.keys(impl);
  for (const std::string* line = body.begin(); line != body.end(); ++line) {
    const KeyValue kv = SplitKeyValue(*line);
    if (kv.key.empty()) continue;
    const Key* key = FindKey(keys, kv.key, kKrnRead);
    if (key == nullptr) continue;
    if (key->kind == KeyKind::kTimes) {
      line += ReadTimes(key->As<OutputTimes>(), ParseInt(kv.value), line + 1, body.end());
    } else if (key->kind == KeyKind::kCustom) {
      if (key->custom->readKrn != nullptr) {
        const std::size_t left = static_cast<std::size_t>(body.end() - (line + 1));
        line += std::min(left, key->custom->readKrn(*key, kv.key, kv.value, line + 1, body.end()));
      }
    } else {
      StoreKrnValue(*key, kv.value);
    }
  }
}

void WriteKrnSection(const SectionDef& def, KrnStream& out, CNVX3DComputationImpl& impl,
                     bool templateWriting) {
  if (def.writeKrn != nullptr) {
    def.writeKrn(def, out, impl, templateWriting);
    return;
  }
  WriteKrnKeys(def, out, impl, templateWriting);
}

void WriteKrnKeys(const SectionDef& def, KrnStream& out, CNVX3DComputationImpl& impl,
                  bool templateWriting) {
  if (def.beforeOpenTag != nullptr) def.beforeOpenTag(out);
  out.Line(OpenTag(def.tag));
  for (const Key& key : def.keys(impl)) {
    if ((key.use & kKrnWrite) == 0) continue;
    if ((key.use & kTemplateOnly) != 0 && !templateWriting) continue;
    if (key.kind == KeyKind::kCustom) {
      if (key.custom->writeKrn != nullptr) key.custom->writeKrn(key, out);
      continue;
    }
    if (key.kind == KeyKind::kLines) {
      const auto& lines = key.As<std::vector<std::string>>();
      for (std::size_t i = 0; i < lines.size(); ++i) out.Line(At(lines, i));
      continue;
    }
    out.Text(key.name).Text(key.separator);
    if (key.notation == Notation::kFixed) out.Fixed();
    if (key.notation == Notation::kScientific) out.Scientific();
    WriteValue(key, out);
    out.Text(key.suffix).EndLine();
    if (key.kind == KeyKind::kTimes) {
      const OutputTimes& block = key.As<OutputTimes>();
      const std::size_t rows = block.Written();
      for (std::size_t i = 0; i < rows; ++i) {
        out.Int(static_cast<std::int64_t>(i) + 1).Text(" = ").Double(block.Times[i]).EndLine();
      }
    }
  }
  out.Line(CloseTag(def.tag));
}

void WriteKrnKeysThenEmptyLine(const SectionDef& def, KrnStream& out, CNVX3DComputationImpl& impl,
                               bool templateWriting) {
  WriteKrnKeys(def, out, impl, templateWriting);
  out.EndLine();
}

}  // namespace nvx

// Writing the saved-output set, and a canonical text of an HDF5 file's
// contents for comparing RSV files item by item.
#include "GoldenSet.h"

#include <hdf5.h>

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>

#include "NVX3DComputation.h"
#include "NVX3DRSVExTool.h"
#include "TestUtil.h"
#include "core/KeyText.h"
#include "core/NVX3DComputationImpl.h"
#include "krn/KRNDocumentWriter.h"
#include "rsv/ComputationReport.h"
#include "rsv/RSVTables.h"
#include "sections/Cool.h"
#include "sections/Summary.h"

namespace nvxgolden {
namespace {

using nvx::DocumentWriter;

NVXData Project(const std::string& path, int kind, int mode) {
  NVXData d{};
  d.KRNFilePath = path;
  d.ModelKind = kind;
  d.LoadMode = mode;
  d.CoolingTime = 20.0;
  d.MoldOpenTime = 3.0;
  d.MoldPreheatTime = 600.0;
  d.FiberAspectRatio = 12.5;
  d.FiberWeight = 0.3;
  d.HasLongFiberSettings = true;
  d.HasFoamingSettings = true;
  return d;
}

// A project file with every list the facade can size filled in.
void WriteSeed(const std::string& path, int kind) {
  CNVX3DComputation c;
  c.LoadKRNFile(Project(path, kind, 1));
  c.SetFillOutputTimesSectionFillTimeSteps(12);
  c.SetPackOutputTimesSectionFillTimeSteps(9);
  c.SetValueNoCoolOutputTimeSteps(5);
  c.SetValueNoOpenOutputTimeSteps(4);
  c.SetMoldPreheatTimeSteps(3);
  c.SetSolidStressTempTimeCount(3);
  c.SetSolidStressMatTempPartCount(3);
  c.SetSolidStressOutPutTimingCount(3);
  c.SetPartInsertCount(2);
  for (int i = 0; i < 2; ++i) {
    c.SetPartInsertModulusCount(i, 2);
    c.SetPartInsertCLTECount(i, 2);
  }
  c.SetVEStressCuringParaCount(3);
  c.SetAdvancedHotRunnerSteadyNumberOfHotRunnerGate(2);
  c.SetAdvancedHotRunnerSteadyVectorSize(2);
  c.SetFlowParticleTracerGroupCount(2);
  c.WriteKRNFile(path, 0);
}

// Values that reach every formatting branch: rounding at the sixth digit,
// small and large exponents, negatives, zero and exact integers.
constexpr double kValues[] = {0.1234567, 1e-5,     123456789.0, 2.5,       -0.000123456,
                              1e20,      0.0,      100.0,       1.0 / 3.0, 999999.5,
                              1.25e-7,   -42.0,    9.9999996,   0.5,       1234567.0,
                              3.0e+100,  7.0e-100, -1.5e-3,     65535.0,   0.0001};

// Machine- and clock-dependent values, fixed so the set is reproducible.
void Normalize(CNVX3DComputationImpl& impl) {
  impl.processorCount = 2;
  if (impl.sections.cool) impl.sections.cool->ResLevelType = 1;
  if (impl.sections.summary) impl.sections.summary->Time = "12:0:0-1-1-2026";
}

// Every plain double and every output time of every section gets one of the
// values above.
void Vary(CNVX3DComputationImpl& impl) {
  std::size_t next = 0;
  auto value = [&next] { return kValues[next++ % (sizeof kValues / sizeof kValues[0])]; };
  for (const nvx::SectionDef* def : nvx::AllSections()) {
    for (const nvx::Key& key : def->keys(impl)) {
      if (key.kind == nvx::KeyKind::kDouble) key.As<double>() = value();
      if (key.kind == nvx::KeyKind::kTimes) {
        for (double& t : key.As<nvx::OutputTimes>().Times) t = value();
      }
    }
  }
  Normalize(impl);
}

std::unique_ptr<CNVX3DComputationImpl> Loaded(const NVXData& d) {
  auto impl = std::make_unique<CNVX3DComputationImpl>();
  impl->Load(d);
  Normalize(*impl);
  return impl;
}

void WriteRsv(CNVX3DComputationImpl& impl, const std::string& path) {
  std::error_code ec;
  std::filesystem::remove(std::filesystem::u8path(path), ec);
  {
    NVX3DRSVExTool::CRSVTool tool;
    if (tool.Create(path, 4, 1, 0) != 0) return;
    NVX3DRSVExTool::CRSVGroup* top = tool.OpenGroup(1);
    NVX3DRSVExTool::CRSVGroup* group = top ? tool.CreateGroup(top, "Computation") : nullptr;
    tool.CloseGroup(top);
    if (group != nullptr) nvx::WriteParameterTables(tool, group, impl);
    tool.CloseGroup(group);
    tool.Close();
  }
  nvx::WriteComputationReport(path, nvx::GatherReport(impl));
}

void ReadRsv(CNVX3DComputationImpl& impl, const std::string& path) {
  NVX3DRSVExTool::CRSVTool tool;
  if (tool.OpenReadOnly(path) != 0) return;
  if (NVX3DRSVExTool::CRSVGroup* group = tool.OpenGroup(1, 4)) {
    nvx::ReadParameterTables(tool, group, impl);
    tool.CloseGroup(group);
  }
  tool.Close();
}

}  // namespace

std::vector<std::string> WriteGoldenSet(const std::string& dir, const std::string& scratch) {
  // Per-user files (template, foaming material) start fresh in the scratch folder.
  nvxtest::SetEnv(nvxtest::kUserConfigVar, scratch + "/user");
  std::vector<std::string> names;
  auto out = [&](const std::string& name) {
    names.push_back(name);
    return dir + "/" + name;
  };
  for (int kind = 0; kind < 4; ++kind) {
    const std::string k = "k" + std::to_string(kind) + "_";
    const std::string seed = scratch + "/seed" + std::to_string(kind) + ".krn";
    WriteSeed(seed, kind == 0 ? 2 : kind);  // kind 0 reads a full solid file

    // Defaults of the model kind, through the model-kind writer (modes 1 and 2).
    for (int mode : {1, 2}) {
      auto impl = Loaded(Project(scratch + "/none.krn", kind, mode));
      nvx::WriteKrnDocument(DocumentWriter::kModelKind,
                            out(k + "mode" + std::to_string(mode) + ".krn"), *impl);
    }

    // The seed read back, every value varied, through all three writers.
    auto impl = Loaded(Project(seed, kind, 0));
    Vary(*impl);
    const std::string present = out(k + "present.krn");
    nvx::WriteKrnDocument(DocumentWriter::kSectionPresent, present, *impl);
    nvx::WriteKrnDocument(DocumentWriter::kModelKind, out(k + "modelkind.krn"), *impl);
    nvx::WriteKrnDocument(DocumentWriter::kTemplate, out(k + "template.krn"), *impl);

    // That file loaded again in modes 0 and -1 (the fibre values of the file kept).
    for (int mode : {0, -1}) {
      auto again = Loaded(Project(present, kind, mode));
      const DocumentWriter writer =
          mode == 0 ? DocumentWriter::kSectionPresent : DocumentWriter::kModelKind;
      nvx::WriteKrnDocument(writer, out(k + "reload" + std::to_string(mode) + ".krn"), *again);
    }

    // The RSV tables of the varied values, and what a fresh object reads from them.
    if (kind == 1 || kind == 2) {
      const std::string rsv = out(k + "tables.rsv");
      WriteRsv(*impl, rsv);
      auto back = Loaded(Project(seed, kind, 0));
      ReadRsv(*back, rsv);
      Normalize(*back);
      nvx::WriteKrnDocument(DocumentWriter::kModelKind, out(k + "fromrsv.krn"), *back);
    }
  }
  return names;
}

namespace {

std::string TypeText(hid_t type) {
  char buf[64];
  const H5T_class_t cls = H5Tget_class(type);
  std::snprintf(buf, sizeof buf, "class %d size %zu", static_cast<int>(cls), H5Tget_size(type));
  std::string text = buf;
  switch (cls) {
    case H5T_INTEGER:
      text += H5Tget_sign(type) == H5T_SGN_2 ? " signed" : " unsigned";
      text += H5Tget_order(type) == H5T_ORDER_LE ? " le" : " be";
      break;
    case H5T_FLOAT:
      text += H5Tget_order(type) == H5T_ORDER_LE ? " le" : " be";
      break;
    case H5T_STRING:
      text += H5Tis_variable_str(type) > 0 ? " variable" : " fixed";
      text += " cset " + std::to_string(H5Tget_cset(type)) + " pad " +
              std::to_string(H5Tget_strpad(type));
      break;
    case H5T_ENUM:
    case H5T_COMPOUND: {
      const int n = H5Tget_nmembers(type);
      text += " {";
      for (int i = 0; i < n; ++i) {
        char* name = H5Tget_member_name(type, static_cast<unsigned>(i));
        text += std::string(" ") + (name ? name : "?");
        H5free_memory(name);
        if (cls == H5T_COMPOUND) {
          hid_t member = H5Tget_member_type(type, static_cast<unsigned>(i));
          text += "@" + std::to_string(H5Tget_member_offset(type, static_cast<unsigned>(i))) +
                  ":(" + TypeText(member) + ")";
          H5Tclose(member);
        }
      }
      text += " }";
      break;
    }
    default:
      break;
  }
  return text;
}

std::string SpaceText(hid_t space, hssize_t* points) {
  const H5S_class_t cls = H5Sget_simple_extent_type(space);
  *points = cls == H5S_NULL ? 0 : H5Sget_simple_extent_npoints(space);
  std::string text = "space " + std::to_string(static_cast<int>(cls));
  hsize_t dims[8] = {};
  const int rank = H5Sget_simple_extent_dims(space, dims, nullptr);
  for (int i = 0; i < rank && i < 8; ++i) text += " " + std::to_string(dims[i]);
  return text;
}

// The stored value: variable-length strings as text, anything else as the
// bytes of the file type (doubles therefore compared bit for bit).
std::string ValueText(hid_t type, hssize_t points, bool dataset, hid_t id) {
  if (points <= 0) return "";
  if (H5Tget_class(type) == H5T_STRING && H5Tis_variable_str(type) > 0) {
    std::vector<char*> strings(static_cast<std::size_t>(points), nullptr);
    hid_t mem = H5Tcopy(type);
    const herr_t rc = dataset ? H5Dread(id, mem, H5S_ALL, H5S_ALL, H5P_DEFAULT, strings.data())
                              : H5Aread(id, mem, strings.data());
    std::string text;
    for (char* s : strings) text += std::string(" \"") + (s ? s : "") + "\"";
    for (char* s : strings) H5free_memory(s);
    H5Tclose(mem);
    return rc < 0 ? " unreadable" : text;
  }
  std::vector<unsigned char> bytes(H5Tget_size(type) * static_cast<std::size_t>(points));
  const herr_t rc = dataset ? H5Dread(id, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, bytes.data())
                            : H5Aread(id, type, bytes.data());
  if (rc < 0) return " unreadable";
  std::string text = " ";
  char hex[3];
  for (unsigned char b : bytes) {
    std::snprintf(hex, sizeof hex, "%02x", b);
    text += hex;
  }
  return text;
}

herr_t OnAttribute(hid_t object, const char* name, const H5A_info_t*, void* data) {
  auto* lines = static_cast<std::map<std::string, std::string>*>(data);
  hid_t attr = H5Aopen(object, name, H5P_DEFAULT);
  hid_t type = H5Aget_type(attr);
  hid_t space = H5Aget_space(attr);
  hssize_t points = 0;
  const std::string spaceText = SpaceText(space, &points);
  (*lines)[std::string("@") + name] =
      TypeText(type) + " " + spaceText + ValueText(type, points, false, attr);
  H5Sclose(space);
  H5Tclose(type);
  H5Aclose(attr);
  return 0;
}

struct Walk {
  hid_t file;
  std::string text;
};

void DescribeObject(hid_t object, const std::string& path, H5O_type_t kind, std::string& text) {
  std::map<std::string, std::string> attributes;
  H5Aiterate2(object, H5_INDEX_NAME, H5_ITER_INC, nullptr, OnAttribute, &attributes);
  text += path + (kind == H5O_TYPE_GROUP ? " group" : " dataset");
  if (kind == H5O_TYPE_DATASET) {
    hid_t type = H5Dget_type(object);
    hid_t space = H5Dget_space(object);
    hssize_t points = 0;
    const std::string spaceText = SpaceText(space, &points);
    text += " " + TypeText(type) + " " + spaceText + ValueText(type, points, true, object);
    H5Sclose(space);
    H5Tclose(type);
  }
  text += "\n";
  for (const auto& [name, line] : attributes) text += "  " + name + " " + line + "\n";
}

herr_t OnObject(hid_t, const char* name, const H5O_info_t* info, void* data) {
  auto* walk = static_cast<Walk*>(data);
  if (info->type != H5O_TYPE_GROUP && info->type != H5O_TYPE_DATASET) return 0;
  hid_t object = H5Oopen(walk->file, name, H5P_DEFAULT);
  DescribeObject(object, name, info->type, walk->text);
  H5Oclose(object);
  return 0;
}

}  // namespace

std::string DescribeHdf5(const std::string& path) {
  hid_t file = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
  if (file < 0) return "unreadable " + path;
  Walk walk{file, {}};
#if H5_VERSION_GE(1, 12, 0)
  H5Ovisit3(
      file, H5_INDEX_NAME, H5_ITER_INC,
      [](hid_t o, const char* n, const H5O_info2_t* i, void* d) -> herr_t {
        H5O_info_t old{};
        old.type = i->type;
        return OnObject(o, n, &old, d);
      },
      &walk, H5O_INFO_BASIC);
#else
  H5Ovisit(file, H5_INDEX_NAME, H5_ITER_INC, OnObject, &walk);
#endif
  H5Fclose(file);
  return walk.text;
}

}  // namespace nvxgolden

// The per-user template, the page reset from a default template, and the
// computation report written by WriteRSVFile, read back through the HDF5 C API.
#include <gtest/gtest.h>
#include <hdf5.h>

#include <cstring>
#include <string>

#include "NVX3DComputation.h"
#include "TestUtil.h"

using nvxtest::TempDir;
using nvxtest::UserDirScope;

namespace {

NVXData Project(const std::string& path, int modelKind, int loadMode) {
  NVXData d;
  d.KRNFilePath = path;
  d.ModelKind = modelKind;
  d.LoadMode = loadMode;
  return d;
}

// A default template of the given model kind, with the cooling and warpage
// settings changed so that a copy shows.
std::string MakeTemplate(const TempDir& dir, int modelKind) {
  const std::string path = dir.File("template" + std::to_string(modelKind) + ".krn");
  CNVX3DComputation t;
  t.LoadKRNFile(Project(path, modelKind, 1));
  t.SetSolidCoolVersion(77);
  t.SetSolidCoolIDSolver(5);
  t.SetSolidCoolValueAutoSetCoolTimeTolerance(0.5);
  t.SetSolidWarpValueIMCMedTH(0.25);
  t.SetSolidWarpFlagVEResidualStress(4);
  t.SetSolidFillFlagInertia(true);
  EXPECT_TRUE(t.WriteKRNFile(path, 0));
  return path;
}

// The text of row `id` of a report array.
std::string Row(const std::string& file, const std::string& array, int id) {
  hid_t f = H5Fopen(file.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
  hid_t d = H5Dopen2(f, ("/Project/ComputationReport/" + array).c_str(), H5P_DEFAULT);
  hid_t type = H5Dget_type(d);
  hid_t space = H5Dget_space(d);
  std::string rows(static_cast<std::size_t>(H5Sget_simple_extent_npoints(space)) * 132, '\0');
  H5Dread(d, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, rows.data());
  H5Sclose(space);
  H5Tclose(type);
  H5Dclose(d);
  H5Fclose(f);
  return std::string(rows.c_str() + id * 132 + 4);
}

}  // namespace

TEST(PageReset, CopiesEachPageWithItsAsymmetries) {
  TempDir dir;
  UserDirScope user(dir.File("user"));
  int version = 0, solver = 0;
  double tolerance = 0.0, th = 0.0;

  // A solid template: page 1 takes the solver and the tolerance, not the version.
  CNVX3DComputation c;
  c.LoadKRNFile(Project(dir.File("p.krn"), 2, 1));
  c.SetSolidCoolVersion(3);
  c.LoadGPDefaultTemplete(MakeTemplate(dir, 2));
  EXPECT_TRUE(c.ReSetPageToDefaultValue(1));
  EXPECT_EQ(c.GetSolidCoolVersion(version), 3);
  EXPECT_EQ(c.GetSolidCoolIDSolver(solver), 5);
  c.GetSolidCoolValueAutoSetCoolTimeTolerance(tolerance);
  EXPECT_EQ(tolerance, 0.5);
  // Page 2 of a solid template includes the solid-only settings.
  EXPECT_TRUE(c.ReSetPageToDefaultValue(2));
  c.GetSolidWarpValueIMCMedTH(th);
  EXPECT_EQ(th, 0.25);
  EXPECT_EQ(c.GetSolidWarpFlagVEResidualStress(version), 4);
  // Page 0 copies the solid fill settings; other pages change nothing.
  bool inertia = false;
  EXPECT_TRUE(c.ReSetPageToDefaultValue(0));
  c.GetSolidFillFlagInertia(inertia);
  EXPECT_TRUE(inertia);
  c.SetSolidCoolIDSolver(9);
  EXPECT_TRUE(c.ReSetPageToDefaultValue(5));
  EXPECT_EQ(c.GetSolidCoolIDSolver(solver), 9);

  // A shell template: page 1 takes the version, not the solver, and clears
  // the tolerance whatever the template says.
  CNVX3DComputation s;
  s.LoadKRNFile(Project(dir.File("s.krn"), 1, 1));
  s.SetSolidCoolIDSolver(8);
  s.LoadGPDefaultTemplete(MakeTemplate(dir, 1));
  EXPECT_TRUE(s.ReSetPageToDefaultValue(1));
  EXPECT_EQ(s.GetSolidCoolVersion(version), 77);
  EXPECT_EQ(s.GetSolidCoolIDSolver(solver), 8);
  s.GetSolidCoolValueAutoSetCoolTimeTolerance(tolerance);
  EXPECT_EQ(tolerance, 0.0);

  // A missing template copies nothing for pages 1 and 2; a path that does
  // not fit the buffer is ignored.
  CNVX3DComputation m;
  m.SetSolidCoolIDSolver(6);
  m.LoadGPDefaultTemplete(dir.File("missing.krn"));
  EXPECT_TRUE(m.ReSetPageToDefaultValue(1));
  EXPECT_EQ(m.GetSolidCoolIDSolver(solver), 6);
  m.LoadGPDefaultTemplete(std::string(600, 'x'));
  EXPECT_TRUE(m.ReSetPageToDefaultValue(1));
  EXPECT_EQ(m.GetSolidCoolIDSolver(solver), 6);
}

TEST(UserTemplate, WrittenOnceAndReadForNewProjects) {
  TempDir dir;
  UserDirScope user(dir.File("user"));
  CNVX3DComputation c;
  EXPECT_FALSE(c.IsUsetDefinedExists());
  c.SetSolidCoolIDSolver(4);
  EXPECT_FALSE(c.LoadUserDefineKRN());  // no template: defaults, false
  int solver = 0;
  EXPECT_EQ(c.GetSolidCoolIDSolver(solver), 2);

  // The template writer writes the sections the document holds, so the
  // template comes from a project read from its file.
  c.LoadKRNFile(Project(dir.File("a.krn"), 2, 1));
  ASSERT_TRUE(c.WriteKRNFile(dir.File("a.krn"), 0));
  c.LoadKRNFile(Project(dir.File("a.krn"), 2, 0));
  c.SetSolidCoolIDSolver(7);
  ASSERT_TRUE(c.WriteKRNFile(dir.File("a.krn"), 1));  // the project file and the template
  EXPECT_TRUE(c.IsUsetDefinedExists());

  // A project without a KRN file starts from the template.
  CNVX3DComputation fresh;
  ASSERT_TRUE(fresh.LoadKRNFile(Project(dir.File("new.krn"), 2, 0)));
  EXPECT_EQ(fresh.GetSolidCoolIDSolver(solver), 7);
  fresh.SetSolidCoolIDSolver(1);
  EXPECT_TRUE(fresh.LoadUserDefineKRN());
  EXPECT_EQ(fresh.GetSolidCoolIDSolver(solver), 7);
}

TEST(ComputationReportRows, FollowTheRecords) {
  TempDir dir;
  UserDirScope user(dir.File("user"));
  CNVX3DComputation c;
  c.LoadKRNFile(Project(dir.File("p.krn"), 2, 1));
  c.SetSummaryFile(L"part.krn");
  c.SetSolidCoolIDSolver(3);  // unknown: repeats the row before
  c.SetSolidWarpFlagSolverAcceleration(1);
  c.SetSolidICFlagStressSolverType(2);
  c.SetCpmoutingValueComputingManagerNoTask(2);
  c.SetTaskIDTaskMode(7);  // unknown mode: repeats the processor count
  c.SetRSVFilePath(dir.File("p.rsv"));
  ASSERT_TRUE(c.WriteRSVFile());

  const std::string rsv = dir.File("p.rsv");
  EXPECT_EQ(Row(rsv, "Sequence/Result0", 11), Row(rsv, "Sequence/Result0", 10));
  EXPECT_EQ(Row(rsv, "Sequence/Result0", 14), "Yes");
  EXPECT_EQ(Row(rsv, "Sequence/Result0", 15), "Yes");
  EXPECT_EQ(Row(rsv, "Sequence/Result0", 29), "ABAQUS");
  EXPECT_EQ(Row(rsv, "Sequence/Result0", 5), "No");  // only 1 is "Yes"
  EXPECT_EQ(Row(rsv, "TaskManager/Result0", 0), "Yes");
  EXPECT_EQ(Row(rsv, "TaskManager/Result0", 1), "localhost");
  EXPECT_EQ(Row(rsv, "TaskManager/Result0", 3), Row(rsv, "TaskManager/Result0", 2));

  c.SetTaskIDTaskMode(0);
  c.SetCpmoutingValueComputingManagerNoTask(1);
  ASSERT_TRUE(c.WriteRSVFile());
  EXPECT_EQ(Row(rsv, "TaskManager/Result0", 3), "0");
  EXPECT_EQ(Row(rsv, "TaskManager/Result0", 0), "No");
}

// Defaults -> KRN -> object -> RSV -> object -> KRN gives the same file for
// every model kind: the RSV tables carry every value the KRN file shows, once
// the KRN file has set the counts the time arrays are read with.
TEST(ProjectRoundTrip, DefaultsSurviveKrnAndRsvForEveryModelKind) {
  TempDir dir;
  UserDirScope user(dir.File("user"));
  for (int kind = 0; kind < 4; ++kind) {
    SCOPED_TRACE(kind);
    const std::string krn = dir.File("k" + std::to_string(kind) + ".krn");
    const std::string rsv = dir.File("k" + std::to_string(kind) + ".rsv");
    NVXData d = Project(krn, kind, 1);
    d.CoolingTime = 20.0;
    d.MoldOpenTime = 3.0;
    CNVX3DComputation first;
    ASSERT_TRUE(first.LoadKRNFile(d));
    ASSERT_TRUE(first.WriteKRNFile(krn, 0));

    CNVX3DComputation middle;
    ASSERT_TRUE(middle.LoadKRNFile(krn.c_str()));
    middle.SetRSVFilePath(rsv);
    ASSERT_TRUE(middle.WriteRSVFile());

    // The plain-file load writes back in the solid order; a shell file is
    // written back in its own order by a load-mode-0 load.
    CNVX3DComputation last;
    ASSERT_TRUE(kind == 1 ? last.LoadKRNFile(Project(krn, 1, 0)) : last.LoadKRNFile(krn.c_str()));
    last.SetSolidCoolIDSolver(9);  // overwritten by the RSV tables
    last.SetRSVFilePath(rsv);
    ASSERT_TRUE(last.ReadRSVFile());
    const std::string again = dir.File("again.krn");
    ASSERT_TRUE(last.WriteKRNFile(again, 0));
    std::string text = nvxtest::ReadTextLF(again);
    if (kind == 1) {
      // The load-mode-0 writer always adds the hot-runner steady section.
      const std::size_t at = text.find("<FILL_ADVANCED_HRSteady>");
      const std::string close = "</FILL_ADVANCED_HRSteady>\n";
      ASSERT_NE(at, std::string::npos);
      text.erase(at, text.find(close) + close.size() - at);
    }
    EXPECT_EQ(text, nvxtest::ReadTextLF(krn));
  }
}

// Keys of <FILL_ADVANCED_LONGFIBER> and the load and write steps that change
// the long-fiber record.
#include "sections/LongFiber.h"

#include "core/NVX3DComputationImpl.h"
#include "krn/KRNStream.h"

namespace nvx {
namespace {

// The KRN writer emits only the diffusion coefficients of the model type in
// force, each switched to scientific notation just before its value; the
// switch is never undone, so every later double of the document prints in
// scientific notation until another writer sets a notation.
void WriteDiffusionCoefficients(const Key& key, KrnStream& out) {
  const CNVX3DLongFiber& r = key.As<CNVX3DLongFiber>();
  auto line = [&out](const char* name, double value) {
    out.Text(name).Text(" = ");
    out.Scientific();
    out.Double(value).EndLine();
  };
  switch (r.DiffusionModelType) {
    case 0:
      line("Cf", r.Cf);
      break;
    case 1:
      line("Cf", r.Cf);
      line("Cm", r.Cm);
      break;
    case 2:
      line("b1", r.b1);
      line("b2", r.b2);
      line("b3", r.b3);
      line("b4", r.b4);
      line("b5", r.b5);
      break;
    default:
      break;  // any other type writes no coefficient
  }
}

const CustomOps kDiffusionCoefficientWriter = {WriteDiffusionCoefficients};

KeyList LongFiberKeys(CNVX3DComputationImpl& impl) {
  CNVX3DLongFiber& r = *impl.sections.longFiber;
  // The coefficients are read from KRN whatever the type and always travel in
  // RSV; only their KRN writing depends on the type (the writer key above).
  constexpr std::uint8_t kNotKrnWritten = kKrnRead | kRsv;
  // The last five keys have no RSV item: the table holds the first nineteen.
  constexpr std::uint8_t kKrnOnly = kKrn;
  return {
      Field("Version", r.Version),
      Field("OrthotropicClosureMethod", r.OrthotropicClosureMethod),
      Field("ModifiedFactor", r.ModifiedFactor),
      Field("DiffusionModelType", r.DiffusionModelType),
      Custom("DiffusionCoefficients", &r, kDiffusionCoefficientWriter).Use(kKrnWrite),
      Field("Cf", r.Cf).Use(kNotKrnWritten),
      Field("Cm", r.Cm).Use(kNotKrnWritten),
      Field("b1", r.b1).Use(kNotKrnWritten),
      Field("b2", r.b2).Use(kNotKrnWritten),
      Field("b3", r.b3).Use(kNotKrnWritten),
      Field("b4", r.b4).Use(kNotKrnWritten),
      Field("b5", r.b5).Use(kNotKrnWritten),
      Field("FiberType", r.FiberType),
      Field("AspectRatio", r.AspectRatio),
      Field("Weight", r.Weight),
      Field("FlagFiberBreakage", r.FlagFiberBreakage),  // RSV bool item
      Field("ValueFiberDiameter", r.ValueFiberDiameter),
      Field("ValueFiberBreakageCD", r.ValueFiberBreakageCD),
      Field("ValueFiberBreakageCB", r.ValueFiberBreakageCB),
      Field("ValueFiberBreakageS", r.ValueFiberBreakageS),
      // The accessor pair GetFiberBreakage/SetFiberBreakage reaches this
      // screw flag, not FlagFiberBreakage: a deliberate crossing of names.
      Field("FlagScrewFiberBreakage", r.FlagScrewFiberBreakage).Use(kKrnOnly),
      // "Concertration" is the key's own spelling.
      Field("FlagConcertration", r.FlagConcertration).Use(kKrnOnly),
      Field("ValueParticleDiameter", r.ValueParticleDiameter).Use(kKrnOnly),
      Field("ValueAverageConcentration", r.ValueAverageConcentration).Use(kKrnOnly),
      Field("ValueParticleFrictionIndex", r.ValueParticleFrictionIndex).Use(kKrnOnly),
      Lines(r.Lines),
  };
}

}  // namespace

const SectionDef kLongFiberSection{KrnTag::kFillAdvancedLongFiber, "FILL_ADVANCED_LONGFIBER",
                                   LongFiberKeys};

void ResetLongFiber(CNVX3DLongFiber& record) {
  std::vector<std::string> lines = std::move(record.Lines);
  record = CNVX3DLongFiber();
  record.Lines = std::move(lines);
}

void ClearFiberModelSettings(CNVX3DLongFiber& r) {
  r.OrthotropicClosureMethod = r.DiffusionModelType = r.FiberType = r.FlagConcertration = 0;
  r.FlagFiberBreakage = false;
  r.ValueFiberDiameter = r.ValueFiberBreakageCD = r.ValueFiberBreakageCB = 0.0;
  r.ValueFiberBreakageS = r.ValueParticleDiameter = r.ValueAverageConcentration = 0.0;
  r.ValueParticleFrictionIndex = 0.0;
}

void TakeFiberValues(CNVX3DLongFiber& record, double aspectRatio, double weight) {
  const bool valid = aspectRatio >= 0.0 && weight >= 0.0;
  record.AspectRatio = valid ? aspectRatio : 0.0;
  record.Weight = valid ? weight : 0.0;
}

}  // namespace nvx

// Accessors of the optics sections (<SOLID_OPTIC>, <OPTIC_OUTPUT_DIRECTION>,
// <OPTIC_OUTPUT_TO_SOFTWARE>). The direction list operations never touch the
// separate direction count.
#include <utility>

#include "NVX3DComputation.h"
#include "core/NVX3DComputationImpl.h"
#include "core/Subscript.h"

namespace {
CNVX3DSolidOptic& Optic(CNVX3DComputationImpl* impl) { return *impl->sections.optic; }
}  // namespace

void CNVX3DComputation::SetOpticDirectionValueOpticLightDirectionValue(int i, double x, double y,
                                                                       double z) {
  nvx::SetLightDirection(Optic(m_pImpl), i, CNVX3DLightDirection{x, y, z});
}
int CNVX3DComputation::GetOpticDirectionValueOpticLightDirectionValue(int i, double& x, double& y,
                                                                      double& z) {
  const auto& list = Optic(m_pImpl).Directions;
  if (list.empty()) return 1;
  const CNVX3DLightDirection& d = nvx::At(list, i);
  x = d.X, y = d.Y, z = d.Z;
  return 1;
}
int CNVX3DComputation::DeleteOpticDirectionValueOpticLightDirectionItem(int i) {
  auto& list = Optic(m_pImpl).Directions;
  if (i >= 0 && static_cast<std::size_t>(i) < list.size()) list.erase(list.begin() + i);
  return 1;
}
int CNVX3DComputation::GetSolidOpticVersion(int& v) { return v = Optic(m_pImpl).Version; }
void CNVX3DComputation::SetSolidOpticVersion(int v) { Optic(m_pImpl).Version = v; }
int CNVX3DComputation::GetSolidOpticFlagEstimateOpticProperty(int& v) {
  return v = Optic(m_pImpl).FlagEstimateOpticProperty;
}
void CNVX3DComputation::SetSolidOpticFlagEstimateOpticProperty(int v) {
  Optic(m_pImpl).FlagEstimateOpticProperty = v;
}
int CNVX3DComputation::GetSolidOpticFlagDarkField(int& v) {
  return v = Optic(m_pImpl).FlagDarkField;
}
void CNVX3DComputation::SetSolidOpticFlagDarkField(int v) { Optic(m_pImpl).FlagDarkField = v; }
int CNVX3DComputation::GetSolidOpticFlagLightField(int& v) {
  return v = Optic(m_pImpl).FlagLightField;
}
void CNVX3DComputation::SetSolidOpticFlagLightField(int v) { Optic(m_pImpl).FlagLightField = v; }
int CNVX3DComputation::GetSolidOpticFlagWhiteLight(int& v) {
  return v = Optic(m_pImpl).FlagWhiteLight;
}
void CNVX3DComputation::SetSolidOpticFlagWhiteLight(int v) { Optic(m_pImpl).FlagWhiteLight = v; }
int CNVX3DComputation::GetSolidOpticFlagRemoveRunner(int& v) {
  return v = Optic(m_pImpl).FlagRemoveRunner;
}
void CNVX3DComputation::SetSolidOpticFlagRemoveRunner(int v) {
  Optic(m_pImpl).FlagRemoveRunner = v;
}
int CNVX3DComputation::GetSolidOpticFlagMonochromaticWaveLength(int& v) {
  return v = Optic(m_pImpl).FlagMonochromaticWaveLength;
}
void CNVX3DComputation::SetSolidOpticFlagMonochromaticWaveLength(int v) {
  Optic(m_pImpl).FlagMonochromaticWaveLength = v;
}
int CNVX3DComputation::GetSolidOpticValueMonochromaticWaveLength(int& v) {
  return v = Optic(m_pImpl).ValueMonochromaticWaveLength;
}
void CNVX3DComputation::SetSolidOpticValueMonochromaticWaveLength(int v) {
  Optic(m_pImpl).ValueMonochromaticWaveLength = v;
}
int CNVX3DComputation::GetSolidOpticFlagOutputToOpticalSoftware(bool& v) {
  v = Optic(m_pImpl).FlagOutputToOpticalSoftware;
  return 1;
}
void CNVX3DComputation::SetSolidOpticFlagOutputToOpticalSoftware(bool v) {
  Optic(m_pImpl).FlagOutputToOpticalSoftware = v;
}
int CNVX3DComputation::GetSolidOpticDirectionVersion(int& v) {
  return v = Optic(m_pImpl).DirectionVersion;
}
void CNVX3DComputation::SetSolidOpticDirectionVersion(int v) {
  Optic(m_pImpl).DirectionVersion = v;
}
int CNVX3DComputation::GetSolidOpticDirectionValueOpticLightDirection(int& v) {
  return v = Optic(m_pImpl).ValueOpticLightDirection;
}
void CNVX3DComputation::SetSolidOpticDirectionValueOpticLightDirection(int v) {
  Optic(m_pImpl).ValueOpticLightDirection = v;
}
int CNVX3DComputation::GetSolidOpticOpticalSoftware(std::string& v) {
  v = Optic(m_pImpl).OpticalSoftware;
  return 1;
}
void CNVX3DComputation::SetSolidOpticOpticalSoftware(std::string v) {
  Optic(m_pImpl).OpticalSoftware = std::move(v);
}
int CNVX3DComputation::GetSolidOpticOutputBC(int& v) { return v = Optic(m_pImpl).OutputBC; }
void CNVX3DComputation::SetSolidOpticOutputBC(int v) { Optic(m_pImpl).OutputBC = v; }
int CNVX3DComputation::GetSolidOpticFlagDeformedShape(int& v) {
  return v = Optic(m_pImpl).FlagDeformedShape;
}
void CNVX3DComputation::SetSolidOpticFlagDeformedShape(int v) {
  Optic(m_pImpl).FlagDeformedShape = v;
}
int CNVX3DComputation::GetSolidOpticFlagRefractiveindex(int& v) {
  return v = Optic(m_pImpl).FlagRefractiveindex;
}
void CNVX3DComputation::SetSolidOpticFlagRefractiveindex(int v) {
  Optic(m_pImpl).FlagRefractiveindex = v;
}
int CNVX3DComputation::GetSolidOpticFlagBirefringence(int& v) {
  return v = Optic(m_pImpl).FlagBirefringence;
}
void CNVX3DComputation::SetSolidOpticFlagBirefringence(int v) {
  Optic(m_pImpl).FlagBirefringence = v;
}
int CNVX3DComputation::GetSolidOpticOutputDirectory(std::string& v) {
  v = Optic(m_pImpl).OutputDirectory;
  return 1;
}
void CNVX3DComputation::SetSolidOpticOutputDirectory(std::string v) {
  Optic(m_pImpl).OutputDirectory = std::move(v);
}

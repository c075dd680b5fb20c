// CNVX3DComputationImpl: the implementation object behind the exported facade.
// It owns the section table (22 record slots), the copy of the project
// description and every path, and does all loading and writing.
#ifndef NVX_CORE_NVX3DCOMPUTATIONIMPL_H_
#define NVX_CORE_NVX3DCOMPUTATIONIMPL_H_

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "core/NVXData.h"
#include "krn/KRNDocument.h"
#include "sections/Computing.h"
#include "sections/Cool.h"
#include "sections/FillPack.h"
#include "sections/Foaming.h"
#include "sections/HRSteady.h"
#include "sections/IC.h"
#include "sections/LongFiber.h"
#include "sections/MCM.h"
#include "sections/Optic.h"
#include "sections/SlipBC.h"
#include "sections/SolidStress.h"
#include "sections/Summary.h"
#include "sections/Viscoelastic.h"
#include "sections/Warp.h"

// The empty placeholder object of slot 1.
struct CNVX3DEmptyRecord {};

// The section table. A failed allocation leaves a slot null.
struct CNVX3DSectionTable {
  static constexpr int kSlotCount = 22;

  std::unique_ptr<CNVX3DKRNDocument> document;               // 0
  std::unique_ptr<CNVX3DEmptyRecord> placeholder;            // 1
  std::unique_ptr<CNVX3DSummary> summary;                    // 2
  std::unique_ptr<CNVX3DFillPackTimeSteps> fillPack;         // 3
  std::unique_ptr<CNVX3DSolidCool> cool;                     // 4
  std::unique_ptr<CNVX3DSolidWrap> warp;                     // 5
  std::unique_ptr<CNVX3DSolidStress> stress;                 // 6
  std::unique_ptr<CNVX3DSolidOptic> optic;                   // 7
  std::unique_ptr<CNVX3DSolidIC> ic;                         // 8
  std::unique_ptr<CNVX3DSolidVE> ve;                         // 9
  std::unique_ptr<CNVX3DSolidMCM> mcm;                       // 10
  std::unique_ptr<CNVX3DComputingManager> computingManager;  // 11
  std::unique_ptr<CNVX3DTaskManager> taskManager;            // 12
  std::unique_ptr<CNVX3DRemoteMachines> remoteMachines;      // 13
  std::unique_ptr<CNVX3DLongFiber> longFiber;                // 14
  std::unique_ptr<CNVX3DFoaming> foaming;                    // 15
  std::unique_ptr<CNVX3DPartInsert> partInsert;              // 16
  std::unique_ptr<CNVX3DVEStress> veStress;                  // 17
  std::unique_ptr<CNVX3DVEWarp> veWarp;                      // 18
  std::unique_ptr<CNVX3DSlipBC> slip;                        // 19
  std::unique_ptr<CNVX3DVECuringStress> veCuring;            // 20
  std::unique_ptr<CNVX3DHRSteady> hrSteady;                  // 21
};

// Indices of the page-availability flags (pages of the host's parameter dialog).
enum NVXPage {
  kPageFill,
  kPagePack,
  kPageCool,
  kPageWarp,
  kPageStress,
  kPageViscoelastic,
  kPageOptic,
  kPageICPackage,
  kPageMultiComponent,
  kPageComputing,
  kPageFiber,
  kPageFoaming,  // the one flag that is not mirrored into the facade
  kPageCount,
};

class CNVX3DComputationImpl {
 public:
  CNVX3DComputationImpl();
  // A new object whose document, summary and fill/pack records exist; throws
  // std::bad_alloc otherwise. For callers outside the facade (the tool, the
  // Python module), which need those records.
  static std::unique_ptr<CNVX3DComputationImpl> MakeComplete();
  CNVX3DComputationImpl(const CNVX3DComputationImpl&) = delete;
  CNVX3DComputationImpl& operator=(const CNVX3DComputationImpl&) = delete;

  // Validates `d` and takes it over; returns 1, or -1 (load mode not below 4),
  // -2 (empty path), -4 (model kind not below 4), -5 (negative analysis type).
  int TakeOver(const NVXData& d);
  // Every section back to the defaults of the model kind and analysis type.
  void ResetToDefaults();
  // Section values that follow from the project description.
  void ApplyDataAdjustments();
  // Adjustments of the stress times after any load.
  void ApplyStressTimeAdjustments();
  // Reads a KRN file into the sections (both passes); false without a document
  // object. A file that cannot be opened changes nothing.
  bool ReadKrn(const std::string& path);
  // The main load with a project description (steps 2 to 7 of the facade's load).
  bool Load(const NVXData& d);

  // The per-user template "<user dir>/KRNTemplate.krn"; empty when the per-user
  // directory cannot be had.
  std::string UserTemplatePath() const;
  // Builds the per-user template path, stores it and tests for the file.
  bool UserTemplateExists();

  bool fileExists = false;
  bool stateLongFiber = false;  // the two state bytes of the description
  bool stateFoaming = false;
  std::int32_t loadMode = -1;
  std::int32_t modelKind = 0;
  std::int32_t analysisType = 0;
  std::wstring krnPath;
  // Derived process values: the gate-freeze temperature and flow-rate ratio.
  double freezeTemperature = 120.0;
  double freezeFlowRateRatio = 0.1;
  std::string userTemplatePath;
  std::int32_t templateWriting = 0;
  std::int32_t mode = 0;
  std::array<bool, kPageCount> pages{};
  CNVX3DSectionTable sections;
  std::unique_ptr<CNVX3DCrystalLine> crystal;
  NVXData data;
  std::string rsvPath;
  std::string secondPath;
  std::uint32_t processorCount = 0;

 private:
  void ComputePages();
};

#endif  // NVX_CORE_NVX3DCOMPUTATIONIMPL_H_

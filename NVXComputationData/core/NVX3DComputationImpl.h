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
#include "core/RecordSlot.h"
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

// The section table: the records in their slots, created by the constructor
// of the implementation object.
struct CNVX3DSectionTable {
  static constexpr int kSlotCount = 22;

  RecordSlot<CNVX3DKRNDocument> document;               // 0
  RecordSlot<CNVX3DEmptyRecord> placeholder;            // 1
  RecordSlot<CNVX3DSummary> summary;                    // 2
  RecordSlot<CNVX3DFillPackTimeSteps> fillPack;         // 3
  RecordSlot<CNVX3DSolidCool> cool;                     // 4
  RecordSlot<CNVX3DSolidWrap> warp;                     // 5
  RecordSlot<CNVX3DSolidStress> stress;                 // 6
  RecordSlot<CNVX3DSolidOptic> optic;                   // 7
  RecordSlot<CNVX3DSolidIC> ic;                         // 8
  RecordSlot<CNVX3DSolidVE> ve;                         // 9
  RecordSlot<CNVX3DSolidMCM> mcm;                       // 10
  RecordSlot<CNVX3DComputingManager> computingManager;  // 11
  RecordSlot<CNVX3DTaskManager> taskManager;            // 12
  RecordSlot<CNVX3DRemoteMachines> remoteMachines;      // 13
  RecordSlot<CNVX3DLongFiber> longFiber;                // 14
  RecordSlot<CNVX3DFoaming> foaming;                    // 15
  RecordSlot<CNVX3DPartInsert> partInsert;              // 16
  RecordSlot<CNVX3DVEStress> veStress;                  // 17
  RecordSlot<CNVX3DVEWarp> veWarp;                      // 18
  RecordSlot<CNVX3DSlipBC> slip;                        // 19
  RecordSlot<CNVX3DVECuringStress> veCuring;            // 20
  RecordSlot<CNVX3DHRSteady> hrSteady;                  // 21
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
  // A new object on the heap, every record created (throws std::bad_alloc
  // when there is no memory). For callers outside the facade (the tool, the
  // Python module).
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
  RecordSlot<CNVX3DCrystalLine> crystal;
  NVXData data;
  std::string rsvPath;
  std::string secondPath;
  std::uint32_t processorCount = 0;

 private:
  void ComputePages();
};

#endif  // NVX_CORE_NVX3DCOMPUTATIONIMPL_H_

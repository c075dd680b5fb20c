// The hot-runner steady record (section <FILL_ADVANCED_HRSteady>). Its fields
// are still to come.
#ifndef NVX_SECTIONS_HRSTEADY_H_
#define NVX_SECTIONS_HRSTEADY_H_

#include <cstdint>

struct CNVX3DHRSteady {
  std::int32_t Version = 1001;
};

#endif  // NVX_SECTIONS_HRSTEADY_H_

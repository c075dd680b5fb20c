// The cooling record (sections <SHELL_COOL>, <SOLID_COOL>, <COOL_OUTPUT_TIMES>,
// <MoldPreheat_OUTPUT_TIMES>, <OPEN_OUTPUT_TIMES>). Its fields are still to come.
#ifndef NVX_SECTIONS_COOL_H_
#define NVX_SECTIONS_COOL_H_

#include <cstdint>

class CNVX3DCoolBase {
 public:
  virtual ~CNVX3DCoolBase() = default;
};

class CNVX3DSolidCool : public CNVX3DCoolBase {
 public:
  ~CNVX3DSolidCool() override = default;
};

#endif  // NVX_SECTIONS_COOL_H_

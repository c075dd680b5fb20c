// The long-fiber record (section <FILL_ADVANCED_LONGFIBER>). Its fields are
// still to come.
#ifndef NVX_SECTIONS_LONGFIBER_H_
#define NVX_SECTIONS_LONGFIBER_H_

#include <cstdint>

struct CNVX3DLongFiber {};

#endif  // NVX_SECTIONS_LONGFIBER_H_

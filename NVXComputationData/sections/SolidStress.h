// The solid stress record (section <SOLID_STRESS>, RSV table "SOLID_STRESS")
// and the part-insert material record (RSV table "PartInsert"; in KRN its
// lists are part of <SOLID_STRESS>).
//
// Layout. The stress record's lists are flat vectors of rows:
//   TempTime           rows of (time, temperature)
//   MatTempPart        rows of (temperature, modulus); KRN key "MatTemp(Part)"
//   ValueOutPutTiming  rows of one time
// Each part insert has a number and two lists of (temperature, value) rows:
// its modulus and its linear thermal expansion coefficient. Inserts are kept
// sorted by number, numbers unique.
//
// KRN form of a list: "Key = <rows>" followed by one line per row,
// "<i> = <v1> <v2>" (i counting from 1, not looked at on reading). The part
// inserts write "MatTemp(PartInsert-Modulus-<number>) = <rows>" and
// "MatTemp(PartInsert-CLTE-<number>) = <rows>" each followed by its rows.
// Reading takes at most <rows> row lines and stops early at the first line
// whose first token is not an item number, so a count larger than the rows
// present (or absurd) neither swallows the keys after it nor allocates more
// than the lines hold; the list then holds the rows found. A missing value of
// a row reads as 0.0; a count below 1 empties the list. A section that names
// an insert replaces that insert's list; inserts it does not name stay.
//
// RSV form: each stress list is one raw-byte item of the "SOLID_STRESS" table
// holding its doubles in row order (8 bytes each, native order). The
// "PartInsert" table holds "Version", "NoPartInsert" and, for the k-th insert
// (k from 1), "PartInsertNumber<k>" (int) and the raw-byte items
// "PartInsertModulus<k>" and "PartInsertCLTE<k>". Reading a list item that is
// missing leaves the list as it is; trailing bytes that make no whole row are
// ignored. The insert reader stops at the first k without a number item, so an
// absurd count reads only the inserts the table holds.
#ifndef NVX_SECTIONS_SOLIDSTRESS_H_
#define NVX_SECTIONS_SOLIDSTRESS_H_

#include <cstdint>
#include <vector>

#include "core/SectionDef.h"

struct CNVX3DSolidStress {
  std::int32_t Version = 1001;
  std::int32_t IDCompositeModel = 2;
  std::int32_t FlagSolverAcceleration = 1;
  std::int32_t FlagFiberEffect = 0;  // mirrors the fill fibre flag when that is set
  std::int32_t ValueMaxIteration = 50000;
  double ValueMinIterativeError = 5e-05;
  double ValueGravityX = 0.0;
  double ValueGravityY = 0.0;
  double ValueGravityZ = 0.0;
  std::int32_t WeldLineEffect = 0;  // the weld-line analysis flag
  // Weld-line meeting angles (degrees) bounding the three reduction classes,
  // and the strength kept in each class (1 keeps all of it).
  double WeldlineAngle1 = 30.0;
  double WeldlineAngle2 = 60.0;
  double WeldlineAngle3 = 90.0;
  double WeldlineAngle4 = 120.0;
  double ReductionRate1 = 1.0;
  double ReductionRate2 = 1.0;
  double ReductionRate3 = 1.0;
  std::int32_t FlagVEResidualStress = 0;
  std::int32_t TransientStressCouplingType = 0;
  double ValueInitialTemperature = 25.0;
  double Valuedt = 1.0;
  double ValueTimePeriod = 60.0;
  double ValueHTC = 1000.0;
  std::vector<double> TempTime;     // (time, temperature) rows
  std::vector<double> MatTempPart;  // (temperature, modulus) rows
  std::int32_t FlagUserDefinedMaterial = 0;
  std::vector<double> ValueOutPutTiming;  // times
  std::int32_t ValueAnnealgingCycleNumber = 1;
};

struct CNVX3DPartInsertMaterial {
  std::int32_t Number = 0;
  std::vector<double> Modulus;  // (temperature, modulus) rows
  std::vector<double> CLTE;     // (temperature, expansion coefficient) rows
};

struct CNVX3DPartInsert {
  std::int32_t Version = 1001;
  std::vector<CNVX3DPartInsertMaterial> Inserts;  // sorted by Number
};

namespace nvx {

extern const SectionDef kSolidStressSection;
extern const SectionDef kPartInsertTable;

// Values of each row of the stress lists.
inline constexpr int kPairColumns = 2;

void ResetSolidStress(CNVX3DSolidStress& record);
void ResetPartInsert(CNVX3DPartInsert& record);
// Sets the number of inserts: new ones are numbered on from the last number
// (from 1), surplus ones are dropped from the end. Below 0 counts as 0.
void SetPartInsertCount(CNVX3DPartInsert& record, std::int32_t count);
// The insert numbered `number`, made (in sorted place) when missing.
CNVX3DPartInsertMaterial& FindOrAddInsert(CNVX3DPartInsert& record, std::int32_t number);
// Resizes a flat list to `rows` rows of `columns` values (new values 0.0).
void SetRowCount(std::vector<double>& list, std::int32_t rows, int columns);

}  // namespace nvx

#endif  // NVX_SECTIONS_SOLIDSTRESS_H_
